#pragma once

#include "base/numbers.h"

/// The names of item codes and of what parameters say, which the reader needs too.
namespace tul {

/// Par 1 of an item.
namespace code {
inline constexpr float note = 1.0F;
inline constexpr float rest = 2.0F;
inline constexpr float clef = 3.0F;
inline constexpr float line = 4.0F;
inline constexpr float slur = 5.0F;
inline constexpr float beam = 6.0F;
inline constexpr float staff = 8.0F;
inline constexpr float symbol = 9.0F;
inline constexpr float number = 10.0F;
inline constexpr float shortText = 11.0F;  // a text of up to 5 characters
inline constexpr float code13 = 13.0F;     // has no name: validation asks whether it is meant
inline constexpr float barline = 14.0F;
inline constexpr float fileName = 15.0F;  // the name of a file, with blanks behind it
inline constexpr float text = 16.0F;
}  // namespace code

/// Parameters, by their numbers.
namespace par {

inline constexpr int code = 1;
inline constexpr int staff = 2;     // from 1, the lowest on the page
inline constexpr int position = 3;  // from left to right, in SCORE's horizontal units
inline constexpr int height = 4;    // staff steps; a note's may have 100 added, which makes it a mini note

inline constexpr int noteStem = 5;  // tens: direction; ones: accidental
inline constexpr int noteHead = 6;  // some have 10 added; 900 to 912 are lute notes
inline constexpr int duration = 7;  // of a note or a rest
inline constexpr int noteStemLength = 8;
inline constexpr int noteFlags = 9;  // tens: dots; ones: flags
inline constexpr int noteShift = 10;
inline constexpr int noteSize = 15;

inline constexpr int restForm = 5;  // -2 and below: for whole bars
inline constexpr int restDots = 6;
inline constexpr int restBars = 8;    // that the rest stands for
inline constexpr int restCentre = 9;  // or its right end; 0 where it has none of its own
inline constexpr int clefForm = 5;

inline constexpr int endHeight = 5;    // of a line, slur or beam at its right end
inline constexpr int endPosition = 6;  // the same, and of a staff

inline constexpr int lineHookLeft = 11;  // at the ends of a line; a negative one points down
inline constexpr int lineHookRight = 12;

inline constexpr int beamForm = 7;  // tens: direction of the stems; ones: beams
inline constexpr int beamShift = 14;
inline constexpr int beamEndShift = 15;

inline constexpr int slurKind = 8;
inline constexpr int slurThickness = 13;

inline constexpr int staffSize = 5;
inline constexpr int instrument = 9;  // its id, 0 to 9999.999; 0 is none

inline constexpr int symbolNumber = 5;
inline constexpr int symbolSize = 6;

inline constexpr int numberValue = 5;
inline constexpr int numberSize = 6;
inline constexpr int numberFont = 7;
inline constexpr int numberForm = 8;  // 0: the number alone
inline constexpr int numberShift = 15;
inline constexpr int numberAligned = 16;  // 1: a finger that stands by its note

inline constexpr int stavesUp = 4;  // that a barline spans, its own among them; 0 is 1
inline constexpr int barlineForm = 5;

inline constexpr int textSize = 6;  // hundreds added say how the text is set
inline constexpr int textFont = 8;  // by number, 90 to 99 and from 1000 on, instead of a prefix in the text
inline constexpr int textTurn = 9;  // degrees
inline constexpr int textLength = 12;  // characters

inline constexpr int systemStaves = 19;  // set by the bar tools; a file may have values of its own
inline constexpr int mark = 20;          // the same, but that one edit writes it into the page

}  // namespace par

/// True for codes with characters behind their parameters.
constexpr bool carriesText(float code) {
    return code == code::shortText || code == code::fileName || code == code::text;
}
/// The same as the reader takes it, by the integer part.
inline bool readsAsText(float code) { return carriesText(integerPart(code)); }

}  // namespace tul
