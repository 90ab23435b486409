#include "edit/brackets.h"

#include <array>
#include <cmath>
#include <limits>

#include "edit/edit_profile.h"
#include "edit/edit_run.h"
#include "music/items.h"
#include "music/notation.h"

namespace tul::edit {

Brackets brackets;

namespace {

// --- One file

/// Sums are rounded once, where they are stored.
float sum(double a, double b, double c = 0.0) { return static_cast<float>(a + b + c); }

/// The settings as numbers.
struct Measures {
    float heightLine = numberOf(bracketSettings.txtRVBheightLine);
    float height = numberOf(bracketSettings.txtRVBheight);
    float dotCorrection = numberOf(bracketSettings.txtRVBdotCorr);
    float width = numberOf(bracketSettings.txtRVBwidth);
    float halfLeft = numberOf(bracketSettings.txtRVBhalfOffsetLeft);
    float halfRight = numberOf(bracketSettings.txtRVBhalfOffsetRite);
    float wholeLeft = numberOf(bracketSettings.txtRVBwholeOffsetLeft);
    float wholeRight = numberOf(bracketSettings.txtRVBwholeOffsetRite);
};

class BracketsRun : public FamilyRun {
  public:
    void updateFile(const PageInRun& page) override;

  private:
    bool align(Parameters& line, Report& report) const;
    bool alignWhole(Parameters& line, Report& report) const;
    bool alignRightHalf(Parameters& line) const;
    bool alignLeftHalf(Parameters& line) const;
    void makeRoomForDot(Parameters& line, ItemPars note) const;

    const Measures measures_{};
};

/// The row of the note on the line's staff that is nearest; 0 without one.
int closestNote(ItemPars line, float position) {
    return nearestNote(line[par::staff], position, -std::numeric_limits<float>::infinity());
}

/// A note with flags as well is not taken for a dotted one.
bool isDottedOnly(ItemPars note) {
    const double dots = roundToEven(note[par::noteFlags]);
    return dots > 0.0 && std::fmod(dots, 10.0) == 0.0;
}

void BracketsRun::makeRoomForDot(Parameters& line, ItemPars note) const {
    if (isDottedOnly(note)) line[par::endPosition] = sum(line[par::endPosition], measures_.dotCorrection);
}

bool BracketsRun::alignWhole(Parameters& line, Report& report) const {
    const int first = closestNote(line, line[par::position]);
    const int last = closestNote(line, line[par::endPosition]);
    if (first == 0 || last == 0) return false;
    if (first == last) {
        report.line("        Whole bracket on single note not aligned. Staff/pos=" + plain(line[par::staff]) +
                    "/" + plain(line[par::position]));
        return false;
    }
    const ItemPars lastNote = musItemTable[last];
    line[par::position] = sum(musItemTable[first].pars[par::position], measures_.wholeLeft);
    line[par::endPosition] = sum(lastNote[par::position], measures_.wholeRight);
    line[par::lineHookLeft] = line[par::lineHookRight] = measures_.height;
    makeRoomForDot(line, lastNote);
    return true;
}

bool BracketsRun::alignRightHalf(Parameters& line) const {
    const int closest = closestNote(line, line[par::position]);
    if (closest == 0) return false;
    const ItemPars note = musItemTable[closest];
    line[par::position] = sum(note[par::position], measures_.halfRight, -measures_.width);
    line[par::endPosition] = sum(line[par::position], measures_.width);
    line[par::lineHookRight] = measures_.height;
    makeRoomForDot(line, note);
    return true;
}

bool BracketsRun::alignLeftHalf(Parameters& line) const {
    const int closest = closestNote(line, line[par::position]);
    if (closest == 0) return false;
    line[par::position] = sum(musItemTable[closest].pars[par::position], measures_.halfLeft);
    line[par::endPosition] = sum(line[par::position], measures_.width);
    line[par::lineHookLeft] = measures_.height;
    return true;
}

bool BracketsRun::align(Parameters& line, Report& report) const {
    const bool hasLeft = line[par::lineHookLeft] < 0.0F;
    const bool hasRight = line[par::lineHookRight] < 0.0F;
    if (hasLeft && hasRight) return alignWhole(line, report);
    if (hasRight) return alignRightHalf(line);
    return hasLeft && alignLeftHalf(line);
}

void BracketsRun::updateFile(const PageInRun& page) {
    std::int32_t aligned = 0;
    forEachItem([&](int, ItemRow& row) {
        const bool isBracket = isLine(row) && row.pars[par::height] == measures_.heightLine &&
                               row.pars[par::endHeight] == measures_.heightLine;
        if (isBracket && align(row.pars, page.report)) countChange(aligned);
    });
    page.report.line("        Alignments applied:" + str(aligned));
}

// --- Fields

enum class Limit { none, above0, below0 };

struct Setting {
    const char* name;
    std::string BracketSettings::*value;
    const char* prompt;
    Limit limit = Limit::none;
};

constexpr std::array<Setting, 8> settings = {{
    {"txtRVBheightLine", &BracketSettings::txtRVBheightLine, "Height of line item (Par4, Par5) (must be >0)",
     Limit::above0},
    {"txtRVBheight", &BracketSettings::txtRVBheight, "Height of line (Par11, Par12) (must be <0)",
     Limit::below0},
    {"txtRVBdotCorr", &BracketSettings::txtRVBdotCorr, "Correction for augmentation dot"},
    {"txtRVBwidth", &BracketSettings::txtRVBwidth, "Single bracket width (must be >0)", Limit::above0},
    {"txtRVBhalfOffsetLeft", &BracketSettings::txtRVBhalfOffsetLeft,
     "Offset of half bracket to left of note (counted from note's Par3)"},
    {"txtRVBhalfOffsetRite", &BracketSettings::txtRVBhalfOffsetRite,
     "Offset of half bracket to right of note (counted from note's Par3)"},
    {"txtRVBwholeOffsetLeft", &BracketSettings::txtRVBwholeOffsetLeft,
     "Offset of half bracket to left of note (counted from note's Par3)"},
    {"txtRVBwholeOffsetRite", &BracketSettings::txtRVBwholeOffsetRite,
     "Offset of half bracket to right of note (counted from note's Par3)"},
}};

/// What is wrong with a text for the setting; empty where nothing is.
std::string faultOf(const std::string& typed, Limit limit) {
    const double value = numericValue(typed);
    if (!isParameterValue(typed)) return "Value not numeric.";
    if (limit == Limit::above0 && !(value > 0.0)) return "Value not >0.";
    if (limit == Limit::below0 && !(value < 0.0)) return "Value not <0.";
    return {};
}

Field settingField(const Setting& setting) {
    const auto keep = [&setting](const std::string& typed) {
        const std::string fault = faultOf(typed, setting.limit);
        if (fault.empty()) return typed;
        const std::string assumed = BracketSettings().*setting.value;
        return keepInstead(assumed, fault + " Assumed " + assumed);
    };
    return readIf(textField(setting.name, bracketSettings.*setting.value, setting.prompt, keep),
                  [] { return brackets.optLineRVB; });
}

std::vector<Field> fields() {
    std::vector<Field> all = {optionField("fraEditLine", "optLineRVB", brackets.optLineRVB),
                              optionField("fraEditLine", "option3", brackets.option3)};
    for (const Setting& setting : settings) all.push_back(settingField(setting));
    return all;
}

bool mayRun() { return brackets.optLineRVB || refuse("No action. Set the option to run alignment"); }

}  // namespace

const Family bracketsFamily = {
    .tab = tabLine,
    .fields = fields,
    .reset = [] { brackets = {}; },
    .mayRun = mayRun,
    .begin = beginRun<BracketsRun>,
};

}  // namespace tul::edit
