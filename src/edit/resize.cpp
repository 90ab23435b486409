#include "edit/resize.h"

#include <algorithm>
#include <cmath>

#include "base/numbers.h"
#include "base/text.h"
#include "centre/names_file.h"
#include "centre/page_run.h"
#include "edit/resize_checks.h"
#include "shared/function_module.h"
#include "shared/records.h"

namespace tul::resize {

Resize resizing;

namespace {

const std::string marginLine =
    std::string(CrLf) + "Note that a 0.001 margin was applied on the size attribute.";

// --- Checks before a run

bool isSameSize(float present, const std::string& field) {
    return std::fabs(present - numberOf(field)) < sizeMargin;
}

/// True when a number's size and font are what the project settings have.
bool isSameNumber(const std::string& size, const std::string& newSize, const std::string& font,
                  const std::string& newFont) {
    return isSameSize(numberOf(size) - numberMark, newSize) && numberOf(font) == numberOf(newFont);
}

std::string refusalOfNumbers(const ResizeOptions& options) {
    const ProjectSettings& settings = projectSettings;
    if (options.optResizePageNumber && isSameNumber(settings.PageNumberSize, options.txtResizePageNumberSize,
                                                    settings.PageNumberFont, options.txtResizePageNumberFont))
        return "No use running Page number resize when global settings equal to new." + marginLine;
    if (options.optResizeBarNumber && isSameNumber(settings.BarNumberSize, options.txtResizeBarNumberSize,
                                                   settings.BarNumberFont, options.txtResizeBarNumberFont))
        return "No use running Bar number resize when global settings equal to new." + marginLine;
    return {};
}

std::string refusalOfTexts(const ResizeOptions& options) {
    if (options.optResizeLyrics && isSameSize(numberOf(projectSettings.LyricsSize), options.txtResizeLyrics))
        return "No use running Lyrics resize when current and new size are equal." + marginLine;
    if (options.optTextResizeTextSize &&
        (options.txtResizeTextResize.empty() ||
         isSameSize(numberOf(options.txtResizeTextCurrent), options.txtResizeTextNew)))
        return "No use running Text resize if no string given or when current and new size are equal." +
               marginLine;
    return {};
}

/// Why the options in front cannot be run; empty when they can.
std::string refusalOf(const ResizeOptions& options) {
    switch (options.tabResiz) {
        case tabNotes:
            if (options.optResizeNote && !options.anyNotes())
                return "No use running Note resize when no notes selected.";
            return {};
        case tabNumbers:
            return refusalOfNumbers(options);
        case tabTexts:
            return refusalOfTexts(options);
        case tabPlaceholders:
            if (options.chkPlaceholderSet && options.chkPlaceholderReset)
                return "The placeholder options are mutually exclusive";
            return {};
        default:
            return {};
    }
}

// --- The run

constexpr ToolForm resizForm = {.openFailure = "Open of output MUS file failed. Hit OK to terminate"};

class ResizeRun : public PageUpdateRun {
  public:
    ResizeRun() : PageUpdateRun(resizForm, Rewrite::always) {}
    void writeHead(Report& report) override;
    ReportEnd writeEnd(Report& report, const RunResult& result) override;

  protected:
    void updatePage(const PageInRun& page) override;

  private:
    Counters counters_;
};

void ResizeRun::writeHead(Report& report) { writeReportHead(report, "TUL Rezise run "); }

void ResizeRun::updatePage(const PageInRun& page) {
    const std::int64_t before = counters_.all();
    updateFile(counters_);
    page.result.changes = counters_.all() - before;
}

ReportEnd ResizeRun::writeEnd(Report& report, const RunResult&) {
    const auto line = [&](const char* what, std::int32_t count) {
        report.line(what + formatted(count, "#######0"));
    };
    report.line(" ");
    line("Number of note        sizes changed . . . . ", counters_.notes());
    line("Number of staff       sizes changed . . . . ", counters_.staves);
    line("Number of slur        sizes changed . . . . ", counters_.slurs);
    line("Number of lyrics/text sizes changed . . . . ", counters_.texts);
    line("Number of page number sizes changed . . . . ", counters_.pageNumbers);
    line("Number of symbol      sizes changed . . . . ", counters_.symbolSizes);
    line("Number of symbol      Par4  changed . . . . ", counters_.symbolPar4);
    line("Number of bar number  sizes changed . . . . ", counters_.barNumbers);
    line("Number of placeholders set/reset. . . . . . ", counters_.placeholders);
    writeReportEnd(report);
    return ReportEnd::show;
}

/// A number of the settings as a field shows it, where it fits.
std::string sizeInField(double size, const std::string& otherwise) {
    return size > 0 && size <= 10 ? plainFixed(static_cast<float>(size)) : otherwise;
}

}  // namespace

bool ResizeOptions::anyNotes() const {
    return chkResizeMini || chkResizeSmall || chkResizeBlack || chkResizeHalf || chkResizeWhole ||
           chkResizeBlackDiamond || chkResizeWhiteDiamond;
}

void resetResize() { resizing = {}; }

void fillFromProjectSettings() {
    ResizeOptions& options = resizing.options;
    const ProjectSettings& settings = projectSettings;
    const auto number = [](const std::string& markedSize) { return numericValue(markedSize) - numberMark; };
    options.txtResizePageNumberSize = sizeInField(number(settings.PageNumberSize), "1.1");
    options.txtResizeBarNumberSize = sizeInField(number(settings.BarNumberSize), "1");
    options.txtResizePageNumberFont = plainFixed(numberOf(settings.PageNumberFont));
    options.txtResizeBarNumberFont = plainFixed(numberOf(settings.BarNumberFont));
    options.txtResizeLyrics = sizeInField(numericValue(settings.LyricsSize), "1");
}

void cmdResizeRun() {
    if (const std::string refusal = refusalOf(resizing.options); !refusal.empty())
        return refuseRun("resiz", refusal);
    ReadNamesFile();
    ResizeRun run;
    runOverPages(resizing.view,
                 {.tool = "resiz",
                  .pages = selectedPages(),
                  .report = "TULWORK.PRN",
                  .tellNoReport = endWithoutReport,
                  .changesPages = true,
                  .backup = resizing.options.chkResizBackup},
                 run);
}

}  // namespace tul::resize
