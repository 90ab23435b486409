#include "check/pmx_export.h"

#include <algorithm>
#include <initializer_list>

#include "base/numbers.h"
#include "base/text.h"
#include "centre/names_file.h"
#include "centre/viewing.h"
#include "check/pmx_numbers.h"
#include "host/host.h"
#include "music/items.h"
#include "shared/function_module.h"
#include "shared/records.h"
#include "shared/report.h"

namespace tul::pmx {

PmxRun pmxRun;

namespace {

constexpr std::size_t nameWidth = 12;
constexpr std::size_t shortestPathWidth = 11;
constexpr std::string_view pmxSuffix = ".PMX";
constexpr int lastTextPar = 11;  // Par 12, the count of characters, is not exported

// --- Items

void appendLine(std::string& text, std::initializer_list<std::string_view> parts) {
    for (const std::string_view part : parts) text += part;
    text += CrLf;
}

void appendStaff(std::string& text) {
    const float staff = musItem.MusPar[par::staff];
    if (pmxRun.options.optPMXformatCondensed) {
        appendGeneral(text, staff);
    } else if (isText(musItem.MusPar)) {
        appendTabTextStaff(text, staff);
    } else {
        appendTabCode(text, staff);
    }
}

/// Par 3 to `last`, a blank between them.
void appendNumbers(std::string& text, int last) {
    const bool condensed = pmxRun.options.optPMXformatCondensed;
    for (int par = 3; par <= last; ++par) {
        if (par > 3) text += ' ';
        if (condensed) {
            appendCondensedNumber(text, musItem.MusPar[par]);
        } else {
            appendTabNumber(text, musItem.MusPar[par]);
        }
    }
}

void appendPlainItem(std::string& text) {
    if (pmxRun.options.optPMXformatCondensed) {
        appendGeneral(text, musItem.MusPar[par::code]);
    } else {
        appendTabCode(text, musItem.MusPar[par::code]);
    }
    text += ' ';
    appendStaff(text);
    const int last = lastUsedPar(musItem.MusPar);
    if (last > 2) text += ' ';
    appendNumbers(text, last);
    text += CrLf;
}

/// The blank behind the staff stays where no number follows it.
void appendTextItem(std::string& text) {
    const float code = musItem.MusPar[par::code];
    text += code == code::text ? "t " : code == code::shortText ? "11 " : "15 ";
    appendStaff(text);
    text += ' ';
    appendNumbers(text, lastUsedPar(musItem.MusPar, lastTextPar));
    text += CrLf;
    appendLine(text, {code == code::shortText ? trimRight(musItem.MusText) : musItem.MusText});
}

/// False where the structure breaks off.
bool exportItem(std::string& text) {
    if (!MusReadLength()) return false;
    const int parameters = musItem.MusParCount;
    if (pmxRun.options.chkPMXcomment) {
        appendLine(
            text, {"* Item ", plain(musItem.MusItemNumber), ", Number of parameters is ", plain(parameters)});
    }
    if (parameters < shortestItem || !MusReadCode()) return false;

    if (carriesText(musItem.MusPar[par::code])) {
        if (parameters < shortestTextItem) return false;
        MusReadPars(2, textItemPars - 1);
        MusReadChars();
        MusReadText(parameters - textItemPars);
        appendTextItem(text);
    } else {
        if (parameters > Parameters::count) return false;
        MusReadPars(2, parameters);
        appendPlainItem(text);
    }
    return true;
}

ExportEnd exportItems(const std::string& path, std::string& text) {
    const bool isFileList = path.ends_with(fileListName);
    for (;;) {
        if (musReader.MusWordIndex > musReader.MusWordCount) return ExportEnd::damaged;
        if (isFileList && musReader.MusWordIndex == musReader.MusWordCount) break;
        if (atTrailer() || atShortTrailer()) break;
        if (!exportItem(text)) return ExportEnd::damaged;
        pmxRun.panPmxFloodFile.percent = musProgress();
        yieldToEvents();
        if (pmxRun.control.cancelled()) return ExportEnd::cancelled;
    }
    if (isFileList) return ExportEnd::complete;
    MusReadTrailer();
    if (pmxRun.options.chkPMXcomment) {
        appendLine(text, {"* Trailer length 6, Version/licence= ", musReader.MusVersionText});
        appendLine(text, {"* Inches/metrics=", musReader.MusUnitText, " ", plain(musItem.MusWord)});
    }
    return ExportEnd::complete;
}

// --- The run

/// How the run goes on behind a file.
enum class RunStep { nextFile, cancelled, outputRefused };

void tellFault(const std::string& text, FileError fault) {
    MsgBox(joined(text + ", Error code=", static_cast<int>(fault)), Buttons::ok, Icon::exclamation);
}

void writeHead(Report& report, std::size_t pathWidth) {
    report.line("PMX File creation " + dateAndTime());
    report.line(" ");
    report.line(padRight("Input Path", pathWidth) + "  Output Path");
    report.line(padRight("----------", pathWidth, '-') + "  -----------");
}

/// The output file is written once, behind the export. So that a refusal of it still comes before everything
/// else that is to be told, the damage is told behind it.
RunStep processFile(const std::string& path, std::string& text, Report& report, std::size_t pathWidth) {
    if (upperCase(trimRight(path)).ends_with(pmxSuffix)) {
        MsgBox("Input file to create PMX may not have .PMX suffix", Buttons::ok, Icon::exclamation);
        return RunStep::nextFile;
    }
    const std::string output = pmxPathOf(path);
    report.line(padRight(path, pathWidth) + " " + padRight(fileNameOf(output), nameWidth));
    text.clear();
    const ExportEnd end = exportFile(path, text);
    if (const FileError fault = files().replace(output, text); fault != FileError::none) {
        tellFault("Open error on file " + output, fault);
        return RunStep::outputRefused;
    }
    if (end == ExportEnd::damaged) tellStructuralError();
    if (pmxRun.control.cancelled()) return RunStep::cancelled;
    if (pmxRun.options.chkPMXshow) ViewWithEditor(output);
    return RunStep::nextFile;
}

RunStep processSelection(Report& report, std::size_t pathWidth) {
    const int count = selection.SelectionCount;
    std::string text;  // one for all files, so that it has to grow once only
    for (int i = 1; i <= count; ++i) {
        pmxRun.lblPmxStatus = "File being processed:" + str(i) + " of" + str(count);
        pmxRun.panPmxFileName = selection.SelectionNames[i];
        yieldToEvents();
        const RunStep step = processFile(selection.SelectionNames[i], text, report, pathWidth);
        if (step != RunStep::nextFile) return step;
        pmxRun.panPmxFloodRun.percent = i * 100 / count;
    }
    return RunStep::nextFile;
}

void finishReport(Report& report) {
    report.line(" ");
    report.line("Number of files processed: " + plain(selection.SelectionCount));
    if (pmxRun.control.cancelled()) report.line("(Processing interrupted by user)");
    if (pmxRun.options.chkPMXreport) {
        showAndDelete(report);
    } else {
        files().removeIfThere(report.path());
    }
}

}  // namespace

void resetPmxRun() { pmxRun = {}; }

std::string pmxPathOf(const std::string& path) {
    const SplitText name = splitAtFirst(fileNameOf(path), '.');
    return std::string(folderOf(path)) + std::string(name.before) + std::string(pmxSuffix);
}

ExportEnd exportFile(const std::string& path, std::string& text) {
    pmxRun.panPmxFloodFile = {.percent = 0, .visible = true};
    MusOpen(path, musReader.MusWordCount);
    if (pmxRun.options.chkPMXcomment) {
        appendLine(text, {"* Input file is ", path});
        appendLine(text, {"* WordCount is ", plain(musReader.MusWordCount)});
    }
    const ExportEnd end = exportItems(path, text);
    MusClose();
    pmxRun.panPmxFloodFile = {};
    return end;
}

void cmdPmxRun() {
    ReadNamesFile();
    const std::size_t pathWidth = std::max(selection.LongestName.size(), shortestPathWidth);
    Report report(paths.ProgramFolder + "\\TULPMX.PRN");
    if (const FileError fault = files().replace(report.path(), ""); fault != FileError::none) {
        tellFault("Open error in FRMPMX.FRM " + report.path(), fault);
        return;
    }
    writeHead(report, pathWidth);
    pmxRun.control.beginRun();
    pmxRun.panPmxFloodRun = {.percent = 0, .visible = selection.SelectionCount > 1};
    const RunStep step = processSelection(report, pathWidth);
    pmxRun.panPmxFloodRun.visible = false;
    pmxRun.lblPmxStatus.clear();
    pmxRun.control.endLoop();
    if (step == RunStep::outputRefused) {
        std::ignore = report.close();  // the refusal that ended the run was told
    } else {
        finishReport(report);
    }
    pmxRun.control.endRun();
}

}  // namespace tul::pmx
