#include "centre/project_options.h"

#include <string_view>

#include "base/numbers.h"
#include "base/text.h"
#include "centre/start_up.h"
#include "host/host.h"
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

void storeOption(const KeyValue& option) {
    ProjectSettings& settings = projectSettings;
    const std::string& value = option.value;
    const auto whole = [&value] { return toInt16(numericValue(value)).value_or(0); };
    if (option.key == "MUSDIRECTORY") settings.MusDirectory = value;
    if (option.key == "PREFEREDSUFFIX") settings.PreferedSuffix = value;
    if (option.key == "LYRICSSIZE") settings.LyricsSize = value;
    if (option.key == "LYRICSFONT") settings.LyricsFont = trimRight(value);
    if (option.key == "PAGENUMBERFONT") settings.PageNumberFont = value;
    if (option.key == "PAGENUMBERSIZE") settings.PageNumberSize = value;
    if (option.key == "PLATENUMBER") settings.PlateNumber = value;
    if (option.key == "PLATENUMBERFONT") settings.PlateNumberFont = value;
    if (option.key == "PLATENUMBERSIZE") settings.PlateNumberSize = value;
    if (option.key == "STAFFRANGE") settings.StaffRange = whole();
    if (option.key == "PANELPREFERENCE") settings.PanelPreference = whole();
    if (option.key == "BYPASSDECIMALTEST") settings.BypassDecimalTest = whole();
    if (option.key == "BYPASSPLATFORMTEST") settings.BypassPlatformTest = whole();
}

std::vector<KeyValue> readOptions() {
    auto options = readKeyValues(paths.OptionsFilePath);
    if (!options)
        endWith("Project options [" + paths.OptionsFilePath +
                "] could not be opened for input. Hit Enter to abort");
    return std::move(*options);
}

std::string fontName(int number) {
    const std::string digits = formatted(number, "00").substr(0, 2);
    const std::string path = machineSettings.LibPath + "\\FM" + digits + ".PSC";
    if (!FileExists(path)) return {};
    const auto info = files().info(path);
    std::string head;
    if (!info || info->length != fontFileLength) return {};
    if (files().read(path, head, fontHeadLength) != FileError::none || !head.starts_with(fontMarks))
        return {};
    return std::string(trim(std::string_view(head).substr(fontMarks.size())));
}

}  // namespace

void WriteDefaultOptions() {
    const DateTime now = clock().now();
    std::string text = "* Global TUL Options settings - generated " + dateText(now) + " at " + timeText(now) +
                       " by " + identity.VersionText + newLine;
    for (const std::string& line :
         {std::string("DisplayOptions=NO"), std::string("Project=Installation verification"),
          std::string("Pref=NO"), "MusDirectory=" + files().currentFolder(),
          std::string("NamesFile=NAMES.TUL")})
        text += line + newLine;
    for (const char* line :
         {"Resolution=600",      "PreferedSuffix=MUS", "PageNumberPlace=Side",   "PageNumberSize=201.1",
          "PageNumberFont=0",    "PageNumberLength=2", "BarNumberPlace=First",   "BarNumberFont=1",
          "BarNumberSize=201",   "RehearsalFont=0",    "RehearsalSize=1",        "PlateNumber=",
          "PlateNumberFont=_00", "PlateNumberSize=.8", "FingerFontLH=0",         "FingerSizeLH=.75",
          "FingerFontRH=_26",    "FingerSizeRH=.75",   "LyricsFont=_00",         "LyricsSize=1",
          "StaffRange=32",       "FontPreference=PSC", "ScoreEnginePreference=3"})
        text += line + newLine;
    if (files().replace(paths.OptionsFilePath, text) != FileError::none)
        endWith(paths.OptionsFilePath + " could not be opened for output. Hit Enter to abort");
}

void ReadProjectOptions() {
    projectSettings.Code9Path = machineSettings.LibPath + "\\CODE9.DAT";
    for (const KeyValue& option : readOptions()) storeOption(option);
}

void readMusDirectory() {
    for (const KeyValue& option : readOptions())
        if (option.key == "MUSDIRECTORY") projectSettings.MusDirectory = option.value;
}

void LoadFontNames() {
    for (int number = 0; number < static_cast<int>(fontTable.FontNames.size()); ++number)
        fontTable.FontNames[static_cast<std::size_t>(number)] =
            machineSettings.LibPath.empty() ? std::string() : fontName(number);
}

}  // namespace tul
