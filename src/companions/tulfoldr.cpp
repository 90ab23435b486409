#include "base/text.h"
#include "companions/choosers.h"
#include "companions/companion.h"
#include "companions/terminal.h"

// Lets the user choose a folder and writes it into the result file: in a window, or on the terminal where
// there is no screen. Without either no folder is chosen.
int main(int argc, char** argv) {
    using namespace tul;
    const companion::Companion machine;
    const companion::ArgumentPairs arguments(argc, argv);
    const std::string result = arguments["STARTDIR"] + "\\" + arguments["FILE"];
    if (arguments["STARTDIR"].empty() || arguments["FILE"].empty())
        return companion::refuse("TULFOLDR", "STARTDIR= and FILE= are needed.");
    if (!companion::hasScreen() && !companion::canAsk()) {
        files().remove(result);
        return companion::refuse("TULFOLDR", "choosing a folder needs a screen or a terminal.");
    }
    const std::string remark = arguments["REMARK"];
    const auto folder = companion::hasScreen() ? companion::chooseFolder(remark)
                                               : files().fromNative(companion::askLine(remark + ": "));
    const auto info = folder ? files().info(*folder) : std::nullopt;
    if (!info || !info->folder) {
        files().remove(result);
        return companion::refuse("TULFOLDR", "there is no such folder.");
    }
    if (files().replace(result, *folder + std::string(CrLf)) != FileError::none)
        return companion::refuse("TULFOLDR", "the result file could not be written.");
    return companion::done;
}
