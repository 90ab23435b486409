#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Recovery of a damaged page. Pure computation over its bytes.
namespace tul::recovery {

/// What can be music of a page: eight times what a page can hold. Bytes behind it need not be read.
inline constexpr std::size_t mostBytes = std::size_t{1} << 20;

/// What became of a page.
struct Recovery {
    std::string page;           // the new file
    int kept = 0;               // items from the page's begin, as validation counts them
    int found = 0;              // items found again behind the damage
    int mended = 0;             // of those found: items whose length word was wrong
    int lost = 0;               // at least: one for each place where something is missing
    std::size_t lostBytes = 0;  // in those places
    bool lastIsCut = false;     // the last item kept lacks words; they are 0, or blanks in its text
    int tooLong = 0;            // items kept that SCORE may take and the tools stop at: over 20 parameters
    bool sound = false;         // nothing to be done: the new file would differ in its trailer at most

    int items() const { return kept + found; }
};

/// Keeps the first `items` items, as far as there are, looks on through the bytes behind them for runs of
/// sound items, and puts all under a new trailer. Fewer are kept only where those that begin inside them make
/// more sense, and are together no fewer.
Recovery recover(std::string_view bytes, int items);

}  // namespace tul::recovery
