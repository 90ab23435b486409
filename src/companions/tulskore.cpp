#include "companions/companion.h"

// Opens SCORE without a page.
int main() {
    using namespace tul;
    const companion::Companion machine;
    return companion::openScore("TULSKORE", {});
}
