#pragma once

#include "shared/panel.h"

namespace tul {

/// `frmAbout`: name and version of the program, the warranty text, and the platform's own information.
Panel makeAboutPanel();

/// `frmColor`: what the colours of the panels mean.
Panel makeColorPanel();

}  // namespace tul
