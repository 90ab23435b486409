#include "music/notation.h"

#include <cmath>

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

float stepOf(ItemPars item) { return static_cast<float>(std::fmod(roundToEven(item[par::height]), 100.0)); }

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

}  // namespace tul
