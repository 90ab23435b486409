#include "centre/launching.h"

#include <string_view>

#include "base/text.h"
#include "host/host.h"
#include "shared/records.h"

namespace tul {

namespace {

constexpr std::string_view executable = ".EXE";

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

/// Splits a command as process creation does: behind the program's suffix, else at the first blank.
Launch directLaunch(const std::string& command) {
    const std::string upper = upperCase(command);
    std::size_t end = std::string::npos;
    for (const std::string_view suffix : {".EXE", ".BAT", ".COM"}) {
        const std::size_t position = upper.find(suffix);
        if (position != std::string::npos && position + suffix.size() < end) end = position + suffix.size();
    }
    if (end == std::string::npos) end = command.find(' ');
    if (end == std::string::npos) end = command.size();
    return {.program = command.substr(0, end), .arguments = std::string(trim(command.substr(end)))};
}

}  // namespace

std::string programOf(const std::string& command) {
    const std::size_t position = upperCase(command).find(executable);
    return position == std::string::npos ? std::string() : command.substr(0, position + executable.size());
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
    if (command.find("TULNAMES.EXE") != std::string::npos) return ExecAndWait(command, words);

    Launch launch{.program = command, .arguments = {}, .words = words, .style = windowStyleOf(command)};
    if (command.find("ScoreEngine") == std::string::npos) {
        const std::string program = programOf(command);
        if (program.empty()) {
            if (containsIgnoringCase(command, ".BAT")) return ExecAndWait(command, words);
            MsgBox("ShellAndWait error: " + command + std::string(CrLf) +
                       "Assure that TUL knows where NOTEPAD/WORDPAD are.",
                   Buttons::ok, Icon::critical);
            endProgram();
        }
        launch.program = fileNameOf(program);
        launch.arguments = command.substr(program.size());
    }
    if (identity.platformCode() == "2K" && startsScore(launch.program))
        launch.arguments = argumentsForWindows2000(launch.arguments);

    const LaunchResult result = processes().runAndWait(launch);
    if (!result.started) tellStartFailure(launch.program, result.failure);
}

}  // namespace tul
