#include <QApplication>
#include <QIcon>
#include <iostream>
#include <optional>
#include <set>

#include "base/numbers.h"
#include "base/text.h"
#include "companions/companion.h"
#include "companions/file_choice.h"
#include "companions/names_request.h"
#include "companions/names_window.h"
#include "companions/terminal.h"

// Lets the user choose files of one folder and writes the names file: in a window, or on the terminal where
// there is no display. Without either the present selection stays.
namespace {

using namespace tul;

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

int refuse(const std::string& why) { return companion::refuse("TULNAMES", why); }

int askTerminal(const companion::NamesRequest& request) {
    companion::FileChoice choice({});
    choice.setSuffix(request.suffix);
    choice.open(request.folder);
    if (choice.rows() == 0) return refuse("there are no such files in " + request.folder);
    std::cerr << toUtf8(request.prompt) << '\n' << toUtf8(request.folder) << '\n';
    for (std::size_t row = 0; row < choice.rows(); ++row)
        std::cerr << row + 1 << "  " << toUtf8(choice.name(row)) << '\n';
    const auto numbers = chosenNumbers(companion::askLine("Numbers (such as 1 3-5), or all: "),
                                       static_cast<int>(choice.rows()));
    if (!numbers || numbers->empty()) return refuse("nothing was chosen; the selection stays.");
    for (const int number : *numbers) choice.choose(static_cast<std::size_t>(number - 1), true);
    if (companion::warnsOfLongPaths(request.startFolder))
        std::cerr << toUtf8(companion::pathWarning(choice.longestPath())) << '\n';
    const std::string refusal = companion::writeSelection(request, choice.chosenPaths());
    return refusal.empty() ? companion::done : refuse(refusal);
}

int askInWindow(const companion::NamesRequest& request, int argc, char** argv) {
    const QApplication application(argc, argv);
    QApplication::setWindowIcon(QIcon(":/tul.png"));
    companion::NamesWindow window(request);
    return window.exec() == QDialog::Accepted ? companion::done : companion::failed;
}

}  // namespace

int main(int argc, char** argv) {
    const companion::Companion machine;
    const companion::NamesRequest request{companion::ArgumentPairs(argc, argv)};
    if (!request.isComplete()) return refuse("STARTDIR= and NAMESFILE= are needed.");
    if (companion::asksInWindow()) return askInWindow(request, argc, argv);
    if (companion::canAsk()) return askTerminal(request);
    return refuse(
        "choosing files needs a display or a terminal. The selection stays as it was; tulcmd takes "
        "files as arguments.");
}
