#include "edit/halving.h"

#include "edit/edit_run.h"
#include "music/items.h"
#include "music/notation.h"

namespace tul::edit {

namespace {

constexpr float blackHead = 0.0F;
constexpr float halfHead = 1.0F;
constexpr float longestHead = 3.0F;
constexpr float quarterRest = 0.0F;
constexpr float longestRest = -3.0F;

bool isOneOf(float value, float first, float last) {
    return value >= first && value <= last && isInteger(value);
}

void halveNote(Parameters& pars, const BeamIndex& beams) {
    pars[par::duration] /= 2.0F;
    float& head = pars[par::noteHead];
    if (head == blackHead) {
        if (!beams.isBeamed(pars)) pars[par::noteFlags] += 1.0F;
    } else if (isOneOf(head, halfHead, longestHead)) {
        head -= 1.0F;
    }
}

/// The forms of longer rests are lower ones.
void halveRest(Parameters& pars) {
    pars[par::duration] /= 2.0F;
    float& form = pars[par::restForm];
    if (isOneOf(form, longestRest, quarterRest)) form += 1.0F;
}

class HalvingRun : public FamilyRun {
  public:
    void updateFile(const PageInRun&) override {
        forEachItem([beams = BeamIndex()](int, ItemRow& row) {
            if (isNote(row))
                halveNote(row.pars, beams);
            else if (isRest(row))
                halveRest(row.pars);
            else if (isBeam(row))
                row.pars[par::beamForm] += 1.0F;
            else
                return;
            countChange();
        });
    }
};

std::vector<Command> commands() {
    return {forDevelopers(onSelection("cmdHalve", "Halve", [] {
        runToMessage("Total number of notes, rest, and beams modified:", std::make_unique<HalvingRun>());
    }))};
}

}  // namespace

const Family halvingFamily = {.tab = tabSpecial, .commands = commands};

}  // namespace tul::edit
