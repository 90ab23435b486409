#pragma once

#include "edit/edit_family.h"

/// Halves all durations: notes get a shorter head or a flag more, rests a shorter form, beams one beam more.
namespace tul::edit {

extern const Family halvingFamily;

}  // namespace tul::edit
