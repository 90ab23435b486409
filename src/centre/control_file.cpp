#include "centre/control_file.h"

#include <string_view>
#include <vector>

#include "base/numbers.h"
#include "base/text.h"
#include "centre/start_up_warning.h"
#include "host/host.h"
#include "shared/function_module.h"
#include "shared/key_value_file.h"
#include "shared/records.h"

namespace tul {

namespace {

const std::string newLine(CrLf);
constexpr std::int32_t fewestLogRecords = 101;

/// A key whose value is kept as text.
struct TextSetting {
    const char* key;
    std::string MachineSettings::*value;
};

const std::vector<TextSetting> textSettings = {
    {"WorkDrive", &MachineSettings::WorkDrive},
    {"ScorePath", &MachineSettings::ScorePath},
    {"PagePath", &MachineSettings::PagePath},
    {"ScorlasPath", &MachineSettings::ScorlasPath},
    {"JustPath", &MachineSettings::JustPath},
    {"libPath", &MachineSettings::LibPath},
    {"hlpPath", &MachineSettings::HlpPath},
    {"PreferenceFilePath", &MachineSettings::PreferenceFilePath},
    {"AFMfilesPath", &MachineSettings::AFMfilesPath},
    {"NotepadPath", &MachineSettings::NotepadPath},
    {"WordpadPath", &MachineSettings::WordpadPath},
    {"ScoreEngineProgramPath", &MachineSettings::ScoreEngineProgramPath},
    {"WinScoreProgramPath", &MachineSettings::WinScoreProgramPath},
    {"WinScoreScorLibPath", &MachineSettings::WinScoreScorLibPath},
    {"WinScoreFontLibPath", &MachineSettings::WinScoreFontLibPath},
    {"WinScorePrefPath", &MachineSettings::WinScorePrefPath},
    {"ACCSPath", &MachineSettings::ACCSPath},
    {"LJPath", &MachineSettings::LJPath},
    {"BeamPath", &MachineSettings::BeamPath},
    {"MidiScorPath", &MachineSettings::MidiScorPath},
    {"LascorPath", &MachineSettings::LascorPath},
    {"Seps4idProgramPath", &MachineSettings::Seps4idProgramPath},
};

constexpr std::string_view bypassKey = "BypassLibTest1";
constexpr std::string_view justKey = "JustPath";

void storeSetting(const KeyValue& setting) {
    MachineSettings& settings = machineSettings;
    const auto whole = [&setting] { return toInt32(numericValue(setting.value)).value_or(0); };
    if (setting.key == "FIRSTEXECUTED") settings.FirstExecuted = setting.value;
    if (setting.key == "TIMESEXECUTED") settings.TimesExecuted = whole();
    if (setting.key == "MAXLOGRECORDS") settings.MaxLogRecords = whole();
    if (setting.key == upperCase(bypassKey)) settings.BypassLibTest1 = isTrue(setting.value);
    for (const TextSetting& known : textSettings)
        if (setting.key == upperCase(known.key)) settings.*known.value = setting.value;
}

std::string settingLine(std::string_view key, std::string_view value) {
    return std::string(key) + "=" + std::string(value) + newLine;
}

std::string bypassLine() { return settingLine(bypassKey, machineSettings.BypassLibTest1 ? "True" : "False"); }

/// The user's settings, in one of two orders that differ in where the library test stands and whether JUST
/// has its line.
std::string userSettings(bool firstUse) {
    std::string text = "[UserSettings]" + newLine;
    text += settingLine("MaxLogRecords", plain(machineSettings.MaxLogRecords));
    for (const TextSetting& setting : textSettings) {
        const std::string_view key = setting.key;
        if (firstUse && key == justKey) continue;
        text += settingLine(key, machineSettings.*setting.value);
        if (firstUse && key == "ScoreEngineProgramPath") text += bypassLine();
        if (key == "WinScorePrefPath") text += bypassLine();
    }
    return text;
}

std::string rewrittenFile() {
    return "[TulVariables]" + newLine + settingLine("FirstExecuted", machineSettings.FirstExecuted) +
           settingLine("LastExecuted", dateAndTime(",") + "," + identity.ComputerName + "," +
                                           identity.platformCode() + "," + identity.ProcessorBits) +
           settingLine("TimesExecuted", plain(std::int64_t{machineSettings.TimesExecuted} + 1)) +
           settingLine("LastVersionExecuted", identity.VersionText) + userSettings(false);
}

/// Every hundredth start a log that has grown too long makes room for a new one.
void cycleLog() {
    const std::string count = plain(machineSettings.TimesExecuted);
    if (!count.ends_with("00")) return;
    std::string log;
    if (files().read(paths.LogFilePath, log) != FileError::none)
        endWith("Failed to open" + paths.LogFilePath + " for input. Hit OK to terminate");
    if (linesOf(log).size() <= static_cast<std::size_t>(machineSettings.MaxLogRecords)) return;
    files().removeIfThere("TULLOG.BKP");
    const bool saved = files().rename(paths.LogFilePath, "TULLOG.BKP") == FileError::none;
    startUpWarning(saved ? "Cycled logging file " + paths.LogFilePath + " and saved previous to TULLOG.BKP"
                         : "Logging file " + paths.LogFilePath +
                               " is too long and could not be saved to TULLOG.BKP");
}

}  // namespace

std::string firstControlFile() {
    return "[TulVariables]" + newLine + settingLine("FirstExecuted", dateAndTime(",")) +
           settingLine("LastExecuted", dateAndTime(",")) + settingLine("TimesExecuted", "0") +
           settingLine("LastVersionExecuted", identity.VersionText) + userSettings(true);
}

void ReadControlFile(bool rewrite) {
    const auto settings = readKeyValues(paths.ControlFilePath, "[");
    if (!settings) endWith("Failed to open TULCNTRL.INI. Hit OK to terminate");
    machineSettings = {};
    for (const KeyValue& setting : *settings) storeSetting(setting);
    machineSettings.ScoreFolder = machineSettings.ScorePath;
    if (const std::string_view folder = folderOf(machineSettings.ScorePath); !folder.empty())
        machineSettings.ScoreFolder = folder;
    if (machineSettings.MaxLogRecords < fewestLogRecords) {
        endWith("MaxLogRecords value in TulCntrl.ini is 100 or less." + newLine + "Must be be >100.");
    }
    if (!rewrite) return;
    if (files().replace(paths.ControlFilePath, rewrittenFile()) != FileError::none)
        endWith("Failed to rewrite TULCNTRL.INI. Hit OK to terminate.");
    cycleLog();
}

}  // namespace tul
