#include "edit/barline_reports.h"

#include <cmath>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "base/text.h"
#include "centre/names_file.h"
#include "edit/barline_checks.h"
#include "edit/edit_run.h"
#include "edit/staff_rows.h"
#include "music/bar_file.h"
#include "music/items.h"
#include "shared/function_module.h"

namespace tul::edit {

namespace {

/// A page of which only a part could be read is reported on as far as that goes, and named behind the report.
void noteDone(PageResult& page) {
    if (!page.isWhole() && page.reason.empty()) page.reason = "read only in part";
    page.isDone = page.reason.empty();
}

// --- Verification

class VerifyRun : public ToolRun {
  public:
    void writeHead(Report& report) override;
    PageEnd processPage(const PageInRun& page) override;
    ReportEnd writeEnd(Report& report, const RunResult& result) override;

  private:
    std::int32_t findings_ = 0;
};

void VerifyRun::writeHead(Report& report) {
    report.line("Barline verification report " + dateAndTime());
    report.line(" ");
    writeColumnHead(report);
}

PageEnd VerifyRun::processPage(const PageInRun& page) {
    page.report.line(page.result.path);
    editing.view.inFile = {.percent = 0, .visible = true};
    showActivity("Reading");
    std::ignore = attempt([] { MusStoreBarFile(BarReader::edit); });  // `noteDone` tells
    editing.view.inFile = {};
    showActivity("Checking");
    SortItemTable();
    MarkStaffBarlines();
    findings_ += VerifyBarlines(page.report);
    noteDone(page.result);
    return PageEnd::next;
}

ReportEnd VerifyRun::writeEnd(Report& report, const RunResult&) {
    editing.view.file.clear();
    report.line(" ");
    report.line(" Number of errors: " + printed(findings_));
    return ReportEnd::show;
}

// --- Discovery

constexpr std::size_t barlineIndent = 19;

/// Numbers in columns, with blanks behind them.
std::string column(float number, std::size_t width) { return padRight(plain(number), width); }

std::string barlineText(const Parameters& barline) {
    constexpr std::size_t positionWidth = 3;
    const float staves = barline[par::stavesUp];
    return "  " + column(std::trunc(barline[par::position]), positionWidth) + "/" +
           plain(barline[par::barlineForm]) + "(" + plain(staves == 0.0F ? 1.0F : staves) + ")";
}

/// Barlines at the left end, by whole positions, are those of the system.
void writeStaff(Report& report, const Parameters& staff, const std::vector<int>& barlines) {
    constexpr std::size_t staffWidth = 2;
    const float instrument = staff[par::instrument];
    report.line("Staff " + column(staff[par::staff], staffWidth) +
                (instrument == 0.0F ? "  " : "  Instr =" + str(instrument)));
    const float leftEnd = std::trunc(staff[par::position]);
    std::string line(barlineIndent, ' ');
    for (const int item : barlines) {
        const Parameters& barline = parsOf(item);
        if (std::trunc(barline[par::position]) != leftEnd) line += barlineText(barline);
    }
    report.line(line + "  ");
}

class DiscoverRun : public ToolRun {
  public:
    explicit DiscoverRun(std::string path) : path_(std::move(path)) {}
    void writeHead(Report& report) override;
    PageEnd processPage(const PageInRun& page) override;
    ReportEnd writeEnd(Report& report, const RunResult& result) override;

  private:
    std::string path_;
};

void DiscoverRun::writeHead(Report& report) {
    report.line("Barline discovery report " + dateAndTime() + "  File: " + path_);
    for (const char* const line :
         {" ", "System barlines are not shown. Other barlines are represented as hhh/t(u) where:",
          "       hhh = horizontal position (integer part)", "       t   = type of barline (Par5)",
          "       u   = staves up (Par4, if zero, 1 is given)",
          "Use TulRenum (bar) for graphical representation.", " "})
        report.line(line);
}

PageEnd DiscoverRun::processPage(const PageInRun& page) {
    std::ignore = attempt([] { storeFile(editForm); });  // `noteDone` tells
    const StaffRows staves(isStaff);
    const StaffRows barlines(isBarline);
    for (int staff = highestStaff; staff >= 1; --staff)
        for (const int item : staves.on(staff)) writeStaff(page.report, parsOf(item), barlines.on(staff));
    noteDone(page.result);
    return PageEnd::next;
}

ReportEnd DiscoverRun::writeEnd(Report& report, const RunResult&) {
    editing.view.file.clear();
    report.line(" end of report ");
    return ReportEnd::show;
}

std::vector<Command> commands() {
    Command discover = onSelection("cmdDiscover", "Discover", cmdDiscover);
    discover.toolTip = "Find out which instruments and barlines exist in the first selected file.";
    return {onSelection("cmdEditBarVerify", "Verify barlines", cmdEditBarVerify), discover};
}

}  // namespace

const Family barlineReportsFamily = {
    .tab = tabBarline,
    .commands = commands,
};

void cmdEditBarVerify() {
    ReadNamesFile();
    VerifyRun run;
    runReport(run, selectedPages());
}

void cmdDiscover() {
    std::vector<std::string> pages = selectedPages();
    if (pages.size() > 1) pages.resize(1);
    DiscoverRun run(pages.empty() ? std::string() : pages.front());
    runReport(run, std::move(pages));
}

}  // namespace tul::edit
