#include "host/windows/windows_talk.h"

#include <io.h>
#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "base/text.h"
#include "host/talk.h"

namespace tul {

namespace {

constexpr const char* variable = "TUL_TALK";
constexpr const char* windows = "windows";
constexpr const char* terminal = "terminal";

bool leadsSomewhere(DWORD stream) { return ::GetFileType(::GetStdHandle(stream)) != FILE_TYPE_UNKNOWN; }

/// Where the program's own name ends in the text of the command line.
std::size_t endOfProgramName(std::string_view text) {
    if (!text.starts_with('"')) return std::min(text.find(' '), text.size());
    const std::size_t quote = text.find('"', 1);
    return quote == std::string_view::npos ? text.size() : quote + 1;
}

}  // namespace

void setTalkOfChildren(Talk talk) {
    ::SetEnvironmentVariableA(variable, talk == Talk::windows ? windows : terminal);
}

std::optional<Talk> inheritedTalk() {
    const char* const value = std::getenv(variable);
    const std::string_view talk = value == nullptr ? "" : value;
    if (talk == windows) return Talk::windows;
    if (talk == terminal) return Talk::terminal;
    return std::nullopt;
}

bool hasDisplay() {
    USEROBJECTFLAGS flags{};
    const HWINSTA station = ::GetProcessWindowStation();
    return ::GetUserObjectInformationA(station, UOI_FLAGS, &flags, sizeof flags, nullptr) != 0 &&
           (flags.dwFlags & WSF_VISIBLE) != 0;
}

bool isTerminal(Stream stream) {
    const std::array files = {stdin, stdout, stderr};
    const int number = ::_fileno(files[static_cast<std::size_t>(stream)]);
    DWORD mode = 0;
    return number >= 0 && ::GetConsoleMode(reinterpret_cast<HANDLE>(::_get_osfhandle(number)), &mode) != 0;
}

std::string argumentText(int, char**) {
    const std::string_view line = ::GetCommandLineA();
    std::string_view text = trim(line.substr(endOfProgramName(line)));
    // A script may put the whole text into quotes.
    const bool isQuoted = text.size() > 1 && text.starts_with('"') && text.find('"', 1) == text.size() - 1;
    if (isQuoted) text = text.substr(1, text.size() - 2);
    return std::string(text);
}

StartersConsole::StartersConsole() {
    const bool hasInput = leadsSomewhere(STD_INPUT_HANDLE);
    const bool hasOutput = leadsSomewhere(STD_OUTPUT_HANDLE);
    const bool hasError = leadsSomewhere(STD_ERROR_HANDLE);
    // For the command line's helpers only: who closes a console ends the programs on it.
    if (inheritedTalk() == Talk::terminal && ::AttachConsole(ATTACH_PARENT_PROCESS) != 0) {
        if (!hasInput) static_cast<void>(std::freopen("CONIN$", "r", stdin));
        if (!hasOutput) static_cast<void>(std::freopen("CONOUT$", "w", stdout));
        if (!hasError) static_cast<void>(std::freopen("CONOUT$", "w", stderr));
    }
    codePageBefore_ = ::GetConsoleOutputCP();
    inputCodePageBefore_ = ::GetConsoleCP();
    if (codePageBefore_ != 0) ::SetConsoleOutputCP(CP_UTF8);
    if (inputCodePageBefore_ != 0) ::SetConsoleCP(::GetACP());
}

StartersConsole::~StartersConsole() {
    if (codePageBefore_ != 0) ::SetConsoleOutputCP(codePageBefore_);
    if (inputCodePageBefore_ != 0) ::SetConsoleCP(inputCodePageBefore_);
}

}  // namespace tul
