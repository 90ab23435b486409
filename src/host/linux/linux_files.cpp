#include "host/linux/linux_files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <memory>

#include "base/text.h"
#include "host/linux/new_version.h"

namespace tul {

namespace {

constexpr mode_t rightsOfNewFiles = 0666;  // less what the user's mask takes away
constexpr std::int64_t nanosecondsOfASecond = 1'000'000'000;
constexpr std::size_t chunkLength = std::size_t{1} << 16;
constexpr std::size_t kernelChunkLength = std::size_t{1} << 30;

/// Repeats a call that a signal interrupted.
template <typename Call>
auto uninterrupted(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR) result = call();
    return result;
}

/// Enlarges without setting bytes twice and without carrying old ones over.
bool makeRoom(std::string& bytes, std::size_t length, std::size_t kept) {
    try {
        if (length > bytes.capacity() && kept == 0) bytes.clear();
        bytes.resize(length);
        return true;
    } catch (const std::exception&) {
        return false;  // a size that no memory can hold, such as that of a file full of holes
    }
}

FileError readInto(int file, std::size_t size, std::size_t limit, std::string& bytes) {
    std::size_t length = 0;
    while (length < limit) {
        // One byte more than there should be tells the end of the file in the same call.
        const std::size_t wanted = std::min(limit, (length < size ? size : length + chunkLength) + 1);
        if (!makeRoom(bytes, wanted, length)) return FileError::deviceFailure;
        const ssize_t count =
            uninterrupted([&] { return ::read(file, bytes.data() + length, wanted - length); });
        if (count < 0) return errorOf(errno, FileError::deviceFailure);
        length += static_cast<std::size_t>(count);
        if (count == 0 || (size > 0 && length >= size && length < wanted)) break;
    }
    bytes.resize(length);
    return FileError::none;
}

FileError writeAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = uninterrupted([&] { return ::write(file, bytes.data(), bytes.size()); });
        if (count < 0) return writingError();
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return FileError::none;
}

FileError copyThroughMemory(int from, int to) {
    std::string chunk(chunkLength, '\0');
    for (;;) {
        const ssize_t count = uninterrupted([&] { return ::read(from, chunk.data(), chunk.size()); });
        if (count < 0) return errorOf(errno, FileError::deviceFailure);
        if (count == 0) return FileError::none;
        const FileError fault =
            writeAll(to, std::string_view(chunk).substr(0, static_cast<std::size_t>(count)));
        if (fault != FileError::none) return fault;
    }
}

FileError copyContents(int from, int to) {
    ssize_t count = 0;
    do {
        count = uninterrupted(
            [&] { return ::copy_file_range(from, nullptr, to, nullptr, kernelChunkLength, 0); });
    } while (count > 0);
    if (count < 0 && writingError() == FileError::diskFull) return FileError::diskFull;
    // Not every file system can do it, and some end too early; what is copied already stands in both
    // positions.
    return copyThroughMemory(from, to);
}

bool isPlainFile(int folder, const dirent& entry) {
    if (entry.d_type == DT_REG) return true;
    if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return false;
    struct stat status;
    return ::fstatat(folder, entry.d_name, &status, 0) == 0 && S_ISREG(status.st_mode);
}

FileError refusalToRemove(const std::string& path) {
    struct stat status;
    if (::lstat(path.c_str(), &status) != 0) return errorOf(errno, FileError::fileNotFound);
    if (!S_ISREG(status.st_mode) && !S_ISLNK(status.st_mode)) return FileError::permissionDenied;
    return (status.st_mode & writeBits) == 0 ? FileError::readOnly : FileError::none;
}

}  // namespace

DateTime localTime(std::time_t moment) {
    std::tm parts{};
    if (::localtime_r(&moment, &parts) == nullptr) return {};
    return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec};
}

FileError openForReading(const std::string& nativePath, OpenFile& file) {
    constexpr int mode = O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
    file.descriptor = Descriptor(uninterrupted([&] { return ::open(nativePath.c_str(), mode); }));
    if (!file.descriptor) return errorOf(errno, FileError::fileNotFound);
    if (::fstat(file.descriptor.number(), &file.status) == 0 && S_ISREG(file.status.st_mode))
        return FileError::none;
    file.descriptor = Descriptor();
    return FileError::permissionDenied;
}

FileError readWhole(const std::string& nativePath, std::string& bytes, std::size_t limit) {
    OpenFile file;
    FileError fault = openForReading(nativePath, file);
    if (fault == FileError::none)
        fault =
            readInto(file.descriptor.number(), static_cast<std::size_t>(file.status.st_size), limit, bytes);
    if (fault != FileError::none) bytes.clear();
    return fault;
}

FileError replaceWhole(const std::string& nativePath, std::string_view bytes) {
    NewVersion version;
    FileError fault = version.begin(nativePath, rightsOfNewFiles);
    if (fault == FileError::none) fault = writeAll(version.file(), bytes);
    return fault == FileError::none ? version.finish() : fault;
}

bool LinuxFiles::canRead(const std::string& path) const {
    OpenFile file;
    const auto native = finder_.native(path);
    return native && openForReading(*native, file) == FileError::none;
}

std::optional<FileInfo> LinuxFiles::info(const std::string& path) const {
    struct stat status;
    const auto native = finder_.native(path);
    if (!native || ::stat(native->c_str(), &status) != 0) return std::nullopt;
    return FileInfo{.length = S_ISREG(status.st_mode) ? static_cast<std::uint64_t>(status.st_size) : 0,
                    .stamp = localTime(status.st_mtime),
                    .folder = S_ISDIR(status.st_mode),
                    .moment = status.st_mtim.tv_sec * nanosecondsOfASecond + status.st_mtim.tv_nsec,
                    .number = status.st_ino};
}

std::string LinuxFiles::nameOnDisk(const std::string& path) const {
    const auto native = finder_.native(path);
    return native && nameExists(*native) ? namePart(*native) : std::string();
}

std::vector<std::string> LinuxFiles::list(const std::string& folder) const {
    std::vector<std::string> names;
    const auto native = finder_.native(folder);
    if (!native) return names;
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(::opendir(native->c_str()), ::closedir);
    if (!listing) return names;
    while (const dirent* entry = ::readdir(listing.get())) {
        const std::string_view name = entry->d_name;
        if (name.find_first_of("\\\r\n") != std::string_view::npos) continue;  // no path can name it
        if (isPlainFile(::dirfd(listing.get()), *entry)) names.emplace_back(name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

FileError LinuxFiles::read(const std::string& path, std::string& bytes, std::size_t limit) const {
    const auto native = finder_.native(path);
    if (native) return readWhole(*native, bytes, limit);
    bytes.clear();
    return FileError::pathNotFound;
}

FileError LinuxFiles::replace(const std::string& path, std::string_view bytes) {
    const auto native = finder_.native(path);
    if (!native) return FileError::pathNotFound;
    const FileError fault = replaceWhole(*native, bytes);
    finder_.names().namesChanged();
    return fault;
}

FileError LinuxFiles::remove(const std::string& path) {
    const auto native = finder_.native(path);
    if (!native) return FileError::pathNotFound;
    if (const FileError fault = refusalToRemove(*native); fault != FileError::none) return fault;
    if (::unlink(native->c_str()) != 0) return errorOf(errno, FileError::fileNotFound);
    finder_.names().namesChanged();
    return FileError::none;
}

FileError LinuxFiles::renameOver(const std::string& from, const std::string& to) {
    const auto source = finder_.native(from);
    const auto target = finder_.native(to);
    if (!source || !target) return FileError::pathNotFound;
    const std::string place = behindLinks(*target);
    if (const FileError fault = refusalToRemove(place); fault != FileError::none) return fault;
    int fault = ::rename(source->c_str(), place.c_str()) == 0 ? 0 : errno;
    if (fault == EXDEV) {  // a link leads to another disk
        if (const FileError copied = copy(from, to); copied != FileError::none) return copied;
        fault = ::unlink(source->c_str()) == 0 ? 0 : errno;
    }
    finder_.names().namesChanged();
    return errorOf(fault, FileError::fileNotFound);
}

FileError LinuxFiles::rename(const std::string& from, const std::string& to) {
    const auto source = finder_.native(from);
    const auto found = finder_.native(to);
    if (!source || !found) return FileError::pathNotFound;
    if (!nameExists(*source)) return FileError::fileNotFound;
    int fault = 0;
    if (*source == *found) {
        const std::string_view name = lastName(to);
        if (!equalIgnoringCase(name, namePart(*found))) return FileError::fileExists;
        if (::rename(source->c_str(), (folderPart(*found) + std::string(name)).c_str()) != 0) fault = errno;
    } else {
        fault = nameExists(*found) ? EEXIST : renameToFreeName(*source, *found);
    }
    if (fault == EXDEV) {
        const FileError copied = copyToNew(from, to);
        if (copied != FileError::none) return copied;
        fault = ::unlink(source->c_str()) == 0 ? 0 : errno;
    }
    finder_.names().namesChanged();
    return errorOf(fault, FileError::pathNotFound);
}

FileError LinuxFiles::copyTo(const std::string& from, const std::string& to, Existing existing) {
    const auto source = finder_.native(from);
    const auto target = finder_.native(to);
    if (!source || !target) return FileError::pathNotFound;
    OpenFile file;
    FileError fault = openForReading(*source, file);
    if (fault != FileError::none) return fault;
    const bool mayReplace = existing == Existing::replaced;
    if (!mayReplace && nameExists(*target)) return FileError::fileExists;

    NewVersion version;
    fault = version.begin(*target, file.status.st_mode & 0777);
    if (fault != FileError::none || version.replaces(file.status)) return fault;
    fault = copyContents(file.descriptor.number(), version.file());
    if (fault != FileError::none) return fault;
    if (!version.exists()) ::fchmod(version.file(), file.status.st_mode & 0777);
    const std::array<timespec, 2> times = {file.status.st_atim, file.status.st_mtim};
    ::futimens(version.file(), times.data());
    fault = mayReplace ? version.finish() : version.finishAsNew();
    finder_.names().namesChanged();
    return fault;
}

std::optional<std::string> LinuxFiles::fromNative(const std::string& nativePath) const {
    if (nativePath.empty()) return std::nullopt;
    if (beginsWithDrive(nativePath)) return installationPath(nativePath);
    const std::filesystem::path whole = std::filesystem::path(finder_.startFolder()) / nativePath;
    std::error_code failure;
    // Behind a symbolic link ".." leads to the parent of what the link points to; the last name stays as it
    // is.
    const bool goesUp = std::find(whole.begin(), whole.end(), "..") != whole.end();
    const bool endsInName = whole.filename() != ".." && whole.filename() != ".";
    const std::filesystem::path folder = endsInName ? whole.parent_path() : whole;
    std::filesystem::path clean = goesUp ? std::filesystem::weakly_canonical(folder, failure) : whole;
    if (goesUp && endsInName) clean /= whole.filename();
    std::string path = failure ? whole.lexically_normal() : clean.lexically_normal();
    while (path.size() > 1 && path.ends_with('/')) path.pop_back();
    return installationPath(path);
}

}  // namespace tul
