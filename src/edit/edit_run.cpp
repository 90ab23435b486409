#include "edit/edit_run.h"

#include <algorithm>
#include <vector>

#include "base/text.h"
#include "centre/names_file.h"
#include "centre/viewing.h"
#include "edit/edit_profile.h"
#include "shared/function_module.h"
#include "shared/records.h"

namespace tul::edit {

Edit editing;

namespace {

constexpr std::string_view hyphens = "----";

std::vector<const Family*> familiesOf(int tab) {
    std::vector<const Family*> found;
    for (const Family* family : families())
        if (family->tab == tab) found.push_back(family);
    return found;
}

/// The pages that have buttons only: a run reads and writes the files as they are.
bool hasButtonsOnly(int tab) { return tab == tabFont || tab == tabSpecial; }

void writeHead(Report& report, const std::string& title) {
    const std::size_t width = std::max(selection.LongestName.size(), hyphens.size());
    report.line(title + " " + dateAndTime());
    report.line(" ");
    report.line(padRight("File", width));
    report.line(padRight(hyphens, width, '-'));
}

void writeIfChanged() {
    if (editing.chkEditBackup || editing.counters.fileChanges != 0) attempt([] { writeFile(editForm); });
}

void processFile(Report& report, int number, const RunPlan& plan) {
    editing.counters.fileChanges = 0;
    report.line(editing.txtEditFile);
    yieldToEvents();
    pipeline.currentPath = editing.txtEditFile;
    attempt([] { storeFile(editForm); });
    attempt([&] { plan.updateFile({report, number}); });
    if (isCancelled()) return;
    writeIfChanged();
    editing.counters.totalUpdates += editing.counters.fileChanges;
}

void processSelection(Report& report, const RunPlan& plan) {
    const int count = selection.SelectionCount;
    for (int number = 1; number <= count; ++number) {
        editing.lblEditStatus = "File being processed:" + str(number) + " of" + str(count);
        editing.txtEditFile = selection.SelectionNames[number];
        processFile(report, number, plan);
        if (isCancelled()) break;
    }
    editing.lblEditStatus = Edit().lblEditStatus;
    editing.txtEditFile.clear();
    endPipelineRun();
}

}  // namespace

void resetEdit() {
    editing = {};
    bracketSettings = {};
    for (const Family* family : families()) family->reset();
}

void runOverSelection(const RunPlan& plan) {
    editing.control.running = true;
    editing.counters = {};
    ReadNamesFile();
    Report report(paths.ProgramFolder + "\\TULEDIT.PRN");
    if (!report.open()) endWith("Failed to open " + report.path() + " for output");
    writeHead(report, plan.title);
    beginPipelineRun(editing.chkEditBackup);
    processSelection(report, plan);
    report.line(" ");
    plan.writeCounters(report);
    report.line(" ");
    report.line("Number of files processed: " + plain(selection.SelectionCount));
    reportSuspectFiles(report);
    showAndDelete(report);
    editing.control.endRun();
}

void cmdEditRun() {
    const int tab = editing.tabEdit;
    if (tab == tabStems) return;
    const std::vector<const Family*> chosen = familiesOf(tab);
    if (chosen.empty() && !hasButtonsOnly(tab)) {
        refuse("This version has no edits for this tab yet. No file was touched.");
        return;
    }
    for (const Family* family : chosen)
        if (!family->mayRun()) return;
    for (const Family* family : chosen)
        if (family->begin) family->begin();
    const WaitingPointer pointer;
    runOverSelection({.title = "TUL Edit run",
                      .updateFile =
                          [&](const FileOfRun& file) {
                              for (const Family* family : chosen) family->updateFile(file);
                          },
                      .writeCounters =
                          [&](Report& report) {
                              for (const Family* family : chosen) family->writeCounters(report);
                          }});
}

void writeCounter(Report& report, std::string_view label, std::int32_t count, std::string_view behind) {
    report.line(std::string(label) + formatted(count, "#######0") + std::string(behind));
}

bool isConfirmed(const std::string& question) {
    const Answer answer = MsgBox(question, Buttons::yesNoCancel, Icon::question);
    if (answer == Answer::cancel) cancelRun();
    return answer == Answer::yes;
}

std::string itemNumberLine(int item) { return "Item number:" + str(item) + std::string(CrLf); }

bool refuse(const std::string& text) {
    MsgBox(text, Buttons::ok, Icon::information);
    return false;
}

}  // namespace tul::edit
