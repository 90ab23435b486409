#include "host/windows/new_version.h"

#include <algorithm>
#include <functional>

#include "base/text.h"
#include "host/windows/windows_paths.h"

namespace tul {

namespace {

constexpr DWORD diskQuotaExceeded = 1295;  // which the compiler's headers have no name for
constexpr int heldAttempts = 20;
constexpr DWORD heldMilliseconds = 20;
constexpr DWORD largestPiece = 1U << 30;
constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// The path with the file's name as it stands on disk, where there is such a file.
std::string placeOf(const std::string& path) {
    const std::string whole = wholePath(path);
    const std::string name = nameOnDisk(whole);
    return name.empty() ? whole : std::string(folderOf(whole)) + name;
}

/// The system allows no backslash in the name of a mutex, and no more than 260 characters.
std::string claimName(const std::string& path) {
    return "Global\\TUL-writes-" + std::to_string(std::hash<std::string>()(upperCase(path)));
}

FileError writeAll(HANDLE file, std::string_view bytes) {
    while (!bytes.empty()) {
        DWORD count = 0;
        const auto piece = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), largestPiece));
        if (::WriteFile(file, bytes.data(), piece, &count, nullptr) == 0) return lastFileError();
        bytes.remove_prefix(count);
    }
    return FileError::none;
}

/// A virus scanner or a service that keeps copies holds a file for a moment just after it was written. What
/// is held longer is told.
template <class Operation>
bool succeedsSoon(Operation operation) {
    for (int attempts = heldAttempts;; --attempts) {
        if (operation()) return true;
        const DWORD error = ::GetLastError();
        const bool isHeld =
            error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION || error == ERROR_ACCESS_DENIED;
        if (!isHeld || attempts == 0) return false;
        ::Sleep(heldMilliseconds);
        ::SetLastError(error);
    }
}

}  // namespace

FileError fileErrorOf(DWORD error, FileError missing) {
    switch (error) {
        case ERROR_SUCCESS:
            return FileError::none;
        case ERROR_FILE_NOT_FOUND:
            return missing;
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_NAME:
        case ERROR_BAD_PATHNAME:
        case ERROR_FILENAME_EXCED_RANGE:
        case ERROR_INVALID_DRIVE:
        case ERROR_DIRECTORY:
            return FileError::pathNotFound;
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
        case diskQuotaExceeded:
            return FileError::diskFull;
        case ERROR_WRITE_PROTECT:
            return FileError::readOnly;
        case ERROR_ACCESS_DENIED:
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
        case ERROR_USER_MAPPED_FILE:
            return FileError::permissionDenied;
        case ERROR_FILE_EXISTS:
        case ERROR_ALREADY_EXISTS:
            return FileError::fileExists;
        default:
            return FileError::deviceFailure;
    }
}

FileError lastFileError(FileError missing) { return fileErrorOf(::GetLastError(), missing); }

FileError refusalToRemove(const std::string& path, FileError missing) {
    const DWORD attributes = ::GetFileAttributesA(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return lastFileError(missing);
    if ((attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE)) != 0)
        return FileError::permissionDenied;
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) return FileError::readOnly;
    // Programs that hold a file open are told apart before anything is written.
    Handle file;
    const auto open = [&] {
        file = Handle(::CreateFileA(path.c_str(), GENERIC_WRITE | DELETE, shareAll, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
        return static_cast<bool>(file);
    };
    return succeedsSoon(open) ? FileError::none : lastFileError(missing);
}

NewVersion::~NewVersion() {
    if (owned_) {
        ::SetFileAttributesA(temporary_.c_str(), FILE_ATTRIBUTE_NORMAL);
        ::DeleteFileA(temporary_.c_str());
    }
    if (claim_) ::ReleaseMutex(claim_.get());
}

FileError NewVersion::begin(const std::string& path) {
    target_ = placeOf(path);
    if (target_.empty() || target_.starts_with("\\\\.\\")) return FileError::pathNotFound;
    exists_ = ::GetFileAttributesA(target_.c_str()) != INVALID_FILE_ATTRIBUTES;
    if (exists_) {
        if (const FileError fault = refusalToRemove(target_, FileError::none); fault != FileError::none)
            return fault;
        attributes_ = ::GetFileAttributesA(target_.c_str());
    }
    temporary_ = std::string(folderOf(target_)) + '.' + std::string(fileNameOf(target_)) + ".tul-new";
    const FileError fault = claim();
    // What a killed run has copied may have the attributes of its source.
    if (fault == FileError::none) ::SetFileAttributesA(temporary_.c_str(), FILE_ATTRIBUTE_NORMAL);
    return fault;
}

FileError NewVersion::claim() {
    claim_ = Handle(::CreateMutexA(nullptr, FALSE, claimName(target_).c_str()));
    if (!claim_) return FileError::permissionDenied;  // another user's program writes it
    const DWORD state = ::WaitForSingleObject(claim_.get(), 0);
    if (state == WAIT_OBJECT_0 || state == WAIT_ABANDONED) return FileError::none;
    claim_.close();
    return FileError::permissionDenied;
}

FileError NewVersion::write(std::string_view bytes) {
    const Handle file(::CreateFileA(temporary_.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) return lastFileError();
    owned_ = true;
    return writeAll(file.get(), bytes);
}

FileError NewVersion::copyFrom(const std::string& path) {
    const DWORD attributes = ::GetFileAttributesA(path.c_str());
    if (::CopyFileA(path.c_str(), temporary_.c_str(), FALSE) == 0) {
        const FileError fault = lastFileError(FileError::fileNotFound);
        ::DeleteFileA(temporary_.c_str());
        return fault;
    }
    owned_ = true;
    if (!exists_) attributes_ = attributes;
    ::SetFileAttributesA(temporary_.c_str(), FILE_ATTRIBUTE_NORMAL);
    return FileError::none;
}

/// In one step of the file system: `ReplaceFile` would move the old file away first, and a kill between its
/// steps would leave the name without a file.
FileError NewVersion::finish() { return moveIntoPlace(MOVEFILE_REPLACE_EXISTING); }

FileError NewVersion::finishAsNew() { return moveIntoPlace(0); }

FileError NewVersion::moveIntoPlace(DWORD flags) {
    const auto move = [&] { return ::MoveFileExA(temporary_.c_str(), target_.c_str(), flags) != 0; };
    if (!succeedsSoon(move)) return lastFileError();
    owned_ = false;
    const DWORD kept = attributes_ & ~static_cast<DWORD>(FILE_ATTRIBUTE_ARCHIVE);
    if (kept != FILE_ATTRIBUTE_NORMAL && kept != 0) ::SetFileAttributesA(target_.c_str(), attributes_);
    return FileError::none;
}

}  // namespace tul
