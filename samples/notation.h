#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tul::samples {

// A pitch as it is written: `step` counts the white keys from the C four octaves below middle C.
struct Pitch {
    int step = 0;
    int alter = 0;  // -1 flat, 1 sharp
};

// A note, a chord or a rest of one voice.
struct Event {
    double onset = 0;     // within its bar, in quarters
    double duration = 1;  // in quarters
    int head = 0;         // 0 black, 1 half, 2 whole
    int flags = 0;
    int dots = 0;
    std::vector<Pitch> pitches;  // from the lowest up; none for a rest
    bool spacer = false;         // takes time and draws nothing
    bool barRest = false;
    int bars = 1;          // what a bar rest stands for
    double restForm = -2;  // Par 5 of a bar rest
    double restCue = 0;    // instrument that is cued there
    bool slurOpens = false;
    bool slurCloses = false;
    bool tied = false;  // to the next event of the voice
    bool fermata = false;
    int finger = -1;
    std::string dynamic;
    std::string words;
};

struct Bar {
    std::vector<Event> events;
    int line = 0;  // type of the barline that ends it
};

// Reads a voice. Tokens are set apart by blanks:
//   fis''4.   a pitch (c is the one below middle c', is and es raise and lower, commas and strokes move by
//   octaves),
//             and its value, which stays in force; g+b+d'2 is a chord, r a rest, s an empty place
//   R R*4:-14:5  a whole bar of rest; four bars in the rest form -14, with instrument 5 as cue
//   ~ ( ) !   behind a note: tied, slur begins, slur ends, fermata
//   -3 \mf ^dolce  behind a note: finger, dynamic mark, words above (an underscore is a blank)
//   | || |. |: :| :|:  barlines
// Throws std::invalid_argument at anything else: the scores are data, and a slip in them must not go unseen.
std::vector<Bar> parseMusic(std::string_view music, double barLength);

}  // namespace tul::samples
