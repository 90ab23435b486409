#pragma once

#include <cstdint>

/// What the bar numbering workbench is told before it opens.
namespace tul::bars {

enum class NumberMode { first, each, every };  // bar of a system; each bar; every so many bars
enum class Contour { none, circle, box };

/// Stands for a place between the staves of a piano.
inline constexpr float betweenPianoStaves = -999.0F;

/// Owner: the bars tab of the renumber tool.
struct BarSettings {
    NumberMode mode = NumberMode::first;
    std::int32_t every = 10;      // bars, in the mode of that name
    std::int32_t startAt = 1;     // number of the first bar; a pickup bar is 0
    float vertical = 0.0F;        // Par 4 of a number, staff steps, or `betweenPianoStaves`
    float horizontal = 0.0F;      // Par 15 of a number, from its barline
    bool countInvisible = false;  // invisible barlines close a bar
    bool countDashed = false;
    bool ignoreMultibarForms = false;  // a rest without a count gets none from its form
    bool afterEnding = false;          // the count restarts behind an end barline (Par 5 = 2)
    bool afterRepeat = false;          // behind a repeat that points left (Par 5 = 3)
    bool afterPageMark = false;        // behind a barline with Par 12 = 1
    bool generateOne = false;          // the number 1 is set
    Contour contour = Contour::none;   // Par 8 of a number
    float contourThickness = 0.0F;     // Par 10
    bool centreDigits = false;
    bool systemPointOne = false;  // numbers at the opening of a system stand 0.1 to the right
    bool backup = false;          // of each page before it is rewritten
};
extern BarSettings barSettings;

}  // namespace tul::bars
