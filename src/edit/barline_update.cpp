#include "edit/barline_update.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <string>
#include <vector>

#include "base/text.h"
#include "centre/launching.h"
#include "edit/edit_run.h"
#include "edit/staff_rows.h"
#include "music/bar_file.h"
#include "music/items.h"

namespace tul::edit {

BarlineUpdate barlineUpdate;

namespace {

constexpr int firstRow = 2;
constexpr Margin atLeftEnd = lessThan(0.1F);
constexpr std::array accolades = {8.0F, 9.0F, 10.0F};  // with braces and brackets
constexpr float plainBarline = 0.0F;

BarlineTarget& controlRow() { return barlineUpdate.targets.front(); }

// --- One page

/// A row of another instrument, and its staves on the page.
struct Copies {
    std::string instrument;
    float stavesUp;
    StaffRows staves;
};

ItemRow barlineOf(const Parameters& staff, float position, float stavesUp, float form) {
    ItemRow barline;
    barline.pars[par::code] = code::barline;
    barline.pars[par::staff] = staff[par::staff];
    barline.pars[par::position] = position;
    barline.pars[par::stavesUp] = stavesUp;
    barline.pars[par::barlineForm] = form;
    return barline;
}

/// What is appended counts at once. Where the controlling instrument has one staff twice, or staves with such
/// numbers that the span of one reaches the next by rounding, a removal meets barlines that were appended for
/// an earlier span, and a copying finds them on its staff. So the index of the barlines takes them in, always
/// at the end of their staff, as the table does. A span is copied from its own staff, which is not in it, so
/// that nothing is appended to the staff that is being copied.
class PageBarlines {
  public:
    explicit PageBarlines(Report& report);

    /// False where the page has no staff of the controlling instrument.
    bool isControlled();
    /// False at a lowest staff of another instrument: what was changed before it stays.
    bool copyAll();
    void setSystemBarlines();

  private:
    void remove(ItemRow& barline);
    void append(const ItemRow& barline);
    void copySpan(const Parameters& control);
    void copyBarline(ItemRow& barline, const std::vector<std::vector<int>>& staves);
    float spanUpTo(const Parameters& control) const;

    Report& report_;
    const float controlNumber_ = numberOf(barlineUpdate.txtEditBarInstr1);
    std::vector<int> staves_;    // of all instruments
    std::vector<int> controls_;  // of the controlling one
    StaffRows controlIndex_;
    StaffRows barlines_ = StaffRows(isBarline);
    std::vector<Copies> copies_;
    std::vector<float> highestSoFar_;  // of the controlling staves up to each
    float lowest_ = std::numeric_limits<float>::infinity();
    float highest_ = -std::numeric_limits<float>::infinity();
    float lastTop_ = 0.0F;  // of the span that was copied last
    bool hasToldMissing_ = false;
};

StaffRows stavesOf(float instrument) {
    return StaffRows(
        [instrument](ItemPars item) { return isStaff(item) && item[par::instrument] == instrument; });
}

PageBarlines::PageBarlines(Report& report) : report_(report) {
    for (int item = 1; item <= musItemTable.itemCount; ++item) {
        const Parameters& staff = parsOf(item);
        if (!isStaff(staff)) continue;
        const float number = rounded(staff[par::staff]);
        lowest_ = std::min(lowest_, number);
        highest_ = std::max(highest_, number);
        staves_.push_back(item);
        if (staff[par::instrument] == controlNumber_) controls_.push_back(item);
    }
    controlIndex_ = stavesOf(controlNumber_);
    for (const BarlineTarget& target : barlineUpdate.targets) {
        if (&target == &controlRow() || target.instrument.empty()) continue;
        copies_.push_back(
            {target.instrument, numberOf(target.stavesUp), stavesOf(numberOf(target.instrument))});
    }
}

bool PageBarlines::isControlled() {
    if (staves_.empty()) {
        report_.line("No staves in this file");
    } else if (controls_.empty()) {
        report_.line("Control instrument " + barlineUpdate.txtEditBarInstr1 + " not in this file");
    }
    return !controls_.empty();
}

void PageBarlines::remove(ItemRow& barline) {
    deleteItem(barline);
    countChange();
}

void PageBarlines::append(const ItemRow& barline) {
    appendItem(barline);
    barlines_.add(musItemTable.itemCount);
    countChange();
}

/// `staves` are those of the span, by row.
void PageBarlines::copyBarline(ItemRow& barline, const std::vector<std::vector<int>>& staves) {
    const float form = barline.pars[par::barlineForm];
    const bool isAccolade = std::find(accolades.begin(), accolades.end(), form) != accolades.end();
    if (isAccolade && !barlineUpdate.chkEditBarAcc) return;
    barline.pars[par::stavesUp] = numberOf(controlRow().stavesUp);
    countChange();
    for (std::size_t row = 0; row < copies_.size(); ++row) {
        const Copies& copies = copies_[row];
        for (const int staff : staves[row])
            append(barlineOf(parsOf(staff), barline.pars[par::position], copies.stavesUp, form));
        if (!staves[row].empty() || hasToldMissing_) continue;
        report_.line(" Instrument " + copies.instrument + " not found on this page");
        hasToldMissing_ = true;
    }
}

/// From a staff of the controlling instrument up to the next of them.
void PageBarlines::copySpan(const Parameters& control) {
    const float staff = control[par::staff];
    const float next = controlIndex_.nextAbove(staff, highest_ + 1.0F);
    lastTop_ = std::min(next, highest_ + 1.0F) - 1.0F;
    const StaffSpan span = {.above = staff, .top = lastTop_};
    for (const int item : barlines_.take(span)) remove(musItemTable[item]);
    std::vector<std::vector<int>> staves;
    staves.reserve(copies_.size());
    for (const Copies& copies : copies_) staves.push_back(copies.staves.within(span));
    for (const int item : barlines_.on(staff)) copyBarline(musItemTable[item], staves);
}

bool PageBarlines::copyAll() {
    for (const int item : staves_) {
        const Parameters& staff = parsOf(item);
        const bool controls = staff[par::instrument] == controlNumber_;
        if (!controls && staff[par::staff] == lowest_) {
            report_.line("Lowest staff is not the controlling instrument staff");
            return false;
        }
        if (controls) copySpan(staff);
    }
    return true;
}

/// To the first higher one of the controlling staves in the order of the table: that is where the highest of
/// those so far passes the staff.
float PageBarlines::spanUpTo(const Parameters& control) const {
    const float staff = control[par::staff];
    const auto higher = std::upper_bound(highestSoFar_.begin(), highestSoFar_.end(), staff);
    if (higher != highestSoFar_.end()) return *higher - staff;
    return rounded((lastTop_ - staff) + 1.0F);
}

void PageBarlines::setSystemBarlines() {
    float highest = -std::numeric_limits<float>::infinity();
    for (const int item : controls_) {
        highest = std::max(highest, parsOf(item)[par::staff]);  // stays where that is no number
        highestSoFar_.push_back(highest);
    }
    for (const int control : controls_) {
        const Parameters& staff = parsOf(control);
        int removed = 0;
        for (const int item : barlines_.on(staff[par::staff])) {
            ItemRow& barline = musItemTable[item];
            if (!isBarline(barline) || barline.pars[par::barlineForm] != plainBarline ||
                !isNear(barline.pars[par::position], staff[par::position], atLeftEnd))
                continue;
            remove(barline);
            ++removed;
        }
        if (removed > 1)
            report_.line("Removed more than one system barline prior to generating a new one on staff" +
                         str(staff[par::staff]));
        append(barlineOf(staff, staff[par::position], spanUpTo(staff), plainBarline));
    }
}

/// A table that is full ends the program, and the page stays as it was.
class BarlineRun : public FamilyRun {
  public:
    void updateFile(const PageInRun& page) override {
        showActivity("Updating");
        PageBarlines barlines(page.report);
        if (!barlines.isControlled() || !barlines.copyAll()) return;
        if (barlineUpdate.chkEditBarSystemBarlines) barlines.setSystemBarlines();
    }
};

// --- Checks before a run

template <class Holds>
bool holdsForAny(Holds holds) {
    return std::any_of(barlineUpdate.targets.begin(), barlineUpdate.targets.end(), holds);
}

bool hasDuplicates() {
    const auto& targets = barlineUpdate.targets;
    for (auto target = targets.begin(); target != targets.end(); ++target)
        if (!target->instrument.empty() &&
            std::any_of(std::next(target), targets.end(),
                        [&](const BarlineTarget& other) { return other.instrument == target->instrument; }))
            return true;
    return false;
}

bool mayRun() {
    if (barlineUpdate.txtEditBarInstr1.empty()) return refuse("Controlling instrument must be specified.");
    if (!holdsForAny([](const BarlineTarget& target) { return !target.instrument.empty(); }))
        return refuse("No target barline instruments specified.");
    if (holdsForAny([](const BarlineTarget& target) {
            return target.instrument.empty() && !target.stavesUp.empty();
        }))
        return refuse("Up value defined for undefined instrument(s).");
    if (holdsForAny([](const BarlineTarget& target) {
            return !target.instrument.empty() && target.stavesUp.empty();
        }))
        return refuse("No up value defined for instrument(s).");
    if (hasDuplicates()) return refuse("Duplicate instrument definition(s).");
    return true;
}

// --- Fields

/// A whole number up to `highest`; 0, which an input box that was cancelled gives as well, is none.
std::string keepNumber(const std::string& typed, int highest, int assumed) {
    const double value = roundToEven(numericValue(typed));
    if (value == 0.0) return "";
    if (value > 0.0 && value <= highest) return plain(static_cast<float>(value));
    return keepInstead(plain(assumed), "Value not in range. Assumed " + plain(assumed) + ".");
}

Field instrumentField(const std::string& name, std::string& value) {
    return emptiedByCancel(
        textField(name, value, "Enter instrument number (1-9999), Cancel to reset.", keepBarInstrument));
}

/// The first row is the controlling instrument, wherever that is set.
std::vector<Field> fields() {
    std::string& control = barlineUpdate.txtEditBarInstr1;
    std::vector<Field> all = {
        withStep(instrumentField("txtEditBarInstr1", control),
                 [] { controlRow().instrument = barlineUpdate.txtEditBarInstr1; }),
    };
    int row = firstRow;
    for (BarlineTarget& target : barlineUpdate.targets) {
        const std::string number = plain(row++);
        const Field instrument = instrumentField("txtEditBarInstr_" + number, target.instrument);
        all.push_back(
            &target == &controlRow()
                ? withStep(instrument, [] { barlineUpdate.txtEditBarInstr1 = controlRow().instrument; })
                : instrument);
        all.push_back(
            emptiedByCancel(textField("txtEditBarUp_" + number, target.stavesUp,
                                      "Number of staves up (1-32), Cancel to reset.", keepBarStavesUp)));
    }
    all.push_back(checkField("chkEditBarAcc", barlineUpdate.chkEditBarAcc));
    all.push_back(checkField("chkEditBarSystemBarlines", barlineUpdate.chkEditBarSystemBarlines));
    return all;
}

std::vector<Command> commands() {
    return {
        {.name = "cmdDuoB",
         .caption = "Duo",
         .run = cmdDuoB,
         .toolTip = "Assumes systems of two staves on the whole page. The bottom instrument must be 2."},
        {.name = "cmdBarlineEditHelp", .caption = "Help", .run = [] { ShowHelpFile("Barline editing"); }},
    };
}

}  // namespace

const Family barlineUpdateFamily = {
    .tab = tabBarline,
    .fields = fields,
    .commands = commands,
    .reset = [] { barlineUpdate = {}; },
    .mayRun = mayRun,
    .begin = beginRun<BarlineRun>,
};

std::string keepBarInstrument(const std::string& typed) {
    constexpr int highest = 9999;
    return keepNumber(typed, highest, highest);
}

std::string keepBarStavesUp(const std::string& typed) { return keepNumber(typed, highestStaff, 1); }

void cmdDuoB() {
    barlineUpdate.txtEditBarInstr1 = "2";
    controlRow() = {.instrument = "2", .stavesUp = "2"};
}

}  // namespace tul::edit
