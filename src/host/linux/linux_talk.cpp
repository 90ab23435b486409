#include <unistd.h>

#include <array>
#include <cstdlib>
#include <string_view>

#include "host/talk.h"

namespace tul {

namespace {

constexpr const char* variable = "TUL_TALK";
constexpr const char* windows = "windows";
constexpr const char* terminal = "terminal";

std::string_view valueOf(const char* name) {
    const char* const value = std::getenv(name);
    return value ? value : "";
}

}  // namespace

void setTalkOfChildren(Talk talk) { ::setenv(variable, talk == Talk::windows ? windows : terminal, 1); }

std::optional<Talk> inheritedTalk() {
    if (valueOf(variable) == windows) return Talk::windows;
    if (valueOf(variable) == terminal) return Talk::terminal;
    return std::nullopt;
}

bool hasDisplay() {
    constexpr std::array names = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
    const std::string_view platform = valueOf("QT_QPA_PLATFORM");
    if (platform.starts_with("offscreen") || platform.starts_with("minimal")) return false;
    for (const char* const name : names)
        if (!valueOf(name).empty()) return true;
    return false;
}

bool isTerminal(Stream stream) {
    constexpr std::array numbers = {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO};
    return ::isatty(numbers[static_cast<std::size_t>(stream)]) != 0;
}

std::string argumentText(int argc, char** argv) {
    std::string text;
    for (int i = 1; i < argc; ++i) {
        if (i > 1) text += ' ';
        text += argv[i];
    }
    return text;
}

}  // namespace tul
