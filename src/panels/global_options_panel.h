#pragma once

#include "shared/panel.h"

namespace tul {

/// `frmGlobalOptions`: the choices of a project, kept in TULPROJ.PRO.
Panel describeGlobalOptionsPanel();
void resetGlobalOptionsPanel();

}  // namespace tul
