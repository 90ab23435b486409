#include "companions/names_request.h"

#include "base/numbers.h"
#include "base/text.h"
#include "companions/file_choice.h"
#include "shared/key_value_file.h"
#include "shared/letter_case.h"

namespace tul::companion {

namespace {

constexpr std::size_t longestQuietPath = 24;

/// Where a user who has not said where expects to be: at the present selection. The folder of the
/// installation is what the options of a project say until a user sets one.
std::string firstFolder(const std::string& wanted, const std::vector<std::string>& selected,
                        const std::string& startFolder) {
    const bool isSaid = !equalIgnoringCase(pathIn(wanted, ""), pathIn(startFolder, ""));
    if (isSaid && !wanted.empty() && isFolder(wanted)) return wanted;
    const std::string last = selected.empty() ? std::string() : folderAbove(selected.front());
    return !last.empty() && isFolder(last) ? last : startFolder;
}

}  // namespace

NamesRequest::NamesRequest(const ArgumentPairs& arguments)
    : startFolder(arguments["STARTDIR"]),
      namesFile(arguments["NAMESFILE"]),
      suffix(arguments["SUFFIX"]),
      prompt(arguments["MSG"].empty() ? "Select file(s)" : arguments["MSG"]) {
    folder = firstFolder(arguments["MUSFOLDER"], readNames(namesPath()), startFolder);
}

std::string NamesRequest::namesPath() const { return pathIn(startFolder, namesFile); }

bool warnsOfLongPaths(const std::string& startFolder) {
    const auto options = readKeyValues(pathIn(startFolder, "TULPROJ.PRO"));
    bool warns = false;
    if (options)
        for (const KeyValue& option : *options)
            if (option.key == "WARNONPATHLENGTH") warns = isTrue(option.value);
    return warns;
}

std::string pathWarning(const std::string& path) {
    if (path.size() <= longestQuietPath) return {};
    return "A path has " + plain(path.size()) + " characters, more than " + plain(longestQuietPath) + ": " +
           path;
}

std::string writeSelection(const NamesRequest& request, const std::vector<std::string>& paths) {
    if (auto clash = findLetterCaseClash(paths)) return *clash;
    if (files().replace(request.namesPath(), namesText(paths)) != FileError::none)
        return "The names file could not be written: " + request.namesPath();
    return {};
}

}  // namespace tul::companion
