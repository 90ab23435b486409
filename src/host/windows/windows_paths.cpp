#include "host/windows/windows_paths.h"

#include <algorithm>

#include "base/text.h"
#include "host/windows/system_text.h"

namespace tul {

namespace {

bool isRoot(std::string_view path) { return path.size() <= 3; }

bool hasDrive(std::string_view path) { return path.size() >= 2 && path[1] == ':'; }

std::string withoutLastBackslash(std::string path) {
    while (!isRoot(path) && path.ends_with('\\')) path.pop_back();
    return path;
}

}  // namespace

WindowsPaths::WindowsPaths() : startFolder_(currentFolder()) {}

std::string WindowsPaths::currentFolder() const {
    return withoutLastBackslash(
        textFrom([](char* text, DWORD size) { return ::GetCurrentDirectoryA(size, text); }));
}

bool WindowsPaths::changeFolder(const std::string& path) const {
    return !path.empty() && ::SetCurrentDirectoryA(path.c_str()) != 0;
}

std::optional<std::string> WindowsPaths::fromNative(const std::string& path) const {
    if (path.empty() || path.find_first_of("\"\r\n") != std::string::npos) return std::nullopt;
    std::string given = path;
    std::replace(given.begin(), given.end(), '/', '\\');
    if (!hasDrive(given) && !given.starts_with('\\')) given = startFolder_ + '\\' + given;
    if (given.starts_with('\\') && !given.starts_with("\\\\")) given = startFolder_.substr(0, 2) + given;
    const std::string whole = wholePath(given);
    if (whole.empty() || whole.starts_with("\\\\")) return std::nullopt;
    return whole;
}

std::string WindowsPaths::withCaseOfDisk(const std::string& path) const {
    const std::string whole = wholePath(path);
    if (whole.empty() || isRoot(whole)) return whole.empty() ? path : whole;
    const std::string name = nameOnDisk(whole);
    const std::string folder(withoutLastBackslash(std::string(folderOf(whole))));
    if (folder != folderAsked_) {
        folderFound_ = withCaseOfDisk(folder);
        folderAsked_ = folder;
    }
    return folderFound_ + (folderFound_.ends_with('\\') ? "" : "\\") +
           (name.empty() ? std::string(fileNameOf(whole)) : name);
}

std::string wholePath(std::string_view path) {
    const std::string given(path);
    if (given.empty() || given.find('\0') != std::string::npos) return {};
    return withoutLastBackslash(textFrom(
        [&](char* text, DWORD size) { return ::GetFullPathNameA(given.c_str(), size, text, nullptr); }));
}

std::string nameOnDisk(const std::string& path) {
    const std::string whole = wholePath(path);
    if (whole.find_first_of("*?") != std::string::npos) return {};
    WIN32_FIND_DATAA entry;
    const HANDLE search = ::FindFirstFileA(whole.c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) return {};
    ::FindClose(search);
    return entry.cFileName;
}

}  // namespace tul
