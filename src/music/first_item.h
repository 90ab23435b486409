#pragma once

#include <array>
#include <limits>
#include <vector>

#include "music/staff_index.h"

/// Many items may stand at one place and only the first of them in the table count. This finds it for any
/// number of questions at once, without a look at each item for each question.
namespace tul {

/// What items are compared by beside their places, in the order of its parts. One with a part that is no
/// number fits nothing.
using ItemKey = std::array<float, 3>;

/// An item of an index that may be found.
struct KeyedPlace {
    std::size_t place;
    ItemKey key;
};
/// Asks for one of some items.
struct FirstQuestion {
    PlaceRange places;
    ItemKey key;
};
enum class KeyFit {
    same,   // the item's key is that of the question
    below,  // it comes before that of the question
};

/// Behind all rows.
inline constexpr int noRow = std::numeric_limits<int>::max();

/// For each question the least row of the items whose places and keys fit, or `noRow`.
[[nodiscard]] std::vector<int> firstRows(const StaffIndex& index, std::vector<KeyedPlace> items,
                                         const std::vector<FirstQuestion>& questions, KeyFit fit);

}  // namespace tul
