#pragma once

#include <string>

#include "edit/edit_family.h"

/// Removes one item of one music file.
namespace tul::edit {

struct ItemRemoval {
    std::string txtDeleteItemFile;
    std::string txtDeleteSingleItem;  // from 1, in the order of the file
};
extern ItemRemoval itemRemoval;

extern const Family itemRemovalFamily;

}  // namespace tul::edit
