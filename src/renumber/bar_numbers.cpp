#include "renumber/bar_numbers.h"

#include "bars/bar_settings.h"
#include "base/numbers.h"
#include "base/text.h"
#include "centre/names_file.h"
#include "music/number_look.h"
#include "renumber/renumber_run.h"
#include "shared/records.h"

namespace tul::renumber {

BarOptions barOptions;

namespace {

using bars::barSettings;
using bars::Contour;
using bars::NumberMode;

constexpr const char* pianoPlace = "B";

/// Calls `visit` with each bar number of the page in the table.
template <class Visit>
void forEachBarNumber(Visit visit) {
    const NumberLook look = barNumberLook();
    for (int item = 1; item <= musItemTable.itemCount; ++item)
        if (look.isOf(parsOf(item))) visit(musItemTable[item]);
}

class BarNumberRemoval : public ReportedRun {
  protected:
    void updatePage(const PageInRun& page) override {
        showActivity("Updating");
        forEachBarNumber([&](ItemRow& row) {
            deleteItem(row);
            ++removed_;
            ++page.result.changes;
        });
    }
    void writeCounters(Report& report) const override {
        report.line("Total number of bar numbers removed . . ." + str(removed_));
    }

  private:
    std::int32_t removed_ = 0;
};

Contour contourOf(const BarOptions& options) {
    if (!options.chkRenumBarContour) return Contour::none;
    return options.optBarCircle ? Contour::circle : Contour::box;
}

NumberMode modeOf(const BarOptions& options) {
    if (options.optRenumBarEach) return NumberMode::each;
    return options.optRenumBarEvery ? NumberMode::every : NumberMode::first;
}

void storeBarSettings() {
    const BarOptions& options = barOptions;
    barSettings = {
        .mode = modeOf(options),
        .every = toInt32(numericValue(options.txtRenumBarEvery)).value_or(10),
        .startAt = toInt32(numericValue(options.txtRenumBarStart)).value_or(1),
        .vertical = options.txtRenumBarVertDispl == pianoPlace ? bars::betweenPianoStaves
                                                               : numberOf(options.txtRenumBarVertDispl),
        .horizontal = numberOf(options.txtRenumBarHorzDispl),
        .countInvisible = options.chkBarCountInvisible,
        .countDashed = options.chkBarCountDashed,
        .ignoreMultibarForms = options.chkBarMulti,
        .afterEnding = options.chkBarAfterEnding,
        .afterRepeat = options.chkBarAfterRepeat,
        .afterPageMark = options.chkBarAfterPageMark,
        .generateOne = options.chkBarNumberGen1,
        .contour = contourOf(options),
        .contourThickness = numberOf(options.txtBarContourThickness),
        .centreDigits = options.chkBarCM,
        .systemPointOne = options.chkBarSystemPt1,
        .backup = renumbering.chkRenumBackup,
    };
}

const std::string noWorkbench =
    "The bar numbering workbench is not part of this version yet, so no bar numbers are generated.";

/// Opens the workbench over this panel.
void BarMaintenance() {
    refuseRun(toolName, noWorkbench + std::string(CrLf) +
                            "Bar numbers can be removed: choose that at the top of the tab.");
}

/// The typed value, or the present one where it is refused.
std::string keepNumber(const std::string& typed, const std::string& present, const char* message) {
    if (isParameterValue(typed)) return plainFixed(numberOf(typed));
    return keepInstead(present, message);
}

}  // namespace

void RenumberBar() {
    storeBarSettings();
    ReadNamesFile();
    if (!barOptions.optRenumBarNone) return BarMaintenance();
    BarNumberRemoval run;
    startRun(run);
}

void previewBarNumbers() {
    if (!barOptions.optRenumBarNone) return showPreview("Bar numbers", {noWorkbench});
    previewPages("Bar numbers", [](const std::string&) {
        int numbers = 0;
        forEachBarNumber([&](const ItemRow&) { ++numbers; });
        return plain(numbers) + (numbers == 1 ? " bar number" : " bar numbers") + " removed";
    });
}

void fillBarOptions() {
    BarOptions& options = barOptions;
    const std::string& place = projectSettings.BarNumberPlace;
    options.optRenumBarEach = place == "EACH";
    options.optRenumBarNone = place == "NONE";
    options.optRenumBarEvery = false;
    options.optRenumBarFirst = !options.optRenumBarEach && !options.optRenumBarNone;
}

std::string keepStep(const std::string& typed) {
    const bool isStep = isPlainNumber(typed) && numericValue(typed) >= 1.0;
    if (const auto step = isStep ? toInt32(numericValue(typed)) : std::nullopt) return plain(*step);
    return keepInstead("10", "Invalid step number. Assumed 10.");
}

std::string keepStart(const std::string& typed, const std::string& present) {
    if (!isPlainNumber(typed)) return keepInstead(present, "Non-numeric input discarded.");
    const double number = numericValue(typed);
    if (number > 999.0) return keepInstead(present, "Input exceeding 999 discarded.");
    if (number < 0.0) return keepInstead(present, "Negative input discarded.");
    return plain(toInt32(number).value_or(0));
}

std::string keepVertical(const std::string& typed, const std::string& present) {
    if (equalIgnoringCase(trim(typed), pianoPlace)) return pianoPlace;
    return keepNumber(typed, present, "This does not seem to be a valid vertical displacement...");
}

std::string keepHorizontal(const std::string& typed, const std::string& present) {
    return keepNumber(typed, present, "This does not seem to be a valid horizontal displacement...");
}

std::string keepThickness(const std::string& typed, const std::string& present) {
    return keepNumber(typed, present, "This does not seem to be a valid thicknesst...");
}

}  // namespace tul::renumber
