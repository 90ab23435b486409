#include "host/windows/windows_profile.h"

#include <windows.h>

#include <array>
#include <cstdlib>

namespace tul {

namespace {

constexpr DWORD longestValue = 1024;

/// Empty when the user has no place for settings.
std::string ownFile() {
    const char* const settings = std::getenv("APPDATA");
    return settings != nullptr && *settings != '\0' ? std::string(settings) + "\\TUL\\WIN.INI"
                                                    : std::string();
}

bool exists(const std::string& path) { return ::GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES; }

}  // namespace

std::string WindowsProfile::read(const std::string& section, const std::string& key) const {
    std::array<char, longestValue> text{};
    if (const std::string own = ownFile(); exists(own))
        ::GetPrivateProfileStringA(section.c_str(), key.c_str(), "", text.data(), longestValue, own.c_str());
    if (text.front() == '\0')
        ::GetProfileStringA(section.c_str(), key.c_str(), "", text.data(), longestValue);
    return text.data();
}

void WindowsProfile::write(const std::string& section, const std::string& key, const std::string& value) {
    const std::string own = ownFile();
    const std::string line = value.substr(0, value.find_first_of("\r\n"));
    if (::WriteProfileStringA(section.c_str(), key.c_str(), line.c_str()) != 0) {
        // What could be stored there must not be hidden by what is kept here from an earlier day.
        if (exists(own)) ::WritePrivateProfileStringA(section.c_str(), key.c_str(), nullptr, own.c_str());
    } else if (!own.empty()) {
        ::CreateDirectoryA(own.substr(0, own.rfind('\\')).c_str(), nullptr);
        ::WritePrivateProfileStringA(section.c_str(), key.c_str(), line.c_str(), own.c_str());
    }
}

}  // namespace tul
