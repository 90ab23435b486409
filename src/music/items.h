#pragma once

#include <cmath>

#include "base/numbers.h"
#include "music/item_names.h"
#include "music/item_table.h"

/// What an item is, by its code, which is compared exactly: 16.5 is no text.
namespace tul {

/// A row of the table, or its parameters alone.
class ItemPars {
  public:
    ItemPars(const ItemRow& row) : pars_(row.pars) {}
    ItemPars(const Parameters& pars) : pars_(pars) {}

    float operator[](int number) const { return pars_[number]; }

  private:
    const Parameters& pars_;
};

inline bool isNote(ItemPars item) { return item[par::code] == code::note; }
inline bool isRest(ItemPars item) { return item[par::code] == code::rest; }
inline bool isClef(ItemPars item) { return item[par::code] == code::clef; }
inline bool isLine(ItemPars item) { return item[par::code] == code::line; }
inline bool isSlur(ItemPars item) { return item[par::code] == code::slur; }
inline bool isBeam(ItemPars item) { return item[par::code] == code::beam; }
inline bool isStaff(ItemPars item) { return item[par::code] == code::staff; }
inline bool isSymbol(ItemPars item) { return item[par::code] == code::symbol; }
inline bool isNumber(ItemPars item) { return item[par::code] == code::number; }
inline bool isBarline(ItemPars item) { return item[par::code] == code::barline; }
inline bool isText(ItemPars item) { return item[par::code] == code::text; }
inline bool isDeleted(ItemPars item) { return item[par::code] == deletedItem; }

/// Of the item in the table.
inline const Parameters& parsOf(int item) { return musItemTable[item].pars; }

/// The writers leave a deleted row out; the table keeps it.
inline void deleteItem(ItemRow& row) { row.pars[par::code] = deletedItem; }

inline bool onSameStaff(ItemPars item, ItemPars other) { return item[par::staff] == other[par::staff]; }
/// On one staff, and no farther apart than the margin has it.
inline bool samePlace(ItemPars item, ItemPars other, Margin margin) {
    return onSameStaff(item, other) && isNear(item[par::position], other[par::position], margin);
}

/// By staff, from left to right. Items whose staff or position is no number have no order.
inline bool standsBefore(ItemPars item, ItemPars other) {
    if (item[par::staff] != other[par::staff]) return item[par::staff] < other[par::staff];
    return item[par::position] < other[par::position];
}
inline bool hasPlace(ItemPars item) {
    return !std::isnan(item[par::staff]) && !std::isnan(item[par::position]);
}

/// The highest parameter that is not 0, of those up to `last`; 0 without one.
inline int lastUsedPar(ItemPars item, int last = Parameters::count) {
    while (last > 0 && item[last] == 0.0F) --last;
    return last;
}

/// A size without the hundreds that say how the text is set.
inline float withoutHundreds(float size) {
    constexpr float hundred = 100.0F;
    return size >= hundred ? std::fmod(size, hundred) : size;
}

}  // namespace tul
