#include "host/linux/new_version.h"

#include <fcntl.h>
#include <sys/file.h>

#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <functional>
#include <string_view>
#include <utility>

#include "host/linux/path_finder.h"

namespace tul {

namespace {

constexpr mode_t allRights = 07777;
constexpr int maxLinks = 40;

/// Hidden, and with a suffix that no tool takes for a page of music.
std::string temporaryNameOf(const std::string& target) {
    constexpr std::string_view suffix = ".tul-new";
    std::string name = namePart(target);
    if (name.size() + suffix.size() + 1 > NAME_MAX) name = std::to_string(std::hash<std::string>()(name));
    return folderPart(target) + '.' + name + std::string(suffix);
}

}  // namespace

FileError errorOf(int number, FileError missing) {
    switch (number) {
        case 0:
            return FileError::none;
        case ENOENT:
            return missing;
        case ENOTDIR:
        case ELOOP:
        case ENAMETOOLONG:
            return FileError::pathNotFound;
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return FileError::diskFull;
        case EROFS:
            return FileError::readOnly;
        case EACCES:
        case EPERM:
        case EISDIR:
        case EBUSY:
        case ETXTBSY:
            return FileError::permissionDenied;
        case EEXIST:
        case ENOTEMPTY:
            return FileError::fileExists;
        default:
            return FileError::deviceFailure;
    }
}

FileError writingError() { return errorOf(errno, FileError::pathNotFound); }

std::string folderPart(const std::string& path) { return path.substr(0, path.rfind('/') + 1); }
std::string namePart(const std::string& path) { return path.substr(path.rfind('/') + 1); }

std::string behindLinks(std::string path) {
    std::array<char, PATH_MAX> target;
    for (int links = 0; links < maxLinks; ++links) {
        const ssize_t length = ::readlink(path.c_str(), target.data(), target.size());
        if (length < 0) break;
        const std::string pointed(target.data(), static_cast<std::size_t>(length));
        path = pointed.starts_with('/') ? pointed : folderPart(path) + pointed;
    }
    return path;
}

int renameToFreeName(const std::string& from, const std::string& to) {
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
    if (errno != EINVAL && errno != ENOSYS) return errno;
    if (::link(from.c_str(), to.c_str()) == 0) return ::unlink(from.c_str()) == 0 ? 0 : errno;
    if (errno == EEXIST || nameExists(to)) return EEXIST;
    return ::rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

FileError NewVersion::begin(const std::string& path, mode_t rights) {
    // A limit on file sizes is to be an error of the writing, not the end of the program.
    static const auto previous = std::signal(SIGXFSZ, SIG_IGN);
    static_cast<void>(previous);
    target_ = path;
    if (const FileError fault = checkTarget(); fault != FileError::none) return fault;
    temporary_ = temporaryNameOf(target_);
    if (const FileError fault = createTemporary(exists_ ? old_.st_mode & 0777 : rights);
        fault != FileError::none)
        return fault;
    if (exists_) takeOverRights();
    return FileError::none;
}

FileError NewVersion::checkTarget() {
    exists_ = ::lstat(target_.c_str(), &old_) == 0;
    if (exists_ && S_ISLNK(old_.st_mode)) {
        target_ = behindLinks(target_);
        exists_ = ::stat(target_.c_str(), &old_) == 0;
    }
    if (!exists_) return errno == ENOENT ? FileError::none : writingError();
    if (!S_ISREG(old_.st_mode)) return FileError::permissionDenied;
    if ((old_.st_mode & writeBits) == 0)
        return FileError::readOnly;  // also for a user who may write anything
    if (::faccessat(AT_FDCWD, target_.c_str(), W_OK, AT_EACCESS) != 0) return writingError();
    return FileError::none;
}

FileError NewVersion::createTemporary(mode_t rights) {
    const auto create = [&] {
        return Descriptor(
            ::open(temporary_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, rights));
    };
    Descriptor file = create();
    if (!file && errno == EEXIST) {
        if (!clearRemnant()) return FileError::permissionDenied;
        file = create();
    }
    if (!file) return errno == EEXIST ? FileError::permissionDenied : writingError();
    file_ = std::move(file);
    return lock();
}

/// False when another program is writing there.
bool NewVersion::clearRemnant() const {
    const Descriptor remnant(::open(temporary_.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC | O_NOFOLLOW));
    if (!remnant) return errno == ENOENT;  // network drives lock only what is open for writing
    struct stat status;
    return isLocked(remnant.number(), status) && ::unlink(temporary_.c_str()) == 0;
}

/// Between the creation and the lock another program may have cleared the new file away as a remnant.
FileError NewVersion::lock() {
    if (isLocked(file(), new_)) return FileError::none;
    file_ = Descriptor();
    return FileError::permissionDenied;
}

/// True when an open file is this program's to do with as it likes: it has the lock, and since the opening
/// nobody has put the file in its place or cleared it away. Where there are no locks that has to be enough.
bool NewVersion::isLocked(int file, struct stat& status) const {
    struct stat present;
    if (::flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) return false;
    return ::fstat(file, &status) == 0 && ::lstat(temporary_.c_str(), &present) == 0 &&
           status.st_dev == present.st_dev && status.st_ino == present.st_ino;
}

void NewVersion::takeOverRights() const {
    // Only the administrator may give files away, and not on every file system; the group is worth a try.
    if (new_.st_uid != old_.st_uid || new_.st_gid != old_.st_gid) {
        const uid_t owner = ::geteuid() == 0 ? old_.st_uid : static_cast<uid_t>(-1);
        static_cast<void>(::fchown(file(), owner, old_.st_gid) == 0);
    }
    if ((new_.st_mode & allRights) != (old_.st_mode & allRights)) ::fchmod(file(), old_.st_mode & allRights);
}

/// False when somebody has cleared this program's file away and perhaps begun another one there.
bool NewVersion::isInPlace() const {
    struct stat present;
    return ::lstat(temporary_.c_str(), &present) == 0 && new_.st_dev == present.st_dev &&
           new_.st_ino == present.st_ino;
}

/// Network drives tell of a full disk at the closing only; the lock has to stay until the end, though.
FileError NewVersion::closeFile() {
    const int second = ::fcntl(file(), F_DUPFD_CLOEXEC, 0);
    if (second >= 0 && ::close(second) != 0 && errno != EINTR) return writingError();
    return isInPlace() ? FileError::none : FileError::permissionDenied;
}

FileError NewVersion::finish() {
    if (const FileError fault = closeFile(); fault != FileError::none) return fault;
    if (::rename(temporary_.c_str(), target_.c_str()) != 0) return writingError();
    file_ = Descriptor();
    return FileError::none;
}

FileError NewVersion::finishAsNew() {
    if (const FileError fault = closeFile(); fault != FileError::none) return fault;
    if (const int fault = renameToFreeName(temporary_, target_); fault != 0)
        return errorOf(fault, FileError::pathNotFound);
    file_ = Descriptor();
    return FileError::none;
}

}  // namespace tul
