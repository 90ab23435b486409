#include "host/linux/linux_processes.h"

#include <poll.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <system_error>

#include "base/text.h"
#include "host/host.h"
#include "host/linux/descriptor.h"
#include "host/linux/dos_command.h"
#include "host/linux/linux_files.h"

namespace tul {

namespace {

constexpr int repaintInterval = 30;  // milliseconds

enum class ProgramKind { none, native, windows, dos };

bool mayBeExecuted(const std::string& path) { return ::access(path.c_str(), X_OK) == 0; }

bool isPlainFile(const std::string& path) {
    struct stat status;
    return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

/// The folders of the search path; a relative one means the current folder of a process and says nothing
/// here.
std::vector<std::string> searchPath() {
    std::vector<std::string> folders;
    const char* path = std::getenv("PATH");
    std::string_view rest = path == nullptr ? "" : path;
    while (!rest.empty()) {
        const SplitText split = splitAtFirst(rest, ':');
        if (split.before.starts_with('/')) folders.emplace_back(split.before);
        rest = split.behind;
    }
    return folders;
}

/// A helper of this system's own, by its very name; empty when it is not installed.
std::string findHelper(const std::string& name) {
    for (const std::string& folder : searchPath()) {
        const std::string path = folder + '/' + name;
        if (isPlainFile(path) && mayBeExecuted(path)) return path;
    }
    return {};
}

bool hasSuffix(std::string_view path, std::string_view suffix) {
    return path.size() >= suffix.size() &&
           equalIgnoringCase(path.substr(path.size() - suffix.size()), suffix);
}

/// What begins with MZ is a Windows program when its head points to a second one that is marked PE, or NE for
/// one of 16 bits.
bool isWindowsProgram(int file, std::string_view head) {
    constexpr std::size_t pointer = 0x3C;
    if (head.size() < pointer + 4) return false;
    std::uint32_t place = 0;
    for (std::size_t byte = 4; byte-- > 0;)
        place = place << 8 | static_cast<std::uint8_t>(head[pointer + byte]);
    std::array<char, 4> mark{};
    if (::pread(file, mark.data(), mark.size(), static_cast<off_t>(place)) != 4) return false;
    const std::string_view text(mark.data(), mark.size());
    return text == std::string_view("PE\0\0", 4) || text.starts_with("NE");
}

ProgramKind kindOf(const std::string& path) {
    OpenFile file;
    // A program that may be executed but not be read is of no use to anything but the system itself.
    if (openForReading(path, file) != FileError::none)
        return mayBeExecuted(path) ? ProgramKind::native : ProgramKind::none;
    std::array<char, 64> start{};
    const ssize_t count = ::pread(file.descriptor.number(), start.data(), start.size(), 0);
    const std::string_view head(start.data(), count > 0 ? static_cast<std::size_t>(count) : 0);
    if (head.starts_with("\177ELF") || head.starts_with("#!")) return ProgramKind::native;
    if (head.starts_with("MZ"))
        return isWindowsProgram(file.descriptor.number(), head) ? ProgramKind::windows : ProgramKind::dos;
    return hasSuffix(path, ".COM") || hasSuffix(path, ".BAT") ? ProgramKind::dos : ProgramKind::none;
}

std::string startFailure(int error, const std::string& name) {
    if (error == E2BIG) return "The list of files is too long to be handed to " + name + ".";
    if (error == ENOENT)
        return name + " could not be started: the program that it is to be run with is missing.";
    return name + " could not be started: " + std::generic_category().message(error) + ".";
}

/// What a new process gets besides its arguments: its folder, and the signals that are ignored here.
class SpawnSettings {
  public:
    explicit SpawnSettings(const std::string& folder) {
        ::posix_spawn_file_actions_init(&actions_);
        ::posix_spawn_file_actions_addchdir_np(&actions_, folder.c_str());
        ::posix_spawnattr_init(&attributes_);
        sigset_t defaults;
        ::sigemptyset(&defaults);
        ::sigaddset(&defaults, SIGXFSZ);
        ::posix_spawnattr_setsigdefault(&attributes_, &defaults);
        ::posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGDEF);
    }
    ~SpawnSettings() {
        ::posix_spawnattr_destroy(&attributes_);
        ::posix_spawn_file_actions_destroy(&actions_);
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;

    int spawn(pid_t& child, const std::vector<std::string>& words) const {
        std::vector<char*> arguments;
        arguments.reserve(words.size() + 1);
        for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
        arguments.push_back(nullptr);
        return ::posix_spawn(&child, arguments.front(), &actions_, &attributes_, arguments.data(), environ);
    }

  private:
    posix_spawn_file_actions_t actions_;
    posix_spawnattr_t attributes_;
};

/// The windows behind a program that runs are repainted, until it ends. Where the system cannot tell its end
/// they have to wait for it.
void repaintUntilEnd(pid_t child) {
    const Descriptor process(static_cast<int>(::syscall(SYS_pidfd_open, child, 0)));
    pollfd end = {.fd = process.number(), .events = POLLIN, .revents = 0};
    while (process && ::poll(&end, 1, repaintInterval) == 0) showWaiting();
}

int exitCodeOf(pid_t child) {
    repaintUntilEnd(child);
    int status = 0;
    pid_t ended;
    do ended = ::waitpid(child, &status, 0);
    while (ended < 0 && errno == EINTR);
    if (ended < 0) return 0;  // whoever started this program has the ends of its children thrown away
    if (WIFSIGNALED(status)) return 128 + WTERMSIG(status);
    const int code = WEXITSTATUS(status);
    return code == 255 ? -1 : code;  // all that the system keeps of -1
}

}  // namespace

LaunchResult LinuxProcesses::runAndWait(const Launch& launch) {
    const Command command = commandFor(launch);
    if (!command.failure.empty()) return {.failure = command.failure};
    const std::string folder = finder_.nativeText(finder_.currentFolder());
    if (!isFolder(folder)) return {.failure = "The folder " + finder_.currentFolder() + " is gone."};
    pid_t child = 0;
    const int error = SpawnSettings(folder).spawn(child, command.words);
    if (error != 0) return {.failure = startFailure(error, std::string(lastName(launch.program)))};
    return {.started = true, .exitCode = exitCodeOf(child), .failure = {}};
}

bool LinuxProcesses::canFind(const std::string& program) const {
    return commandFor({.program = program, .arguments = {}}).failure.empty();
}

LaunchResult LinuxProcesses::openDocument(const std::string& path) {
    std::erase_if(openers_, [](pid_t opener) { return ::waitpid(opener, nullptr, WNOHANG) != 0; });
    const std::string helper = findHelper("xdg-open");
    if (helper.empty()) return {.failure = "xdg-open is not installed."};
    const std::string folder = finder_.nativeText(finder_.currentFolder());
    const bool isAddress = path.find("://") != std::string::npos;
    pid_t opener = 0;
    const int error =
        SpawnSettings(folder).spawn(opener, {helper, isAddress ? path : finder_.nativeText(path)});
    if (error != 0) return {.failure = startFailure(error, "xdg-open")};
    openers_.push_back(opener);
    return {.started = true, .exitCode = 0, .failure = {}};
}

LinuxProcesses::Command LinuxProcesses::commandFor(const Launch& launch) const {
    const std::string name(lastName(launch.program));
    const std::string path = find(launch.program);
    if (path.empty()) return {.failure = launch.program + " was not found."};
    const ProgramKind kind = kindOf(path);
    if (kind == ProgramKind::none) return {.failure = name + " is not a program."};
    if (kind == ProgramKind::native && !mayBeExecuted(path))
        return {.failure = name + " cannot be started: the file has no permission to be executed."};

    const bool windows = kind == ProgramKind::windows;
    const std::string helper = kind == ProgramKind::native ? "" : findHelper(windows ? "wine" : "dosbox");
    if (kind != ProgramKind::native && helper.empty())
        return {.failure = name + (windows ? " is a Windows program, and wine is not installed."
                                           : " is a DOS program, and dosbox is not installed.")};
    if (kind == ProgramKind::dos) {
        const DosCommand dos(finder_, path, launch.arguments);
        Command command{.words = dos.words(), .failure = dos.failure()};
        command.words.insert(command.words.begin(), helper);
        return command;
    }

    Command command;
    if (!helper.empty()) command.words.push_back(helper);
    command.words.push_back(path);
    const std::vector<std::string> words = launch.words.empty() ? wordsOf(launch.arguments) : launch.words;
    command.words.insert(command.words.end(), words.begin(), words.end());
    return command;
}

/// The native path of a program; empty when there is none.
std::string LinuxProcesses::find(const std::string& program) const {
    const auto here = finder_.native(program);
    if (here && isPlainFile(*here)) return *here;
    if (lastName(program) != program) return {};
    for (const std::string& folder : searchPath()) {
        const auto found = finder_.nativeIn(folder, program);
        if (found && isPlainFile(*found)) return *found;
    }
    return {};
}

std::vector<std::string> LinuxProcesses::wordsOf(std::string_view arguments) const {
    std::vector<std::string> words;
    for (std::string_view rest = trimLeft(arguments); !rest.empty(); rest = trimLeft(rest)) {
        std::string word;
        bool quoted = false;
        std::size_t end = 0;
        for (bool inside = false; end < rest.size() && (inside || rest[end] != ' '); ++end) {
            if (rest[end] != '"') {
                word += rest[end];
                continue;
            }
            inside = !inside;
            quoted = true;
        }
        if (!quoted) {
            end = endOfPath(rest, end);
            word = rest.substr(0, end);
        }
        words.push_back(std::move(word));
        rest.remove_prefix(end);
    }
    return words;
}

/// A path may have blanks in it, and argument texts are written without quotes. So a first word that is a
/// path (up to `end`) goes on over the following words as far as the longest text that names something on
/// disk: a page "A 1.MUS" is not to be taken for the file "A" beside it.
std::size_t LinuxProcesses::endOfPath(std::string_view text, std::size_t end) const {
    const auto leadsSomewhere = [&](std::size_t length) {
        const auto path = finder_.native(text.substr(0, length));
        return path && nameExists(*path);
    };
    if (!beginsWithDrive(text.substr(0, end))) return end;
    std::size_t longest = end;
    for (std::size_t longer = end; longer < text.size() && longer < PATH_MAX;) {
        const std::size_t next = text.find_first_not_of(' ', longer);
        if (next == std::string_view::npos) break;
        longer = std::min(text.find(' ', next), text.size());
        const std::string_view word = text.substr(next, longer - next);
        if (beginsWithDrive(word) || word.find('"') != std::string_view::npos) break;
        if (leadsSomewhere(longer)) longest = longer;
    }
    return longest;
}

}  // namespace tul
