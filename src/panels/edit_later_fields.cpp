#include "panels/edit_later_fields.h"

#include <algorithm>
#include <array>
#include <deque>
#include <span>
#include <string_view>
#include <utility>

#include "base/numbers.h"
#include "centre/project_options.h"
#include "edit/edit_profile.h"
#include "edit/edit_run.h"
#include "shared/key_value_file.h"
#include "shared/records.h"

namespace tul::editlater {

namespace {

const std::string notYet = "Not in this version yet";

// What the controls show. There is nothing behind them so far.
struct Shown {
    std::string txtCurrentPlateNr;
    std::string txtLJfont;
    std::string txtLJfontName;
    std::string txtLJsize;
    std::string cmdLHfingersTip;
};
Shown shown;

struct LaterText {
    const char* name;
    const char* value;
};
constexpr std::array<LaterText, 32> texts = {{
    {"txtClefAlign", "1.25"},
    {"txtEditKeyInstrument", ""},
    {"txtEditInstrIdStaff", ""},
    {"txtEditInstrId", ""},
    {"txtEditInstrIdSystem", ""},
    {"txtEditInstrIdMultiple", "4/21,3/22,2/23,1/24"},
    {"txtRemoveStaves", ""},
    {"txtEditGeneratePlateMid", ""},
    {"txtEditGeneratePlateRight", ""},
    {"txtEditGenerateVertical", ""},
    {"txtEditBarInstr1", ""},
    {"txtEditBarInstr_2", ""},
    {"txtEditBarInstr_3", ""},
    {"txtEditBarInstr_4", ""},
    {"txtEditBarInstr_5", ""},
    {"txtEditBarInstr_6", ""},
    {"txtEditBarInstr_7", ""},
    {"txtEditBarUp_2", ""},
    {"txtEditBarUp_3", ""},
    {"txtEditBarUp_4", ""},
    {"txtEditBarUp_5", ""},
    {"txtEditBarUp_6", ""},
    {"txtEditBarUp_7", ""},
    {"Text1_0", "4"},
    {"Text1_1", "6"},
    {"Text1_2", "8"},
    {"Text1_3", "8"},
    {"Text1_4", "7"},
    {"Text1_5", "9"},
    {"txtDeleteItemFile", ""},
    {"txtDeleteSingleItem", ""},
    {"txtLHfingerPar16", ""},
}};

struct LaterFlag {
    const char* name;
    const char* frame;  // "" for a box
    bool on;
};
constexpr std::array<LaterFlag, 32> flags = {{
    {"optEditTtoC", "fraEditClef", false},
    {"optEditCtoT", "fraEditClef", false},
    {"optEditClef", "fraEditClef", false},
    {"optEditBasCleff8va", "fraEditClef", false},
    {"Option5", "fraEditClef", true},
    {"chkEditRestOne", "", false},
    {"optEditRestOneSet", "fraEditRest", true},
    {"optEditRestOneReset", "fraEditRest", false},
    {"chkToEuropeanRest", "", false},
    {"optEditStaffInstrId", "fraEditStaff", true},
    {"optEditStaffIRemove", "fraEditStaff", false},
    {"optEditStaffInstrIdPerStaff", "fraEditStaffInstrId", true},
    {"optEditStaffInstrIdPerSystem", "fraEditStaffInstrId", false},
    {"optEditGeneratePlate", "fraEditText", false},
    {"optEditPlateCenter", "fraEditPlate", true},
    {"optEditPlateSides", "fraEditPlate", false},
    {"optEditFinger4", "fraEditFinger", false},
    {"optEditFingerDispl", "fraEditFinger", false},
    {"Option2", "fraEditFinger", false},
    {"chkEditBarAcc", "", false},
    {"chkEditBarSystemBarlines", "", false},
    {"chkAutOff", "", false},
    {"chkOverlap", "", false},
    {"chkSlurVertAlign", "", false},
    {"optSlurVertAlignHite", "fraEditSlur", false},
    {"optSlurVertAlignPar8", "fraEditSlur", false},
    {"optLineRVB", "fraEditLine", false},
    {"option3", "fraEditLine", true},
    {"optSTM", "fraEditStem", false},
    {"optUnSTM", "fraEditStem", false},
    {"optLJ360", "fraEditLyrics", false},
    {"optLyricsZero", "fraEditLyrics", false},
}};

struct LaterButton {
    const char* name;
    const char* caption;
    const char* tip;  // "" where it has none of its own
};
constexpr std::array<LaterButton, 20> buttons = {{
    {"cmdDuo", "Duo", ""},
    {"cmdAllOnes", "All ones", ""},
    {"cmdEditBarVerify", "Verify barlines", ""},
    {"cmdDiscover", "Discover", "Find out which instruments and barlines exist in the first selected file."},
    {"cmdRemoveOverlaps", "Remove short overlaps",
     "This function is provided since Score to XML conversion does not allow overlapping barlines. "},
    {"cmdBarlineEditHelp", "Help", ""},
    {"cmdDuoB", "Duo", "Assumes systems of two staves on the whole page. The bottom instrument must be 2."},
    {"cmdEditOffsetHelp", "Help", ""},
    {"cmdReplacePar8", "Replace Par8 by font prefixes", ""},
    {"cmdRunDeleteItem", "Delete item", ""},
    {"cmdMidiPrep", "Midi prep.",
     "Convert the input such that it will easily convert to Midi using MidiScor."},
    {"cmdHalve", "Halve", ""},
    {"cmdMarlo", "Marlo",
     "Augmentation dots. This button only in the developer version. Click grey area to make button "
     "disappear. "},
    {"cmdDorvel", "Dorvel",
     "Use this to put beam ends at integer Par4 and 5 (take off fraction). Click grey area to make button "
     "disappear. "},
    {"cmdNewMeters", "16 to 10",
     "Change Code16 fingering (_00 or _05) to Code 10 (size .8). Click grey area hereunder to make button "
     "invisible."},
    {"cmdQuintal", "Quintal", ""},
    {"cmdLHfingers", "LHfing", ""},
    {"cmdTessler", "Tessler", ""},
    {"cmdad99", "ad99", ""},
    {"cmdSTM", "STM", ""},
}};

Field disabled(Field field) {
    field.enabled = false;
    if (field.toolTip().empty()) field.toolTip = notYet;
    return field;
}

std::vector<Field> bracketFields() {
    edit::BracketSettings& settings = edit::bracketSettings;
    return {
        textField("txtRVBheightLine", settings.txtRVBheightLine, ""),
        textField("txtRVBheight", settings.txtRVBheight, ""),
        textField("txtRVBdotCorr", settings.txtRVBdotCorr, ""),
        textField("txtRVBwidth", settings.txtRVBwidth, ""),
        textField("txtRVBhalfOffsetLeft", settings.txtRVBhalfOffsetLeft, ""),
        textField("txtRVBhalfOffsetRite", settings.txtRVBhalfOffsetRite, ""),
        textField("txtRVBwholeOffsetLeft", settings.txtRVBwholeOffsetLeft, ""),
        textField("txtRVBwholeOffsetRite", settings.txtRVBwholeOffsetRite, ""),
    };
}

using Names = std::span<const std::string_view>;
constexpr std::array<std::string_view, 4> developers = {"cmdTessler", "cmdHalve", "cmdMidiPrep",
                                                        "optEditFingerDispl"};
/// A developer hides these as well.
constexpr std::array<std::string_view, 6> hideable = {"cmdMarlo",   "cmdDorvel",    "cmdNewMeters",
                                                      "cmdQuintal", "cmdLHfingers", "txtLHfingerPar16"};

bool isAmong(Names names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

Live<bool> visibilityOf(std::string_view name) {
    if (isAmong(hideable, name)) return edit::showsHideable;
    if (isAmong(developers, name)) return [] { return identity.DeveloperMode; };
    return true;
}

Live<std::string> tipOf(const LaterButton& button) {
    if (std::string_view(button.name) == "cmdLHfingers") return [] { return shown.cmdLHfingersTip; };
    return *button.tip == '\0' ? notYet : std::string(button.tip);
}

/// As the options file has it; the settings that all tools share are without it.
std::string fingerSize() {
    std::string size;
    for (const KeyValue& option : readKeyValues(paths.OptionsFilePath).value_or(std::vector<KeyValue>()))
        if (option.key == "FINGERSIZERH") size = option.value;
    return size;
}

}  // namespace

void resetLaterFields() { shown = {}; }

std::vector<Field> laterFields() {
    // Nothing changes them as long as they are disabled.
    static std::deque<std::string> textValues;
    static std::deque<bool> flagValues;
    const bool isFirst = textValues.empty();
    for (const LaterText& later : texts)
        if (isFirst) textValues.emplace_back(later.value);
    for (const LaterFlag& later : flags)
        if (isFirst) flagValues.emplace_back(later.on);
    std::vector<Field> fields = bracketFields();
    for (std::size_t i = 0; i < texts.size(); ++i)
        fields.push_back(textField(texts[i].name, textValues[i], ""));
    for (std::size_t i = 0; i < flags.size(); ++i)
        fields.push_back(*flags[i].frame == '\0' ? checkField(flags[i].name, flagValues[i])
                                                 : optionField(flags[i].frame, flags[i].name, flagValues[i]));
    fields.push_back(textField("txtCurrentPlateNr", shown.txtCurrentPlateNr, ""));
    fields.push_back(textField("txtLJsize", shown.txtLJsize, ""));
    fields.push_back(textField("txtLJfont", shown.txtLJfont, ""));
    fields.push_back(textField("txtLJfontName", shown.txtLJfontName, ""));
    for (Field& field : fields) {
        field = disabled(std::move(field));
        field.visible = visibilityOf(field.name);
    }
    return fields;
}

std::vector<Command> laterCommands() {
    std::vector<Command> commands;
    commands.reserve(buttons.size() + 1);
    for (const LaterButton& later : buttons)
        commands.push_back({.name = later.name,
                            .caption = later.caption,
                            .run = [] {},
                            .enabled = false,
                            .toolTip = tipOf(later),
                            .visible = visibilityOf(later.name)});
    return commands;
}

void showProjectSettings() {
    const ProjectSettings& settings = projectSettings;
    const std::string& prefix = settings.LyricsFont;
    const bool isPrefix = prefix.size() == 3 && isWholeNumber(prefix.substr(1));
    const double font = isPrefix ? numericValue(prefix.substr(1)) : -1;
    shown = {.txtCurrentPlateNr = "Current plate number=" + settings.PlateNumberFont + settings.PlateNumber +
                                  ", Size=" + settings.PlateNumberSize,
             .txtLJfont = prefix,
             .txtLJfontName = font >= 0 ? fontTable.FontNames[static_cast<std::size_t>(font)] : "",
             .txtLJsize = settings.LyricsSize,
             .cmdLHfingersTip = "RH finger alignment for Score4 (finger size taken from global setting: " +
                                fingerSize() + ")."};
}

}  // namespace tul::editlater
