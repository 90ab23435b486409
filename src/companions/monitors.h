#pragma once

namespace tul::companion {

/// The screen that panels are placed on, in pixels.
struct ScreenLayout {
    int workAreaHeight = 768;
    int monitorCount = 1;
    int currentMonitorRight = 1024;  // right edge of the monitor that panels open on
};

/// Asks the display; the values above where there is none.
ScreenLayout queryScreenLayout();

}  // namespace tul::companion
