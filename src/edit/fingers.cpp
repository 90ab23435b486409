#include "edit/fingers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <tuple>
#include <vector>

#include "edit/edit_run.h"
#include "music/items.h"
#include "music/notation.h"
#include "shared/records.h"

namespace tul::edit {

Fingers fingers;

namespace {

constexpr float fingerSize = 0.75F;
constexpr Margin sameSize = lessThan(0.01F);
constexpr float thirdFinger = 3.0F;
constexpr float fourthFinger = 4.0F;
constexpr float verticalShift = 0.2F;

constexpr float besideNote = -2.0F;
constexpr float fartherBesideNote = -2.3F;
constexpr std::array<float, 4> shiftedFingers = {0, 2, 3, 4};
constexpr std::array<float, 8> shiftedHeights = {-6, -4, -2, 0, 12, 14, 16, 18};

template <class Values>
bool isAmong(const Values& values, float value) {
    return std::find(values.begin(), values.end(), value) != values.end();
}

bool isFingerSized(const Parameters& number) { return isNear(number[par::numberSize], fingerSize, sameSize); }

/// False for what is no number.
bool isEven(float value) { return std::fmod(roundToEven(std::fabs(value)), 2.0) == 0.0; }

/// The notes of a page, to find whether one stands at a finger.
class NotesByPlace {
  public:
    void fill();
    /// True when a note stands at the finger's place, one step below its height.
    bool hasNoteAt(const Parameters& finger) const;

  private:
    using Place = std::tuple<float, float, float>;  // staff, height of its finger, position

    static bool isNowhere(const Place& place) {
        const auto& [staff, height, position] = place;
        return std::isnan(staff) || std::isnan(height) || std::isnan(position);
    }
    static bool isAt(const Place& place, const Parameters& finger) {
        const auto& [staff, height, position] = place;
        return staff == finger[par::staff] && height == finger[par::height] &&
               isNear(position, finger[par::position], notePlace);
    }

    std::vector<Place> places_;
};

/// A note with a place that is no number stands nowhere.
void NotesByPlace::fill() {
    places_.clear();
    for (int item = 1; item <= musItemTable.itemCount; ++item) {
        const Parameters& pars = musItemTable[item].pars;
        if (!isNote(pars)) continue;
        const Place place = {pars[par::staff], pars[par::height] + 1.0F, pars[par::position]};
        if (!isNowhere(place)) places_.push_back(place);
    }
    std::sort(places_.begin(), places_.end());
}

/// If any is near enough, one of the two is between which the finger stands.
bool NotesByPlace::hasNoteAt(const Parameters& finger) const {
    const Place place = {finger[par::staff], finger[par::height], finger[par::position]};
    if (isNowhere(place)) return false;
    const auto behind = std::lower_bound(places_.begin(), places_.end(), place);
    return (behind != places_.end() && isAt(*behind, finger)) ||
           (behind != places_.begin() && isAt(*std::prev(behind), finger));
}

class FingersRun : public FamilyRun {
  public:
    void updateFile(const PageInRun&) override;
    void writeCounters(Report& report, const RunResult&) const override {
        writeCounter(report, "Number of fingers moved: ", moved_);
    }

  private:
    void moveOffLine(Parameters& finger);
    void moveFromNote(Parameters& finger);

    NotesByPlace notes_;
    std::int32_t moved_ = 0;
};

void FingersRun::moveOffLine(Parameters& finger) {
    const float number = finger[par::numberValue];
    if (number != thirdFinger && number != fourthFinger) return;
    if (!isFingerSized(finger) || finger[par::numberFont] != 0.0F || !isEven(finger[par::height])) return;
    finger[par::height] += number == thirdFinger ? -verticalShift : verticalShift;
    countChange(moved_);
}

void FingersRun::moveFromNote(Parameters& finger) {
    if (!isFingerSized(finger) || finger[par::numberShift] != besideNote) return;
    if (!isAmong(shiftedFingers, finger[par::numberValue])) return;
    if (!isAmong(shiftedHeights, finger[par::height]) || !notes_.hasNoteAt(finger)) return;
    finger[par::numberShift] = fartherBesideNote;
    countChange(moved_);
}

void FingersRun::updateFile(const PageInRun&) {
    if (fingers.optEditFingerDispl) notes_.fill();
    forEachItem([this](int, ItemRow& row) {
        if (!isNumber(row)) return;
        if (fingers.optEditFinger4) moveOffLine(row.pars);
        if (fingers.optEditFingerDispl) moveFromNote(row.pars);
    });
}

Field option(const char* name, bool& value) { return optionField("fraEditFinger", name, value); }

std::vector<Field> fields() {
    return {
        option("optEditFinger4", fingers.optEditFinger4),
        shownIf(option("optEditFingerDispl", fingers.optEditFingerDispl),
                [] { return identity.DeveloperMode; }),
        withTip(option("Option2", fingers.Option2), "(not yet supported)"),
    };
}

}  // namespace

const Family fingersFamily = {
    .tab = tabNumbers,
    .fields = fields,
    .reset = [] { fingers = {}; },
    .isChosen = [] { return fingers.optEditFinger4 || fingers.optEditFingerDispl; },
    .begin = beginRun<FingersRun>,
};

}  // namespace tul::edit
