#pragma once

#include <cstdint>
#include <string>

#include "base/from_one.h"

/// The process-wide records that all tools read. Each has one owner that writes it, named at its head.
namespace tul {

/// Who and where this process is. Owner: start-up.
struct Identity {
    std::string ComputerName;
    std::string VersionText;           // such as v8.0.0.200
    std::string BuildDateText;         // a date in words
    std::string OsCode = "00";         // two-letter platform code, then a description
    std::string ProcessorBits = "00";  // "32", "64", or "00" where the platform cannot tell
    bool DeveloperMode = false;

    std::string platformCode() const { return OsCode.substr(0, 2); }
};

/// Where the installation's files lie, each `ProgramFolder` + name. Owner: start-up.
struct Paths {
    std::string ProgramFolder;  // the current folder at start, without a backslash at its end
    std::string NamesFileName;
    std::string NamesFilePath;
    std::string ControlFilePath;
    std::string OptionsFilePath;
    std::string LogFilePath;

    std::string TulFolderPath;
    std::string TulFolderResultName;
    std::string TulNamesPath;
    std::string TulOlePath;
    std::string TulSeps4idPath;
    std::string TulBeamPath;
    std::string TulLjPath;
    std::string HelpFilePath;
    std::string TulXrefProfilePath;
    std::string TulFindPath;
    std::string TulDrawPath;
    std::string TulEpsFxPath;
    std::string TulTposePath;
    std::string TulAnli1Path;
    std::string TulAnli2Path;
    std::string TulScHlpPath;
};

/// The screen as TULMONIT.EXE tells it. Owner: the reading of its result.
struct Monitors {
    std::int32_t MonitorCount = 0;
    std::int32_t WorkAreaHeight = 0;  // pixels
    std::int32_t MonitorRight = 0;    // pixels, right edge of the current monitor
};

/// Separators and date form of reports. Owner: `LoadDateSettings`.
struct DateSettings {
    std::string dateSeparator = "-";
    std::string timeSeparator = ":";
    std::string shortDateFormat = "d/MM/yy";
};

/// Where the music tools of this machine lie. Owner: the control file.
struct MachineSettings {
    std::string FirstExecuted;  // as it stands in the file
    std::int32_t TimesExecuted = 0;
    std::int32_t MaxLogRecords = 0;
    std::string WorkDrive;
    std::string ScorePath;
    std::string ScoreFolder;  // of ScorePath, with a backslash at its end
    std::string PagePath;
    std::string ScorlasPath;
    std::string JustPath;
    std::string LibPath;
    std::string HlpPath;
    std::string PreferenceFilePath;
    std::string AFMfilesPath;
    std::string NotepadPath;
    std::string WordpadPath;
    std::string ScoreEngineProgramPath;
    std::string WinScoreProgramPath;
    std::string WinScoreScorLibPath;
    std::string WinScoreFontLibPath;
    std::string WinScorePrefPath;
    bool BypassLibTest1 = false;
    std::string ACCSPath;
    std::string LJPath;
    std::string BeamPath;
    std::string MidiScorPath;
    std::string LascorPath;
    std::string Seps4idProgramPath;
};

/// The choices of a project. Owner: the options file.
struct ProjectSettings {
    std::string MusDirectory;
    std::string PreferedSuffix;
    std::string LyricsSize;
    std::string LyricsFont;
    std::string PageNumberFont;
    std::string PageNumberSize;    // 200 added
    std::string PageNumberLength;  // digits of a number in a file name
    std::string PageNumberPlace;   // CENTER or SIDE, and TOP or BOTTOM behind it
    std::string BarNumberFont;
    std::string BarNumberSize;   // 200 added
    std::string BarNumberPlace;  // FIRST, EACH or NONE
    std::string PlateNumber;
    std::string PlateNumberFont;
    std::string PlateNumberSize;
    std::string FingerSizeLH = ".75";
    std::string Code9Path;
    std::string FontPreference = "PSC";
    std::string ScoreEnginePreference = "3";
    std::string InputMode = "D";   // of the input tool: "D" DOS, "W" Windows
    std::string Library;           // known once the options panel has returned
    std::int16_t StaffRange = 32;  // the highest valid staff number, 32 or 200
    std::int16_t PanelPreference = 0;
    std::int16_t BypassDecimalTest = 0;
    std::int16_t BypassPlatformTest = 0;
    std::int16_t WarnOnPathLength = 0;  // known once the options panel has returned
};

/// The one group of pages that every tool works on. Owner: the reading of the names file.
struct Selection {
    std::int16_t SelectionCount = 0;
    FromOne<std::string> SelectionNames;  // whole paths in upper case
    std::string SelectionPrefix;          // folder of all names, with a backslash at its end
    std::string LongestName;              // the first of the longest
    bool SelectionValid = false;
    std::int16_t EpsNamesCount = 0;
    std::int16_t XmlNamesCount = 0;
};

/// The outside editor that texts are shown in. Owner: `SetEditor`.
struct Editor {
    int code = 1;  // 1 NotepadPath, 2 WordpadPath
};

extern Identity identity;
extern Paths paths;
extern Monitors monitors;
extern DateSettings dateSettings;
extern MachineSettings machineSettings;
extern ProjectSettings projectSettings;
extern Selection selection;
extern Editor editor;

/// All of the above as a process has them before start-up.
void resetSharedRecords();

}  // namespace tul
