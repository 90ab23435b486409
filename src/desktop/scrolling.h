#pragma once

class QMainWindow;

namespace tul::desktop {

/// Lets a form scroll in a window that is too small for it: first each page of its tabs by itself, so that
/// what stands around the tabs stays in reach, and where even that has no room the whole form. The window
/// still wants the size of the whole form. Tabs that have no room are reached by arrows; their texts
/// are never shortened.
void letScroll(QMainWindow& window);

}  // namespace tul::desktop
