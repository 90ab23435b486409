#pragma once

#include "edit/edit_family.h"

/// Puts the ends of slurs, code 5, on whole heights.
namespace tul::edit {

struct Slurs {
    bool chkSlurVertAlign = false;
    bool optSlurVertAlignHite = false;  // those whose ends have different heights
    bool optSlurVertAlignPar8 = false;  // those that are no ties or endings, and so without a choice
};
extern Slurs slurs;

extern const Family slursFamily;

}  // namespace tul::edit
