#include "centre/first_use.h"

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "base/numbers.h"
#include "base/text.h"
#include "centre/control_file.h"
#include "centre/installation.h"
#include "centre/names_file.h"
#include "centre/platform_code.h"
#include "host/host.h"
#include "shared/function_module.h"
#include "shared/records.h"

namespace tul {

namespace {

const std::string newLine(CrLf);

std::string lines(std::initializer_list<std::string> texts) {
    std::string joinedText;
    for (const std::string& text : texts) joinedText += (joinedText.empty() ? "" : newLine) + text;
    return joinedText;
}

bool agreed(const std::string& text) { return MsgBox(text, Buttons::okCancel, Icon::question) == Answer::ok; }

std::string declineLine(const std::string& program) {
    return "If you do not want to link " + program + " to TUL, just Cancel.";
}

/// Where the selection of before lies while a program is chosen, so that it is not taken for the answer of a
/// user who cancels. A file and not a variable: this program may be killed meanwhile.
std::string keptSelectionPath() { return inProgramFolder("NAMES_BEFORE_FIRST_USE.TUL"); }

void putSelectionAside() {
    if (files().rename(paths.NamesFilePath, keptSelectionPath()) != FileError::none)
        files().removeIfThere(paths.NamesFilePath);
}

void takeSelectionBack() {
    files().removeIfThere(paths.NamesFilePath);
    std::ignore = files().rename(keptSelectionPath(), paths.NamesFilePath);
}

/// The suffix and folder that the selection program offers, and what it shows above.
struct Offer {
    std::string prompt;
    std::string suffix = "EXE";
    std::string missingModule = "TulNames.exe";  // as the message on a missing selection program calls it
};

/// The folder of the last answer, in which the next program is looked for first.
class SelectionSeries {
  public:
    /// Runs the selection program; the first selected name, empty when there is none. More than one name, or
    /// none where one is needed, ends the program.
    std::string select(const Offer& offer, bool mayBeNone) {
        const std::string arguments = selectionArguments(offer.suffix, folder_, offer.prompt);
        if (!FileExists(paths.TulNamesPath)) {
            endWith(lines({"Installation problem. " + offer.missingModule + " not located.",
                           "The path where it is supposed to be is:", paths.TulNamesPath,
                           "With parameters:", arguments}));
        }
        putSelectionAside();
        chooseNames(arguments, offer.prompt);
        ReadNamesFile();
        takeSelectionBack();
        if (selection.SelectionCount == 0 && mayBeNone) return {};
        if (selection.SelectionCount != 1)
            endWith(joined("One file must be selected. You selected", selection.SelectionCount) + " files.");
        const std::string name = selection.SelectionNames[1];
        folder_ = folderOf(name);
        if (folder_.size() > 3) folder_.pop_back();  // the root of a drive keeps its backslash
        return name;
    }

  private:
    std::string folder_;
};

/// One program that may be linked.
struct Linkage {
    std::string intro;
    std::string name;  // in the line on how to decline
    Offer offer;
    std::string confirmedAs;  // "You selected the ... program: "
    std::function<bool(const std::string&)> check = {};
    std::string failure = {};
};

bool confirmed(const std::string& what, const std::string& path) {
    return agreed(lines({"You selected the " + what + ": " + path, "Is that OK?",
                         "Note that to change this name you can", "edit file TULCNTRL.INI by hand."}));
}

/// Asks, selects, checks and confirms; empty when the user declined.
std::string LinkProgram(SelectionSeries& series, const Linkage& linkage) {
    if (!agreed(linkage.intro + newLine + declineLine(linkage.name))) return {};
    const std::string name = series.select(linkage.offer, false);
    if (linkage.check && !linkage.check(name)) endWith(linkage.failure);
    return confirmed(linkage.confirmedAs + " program", name) ? name : std::string();
}

void introduce() {
    showDisclaimer();
    face().msgBox(
        {.text = "TUL keeps some basic environmental information in its own registry file TULCNTRL.INI." +
                 newLine + "This file is created by the following dialog." + newLine +
                 "If you want to create this file from scratch again, just erase it, and creation will" +
                 " begin at the next execution of TUL." + newLine +
                 "Though discouraged, you can update this file yourself. Double-click the Orlanth picture, "
                 "then Editor from the menu.",
         .title = "TUL - Registry"});
}

/// The Sibelius converter needs two tables that only an earlier installation has.
void noticeMissingTables() {
    if (!isInstalled("\\TULSIB05.EXE") || areInstalled({"\\TULSIB09.TXT", "\\TULSIB16.TXT"})) return;
    const Answer answer = MsgBox(
        lines({"The files TULSIB09.TXT and/or TULSIB16.TXT", "are missing in the TUL directory.",
               "They must come from a previous installation of TUL.",
               "You will be reminded that these files are missing when starting TULSIB.", "Continue?"}),
        Buttons::yesNo, Icon::question);
    if (answer == Answer::no) endProgram();
}

void noticeCloseOnExit() {
    getOS();
    for (const std::string_view code : {"2K", "XP", "VI", "SE"})
        if (identity.platformCode() == code) return;
    face().msgBox({.text = lines({"TUL starts DOS programs such as SCORE and waits until they have ended.",
                                  "For each of them set the 'close on exit' property of the DOS task,",
                                  "so that its window closes when the program ends."}),
                   .title = "TUL - Close on Exit message"});
}

std::string findScore(SelectionSeries& series) {
    const std::string score3 = "C:\\SCORE\\SCORE.EXE";
    const std::string score4 = "C:\\SCOR4\\SCOR4.EXE";
    const bool has3 = FileExists(score3);
    const bool has4 = FileExists(score4);
    if (has3 && has4) {
        const Answer answer = MsgBox(
            lines({"Your system has both Score3 and Score4 on drive C.", "Do you want to link Score3? ", "",
                   "Answer YES to link Score3, answer NO to link Score4"}),
            Buttons::yesNo, Icon::question);
        return answer == Answer::yes ? score3 : score4;
    }
    if (has3) return score3;
    if (has4) return score4;
    MsgBox(lines({"Your Score executable does not appear to be on a default location.",
                  "(Default locations are assumed to be C:\\SCORE\\SCORE.EXE and C:\\SCOR4\\SCOR4.EXE).",
                  "You can select the path via the following dialog."}));
    return series.select({.prompt = "Select the SCORE/SCOR4 executable: "}, false);
}

void clearUnlessFile(std::string& path) {
    if (!FileExists(path)) path.clear();
}

/// Where SCORE's companions and its library lie beside it, by the version.
void deriveFromScore() {
    MachineSettings& settings = machineSettings;
    const std::string& score = settings.ScorePath;
    const std::string upper = upperCase(score);
    if (upper.ends_with("\\SCOR4.EXE")) {
        const std::string prefix(folderOf(score));
        settings.PagePath = prefix + "PAGE4.EXE";
        settings.ScorlasPath = prefix + "SCORLAS4.EXE";
        settings.JustPath = prefix + "JUST4.EXE";
        settings.LibPath = prefix + "LIB";
        settings.PreferenceFilePath = settings.LibPath + "\\PREF-4.SCR";
        settings.HlpPath = prefix + "HLP\\COD01-4.HLP";
        const auto library = files().info(settings.LibPath);
        if (!library || !library->folder) settings.LibPath.clear();
    } else if (upper.ends_with("\\SCORE.EXE")) {
        const std::string prefix(folderOf(score));
        settings.PagePath = prefix + "PAGE.EXE";
        settings.ScorlasPath = prefix + "SCORLAS.EXE";
        settings.JustPath = prefix + "JUST.EXE";
        settings.LibPath = score.substr(0, 3) + "LIB";
        settings.PreferenceFilePath = settings.LibPath + "\\PREF.SCR";
        settings.HlpPath = score.substr(0, 3) + "HLP\\CODE01.HLP";
        if (!FileExists(settings.LibPath + "\\FM00.PSC")) settings.LibPath.clear();
    }
    for (std::string* path : {&settings.PagePath, &settings.ScorlasPath, &settings.JustPath,
                              &settings.PreferenceFilePath, &settings.HlpPath})
        clearUnlessFile(*path);
}

void linkScoreCompanion(SelectionSeries& series, std::string& path, const std::string& shown,
                        const std::string& name) {
    if (!path.empty()) return;
    path = LinkProgram(series, {.intro = "You can select the " + shown + " program to be linked to TUL",
                                .name = shown,
                                .offer = {.prompt = "Select the " + name + " program"},
                                .confirmedAs = name});
}

void linkScore(SelectionSeries& series) {
    const std::string intro =
        lines({"Setting up TUL for first use.", "First SCORE or SCOR4 and their utilities are linked:",
               "PAGE, SCORLAS, JUST, the library with its PREFerence file, and the help file.",
               "Where files are shown choose one: Cancel there ends TUL, and its next start asks anew.",
               "If you do not want to link SCORE/SCOR4 and their utilities to TUL, just Cancel."});
    if (!agreed(intro)) return;
    machineSettings.ScorePath = findScore(series);
    deriveFromScore();
    linkScoreCompanion(series, machineSettings.PagePath, "PAGE(4)", "PAGE");
    linkScoreCompanion(series, machineSettings.ScorlasPath, "SCORLAS(4)", "SCORLAS");
    linkScoreCompanion(series, machineSettings.JustPath, "JUST", "JUST");
    if (!machineSettings.PreferenceFilePath.empty()) return;
    MsgBox(lines(
        {"You must select the PREFerence file to be linked to TUL",
         "(TUL needs to know where it is. It MUST be in C:\\LIB or in C:\\SCOR4\\LIB or in a non-default "
         "location)."}));
    machineSettings.PreferenceFilePath =
        series.select({.prompt = "Select a PREF file in the LIB directory", .suffix = "SCR"}, false);
}

void linkWinScore(SelectionSeries& series) {
    if (!agreed(
            lines({"Do you want to link WinScore?",
                   "It usually resides in the Program Files\\WinScore directory.", declineLine("WinScore")})))
        return;
    const std::string program = series.select({.prompt = "Select the WinScore executable WSCORE.EXE"}, true);
    if (program.empty()) {
        MsgBox("WinScore linkage failed. User canceled.");
        return;
    }
    MachineSettings& settings = machineSettings;
    const std::string folder(folderOf(program));
    settings.WinScoreProgramPath = program;
    settings.WinScoreScorLibPath = folder + "scorlib";
    settings.WinScoreFontLibPath = folder + "fontlib";
    settings.WinScorePrefPath = folder + "scorlib\\PREF.DAT";
    if (FolderExists(settings.WinScoreScorLibPath) && FolderExists(settings.WinScoreFontLibPath) &&
        FileExists(settings.WinScorePrefPath))
        return;
    MsgBox(lines({"WinScore linkage failed. One of those not existing:",
                  " - scorLib Path - " + settings.WinScoreScorLibPath,
                  " - fontLib Path - " + settings.WinScoreFontLibPath,
                  " - pref.dat Path - " + settings.WinScorePrefPath,
                  "Manual intervention on TULCNTRL.INI required..."}));
}

void linkScoreEngine(SelectionSeries& series) {
    if (!agreed(lines({"Do you want to link ScoreEngine?",
                       "It usually resides in the Program Files\\ScoreEngine directory.",
                       declineLine("ScoreEngine")})))
        return;
    const std::string program = series.select({.prompt = "Select the ScoreEngineDispatch executable"}, true);
    if (program.empty()) {
        MsgBox("ScoreEngine linkage failed. User canceled.");
        return;
    }
    // Selected names are in upper case.
    if (!containsIgnoringCase(program, "ScoreEngineDispatch"))
        endWith("Wrong file selected. Must be ScoreEngineDispatch.");
    machineSettings.ScoreEngineProgramPath = GetShortName(program);
}

void linkFontMetrics() {
    if (!agreed(lines(
            {"Some TUL utilities such as TulText refer to AFM files (Adobe Font Metrics).",
             "Select the folder where you keep AFM files.", "Cancel if you do not use this feature.",
             "In general, the information in AFM files is of better quality than that from default PSC/FMT "
             "files.",
             "TUL remembers the path to this folder for when it needs to access the collection of AFM files.",
             "If you do not link this, TUL programs will be restricted to PSC/FMT files for font metrics "
             "information."})))
        return;
    const std::string folder = SelectFolder("Select AFM folder");
    if (confirmed("AFM folder", folder)) machineSettings.AFMfilesPath = folder;
}

bool isLascor(const std::string& path) {
    const std::size_t suffix = path.find(".EXE");
    if (suffix == std::string::npos || suffix < 2 || path.find("\\LASCOR") == std::string::npos) return false;
    const std::string_view digits(path.data() + suffix - 2, 2);
    return digits.find_first_not_of("0123456789") == std::string_view::npos;
}

/// The tools of other makers, and where each is kept.
struct ThirdPartyTool {
    Linkage linkage;
    std::string MachineSettings::*path;
};

std::function<bool(const std::string&)> holding(const std::string& part) {
    return [part](const std::string& path) { return path.find(part) != std::string::npos; };
}

ThirdPartyTool namedTool(const std::string& maker, const std::string& tool, const std::string& fileName,
                         const std::string& confirmedAs, std::string MachineSettings::*path) {
    return {{.intro = "You may select " + maker + "'s " + tool + " to be linked to TUL. The filename is " +
                      fileName + ".",
             .name = tool,
             .offer = {.prompt = "Select " + maker + "'s " + tool + " program", .missingModule = fileName},
             .confirmedAs = confirmedAs,
             .check = holding("\\" + fileName),
             .failure = "An incorrect name was given to link " + fileName},
            path};
}

std::vector<ThirdPartyTool> thirdPartyTools() {
    // BEAM is confirmed under LJ's name, and MidiScor under that of its setting.
    return {
        namedTool("Ward Kessel", "ACCS", "ACCS.EXE", "ACCS", &MachineSettings::ACCSPath),
        namedTool("Ward Kessel", "LJ", "LJ.EXE", "LJ", &MachineSettings::LJPath),
        namedTool("Ward Kessel", "BEAM", "BEAM.EXE", "LJ", &MachineSettings::BeamPath),
        namedTool("Tomas Harke", "MidiScor", "MIDISCOR.EXE", "MidiScorPath", &MachineSettings::MidiScorPath),
        {{.intro = lines({"You may select Pavel Ostrin's LASCOR to be linked to TUL.",
                          "The filename must be LASCORnn.EXE where nn are digits."}),
          .name = "LASCOR",
          .offer = {.prompt = "Select Pavel Ostrin's LASCOR program", .missingModule = "LASCORnn.EXE"},
          .confirmedAs = "LASCOR",
          .check = isLascor,
          .failure = "An incorrect name was given to link LASCORnn.EXE"},
         &MachineSettings::LascorPath},
        {{.intro = "You may select Rolf Danner's 'seps4id' to be linked to TUL.",
          .name = "'seps4id'",
          .offer = {.prompt = "Select Rolf Danner's 'seps4id' program", .missingModule = "'seps4id'"},
          .confirmedAs = "seps4id",
          .check =
              [](const std::string& path) {
                  return path.find(".EXE") != std::string::npos &&
                         path.find("\\SEPS4ID") != std::string::npos;
              },
          .failure = "No name was given to link 'seps4id'."},
         &MachineSettings::Seps4idProgramPath},
    };
}

void linkThirdPartyTools(SelectionSeries& series) {
    if (!agreed(lines({"Do you want to install any of the 3rd party tools?",
                       "TUL supports several 3rd party Score tools.",
                       "When you do not have any 3rd party tools or do not want to link them just Cancel."})))
        return;
    for (const ThirdPartyTool& tool : thirdPartyTools())
        machineSettings.*tool.path = LinkProgram(series, tool.linkage);
}

void writeControlFile() {
    machineSettings.MaxLogRecords = 1000;
    machineSettings.NotepadPath = "notepad.exe";
    machineSettings.WordpadPath = "wordpad.exe";
    machineSettings.WorkDrive = machineSettings.ScorePath.substr(0, 3);
    if (machineSettings.ScorePath.empty() && machineSettings.WinScoreProgramPath.empty()) {
        MsgBox(
            lines(
                {"Neither SCORE/SCOR4 nor WinScore was selected. This is exceptional but entirely possible.",
                 "If you want to link any of these programs, delete file TULCNTRL.INI and start TUL again."}),
            Buttons::ok, Icon::information);
        machineSettings.BypassLibTest1 = true;
    }
    if (files().replace(paths.ControlFilePath, firstControlFile()) != FileError::none)
        endWith(paths.ControlFilePath + " could not be opened for output. Hit Enter to abort");
    // An installation that is configured anew begins without a selection.
    files().removeIfThere(paths.NamesFilePath);
}

}  // namespace

void showDisclaimer() {
    face().msgBox(
        {.text =
             lines({"TUL is provided as it is, without warranty of any kind.",
                    "Its tools change music files. Keep copies of your files, and use the backup options.",
                    "The makers of TUL are not liable for any loss that comes from its use.",
                    "(This message and the following dialog only appear once at program initialization)"}),
         .title = "TUL - Disclaimer"});
}

void FirstUse() {
    machineSettings = {};
    if (FileExists(keptSelectionPath())) takeSelectionBack();  // this dialogue was cut off before
    SelectionSeries series;
    introduce();
    noticeMissingTables();
    noticeCloseOnExit();
    linkScore(series);
    linkWinScore(series);
    linkScoreEngine(series);
    linkFontMetrics();
    linkThirdPartyTools(series);
    writeControlFile();
}

}  // namespace tul
