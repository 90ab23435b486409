#pragma once

#include <functional>
#include <string>
#include <vector>

#include "centre/page_run.h"
#include "shared/field.h"
#include "shared/run_view.h"

/// What the four tabs of the renumber tool share: the record, the runs over pages, and the preview.
namespace tul::renumber {

enum Tab { tabFiles, tabPages, tabBars, tabStaves };

/// What the panel `frmRenum` asks for and shows, but for the fields of its tabs.
struct Renumbering {
    int tabRenum = tabFiles;
    bool chkRenumBackup = true;
    bool optRenumPageNone = false;  // pages get no new numbers; no run of the panel writes items of code 13
    RunView view;
    ListBox lstRenumPreview;
};
extern Renumbering renumbering;

inline constexpr const char* toolName = "renum";

/// How the tool reads and writes a page.
inline constexpr ToolForm renumForm = {.mayDropCode13 = true};

/// A run over the pages that reports what it has counted.
class ReportedRun : public PageUpdateRun {
  public:
    ReportedRun() : PageUpdateRun(renumForm, Rewrite::always) {}
    void writeHead(Report& report) final { writeReportHead(report, "TUL Renumber run "); }
    ReportEnd writeEnd(Report& report, const RunResult& result) final;

  protected:
    virtual void writeCounters(Report& report) const = 0;
};

/// A run over the pages that ends in a message.
class ToldRun : public PageUpdateRun {
  public:
    ToldRun() : PageUpdateRun(renumForm, Rewrite::always) {}
    void writeHead(Report&) final {}
    ReportEnd writeEnd(Report& report, const RunResult& result) final;

  protected:
    /// Lines of its own behind the number of files.
    virtual std::string remarks() const { return {}; }
};

/// Takes the selection, as it was read last, through the run.
void startRun(ReportedRun& run);
void startRun(ToldRun& run);

/// Digits of the numbers in file names, by the project settings.
[[nodiscard]] int numberLength();

/// A question about the page in work. Cancel ends the program, and the page stays as it was.
void askToGoOn(const std::string& question);

/// A file's name as it stands in the list of the preview, so that what follows stands in a column.
std::string nameInPreview(const std::string& path);
/// Fills that list anew.
void showPreview(const std::string& title, std::vector<std::string> entries);

/// What a run would do to the page in the table, in a few words. The table stays as it is.
using Describe = std::function<std::string(const std::string& path)>;
/// Reads each page of the selection, as the names file was read last, and lists what is said of it. Nothing
/// is written.
void previewPages(const std::string& title, Describe describe);

}  // namespace tul::renumber
