#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/index_fault.h"
#include "music/mus_reader.h"

/// The items of one music file in memory, where the tools change them.
namespace tul {

/// One item of the table.
struct ItemRow {
    Parameters pars;
    std::string text;
};

/// The one table, shared by all tools, one file at a time. Rows count from 1; a row outside 1 to 2000 throws
/// `IndexFault`. It is allocated once, and rows behind the item count keep what an earlier file left in them.
class MusItemTable {
  public:
    static constexpr int capacity = 2000;

    std::int16_t itemCount = 0;

    const ItemRow& operator[](int item) const { return rows_[position(item)]; }
    ItemRow& operator[](int item) { return rows_[position(item)]; }

  private:
    static std::size_t position(int item) {
        if (item < 1 || item > capacity) throw IndexFault();
        return static_cast<std::size_t>(item - 1);
    }

    std::vector<ItemRow> rows_ = std::vector<ItemRow>(capacity);
};

extern MusItemTable musItemTable;

/// Par 1 of a row that the writers skip.
inline constexpr float deletedItem = 999.0F;

/// Appends an item to the table. The 2001st ends the program: nothing is written then, and the file stays as
/// it was. Rows stay where they are.
void appendItem(const ItemRow& row);

/// The same with the current item, `musItem`.
void MusStoreItem();
/// The same for the bar tools, in their words.
void MusStoreBarItem();

}  // namespace tul
