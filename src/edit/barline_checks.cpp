#include "edit/barline_checks.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "edit/staff_rows.h"
#include "music/bar_file.h"
#include "music/items.h"
#include "music/notation.h"

namespace tul::edit {

namespace {

constexpr int farthestPosition = 200;
constexpr float bottomStaff = 1.0F;  // mark of a staff
constexpr float unmarked = 0.0F;     // a staff above the bottom of its system, a barline that divides bars

/// A number for each horizontal position and staff. What is stored outside is dropped.
class BarlineGrid {
  public:
    /// By rounded numbers.
    float& cell(float position, float staff) {
        const int x = within(position, farthestPosition);
        const int row = within(staff, highestStaff);
        return x == 0 || row == 0 ? dropped_ : cells_[index(x, row)];
    }
    float at(int position, int staff) const { return cells_[index(position, staff)]; }
    void clear() { std::fill(cells_.begin(), cells_.end(), 0.0F); }

    /// At all positions of the staff, which may be outside.
    bool isEmptyOn(float staff) const {
        const int row = within(staff, highestStaff);
        for (int x = 1; row != 0 && x <= farthestPosition; ++x)
            if (at(x, row) != 0.0F) return false;
        return true;
    }
    /// At the position, on staves up to the top.
    bool isEmptyAt(int position, int staff, float top) const {
        for (; static_cast<float>(staff) <= top; ++staff)
            if (at(position, staff) != 0.0F) return false;
        return true;
    }
    bool isSameAt(int position, int other, int staff, float top) const {
        for (; static_cast<float>(staff) <= top; ++staff)
            if (at(position, staff) != at(other, staff)) return false;
        return true;
    }

  private:
    /// 0 outside of 1 to `last`.
    static int within(float value, int last) {
        const int number = toInt32(value).value_or(0);
        return number >= 1 && number <= last ? number : 0;
    }
    static std::size_t index(int position, int staff) {
        return static_cast<std::size_t>((position - 1) * highestStaff + staff - 1);
    }

    std::vector<float> cells_ = std::vector<float>(std::size_t{farthestPosition} * highestStaff);
    float dropped_ = 0.0F;
};

/// Staves that a barline spans; one that says no number spans none.
float extentOf(const Parameters& barline) {
    const float staves = rounded(barline[par::stavesUp]);
    if (std::isnan(staves)) return 0.0F;
    return staves == 0.0F ? 1.0F : staves;
}

/// Barlines of one staff and form that stand behind the one that is looked at, the next of them last.
struct BarlinesBehind {
    std::vector<int> items;
    bool isSorted = true;  // by position, so that behind one that is not near none is
};

/// The highest staff of the page, rounded; 0 without one.
float topStaff() {
    float top = 0.0F;
    for (int item = 1; item <= musItemTable.itemCount; ++item)
        if (const Parameters& staff = parsOf(item); isStaff(staff))
            top = std::max(top, rounded(staff[par::staff]));  // stays where that is no number
    return top;
}

class BarlineChecks {
  public:
    explicit BarlineChecks(Report& report) : report_(report) {}
    std::int32_t findings();

  private:
    void find(const std::string& text);
    void findDuplicatesOf(int item, BarlinesBehind& behind);
    void findDuplicates();
    void findBottomsWithoutBarlines();
    void countBarline(const Parameters& barline);
    void findStavesWithoutBarlines();
    void findOverlaps();
    void findAboveTop();
    void compareSystem(int bottom, float staves);
    void compareSystems();

    Report& report_;
    std::int32_t findings_ = 0;
    std::vector<int> barlines_;  // behind the search for duplicates
    BarlineGrid grid_;
    const StaffRows staves_ = StaffRows(isStaff);
    const float top_ = topStaff();
};

/// Those that divide bars, on staves 1 to 32, in the order of the table.
std::vector<int> unmarkedBarlines() {
    std::vector<int> items;
    for (int item = 1; item <= musItemTable.itemCount; ++item) {
        const Parameters& pars = parsOf(item);
        if (isBarline(pars) && pars[par::mark] == unmarked && pars[par::staff] >= 1.0F &&
            pars[par::staff] <= highestStaff)
            items.push_back(item);
    }
    return items;
}

void BarlineChecks::find(const std::string& text) {
    report_.line("     " + text);
    ++findings_;
}

/// Those that are near are told and deleted in memory, so that they are told once. The page is not written.
void BarlineChecks::findDuplicatesOf(int item, BarlinesBehind& behind) {
    const float position = parsOf(item)[par::position];
    std::vector<int>& items = behind.items;
    // Positions and staves that are no numbers keep the table from being sorted.
    if (!items.empty() && !(position <= parsOf(items.back())[par::position])) behind.isSorted = false;
    for (std::size_t i = items.size(); i-- > 0;) {
        ItemRow& other = musItemTable[items[i]];
        if (isNear(position, other.pars[par::position], barlinePlace)) {
            find("Duplicate barline at staff" + printed(other.pars[par::staff]) +
                 "Horizontal position=" + printed(other.pars[par::position]));
            deleteItem(other);
            items.erase(items.begin() + static_cast<std::ptrdiff_t>(i));
        } else if (behind.isSorted) {
            break;
        }
    }
    items.push_back(item);
}

void BarlineChecks::findDuplicates() {
    std::map<std::pair<float, float>, BarlinesBehind> byStaffAndForm;
    for (int item = musItemTable.itemCount; item >= 1; --item) {
        const Parameters& pars = parsOf(item);
        const float staff = pars[par::staff];
        const float form = pars[par::barlineForm];
        if (isBarline(pars) && !std::isnan(staff) && !std::isnan(form))
            findDuplicatesOf(item, byStaffAndForm[{staff, form}]);
    }
    barlines_ = unmarkedBarlines();
}

void BarlineChecks::findBottomsWithoutBarlines() {
    StaffRows barred;
    for (const int item : barlines_) barred.add(item);
    for (int staff = 1; staff <= highestStaff; ++staff)
        for (const int item : staves_.on(staff))
            if (parsOf(item)[par::mark] == bottomStaff && barred.on(staff).empty())
                find("No barline(s) on bottom staff of system. Staff=" + printed(staff));
}

/// One in the grid on each of the barline's staves, from the one that its own rounds to.
void BarlineChecks::countBarline(const Parameters& barline) {
    const double extent = extentOf(barline);
    const float lowest = rounded(barline[par::staff]);
    for (int up = 0; up < extent; ++up) {  // at most to the highest staff
        const float staff = lowest + static_cast<float>(up);
        if (staff > highestStaff)
            return find("Barline protruding staff 32. Staff=" + printed(barline[par::staff]) +
                        "Horizontal position=" + printed(barline[par::position]) +
                        "Staves Up=" + printed(barline[par::stavesUp]));
        ++grid_.cell(barline[par::position], staff);
    }
}

void BarlineChecks::findStavesWithoutBarlines() {
    for (int item = 1; item <= musItemTable.itemCount; ++item) {
        const Parameters& staff = parsOf(item);
        if (isStaff(staff) && staff[par::mark] == unmarked && staff[par::staff] >= 1.0F &&
            staff[par::staff] <= top_ && grid_.isEmptyOn(staff[par::staff]))
            find("Staff which is not bottom of system has no barlines:" + printed(staff[par::staff]));
    }
}

void BarlineChecks::findOverlaps() {
    for (int staff = 1; staff <= highestStaff; ++staff)
        for (int x = 1; x <= farthestPosition; ++x)
            if (grid_.at(x, staff) > 1.0F)
                find("Barlines overlap at staff" + printed(staff) + "Horizontal position=" + printed(x));
}

void BarlineChecks::findAboveTop() {
    if (top_ >= highestStaff) return;
    for (int staff = static_cast<int>(top_) + 1; staff <= highestStaff; ++staff)
        for (int x = 1; x <= farthestPosition; ++x)
            if (grid_.at(x, staff) != 0.0F)
                find("Barline protruding highest staff. Horizontal position=" + printed(x));
}

/// Each position is compared with the last one that had other barlines. Where the mark of the staff comes
/// from the file, its system may have no staves, or no number of them: then nothing is compared.
void BarlineChecks::compareSystem(int bottom, float staves) {
    const float top = std::min((static_cast<float>(bottom) + staves) - 1.0F, float{highestStaff});
    int reference = 0;
    for (int x = 1; x <= farthestPosition; ++x) {
        if (grid_.isEmptyAt(x, bottom, top)) continue;
        if (reference != 0 && grid_.isSameAt(reference, x, bottom, top)) continue;
        if (reference != 0)
            find("Barline configuration error on system with bottom staff" + printed(bottom) +
                 "Horizontal position=" + printed(reference) + "and" + printed(x));
        reference = x;
    }
}

/// The grid holds extents now, the last of several at a place.
void BarlineChecks::compareSystems() {
    grid_.clear();
    for (const int item : barlines_) {
        const Parameters& barline = parsOf(item);
        grid_.cell(barline[par::position], barline[par::staff]) = extentOf(barline);
    }
    for (int bottom = 1; bottom <= highestStaff; ++bottom)
        for (const int item : staves_.on(bottom))
            if (const Parameters& staff = parsOf(item); staff[par::mark] == bottomStaff)
                compareSystem(bottom, staff[par::systemStaves]);
}

std::int32_t BarlineChecks::findings() {
    findDuplicates();
    findBottomsWithoutBarlines();
    for (const int item : barlines_) countBarline(parsOf(item));
    findStavesWithoutBarlines();
    findOverlaps();
    findAboveTop();
    compareSystems();
    return findings_;
}

}  // namespace

std::int32_t VerifyBarlines(Report& report) { return BarlineChecks(report).findings(); }

}  // namespace tul::edit
