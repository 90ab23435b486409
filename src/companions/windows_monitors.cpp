#include <windows.h>

#include "companions/monitors.h"

namespace tul::companion {

ScreenLayout queryScreenLayout() {
    // Otherwise the system tells smaller pixels than those that the windows are placed by.
    ::SetProcessDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
    ScreenLayout layout;
    const int count = ::GetSystemMetrics(SM_CMONITORS);
    if (count <= 0) return layout;
    layout.monitorCount = count;
    layout.currentMonitorRight = ::GetSystemMetrics(SM_CXSCREEN);  // the main one begins at 0
    RECT area{};
    const bool known = ::SystemParametersInfoA(SPI_GETWORKAREA, 0, &area, 0) != 0;
    layout.workAreaHeight =
        known ? static_cast<int>(area.bottom - area.top) : ::GetSystemMetrics(SM_CYSCREEN);
    return layout;
}

}  // namespace tul::companion
