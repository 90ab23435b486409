#pragma once

#include <sys/stat.h>

#include <cstddef>
#include <ctime>
#include <list>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "host/linux/descriptor.h"

struct inotify_event;

namespace tul {

/// The names in the folders of the file system, found without regard to the case of A to Z. A few folders are
/// remembered, so that a run over all files of a folder reads the folder once and not once for each file,
/// even while it writes to that folder: the kernel's notices keep what is remembered up to date. Where there
/// are no notices (network drives), a name is missing only when the folder's own stamp proves it.
class FolderNames {
  public:
    /// The name on disk that equals `name`, or else the first in byte order that does so but for the case.
    /// `status` is what the system tells of the folder now.
    std::optional<std::string> find(const std::string& folder, const struct stat& status,
                                    const std::string& name);

    /// To be told of each change that this process makes to the names in a folder: a network drive may take
    /// its time to show it in the folder's stamp.
    void namesChanged();

    /// How often a folder has been read from disk.
    std::size_t foldersRead() const { return foldersRead_; }

  private:
    struct Folder {
        dev_t device = 0;
        ino_t inode = 0;
        timespec changed{};
        bool settled = false;  // any change after the reading gives the folder another stamp
        int watch = -1;        // the kernel's notices, where they tell of every change
        std::unordered_multimap<std::string, std::string> names{};  // by upper case
    };

    Folder* remembered(const struct stat& status);
    Folder* read(const std::string& path, const struct stat& status);
    int watch(const std::string& path);
    void drop(std::list<Folder>::iterator folder);
    void takeNotices();
    void apply(const inotify_event& notice);
    static void add(Folder& folder, const std::string& name);
    static void remove(Folder& folder, const std::string& name);
    static std::optional<std::string> lookUp(const Folder& folder, const std::string& name);

    std::list<Folder> folders_;  // the last used first
    Descriptor notices_;
    bool noticesAsked_ = false;
    std::size_t foldersRead_ = 0;
};

/// Leads from the paths of the installation (drive, colon, backslashes, any letter case) to those of the file
/// system. `Z:` is the root; another drive is where Wine's drive of that letter points to. Every name is
/// looked up as it is written first, then without regard to the case of A to Z. The current folder is kept
/// here: the process itself stays where it was started.
class PathFinder {
  public:
    PathFinder();

    std::string currentFolder() const;
    [[nodiscard]] bool changeFolder(std::string_view path);
    /// The folder of the file system in which the process was started.
    const std::string& startFolder() const { return startFolder_; }

    /// The native path, with the names as they stand on disk. When the last name does not exist: the folder
    /// it would be in and the name as given. Nothing when that folder does not exist either.
    std::optional<std::string> native(std::string_view path);
    /// The native path as `native`, or for a path that leads nowhere the one it would have.
    std::string nativeText(std::string_view path);
    /// A file or folder of this name in a native folder.
    std::optional<std::string> nativeIn(const std::string& folder, const std::string& name);

    FolderNames& names() { return names_; }

  private:
    struct Location {
        char drive = 'Z';
        std::string rest;  // "/folder/name", or nothing for the root of the drive
    };

    struct FoundFolder {
        std::string path{};  // without a slash at its end
        struct stat status {};
    };

    std::optional<Location> locate(std::string_view path) const;
    std::optional<FoundFolder> folder(const std::string& root, const std::string& asGiven);
    std::optional<FoundFolder> walk(const std::string& root, std::string_view rest);
    [[nodiscard]] static bool enter(FoundFolder& folder, const std::string& path);

    std::string startFolder_;
    Location current_;
    FolderNames names_;
    std::unordered_map<std::string, std::string> foldersFound_;  // as given -> as on disk, where they differ
};

/// The form in which the installation writes an absolute native path; nothing for one that has no such form.
/// A path with a drive is in that form already, but for slashes in it.
std::optional<std::string> installationPath(std::string_view nativePath);

/// True for a path that begins with a drive and a separator.
bool beginsWithDrive(std::string_view path);

/// The last name of an installation path, as given.
std::string_view lastName(std::string_view path);

/// True when a file, a folder or anything else has this native path.
bool nameExists(const std::string& nativePath);
bool isFolder(const std::string& nativePath);

}  // namespace tul
