#include "music/notation.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace tul {

namespace {

/// The last digits of the whole part, without the sign.
int lastDigits(float par, float modulus) {
    if (!std::isfinite(par)) return 0;
    return static_cast<int>(std::fmod(std::trunc(std::fabs(par)), modulus));
}

}  // namespace

Stem stemIn(float par) {
    const int tens = lastDigits(par, 100.0F) / 10;
    if (tens == 0) return Stem::none;
    return tens == 1 ? Stem::up : Stem::down;
}

int accidentalOf(ItemPars note) { return lastDigits(note[par::noteStem], 10.0F); }

int flagsOf(ItemPars note) { return lastDigits(note[par::noteFlags], 10.0F); }

int dotsOf(ItemPars note) {
    return static_cast<int>(roundToEven(lastDigits(note[par::noteFlags], 100.0F) / 10.0));
}

float stepOf(ItemPars item) { return std::fmod(rounded(item[par::height]), 100.0F); }

int nearestNote(float staff, float position, float from) {
    float nearest = 999.0F;
    int found = 0;
    for (int item = 1; item <= musItemTable.itemCount; ++item) {
        const ItemRow& row = musItemTable[item];
        if (!isNote(row) || row.pars[par::staff] != staff || row.pars[par::position] < from) continue;
        const float distance = std::fabs(row.pars[par::position] - position);
        if (!(distance < nearest)) continue;
        nearest = distance;
        found = item;
    }
    return found;
}

BeamIndex::BeamIndex() {
    for (int item = 1; item <= musItemTable.itemCount; ++item) {
        const Parameters& pars = musItemTable[item].pars;
        if (!isBeam(pars)) continue;
        const Beam beam{.staff = pars[par::staff],
                        .left = pars[par::position] - 1.0F,
                        .right = pars[par::endPosition] + 1.0F};
        // What is no number would upset the order, and covers nothing.
        if (!std::isnan(beam.staff) && !std::isnan(beam.left) && !std::isnan(beam.right))
            beams_.push_back(beam);
    }
    std::sort(beams_.begin(), beams_.end(), [](const Beam& a, const Beam& b) {
        return std::tie(a.staff, a.left) < std::tie(b.staff, b.left);
    });
    for (std::size_t i = 1; i < beams_.size(); ++i)
        if (beams_[i].staff == beams_[i - 1].staff)
            beams_[i].right = std::max(beams_[i].right, beams_[i - 1].right);
}

bool BeamIndex::isBeamed(ItemPars note) const {
    const float staff = note[par::staff];
    const float position = note[par::position];
    const auto behind =
        std::partition_point(beams_.begin(), beams_.end(), [staff, position](const Beam& beam) {
            return beam.staff < staff || (beam.staff == staff && beam.left <= position);
        });
    return behind != beams_.begin() && (behind - 1)->staff == staff && (behind - 1)->right >= position;
}

}  // namespace tul
