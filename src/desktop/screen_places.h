#pragma once

#include <QPoint>
#include <QRect>

#include "host/face.h"

/// Places on the screen: the records have them in twips of the screen's own pixels, windows in pixels that
/// grow with the screen's scale.
namespace tul::desktop {

inline constexpr int twipsPerPixel = 15;

int toPixels(int twips);
int toTwips(int pixels);

/// The primary screen's size in twips.
ScreenSize screenSize();

/// The top left corner at which a window of this place and size can be seen: the place itself, or the nearest
/// on a screen.
QPoint onAScreen(const QRect& window);

}  // namespace tul::desktop
