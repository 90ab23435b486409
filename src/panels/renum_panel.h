#pragma once

#include "shared/panel.h"

namespace tul {

/// `frmRenum`: names of files, numbers of pages, bars and staves.
Panel describeRenumPanel();
void resetRenumPanel();

}  // namespace tul
