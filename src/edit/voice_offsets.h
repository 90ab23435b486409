#pragma once

#include <array>
#include <string>

#include "edit/edit_family.h"

/// Moves the notes of the lower voice aside where those of the upper voice on the same staff stand on them,
/// below them, or one step above.
namespace tul::edit {

struct VoiceOffsets {
    bool chkAutOff = false;
    bool chkOverlap = false;  // notes of both voices that are the same stay on one another
    /// Where the upper voice does not stand above the lower one: without dots, with one, with more, with
    /// flags; below them a lower note with an accidental, with a double flat. The greatest that fits is
    /// taken.
    std::array<std::string, 6> Text1 = {"4", "6", "8", "8", "7", "9"};
};
extern VoiceOffsets voiceOffsets;

extern const Family voiceOffsetsFamily;

}  // namespace tul::edit
