#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/face.h"
#include "music/pipeline.h"
#include "shared/report.h"
#include "shared/run_result.h"
#include "shared/run_view.h"

/// The one run of all tools that go through pages: report, loop, cancel, progress, and the result.
namespace tul {

/// The page that a run is at.
struct PageInRun {
    int number;          // in the run, from 1
    PageResult& result;  // with its path; the tool notes in it what happens to the page
    Report& report;
};

enum class PageEnd { next, endRun };
enum class ReportEnd {
    show,    // and delete it when the viewer has closed
    keep,    // write it, and say no more
    remove,  // nobody wants it
};

/// What a tool does in a run. The object lives as long as the run does, and what it counts lives in it.
class ToolRun {
  public:
    virtual ~ToolRun() = default;

    virtual void writeHead(Report& report) = 0;
    /// Sets `isDone` in the page's result, or a reason.
    virtual PageEnd processPage(const PageInRun& page) = 0;
    /// The tool's own lines behind the last page. The findings about single pages follow them.
    virtual ReportEnd writeEnd(Report& report, const RunResult& result) = 0;
};

/// When a tool that changes pages replaces one.
enum class Rewrite { always, ifChanged };

/// The run of a tool that changes pages: each is read into the table, changed there, and written. A step that
/// meets an item it cannot do is abandoned, and the next one follows.
class PageUpdateRun : public ToolRun {
  public:
    PageUpdateRun(const ToolForm& form, Rewrite rewrite) : form_(form), rewrite_(rewrite) {}
    PageEnd processPage(const PageInRun& page) final;

  protected:
    /// Changes the items of the table, and counts each change in the page's result. A reason that it gives
    /// there keeps the page from being written.
    virtual void updatePage(const PageInRun& page) = 0;

  private:
    const ToolForm& form_;
    Rewrite rewrite_;
};

/// How one run differs from the others.
struct RunPlan {
    std::string tool = {};                // the panel's name without frm
    std::vector<std::string> pages = {};  // whole paths
    std::string report = {};  // its name in the program's folder; without one the tool tells the end itself
    /// The report cannot be opened. Where this comes back the run is refused.
    std::function<void(const std::string& path, FileError fault)> tellNoReport = {};
    bool changesPages = false;
    bool backup = false;          // taken of each page before it is read, where its form takes one
    bool dropsCode13 = false;     // on writing, where its form may
    const char* idleStatus = "";  // what the panel shows instead of a file's number between runs
};

/// Takes each page once through the tool, as long as nobody stops it. Whatever happens the panel is idle
/// again behind it, and the result is among `runResults`.
void runOverPages(RunView& view, const RunPlan& plan, ToolRun& tool);

// What reports and messages of runs have in common.

/// Of a report's column of names: as wide as the longest name, and as the head over it.
[[nodiscard]] std::size_t nameColumnWidth();
/// For `tellNoReport`: the program ends with a message.
[[noreturn]] void endWithoutReport(const std::string& path, FileError fault);
/// "File" over hyphens.
void writeColumnHead(Report& report);
/// `title` with the date right behind it, a line of one blank, and the head of the column.
void writeReportHead(Report& report, const std::string& title);
/// A line of one blank, and how many files the selection has.
void writeReportEnd(Report& report);
/// For `writeEnd` without a report: tells what is to be said, and what is to be known of single pages.
ReportEnd endInMessage(std::string text, const RunResult& result);
/// Asks before a run. Any answer but Yes or OK refuses it without a word.
[[nodiscard]] bool isAgreed(const std::string& tool, const std::string& question, Buttons buttons);

/// The paths of the selection, as it was read last.
std::vector<std::string> selectedPages();

/// A run that did not begin, among `runResults`: options that make no sense, or a question that was refused.
void noteRefusedRun(const std::string& tool, const std::string& reason = {});

/// The same, told to the user.
void refuseRun(const std::string& tool, const std::string& text, Icon icon = Icon::information);

}  // namespace tul
