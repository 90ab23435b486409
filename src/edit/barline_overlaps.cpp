#include "edit/barline_overlaps.h"

#include <algorithm>
#include <cmath>
#include <tuple>

#include "edit/edit_run.h"
#include "music/items.h"

namespace tul::edit {

namespace {

constexpr Margin samePosition = lessThan(0.5F);
constexpr std::size_t indent = 64;

float rounded(float value) { return static_cast<float>(roundToEven(value)); }

struct Extent {
    int item;
    float position;
    float form;
    float lowest;  // staff
    float staves;

    explicit Extent(int row)
        : item(row),
          position(parsOf(row)[par::position]),
          form(rounded(parsOf(row)[par::barlineForm])),
          lowest(rounded(parsOf(row)[par::staff])),
          staves(parsOf(row)[par::stavesUp] == 0.0F ? 1.0F : rounded(parsOf(row)[par::stavesUp])) {}

    bool holds(const Extent& other) const {
        return other.lowest >= lowest && other.lowest + other.staves <= lowest + staves;
    }

  private:
    static const Parameters& parsOf(int row) { return musItemTable[row].pars; }
};

/// A place or form that is no number is that of no other barline.
std::vector<Extent> extentsByFormAndPlace() {
    std::vector<Extent> extents;
    for (int item = 1; item <= musItemTable.itemCount; ++item)
        if (const Extent extent(item);
            isBarline(musItemTable[item]) && !std::isnan(extent.position) && !std::isnan(extent.form))
            extents.push_back(extent);
    std::sort(extents.begin(), extents.end(), [](const Extent& a, const Extent& b) {
        return std::tie(a.form, a.position, a.item) < std::tie(b.form, b.position, b.item);
    });
    return extents;
}

/// Removes the second of the pair, in the order of the table, when it is in the first. The first of a pair
/// stays, and one that is removed removes others all the same.
void removeContained(const Extent& one, const Extent& other, std::int32_t& removed) {
    const auto& [first, second] =
        std::minmax(one, other, [](const Extent& a, const Extent& b) { return a.item < b.item; });
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
                                   isNear(other->position, one->position, samePosition);
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
    runWithReport<OverlapRun>("TUL Edit run (Removing smaller overlapping barlines)");
}

}  // namespace tul::edit
