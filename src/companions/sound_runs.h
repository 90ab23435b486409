#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "music/mus_reader.h"

/// Where a page's bytes read as music, whatever their offset.
namespace tul::recovery {

inline constexpr int longestTextItem = textItemPars + 255;  // parameters and words of text

/// An item of so many parameters in bytes, its length word among them.
constexpr std::size_t lengthOf(int parameters) {
    return wordBytes * (static_cast<std::size_t>(parameters) + 1);
}

/// The word at a byte offset; all four bytes must be there.
float wordAt(std::string_view bytes, std::size_t at);

/// Byte offsets of an item in the file. The end is where its length word says, and may lie behind the music.
struct ItemPlace {
    std::size_t begin = 0;
    std::size_t end = 0;
};

/// Where the items of a page end.
struct PageEnd {
    std::size_t at = 0;
    int trailerWords = 0;     // 6 or 5; 0 without a whole trailer
    bool cutTrailer = false;  // only the first words of a trailer are there
    bool metric = false;

    bool hasTrailer() const { return trailerWords > 0 || cutTrailer; }
};
/// The last trailer, at any offset; without one the end of the bytes.
PageEnd findEnd(std::string_view bytes);

/// How much a choice of items covers.
struct Cover {
    std::int32_t bytes = 0;
    std::int32_t items = 0;
};

/// The runs of sound items: at least three that follow one another and make sense by length, code, staff and
/// values, or fewer that end at the trailer. Of all choices the one that covers the most bytes is taken, so
/// that an item that is read into the middle of another displaces nothing. Linear in time and memory.
class SoundRuns {
  public:
    SoundRuns(std::string_view bytes, const PageEnd& end);

    /// True when the item by itself makes sense and lies wholly in the music.
    bool isSound(const ItemPlace& item) const;
    /// True when an item that begins here would make sense if its length word were this.
    bool isSoundWith(std::size_t at, int parameters) const;
    /// What the runs that begin at this offset or behind it cover, and their items in the file's order.
    Cover coverFrom(std::size_t at) const;
    std::vector<ItemPlace> from(std::size_t at) const;
    /// Where the first of them begins, or the trailer, if it is no farther than an item can be long.
    std::optional<std::size_t> beginOfNext(std::size_t at) const;

  private:
    std::uint16_t soundLength(std::size_t at) const;
    Cover inRun(std::size_t at, int itemsBefore) const;
    Cover with(std::size_t at, int itemsBefore) const;

    std::string_view bytes_;
    PageEnd end_;
    std::vector<std::uint16_t> lengths_;  // by offset: bytes of the sound item there; 0 for none
    std::vector<Cover> outside_;          // by offset: the best from there on, with no run going on
    std::vector<Cover> inside_;           // the same within a run that is long enough
};

}  // namespace tul::recovery
