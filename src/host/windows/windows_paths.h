#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tul {

/// Paths on Windows, where the installation's form is the system's own. The current folder is that of the
/// process.
class WindowsPaths {
  public:
    /// To be made before anything changes the current folder.
    WindowsPaths();

    std::string currentFolder() const;
    [[nodiscard]] bool changeFolder(const std::string& path) const;

    /// What `Files` says of these. A network path has no form that the tools can work with: it needs a drive.
    std::optional<std::string> fromNative(const std::string& path) const;
    std::string withCaseOfDisk(const std::string& path) const;

  private:
    std::string startFolder_;
    mutable std::string folderAsked_;  // the last one, which most paths share, and its form on disk
    mutable std::string folderFound_;
};

/// Absolute, without "." and ".." and double backslashes, and without one at the end but for the root of a
/// drive; empty for what is no path.
std::string wholePath(std::string_view path);

/// The name of the file or folder as it stands on disk, without its folder; empty when there is none.
std::string nameOnDisk(const std::string& path);

}  // namespace tul
