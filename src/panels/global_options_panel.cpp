#include "panels/global_options_panel.h"

#include <initializer_list>
#include <utility>
#include <variant>

#include "centre/global_options.h"
#include "centre/main_panel.h"
#include "centre/option_checks.h"
#include "centre/panel_place.h"
#include "centre/project_options.h"
#include "centre/viewing.h"
#include "host/host.h"
#include "shared/records.h"

namespace tul {

namespace {

using Text = std::string GlobalOptions::*;
using Flag = bool GlobalOptions::*;
using KeepText = std::string (*)(const std::string& typed);

std::string keepAll(const std::string& typed) { return typed; }

std::string keepPresentSuffix(const std::string& typed) {
    return keepSuffix(typed, globalOptions.txtPreferredSuffix);
}

/// A text that an input box fills. Where the tools need its key, they have the new value at once.
struct TextEntry {
    const char* name;
    Text text;
    const char* key;
    const char* prompt;
    KeepText keep;
};

const std::vector<TextEntry> textEntries = {
    {"txtProjectName", &GlobalOptions::txtProjectName, "Project", "Project name", keepAll},
    {"txtPreferredSuffix", &GlobalOptions::txtPreferredSuffix, "PreferedSuffix",
     "Preferred suffix such as MUS or PAG", keepPresentSuffix},
    {"txtPageFont", &GlobalOptions::txtPageFont, "PageNumberFont", "Page number font (Code10, Par7)",
     keepFontNumber},
    {"txtPageSize", &GlobalOptions::txtPageSize, "PageNumberSize",
     "Page number size (Code10, Par6. Value between 0 and 10). 200 will be added to this value.",
     keepMarkedSize},
    {"txtPageLength", &GlobalOptions::txtPageLength, "PageNumberLength",
     "Number of digits in filename (1-7).", keepPageLength},
    {"txtBarFont", &GlobalOptions::txtBarFont, "BarNumberFont", "Bar number font (Code10, Par7)",
     keepFontNumber},
    {"txtBarSize", &GlobalOptions::txtBarSize, "BarNumberSize",
     "Bar number size (Code10, Par6. Value between 0 and 10)\r\nThe 200 mark will be added.", keepMarkedSize},
    {"txtRehearsalFont", &GlobalOptions::txtRehearsalFont, "RehearsalFont",
     "Rehearsal mark font (Code10, Par7)", keepFontNumber},
    {"txtRehearsalSize", &GlobalOptions::txtRehearsalSize, "RehearsalSize",
     "Rehearsal mark size (Code10, Par6. Value between 0 and 10)", keepSize},
    {"txtPlateText", &GlobalOptions::txtPlateText, "PlateNumber", "Plate number", keepAll},
    {"txtPlateSize", &GlobalOptions::txtPlateSize, "PlateNumberSize",
     "Plate number size (Code16, Par6. Value between 0 and 10)", keepSize},
    {"txtFingerFontLH", &GlobalOptions::txtFingerFontLH, "FingerFontLH",
     "Left hand fingering font (Code10, Par7)", keepFontNumber},
    {"txtFingerSizeLH", &GlobalOptions::txtFingerSizeLH, "FingerSizeLH",
     "Left hand fingering size (Code10, Par6. Value between 0 and 10)", keepSize},
    {"txtFingerFontRH", &GlobalOptions::txtFingerFontRH, "FingerFontRH",
     "Right hand fingering font (Code10, Par7)", keepFontNumber},
    {"txtFingerSizeRH", &GlobalOptions::txtFingerSizeRH, "FingerSizeRH",
     "Right hand fingering size (Code10, Par6. Value between 0 and 10)", keepSize},
    {"txtLyricsSize", &GlobalOptions::txtLyricsSize, "LyricsSize", "Lyrics size (Code16, Par6 or -PointSize)",
     keepLyricsSize},
};

Keep keepAndShare(const char* key, KeepText keep) {
    return [key, keep](const std::string& typed) {
        std::string kept = keep(typed);
        storeProjectOption(key, kept);
        return kept;
    };
}

void addTexts(std::vector<Field>& fields) {
    for (const TextEntry& entry : textEntries)
        fields.push_back(textField(entry.name, globalOptions.*entry.text, std::string(entry.prompt),
                                   keepAndShare(entry.key, entry.keep)));
}

/// A click opens the list of fonts; a prefix may be given as well.
Field fontField(const char* name, Text text, const char* key) {
    return withTip(
        clickField(
            name, globalOptions.*text, [text] { openFontList(text); }, keepAndShare(key, keepFontPrefix)),
        "A font of the list, or its prefix such as _01");
}

/// A click lets the user choose; a folder may be given in the platform's own form as well.
Field folderField() {
    Field field = clickField("txtInitialMusFolder", globalOptions.txtInitialMusFolder, chooseInitialFolder,
                             [](const std::string& typed) {
                                 setInitialFolder(files().fromNative(typed).value_or(typed));
                                 return globalOptions.txtInitialMusFolder;
                             });
    std::get<TextKind>(field.kind).isPath = true;
    return withTip(std::move(field), "Select initial MUS folder");
}

Field label(const char* name, Text text) { return labelField(name, globalOptions.*text); }

Field check(const char* name, Flag box) { return checkField(name, globalOptions.*box); }

Field option(const char* frame, const char* name, Flag flag) {
    return optionField(frame, name, globalOptions.*flag);
}

/// An option that the tools see as a setting as soon as it is on.
Field choice(const char* frame, const char* name, Flag flag, std::string ProjectSettings::*setting,
             const char* value) {
    return withStep(option(frame, name, flag), [flag, setting, value] {
        if (globalOptions.*flag) projectSettings.*setting = value;
    });
}

Field splitOption(const char* name, Flag flag) {
    return onlyIf(option("fraTulSplit", name, flag), [] { return globalOptions.splitMayBeChosen; });
}

Field engineOption(const char* name, Flag flag, const char* value, Flag linked) {
    Field field = choice("fraScoreEngine", name, flag, &ProjectSettings::ScoreEnginePreference, value);
    const auto isLinked = [linked] { return globalOptions.*linked; };
    return onlyIf(shownIf(std::move(field), isLinked), isLinked);
}

void addOptions(std::vector<Field>& fields) {
    using G = GlobalOptions;
    using P = ProjectSettings;
    for (const Field& field : std::initializer_list<Field>{
             option("fraPageNumberSide", "optPageNumberCenter", &G::optPageNumberCenter),
             option("fraPageNumberSide", "optPageNumberSide", &G::optPageNumberSide),
             option("fraPageNumberHeight", "optPageNumberTop", &G::optPageNumberTop),
             option("fraPageNumberHeight", "optPageNumberBottom", &G::optPageNumberBottom),
             option("fraBarNumber", "optBarNumberFirst", &G::optBarNumberFirst),
             option("fraBarNumber", "optBarNumberEach", &G::optBarNumberEach),
             option("fraBarNumber", "optBarNumberNone", &G::optBarNumberNone),
             option("fraStaffRange", "opt32", &G::opt32),
             option("fraStaffRange", "opt99", &G::opt99),
             check("chkBypassDecimalTest", &G::chkBypassDecimalTest),
             check("chkBypassPlatformTest", &G::chkBypassPlatformTest),
             check("chkWarnOnPathLength", &G::chkWarnOnPathLength),
             label("fraTulSplit", &G::fraTulSplit),
             splitOption("optTulSplitDOS", &G::optTulSplitDOS),
             splitOption("optTulSplitWindows", &G::optTulSplitWindows),
             label("fraTulInput", &G::fraTulInput),
             choice("fraTulInput", "optTulInputDOS", &G::optTulInputDOS, &P::InputMode, "D"),
             choice("fraTulInput", "optTulInputWindows", &G::optTulInputWindows, &P::InputMode, "W"),
             choice("fraFontPreference", "optFontPreferencePSC", &G::optFontPreferencePSC, &P::FontPreference,
                    "PSC"),
             choice("fraFontPreference", "optFontPreferenceFMT", &G::optFontPreferenceFMT, &P::FontPreference,
                    "FMT"),
             engineOption("optScoreEngine3", &G::optScoreEngine3, "3", &G::scoreEngine3Linked),
             engineOption("optScoreEngine4", &G::optScoreEngine4, "4", &G::scoreEngine4Linked),
         })
        fields.push_back(field);
}

Command viewLibraryFile(const char* name, const char* caption, std::string (*path)(), Flag isThere) {
    return {.name = name,
            .caption = std::string(caption),
            .run = [path] { ViewWithEditor(path()); },
            .enabled = [isThere] { return globalOptions.*isThere; },
            .toolTip = [path] { return "View/edit this file. Path is " + path(); }};
}

std::string preferenceFilePath() { return machineSettings.PreferenceFilePath; }
std::string code9FilePath() { return projectSettings.Code9Path; }

std::string setFolderTip() {
    return "This will set the Initial folder to the path prefix of the first file in NAMES.TUL: " +
           selection.SelectionPrefix;
}

std::vector<Command> commands() {
    return {
        {.name = "cmdGlobalSetFolder",
         .caption = std::string("Set initial folder"),
         .run = cmdGlobalSetFolder,
         .enabled = [] { return selection.SelectionValid; },
         .toolTip = setFolderTip},
        viewLibraryFile("cmdGlobalViewPref", "View PREF file", preferenceFilePath,
                        &GlobalOptions::prefFileThere),
        viewLibraryFile("cmdGlobalViewCode9", "View CODE9 file", code9FilePath,
                        &GlobalOptions::code9FileThere),
        viewLibraryFile("cmdGlobalViewPrint", "View PRINT file", printFilePath,
                        &GlobalOptions::printFileThere),
        {.name = "cmdGlobalOptionsDefault",
         .caption = std::string("Default"),
         .run = cmdGlobalOptionsDefault},
        {.name = "cmdGlobalOptionsReturn", .caption = std::string("Return"), .run = OptionsPanelReturn},
    };
}

}  // namespace

void resetGlobalOptionsPanel() { globalOptions = {}; }

Panel describeGlobalOptionsPanel() {
    Panel panel;
    panel.name = "frmGlobalOptions";
    panel.caption = "Global TUL options";
    panel.runCommand = "cmdGlobalOptionsReturn";
    addTexts(panel.fields);
    panel.fields.push_back(folderField());
    panel.fields.push_back(label("txtCode9TextPath", &GlobalOptions::txtCode9TextPath));
    panel.fields.push_back(fontField("txtPlateFont", &GlobalOptions::txtPlateFont, "PlateNumberFont"));
    panel.fields.push_back(fontField("txtLyricsFont", &GlobalOptions::txtLyricsFont, "LyricsFont"));
    panel.fields.push_back(label("txtFontName", &GlobalOptions::txtFontName));
    panel.fields.push_back(listField("lstFont", globalOptions.lstFont, chooseFont));
    addOptions(panel.fields);
    panel.fields.push_back(
        rowField("optPanelPreference", globalOptions.optPanelPreference, {"main", "tools", "special"}));
    panel.fields.push_back(listField("List1", globalOptions.List1));
    panel.fields.push_back(listField("List2", globalOptions.List2));
    panel.commands = commands();
    panel.place = &globalOptions.place;
    panel.load = OptionsPanelLoad;
    panel.closed = [] { return !globalOptions.OptionsPanelOpen; };
    panel.unload = [] {
        showPreferredTab();
        positionPanel(mainPanel.place);
    };
    return panel;
}

}  // namespace tul
