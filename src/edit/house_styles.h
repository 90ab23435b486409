#pragma once

#include "edit/edit_family.h"

/// Corrections in the style of single editions, each a button that runs over the selection and has no
/// options.
namespace tul::edit {

extern const Family houseStylesFamily;

}  // namespace tul::edit
