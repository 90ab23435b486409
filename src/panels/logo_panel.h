#pragma once

#include "shared/panel.h"

namespace tul {

/// `frmLogo`: the main panel, the one that is always there.
Panel describeLogoPanel();

}  // namespace tul
