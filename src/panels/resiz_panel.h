#pragma once

#include "shared/panel.h"

namespace tul {

/// `frmResiz`: sizes of notes, slurs, staves, symbols, numbers and texts, and placeholders of lute notes.
Panel describeResizPanel();
void resetResizPanel();

}  // namespace tul
