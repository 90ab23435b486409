#pragma once

#include <vector>

#include "base/numbers.h"
#include "music/items.h"

/// What the parameters of notes, rests, beams and barlines say. A parameter that is no number says nothing:
/// no stem, no accidental, and no height that could be compared.
namespace tul {

/// Notes that are no farther apart stand at one place, and so do barlines.
inline constexpr Margin notePlace = lessThan(0.01F);
inline constexpr Margin barlinePlace = lessThan(0.5F);

enum class Stem { none, up, down };

/// The tens of a parameter, of its whole part without the sign: below 1 none, 1 up, 2 and above down.
[[nodiscard]] Stem stemIn(float par);
[[nodiscard]] inline Stem stemOf(ItemPars note) { return stemIn(note[par::noteStem]); }

/// The accidental by number; 4 is the double flat.
[[nodiscard]] int accidentalOf(ItemPars note);
/// Flags on the stem.
[[nodiscard]] int flagsOf(ItemPars note);
/// Augmentation dots: the last two digits by ten, to nearest, ties to even.
[[nodiscard]] int dotsOf(ItemPars note);

/// Staff steps without the hundreds that make a mini note: a whole number from -99 to 99.
[[nodiscard]] float stepOf(ItemPars item);

/// The note on a staff that is nearest to a position, of those not left of `from`, the first of several as
/// near, by its row; 0 where there is none within 999.
[[nodiscard]] int nearestNote(float staff, float position, float from);

/// Which notes stand under beams: those of the table, as they are when this is made.
class BeamIndex {
  public:
    BeamIndex();
    /// A beam reaches one unit beyond its ends.
    [[nodiscard]] bool isBeamed(ItemPars note) const;

  private:
    struct Beam {
        float staff;
        float left;
        float right;  // the farthest of the beams of the staff up to this one
    };
    std::vector<Beam> beams_;  // by staff, from left to right
};

}  // namespace tul
