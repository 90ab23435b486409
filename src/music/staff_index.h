#pragma once

#include <cstddef>
#include <vector>

#include "base/numbers.h"
#include "music/items.h"

/// Items of one kind by staff and position, so that those about a position are found without a look at all.
namespace tul {

/// Where an item stands, and its row.
struct Place {
    float staff;
    float position;
    int row;
};
inline Place placeOf(ItemPars item, int row) { return {item[par::staff], item[par::position], row}; }

/// Neighbours in an index.
struct PlaceRange {
    std::size_t begin = 0;
    std::size_t end = 0;

    [[nodiscard]] bool isEmpty() const { return begin >= end; }
};

/// Staves and positions count as the same only when they are equal as parameters. What is no number is
/// nowhere: such items are left out, and where a range is asked for there is none.
class StaffIndex {
  public:
    explicit StaffIndex(std::vector<Place> places);

    [[nodiscard]] std::size_t size() const { return places_.size(); }
    const Place& operator[](std::size_t place) const { return places_[place]; }

    [[nodiscard]] PlaceRange at(float staff, float position) const;
    /// No farther from a position than the margin has it.
    [[nodiscard]] PlaceRange near(float staff, float position, Margin margin) const;
    /// Right of one position and left of another.
    [[nodiscard]] PlaceRange between(float staff, float left, float right) const;

  private:
    [[nodiscard]] PlaceRange on(float staff) const;

    std::vector<Place> places_;
};

/// The notes of the table, as they are when it is called.
[[nodiscard]] StaffIndex notesByPlace();

}  // namespace tul
