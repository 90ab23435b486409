#include "base/text.h"
#include "companions/companion.h"
#include "shared/letter_case.h"

// Takes the files that were dropped on a select button over into the names file.
int main(int argc, char** argv) {
    using namespace tul;
    const companion::Companion machine;
    const companion::ArgumentPairs arguments(argc, argv);
    const std::string folder = arguments["STARTDIR"];
    const std::string namesFile = arguments["NAMESFILE"];
    if (folder.empty() || namesFile.empty())
        return companion::refuse("TULOLE", "STARTDIR= and NAMESFILE= are needed.");

    std::string text;
    for (const std::string& path : arguments.list()) {
        const auto info = files().info(path);
        if (info && info->folder) continue;
        text += path + " 1" + std::string(CrLf);
    }
    if (const auto clash = findLetterCaseClash(arguments.list())) return companion::refuse("TULOLE", *clash);
    if (text.empty())
        return companion::refuse("TULOLE", "no files were dropped; the selection stays as it was.");
    if (files().replace(folder + "\\" + namesFile, text) != FileError::none)
        return companion::refuse("TULOLE", "the names file could not be written.");
    return companion::done;
}
