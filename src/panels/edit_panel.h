#pragma once

#include "shared/panel.h"

namespace tul {

/// `frmEdit`: the general edit tool with its fourteen tabs.
Panel describeEditPanel();
void resetEditPanel();

}  // namespace tul
