#include "renumber/page_numbers.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "base/numbers.h"
#include "base/text.h"
#include "centre/names_file.h"
#include "host/host.h"
#include "music/number_look.h"
#include "renumber/renumber_run.h"
#include "shared/records.h"

namespace tul::renumber {

PageOptions pageOptions;

namespace {

const std::string newLine(CrLf);
constexpr const char* houseStyle = "HS";
constexpr float noLowestStaff = 9999.0F;

/// The staves that the page has items for.
struct StaffRange {
    float highest = 0.0F;
    float lowest = noLowestStaff;

    bool isEmpty() const { return highest == 0.0F || lowest == noLowestStaff; }
};

enum class NumberEnd {
    none,     // no number was asked for
    noStaff,  // that could carry it
    noDigits,
    number,
};

/// What a run does to a page.
struct PagePlan {
    std::vector<int> oldNumbers = {};  // rows
    NumberEnd end = NumberEnd::none;
    std::size_t digitsInName = 0;  // where the number comes from there
    ItemRow number = {};
};

/// Knows what number the next page gets.
class PageNumbering {
  public:
    /// Of the page in the table.
    [[nodiscard]] PagePlan planFor(const std::string& path) const;
    void goOn() { ++next_; }
    void takeBack() { --next_; }

  private:
    void numberPage(const StaffRange& staves, const std::string& digits, ItemRow& row) const;

    const PageOptions& options_ = pageOptions;
    const NumberLook look_ = pageNumberLook();
    std::int32_t next_ = toInt32(numericValue(pageOptions.txtRenumBeginPage)).value_or(1);
};

std::size_t digitsInNames() { return static_cast<std::size_t>(std::max(numberLength(), 0)); }

/// The digits at the right end of the name, without what follows its first full stop.
std::string digitsOfName(const std::string& path) {
    std::string_view name = fileNameOf(path);
    name = name.substr(0, name.find('.'));
    const std::size_t letter = name.find_last_not_of("0123456789");
    return std::string(name.substr(letter == std::string_view::npos ? 0 : letter + 1));
}

std::string lastDigits(const std::string& digits, std::size_t count) {
    return digits.size() > count ? digits.substr(digits.size() - count) : digits;
}

bool isEven(const std::string& digits) { return digits.empty() || (digits.back() - '0') % 2 == 0; }

/// The right end of the number stays where it is, however many digits it has.
float houseStylePosition(float number) {
    if (number < 10.0F) return 197.0F;
    return number < 100.0F ? 196.0F : 195.0F;
}

float positionOf(const PageOptions& options, const std::string& digits, float number) {
    if (options.optRenumCenter) return numberOf(options.txtRenumHorzCenter);
    if (isEven(digits)) return numberOf(options.txtRenumHorzLeft);
    if (options.txtRenumHorzRite == houseStyle) return houseStylePosition(number);
    return numberOf(options.txtRenumHorzRite);
}

PagePlan PageNumbering::planFor(const std::string& path) const {
    PagePlan plan;
    StaffRange staves;
    for (int item = 1; item <= musItemTable.itemCount; ++item) {
        const ItemPars pars = parsOf(item);
        if (look_.isOf(pars)) plan.oldNumbers.push_back(item);
        if (!isStaff(pars) || !std::isfinite(pars[par::staff])) continue;
        const float staff = rounded(pars[par::staff]);
        if (staff > staves.highest) staves.highest = staff;
        if (staff < staves.lowest) staves.lowest = staff;
    }
    plan.end = NumberEnd::noStaff;
    if (staves.isEmpty()) return plan;
    std::string digits = plain(next_);
    if (options_.optRenumFromFile) {
        digits = digitsOfName(path);
        plan.digitsInName = digits.size();
        plan.end = NumberEnd::noDigits;
        if (digits.empty()) return plan;
        digits = lastDigits(digits, digitsInNames());
    }
    plan.end = NumberEnd::none;
    if (!options_.optRenumFromFile && !options_.optRenumBegin) return plan;
    plan.end = NumberEnd::number;
    numberPage(staves, digits, plan.number);
    return plan;
}

void PageNumbering::numberPage(const StaffRange& staves, const std::string& digits, ItemRow& row) const {
    const float number = numberOf(digits) + numberOf(options_.txtRenumModified);
    const bool isAtLowest = options_.optRenumBottom || options_.chkStaff1;
    row.pars[par::code] = code::number;
    row.pars[par::staff] = isAtLowest ? staves.lowest : staves.highest;
    row.pars[par::position] = positionOf(options_, digits, number);
    row.pars[par::height] = numberOf(options_.txtRenumPageDisplacement);
    row.pars[par::numberValue] = number;
    row.pars[par::numberSize] = look_.size;
    row.pars[par::numberFont] = look_.font;
}

// --- The run

class PageNumberRun : public ReportedRun {
  protected:
    void updatePage(const PageInRun& page) override;
    void writeCounters(Report& report) const override;

  private:
    void removeNumbers(const PagePlan& plan, PageResult& page);
    void updateFile(const PageInRun& page);
    void addNumber(const ItemRow& number);

    PageNumbering numbering_;
    std::int32_t removed_ = 0;
    std::int32_t generated_ = 0;
};

void PageNumberRun::updatePage(const PageInRun& page) {
    const int before = musItemTable.itemCount;
    updateFile(page);
    if (musItemTable.itemCount == before) return;
    const float number = parsOf(musItemTable.itemCount)[par::numberValue];
    page.report.line(padRight("", nameColumnWidth()) + " page number generated:" + str(number));
    ++generated_;
    ++page.result.changes;
}

void PageNumberRun::updateFile(const PageInRun& page) {
    const std::string& path = page.result.path;
    const auto inform = [](const std::string& text) { MsgBox(text, Buttons::ok, Icon::information); };
    showActivity("Updating");
    const PagePlan plan = numbering_.planFor(path);
    removeNumbers(plan, page.result);
    if (plan.end == NumberEnd::noStaff)
        return inform("No staff found in file " + path + newLine + "No page number generated in this file.");
    if (plan.end == NumberEnd::noDigits)
        return inform("No numeric part found at right end of filename prefix in file " + path + newLine +
                      "No pagenumber generated.");
    if (plan.digitsInName > digitsInNames() && page.number == 1)
        askToGoOn(joined("Counted more digits in filename [", plan.digitsInName) +
                  "] than specified by global option [" + plain(numberLength()) + "]." + newLine +
                  "OK assumes length of global option.");
    if (plan.end == NumberEnd::number) addNumber(plan.number);
}

void PageNumberRun::removeNumbers(const PagePlan& plan, PageResult& page) {
    for (const int item : plan.oldNumbers) {
        if (item != plan.oldNumbers.front())
            askToGoOn("Found more than one page number in file " + page.path + newLine +
                      "(Cancel will abort TUL)");
        deleteItem(musItemTable[item]);
        ++removed_;
        ++page.changes;
    }
}

bool standsAlready(const ItemRow& number) {
    for (int item = 1; item < musItemTable.itemCount; ++item)
        if (parsOf(item) == number.pars) return true;
    return false;
}

void PageNumberRun::addNumber(const ItemRow& number) {
    appendItem(number);
    numbering_.goOn();
    if (!standsAlready(number)) return;
    askToGoOn("Renumbering generates an identical page number existing at this location." + newLine +
              "This may be because of a second run under identical conditions." + newLine +
              "The page number will not be generated twice. Continue? (Cancel will abort TUL)");
    numbering_.takeBack();
    --musItemTable.itemCount;
}

void PageNumberRun::writeCounters(Report& report) const {
    report.line("Total number of page numbers removed . . ." + str(removed_));
    report.line("Total number of page numbers generated . ." + str(generated_));
}

/// A number that is meant for the top of a page and stands below its staff, or the other way round.
bool isDisplacementLikely() {
    const float displacement = numberOf(pageOptions.txtRenumPageDisplacement);
    const bool isUnlikely = (pageOptions.optRenumTop && displacement < 0.0F) ||
                            (pageOptions.optRenumBottom && displacement > 0.0F);
    return !isUnlikely ||
           isAgreed(toolName, "Warning. The top/bottom displacement may not be a realistic value.",
                    Buttons::okCancel);
}

// --- The preview

std::string numberText(const PagePlan& plan) {
    const Parameters& pars = plan.number.pars;
    switch (plan.end) {
        case NumberEnd::none:
            return "no new number";
        case NumberEnd::noStaff:
            return "no new number: there is no staff";
        case NumberEnd::noDigits:
            return "no new number: no digits at the end of the name";
        case NumberEnd::number:
            break;
    }
    std::string text = plain(pars[par::numberValue]) + " at " + plain(pars[par::position]) + ", staff " +
                       plain(pars[par::staff]);
    if (plan.digitsInName > digitsInNames())
        text += " (of " + plain(plan.digitsInName) + " digits in the name the last " +
                plain(digitsInNames()) + ")";
    return text;
}

// --- Fields

std::string keepPosition(const std::string& typed, const char* message, const char* assumed) {
    const float position = numberOf(typed);
    if (position < 0.0F || position > 200.0F) return keepInstead(assumed, message);
    return plainFixed(position);
}

std::string warnedOfOrder(std::string kept, const std::string& left, const std::string& right) {
    if (right != houseStyle && numberOf(left) > numberOf(right))
        return keepInstead(std::move(kept), "Warning. Left position higher than right position.");
    return kept;
}

}  // namespace

void RenumberPage() {
    if (!isDisplacementLikely()) return;
    ReadNamesFile();
    PageNumberRun run;
    startRun(run);
}

void previewPageNumbers() {
    const std::string height = plain(numberOf(pageOptions.txtRenumPageDisplacement));
    previewPages(renumbering.optRenumPageNone ? "Page numbers" : "Page numbers, Par4 " + height,
                 [numbering = PageNumbering()](const std::string& path) mutable {
                     const PagePlan plan = numbering.planFor(path);
                     if (plan.end == NumberEnd::number) {
                         if (musItemTable.itemCount == MusItemTable::capacity)
                             return std::string("full: Run would end the program here");
                         numbering.goOn();
                     }
                     return numberText(plan) + (plan.oldNumbers.empty()
                                                    ? ""
                                                    : "; " + plain(plan.oldNumbers.size()) + " removed");
                 });
}

void fillPageOptions() {
    PageOptions& options = pageOptions;
    const std::string& place = projectSettings.PageNumberPlace;
    options.optRenumCenter = place.starts_with("CENTER");
    options.optRenumSide = !options.optRenumCenter;
    options.optRenumBottom = place.ends_with("BOTTOM");
    options.optRenumTop = !options.optRenumBottom;
    options.txtRenumPageDisplacement = options.optRenumBottom ? "-15" : "15";
}

std::string keepBeginPage(const std::string& typed) {
    const double page = numericValue(typed);
    if (!(page >= 1.0 && page <= 999.0)) return keepInstead("1", "Invalid first page number. Assumed 1.");
    return plain(toInt32(page).value_or(1));
}

std::string keepCenter(const std::string& typed) {
    return keepPosition(typed, "Value less than 0 or higher than 200. Assumed 100.", "100");
}

std::string keepLeft(const std::string& typed) {
    const std::string left = keepPosition(typed, "Value less than 0 or higher than 200. Assumed 4.", "4");
    return warnedOfOrder(left, left, pageOptions.txtRenumHorzRite);
}

std::string keepRight(const std::string& typed) {
    if (equalIgnoringCase(trim(typed), houseStyle)) return houseStyle;
    const std::string right =
        keepPosition(typed, "Value less than 0 or higher than 200. Assumed 196.", "196");
    return warnedOfOrder(right, pageOptions.txtRenumHorzLeft, right);
}

}  // namespace tul::renumber
