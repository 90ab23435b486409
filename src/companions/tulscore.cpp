#include "base/text.h"
#include "companions/companion.h"
#include "host/talk.h"

// Opens SCORE with the page that stands before two commas; a full stop stands for none.
int main(int argc, char** argv) {
    using namespace tul;
    const companion::Companion machine;
    const std::string words = argumentText(argc, argv);
    const std::string page = words.substr(0, words.find(",,"));
    const bool needsDos = containsIgnoringCase(words, ",,FORCEDOSVERSION=YES");
    return companion::openScore("TULSCORE", page == "." ? std::string() : page,
                                needsDos ? companion::ScoreKind::dos : companion::ScoreKind::any);
}
