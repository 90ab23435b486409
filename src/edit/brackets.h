#pragma once

#include "edit/edit_family.h"

/// Puts the brackets of Renaissance vocal music beside their notes. A bracket is a line of a height of its
/// own, with a hook at one end (half a bracket) or at both. Where it goes stands in the `BracketSettings`.
namespace tul::edit {

struct Brackets {
    bool optLineRVB = false;
    bool option3 = true;  // nothing
};
extern Brackets brackets;

extern const Family bracketsFamily;

}  // namespace tul::edit
