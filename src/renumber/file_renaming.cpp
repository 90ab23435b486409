#include "renumber/file_renaming.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "base/numbers.h"
#include "base/text.h"
#include "centre/names_file.h"
#include "centre/renaming_record.h"
#include "host/host.h"
#include "renumber/new_names.h"
#include "renumber/renumber_run.h"
#include "shared/function_module.h"
#include "shared/records.h"

namespace tul::renumber {

namespace {

const std::string newLine(CrLf);

std::string reasonOf(FileError fault) {
    switch (fault) {
        case FileError::fileExists:
            return "a file of the new name has appeared";
        case FileError::fileNotFound:
            return "it is no longer there";
        case FileError::permissionDenied:
        case FileError::readOnly:
            return "the folder or the file is write-protected";
        default:
            return "error" + str(static_cast<int>(fault));
    }
}

const std::string closing = "Number of files renamed/renumbered: ";

std::size_t renamedOf(const RunResult& result) {
    const auto isRenamed = [](const PageResult& page) { return !page.newPath.empty(); };
    return static_cast<std::size_t>(std::count_if(result.pages.begin(), result.pages.end(), isRenamed));
}

std::vector<Renaming> renamingsOf(const std::vector<NewName>& names) {
    std::vector<Renaming> renamings;
    renamings.reserve(names.size());
    for (const NewName& name : names) renamings.push_back({name.from, name.to});
    return renamings;
}

class RenameRun : public ToolRun {
  public:
    explicit RenameRun(std::vector<NewName> names) : names_(std::move(names)) {}

    void writeHead(Report& report) override;
    PageEnd processPage(const PageInRun& page) override;
    ReportEnd writeEnd(Report& report, const RunResult& result) override;

  private:
    void adaptSelection(const RunResult& result) const;
    std::string backupLine(const RunResult& result) const;

    std::vector<NewName> names_;  // in the order of the run's pages
    std::size_t next_ = 0;
};

void RenameRun::writeHead(Report& report) {
    report.line("TUL Rename run " + dateAndTime());
    report.line(" ");
}

PageEnd RenameRun::processPage(const PageInRun& page) {
    const NewName& name = names_[next_++];
    if (const std::string present = files().nameOnDisk(name.from); !present.empty())
        page.result.path = selection.SelectionPrefix + present;  // which nobody can look up once it is gone
    const FileError fault = files().rename(name.from, name.to);
    page.result.isDone = fault == FileError::none;
    if (page.result.isDone)
        page.result.newPath = name.to;
    else
        page.result.reason = reasonOf(fault);
    page.report.line(name.from + (page.result.isDone ? " -> " + std::string(fileNameOf(name.to))
                                                     : " keeps its name: " + page.result.reason));
    return PageEnd::next;
}

void RenameRun::adaptSelection(const RunResult& result) const {
    std::vector<std::string> present;
    for (const PageResult& page : result.pages)
        present.push_back(page.newPath.empty() ? page.path : page.newPath);
    if (selectPresent(present) != FileError::none) {
        std::string text = paths.NamesFilePath + " could not be opened for output. Hit Enter to abort" +
                           newLine + closing + plain(renamedOf(result)) + newLine +
                           "The selection still has the old names.";
        for (const std::string& line : findingsOf(result)) text += newLine + line;
        endWith(text);
    }
    ReadNamesFile();
}

std::string RenameRun::backupLine(const RunResult& result) const {
    int count = 0;
    for (std::size_t page = 0; page < names_.size(); ++page)
        if (names_[page].leavesBackups && !result.pages[page].newPath.empty()) ++count;
    if (count == 0) return {};
    return newLine + "Backups left behind under the old names: those of " + plain(count) +
           (count == 1 ? " file." : " files.");
}

std::string selectionLine() {
    if (!fileOptions.chkRenumFileNamesFile)
        return newLine + "The selection has the old names and no longer fits. Select the files anew.";
    return selection.SelectionValid ? newLine + "The selection has been adapted." : std::string();
}

/// The report is wanted only where some files keep their old names.
ReportEnd RenameRun::writeEnd(Report& report, const RunResult& result) {
    const std::size_t renamed = renamedOf(result);
    const bool isWhole = renamed == result.pages.size();
    if (isWhole) files().removeIfThere(report.path());
    if (fileOptions.chkRenumFileNamesFile) adaptSelection(result);
    forgetRenaming();
    endInMessage(closing + plain(renamed) + (renamed > 0 ? selectionLine() : "") + backupLine(result),
                 result);
    return isWhole ? ReportEnd::remove : ReportEnd::show;
}

bool isWanted() {
    const std::size_t count = filesToRename().size();
    const std::string many = count > 1 ? str(count) + " files" : "";
    return isAgreed(toolName, "Are you sure to rename" + many + " to " + fileOptions.txtRenumOutname + "?",
                    Buttons::okCancel);
}

/// What the run will have to write at its end can be written now.
bool canAdaptSelection() {
    std::string text;
    return files().read(paths.NamesFilePath, text) == FileError::none &&
           files().replace(paths.NamesFilePath, text) == FileError::none;
}

std::string refusalOfDisk(const std::vector<NewName>& names) {
    const bool adapts = fileOptions.chkRenumFileNamesFile;
    if (adapts && !canAdaptSelection())
        return paths.NamesFilePath + " cannot be written. No file was renamed.";
    if (recordRenaming(renamingsOf(names), adapts) == FileError::none) return {};
    return "No file can be written in " + paths.ProgramFolder + ". No file was renamed.";
}

}  // namespace

void RenumberFile() {
    ReadNamesFile();
    if (!selection.SelectionValid) return noteRefusedRun(toolName, "nothing is selected");
    if (!isWanted()) return;
    NamePlan plan = planNames();
    if (!plan.refusal.empty()) return refuseRun(toolName, plan.refusal, Icon::exclamation);
    if (const std::string refusal = refusalOfDisk(plan.names); !refusal.empty())
        return refuseRun(toolName, refusal, Icon::exclamation);
    RenameRun run(std::move(plan.names));
    runOverPages(renumbering.view,
                 {.tool = toolName,
                  .pages = selectedPages(),
                  .report = "TULWORK.PRN",
                  .tellNoReport =
                      [](const std::string& path, FileError fault) {
                          forgetRenaming();
                          endWithoutReport(path, fault);
                      }},
                 run);
}

}  // namespace tul::renumber
