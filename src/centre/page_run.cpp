#include "centre/page_run.h"

#include <algorithm>
#include <optional>
#include <tuple>
#include <unordered_set>
#include <utility>

#include "base/numbers.h"
#include "base/text.h"
#include "centre/installation.h"
#include "centre/viewing.h"
#include "host/host.h"
#include "music/item_table.h"
#include "shared/function_module.h"
#include "shared/records.h"

namespace tul {

namespace {

constexpr std::string_view hyphens = "----";

/// From here to the end of its scope a run is on.
class RunInProgress {
  public:
    RunInProgress(RunView& view, const RunPlan& plan) : view_(view), idleStatus_(plan.idleStatus) {
        result_.tool = plan.tool;
        result_.begun = clock().now();
        result_.changesPages = plan.changesPages;
        result_.end = RunEnd::broken;  // until it has come to its end
        pipeline = {};
        pipeline.view = &view;
        pipeline.backup = plan.backup;
        pipeline.dropsCode13 = plan.dropsCode13;
        view.control.begin();
        view.overFiles = {.percent = 0, .visible = plan.pages.size() > 1};
    }
    ~RunInProgress() {
        breakOff();
        endLoop();
        view_.control.end();
        runResults.push_back(std::move(result_));
    }
    RunInProgress(const RunInProgress&) = delete;
    RunInProgress& operator=(const RunInProgress&) = delete;

    RunResult& result() { return result_; }

    /// The selection has `count` names, and the page is that of the `number`th.
    void beginPage(std::size_t page, std::size_t number, std::size_t count) {
        pipeline.page = std::move(result_.pages[page]);
        pipeline.page.isReached = true;
        page_ = page;
        view_.status = "File being processed:" + str(number) + " of" + str(count);
        view_.file = pipeline.page.path;
        yieldToEvents();
    }
    void endPage() {
        if (page_) result_.pages[*page_] = std::move(pipeline.page);
        page_.reset();
    }
    /// No page is worked on.
    void endLoop() {
        pipeline = {};
        view_.status = idleStatus_;
        view_.activity.clear();
        view_.overFiles.visible = false;
        view_.inFile = {};
        view_.control.endLoop();
    }

  private:
    /// The program ends, or met a fault, in a page.
    void breakOff() {
        if (!page_) return;
        result_.brokenAt = pipeline.page.path;
        if (pipeline.page.reason.empty()) pipeline.page.reason = "the program ended";
        endPage();
    }

    RunView& view_;
    const char* idleStatus_;
    RunResult result_;
    std::optional<std::size_t> page_;  // in work
};

/// The names file may have a page twice: it is one page all the same.
void listPages(const std::vector<std::string>& paths, RunResult& result) {
    std::unordered_set<std::string> known;
    for (const std::string& path : paths) {
        if (known.insert(path).second)
            result.pages.push_back({.path = path});
        else
            result.namedTwice.push_back(path);
    }
}

void writeFindings(Report& report, const RunResult& result) {
    for (const std::string& line : findingsOf(result)) report.line(line);
}

void finish(Report& report, ReportEnd end) {
    if (end == ReportEnd::show) return showAndDelete(report);
    if (end == ReportEnd::remove)
        files().removeIfThere(report.path());
    else if (!report.close())
        endWith("The report " + report.path() + " could not be written. The disk may be full.");
}

/// What a run works with.
struct Worker {
    ToolRun& tool;
    Report& report;
};

/// The result has each page once, where the list may have it again.
void takePages(RunInProgress& run, RunView& view, const RunPlan& plan, const Worker& worker) {
    std::size_t next = 0;
    const std::size_t count = plan.pages.size();
    for (std::size_t number = 1; number <= count && !view.control.isStopped(); ++number) {
        const auto& pages = run.result().pages;
        if (next == pages.size() || pages[next].path != plan.pages[number - 1]) continue;
        run.beginPage(next++, number, count);
        const PageEnd end = worker.tool.processPage(
            {.number = static_cast<int>(number), .result = pipeline.page, .report = worker.report});
        run.endPage();
        if (end == PageEnd::endRun) return;
        if (!view.control.isStopped()) view.overFiles.percent = static_cast<int>(number * 100 / count);
    }
}

}  // namespace

PageEnd PageUpdateRun::processPage(const PageInRun& page) {
    page.report.line(page.result.path);
    std::ignore = attempt([this] { storeFile(form_); });  // the findings name a reading that broke off
    // What an edit adds to a page of which nothing could be read must not take its place.
    const bool isUnread = musItemTable.itemCount == 0 && !page.result.isWhole();
    if (!attempt([&] { updatePage(page); })) page.result.isHalfChanged = true;
    if (pipeline.view->control.isAbandoned()) {
        page.result.changes = 0;
        return PageEnd::endRun;
    }
    const bool mayWrite = !isUnread && page.result.reason.empty();
    const bool isDue = mayWrite && (rewrite_ == Rewrite::always || page.result.changes != 0);
    if (isDue && !attempt([this] { writeFile(form_); }))
        page.result.reason = "an item of it cannot be written";
    page.result.isDone = page.result.reason.empty();
    return PageEnd::next;
}

void runOverPages(RunView& view, const RunPlan& plan, ToolRun& tool) {
    Report report(inProgramFolder(plan.report));
    const bool hasReport = !plan.report.empty();
    if (const FileError fault = hasReport ? report.open() : FileError::none; fault != FileError::none) {
        noteRefusedRun(plan.tool, "the report could not be opened for output");
        return plan.tellNoReport(report.path(), fault);
    }
    RunInProgress run(view, plan);
    RunResult& result = run.result();
    listPages(plan.pages, result);
    tool.writeHead(report);
    takePages(run, view, plan, {tool, report});
    result.end = view.control.isStopped() ? RunEnd::stopped : RunEnd::complete;
    if (result.pages.empty()) {
        result.end = RunEnd::refused;
        result.reason = "nothing is selected";
    }
    run.endLoop();
    const ReportEnd end = tool.writeEnd(report, result);
    if (!hasReport) return;
    writeFindings(report, result);
    finish(report, end);
}

std::size_t nameColumnWidth() { return std::max(selection.LongestName.size(), hyphens.size()); }

void endWithoutReport(const std::string& path, FileError) {
    endWith("Failed to open " + path + " for output");
}

void writeColumnHead(Report& report) {
    report.line(padRight("File", nameColumnWidth()));
    report.line(padRight(hyphens, nameColumnWidth(), '-'));
}

void writeReportHead(Report& report, const std::string& title) {
    report.line(title + dateAndTime());
    report.line(" ");
    writeColumnHead(report);
}

void writeReportEnd(Report& report) {
    report.line(" ");
    report.line("Number of files processed: " + plain(selection.SelectionCount));
}

ReportEnd endInMessage(std::string text, const RunResult& result) {
    for (const std::string& line : findingsOf(result)) text += std::string(text.empty() ? "" : CrLf) + line;
    MsgBox(text);
    return ReportEnd::remove;
}

bool isAgreed(const std::string& tool, const std::string& question, Buttons buttons) {
    const Answer answer = MsgBox(question, buttons, Icon::question);
    if (answer == Answer::yes || answer == Answer::ok) return true;
    noteRefusedRun(tool);
    return false;
}

std::vector<std::string> selectedPages() {
    return {selection.SelectionNames.begin(), selection.SelectionNames.end()};
}

void noteRefusedRun(const std::string& tool, const std::string& reason) {
    runResults.push_back({.tool = tool, .begun = clock().now(), .end = RunEnd::refused, .reason = reason});
}

void refuseRun(const std::string& tool, const std::string& text, Icon icon) {
    noteRefusedRun(tool, text);
    MsgBox(text, Buttons::ok, icon);
}

}  // namespace tul
