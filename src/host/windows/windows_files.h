#pragma once

#include <windows.h>

#include <string>

#include "host/files.h"
#include "host/windows/windows_paths.h"

namespace tul {

class WindowsFiles : public Files {
  public:
    /// `paths` outlives this.
    explicit WindowsFiles(const WindowsPaths& paths) : paths_(paths) {}

    std::string currentFolder() const override { return paths_.currentFolder(); }
    bool changeFolder(const std::string& path) override { return paths_.changeFolder(path); }

    bool canRead(const std::string& path) const override;
    std::optional<FileInfo> info(const std::string& path) const override;
    std::string nameOnDisk(const std::string& path) const override { return tul::nameOnDisk(path); }
    std::vector<std::string> list(const std::string& folder) const override;

    FileError read(const std::string& path, std::string& bytes, std::size_t limit) const override;
    FileError replace(const std::string& path, std::string_view bytes) override;
    FileError remove(const std::string& path) override;
    FileError rename(const std::string& from, const std::string& to) override;
    FileError renameOver(const std::string& from, const std::string& to) override;
    FileError copy(const std::string& from, const std::string& to) override;
    FileError copyToNew(const std::string& from, const std::string& to) override;

    std::string shortName(const std::string& path) const override;
    std::optional<std::string> fromNative(const std::string& path) const override {
        return paths_.fromNative(path);
    }
    std::string toNative(const std::string& path) const override { return paths_.withCaseOfDisk(path); }

  private:
    const WindowsPaths& paths_;
};

/// A moment of the system as the calendar and the clocks of this place show it.
DateTime localTime(const FILETIME& moment);

}  // namespace tul
