#include "host/windows/windows_files.h"

#include <algorithm>
#include <array>
#include <exception>

#include "base/text.h"
#include "host/windows/new_version.h"

namespace tul {

namespace {

constexpr std::size_t chunkLength = std::size_t{1} << 16;
constexpr std::size_t largestPiece = std::size_t{1} << 30;
constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr DWORD shortNameBuffer = 200;

/// Folders cannot be opened so; devices can, and are refused.
FileError openForReading(const std::string& path, Handle& file) {
    const std::string whole = wholePath(path);
    if (whole.empty()) return FileError::pathNotFound;
    file = Handle(::CreateFileA(whole.c_str(), GENERIC_READ, shareAll, nullptr, OPEN_EXISTING,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) return lastFileError(FileError::fileNotFound);
    if (::GetFileType(file.get()) == FILE_TYPE_DISK) return FileError::none;
    file.close();
    return FileError::permissionDenied;
}

FileError readInto(HANDLE file, std::size_t limit, std::string& bytes) {
    LARGE_INTEGER size{};
    ::GetFileSizeEx(file, &size);
    const auto expected = static_cast<std::size_t>(size.QuadPart);
    std::size_t length = 0;
    try {
        while (length < limit) {
            bytes.resize(std::min(limit, length < expected ? expected : length + chunkLength));
            DWORD count = 0;
            const std::size_t wanted = std::min(bytes.size() - length, largestPiece);
            if (::ReadFile(file, bytes.data() + length, static_cast<DWORD>(wanted), &count, nullptr) == 0)
                return lastFileError(FileError::deviceFailure);
            length += count;
            if (count == 0 || length == expected) break;
        }
        bytes.resize(length);
        return FileError::none;
    } catch (const std::exception&) {
        return FileError::deviceFailure;  // a size that no memory can hold
    }
}

bool isSameFile(const std::string& one, const std::string& other) {
    BY_HANDLE_FILE_INFORMATION a;
    BY_HANDLE_FILE_INFORMATION b;
    const auto query = [](const std::string& path, BY_HANDLE_FILE_INFORMATION& information) {
        const Handle file(
            ::CreateFileA(path.c_str(), 0, shareAll, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
        return file && ::GetFileInformationByHandle(file.get(), &information) != 0;
    };
    if (!query(one, a) || !query(other, b)) return false;
    // Some network drives number no files.
    if ((a.nFileIndexHigh | a.nFileIndexLow) == 0) return equalIgnoringCase(wholePath(one), wholePath(other));
    return a.dwVolumeSerialNumber == b.dwVolumeSerialNumber && a.nFileIndexHigh == b.nFileIndexHigh &&
           a.nFileIndexLow == b.nFileIndexLow;
}

bool exists(const std::string& path) { return ::GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES; }

FileError refusalToCopy(const std::string& from) {
    Handle source;
    return openForReading(from, source);
}

}  // namespace

DateTime localTime(const FILETIME& moment) {
    SYSTEMTIME universal{};
    SYSTEMTIME here{};
    if (::FileTimeToSystemTime(&moment, &universal) == 0 ||
        ::SystemTimeToTzSpecificLocalTime(nullptr, &universal, &here) == 0)
        return {};
    return {here.wYear, here.wMonth, here.wDay, here.wHour, here.wMinute, here.wSecond};
}

bool WindowsFiles::canRead(const std::string& path) const {
    Handle file;
    return openForReading(path, file) == FileError::none;
}

std::optional<FileInfo> WindowsFiles::info(const std::string& path) const {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    const std::string whole = wholePath(path);
    if (whole.empty() || ::GetFileAttributesExA(whole.c_str(), GetFileExInfoStandard, &data) == 0)
        return std::nullopt;
    const bool folder = (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    const std::uint64_t length = static_cast<std::uint64_t>(data.nFileSizeHigh) << 32 | data.nFileSizeLow;
    const std::uint64_t moment = static_cast<std::uint64_t>(data.ftLastWriteTime.dwHighDateTime) << 32 |
                                 data.ftLastWriteTime.dwLowDateTime;
    return FileInfo{.length = folder ? 0 : length,
                    .stamp = localTime(data.ftLastWriteTime),
                    .folder = folder,
                    .moment = static_cast<std::int64_t>(moment)};
}

std::vector<std::string> WindowsFiles::list(const std::string& folder) const {
    std::vector<std::string> names;
    const std::string whole = wholePath(folder);
    if (whole.empty()) return names;
    WIN32_FIND_DATAW entry;
    const std::wstring pattern = wideText(whole + (whole.ends_with('\\') ? "*" : "\\*"));
    const HANDLE search = ::FindFirstFileW(pattern.c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) return names;
    do {
        const bool isFile =
            (entry.dwFileAttributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE)) == 0;
        // The system would put a near letter for one that has no single byte, and so name another file.
        if (const auto name = singleBytes(entry.cFileName); isFile && name) names.push_back(*name);
    } while (::FindNextFileW(search, &entry) != 0);
    ::FindClose(search);
    std::sort(names.begin(), names.end());
    return names;
}

FileError WindowsFiles::read(const std::string& path, std::string& bytes, std::size_t limit) const {
    Handle file;
    FileError fault = openForReading(path, file);
    if (fault == FileError::none) fault = readInto(file.get(), limit, bytes);
    if (fault != FileError::none) bytes.clear();
    return fault;
}

FileError WindowsFiles::replace(const std::string& path, std::string_view bytes) {
    NewVersion version;
    FileError fault = version.begin(path);
    if (fault == FileError::none) fault = version.write(bytes);
    return fault == FileError::none ? version.finish() : fault;
}

FileError WindowsFiles::remove(const std::string& path) {
    const std::string whole = wholePath(path);
    if (whole.empty()) return FileError::pathNotFound;
    if (const FileError fault = refusalToRemove(whole, FileError::fileNotFound); fault != FileError::none)
        return fault;
    return ::DeleteFileA(whole.c_str()) != 0 ? FileError::none : lastFileError(FileError::fileNotFound);
}

FileError WindowsFiles::rename(const std::string& from, const std::string& to) {
    const std::string source = wholePath(from);
    const std::string target = wholePath(to);
    if (source.empty() || target.empty()) return FileError::pathNotFound;
    if (!exists(source)) return lastFileError(FileError::fileNotFound);
    if (exists(target) && !equalIgnoringCase(source, target)) return FileError::fileExists;
    return ::MoveFileExA(source.c_str(), target.c_str(), MOVEFILE_COPY_ALLOWED) != 0 ? FileError::none
                                                                                     : lastFileError();
}

FileError WindowsFiles::renameOver(const std::string& from, const std::string& to) {
    const std::string source = wholePath(from);
    const std::string target = wholePath(to);
    if (source.empty() || target.empty()) return FileError::pathNotFound;
    if (const FileError fault = refusalToRemove(target, FileError::fileNotFound); fault != FileError::none)
        return fault;
    const std::string place = std::string(folderOf(target)) + tul::nameOnDisk(target);
    constexpr DWORD flags = MOVEFILE_REPLACE_EXISTING | MOVEFILE_COPY_ALLOWED;
    return ::MoveFileExA(source.c_str(), place.c_str(), flags) != 0 ? FileError::none
                                                                    : lastFileError(FileError::fileNotFound);
}

FileError WindowsFiles::copy(const std::string& from, const std::string& to) {
    FileError fault = refusalToCopy(from);
    if (fault != FileError::none || isSameFile(from, to)) return fault;
    NewVersion version;
    fault = version.begin(to);
    if (fault == FileError::none) fault = version.copyFrom(from);
    return fault == FileError::none ? version.finish() : fault;
}

FileError WindowsFiles::copyToNew(const std::string& from, const std::string& to) {
    FileError fault = refusalToCopy(from);
    if (fault != FileError::none) return fault;
    if (exists(to)) return FileError::fileExists;
    NewVersion version;
    fault = version.begin(to);
    if (fault == FileError::none) fault = version.copyFrom(from);
    return fault == FileError::none ? version.finishAsNew() : fault;
}

std::string WindowsFiles::shortName(const std::string& path) const {
    std::array<char, shortNameBuffer> text{};
    const DWORD length = ::GetShortPathNameA(path.c_str(), text.data(), shortNameBuffer);
    return length > 0 && length < shortNameBuffer ? std::string(text.data(), length) : path;
}

}  // namespace tul
