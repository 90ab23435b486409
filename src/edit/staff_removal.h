#pragma once

#include <string>

#include "edit/edit_family.h"

/// Removes staves, code 8, with all that stands on them.
namespace tul::edit {

struct StaffRemoval {
    bool optEditStaffIRemove = false;
    std::string txtRemoveStaves;  // instrument ids of the staves that stay, with commas between them
};
extern StaffRemoval staffRemoval;

extern const Family staffRemovalFamily;

/// What the list of ids keeps of what was typed into it; a character that is in no list is told.
std::string keepRemoveStaves(const std::string& typed);

}  // namespace tul::edit
