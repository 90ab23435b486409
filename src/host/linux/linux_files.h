#pragma once

#include <ctime>
#include <string>
#include <string_view>

#include "host/files.h"
#include "host/linux/path_finder.h"

namespace tul {

class LinuxFiles : public Files {
  public:
    /// `finder` outlives this and holds the current folder.
    explicit LinuxFiles(PathFinder& finder) : finder_(finder) {}

    std::string currentFolder() const override { return finder_.currentFolder(); }
    bool changeFolder(const std::string& path) override { return finder_.changeFolder(path); }

    bool canRead(const std::string& path) const override;
    std::optional<FileInfo> info(const std::string& path) const override;
    std::string nameOnDisk(const std::string& path) const override;
    std::vector<std::string> list(const std::string& folder) const override;

    FileError read(const std::string& path, std::string& bytes, std::size_t limit) const override;
    FileError replace(const std::string& path, std::string_view bytes) override;
    FileError remove(const std::string& path) override;
    FileError rename(const std::string& from, const std::string& to) override;
    FileError renameOver(const std::string& from, const std::string& to) override;
    FileError copy(const std::string& from, const std::string& to) override {
        return copyTo(from, to, Existing::replaced);
    }
    FileError copyToNew(const std::string& from, const std::string& to) override {
        return copyTo(from, to, Existing::refused);
    }

    std::string shortName(const std::string& path) const override { return path; }
    std::optional<std::string> fromNative(const std::string& nativePath) const override;
    std::string toNative(const std::string& path) const override { return finder_.nativeText(path); }

  private:
    enum class Existing { replaced, refused };
    [[nodiscard]] FileError copyTo(const std::string& from, const std::string& to, Existing existing);

    PathFinder& finder_;
};

/// Opens a file for reading; folders, pipes, devices and sockets are refused without waiting for anything.
struct OpenFile {
    Descriptor descriptor{};
    struct stat status {};
};
[[nodiscard]] FileError openForReading(const std::string& nativePath, OpenFile& file);

/// `Files::read` and `Files::replace` for a native path.
[[nodiscard]] FileError readWhole(const std::string& nativePath, std::string& bytes,
                                  std::size_t limit = std::string::npos);
[[nodiscard]] FileError replaceWhole(const std::string& nativePath, std::string_view bytes);

/// A moment as the calendar and the clocks of this place show it.
DateTime localTime(std::time_t moment);

}  // namespace tul
