#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "base/date_time.h"

namespace tul {

/// Why a file operation failed. The numbers are those that the messages of the tools print.
enum class FileError : int {
    none = 0,
    fileNotFound = 53,
    deviceFailure = 57,
    fileExists = 58,
    diskFull = 61,
    permissionDenied = 70,
    readOnly = 75,  // path or file access: what a read-only file gives
    pathNotFound = 76,
};

struct FileInfo {
    std::uint64_t length = 0;  // bytes
    DateTime stamp;            // of the last change, local time
    bool folder = false;
    std::int64_t moment = 0;   // of the last change, in the system's finest unit
    std::uint64_t number = 0;  // of the file on its disk; 0 where the system numbers none

    /// True for a file that nobody has changed or replaced between the two looks.
    [[nodiscard]] bool isSameAs(const FileInfo& later) const {
        return length == later.length && moment == later.moment && number == later.number;
    }
};

/// Files and folders by the paths that the installation writes: drive, colon, backslashes. Every operation
/// takes a whole path or one relative to the current folder, in any letter case: an exact match on disk comes
/// first. A path that leads to a folder or a device is never opened as a file.
class Files {
  public:
    virtual ~Files() = default;

    /// Without a backslash at its end, but for the root of a drive ("Z:\").
    virtual std::string currentFolder() const = 0;
    /// False, with the current folder kept, when `path` is no folder that can be entered.
    [[nodiscard]] virtual bool changeFolder(const std::string& path) = 0;

    /// True when the file can be opened for reading now.
    [[nodiscard]] virtual bool canRead(const std::string& path) const = 0;
    /// Nothing when there is neither a file nor a folder of that name.
    [[nodiscard]] virtual std::optional<FileInfo> info(const std::string& path) const = 0;
    /// The name of the file or folder as it stands on disk, without its folder; empty when there is none.
    [[nodiscard]] virtual std::string nameOnDisk(const std::string& path) const = 0;
    /// The names of the plain files of a folder, folders left out, in the order of the alphabet.
    virtual std::vector<std::string> list(const std::string& folder) const = 0;

    /// Reads the first `limit` bytes in one go; a shorter file gives what it has. On failure `bytes` is
    /// empty.
    [[nodiscard]] virtual FileError read(const std::string& path, std::string& bytes,
                                         std::size_t limit = std::string::npos) const = 0;
    /// Puts `bytes` in the place of the file, or makes it. Whatever happens, the disk holds the old contents
    /// or the new ones, never a part. A file that exists keeps its name on disk and its rights. A read-only
    /// file is refused with `readOnly`.
    [[nodiscard]] virtual FileError replace(const std::string& path, std::string_view bytes) = 0;

    [[nodiscard]] virtual FileError remove(const std::string& path) = 0;
    /// Refused with `fileExists` when `to` exists.
    [[nodiscard]] virtual FileError rename(const std::string& from, const std::string& to) = 0;
    /// Gives the file `from` the name of `to` and its place on disk, at once: there is no moment without a
    /// file of that name. What keeps `to` from being removed comes first, such as `readOnly`; without a file
    /// `to` nothing happens either.
    [[nodiscard]] virtual FileError renameOver(const std::string& from, const std::string& to) = 0;
    /// Copies the contents with the rights and the stamp; `to` is replaced whole.
    [[nodiscard]] virtual FileError copy(const std::string& from, const std::string& to) = 0;
    /// The same for a name that is free, at the moment of the copy's completion too: refused with
    /// `fileExists` otherwise.
    [[nodiscard]] virtual FileError copyToNew(const std::string& from, const std::string& to) = 0;

    /// The same where it makes no difference whether it can be done: a file that is not there counts as
    /// empty, one that stays does no harm, and the present folder serves as well.
    void readIfThere(const std::string& path, std::string& bytes) const { std::ignore = read(path, bytes); }
    void removeIfThere(const std::string& path) { std::ignore = remove(path); }
    void enterIfThere(const std::string& path) { std::ignore = changeFolder(path); }

    /// The platform's short form of a path; the path itself where the platform has none.
    virtual std::string shortName(const std::string& path) const = 0;
    /// The installation's form of a path that a user or the desktop gave in the platform's own form, made
    /// absolute against the folder in which the process was started. Nothing for a name that cannot be
    /// written in that form (one with a backslash, a quotation mark or a line end in it).
    [[nodiscard]] virtual std::optional<std::string> fromNative(const std::string& nativePath) const = 0;
    /// The path as the platform's own programs write it, with the letter case of the disk.
    virtual std::string toNative(const std::string& path) const = 0;
};

}  // namespace tul
