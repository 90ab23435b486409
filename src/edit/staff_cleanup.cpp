#include "edit/staff_cleanup.h"

#include <algorithm>
#include <cmath>
#include <unordered_set>

#include "base/text.h"
#include "edit/edit_run.h"
#include "music/items.h"

namespace tul::edit {

namespace {

constexpr float lowestStaff = 1.0F;
constexpr float leftEdge = 0.0F;
constexpr float rightEdge = 200.0F;
constexpr float marked = 1.0F;
constexpr int seventhPar = 7;  // of a rest its duration

/// A staff that is there for a clef or a name only.
bool isStub(ItemPars staff) {
    return staff[par::position] == leftEdge && staff[par::endPosition] >= 7.0F &&
           staff[par::endPosition] <= 14.0F;
}

bool isSystemBarline(ItemPars item, ItemPars staff) {
    return isBarline(item) && samePlace(item, staff, atMost(1.0F)) && item[par::barlineForm] <= 7.0F;
}

bool hasSystemBarline() {
    std::vector<const ItemRow*> staves;
    std::vector<const ItemRow*> barlines;
    forEachItem([&](int, const ItemRow& row) {
        if (row.pars[par::staff] != lowestStaff) return;
        if (isStaff(row)) staves.push_back(&row);
        if (isBarline(row)) barlines.push_back(&row);
    });
    return std::any_of(barlines.begin(), barlines.end(), [&](const ItemRow* barline) {
        return std::any_of(staves.begin(), staves.end(),
                           [&](const ItemRow* staff) { return isSystemBarline(*barline, *staff); });
    });
}

void markStavesBehindStubs() {
    std::unordered_set<float> withStub;
    forEachItem([&](int, const ItemRow& row) {
        if (isStaff(row) && isStub(row)) withStub.insert(row.pars[par::staff]);
    });
    forEachItem([&](int, ItemRow& row) {
        if (isStaff(row) && row.pars[par::position] > 10.0F && withStub.contains(row.pars[par::staff]))
            row.pars[par::mark] = marked;
    });
}

/// Of several clefs of a kind on a staff, with no other between, the leftmost stays.
void removeRepeatedClefs() {
    std::vector<ItemRow*> clefs;
    forEachItem([&](int, ItemRow& row) {
        if (isClef(row) && hasPlace(row)) clefs.push_back(&row);
    });
    std::stable_sort(clefs.begin(), clefs.end(),
                     [](const ItemRow* a, const ItemRow* b) { return standsBefore(*a, *b); });
    for (std::size_t i = 1; i < clefs.size(); ++i) {
        if (!onSameStaff(*clefs[i - 1], *clefs[i])) continue;
        if (clefs[i - 1]->pars[par::clefForm] != clefs[i]->pars[par::clefForm]) continue;
        deleteItem(*clefs[i]);
        ++pipeline.page.changes;
    }
}

void cleanStaff(ItemRow& row) {
    Parameters& pars = row.pars;
    if (pars[par::position] > 1.0F) {
        pars[par::position] = leftEdge;
    } else if (!isStub(row)) {
        pars[par::endPosition] = rightEdge;
    } else if (pars[par::mark] == marked) {
        deleteItem(row);
    } else {
        pars[par::mark] = 0.0F;
        return;
    }
    ++pipeline.page.changes;
}

void makePositive(float& par) { par = std::fabs(par); }

class StaffCleanupRun : public FamilyRun {
  public:
    void updateFile(const PageInRun& page) override {
        if (!hasSystemBarline())
            MsgBox("No system barline found on staff 1." + std::string(CrLf) + page.result.path);
        markStavesBehindStubs();
        removeRepeatedClefs();
        forEachItem([](int, ItemRow& row) {
            if (isRest(row)) makePositive(row.pars[par::restDots]);
            if (isStaff(row)) cleanStaff(row);
            if (isRest(row) || isStaff(row)) makePositive(row.pars[seventhPar]);
        });
    }
};

std::vector<Command> commands() {
    return {forDevelopers(onSelection("cmdTessler", "Tessler", [] {
        runToMessage("Total number of Tessler changes: ", std::make_unique<StaffCleanupRun>());
    }))};
}

}  // namespace

const Family staffCleanupFamily = {.tab = tabSpecial, .commands = commands};

}  // namespace tul::edit
