#pragma once

#include "edit/edit_family.h"

/// Moves fingers, numbers of code 10.
namespace tul::edit {

struct Fingers {
    bool optEditFinger4 = false;      // third and fourth fingers that stand on a staff line
    bool optEditFingerDispl = false;  // fingers beside notes; the developer's
    bool Option2 = false;             // nothing so far
};
extern Fingers fingers;

extern const Family fingersFamily;

}  // namespace tul::edit
