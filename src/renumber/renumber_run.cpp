#include "renumber/renumber_run.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "base/numbers.h"
#include "base/text.h"
#include "host/host.h"
#include "music/items.h"
#include "shared/records.h"

namespace tul::renumber {

Renumbering renumbering;

namespace {

/// Damage is shown in the list, where a message for each damaged page would stand in the way.
constexpr ToolForm previewForm = {.loop = ItemLoop::silent, .endsWhenFull = false};

std::string lossText(const PageResult& page) {
    std::string text;
    const auto isLeftOut = [](int item) { return parsOf(item)[par::code] == code::code13; };
    int leftOut = 0;
    for (int item = 1; item <= musItemTable.itemCount; ++item) leftOut += isLeftOut(item) ? 1 : 0;
    if (renumbering.optRenumPageNone && leftOut > 0) text += "; items of code 13 left out: " + plain(leftOut);
    if (!page.isWhole()) text += "; damaged, what is behind the damage will be lost";
    return text;
}

std::string previewOf(const PageResult& page, const Describe& describe) {
    if (page.lacksRoom) return "too big: Run would end the program here";
    if (musItemTable.itemCount == 0 && !page.isWhole()) return "cannot be read, stays as it is";
    return describe(page.path) + lossText(page);
}

class PreviewRun : public ToolRun {
  public:
    PreviewRun(std::string title, Describe describe)
        : title_(std::move(title)), describe_(std::move(describe)) {}

    void writeHead(Report&) override {}
    PageEnd processPage(const PageInRun& page) override;
    ReportEnd writeEnd(Report&, const RunResult& result) override {
        if (result.end == RunEnd::stopped) entries_.emplace_back("Stopped: the other pages are not shown.");
        showPreview(title_, std::move(entries_));
        return ReportEnd::remove;
    }

  private:
    std::string title_;
    Describe describe_;
    std::vector<std::string> entries_;
};

PageEnd PreviewRun::processPage(const PageInRun& page) {
    std::ignore = attempt([] { storeFile(previewForm); });
    entries_.push_back(nameInPreview(page.result.path) + "  " + previewOf(page.result, describe_));
    page.result.isDone = page.result.reason.empty();
    return PageEnd::next;
}

RunPlan planOf(const char* report) {
    return {.tool = toolName,
            .pages = selectedPages(),
            .report = report,
            .tellNoReport = endWithoutReport,
            .changesPages = true,
            .backup = renumbering.chkRenumBackup,
            .dropsCode13 = renumbering.optRenumPageNone};
}

}  // namespace

ReportEnd ReportedRun::writeEnd(Report& report, const RunResult&) {
    report.line(" ");
    writeCounters(report);
    writeReportEnd(report);
    return ReportEnd::show;
}

ReportEnd ToldRun::writeEnd(Report&, const RunResult& result) {
    const auto done = std::count_if(result.pages.begin(), result.pages.end(),
                                    [](const PageResult& page) { return page.isDone; });
    return endInMessage("Number of files processed: " + plain(done) + remarks(), result);
}

void startRun(ReportedRun& run) { runOverPages(renumbering.view, planOf("TULWORK.PRN"), run); }

void startRun(ToldRun& run) { runOverPages(renumbering.view, planOf(""), run); }

int numberLength() { return toInt32(numericValue(projectSettings.PageNumberLength)).value_or(0); }

void askToGoOn(const std::string& question) {
    if (MsgBox(question, Buttons::okCancel, Icon::question) == Answer::cancel) endProgram();
}

std::string nameInPreview(const std::string& path) {
    constexpr std::size_t usualWidth = 12;  // eight characters, a full stop, and three
    return padRight(fileNameOf(path), usualWidth);
}

void showPreview(const std::string& title, std::vector<std::string> entries) {
    ListBox& list = renumbering.lstRenumPreview;
    list.title = title;
    list.entries = std::move(entries);
}

void previewPages(const std::string& title, Describe describe) {
    PreviewRun run(title, std::move(describe));
    runOverPages(renumbering.view, {.tool = toolName, .pages = selectedPages()}, run);
}

}  // namespace tul::renumber
