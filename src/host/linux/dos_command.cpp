#include "host/linux/dos_command.h"

#include <algorithm>

#include "base/text.h"

namespace tul {

namespace {

constexpr std::size_t mostDrives = 'y' - 'c' + 1;  // the emulator has Z for itself
constexpr std::string_view marksOfThePrompt = "<>|%";

char letterOf(std::size_t drive) { return static_cast<char>('c' + drive); }

bool canBeTyped(std::string_view text) {
    return text.find_first_of(marksOfThePrompt) == std::string_view::npos;
}

bool endsWord(char character) { return character == ' ' || character == ',' || character == '"'; }

}  // namespace

DosCommand::DosCommand(PathFinder& finder, const std::string& program, std::string_view arguments)
    : finder_(finder), name_(program.substr(program.rfind('/') + 1)) {
    driveOf(finder_.nativeText(finder_.currentFolder()));
    const std::string drive = driveOf(program.substr(0, program.rfind('/')));
    if (upperCase(name_).ends_with(".BAT")) line_ = "call ";
    line_ += (drive == "c:" ? "" : drive + "\\") + name_;
    arguments = trimLeft(arguments);
    if (!arguments.empty()) line_ += " " + translated(arguments);
}

std::vector<std::string> DosCommand::words() const {
    std::vector<std::string> words;
    for (std::size_t drive = 0; drive < folders_.size(); ++drive)
        words.insert(words.end(),
                     {"-c", std::string("mount ") + letterOf(drive) + " \"" + folders_[drive] + '"'});
    words.insert(words.end(), {"-c", "c:", "-c", line_, "-c", "exit"});
    return words;
}

std::string DosCommand::failure() const {
    if (folders_.size() > mostDrives)
        return name_ + " cannot be started: its files lie in more folders than DOS has drives.";
    for (const std::string& folder : folders_)
        if (!canBeTyped(folder) || folder.find('"') != std::string::npos)
            return name_ + " cannot be started: DOS cannot reach the folder " + folder + ".";
    if (!canBeTyped(line_))
        return name_ + " cannot be started: DOS has a meaning of its own for < > | and %.";
    return {};
}

std::string DosCommand::driveOf(const std::string& path) {
    const std::string folder = path.empty() ? "/" : path;
    const auto found = std::find(folders_.begin(), folders_.end(), folder);
    const auto drive = static_cast<std::size_t>(found - folders_.begin());
    if (found == folders_.end()) folders_.push_back(folder);
    return std::string(1, letterOf(drive)) + ":";
}

/// Paths stand at the beginning of a word, and behind the equals sign of a KEY=path.
std::string DosCommand::translated(std::string_view arguments) {
    std::string text;
    bool mayBegin = true;
    while (!arguments.empty()) {
        if (mayBegin && beginsWithDrive(arguments)) {
            const std::size_t length = lengthOfPath(arguments);
            text += translatedPath(arguments.substr(0, length));
            arguments.remove_prefix(length);
            mayBegin = false;
            continue;
        }
        mayBegin = endsWord(arguments.front()) || arguments.front() == '=';
        text += arguments.front();
        arguments.remove_prefix(1);
    }
    return text;
}

/// A path may have blanks and commas in it: it is the longest text that names something, or else goes up to
/// the end of its word.
std::size_t DosCommand::lengthOfPath(std::string_view text) const {
    std::size_t length = 0;
    for (std::size_t end = 1; end <= text.size(); ++end) {
        if (end < text.size() && !endsWord(text[end])) continue;
        const auto native = finder_.native(text.substr(0, end));
        if (length == 0 || (native && nameExists(*native))) length = end;
        const bool pathFollows = end < text.size() && beginsWithDrive(text.substr(end + 1));
        if (pathFollows || (end < text.size() && text[end] == '"')) break;
    }
    return length;
}

/// A folder stands without a backslash, so that a program may put one and a name behind it.
std::string DosCommand::translatedPath(std::string_view path) {
    const auto native = finder_.native(path);
    if (!native) return std::string(path);
    if (isFolder(*native)) return driveOf(*native) + (path.ends_with('\\') ? "\\" : "");
    const std::size_t slash = native->rfind('/');
    return driveOf(native->substr(0, slash)) + "\\" + native->substr(slash + 1);
}

}  // namespace tul
