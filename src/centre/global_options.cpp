#include "centre/global_options.h"

#include <algorithm>
#include <functional>
#include <string_view>
#include <utility>
#include <vector>

#include "base/numbers.h"
#include "base/text.h"
#include "centre/installation.h"
#include "centre/library_folder.h"
#include "centre/main_panel.h"
#include "centre/names_file.h"
#include "centre/option_checks.h"
#include "centre/panel_place.h"
#include "centre/project_options.h"
#include "centre/tool_enabling.h"
#include "host/host.h"
#include "shared/function_module.h"
#include "shared/key_value_file.h"
#include "shared/records.h"

namespace tul {

GlobalOptions globalOptions;

namespace {

const std::string newLine(CrLf);
const std::string noFont = "(cancel)";

using Text = std::string GlobalOptions::*;
using Flag = bool GlobalOptions::*;

/// What a key of the file and the controls have to do with each other.
struct Binding {
    std::function<void(const std::string& value)> show;  // empty: the value is not read
    std::function<std::string()> written;
};

Binding text(Text field) {
    return {[field](const std::string& value) { globalOptions.*field = value; },
            [field] { return globalOptions.*field; }};
}

Binding rightTrimmed(Text field) {
    return {[field](const std::string& value) { globalOptions.*field = trimRight(value); },
            [field] { return globalOptions.*field; }};
}

Binding zeroOrOne(Flag box) {
    return {[box](const std::string& value) { globalOptions.*box = isTrue(value); },
            [box] { return globalOptions.*box ? "1" : "0"; }};
}

std::string booleanText(Flag flag) { return globalOptions.*flag ? "True" : "False"; }

/// One of two options that exclude each other.
Binding boolean(Flag option, Flag other) {
    return {[option, other](const std::string& value) {
                globalOptions.*option = isTrue(value);
                if (globalOptions.*option) globalOptions.*other = false;
            },
            [option] { return booleanText(option); }};
}

Binding writtenOnly(std::function<std::string()> written) { return {{}, std::move(written)}; }

Binding writtenOnly(Flag box) { return writtenOnly(zeroOrOne(box).written); }

void showPageNumberPlace(const std::string& value) {
    const std::string place = upperCase(value);
    GlobalOptions& o = globalOptions;
    for (const bool centred : {true, false}) {
        const std::string side = centred ? "CENTER" : "SIDE";
        const bool named = place == side || place == side + "TOP" || place == side + "BOTTOM";
        if (!named) continue;
        o.optPageNumberCenter = centred;
        o.optPageNumberSide = !centred;
        if (place == side) return;
        o.optPageNumberTop = place.ends_with("TOP");
        o.optPageNumberBottom = !o.optPageNumberTop;
    }
}

std::string pageNumberPlace() {
    return std::string(globalOptions.optPageNumberCenter ? "Center" : "Side") +
           (globalOptions.optPageNumberTop ? "Top" : "Bottom");
}

void showBarNumberPlace(const std::string& value) {
    const std::string place = upperCase(value);
    if (place != "FIRST" && place != "EACH" && place != "NONE") return;
    globalOptions.optBarNumberFirst = place == "FIRST";
    globalOptions.optBarNumberEach = place == "EACH";
    globalOptions.optBarNumberNone = place == "NONE";
}

std::string barNumberPlace() {
    if (globalOptions.optBarNumberFirst) return "First";
    return globalOptions.optBarNumberEach ? "Each" : "None";
}

void showStaffRange(const std::string& value) {
    globalOptions.opt32 = trim(value) == "32";
    globalOptions.opt99 = !globalOptions.opt32;
}

/// A key of the options file.
struct PanelOption {
    std::string_view key;
    Binding binding;
    bool shared = false;  // the project settings take the value from the file at once
};

// In the order in which the file is written.
const std::vector<PanelOption> panelOptions = {
    {"Project", text(&GlobalOptions::txtProjectName)},
    {"MusDirectory", text(&GlobalOptions::txtInitialMusFolder)},
    {"Code9Path", writtenOnly([] { return globalOptions.txtCode9TextPath; })},
    {"NamesFile", writtenOnly([] { return std::string("NAMES.TUL"); })},
    {"PreferedSuffix", text(&GlobalOptions::txtPreferredSuffix)},
    {"PageNumberPlace", {showPageNumberPlace, pageNumberPlace}},
    {"PageNumberFont", text(&GlobalOptions::txtPageFont)},
    {"PageNumberSize", text(&GlobalOptions::txtPageSize)},
    {"PageNumberLength", text(&GlobalOptions::txtPageLength)},
    {"BarNumberPlace", {showBarNumberPlace, barNumberPlace}},
    {"BarNumberFont", text(&GlobalOptions::txtBarFont)},
    {"BarNumberSize", text(&GlobalOptions::txtBarSize)},
    {"RehearsalFont", text(&GlobalOptions::txtRehearsalFont)},
    {"RehearsalSize", text(&GlobalOptions::txtRehearsalSize)},
    {"PlateNumber", text(&GlobalOptions::txtPlateText)},
    {"PlateNumberFont", text(&GlobalOptions::txtPlateFont)},
    {"PlateNumberSize", text(&GlobalOptions::txtPlateSize)},
    {"FingerFontLH", text(&GlobalOptions::txtFingerFontLH)},
    {"FingerSizeLH", text(&GlobalOptions::txtFingerSizeLH)},
    {"FingerFontRH", text(&GlobalOptions::txtFingerFontRH)},
    {"FingerSizeRH", text(&GlobalOptions::txtFingerSizeRH)},
    {"LyricsFont", rightTrimmed(&GlobalOptions::txtLyricsFont)},
    {"LyricsSize", text(&GlobalOptions::txtLyricsSize)},
    {"StaffRange", {showStaffRange, [] { return globalOptions.opt32 ? "32" : "200"; }}},
    {"PanelPreference", writtenOnly([] { return plain(globalOptions.optPanelPreference); })},
    {"BypassDecimalTest", writtenOnly(&GlobalOptions::chkBypassDecimalTest)},
    {"BypassPlatformTest", writtenOnly(&GlobalOptions::chkBypassPlatformTest)},
    {"TulSplitDOS", boolean(&GlobalOptions::optTulSplitDOS, &GlobalOptions::optTulSplitWindows)},
    {"TulSplitWindows", boolean(&GlobalOptions::optTulSplitWindows, &GlobalOptions::optTulSplitDOS)},
    {"TulInputDOS", writtenOnly([] { return booleanText(&GlobalOptions::optTulInputDOS); }), true},
    {"TulInputWindows", writtenOnly([] { return booleanText(&GlobalOptions::optTulInputWindows); }), true},
    {"WarnOnPathLength", zeroOrOne(&GlobalOptions::chkWarnOnPathLength)},
    {"FontPreference", writtenOnly([] { return projectSettings.FontPreference == "PSC" ? "PSC" : "FMT"; }),
     true},
    {"ScoreEnginePreference",
     writtenOnly([] { return projectSettings.ScoreEnginePreference == "3" ? "3" : "4"; }), true},
};

bool isPassedOver(std::string_view key) {
    return key == "DISPLAYOPTIONS" || key == "PREF" || key == "RESOLUTION";
}

const PanelOption* findOption(std::string_view key) {
    const auto found = std::find_if(panelOptions.begin(), panelOptions.end(),
                                    [key](const PanelOption& o) { return equalIgnoringCase(o.key, key); });
    return found == panelOptions.end() ? nullptr : &*found;
}

void show(const PanelOption& option, const std::string& value) {
    if (option.binding.show) option.binding.show(value);
}

/// A setting that the file lacks is shown as a new installation has it.
void showDefaults() {
    for (const OptionLine& line : defaultOptions())
        if (const PanelOption* const option = findOption(line.key)) show(*option, line.value);
}

void showFile() {
    const auto lines = readKeyValues(paths.OptionsFilePath);
    if (!lines) endWith(paths.OptionsFilePath + " could not be opened for input. Hit Enter to abort");
    for (const KeyValue& line : *lines) {
        if (isPassedOver(line.key)) continue;
        const PanelOption* const option = findOption(line.key);
        if (!option) {
            MsgBox("ignored invalid command in TULPROJ.PRO: " + line.line, Buttons::ok, Icon::exclamation);
            continue;
        }
        if (option->shared) storeProjectOption(line.key, line.value);
        show(*option, line.value);
    }
}

void showSharedValues() {
    GlobalOptions& o = globalOptions;
    o.txtCode9TextPath = projectSettings.Code9Path;
    o.chkBypassDecimalTest = projectSettings.BypassDecimalTest != 0;
    o.chkBypassPlatformTest = projectSettings.BypassPlatformTest != 0;
    const int tab = projectSettings.PanelPreference;
    o.optPanelPreference = tab >= 0 && tab < preferableTabs ? tab : 0;
    o.optTulInputDOS = projectSettings.InputMode == "D";
    o.optTulInputWindows = !o.optTulInputDOS;
    o.optFontPreferencePSC = projectSettings.FontPreference == "PSC";
    o.optFontPreferenceFMT = !o.optFontPreferencePSC;
    o.optScoreEngine3 = projectSettings.ScoreEnginePreference == "3";
    o.optScoreEngine4 = !o.optScoreEngine3;
}

void showSplitVersions() {
    const auto [dos, windows] = findSplitVersions();
    GlobalOptions& o = globalOptions;
    o.splitMayBeChosen = dos && windows;
    if (dos != windows) {
        o.optTulSplitDOS = dos;
        o.optTulSplitWindows = windows;
        o.fraTulSplit =
            std::string("TulSplit - only the ") + (dos ? "DOS" : "Windows") + " version is present";
    } else {
        o.fraTulSplit = dos ? "TulSplit - both DOS and Windows version are present"
                            : "TulSplit - neither version is present";
    }
}

void showInputVersion() {
    globalOptions.fraTulInput = areInstalled({"\\TULINPUTW.EXE", "\\TULCW.EXE"})
                                    ? "TulInput (Windows) - is present"
                                    : "TulInput (Windows) - is NOT present";
}

void showLinkedEngines() {
    const std::string& dispatcher = machineSettings.ScoreEngineProgramPath;
    if (dispatcher.empty()) return;
    std::string profile;
    files().readIfThere(std::string(folderOf(dispatcher)) + "ScoreEngineLinkProfile.TXT", profile);
    for (const std::string_view line : linesOf(profile)) {
        const auto holds = [line](const char* link) { return line.find(link) != std::string_view::npos; };
        if (holds("\\SCORE.EXE,1000")) globalOptions.scoreEngine3Linked = true;
        if (holds("\\SCOR4.EXE,1005")) globalOptions.scoreEngine4Linked = true;
    }
}

void addLines(ListBox& list, const std::string& path) {
    std::string contents;
    if (!FileExists(path)) return;
    files().readIfThere(path, contents);
    for (const std::string_view line : linesOf(contents)) list.entries.emplace_back(line);
}

/// The lines of an installation's PREF and CODE9 files, then the names of the files of its library.
ListBox libraryLines(const std::string& preferencePath, const std::string& library) {
    ListBox list;
    addLines(list, preferencePath);
    if (library.empty()) return list;
    addLines(list, library + "\\CODE9.DAT");
    for (const std::string& name : files().list(library)) list.entries.push_back(name);
    return list;
}

void fillFontList() {
    ListBox& list = globalOptions.lstFont;
    list.title = "Select any Score font or '(cancel)'";
    list.entries = {noFont};
    int number = 0;
    for (const std::string& name : fontTable.FontNames) {
        if (!name.empty()) list.entries.push_back((number < 10 ? "0" : "") + plain(number) + " - " + name);
        ++number;
    }
}

/// A value is one line of the file, whatever a script has put into the field.
std::string firstLine(const std::string& value) {
    const auto lines = linesOf(value);
    return lines.empty() ? std::string() : std::string(lines.front());
}

std::string optionsFile() {
    std::string file =
        "* Global TUL Options last updated " + dateAndTime(" at ") + " by " + identity.VersionText + newLine;
    for (const PanelOption& option : panelOptions)
        file += std::string(option.key) + "=" + firstLine(option.binding.written()) + newLine;
    return file;
}

}  // namespace

void ReadGlobalOptions() {
    globalOptions = {};
    showLinkedEngines();
    showDefaults();
    showFile();
    showSharedValues();
    showSplitVersions();
    showInputVersion();
}

void OptionsPanelLoad() {
    ReadGlobalOptions();
    globalOptions.OptionsPanelOpen = true;
    globalOptions.place.height = heightOfPanels();
    positionPanel(globalOptions.place);
    globalOptions.List1 = libraryLines(machineSettings.PreferenceFilePath, machineSettings.LibPath);
    globalOptions.List2 = libraryLines(machineSettings.WinScorePrefPath, machineSettings.WinScoreScorLibPath);
    fillFontList();
    globalOptions.prefFileThere = FileExists(machineSettings.PreferenceFilePath);
    globalOptions.code9FileThere = FileExists(projectSettings.Code9Path);
    globalOptions.printFileThere = FileExists(printFilePath());
}

void OptionsPanelReturn() {
    if (files().replace(paths.OptionsFilePath, optionsFile()) != FileError::none)
        endWith(paths.OptionsFilePath + " could not be opened for output. Hit Enter to abort");
    ReadReturnedOptions();
    chooseSplitVersion();
    refreshAnlibTip();
    savePanelCoordinates(globalOptions.place);
    face().setPointer(Pointer::normal);
    globalOptions.OptionsPanelOpen = false;
}

void cmdGlobalOptionsDefault() {
    const Answer answer = face().msgBox(
        {.text = "This will reset the Global Options and terminate the program." + newLine +
                 "Default options will be created on restart of TUL." + newLine + "Are you sure? ",
         .buttons = Buttons::okCancel,
         .icon = Icon::question,
         .title = "Default Global Options"});
    if (answer != Answer::ok) return;
    files().removeIfThere(paths.OptionsFilePath);
    leaveProgram();
}

void cmdGlobalSetFolder() {
    const std::string folder(folderOf(selection.SelectionNames[1]));
    globalOptions.txtInitialMusFolder = folder.substr(0, folder.rfind('\\'));
    projectSettings.MusDirectory = globalOptions.txtInitialMusFolder;
}

void setInitialFolder(const std::string& folder) {
    globalOptions.txtInitialMusFolder = folder;
    projectSettings.MusDirectory = folder;
    SaveProfileValue("InitialFolder", folder);
}

void chooseInitialFolder() { setInitialFolder(SelectFolder("Select initial MUS folder")); }

void openFontList(std::string GlobalOptions::*field) {
    globalOptions.fontField = field;
    globalOptions.lstFont.visible = true;
}

void chooseFont(const std::string& entry) {
    const Text field = globalOptions.fontField;
    globalOptions.fontField = &GlobalOptions::txtLyricsFont;
    globalOptions.lstFont.visible = false;
    if (entry == noFont || entry.empty()) return;
    const std::string prefix = "_" + entry.substr(0, 2);
    globalOptions.*field = prefix;
    globalOptions.txtFontName = fontNameOf(prefix);
    const bool isPlate = field == &GlobalOptions::txtPlateFont;
    storeProjectOption(isPlate ? "PlateNumberFont" : "LyricsFont", prefix);
}

std::string keepFontPrefix(const std::string& typed) {
    const std::string prefix = CheckFontPrefix(typed);
    globalOptions.txtFontName = fontNameOf(prefix);
    return prefix;
}

std::string printFilePath() { return machineSettings.LibPath + "\\PRINT.DAT"; }

}  // namespace tul
