#include "host/linux/path_finder.h"

#include <dirent.h>
#include <fcntl.h>
#include <linux/magic.h>
#include <sys/inotify.h>
#include <sys/vfs.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>

#include "base/text.h"

namespace tul {

namespace {

constexpr std::size_t maxFolders = 16;
constexpr std::size_t maxFoldersFound = 64;
/// The coarsest stamps in use (FAT) count in steps of two seconds.
constexpr time_t secondsUntilSettled = 3;
constexpr std::uint32_t changesOfNames = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_DELETE_SELF;

/// On these only this machine changes names, so that the kernel can tell of every change.
bool isOnLocalFileSystem(const std::string& path) {
    constexpr std::array<unsigned long, 10> local = {EXT4_SUPER_MAGIC,
                                                     BTRFS_SUPER_MAGIC,
                                                     TMPFS_MAGIC,
                                                     OVERLAYFS_SUPER_MAGIC,
                                                     F2FS_SUPER_MAGIC,
                                                     MSDOS_SUPER_MAGIC,
                                                     0x2011BAB0 /* exfat */,
                                                     0x7366746E /* ntfs3 */,
                                                     0x58465342 /* xfs */,
                                                     0x2FC12FC1 /* zfs */};
    struct statfs status;
    if (::statfs(path.c_str(), &status) != 0) return false;
    return std::find(local.begin(), local.end(), static_cast<unsigned long>(status.f_type)) != local.end();
}

bool isSeparator(char character) { return character == '\\' || character == '/'; }

bool isLetter(char character) {
    const char upper = upperCase(character);
    return upper >= 'A' && upper <= 'Z';
}

bool hasDrive(std::string_view path) { return path.size() >= 2 && isLetter(path[0]) && path[1] == ':'; }

/// Where a drive begins, without a slash at its end; nothing when there is no such drive.
std::optional<std::string> rootOf(char drive) {
    if (drive == 'Z') return std::string();
    const char* home = std::getenv("HOME");
    if (home == nullptr || *home == '\0') return std::nullopt;
    const std::string drives = std::string(home) + "/.wine/dosdevices";
    const std::string link = drives + '/' + static_cast<char>(drive - 'A' + 'a') + ':';
    std::array<char, PATH_MAX> target;
    const ssize_t length = ::readlink(link.c_str(), target.data(), target.size());
    if (length < 0) return isFolder(link) ? std::optional(link) : std::nullopt;
    const std::string_view pointed(target.data(), static_cast<std::size_t>(length));
    std::string root = (std::filesystem::path(drives) / pointed).lexically_normal();
    while (root.ends_with('/')) root.pop_back();
    return root;
}

void appendComponent(std::string& rest, std::string_view name) {
    if (name.empty() || name == ".") return;
    if (name == "..") {
        const std::size_t slash = rest.rfind('/');
        if (slash != std::string::npos) rest.resize(slash);
        return;
    }
    rest += '/';
    rest += name;
}

}  // namespace

bool beginsWithDrive(std::string_view path) {
    return hasDrive(path) && path.size() >= 3 && isSeparator(path[2]);
}

bool nameExists(const std::string& nativePath) {
    struct stat status;
    return ::lstat(nativePath.c_str(), &status) == 0;
}

bool isFolder(const std::string& nativePath) {
    struct stat status;
    return ::stat(nativePath.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

std::optional<std::string> installationPath(std::string_view nativePath) {
    const bool ready = beginsWithDrive(nativePath);
    const std::string_view unwritable =
        ready ? std::string_view("\"\r\n\0", 4) : std::string_view("\\\"\r\n\0", 5);
    if (!ready && !nativePath.starts_with('/')) return std::nullopt;
    if (nativePath.find_first_of(unwritable) != std::string_view::npos) return std::nullopt;
    std::string path = (ready ? "" : "Z:") + std::string(nativePath);
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
}

std::string_view lastName(std::string_view path) {
    if (hasDrive(path)) path.remove_prefix(2);
    return path.substr(path.find_last_of("\\/") + 1);
}

// Names of folders

std::optional<std::string> FolderNames::find(const std::string& folder, const struct stat& status,
                                             const std::string& name) {
    takeNotices();
    if (const Folder* known = remembered(status)) {
        const auto found = lookUp(*known, name);
        if (known->watch >= 0) return found;
        // Without notices a name that is there needs no more proof than that; a missing one does.
        if (nameExists(folder + '/' + name)) return name;
        if (found && nameExists(folder + '/' + *found)) return found;
        const bool sameStamp = known->changed.tv_sec == status.st_mtim.tv_sec &&
                               known->changed.tv_nsec == status.st_mtim.tv_nsec;
        if (!found && known->settled && sameStamp) return std::nullopt;
    }
    const Folder* fresh = read(folder.empty() ? "/" : folder, status);
    return fresh == nullptr ? std::nullopt : lookUp(*fresh, name);
}

void FolderNames::namesChanged() {
    for (auto folder = folders_.begin(); folder != folders_.end();) {
        const auto next = std::next(folder);
        if (folder->watch < 0) drop(folder);
        folder = next;
    }
}

FolderNames::Folder* FolderNames::remembered(const struct stat& status) {
    const auto folder = std::find_if(folders_.begin(), folders_.end(), [&](const Folder& candidate) {
        return candidate.device == status.st_dev && candidate.inode == status.st_ino;
    });
    if (folder == folders_.end()) return nullptr;
    folders_.splice(folders_.begin(), folders_, folder);
    return &folders_.front();
}

FolderNames::Folder* FolderNames::read(const std::string& path, const struct stat& status) {
    if (remembered(status) != nullptr) drop(folders_.begin());
    if (folders_.size() >= maxFolders) drop(std::prev(folders_.end()));

    timespec now;
    ::clock_gettime(CLOCK_REALTIME, &now);
    const int watchNumber = watch(path);  // before the reading, so that nothing is missed in between
    folders_.push_front({.device = status.st_dev,
                         .inode = status.st_ino,
                         .changed = status.st_mtim,
                         .settled = now.tv_sec - status.st_mtim.tv_sec > secondsUntilSettled,
                         .watch = watchNumber});
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(::opendir(path.c_str()), ::closedir);
    struct stat opened;
    if (!listing || ::fstat(::dirfd(listing.get()), &opened) != 0 || opened.st_ino != status.st_ino ||
        opened.st_dev != status.st_dev) {
        drop(folders_.begin());
        return nullptr;
    }
    while (const dirent* entry = ::readdir(listing.get())) add(folders_.front(), entry->d_name);
    ++foldersRead_;
    return &folders_.front();
}

int FolderNames::watch(const std::string& path) {
    if (!std::exchange(noticesAsked_, true)) notices_ = Descriptor(::inotify_init1(IN_CLOEXEC | IN_NONBLOCK));
    if (!notices_ || !isOnLocalFileSystem(path)) return -1;
    return ::inotify_add_watch(notices_.number(), path.c_str(), changesOfNames | IN_ONLYDIR);
}

void FolderNames::drop(std::list<Folder>::iterator folder) {
    if (folder->watch >= 0) ::inotify_rm_watch(notices_.number(), folder->watch);
    folders_.erase(folder);
}

void FolderNames::takeNotices() {
    if (!notices_) return;
    alignas(inotify_event) std::array<char, 16384> buffer;
    for (;;) {
        const ssize_t length = ::read(notices_.number(), buffer.data(), buffer.size());
        if (length < 0 && errno == EINTR) continue;
        if (length <= 0) return;
        for (std::size_t at = 0; at < static_cast<std::size_t>(length);) {
            const auto* notice = reinterpret_cast<const inotify_event*>(buffer.data() + at);
            apply(*notice);
            at += sizeof(inotify_event) + notice->len;
        }
    }
}

void FolderNames::apply(const inotify_event& notice) {
    const bool lost = (notice.mask & IN_Q_OVERFLOW) != 0;
    for (auto folder = folders_.begin(); folder != folders_.end();) {
        const auto next = std::next(folder);
        if (lost ||
            (folder->watch == notice.wd && (notice.mask & (IN_IGNORED | IN_DELETE_SELF | IN_UNMOUNT)) != 0))
            drop(folder);
        else if (folder->watch == notice.wd && (notice.mask & (IN_CREATE | IN_MOVED_TO)) != 0)
            add(*folder, notice.name);
        else if (folder->watch == notice.wd)
            remove(*folder, notice.name);
        folder = next;
    }
}

void FolderNames::add(Folder& folder, const std::string& name) {
    remove(folder, name);  // the reading and a notice may both tell of it
    folder.names.emplace(upperCase(name), name);
}

void FolderNames::remove(Folder& folder, const std::string& name) {
    const auto [first, last] = folder.names.equal_range(upperCase(name));
    const auto found = std::find_if(first, last, [&](const auto& entry) { return entry.second == name; });
    if (found != last) folder.names.erase(found);
}

std::optional<std::string> FolderNames::lookUp(const Folder& folder, const std::string& name) {
    const auto [first, last] = folder.names.equal_range(upperCase(name));
    const std::string* best = nullptr;
    for (auto entry = first; entry != last; ++entry) {
        if (entry->second == name) return name;
        if (best == nullptr || entry->second < *best) best = &entry->second;
    }
    return best == nullptr ? std::nullopt : std::optional(*best);
}

// Paths

PathFinder::PathFinder() : startFolder_("/") {
    std::error_code failure;
    const std::filesystem::path folder = std::filesystem::current_path(failure);
    if (failure) return;
    startFolder_ = folder;
    if (startFolder_ != "/" && installationPath(startFolder_)) current_.rest = startFolder_;
}

std::string PathFinder::currentFolder() const {
    std::string path = current_.rest.empty() ? "/" : current_.rest;
    std::replace(path.begin(), path.end(), '/', '\\');
    return std::string{current_.drive, ':'} + path;
}

bool PathFinder::changeFolder(std::string_view path) {
    const auto location = locate(path);
    const auto found = native(path);
    if (!location || !found || !isFolder(*found) || ::access(found->c_str(), X_OK) != 0) return false;
    const std::string root = rootOf(location->drive).value_or("");
    current_ = {location->drive, *found == "/" ? std::string() : found->substr(root.size())};
    return true;
}

std::optional<std::string> PathFinder::native(std::string_view path) {
    const auto location = locate(path);
    const auto root = location ? rootOf(location->drive) : std::nullopt;
    if (!root) return std::nullopt;
    const std::string asGiven = *root + location->rest;
    if (location->rest.empty()) return asGiven.empty() ? "/" : asGiven;

    const std::size_t slash = asGiven.rfind('/');
    const std::string folderAsGiven = asGiven.substr(0, slash);
    if (!foldersFound_.contains(folderAsGiven) && nameExists(asGiven)) return asGiven;
    const auto parent = folder(*root, folderAsGiven);
    if (!parent) return std::nullopt;
    const std::string name = asGiven.substr(slash + 1);
    return parent->path + '/' + names_.find(parent->path, parent->status, name).value_or(name);
}

std::string PathFinder::nativeText(std::string_view path) {
    if (auto found = native(path)) return *found;
    const auto location = locate(path);
    const auto root = location ? rootOf(location->drive) : std::nullopt;
    return root ? *root + location->rest : std::string(path);
}

std::optional<std::string> PathFinder::nativeIn(const std::string& folder, const std::string& name) {
    FoundFolder place;
    if (nameExists(folder + '/' + name)) return folder + '/' + name;
    if (!enter(place, folder)) return std::nullopt;
    const auto found = names_.find(place.path, place.status, name);
    if (!found) return std::nullopt;
    return folder + '/' + *found;
}

std::optional<PathFinder::Location> PathFinder::locate(std::string_view path) const {
    if (path.empty() || path.find('\0') != std::string_view::npos) return std::nullopt;
    Location location = current_;
    if (hasDrive(path)) {
        const char drive = upperCase(path[0]);
        if (drive != current_.drive) location = {drive, ""};
        path.remove_prefix(2);
    }
    if (!path.empty() && isSeparator(path.front())) location.rest.clear();
    while (!path.empty()) {
        const std::size_t end = std::min(path.find_first_of("\\/"), path.size());
        appendComponent(location.rest, path.substr(0, end));
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return location;
}

std::optional<PathFinder::FoundFolder> PathFinder::folder(const std::string& root,
                                                          const std::string& asGiven) {
    FoundFolder found;
    if (enter(found, asGiven)) return found;
    if (const auto known = foldersFound_.find(asGiven); known != foldersFound_.end()) {
        if (enter(found, known->second)) return found;
        foldersFound_.erase(known);
    }
    auto walked = walk(root, std::string_view(asGiven).substr(root.size()));
    if (!walked) return std::nullopt;
    if (foldersFound_.size() >= maxFoldersFound) foldersFound_.clear();
    foldersFound_.emplace(asGiven, walked->path);
    return walked;
}

std::optional<PathFinder::FoundFolder> PathFinder::walk(const std::string& root, std::string_view rest) {
    FoundFolder place;
    if (!enter(place, root)) return std::nullopt;
    while (!rest.empty()) {
        rest.remove_prefix(1);
        const std::string name(rest.substr(0, rest.find('/')));
        rest.remove_prefix(name.size());
        if (enter(place, place.path + '/' + name)) continue;
        const auto found = names_.find(place.path, place.status, name);
        if (!found || !enter(place, place.path + '/' + *found)) return std::nullopt;
    }
    return place;
}

/// False, with `folder` kept, when `path` is no folder.
bool PathFinder::enter(FoundFolder& folder, const std::string& path) {
    struct stat status;
    if (::stat(path.empty() ? "/" : path.c_str(), &status) != 0 || !S_ISDIR(status.st_mode)) return false;
    folder = {path, status};
    return true;
}

}  // namespace tul
