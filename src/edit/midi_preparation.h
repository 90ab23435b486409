#pragma once

#include "edit/edit_family.h"

/// Makes pages fit for conversion to MIDI: of notes at one place of a staff the longest stay, and rests take
/// the places of the others.
namespace tul::edit {

extern const Family midiPreparationFamily;

}  // namespace tul::edit
