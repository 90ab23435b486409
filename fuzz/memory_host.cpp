#include "memory_host.h"

#include <cstdlib>

namespace tul::fuzz {

MemoryHost::MemoryHost() {
    installHost(
        {.files = this, .processes = this, .profile = this, .clock = this, .platform = this, .face = this});
}

void require(bool condition) {
    if (!condition) std::abort();
}

std::vector<std::string> MemoryHost::layOutPage(const std::string& bytes) {
    contents = {{"Z:\\HOME\\PAGE.MUS", bytes}, {"Z:\\HOME\\FILES.TMP", bytes}};
    return {"Z:\\HOME\\PAGE.MUS", "Z:\\HOME\\FILES.TMP"};
}

std::optional<FileInfo> MemoryHost::info(const std::string& path) const {
    const auto found = contents.find(path);
    if (found == contents.end()) return std::nullopt;
    return FileInfo{.length = found->second.size(), .stamp = {}, .folder = false};
}

FileError MemoryHost::read(const std::string& path, std::string& bytes, std::size_t limit) const {
    const auto found = contents.find(path);
    bytes.clear();
    if (found == contents.end()) return FileError::fileNotFound;
    bytes.assign(found->second, 0, limit);
    return FileError::none;
}

FileError MemoryHost::replace(const std::string& path, std::string_view bytes) {
    contents[path] = bytes;
    return FileError::none;
}

FileError MemoryHost::remove(const std::string& path) {
    return contents.erase(path) > 0 ? FileError::none : FileError::fileNotFound;
}

FileError MemoryHost::rename(const std::string& from, const std::string& to) {
    const FileError error = copy(from, to);
    if (error == FileError::none) contents.erase(from);
    return error;
}

FileError MemoryHost::copy(const std::string& from, const std::string& to) {
    const auto found = contents.find(from);
    if (found == contents.end()) return FileError::fileNotFound;
    contents[to] = found->second;
    return FileError::none;
}

Answer MemoryHost::msgBox(const Message& message) {
    if (message.buttons == Buttons::ok) return Answer::ok;
    const int answer = refusals.empty() ? 0 : refusals[questions++ % refusals.size()];
    const bool refuses = (answer & 1) != 0;
    if (message.buttons == Buttons::yesNoCancel && (answer & 2) != 0) return Answer::cancel;
    if (message.buttons == Buttons::okCancel) return refuses ? Answer::cancel : Answer::ok;
    return refuses ? Answer::no : Answer::yes;
}

}  // namespace tul::fuzz
