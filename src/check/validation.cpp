#include "check/validation.h"

#include <algorithm>

#include "base/numbers.h"
#include "base/text.h"
#include "centre/page_run.h"
#include "check/file_columns.h"
#include "host/host.h"
#include "music/mus_reader.h"
#include "shared/function_module.h"
#include "shared/records.h"

namespace tul::valid {

Validation validation;

namespace {

constexpr std::size_t nameWidth = 12;
constexpr std::size_t itemsWidth = 5;

std::size_t pathWidth() { return selection.LongestName.size(); }

class ValidationRun : public ToolRun {
  public:
    void writeHead(Report& report) override;
    PageEnd processPage(const PageInRun& page) override;
    ReportEnd writeEnd(Report& report, const RunResult& result) override;

  private:
    std::int16_t totalItems_ = 0;  // over the files; wraps
};

void ValidationRun::writeHead(Report& report) {
    const std::size_t blanks = pathWidth() - std::min<std::size_t>(pathWidth(), 4);
    report.line("MUS File validation " + dateAndTime());
    report.line(" ");
    report.line("Filename       Date       Time        Size Itms Path" + std::string(blanks, ' ') +
                " Creator");
    report.line("------------ --/--/---- --:--:-----  ----- ---- " + std::string(pathWidth(), '-') +
                " -------");
}

PageEnd ValidationRun::processPage(const PageInRun& page) {
    const std::string& path = page.result.path;
    const auto info = files().info(path);
    const std::string start =
        padRight(fileNameOf(path), nameWidth) + " " + EditDateTime(info) + sizeField(info ? info->length : 0);
    const std::string paddedPath = padRight(path, pathWidth());
    page.result.isDone = true;
    if (IsFinale(path) == "Finale") {
        page.report.line(start + " ---- " + paddedPath + " is a Finale file");
        page.result.reason = "a Finale file";
        return PageEnd::next;
    }
    inputValidate(page.report);
    if (validation.view.control.isStopped()) {
        page.result.isDone = false;
        return PageEnd::endRun;
    }
    totalItems_ = wrap16(totalItems_ + musItem.MusItemNumber);
    page.report.line(start + padRight(plain(musItem.MusItemNumber), itemsWidth) + " " + paddedPath + " " +
                     musReader.MusVersionText);
    return PageEnd::next;
}

ReportEnd ValidationRun::writeEnd(Report& report, const RunResult& result) {
    report.line(std::string(43, ' ') + "----");
    report.line(std::string(42, ' ') + padRight(plain(totalItems_), itemsWidth) + ", " +
                plain(selection.SelectionCount) + " file(s)");
    if (result.end == RunEnd::stopped) report.line("(Processing interrupted by user)");
    return ReportEnd::show;
}

}  // namespace

void resetValidation() { validation = {}; }

void cmdValidateRun() {
    ValidationRun run;
    runOverPages(validation.view,
                 {.tool = "valid",
                  .pages = selectedPages(),
                  .report = "TULVALID.PRN",
                  .tellNoReport =
                      [](const std::string& path, FileError) {
                          endWith("File " + path + " could not be opened for output. Hit OK to abort.");
                      }},
                 run);
}

}  // namespace tul::valid
