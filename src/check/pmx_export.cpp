#include "check/pmx_export.h"

#include <algorithm>
#include <initializer_list>
#include <unordered_map>

#include "base/numbers.h"
#include "base/text.h"
#include "centre/names_file.h"
#include "centre/page_run.h"
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
        pmxRun.view.inFile.percent = musProgress();
        yieldToEvents();
        if (pmxRun.view.control.isStopped()) return ExportEnd::cancelled;
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

void tellFault(const std::string& text, FileError fault) {
    MsgBox(joined(text + ", Error code=", static_cast<int>(fault)), Buttons::ok, Icon::exclamation);
}

class ExportRun : public ToolRun {
  public:
    void writeHead(Report& report) override;
    PageEnd processPage(const PageInRun& page) override;
    ReportEnd writeEnd(Report& report, const RunResult& result) override;

  private:
    const std::size_t pathWidth_ = std::max(selection.LongestName.size(), shortestPathWidth);
    std::string text_;  // one for all files, so that it has to grow once only
    bool isRefused_ = false;
};

void ExportRun::writeHead(Report& report) {
    report.line("PMX File creation " + dateAndTime());
    report.line(" ");
    report.line(padRight("Input Path", pathWidth_) + "  Output Path");
    report.line(padRight("----------", pathWidth_, '-') + "  -----------");
}

bool isPmxFile(const std::string& path) { return upperCase(trimRight(path)).ends_with(pmxSuffix); }

/// The output file is written once, behind the export. So that a refusal of it still comes before everything
/// else that is to be told, the damage is told behind it.
PageEnd ExportRun::processPage(const PageInRun& page) {
    const std::string& path = page.result.path;
    if (isPmxFile(path)) {
        MsgBox("Input file to create PMX may not have .PMX suffix", Buttons::ok, Icon::exclamation);
        page.result.reason = "its suffix is .PMX";
        return PageEnd::next;
    }
    const std::string output = pmxPathOf(path);
    page.report.line(padRight(path, pathWidth_) + " " + padRight(fileNameOf(output), nameWidth));
    text_.clear();
    const ExportEnd end = exportFile(path, text_);
    if (const FileError fault = files().replace(output, text_); fault != FileError::none) {
        tellFault("Open error on file " + output, fault);
        page.result.reason = std::string(fileNameOf(output)) + " could not be written";
        isRefused_ = true;
        return PageEnd::endRun;
    }
    page.result.isWritten = true;
    if (end != ExportEnd::cancelled)
        page.result.reading = end == ExportEnd::complete ? Reading::whole : Reading::broken;
    if (end == ExportEnd::damaged) tellStructuralError();
    if (pmxRun.view.control.isStopped()) return PageEnd::endRun;
    if (pmxRun.options.chkPMXshow) ViewWithEditor(output);
    page.result.isDone = true;
    return PageEnd::next;
}

ReportEnd ExportRun::writeEnd(Report& report, const RunResult& result) {
    if (isRefused_) return ReportEnd::keep;
    report.line(" ");
    report.line("Number of files processed: " + plain(selection.SelectionCount));
    if (result.end == RunEnd::stopped) report.line("(Processing interrupted by user)");
    return pmxRun.options.chkPMXreport ? ReportEnd::show : ReportEnd::remove;
}

/// Two pages that have one output file, which the second would write over the first; empty without any.
std::string sharedOutput(const std::vector<std::string>& pages) {
    std::unordered_map<std::string, std::string> inputs;
    for (const std::string& page : pages) {
        if (isPmxFile(page)) continue;
        const std::string output = pmxPathOf(page);
        const auto [known, isNew] = inputs.emplace(upperCase(output), page);
        if (!isNew && known->second != page)
            return "These two files have the same output file " + output + ":" + std::string(CrLf) +
                   known->second + std::string(CrLf) + page;
    }
    return {};
}

}  // namespace

void resetPmxRun() { pmxRun = {}; }

std::string pmxPathOf(const std::string& path) {
    const SplitText name = splitAtFirst(fileNameOf(path), '.');
    return std::string(folderOf(path)) + std::string(name.before) + std::string(pmxSuffix);
}

ExportEnd exportFile(const std::string& path, std::string& text) {
    pmxRun.view.inFile = {.percent = 0, .visible = true};
    MusOpen(path, musReader.MusWordCount);
    if (pmxRun.options.chkPMXcomment) {
        appendLine(text, {"* Input file is ", path});
        appendLine(text, {"* WordCount is ", plain(musReader.MusWordCount)});
    }
    const ExportEnd end = exportItems(path, text);
    MusClose();
    pmxRun.view.inFile = {};
    return end;
}

void cmdPmxRun() {
    ReadNamesFile();
    const std::vector<std::string> pages = selectedPages();
    if (const std::string refusal = sharedOutput(pages); !refusal.empty())
        return refuseRun("pmx", refusal, Icon::exclamation);
    ExportRun run;
    runOverPages(
        pmxRun.view,
        {.tool = "pmx",
         .pages = pages,
         .report = "TULPMX.PRN",
         .tellNoReport = [](const std::string& path,
                            FileError fault) { tellFault("Open error in FRMPMX.FRM " + path, fault); }},
        run);
}

}  // namespace tul::pmx
