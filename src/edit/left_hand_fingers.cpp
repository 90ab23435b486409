#include "edit/left_hand_fingers.h"

#include <algorithm>

#include "edit/edit_run.h"
#include "music/items.h"
#include "music/notation.h"
#include "shared/records.h"

namespace tul::edit {

LeftHandFingers leftHandFingers;

namespace {

constexpr const char* par16Values = "Set 0, 1, or 2";
constexpr float aligned = 1.0F;

/// Room for the accidental of a note.
float accidentalWidth(ItemPars note) {
    constexpr int doubleFlat = 4;
    const int accidental = accidentalOf(note);
    if (accidental == 0) return 0.0F;
    return accidental == doubleFlat ? 3.0F : 1.6F;
}

class LeftHandFingersRun : public FamilyRun {
  public:
    void updateFile(const PageInRun&) override;

  private:
    bool isTaken(ItemPars finger) const;
    void putAtNearestNote(Parameters& finger) const;
    void spreadChord(ItemPars finger) const;
    void putAtNextNote(Parameters& finger) const;

    const float size_ = numberOf(projectSettings.FingerSizeLH);
    const float par16_ = numberOf(leftHandFingers.txtLHfingerPar16);
    std::vector<ItemRow*> fingers_;  // all of the size
    std::vector<ItemRow*> notes_;
};

bool LeftHandFingersRun::isTaken(ItemPars finger) const {
    constexpr float any = 2.0F;
    return finger[par::numberForm] == 0.0F && (par16_ == any || finger[par::numberAligned] == par16_) &&
           finger[par::numberValue] >= 0.0F && finger[par::numberValue] <= 4.0F;
}

void LeftHandFingersRun::putAtNearestNote(Parameters& finger) const {
    const float position = finger[par::position];
    const int nearest = nearestNote(finger[par::staff], position, position - 0.5F);
    if (nearest == 0) return;
    const ItemPars note = musItemTable[nearest];
    const float room = accidentalWidth(note);
    if (!isNear(position, note[par::position], lessThan(4.0F + room))) return;
    if (!(stepOf(finger) - stepOf(note) < 3.0F)) return;
    finger[par::position] = note[par::position];
    finger[par::numberAligned] = aligned;
    finger[par::numberShift] = -2.0F - room + note[par::noteShift];
    countChange();
}

/// Of two fingers one over the other in a chord the lower one goes farther to the left.
void LeftHandFingersRun::spreadChord(ItemPars finger) const {
    if (finger[par::numberAligned] != aligned) return;
    const float below = finger[par::height] - 2.0F;
    const auto found = std::find_if(fingers_.begin(), fingers_.end(), [&](const ItemRow* other) {
        const Parameters& pars = other->pars;
        return pars[par::numberAligned] == aligned && onSameStaff(pars, finger) &&
               pars[par::position] == finger[par::position] &&
               pars[par::numberShift] == finger[par::numberShift] && pars[par::height] == below;
    });
    if (found == fingers_.end()) return;
    (*found)->pars[par::numberShift] -= 1.7F;
    countChange();
}

/// What stands left over belongs to the next note, at its height or a little above it.
void LeftHandFingersRun::putAtNextNote(Parameters& finger) const {
    constexpr Margin reach = atMost(4.0F);
    if (finger[par::numberAligned] != 0.0F) return;
    const auto found = std::find_if(notes_.begin(), notes_.end(), [&](const ItemRow* note) {
        const Parameters& pars = note->pars;
        return pars[par::position] > finger[par::position] && samePlace(pars, finger, reach) &&
               pars[par::height] >= finger[par::height] &&
               isNear(pars[par::height], finger[par::height], reach);
    });
    if (found == notes_.end()) return;
    const ItemPars note = **found;
    finger[par::position] = note[par::position];
    finger[par::numberAligned] = aligned;
    finger[par::numberShift] = accidentalOf(note) == 0 ? -2.0F : -4.0F;
    countChange();
}

void LeftHandFingersRun::updateFile(const PageInRun&) {
    fingers_.clear();
    notes_.clear();
    forEachItem([this](int, ItemRow& row) {
        if (isNote(row)) notes_.push_back(&row);
        if (isNumber(row) && row.pars[par::numberSize] == size_) fingers_.push_back(&row);
    });
    for (ItemRow* const finger : fingers_)
        if (isTaken(*finger)) putAtNearestNote(finger->pars);
    for (const ItemRow* const finger : fingers_) spreadChord(*finger);
    for (ItemRow* const finger : fingers_) putAtNextNote(finger->pars);
}

void cmdLHfingers() {
    if (isAgreed("Do you want the selected files to be finger-aligned?", Buttons::yesNo))
        runToMessage("Total number of finger offsets set:", std::make_unique<LeftHandFingersRun>());
}

std::vector<Field> fields() {
    Field par16 =
        keptField("txtLHfingerPar16", leftHandFingers.txtLHfingerPar16, par16Values, keepFingerPar16);
    return {withTip(shownIf(par16, showsHideable),
                    "Set to what Code10Par16 must be on input (0 or 1). Ignore Par16 when set to 2.")};
}

std::vector<Command> commands() {
    Command align = onSelection("cmdLHfingers", "LHfing", cmdLHfingers);
    align.visible = showsHideable;
    align.toolTip = [] {
        return "RH finger alignment for Score4 (finger size taken from global setting: " +
               projectSettings.FingerSizeLH + ").";
    };
    return {align};
}

}  // namespace

const Family leftHandFingersFamily = {
    .tab = tabSpecial,
    .fields = fields,
    .commands = commands,
    .reset = [] { leftHandFingers = {}; },
};

std::string keepFingerPar16(const std::string& typed, const std::string& present) {
    if (typed == "0" || typed == "1" || typed == "2") return typed;
    return keepInstead(present, par16Values);
}

}  // namespace tul::edit
