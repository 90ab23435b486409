#include <algorithm>
#include <iostream>
#include <optional>
#include <set>

#include "base/numbers.h"
#include "base/text.h"
#include "companions/choosers.h"
#include "companions/companion.h"
#include "companions/terminal.h"
#include "shared/letter_case.h"

// Lets the user choose files of one folder and writes the names file: in a window, or on the terminal where
// there is no screen. Without either the present selection stays.
namespace {

using namespace tul;

std::vector<std::string> filesOf(const std::string& folder, const std::string& suffix) {
    std::vector<std::string> names;
    for (const std::string& name : files().list(folder))
        if (suffix.empty() || upperCase(name).ends_with("." + upperCase(suffix))) names.push_back(name);
    return names;
}

/// Numbers such as "1 3-5", or "all", within `count`. Nothing when the text is not of that form.
std::optional<std::set<int>> chosenNumbers(const std::string& text, int count) {
    std::set<int> chosen;
    std::string_view rest = equalIgnoringCase(trim(text), "ALL") ? std::string_view("1-") : trim(text);
    while (!rest.empty()) {
        const SplitText word = splitAtFirst(rest, ' ');
        const SplitText range = splitAtFirst(word.before, '-');
        const auto number = [](std::string_view digits) {
            return isWholeNumber(digits) ? toInt32(numericValue(digits)).value_or(0) : 0;
        };
        const int first = number(range.before);
        const int last = !range.found ? first : range.behind.empty() ? count : number(range.behind);
        if (first < 1 || last < first || last > count) return std::nullopt;
        for (int i = first; i <= last; ++i) chosen.insert(i);
        rest = trimLeft(word.behind);
    }
    return chosen;
}

/// Whole paths of the files that the user named on the terminal by their numbers; none where that failed.
std::vector<std::string> askTerminal(const std::string& prompt, const std::string& folder,
                                     const std::string& suffix) {
    const std::vector<std::string> names = filesOf(folder, suffix);
    std::cerr << prompt << '\n' << toUtf8(folder) << '\n';
    for (std::size_t i = 0; i < names.size(); ++i) std::cerr << i + 1 << "  " << toUtf8(names[i]) << '\n';
    const auto chosen = chosenNumbers(companion::askLine("Numbers (such as 1 3-5), or all: "),
                                      static_cast<int>(names.size()));
    std::vector<std::string> paths;
    for (const int number : chosen.value_or(std::set<int>()))
        paths.push_back(folder + (folder.ends_with('\\') ? "" : "\\") +
                        names[static_cast<std::size_t>(number - 1)]);
    return paths;
}

}  // namespace

int main(int argc, char** argv) {
    const companion::Companion machine;
    const companion::ArgumentPairs arguments(argc, argv);
    const std::string startFolder = arguments["STARTDIR"];
    const std::string namesFile = arguments["NAMESFILE"];
    const std::string folder = arguments["MUSFOLDER"].empty() ? startFolder : arguments["MUSFOLDER"];
    if (startFolder.empty() || namesFile.empty())
        return companion::refuse("TULNAMES", "STARTDIR= and NAMESFILE= are needed.");
    const std::string suffix = arguments["SUFFIX"];
    const std::string prompt = arguments["MSG"].empty() ? "Select file(s)" : arguments["MSG"];
    if (!companion::hasScreen() && !companion::canAsk())
        return companion::refuse("TULNAMES",
                                 "choosing files needs a screen or a terminal. The selection stays as "
                                 "it was; tulcmd takes files as arguments.");
    const std::vector<std::string> paths = companion::hasScreen()
                                               ? companion::chooseFiles(prompt, folder, suffix)
                                               : askTerminal(prompt, folder, suffix);
    if (paths.empty()) return companion::refuse("TULNAMES", "nothing was chosen; the selection stays.");
    if (const auto clash = findLetterCaseClash(paths)) return companion::refuse("TULNAMES", *clash);
    std::string text;
    for (const std::string& path : paths) text += path + " 1" + std::string(CrLf);
    if (files().replace(startFolder + "\\" + namesFile, text) != FileError::none)
        return companion::refuse("TULNAMES", "the names file could not be written.");
    return companion::done;
}
