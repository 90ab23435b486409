#include "edit/edit_run.h"

#include <algorithm>
#include <utility>

#include "base/numbers.h"
#include "base/text.h"
#include "centre/names_file.h"
#include "edit/edit_profile.h"
#include "shared/function_module.h"
#include "shared/records.h"

namespace tul::edit {

Edit editing;

namespace {

constexpr const char* toolName = "edit";
constexpr std::string_view hyphens = "----";
constexpr ToolForm editForm = {.countsCharacters = true};

class EditRun : public PageUpdateRun {
  public:
    EditRun(std::string title, FamilyRuns families)
        : PageUpdateRun(editForm, editing.chkEditBackup ? Rewrite::always : Rewrite::ifChanged),
          title_(std::move(title)),
          families_(std::move(families)) {}

    void writeHead(Report& report) override;
    ReportEnd writeEnd(Report& report, const RunResult& result) override;

  protected:
    void updatePage(const PageInRun& page) override {
        for (const auto& family : families_) family->updateFile(page);
    }

  private:
    std::string title_;
    FamilyRuns families_;
};

void EditRun::writeHead(Report& report) {
    const std::size_t width = std::max(selection.LongestName.size(), hyphens.size());
    report.line(title_ + " " + dateAndTime());
    report.line(" ");
    report.line(padRight("File", width));
    report.line(padRight(hyphens, width, '-'));
}

ReportEnd EditRun::writeEnd(Report& report, const RunResult& result) {
    editing.view.file.clear();
    report.line(" ");
    for (const auto& family : families_) family->writeCounters(report, result);
    report.line(" ");
    report.line("Number of files processed: " + plain(selection.SelectionCount));
    return ReportEnd::show;
}

/// The pages that have buttons only: a run reads and writes the files as they are.
bool hasButtonsOnly(int tab) { return tab == tabFont || tab == tabSpecial; }

/// The families of a page that are chosen on it. False where there are some, and none of them is.
bool findChosen(int tab, std::vector<const Family*>& chosen) {
    bool hasFamilies = false;
    for (const Family* family : families()) {
        if (family->tab != tab || !family->begin) continue;
        hasFamilies = true;
        if (!family->isChosen || family->isChosen()) chosen.push_back(family);
    }
    return !hasFamilies || !chosen.empty();
}

/// Why the page in front cannot be run, told where it is not obvious.
bool mayRun(const std::vector<const Family*>& chosen) {
    if (chosen.empty() && !hasButtonsOnly(editing.tabEdit))
        return refuse("This version has no edits for this tab yet. No file was touched.");
    return std::all_of(chosen.begin(), chosen.end(),
                       [](const Family* family) { return !family->mayRun || family->mayRun(); });
}

}  // namespace

std::vector<std::string> tabNames() {
    return {"clef",   "rest", "staff", "text",  "numbers", "barline", "general",
            "offset", "slur", "line",  "stems", "lyrics",  "font",    "special"};
}

void resetEdit() {
    editing = {};
    bracketSettings = {};
    for (const Family* family : families()) family->reset();
}

void runFamilies(const std::string& title, FamilyRuns families) {
    ReadNamesFile();
    EditRun run(title, std::move(families));
    runOverPages(editing.view,
                 {.tool = toolName,
                  .pages = selectedPages(),
                  .report = "TULEDIT.PRN",
                  .tellNoReport = [](const std::string& path,
                                     FileError) { endWith("Failed to open " + path + " for output"); },
                  .changesPages = true,
                  .backup = editing.chkEditBackup,
                  .idleStatus = idleStatus},
                 run);
}

void cmdEditRun() {
    std::vector<const Family*> chosen;
    const std::size_t before = runResults.size();
    if (editing.tabEdit == tabStems || !findChosen(editing.tabEdit, chosen) || !mayRun(chosen)) {
        if (runResults.size() == before) noteRefusedRun(toolName);  // without a word
        return;
    }
    const WaitingPointer pointer;
    FamilyRuns runs;
    for (const Family* family : chosen) runs.push_back(family->begin());
    runFamilies("TUL Edit run", std::move(runs));
}

void writeCounter(Report& report, std::string_view label, std::int64_t count, std::string_view behind) {
    report.line(std::string(label) + formatted(static_cast<double>(count), "#######0") + std::string(behind));
}

bool isConfirmed(const std::string& question) {
    const Answer answer = MsgBox(question, Buttons::yesNoCancel, Icon::question);
    if (answer == Answer::cancel) editing.view.control.abandon();
    return answer == Answer::yes;
}

std::string itemNumberLine(int item) { return "Item number:" + str(item) + std::string(CrLf); }

bool refuse(const std::string& text) {
    refuseRun(toolName, text);
    return false;
}

}  // namespace tul::edit
