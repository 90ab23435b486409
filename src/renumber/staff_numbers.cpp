#include "renumber/staff_numbers.h"

#include <array>
#include <optional>
#include <string>

#include "base/numbers.h"
#include "base/text.h"
#include "centre/names_file.h"
#include "music/items.h"
#include "renumber/renumber_run.h"

namespace tul::renumber {

namespace {

constexpr int highestNumber = 256;

/// What stands for an item's staff number: the whole number nearest to it; nothing outside 1 to 256.
std::optional<std::size_t> staffOf(ItemPars item) {
    const float staff = rounded(item[par::staff]);
    if (!(staff >= 1.0F && staff <= highestNumber)) return std::nullopt;
    return static_cast<std::size_t>(staff);
}

/// The staves of the page in the table, and their new numbers.
class StaffNumbers {
  public:
    StaffNumbers() {
        for (int item = 1; item <= musItemTable.itemCount; ++item)
            if (const auto staff = isStaff(parsOf(item)) ? staffOf(parsOf(item)) : std::nullopt)
                numbers_[*staff] = 1;
        for (int& number : numbers_)
            if (number != 0) number = ++count_;
    }

    int count() const { return count_; }
    /// From 1; 0 for a staff that has no item.
    int newNumber(std::size_t staff) const { return numbers_[staff]; }
    /// Such as "2, 5, 9 -> 1, 2, 3".
    std::string text() const;

  private:
    std::array<int, highestNumber + 1> numbers_ = {};
    int count_ = 0;
};

std::string StaffNumbers::text() const {
    std::string before;
    std::string behind;
    for (std::size_t staff = 1; staff < numbers_.size(); ++staff) {
        if (numbers_[staff] == 0) continue;
        before += (before.empty() ? "" : ", ") + plain(staff);
        behind += (behind.empty() ? "" : ", ") + plain(numbers_[staff]);
    }
    if (before == behind) return "staff numbers stay, 1 to " + plain(count_);
    return before + " -> " + behind;
}

/// Items of a page that stand on no staff item.
struct StrayItems {
    int deleted = 0;
    int moved = 0;  // to the nearest whole staff
    int passedOver = 0;
};

StrayItems strayItems(const StaffNumbers& staves) {
    StrayItems stray;
    for (int item = 1; item <= musItemTable.itemCount; ++item) {
        const auto staff = staffOf(parsOf(item));
        if (!staff)
            ++stray.passedOver;
        else if (staves.newNumber(*staff) == 0)
            ++stray.deleted;
        else if (parsOf(item)[par::staff] != static_cast<float>(*staff))
            ++stray.moved;
    }
    return stray;
}

/// A run that tells of the items it has passed over.
class StaffRun : public ToldRun {
  protected:
    void notePassedOver(const PageInRun& page, int items) {
        if (items == 0) return;
        passedOver_ += (passedOver_.empty() ? "" : ", ") + std::string(fileNameOf(page.result.path)) + " (" +
                       plain(items) + ")";
    }
    std::string remarks() const override {
        if (passedOver_.empty()) return {};
        return std::string(CrLf) + "Items on no staff from 1 to 256, left as they are: " + passedOver_;
    }

  private:
    std::string passedOver_;
};

class StaffRenumbering : public StaffRun {
  protected:
    void updatePage(const PageInRun& page) override;
};

/// False for an item that has that staff already. 0 stands for no staff: the item goes.
bool giveStaff(ItemRow& row, int number) {
    if (number == 0) {
        deleteItem(row);
        return true;
    }
    const auto staff = static_cast<float>(number);
    bool isChanged = row.pars[par::staff] != staff;
    row.pars[par::staff] = staff;
    if (isStaff(row)) {
        isChanged = isChanged || row.pars[par::height] != 0.0F;
        row.pars[par::height] = 0.0F;
    }
    return isChanged;
}

void StaffRenumbering::updatePage(const PageInRun& page) {
    showActivity("Updating");
    const StaffNumbers staves;
    if (staves.count() == 0) {
        if (musItemTable.itemCount == 0) return;  // nothing was read, and nothing is written
        page.result.reason = "it has no staff, and would lose all its items";
        return;
    }
    int passedOver = 0;
    for (int item = 1; item <= musItemTable.itemCount; ++item) {
        ItemRow& row = musItemTable[item];
        const auto staff = staffOf(row);
        if (!staff) {
            ++passedOver;
            continue;
        }
        if (giveStaff(row, staves.newNumber(*staff))) ++page.result.changes;
    }
    notePassedOver(page, passedOver);
}

class PartNumbering : public StaffRun {
  protected:
    void updatePage(const PageInRun& page) override;
};

void PartNumbering::updatePage(const PageInRun& page) {
    showActivity("Updating");
    int number = 0;
    int passedOver = 0;
    for (int item = musItemTable.itemCount; item >= 1; --item) {
        ItemRow& row = musItemTable[item];
        if (!isStaff(row)) continue;
        if (!staffOf(row)) {
            ++passedOver;
            continue;
        }
        const auto id = static_cast<float>(++number);
        if (row.pars[par::instrument] != id) ++page.result.changes;
        row.pars[par::instrument] = id;
    }
    notePassedOver(page, passedOver);
}

}  // namespace

void RenumberStaff() {
    ReadNamesFile();
    StaffRenumbering run;
    startRun(run);
}

void previewStaffNumbers() {
    previewPages("Staff numbers", [](const std::string&) -> std::string {
        const StaffNumbers staves;
        if (staves.count() == 0) return "has no staff, stays as it is";
        const StrayItems stray = strayItems(staves);
        std::string text = staves.text();
        if (stray.deleted > 0) text += "; items deleted: " + plain(stray.deleted);
        if (stray.moved > 0) text += "; items put on whole staves: " + plain(stray.moved);
        if (stray.passedOver > 0) text += "; items on no staff from 1 to 256: " + plain(stray.passedOver);
        return text;
    });
}

void cmdRenumberParts() {
    ReadNamesFile();
    PartNumbering run;
    startRun(run);
}

}  // namespace tul::renumber
