#pragma once

#include "shared/panel.h"

namespace tul {

/// `frmPmx`: export of music files as parameter text.
Panel describePmxPanel();
void resetPmxPanel();

}  // namespace tul
