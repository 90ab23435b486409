#include "check/validation.h"

#include <algorithm>

#include "base/numbers.h"
#include "base/text.h"
#include "centre/start_up.h"
#include "centre/viewing.h"
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

void writeHead(Report& report) {
    const std::size_t blanks = pathWidth() - std::min<std::size_t>(pathWidth(), 4);
    report.line("MUS File validation " + dateAndTime());
    report.line(" ");
    report.line("Filename       Date       Time        Size Itms Path" + std::string(blanks, ' ') +
                " Creator");
    report.line("------------ --/--/---- --:--:-----  ----- ---- " + std::string(pathWidth(), '-') +
                " -------");
}

void writeTotals(Report& report) {
    report.line(std::string(43, ' ') + "----");
    report.line(std::string(42, ' ') + padRight(plain(validation.totalItems), itemsWidth) + ", " +
                plain(selection.SelectionCount) + " file(s)");
    if (validation.control.cancelled()) report.line("(Processing interrupted by user)");
}

/// Checks one file and writes its row. False when the user asked the run to stop.
bool validateFile(Report& report) {
    const std::string& path = validation.currentPath;
    const auto info = files().info(path);
    const std::string start =
        padRight(fileNameOf(path), nameWidth) + " " + EditDateTime(info) + sizeField(info ? info->length : 0);
    const std::string paddedPath = padRight(path, pathWidth());
    if (IsFinale(path) == "Finale") {
        report.line(start + " ---- " + paddedPath + " is a Finale file");
        return true;
    }
    inputValidate(report);
    if (validation.control.cancelled()) return false;
    validation.totalItems = wrap16(validation.totalItems + musItem.MusItemNumber);
    report.line(start + padRight(plain(musItem.MusItemNumber), itemsWidth) + " " + paddedPath + " " +
                musReader.MusVersionText);
    return true;
}

void validateSelection(Report& report) {
    const int count = selection.SelectionCount;
    for (int i = 1; i <= count; ++i) {
        validation.lblValidStatus = "File being processed:" + str(i) + " of" + str(count);
        validation.currentPath = selection.SelectionNames[i];
        validation.panValidFileName = validation.currentPath;
        yieldToEvents();
        if (!validateFile(report)) return;
        validation.panValidFloodRun.percent = i * 100 / count;
    }
}

}  // namespace

void resetValidation() { validation = {}; }

void cmdValidateRun() {
    validation.control.beginRun();
    validation.totalItems = 0;
    validation.damagedFiles = 0;
    Report report(paths.ProgramFolder + "\\TULVALID.PRN");
    if (!report.open())
        endWith("File " + report.path() + " could not be opened for output. Hit OK to abort.");
    writeHead(report);
    validation.panValidFloodRun = {.percent = 0, .visible = selection.SelectionCount > 1};
    validateSelection(report);
    validation.panValidFloodRun.visible = false;
    validation.lblValidStatus.clear();
    validation.control.endLoop();
    writeTotals(report);
    showAndDelete(report);
    validation.control.endRun();
}

}  // namespace tul::valid
