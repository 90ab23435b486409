#include "companions/file_choice.h"

#include <algorithm>
#include <unordered_map>

#include "base/text.h"
#include "host/host.h"

namespace tul::companion {

namespace {

constexpr std::string_view digits = "0123456789";
constexpr std::string_view terminator = " 1";

/// Takes the number at the begin of a text, without leading zeros; empty where there is no digit.
std::string_view takeNumber(std::string_view& text) {
    const std::size_t end = std::min(text.find_first_not_of(digits), text.size());
    std::string_view number = text.substr(0, end);
    text.remove_prefix(end);
    while (number.size() > 1 && number.front() == '0') number.remove_prefix(1);
    return number;
}

int compare(std::string_view a, std::string_view b) {
    while (!a.empty() && !b.empty()) {
        const std::string_view one = takeNumber(a);
        const std::string_view other = takeNumber(b);
        if (!one.empty() && !other.empty()) {
            if (one.size() != other.size()) return one.size() < other.size() ? -1 : 1;
            if (const int order = one.compare(other); order != 0) return order;
            continue;
        }
        // Of a digit and a letter the byte decides; a number that was taken begins with it.
        const char left = one.empty() ? upperCase(a.front()) : one.front();
        const char right = other.empty() ? upperCase(b.front()) : other.front();
        if (left != right)
            return static_cast<unsigned char>(left) < static_cast<unsigned char>(right) ? -1 : 1;
        a.remove_prefix(1);
        b.remove_prefix(1);
    }
    return static_cast<int>(!a.empty()) - static_cast<int>(!b.empty());
}

}  // namespace

bool standsBefore(std::string_view a, std::string_view b) {
    const int order = compare(a, b);
    return order != 0 ? order < 0 : a < b;
}

std::string pathIn(const std::string& folder, const std::string& name) {
    return folder + (folder.ends_with('\\') ? "" : "\\") + name;
}

std::string folderAbove(const std::string& path) {
    std::string folder(folderOf(path));
    if (folder == path) return {};  // the root of a drive keeps its backslash
    if (folder.size() > 3) folder.pop_back();
    return folder;
}

bool isFolder(const std::string& path) {
    const auto info = tul::files().info(path);
    return info && info->folder;
}

std::vector<std::string> readNames(const std::string& namesPath) {
    std::string text;
    files().readIfThere(namesPath, text);
    std::vector<std::string> paths;
    for (const std::string_view raw : linesOf(text)) {
        std::string_view line = trimRight(raw);
        if (line.empty() || line.front() == ' ' || line.front() == '*') continue;
        if (line.ends_with(terminator)) line.remove_suffix(terminator.size());
        paths.emplace_back(line);
    }
    return paths;
}

std::string namesText(const std::vector<std::string>& paths) {
    std::string text;
    for (const std::string& path : paths) text.append(path).append(terminator).append(CrLf);
    return text;
}

bool FileChoice::open(const std::string& folder) {
    folder_ = folder;
    files_.clear();
    const bool found = isFolder(folder);
    if (found)
        for (std::string& name : tul::files().list(folder)) {
            std::string upper = upperCase(name);
            files_.push_back({.name = std::move(name), .upper = std::move(upper)});
        }
    std::sort(files_.begin(), files_.end(),
              [](const File& a, const File& b) { return standsBefore(a.name, b.name); });
    show();
    chooseSelected();
    return found;
}

void FileChoice::setSuffix(std::string_view suffix) {
    suffix_ = suffix.empty() ? std::string() : "." + upperCase(suffix);
    show();
}

void FileChoice::setPart(std::string_view part) {
    part_ = upperCase(part);
    show();
}

bool FileChoice::isShown(const File& file) const {
    if (!file.upper.ends_with(suffix_)) return false;
    return part_.empty() || file.upper.find(part_) < file.upper.size() - suffix_.size();
}

void FileChoice::show() {
    shown_.clear();
    for (std::size_t i = 0; i < files_.size(); ++i)
        if (isShown(files_[i])) shown_.push_back(i);
}

/// The names file may hold names in upper case. Of two files that differ in letter case only the one that is
/// written as in the names file is meant.
void FileChoice::chooseSelected() {
    std::unordered_multimap<std::string_view, File*> byUpperCase;
    for (const std::size_t shown : shown_) byUpperCase.emplace(files_[shown].upper, &files_[shown]);
    const std::string here = upperCase(pathIn(folder_, ""));
    for (const std::string& path : selected_) {
        if (upperCase(folderOf(path)) != here) continue;
        const std::string upper = upperCase(fileNameOf(path));
        const auto [begin, end] = byUpperCase.equal_range(upper);
        const auto exact = std::find_if(
            begin, end, [&](const auto& entry) { return entry.second->name == fileNameOf(path); });
        if (exact != end)
            exact->second->chosen = true;
        else if (begin != end)
            begin->second->chosen = true;
    }
}

std::vector<std::size_t> FileChoice::chosenRows() const {
    std::vector<std::size_t> chosen;
    for (std::size_t row = 0; row < rows(); ++row)
        if (isChosen(row)) chosen.push_back(row);
    return chosen;
}

std::size_t FileChoice::firstChosen() const {
    const auto chosen = chosenRows();
    return chosen.empty() ? 0 : chosen.front();
}

std::size_t FileChoice::hidden() const {
    const auto all =
        std::count_if(files_.begin(), files_.end(), [](const File& file) { return file.chosen; });
    return static_cast<std::size_t>(all) - chosen();
}

std::vector<std::string> FileChoice::chosenPaths() const {
    std::vector<std::string> paths;
    for (const std::size_t row : chosenRows()) paths.push_back(pathIn(folder_, name(row)));
    return paths;
}

std::string FileChoice::longestPath() const {
    const auto chosen = chosenRows();
    if (chosen.empty()) return {};
    std::size_t longest = chosen.front();
    for (const std::size_t row : chosen)
        if (name(row).size() > name(longest).size()) longest = row;
    return pathIn(folder_, name(longest));
}

}  // namespace tul::companion
