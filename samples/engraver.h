#pragma once

#include <string>
#include <vector>

#include "samples/page_builder.h"
#include "samples/voice_writer.h"

namespace tul::samples {

// A line of words: "Stil- le Nacht! _" gives a syllable to each note, a hyphen between two, nothing to the
// last.
struct Lyrics {
    double height;
    std::string font;
    std::string syllables;
};

struct StaffSetup {
    std::string name;
    std::string shortName;
    Clef clef = treble;
    double instrument = 0;
    int key = 0;                      // sharps; flats are negative
    std::vector<std::string> voices;  // as parseMusic reads them
    std::vector<Lyrics> lyrics = {};
    double room = 0;  // steps added below the staff
};

// Staves whose barlines go through, and the sign before them.
struct StaffGroup {
    enum Sign { none = 0, brace = 8, bracket = 9 };
    int staves;
    Sign sign = none;
};

struct Sheet {
    std::string title, author, tempo;
    std::vector<StaffSetup> staves;  // from the top of a system down
    std::vector<StaffGroup> groups;  // the same
    std::vector<int> systems;        // bars in each
    double beats = 4, beatType = 4;  // 98 and 99 over 1 are the signs for cut and common time
    double barLength = 4;            // in quarters
    double beamUnit = 1;             // no beam crosses a multiple of this
    double staffSize = 0.75;
    double systemGap = 4;  // steps between two systems, beyond the common distance of staves
    double indent = 16, nextIndent = 7;
    int firstBar = 1;  // number of the first bar; 0 is an upbeat
    int page = 1;
};

// Lays the music out on one page and appends its items, with page and bar numbers.
void engrave(const Sheet& sheet, PageBuilder& page);

}  // namespace tul::samples
