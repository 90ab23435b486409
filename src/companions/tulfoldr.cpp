#include <QApplication>
#include <QDir>
#include <QFile>
#include <QIcon>
#include <optional>

#include "base/text.h"
#include "companions/companion.h"
#include "companions/file_choice.h"
#include "companions/folder_window.h"
#include "companions/terminal.h"

// Lets the user choose a folder and writes it into the result file: in a window, or on the terminal where
// there is no display. Without either, and when the user cancels, there is no result.
namespace {

using namespace tul;

int refuse(const std::string& why) { return companion::refuse("TULFOLDR", why); }

std::string firstFolder(const std::string& lastResult) {
    std::string text;
    files().readIfThere(lastResult, text);
    for (const std::string_view line : linesOf(text))
        if (companion::isFolder(std::string(trimRight(line)))) return std::string(trimRight(line));
    return files().fromNative(QFile::encodeName(QDir::homePath()).toStdString()).value_or("Z:\\");
}

std::optional<std::string> askInWindow(const std::string& remark, const std::string& folder, int argc,
                                       char** argv) {
    const QApplication application(argc, argv);
    QApplication::setWindowIcon(QIcon(":/tul.png"));
    companion::FolderWindow window(remark, folder);
    return window.exec() == QDialog::Accepted ? std::optional(window.folder()) : std::nullopt;
}

}  // namespace

int main(int argc, char** argv) {
    const companion::Companion machine;
    const companion::ArgumentPairs arguments(argc, argv);
    const std::string result = companion::pathIn(arguments["STARTDIR"], arguments["FILE"]);
    if (arguments["STARTDIR"].empty() || arguments["FILE"].empty())
        return refuse("STARTDIR= and FILE= are needed.");
    const std::string start = firstFolder(result);
    files().removeIfThere(result);  // an old choice is not to be taken for a new one
    std::optional<std::string> folder;
    if (companion::asksInWindow()) {
        folder = askInWindow(arguments["REMARK"], start, argc, argv);
        if (!folder) return companion::failed;
    } else if (companion::canAsk()) {
        folder = files().fromNative(companion::askLine(arguments["REMARK"] + ": "));
    } else {
        return refuse("choosing a folder needs a display or a terminal.");
    }
    if (!folder || !companion::isFolder(*folder)) return refuse("there is no such folder.");
    if (files().replace(result, *folder + std::string(CrLf)) != FileError::none)
        return refuse("the result file could not be written.");
    return companion::done;
}
