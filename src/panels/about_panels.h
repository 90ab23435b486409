#pragma once

#include "shared/panel.h"

namespace tul {

/// `frmAbout`: name and version of the program, the warranty text, and the platform's own information.
Panel describeAboutPanel();
void resetAboutPanel();

/// `frmColor`: what the colours of the panels mean.
Panel describeColorPanel();
void resetColorPanel();

}  // namespace tul
