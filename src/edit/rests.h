#pragma once

#include "edit/edit_family.h"

/// Edits of rests, code 2: the bars that whole rests stand for, and the look of rests over several bars.
namespace tul::edit {

struct Rests {
    bool chkEditRestOne = false;  // whole rests get a 1 for one bar, or lose it
    bool optEditRestOneSet = true;
    bool optEditRestOneReset = false;
    bool chkToEuropeanRest = false;  // rests over several bars get the signs of their number of bars
};
extern Rests rests;

extern const Family restsFamily;

}  // namespace tul::edit
