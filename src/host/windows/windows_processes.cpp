#include "host/windows/windows_processes.h"

#include <windows.h>
// Behind it, as it needs its words.
#include <shellapi.h>

#include <array>
#include <cstdlib>

#include "base/text.h"
#include "host/host.h"
#include "host/windows/system_text.h"
#include "host/windows/windows_paths.h"

namespace tul {

namespace {

constexpr DWORD elevationRequired = 740;  // which the compiler's headers have no name for
constexpr DWORD millisecondsBetweenRepaints = 50;
constexpr INT_PTR leastSuccess = 33;  // what lies below is an error of the shell's

bool isPlainFile(const std::string& path) {
    const DWORD attributes = ::GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

/// Where an installed program has told the system to find it, as Wordpad has; empty when it has not.
std::string registeredProgram(const std::string& program) {
    const std::string key = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\" + program;
    for (const HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
        std::array<char, 1024> text{};
        DWORD size = text.size();
        if (::RegGetValueA(root, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, text.data(), &size) !=
            ERROR_SUCCESS)
            continue;
        std::string path = text.data();
        std::erase(path, '"');
        if (isPlainFile(path)) return path;
    }
    return {};
}

/// The whole path of a program; empty when there is none. The folder of the running program is not looked
/// into, as the system itself would do first: a work folder's own copy comes before all others.
std::string findProgram(const std::string& program) {
    const std::string here = wholePath(program);
    if (isPlainFile(here)) return here;
    if (fileNameOf(program) != program) return {};
    const char* const searchPath = std::getenv("PATH");
    const std::string found = textFrom([&](char* text, DWORD size) {
        return ::SearchPathA(searchPath == nullptr ? "" : searchPath, program.c_str(), ".EXE", size, text,
                             nullptr);
    });
    return found.empty() ? registeredProgram(program) : found;
}

/// A word as programs take it for one: in quotes where it needs them, with the quotes inside it marked.
std::string quoted(const std::string& word) {
    if (!word.empty() && word.find_first_of(" \t\r\n\"") == std::string::npos) return word;
    std::string text = "\"";
    std::size_t backslashes = 0;
    for (const char character : word) {
        if (character == '"') text.append(backslashes + 1, '\\');
        text += character;
        backslashes = character == '\\' ? backslashes + 1 : 0;
    }
    return text.append(backslashes, '\\') + '"';
}

std::string commandLineOf(const std::string& program, const Launch& launch) {
    std::string line = '"' + program + '"';
    if (const std::string_view arguments = trimLeft(launch.arguments); !arguments.empty())
        return line.append(" ").append(arguments);
    for (const std::string& word : launch.words) line += ' ' + quoted(word);
    return line;
}

/// The child writes where this program does, also when it is one with windows, to which the system hands
/// nothing by itself. Without streams here a child with a console gets those of its own.
void handOnStreams(STARTUPINFOA& start) {
    start.hStdInput = ::GetStdHandle(STD_INPUT_HANDLE);
    start.hStdOutput = ::GetStdHandle(STD_OUTPUT_HANDLE);
    start.hStdError = ::GetStdHandle(STD_ERROR_HANDLE);
    for (const HANDLE stream : {start.hStdInput, start.hStdOutput, start.hStdError})
        if (::GetFileType(stream) != FILE_TYPE_UNKNOWN) start.dwFlags |= STARTF_USESTDHANDLES;
}

/// Why a program did not start, in words that a user can do something with.
std::string startFailure(DWORD error, const std::string& program) {
    const std::string name(fileNameOf(program));
    switch (error) {
        case ERROR_FILENAME_EXCED_RANGE:
        case ERROR_INVALID_PARAMETER:
            return "The list of files is too long to be handed to " + name + ".";
        case ERROR_BAD_EXE_FORMAT:
        case ERROR_EXE_MACHINE_TYPE_MISMATCH:
            return name + " is not a program that this Windows can run.";
        case elevationRequired:
            return name + " wants to be run as administrator.";
        default:
            return name + " could not be started: " + errorText(error);
    }
}

}  // namespace

LaunchResult WindowsProcesses::runAndWait(const Launch& launch) {
    const std::string program = findProgram(launch.program);
    if (program.empty()) return {.failure = launch.program + " was not found."};
    STARTUPINFOA start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESHOWWINDOW;
    start.wShowWindow = launch.style == WindowStyle::maximized ? SW_SHOWMAXIMIZED : SW_SHOWNORMAL;
    handOnStreams(start);
    PROCESS_INFORMATION created{};
    std::string line = commandLineOf(program, launch);
    // The children show the system's own boxes again, which this program has switched off for itself.
    if (::CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, CREATE_DEFAULT_ERROR_MODE, nullptr,
                         nullptr, &start, &created) == 0)
        return {.failure = startFailure(::GetLastError(), program)};
    const Handle thread(created.hThread);
    const Handle process(created.hProcess);
    while (::WaitForSingleObject(process.get(), millisecondsBetweenRepaints) == WAIT_TIMEOUT) showWaiting();
    DWORD code = 0;
    ::GetExitCodeProcess(process.get(), &code);
    return {.started = true, .exitCode = static_cast<int>(code), .failure = {}};
}

bool WindowsProcesses::canFind(const std::string& program) const { return !findProgram(program).empty(); }

LaunchResult WindowsProcesses::openDocument(const std::string& path) {
    const auto result = reinterpret_cast<INT_PTR>(
        ::ShellExecuteA(nullptr, "open", path.c_str(), nullptr, nullptr, SW_SHOWNORMAL));
    const DWORD error = ::GetLastError();  // the result itself is not of the system's errors
    if (result >= leastSuccess) return {.started = true, .exitCode = 0, .failure = {}};
    return {.failure = path + " could not be opened: " + errorText(error)};
}

}  // namespace tul
