#pragma once

#include <map>
#include <utility>
#include <vector>

#include "music/items.h"

/// Which items of the table stand on which staff.
namespace tul::edit {

/// Staves above one, up to and with another. It may be empty.
struct StaffSpan {
    float above;
    float top;
};

/// Rows of the table by staff, those of one staff in the order of the table. An item whose staff is no number
/// is on none.
class StaffRows {
  public:
    StaffRows() = default;
    /// Of the items that belong to it, as the table is now.
    template <class Belongs>
    explicit StaffRows(Belongs belongs) {
        for (int item = 1; item <= musItemTable.itemCount; ++item)
            if (belongs(ItemPars(parsOf(item)))) add(item);
    }

    /// The last row of the table so far.
    void add(int item);
    [[nodiscard]] const std::vector<int>& on(float staff) const;
    [[nodiscard]] const std::vector<int>& on(int staff) const { return on(static_cast<float>(staff)); }
    /// In the order of the table.
    [[nodiscard]] std::vector<int> within(StaffSpan span) const;
    /// The same, and they are no longer in the index.
    std::vector<int> take(StaffSpan span);
    /// The lowest staff above one that has an item; `otherwise` where none has.
    [[nodiscard]] float nextAbove(float staff, float otherwise) const;

  private:
    using Staves = std::map<float, std::vector<int>>;
    [[nodiscard]] std::pair<Staves::const_iterator, Staves::const_iterator> rangeOf(StaffSpan span) const;

    Staves staves_;
};

}  // namespace tul::edit
