#pragma once

#include <array>
#include <string>

#include "edit/edit_family.h"

/// Copies the barlines of a controlling instrument's staves to staves of other instruments, up to the next of
/// its staves, and sets the barlines at the left of the systems.
namespace tul::edit {

/// An instrument whose staves get barlines, and how many staves they go up. Texts of numbers.
struct BarlineTarget {
    std::string instrument;  // empty: the row is not used
    std::string stavesUp;
};

struct BarlineUpdate {
    std::string txtEditBarInstr1;          // the controlling instrument
    std::array<BarlineTarget, 6> targets;  // rows 2 to 7; the first is the controlling instrument's own
    bool chkEditBarAcc = false;            // accolades, braces and brackets as well
    bool chkEditBarSystemBarlines = false;
};
extern BarlineUpdate barlineUpdate;

extern const Family barlineUpdateFamily;

/// Validators.
std::string keepBarInstrument(const std::string& typed);
std::string keepBarStavesUp(const std::string& typed);

/// Fills the fields for systems of two staves, the lower of which is of instrument 2.
void cmdDuoB();

}  // namespace tul::edit
