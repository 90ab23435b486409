#include "centre/launching.h"

#include <algorithm>
#include <initializer_list>
#include <string_view>
#include <utility>

#include "base/text.h"
#include "host/host.h"
#include "shared/records.h"

namespace tul {

namespace {

bool startsScore(const std::string& program) {
    return program.find("SCORE.EXE") != std::string::npos || program.find("SCOR4.EXE") != std::string::npos;
}

/// Windows 2000 drops the second character of SCORE's arguments: it is doubled.
std::string argumentsForWindows2000(const std::string& arguments) {
    return arguments.size() < 2 ? arguments : arguments.substr(0, 2) + arguments.substr(1);
}

WindowStyle windowStyleOf(const std::string& command) {
    for (const std::string_view program : {"NOTEPAD.EXE", "WORDPAD.EXE", "WINHELP.EXE", "CLIPBRD.EXE"})
        if (containsIgnoringCase(command, program)) return WindowStyle::maximized;
    return WindowStyle::normal;
}

void tellStartFailure(const std::string& program, const std::string& failure) {
    const std::string newLine(CrLf);
    if (program == "TULSCHLP.EXE") {
        MsgBox("Call to TulScHlp causes error: " + failure + newLine +
               "This is usually the case when the physical screen is not big enough." + newLine +
               "Change DPI setting to lower value.");
        return;
    }
    MsgBox("Call to " + program + " causes error: " + failure + newLine +
           "Usually this error occurs when too many files are selected with Drag/Drop." + newLine +
           "It could also be that the physical screen is not big enough." + newLine +
           "In that case change DPI setting to lower value." + newLine +
           "This could also be an installation or a programming error. Contact Development.");
}

/// Where the program's name ends: behind the first of the suffixes that a blank or nothing follows, for a
/// folder may be called "m.exeter". Nothing when there is none.
std::size_t endOfProgram(const std::string& command, std::initializer_list<std::string_view> suffixes) {
    const std::string upper = upperCase(command);
    std::size_t first = std::string::npos;
    for (const std::string_view suffix : suffixes) {
        for (std::size_t at = upper.find(suffix); at != std::string::npos; at = upper.find(suffix, at + 1)) {
            const std::size_t end = at + suffix.size();
            if (end < upper.size() && upper[end] != ' ') continue;
            first = std::min(first, end);
            break;
        }
    }
    return first;
}

/// Program and arguments of a command that is run as it stands.
Launch directLaunch(const std::string& command) {
    std::size_t end = endOfProgram(command, {".EXE", ".BAT", ".COM"});
    if (end == std::string::npos) end = std::min(command.find(' '), command.size());
    return {.program = command.substr(0, end), .arguments = std::string(trim(command.substr(end)))};
}

bool namesScoreEngine(const std::string& command) { return command.find("ScoreEngine") != std::string::npos; }

/// The selection program, and batch files.
bool isRunAsItStands(const std::string& command) {
    if (command.find("TULNAMES.EXE") != std::string::npos) return true;
    return !namesScoreEngine(command) && programOf(command).empty() && containsIgnoringCase(command, ".BAT");
}

/// The help program left the platform after Windows XP.
bool hasHelpProgram() {
    if (identity.platformCode() == "XP") return true;
    MsgBox("The WINHELP program has been discontinued by MicroSoft for this platform." + std::string(CrLf) +
           "Refer to user guides for specific explanation or contact development.");
    return false;
}

}  // namespace

std::string programOf(const std::string& command) {
    const std::size_t end = endOfProgram(command, {".EXE"});
    return end == std::string::npos ? std::string() : command.substr(0, end);
}

std::optional<Launch> launchOf(const std::string& command) {
    Launch launch = directLaunch(command);
    if (isRunAsItStands(command)) return launch;
    launch.style = windowStyleOf(command);
    if (!namesScoreEngine(command)) {
        const std::string program = programOf(command);
        if (program.empty()) return std::nullopt;
        launch.program = fileNameOf(program);
        launch.arguments = command.substr(program.size());
    }
    if (identity.platformCode() == "2K" && startsScore(launch.program))
        launch.arguments = argumentsForWindows2000(launch.arguments);
    return launch;
}

bool canRun(const std::string& command) {
    const auto launch = launchOf(command);
    return launch && processes().canFind(launch->program);
}

void startAndWait(const Launch& launch) {
    const LaunchResult result = processes().runAndWait(launch);
    if (!result.started) tellStartFailure(launch.program, result.failure);
}

void ExecAndWait(const std::string& command, const std::vector<std::string>& words) {
    Launch launch = directLaunch(command);
    launch.words = words;
    const LaunchResult result = processes().runAndWait(launch);
    if (result.started && result.exitCode != -1) return;
    std::string text = "Failed to execute " + command;
    if (!result.failure.empty()) text.append(CrLf).append(result.failure);
    MsgBox(text, Buttons::ok, Icon::critical);
    endProgram();
}

void ShellAndWait(const std::string& command, const std::vector<std::string>& words) {
    if (isRunAsItStands(command)) return ExecAndWait(command, words);
    auto launch = launchOf(command);
    if (!launch) {
        MsgBox("ShellAndWait error: " + command + std::string(CrLf) +
                   "Assure that TUL knows where NOTEPAD/WORDPAD are.",
               Buttons::ok, Icon::critical);
        endProgram();
    }
    launch->words = words;
    startAndWait(*launch);
}

void ShowHelpFile(const std::string& name) {
    if (hasHelpProgram()) ExecAndWait("TULWINHELP " + name);
}

void ShowOwnHelpFile() {
    if (hasHelpProgram()) ShellAndWait("WINHELP.EXE " + paths.HelpFilePath);
}

InFolder::InFolder(const std::string& folder, std::string behind)
    : behind_(behind.empty() ? files().currentFolder() : std::move(behind)) {
    files().enterIfThere(folder);
}

InFolder::~InFolder() { files().enterIfThere(behind_); }

}  // namespace tul
