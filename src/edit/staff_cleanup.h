#pragma once

#include "edit/edit_family.h"

/// What one customer's pages need: clefs that say nothing new go, and staves go from edge to edge.
namespace tul::edit {

extern const Family staffCleanupFamily;

}  // namespace tul::edit
