#include "centre/project_options.h"

#include <functional>
#include <string_view>

#include "base/numbers.h"
#include "base/text.h"
#include "host/host.h"
#include "music/font_prefix.h"
#include "shared/function_module.h"
#include "shared/key_value_file.h"
#include "shared/records.h"

namespace tul {

FontTable fontTable;

namespace {

const std::string newLine(CrLf);

// A font file of SCORE: two marks, then the name, then metrics of fixed length.
constexpr std::size_t fontFileLength = 694;
constexpr std::size_t fontHeadLength = 30;
constexpr std::string_view fontMarks = "\x4B\x81";

/// How a value of the file gets into the project settings.
using Store = std::function<void(const std::string&)>;
using Text = std::string ProjectSettings::*;

Store asRead(Text setting) {
    return [setting](const std::string& value) { projectSettings.*setting = value; };
}
Store rightTrimmed(Text setting) {
    return [setting](const std::string& value) { projectSettings.*setting = trimRight(value); };
}
Store inUpperCase(Text setting) {
    return [setting](const std::string& value) { projectSettings.*setting = upperCase(value); };
}
Store rounded(std::int16_t ProjectSettings::*setting) {
    return [setting](const std::string& value) {
        if (const auto number = toInt16(numericValue(value))) projectSettings.*setting = *number;
    };
}
Store inputMode(const char* mode) {
    return [mode](const std::string& value) {
        if (isTrue(value)) projectSettings.InputMode = mode;
    };
}

struct SharedOption {
    std::string_view key;
    Store store;
};
using SharedOptions = std::vector<SharedOption>;

const SharedOptions sharedOptions = {
    {"MUSDIRECTORY", asRead(&ProjectSettings::MusDirectory)},
    {"PREFEREDSUFFIX", asRead(&ProjectSettings::PreferedSuffix)},
    {"LYRICSSIZE", asRead(&ProjectSettings::LyricsSize)},
    {"LYRICSFONT", rightTrimmed(&ProjectSettings::LyricsFont)},
    {"PAGENUMBERFONT", asRead(&ProjectSettings::PageNumberFont)},
    {"PAGENUMBERSIZE", asRead(&ProjectSettings::PageNumberSize)},
    {"PAGENUMBERLENGTH", asRead(&ProjectSettings::PageNumberLength)},
    {"PAGENUMBERPLACE", inUpperCase(&ProjectSettings::PageNumberPlace)},
    {"BARNUMBERFONT", asRead(&ProjectSettings::BarNumberFont)},
    {"BARNUMBERSIZE", asRead(&ProjectSettings::BarNumberSize)},
    {"BARNUMBERPLACE", inUpperCase(&ProjectSettings::BarNumberPlace)},
    {"PLATENUMBER", asRead(&ProjectSettings::PlateNumber)},
    {"PLATENUMBERFONT", asRead(&ProjectSettings::PlateNumberFont)},
    {"PLATENUMBERSIZE", asRead(&ProjectSettings::PlateNumberSize)},
    {"FINGERSIZELH", asRead(&ProjectSettings::FingerSizeLH)},
    {"STAFFRANGE", rounded(&ProjectSettings::StaffRange)},
    {"PANELPREFERENCE", rounded(&ProjectSettings::PanelPreference)},
    {"BYPASSDECIMALTEST", rounded(&ProjectSettings::BypassDecimalTest)},
    {"BYPASSPLATFORMTEST", rounded(&ProjectSettings::BypassPlatformTest)},
    {"TULINPUTDOS", inputMode("D")},
    {"TULINPUTWINDOWS", inputMode("W")},
    {"FONTPREFERENCE", inUpperCase(&ProjectSettings::FontPreference)},
    {"SCOREENGINEPREFERENCE", inUpperCase(&ProjectSettings::ScoreEnginePreference)},
};

const SharedOptions returnedOptions = {
    {"LIBRARY", asRead(&ProjectSettings::Library)},
    {"WARNONPATHLENGTH", rounded(&ProjectSettings::WarnOnPathLength)},
};

void storeInto(const SharedOptions& options, std::string_view key, const std::string& value) {
    for (const SharedOption& option : options)
        if (option.key == key) option.store(value);
}

std::vector<KeyValue> readOptions() {
    auto options = readKeyValues(paths.OptionsFilePath);
    if (!options)
        endWith("Project options [" + paths.OptionsFilePath +
                "] could not be opened for input. Hit Enter to abort");
    return std::move(*options);
}

std::string fontName(int number) {
    const std::string path = machineSettings.LibPath + "\\FM" + formatted(number, "00") + ".PSC";
    const auto info = files().info(path);
    std::string head;
    if (!FileExists(path) || !info || info->length != fontFileLength) return {};
    if (files().read(path, head, fontHeadLength) != FileError::none || !head.starts_with(fontMarks))
        return {};
    return std::string(trim(std::string_view(head).substr(fontMarks.size())));
}

}  // namespace

std::vector<OptionLine> defaultOptions() {
    return {
        {"DisplayOptions", "NO"},
        {"Project", "Installation verification"},
        {"Pref", "NO"},
        {"MusDirectory", files().currentFolder()},
        {"NamesFile", "NAMES.TUL"},
        {"Resolution", "600"},
        {"PreferedSuffix", "MUS"},
        {"PageNumberPlace", "Side"},
        {"PageNumberSize", "201.1"},
        {"PageNumberFont", "0"},
        {"PageNumberLength", "2"},
        {"BarNumberPlace", "First"},
        {"BarNumberFont", "1"},
        {"BarNumberSize", "201"},
        {"RehearsalFont", "0"},
        {"RehearsalSize", "1"},
        {"PlateNumber", ""},
        {"PlateNumberFont", "_00"},
        {"PlateNumberSize", ".8"},
        {"FingerFontLH", "0"},
        {"FingerSizeLH", ".75"},
        {"FingerFontRH", "_26"},
        {"FingerSizeRH", ".75"},
        {"LyricsFont", "_00"},
        {"LyricsSize", "1"},
        {"StaffRange", "32"},
        {"FontPreference", "PSC"},
        {"ScoreEnginePreference", "3"},
    };
}

void WriteDefaultOptions() {
    std::string text = "* Global TUL Options settings - generated " + dateAndTime(" at ") + " by " +
                       identity.VersionText + newLine;
    for (const OptionLine& line : defaultOptions()) text += line.key + "=" + line.value + newLine;
    if (files().replace(paths.OptionsFilePath, text) != FileError::none)
        endWith(paths.OptionsFilePath + " could not be opened for output. Hit Enter to abort");
}

void storeProjectOption(std::string_view key, const std::string& value) {
    storeInto(sharedOptions, upperCase(key), value);
}

/// What the file lacks is as in that of a new installation, but for the folder of the music.
static void storeDefaults() {
    for (const OptionLine& line : defaultOptions())
        if (line.key != "MusDirectory") storeProjectOption(line.key, line.value);
}

void ReadProjectOptions() {
    projectSettings.Code9Path = machineSettings.LibPath + "\\CODE9.DAT";
    storeDefaults();
    for (const KeyValue& option : readOptions()) storeInto(sharedOptions, option.key, option.value);
}

void ReadReturnedOptions() {
    projectSettings.Code9Path = machineSettings.LibPath + "\\CODE9.DAT";
    storeDefaults();
    for (const KeyValue& option : readOptions()) {
        storeInto(sharedOptions, option.key, option.value);
        storeInto(returnedOptions, option.key, option.value);
    }
}

void readMusDirectory() {
    for (const KeyValue& option : readOptions())
        if (option.key == "MUSDIRECTORY") projectSettings.MusDirectory = option.value;
}

std::string fontNameOf(std::string_view prefix) {
    if (prefix.size() != fontPrefixLength || !beginsWithFont(prefix)) return {};
    return fontTable.FontNames.at(static_cast<std::size_t>(numericValue(prefix.substr(1))));
}

void LoadFontNames() {
    for (int number = 0; number < static_cast<int>(fontTable.FontNames.size()); ++number)
        fontTable.FontNames[static_cast<std::size_t>(number)] =
            machineSettings.LibPath.empty() ? std::string() : fontName(number);
}

}  // namespace tul
