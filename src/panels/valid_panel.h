#pragma once

#include "shared/panel.h"

namespace tul {

/// `frmValid`: validation of music files, and the offer to recover damaged ones.
Panel describeValidPanel();
void resetValidPanel();

}  // namespace tul
