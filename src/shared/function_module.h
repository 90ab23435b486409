#pragma once

#include <string>
#include <string_view>

/// The procedures that serve all panels.
namespace tul {

/// True when the file can be opened for reading. False for a path with a double backslash in it, whatever it
/// leads to. Every presence check of the program is this one.
[[nodiscard]] bool FileExists(const std::string& path);

/// Changes to the folder and looks at what is current then, so that a missing folder yields true as well:
/// the old one is then looked at. Callers live with that.
[[nodiscard]] bool FolderExists(const std::string& path);

/// The user's profile, section "TUL". A value longer than 32 characters is read cut.
void SaveProfileValue(const std::string& key, const std::string& value);
std::string GetProfileValue(const std::string& key);

/// The platform's short form of a path, or the path.
std::string GetShortName(const std::string& path);

/// The present date and time with `between` between them, for reports and settings.
std::string dateAndTime(std::string_view between = " ");

}  // namespace tul
