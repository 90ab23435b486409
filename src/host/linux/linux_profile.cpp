#include "host/linux/linux_profile.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string_view>
#include <tuple>
#include <vector>

#include "base/text.h"
#include "host/linux/linux_files.h"

namespace tul {

namespace {

/// Empty when the user has no place for settings.
std::string profileFolder() {
    const char* settings = std::getenv("XDG_CONFIG_HOME");
    if (settings != nullptr && *settings == '/') return std::string(settings) + "/tul";
    const char* home = std::getenv("HOME");
    if (home != nullptr && *home == '/') return std::string(home) + "/.config/tul";
    return {};
}

std::string_view firstLine(std::string_view text) { return text.substr(0, text.find_first_of("\r\n")); }

/// The lines of a profile, found by section and key.
class ProfileText {
  public:
    explicit ProfileText(std::string_view text) {
        for (const std::string_view line : linesOf(text)) lines_.emplace_back(line);
    }

    std::optional<std::string> find(std::string_view section, std::string_view key) const {
        const Place place = placeOf(section, key);
        if (!place.found) return std::nullopt;
        return std::string(trim(splitAtFirst(lines_[place.line], '=').behind));
    }

    void set(std::string_view section, std::string_view key, std::string_view value) {
        const Place place = placeOf(section, key);
        std::string line = std::string(key) + '=' + std::string(value);
        if (place.found) {
            lines_[place.line] = std::move(line);
        } else if (place.line > 0) {
            lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(place.line), std::move(line));
        } else {
            lines_.push_back('[' + std::string(section) + ']');
            lines_.push_back(std::move(line));
        }
    }

    std::string text() const {
        std::string whole;
        for (const std::string& line : lines_) whole += line + '\n';
        return whole;
    }

  private:
    struct Place {
        bool found = false;
        std::size_t line = 0;  // of the value, or behind the last line of the section; 0 without the section
    };

    Place placeOf(std::string_view section, std::string_view key) const {
        Place place;
        bool inside = false;
        for (std::size_t number = 0; number < lines_.size(); ++number) {
            const std::string_view line = trim(lines_[number]);
            if (line.starts_with('[')) {
                const SplitText head = splitAtFirst(line.substr(1), ']');
                inside = head.found && equalIgnoringCase(trim(head.before), section);
            }
            if (!inside || line.empty()) continue;
            place.line = number + 1;
            const SplitText pair = splitAtFirst(line, '=');
            if (pair.found && equalIgnoringCase(trim(pair.before), key))
                return {.found = true, .line = number};
        }
        return place;
    }

    std::vector<std::string> lines_;
};

/// Holds back other programs between the reading and the writing.
Descriptor lockProfile(const std::string& folder) {
    const std::string path = folder + "/win.ini.lock";
    Descriptor lock(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    while (lock && ::flock(lock.number(), LOCK_EX) != 0 && errno == EINTR) continue;
    return lock;
}

bool canBeStored(std::string_view section, std::string_view key) {
    if (section.empty() || key.empty() || key.starts_with('[')) return false;
    return section.find_first_of("]\r\n") == std::string_view::npos &&
           key.find_first_of("=\r\n") == std::string_view::npos;
}

}  // namespace

std::string LinuxProfile::read(const std::string& section, const std::string& key) const {
    std::string text;
    const std::string folder = profileFolder();
    if (folder.empty() || readWhole(folder + "/win.ini", text) != FileError::none) return {};
    return ProfileText(text).find(section, key).value_or("");
}

void LinuxProfile::write(const std::string& section, const std::string& key, const std::string& value) {
    const std::string folder = profileFolder();
    if (folder.empty() || !canBeStored(section, key)) return;
    std::error_code failure;
    std::filesystem::create_directories(folder, failure);
    const Descriptor lock = lockProfile(folder);
    if (!lock) return;

    std::string text;
    const FileError fault = readWhole(folder + "/win.ini", text);
    // A file that is there but cannot be read must not be replaced by one that has this value alone.
    if (fault != FileError::none && fault != FileError::fileNotFound) return;
    ProfileText profile(text);
    const std::string_view stored = firstLine(value);
    if (profile.find(section, key) == trim(stored)) return;
    profile.set(section, key, stored);
    // The program works without its stored place.
    std::ignore = replaceWhole(folder + "/win.ini", profile.text());
}

}  // namespace tul
