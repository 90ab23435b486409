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
constexpr const char* reportName = "TULEDIT.PRN";

class EditRun : public PageUpdateRun {
  public:
    explicit EditRun(FamilyRuns families)
        : PageUpdateRun(editForm, editing.chkEditBackup ? Rewrite::always : Rewrite::ifChanged),
          families_(std::move(families)) {}

  protected:
    void updatePage(const PageInRun& page) override {
        for (const auto& family : families_) family->updateFile(page);
    }

    [[nodiscard]] const FamilyRuns& chosen() const { return families_; }

  private:
    FamilyRuns families_;
};

class ReportedRun : public EditRun {
  public:
    ReportedRun(std::string title, FamilyRuns families)
        : EditRun(std::move(families)), title_(std::move(title)) {}

    void writeHead(Report& report) override;
    ReportEnd writeEnd(Report& report, const RunResult& result) override;

  private:
    std::string title_;
};

class ToldRun : public EditRun {
  public:
    ToldRun(std::string label, FamilyRuns families)
        : EditRun(std::move(families)), label_(std::move(label)) {}

    void writeHead(Report&) override {}
    ReportEnd writeEnd(Report& report, const RunResult& result) override;

  private:
    std::string label_;
};

FamilyRuns alone(std::unique_ptr<FamilyRun> family) {
    FamilyRuns families;
    families.push_back(std::move(family));
    return families;
}

void start(ToolRun& run, RunPlan plan) {
    const WaitingPointer pointer;
    plan.tool = toolName;
    plan.tellNoReport = endWithoutReport;
    plan.backup = plan.changesPages && editing.chkEditBackup;
    plan.idleStatus = idleStatus;
    runOverPages(editing.view, plan, run);
}

void ReportedRun::writeHead(Report& report) { writeReportHead(report, title_); }

ReportEnd ToldRun::writeEnd(Report&, const RunResult& result) {
    return endEdit(label_ + plain(result.changes()), result);
}

ReportEnd ReportedRun::writeEnd(Report& report, const RunResult& result) {
    editing.view.file.clear();
    report.line(" ");
    for (const auto& family : chosen()) family->writeCounters(report, result);
    writeReportEnd(report);
    return ReportEnd::show;
}

/// The families of a page that are chosen on it. False where there are some, and none of them is; a page that
/// has buttons only reads and writes the files as they are.
bool findChosen(int tab, std::vector<const Family*>& chosen) {
    bool hasFamilies = false;
    for (const Family* family : families()) {
        if (family->tab != tab || !family->begin) continue;
        hasFamilies = true;
        if (!family->isChosen || family->isChosen()) chosen.push_back(family);
    }
    return !hasFamilies || !chosen.empty();
}

bool mayRun(const std::vector<const Family*>& chosen) {
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
    for (const Family* family : families())
        if (family->reset) family->reset();
}

void runReport(ToolRun& run, std::vector<std::string> pages) {
    start(run, {.pages = std::move(pages), .report = reportName});
}

void runFamilies(const std::string& title, FamilyRuns families) {
    ReadNamesFile();
    ReportedRun run(title, std::move(families));
    start(run, {.pages = selectedPages(), .report = reportName, .changesPages = true});
}

void runToReport(const std::string& title, std::unique_ptr<FamilyRun> family) {
    runFamilies(title, alone(std::move(family)));
}

void runToMessage(const std::string& label, std::unique_ptr<FamilyRun> family) {
    ReadNamesFile();
    ToldRun run(label, alone(std::move(family)));
    start(run, {.pages = selectedPages(), .changesPages = true});
}

void runOnPage(ToolRun& run, const std::string& path) { start(run, {.pages = {path}, .changesPages = true}); }

ReportEnd endEdit(std::string text, const RunResult& result) {
    editing.view.file.clear();
    return tul::endInMessage(std::move(text), result);
}

Command onSelection(std::string name, std::string caption, void (*run)()) {
    return {.name = std::move(name), .caption = std::move(caption), .run = run, .enabled = [] {
                return selection.SelectionValid;
            }};
}

bool isAgreed(const std::string& question, Buttons buttons) {
    return tul::isAgreed(toolName, question, buttons);
}

Command forDevelopers(Command command) {
    command.visible = [] { return identity.DeveloperMode; };
    return command;
}

bool showsHideable() { return identity.DeveloperMode && !editing.hidesButtons; }

void cmdEditRun() {
    std::vector<const Family*> chosen;
    const std::size_t before = runResults.size();
    if (editing.tabEdit == tabStems || !findChosen(editing.tabEdit, chosen) || !mayRun(chosen)) {
        if (runResults.size() == before) noteRefusedRun(toolName);  // without a word
        return;
    }
    FamilyRuns runs;
    for (const Family* family : chosen) runs.push_back(family->begin());
    runFamilies("TUL Edit run ", std::move(runs));
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

bool hasRoom(const PageInRun& page, const std::string& addition) {
    if (musItemTable.itemCount < MusItemTable::capacity) return true;
    MsgBox("MUS file too big to add " + addition + ":" + page.result.path);
    page.result.lacksRoom = true;
    return false;
}

bool refuse(const std::string& text) {
    refuseRun(toolName, text);
    return false;
}

}  // namespace tul::edit
