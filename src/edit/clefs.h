#pragma once

#include <string>

#include "edit/edit_family.h"

/// Changes, aligns and marks clefs, code 3.
namespace tul::edit {

struct Clefs {
    bool optEditTtoC = false;           // treble clefs become choral tenor clefs
    bool optEditCtoT = false;           // the other way
    bool optEditClef = false;           // align
    bool optEditBasCleff8va = false;    // an 8 above bass clefs, whatever their instrument
    bool Option5 = true;                // none of them
    std::string txtClefAlign = "1.25";  // from the left end of the staff
    std::string txtEditKeyInstrument;   // id of the staves that count, or "ALL"
};
extern Clefs clefs;

extern const Family clefsFamily;

// What the fields keep of what was typed into them. Anything that does not fit is told.
std::string keepClefAlign(const std::string& typed);
std::string keepKeyInstrument(const std::string& typed);

}  // namespace tul::edit
