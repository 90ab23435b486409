#pragma once

namespace tul::companion {

/// The screen that panels are placed on, in pixels.
struct ScreenLayout {
    int workAreaHeight = 768;
    int monitorCount = 0;            // unknown: no place on the screen is then taken for lost
    int currentMonitorRight = 1024;  // right edge of the monitor that panels open on
};

/// Asks the display; the values above where there is none.
ScreenLayout queryScreenLayout();

}  // namespace tul::companion
