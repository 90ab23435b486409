#pragma once

#include <string_view>

#include "shared/panel.h"

namespace tul {

/// `frmLogo`: the main panel, the one that is always there. `isBuilt` tells of a form whether its panel is
/// part of this version.
Panel describeLogoPanel(bool (*isBuilt)(std::string_view form));

}  // namespace tul
