#pragma once

#include "edit/edit_family.h"

/// Gives texts whose font stands as a number in Par 8 the font prefix that means the same.
namespace tul::edit {

extern const Family fontPrefixesFamily;

}  // namespace tul::edit
