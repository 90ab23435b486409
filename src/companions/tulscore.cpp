#include "base/text.h"
#include "companions/companion.h"

// Opens SCORE with the page that stands before the first comma of the argument; a full stop stands for none.
int main(int argc, char** argv) {
    using namespace tul;
    const companion::Companion machine;
    const std::string words = companion::joinedWords(argc, argv);
    const std::string page(splitAtFirst(words, ',').before);
    return companion::openScore("TULSCORE", page == "." ? std::string() : page);
}
