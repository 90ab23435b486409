#include "shared/function_module.h"

#include "base/date_time.h"
#include "host/host.h"

namespace tul {

namespace {
const std::string profileSection = "TUL";
constexpr std::size_t profileBufferLength = 32;
}  // namespace

bool FileExists(const std::string& path) {
    if (path.find("\\\\") != std::string::npos) return false;
    return files().canRead(path);
}

bool FolderExists(const std::string& path) {
    const std::string present = files().currentFolder();
    files().enterIfThere(path);
    const auto info = files().info(files().currentFolder());
    files().enterIfThere(present);
    return info && info->folder;
}

void SaveProfileValue(const std::string& key, const std::string& value) {
    profile().write(profileSection, key, value);
}

std::string GetProfileValue(const std::string& key) {
    return profile().read(profileSection, key).substr(0, profileBufferLength);
}

std::string GetShortName(const std::string& path) { return files().shortName(path); }

std::string dateAndTime(std::string_view between) {
    const DateTime now = clock().now();
    return dateText(now) + std::string(between) + timeText(now);
}

}  // namespace tul
