#pragma once

#include <string>

#include "edit/edit_family.h"

/// Puts the fingers of the left hand, numbers of the project's size for them, beside their notes.
namespace tul::edit {

struct LeftHandFingers {
    std::string txtLHfingerPar16;  // 0 or 1: only fingers with this Par 16; 2: all
};
extern LeftHandFingers leftHandFingers;

extern const Family leftHandFingersFamily;

/// What the field keeps of what was typed into it; anything but its three values is told.
std::string keepFingerPar16(const std::string& typed, const std::string& present);

}  // namespace tul::edit
