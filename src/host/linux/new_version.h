#pragma once

#include <sys/stat.h>

#include <string>

#include "host/files.h"
#include "host/linux/descriptor.h"

/// How a file takes the place of another one, or a name that is free.
namespace tul {

inline constexpr mode_t writeBits = 0222;

/// `missing` is what a name that is not there means to the operation.
[[nodiscard]] FileError errorOf(int number, FileError missing);
/// The error of the last system call of an operation that writes.
[[nodiscard]] FileError writingError();

/// Of a native path; the folder with its slash at the end.
std::string folderPart(const std::string& path);
std::string namePart(const std::string& path);
/// Where a symbolic link leads in the end, also when nothing is there yet.
std::string behindLinks(std::string path);

/// Gives a file another name unless that name is taken; the number of the system's error, or 0. Where a file
/// system, such as one over a network, cannot do that at once, a link can; only one without links is looked
/// at beforehand.
[[nodiscard]] int renameToFreeName(const std::string& from, const std::string& to);

/// A new version of a file, written beside it. It takes the file's place at `finish`, or goes without a
/// trace. The name of the temporary file follows from the file's name: what a killed run leaves behind is
/// cleared away by the next writing of the same file. A lock tells such a remnant from a version that another
/// program is writing at this moment.
class NewVersion {
  public:
    NewVersion() = default;
    ~NewVersion() {
        if (file_ && isInPlace()) ::unlink(temporary_.c_str());
    }
    NewVersion(const NewVersion&) = delete;
    NewVersion& operator=(const NewVersion&) = delete;

    /// Refuses what must not be replaced. `rights` are for a file that does not exist yet.
    FileError begin(const std::string& path, mode_t rights);
    FileError finish();
    /// The same for a name that must still be free.
    FileError finishAsNew();

    int file() const { return file_.number(); }
    bool exists() const { return exists_; }
    bool replaces(const struct stat& status) const {
        return exists_ && status.st_dev == old_.st_dev && status.st_ino == old_.st_ino;
    }

  private:
    FileError checkTarget();
    FileError createTemporary(mode_t rights);
    bool clearRemnant() const;
    bool isLocked(int file, struct stat& status) const;
    bool isInPlace() const;
    FileError lock();
    FileError closeFile();
    void takeOverRights() const;

    std::string target_;
    std::string temporary_;
    Descriptor file_;
    bool exists_ = false;
    struct stat old_ {};
    struct stat new_ {};
};

}  // namespace tul
