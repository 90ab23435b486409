#include "edit/barline_overlaps.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <tuple>
#include <vector>

#include "edit/edit_run.h"
#include "music/items.h"
#include "music/notation.h"

namespace tul::edit {

namespace {

constexpr std::size_t indent = 64;

struct Extent {
    int item;
    float position;
    float form;
    float lowest;  // staff
    float staves;

    bool holds(const Extent& other) const {
        return other.lowest >= lowest && other.lowest + other.staves <= lowest + staves;
    }
};

Extent extentOf(int item) {
    const Parameters& barline = parsOf(item);
    const float staves = barline[par::stavesUp];
    return {.item = item,
            .position = barline[par::position],
            .form = rounded(barline[par::barlineForm]),
            .lowest = rounded(barline[par::staff]),
            .staves = staves == 0.0F ? 1.0F : rounded(staves)};
}

/// A place or form that is no number is that of no other barline.
std::vector<Extent> extentsByFormAndPlace() {
    std::vector<Extent> extents;
    for (int item = 1; item <= musItemTable.itemCount; ++item) {
        const Parameters& pars = parsOf(item);
        if (isBarline(pars) && !std::isnan(pars[par::position]) && !std::isnan(pars[par::barlineForm]))
            extents.push_back(extentOf(item));
    }
    std::sort(extents.begin(), extents.end(), [](const Extent& a, const Extent& b) {
        return std::tie(a.form, a.position, a.item) < std::tie(b.form, b.position, b.item);
    });
    return extents;
}

/// Removes the second of the pair, in the order of the table, when it is in the first. The first of a pair
/// stays, and one that is removed removes others all the same.
void removeContained(const Extent& one, const Extent& other, std::int32_t& removed) {
    const bool isInOrder = one.item < other.item;
    const Extent& first = isInOrder ? one : other;
    const Extent& second = isInOrder ? other : one;
    if (!first.holds(second)) return;
    deleteItem(musItemTable[second.item]);
    countChange(removed);
}

class OverlapRun : public FamilyRun {
  public:
    void updateFile(const PageInRun& page) override;
};

/// One that is in several others is counted with each of them.
void OverlapRun::updateFile(const PageInRun& page) {
    showActivity("Updating");
    std::int32_t removed = 0;
    const std::vector<Extent> extents = extentsByFormAndPlace();
    for (auto one = extents.begin(); one != extents.end(); ++one)
        for (auto other = one + 1; other != extents.end() && other->form == one->form &&
                                   isNear(other->position, one->position, barlinePlace);
             ++other)
            removeContained(*one, *other, removed);
    page.report.line(std::string(indent, ' ') + "Overlapping barlines removed: " + plain(removed));
}

std::vector<Command> commands() {
    Command overlaps = onSelection("cmdRemoveOverlaps", "Remove short overlaps", cmdRemoveOverlaps);
    overlaps.toolTip =
        "This function is provided since Score to XML conversion does not allow overlapping barlines. ";
    return {overlaps};
}

}  // namespace

const Family barlineOverlapsFamily = {
    .tab = tabBarline,
    .commands = commands,
};

void cmdRemoveOverlaps() {
    runToReport("TUL Edit run (Removing smaller overlapping barlines) ", std::make_unique<OverlapRun>());
}

}  // namespace tul::edit
