#include "centre/debug_summary.h"

#include <algorithm>
#include <initializer_list>
#include <optional>
#include <string_view>
#include <vector>

#include "base/date_time.h"
#include "base/numbers.h"
#include "base/text.h"
#include "centre/viewing.h"
#include "host/host.h"
#include "shared/function_module.h"
#include "shared/records.h"

namespace tul {

namespace {

using Settings = MachineSettings;

const std::string newLine(CrLf);
const std::string summaryName = "TULDEBUG.TXT";

constexpr std::size_t pathWidth = 54;
constexpr std::size_t stampWidth = 32;
constexpr std::size_t headingStart = 45;
constexpr std::size_t headingWidth = 89;
constexpr std::size_t profileValueLength = 32;

/// A file of the summary: a name or path as it stands, the path in a setting, or a name in the folder of that
/// path.
struct TestedFile {
    TestedFile(const char* itsName) : name(itsName) {}
    TestedFile(std::string Settings::*itsPath) : setting(itsPath) {}
    TestedFile(std::string Settings::*pathBeside, const char* itsName) : name(itsName), setting(pathBeside) {}

    std::string path() const {
        if (!setting) return std::string(name);
        const std::string& value = machineSettings.*setting;
        return name.empty() ? value : std::string(folderOf(value)).append(name);
    }

    std::string_view name;
    std::string Settings::*setting = nullptr;
};

/// A section without files is the title of those behind it.
struct Section {
    std::string_view title;
    std::vector<TestedFile> files;
};

const std::vector<Section> sections = {
    {"General",
     {"TUL.EXE", "TULCNTRL.HLP", "TULCNTRL.INI", "TULPROJ.PRO", "TULFOLDR.EXE", "TULNAMES.EXE", "TULOLE.EXE",
      "NAMES.TUL", "NAMESEPS.TUL", "NAMESXML.TUL", "TULVERSION.EXE"}},
    {"Service", {"TULCBLS.EXE",      "TULCLEAN.EXE",    "TULCUT.EXE",    "TULCOMBI.EXE",  "TULEDIT2.EXE",
                 "TULFOLDR.EXE",     "TULFONTC.EXE",    "TULFRENCH.EXE", "TULGETOS.EXE",  "TULLEDGER.EXE",
                 "TULLOG.LOG",       "TULLOGB.LOG",     "TULMONIT.EXE",  "TULPLAY.EXE",   "TULPROOF.EXE",
                 "TULRECOV.EXE",     "TULREFORMAT.EXE", "TULRIP.EXE",    "TULSTAVES.EXE", "TULSYSTEM.EXE",
                 "TULSYSTEMRIP.EXE", "TULTTOS.EXE",     "TULVERT.EXE",   "TULWINHELP.EXE"}},
    {"SCORE",
     {"TULSCHLP.EXE", "TULSCORE.EXE", "TULSKORE.EXE", "KEYPUSH.DLL", &Settings::ScorePath,
      &Settings::PagePath, &Settings::ScorlasPath, &Settings::JustPath}},
    {"Editors",
     {&Settings::NotepadPath, "c:\\windows\\notepad.EXE", &Settings::WordpadPath,
      "c:\\Program Files\\Accessories\\wordpad.EXE",
      "c:\\Program Files\\Windows NT\\Accessories\\wordpad.EXE", "c:\\windows\\CLIPBRD.EXE",
      "c:\\windows\\system32\\CLIPBRD.EXE"}},
    {"Anlib", {"TULANLIB.EXE", "TULANLI1.EXE", "TULANLI2.EXE"}},
    {"Clef", {"TULCLEF.BAT", "TULCLEF1.EXE", "TULCLEF2.EXE", "TULCLEF3.EXE", "TULCLEF4.EXE", "TULCLEF5.EXE"}},
    {"Dur", {"TULDUR.BAT", "TULDUR1.EXE", "TULDUR2.EXE", "TULDUR3.EXE", "TULDUR4.EXE", "TULDUR.PRO"}},
    {"Draw", {"TULDRAW.EXE", "TULDRAW.TXT"}},
    {"EPS", {"TULEPS01.EXE", "TULEPS5.EXE", "TULEPS01.TXT", "TULEPSFX.EXE"}},
    {"Find", {"TULFIND.EXE", "TULFIND2.EXE", "TULFIND9.EXE", "CARCIW60.DLL", "CARCLW60.DLL", "CARFSW20.DLL"}},
    {"Input",
     {"TULINPUT.EXE", "TULC.EXE", "TULINPUT.TXT", "TULINTAB.EXE", "TULINTAB.TXT", "TULCVTAB.EXE",
      "TULEDTAB.EXE", "TULLITAB.EXE", "TULINPUTW.EXE", "TULCW.EXE"}},
    {"Sib",
     {"TULSIB.EXE", "TULSIB05.EXE", "TULSIB50.EXE", "TULSIB06.EXE", "TULSIB07.EXE", "TULSIB09.TXT",
      "TULSIB16.TXT"}},
    {"Split",
     {"TULSPLIT.BAT", "TULSPLI1.EXE", "TULSPLI2.EXE", "TULSPLI5.EXE", "TULSPLI6.EXE", "TULSPLIT.PRO",
      "TULSPLI6.PRO", "TULDECOM.EXE", "TULSPPHY.EXE", "TULXTRACT.EXE"}},
    {"Stack", {"TULSTACK.EXE"}},
    {"Text",
     {"TULTEXT.EXE", "TULTEXT5.EXE", "TulTextEQ.TXT", "TulTextCO.TXT", "TulText10J.TXT", "TULTEXT.PRO"}},
    {"Thema", {"TULTHEMA.EXE"}},
    {"Tpose", {"TULTPOSE.EXE"}},
    {"Xlyr", {"TULXLYR.EXE", "TULXLYR.BAT", "TULXLYR1.EXE", "TULXLYR2.EXE", "TULXLYR3.EXE", "TULXLYR4.EXE"}},
    {"XML",
     {"TULXML.EXE", "TULXML05.EXE", "TULXMS05.EXE", "TULXML07.EXE", "TULXML16.TXT", "TULXMLEQ.TXT",
      "TULSCORE2XML.EXE", "TULMULTISTAFFPART.EXE", "TULXML2SCORE.EXE", "TULXMLXTRACT.EXE",
      "TULXMLISOLATE.EXE"}},
    {"Xref", {"TULXREF.EXE", "TULXREF5.EXE", "TULXREF5.ASM", "TULXREF.PRO"}},
    {"Ad", {"TULAD.EXE", "TULAD5.EXE"}},
    {"Check Part", {"TULCHECKPART.EXE", "TULCHECKPARTSORT.EXE"}},
    {"3rd party", {}},
    {"ACCS",
     {{&Settings::ACCSPath, "ACCS.EXE"},
      {&Settings::ACCSPath, "ACCS.BIN"},
      {&Settings::ACCSPath, "ACCS.INI"},
      {&Settings::ACCSPath, "ACCS.KRN"},
      {&Settings::ACCSPath, "ACCSKERN.EXE"},
      {&Settings::ACCSPath, "CFG-10.BIN"},
      {&Settings::ACCSPath, "CFG-13.BIN"},
      {&Settings::ACCSPath, "KRN-BIN.EXE"}}},
    {"LJ", {"TULLJ.EXE", {&Settings::LJPath, "LJ.EXE"}}},
    {"BEAM",
     {"TULBEAM.EXE",
      {&Settings::BeamPath, "BEAM.EXE"},
      {&Settings::BeamPath, "BEAMPREF.EXE"},
      {&Settings::BeamPath, "SLANT.EXE"}}},
    {"seps4id", {"TULSEPS4ID.EXE", &Settings::Seps4idProgramPath}},
    {"MidiScor, Lascor", {&Settings::MidiScorPath, &Settings::LascorPath}},
};

void writeHeading(Report& report, std::string_view title) {
    const std::string start = " " + std::string(headingStart, '-') + " " + std::string(title) + " ";
    report.line(padRight(start, headingWidth, '-'));
}

void writeSection(Report& report, const Section& section) {
    const bool titleOnly = section.files.empty();
    if (titleOnly) report.line("");
    writeHeading(report, section.title);
    if (titleOnly) report.line("");
    for (const TestedFile& file : section.files) FileTest(report, file.path());
}

/// LASCOR once more, with the data file beside it that has its name.
void writeLascorData(Report& report) {
    const std::string& path = machineSettings.LascorPath;
    constexpr std::string_view suffix = ".DAT";
    if (path.empty()) return;
    FileTest(report, path);
    FileTest(report, path.substr(0, path.size() - std::min(path.size(), suffix.size())).append(suffix));
}

/// A value that the program or one of its utilities keeps in the user's profile.
struct ProfileValue {
    const char* label;
    const char* section;
    const char* key;
    bool number = false;  // shown as its numeric value
};

constexpr std::initializer_list<ProfileValue> profileValues = {
    {"StartTime: ", "TUL", "StartTime"},
    {"Operating System: ", "TUL", "OS"},
    {"Processor type: ", "TUL", "PT"},
    {"Initial folder: ", "TUL", "InitialFolder"},
    {"Top coordinate: ", "TUL", "TOP"},
    {"Left coordinate: ", "TUL", "LEFT", true},
    {"Bypass first TulNames panel: ", "TulNames", "BypassFirstPanel"},
    {"Second TulNames panel tall: ", "TulNames", "SecondPanelTall"},
    {"TulFind Last: ", "TulFind", "Last"},
};

}  // namespace

void FileTest(Report& report, const std::string& path) {
    std::string line = path;
    if (line.size() % 2 != 0) line += ' ';
    while (line.size() < pathWidth) line += ". ";
    const auto info = FileExists(path) ? files().info(path) : std::nullopt;
    if (info) {
        line += padRight(stampText(info->stamp), stampWidth) + "  " + files().nameOnDisk(path);
    } else {
        line += "not located";
    }
    report.line(line);
}

void FileInclude(Report& report, const std::string& path) {
    report.line("");
    report.line("File contents of " + path + ":");
    report.line("-----------------------------");
    std::string text;
    files().readIfThere(path, text);
    for (const std::string_view line : linesOf(text)) report.line(line);
}

void WriteDebugSummary() {
    if (MsgBox("Do you want to generate file TULDEBUG.TXT for a support request?", Buttons::yesNo,
               Icon::question) != Answer::yes)
        return;
    Report report(summaryName);
    report.line("Debug summary for Support . . . . . . . . . . . . . . " + identity.VersionText +
                " Stamp = " + dateAndTime());
    report.line("");
    report.line("Current directory . . . . . . . . . . . . . . . . . . " + files().currentFolder());
    report.line("");
    for (const Section& section : sections) writeSection(report, section);
    writeLascorData(report);
    FileInclude(report, "TULCNTRL.INI");
    if (!report.close()) {
        MsgBox("TULDEBUG.TXT could not be written. The disk may be full.", Buttons::ok, Icon::exclamation);
        return;
    }
    MsgBox("Created file TULDEBUG.TXT in directory " + newLine + paths.ProgramFolder, Buttons::ok,
           Icon::information);
    ViewWithEditor(summaryName);
}

void ShowRegistry() {
    std::string text = "Registry kept by TUL utilities." + newLine;
    for (const ProfileValue& each : profileValues) {
        const std::string value = profile().read(each.section, each.key).substr(0, profileValueLength);
        text += newLine + each.label + (each.number ? plain(numberOf(value)) : value);
    }
    MsgBox(text, Buttons::ok, Icon::information);
}

void ShowDetailsBox() {
    const auto names = FileExists(paths.NamesFilePath) ? files().info(paths.NamesFilePath) : std::nullopt;
    MsgBox("TUL build date: " + identity.BuildDateText + newLine + "Current directory = " +
               files().currentFolder() + newLine + "Initial folder = " + projectSettings.MusDirectory +
               newLine + newLine + "NAMES.TUL details:" + newLine + paths.NamesFilePath + newLine +
               (names ? stampText(names->stamp) : "(File not existing)"),
           Buttons::ok, Icon::information);
}

}  // namespace tul
