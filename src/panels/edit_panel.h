#pragma once

#include "shared/panel.h"

namespace tul {

/// `frmEdit`: the general edit tool with its fourteen tabs.
Panel makeEditPanel();

}  // namespace tul
