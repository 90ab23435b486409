#pragma once

#include "shared/panel.h"

namespace tul {

/// `frmNotepad`: the built-in viewer, over the file that was handed to it.
Panel describeNotepadPanel();

}  // namespace tul
