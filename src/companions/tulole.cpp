#include "base/text.h"
#include "companions/companion.h"
#include "companions/file_choice.h"
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

    std::vector<std::string> paths = arguments.list();
    std::erase_if(paths, companion::isFolder);
    if (const auto clash = findLetterCaseClash(paths)) return companion::refuse("TULOLE", *clash);
    if (paths.empty())
        return companion::refuse("TULOLE", "no files were dropped; the selection stays as it was.");
    if (files().replace(folder + "\\" + namesFile, companion::namesText(paths)) != FileError::none)
        return companion::refuse("TULOLE", "the names file could not be written.");
    return companion::done;
}
