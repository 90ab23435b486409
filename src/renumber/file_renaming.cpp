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

class RenameRun : public ToolRun {
  public:
    explicit RenameRun(std::vector<NewName> names) : names_(std::move(names)) {}

    void writeHead(Report& report) override;
    PageEnd processPage(const PageInRun& page) override;
    ReportEnd writeEnd(Report& report, const RunResult& result) override;

  private:
    void adaptSelection(std::size_t renamed) const;
    std::string selectionLine(std::size_t renamed) const;
    std::string backupLine() const;

    std::vector<NewName> names_;
    std::size_t next_ = 0;
};

/// Shown only where some files keep their old names.
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

/// The names file gets the name that each file has on the disk. One that has vanished meanwhile is left out.
void RenameRun::adaptSelection(std::size_t renamed) const {
    std::string text;
    for (const NewName& name : names_)
        if (const std::string path = presentPath({name.from, name.to}); !path.empty())
            text += namesFileLine(path);
    if (files().replace(paths.NamesFilePath, text) != FileError::none)
        endWith(paths.NamesFilePath + " could not be opened for output. Hit Enter to abort" + newLine +
                "Number of files renamed/renumbered: " + plain(renamed) + newLine +
                "The selection still has the old names.");
    ReadNamesFile();
}

std::string RenameRun::selectionLine(std::size_t renamed) const {
    if (renamed == 0) return {};
    return newLine + (fileOptions.chkRenumFileNamesFile
                          ? "The selection has been adapted."
                          : "The selection has the old names and no longer fits. Select the files anew.");
}

std::string RenameRun::backupLine() const {
    const auto count = std::count_if(names_.begin(), names_.end(), [](const NewName& name) {
        return name.leavesBackups && presentPath({name.from, name.to}) == name.to;
    });
    if (count == 0) return {};
    return newLine + "Backups left behind under the old names: those of " + plain(count) +
           (count == 1 ? " file." : " files.");
}

ReportEnd RenameRun::writeEnd(Report&, const RunResult& result) {
    const auto isRenamed = [](const PageResult& page) { return !page.newPath.empty(); };
    const auto renamed =
        static_cast<std::size_t>(std::count_if(result.pages.begin(), result.pages.end(), isRenamed));
    if (fileOptions.chkRenumFileNamesFile) adaptSelection(renamed);
    forgetRenaming();
    endInMessage(
        "Number of files renamed/renumbered: " + plain(renamed) + selectionLine(renamed) + backupLine(),
        result);
    return renamed == result.pages.size() ? ReportEnd::remove : ReportEnd::show;
}

bool isWanted() {
    const std::size_t count = filesToRename().size();
    const std::string many = count > 1 ? str(count) + " files" : "";
    return isAgreed(toolName, "Are you sure to rename" + many + " to " + fileOptions.txtRenumOutname + "?",
                    Buttons::okCancel);
}

bool recordNames(const std::vector<NewName>& names) {
    std::vector<Renaming> renamings;
    for (const NewName& name : names) renamings.push_back({name.from, name.to});
    return recordRenaming(renamings, fileOptions.chkRenumFileNamesFile) == FileError::none;
}

}  // namespace

void RenumberFile() {
    ReadNamesFile();
    if (!selection.SelectionValid) return noteRefusedRun(toolName, "nothing is selected");
    if (!isWanted()) return;
    NamePlan plan = planNames();
    if (!plan.refusal.empty()) return refuseRun(toolName, plan.refusal, Icon::exclamation);
    if (!recordNames(plan.names))
        return refuseRun(toolName,
                         "No file can be written in " + paths.ProgramFolder + ". No file was renamed.",
                         Icon::exclamation);
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
