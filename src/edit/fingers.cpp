#include "edit/fingers.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "edit/edit_run.h"
#include "music/items.h"
#include "music/notation.h"
#include "music/staff_index.h"
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

/// True when a note stands at the finger's place, one step below its height.
bool hasNoteAt(const Parameters& finger, const StaffIndex& notes) {
    const PlaceRange places = notes.near(finger[par::staff], finger[par::position], notePlace);
    for (std::size_t i = places.begin; i < places.end; ++i)
        if (musItemTable[notes[i].row].pars[par::height] + 1.0F == finger[par::height]) return true;
    return false;
}

class FingersRun : public FamilyRun {
  public:
    void updateFile(const PageInRun&) override;
    void writeCounters(Report& report, const RunResult&) const override {
        writeCounter(report, "Number of fingers moved: ", moved_);
    }

  private:
    void moveOffLine(Parameters& finger);
    void moveFromNote(Parameters& finger, const StaffIndex& notes);

    std::int32_t moved_ = 0;
};

void FingersRun::moveOffLine(Parameters& finger) {
    const float number = finger[par::numberValue];
    if (number != thirdFinger && number != fourthFinger) return;
    if (!isFingerSized(finger) || finger[par::numberFont] != 0.0F || !isEven(finger[par::height])) return;
    finger[par::height] += number == thirdFinger ? -verticalShift : verticalShift;
    countChange(moved_);
}

void FingersRun::moveFromNote(Parameters& finger, const StaffIndex& notes) {
    if (!isFingerSized(finger) || finger[par::numberShift] != besideNote) return;
    if (!isAmong(shiftedFingers, finger[par::numberValue])) return;
    if (!isAmong(shiftedHeights, finger[par::height]) || !hasNoteAt(finger, notes)) return;
    finger[par::numberShift] = fartherBesideNote;
    countChange(moved_);
}

void FingersRun::updateFile(const PageInRun&) {
    forEachItem([this, notes = notesByPlace()](int, ItemRow& row) {
        if (!isNumber(row)) return;
        if (fingers.optEditFinger4) moveOffLine(row.pars);
        if (fingers.optEditFingerDispl) moveFromNote(row.pars, notes);
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
