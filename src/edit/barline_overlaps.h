#pragma once

#include "edit/edit_family.h"

/// Removes barlines that stand within the extent of another one at the same place.
namespace tul::edit {

extern const Family barlineOverlapsFamily;

/// The button's run over the selection.
void cmdRemoveOverlaps();

}  // namespace tul::edit
