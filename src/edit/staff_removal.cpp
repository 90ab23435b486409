#include "edit/staff_removal.h"

#include <algorithm>
#include <unordered_set>

#include "base/text.h"
#include "edit/edit_run.h"
#include "edit/instrument_ids.h"
#include "music/items.h"

namespace tul::edit {

StaffRemoval staffRemoval;

namespace {

/// What stands between two commas is passed over where it has no digit: it is no 0.
std::vector<float> listedIds() {
    std::vector<float> ids;
    std::string piece;
    for (const char character : staffRemoval.txtRemoveStaves + ',') {
        if (character != ',') {
            piece += character;
            continue;
        }
        if (holdsNumber(piece)) ids.push_back(numberOf(piece));
        piece.clear();
    }
    return ids;
}

class StaffRemovalRun : public FamilyRun {
  public:
    void updateFile(const PageInRun&) override;
    void writeCounters(Report& report, const RunResult&) const override {
        writeCounter(report, "Number of staves removed. . . . . . . . ", removed_);
    }

  private:
    bool stays(const ItemRow& staff) const {
        return std::find(kept_.begin(), kept_.end(), staff.pars[par::instrument]) != kept_.end();
    }

    const std::vector<float> kept_ = listedIds();
    std::int32_t removed_ = 0;
};

/// A staff of which one item stays goes all the same when another one has to go. A number beyond 32 bits is
/// none that a staff could have.
void StaffRemovalRun::updateFile(const PageInRun&) {
    std::unordered_set<float> leaving;
    forEachItem([&](int, const ItemRow& row) {
        if (!isStaff(row) || stays(row)) return;
        if (const auto staff = toInt32(row.pars[par::staff])) leaving.insert(static_cast<float>(*staff));
    });
    forEachItem([&](int, ItemRow& row) {
        if (!leaving.contains(row.pars[par::staff])) return;
        if (isStaff(row)) countChange(removed_);
        deleteItem(row);
    });
}

bool mayRun() { return !listedIds().empty() || refuse("No instrument IDs were specified"); }

std::vector<Field> fields() {
    return {
        optionField("fraEditStaff", "optEditStaffIRemove", staffRemoval.optEditStaffIRemove),
        readIf(textField("txtRemoveStaves", staffRemoval.txtRemoveStaves,
                         "Separate numeric instrument IDs by commas.", keepRemoveStaves),
               [] { return staffRemoval.optEditStaffIRemove; }),
    };
}

}  // namespace

const Family staffRemovalFamily = {
    .tab = tabStaff,
    .fields = fields,
    .reset = [] { staffRemoval = {}; },
    .isChosen = [] { return staffRemoval.optEditStaffIRemove; },
    .mayRun = mayRun,
    .begin = beginRun<StaffRemovalRun>,
};

std::string keepRemoveStaves(const std::string& typed) {
    if (typed.find_first_not_of("0123456789,.") == std::string::npos) return typed;
    return keepInstead({},
                       "Invalid character in string. Only digits, decimal points, and commas are allowed. "
                       "Assumed blank");
}

}  // namespace tul::edit
