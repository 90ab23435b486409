#include "desktop/screen_places.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <cmath>

namespace tul::desktop {

namespace {

double twipsPerWindowPixel() { return twipsPerPixel * QGuiApplication::primaryScreen()->devicePixelRatio(); }

}  // namespace

int toPixels(int twips) { return static_cast<int>(std::lround(twips / twipsPerWindowPixel())); }
int toTwips(int pixels) { return static_cast<int>(std::lround(pixels * twipsPerWindowPixel())); }

ScreenSize screenSize() {
    const QSize size = QGuiApplication::primaryScreen()->size();
    return {toTwips(size.width()), toTwips(size.height())};
}

QPoint onAScreen(const QRect& window) {
    const QScreen* screen = QGuiApplication::screenAt(window.center());
    if (!screen) screen = QGuiApplication::screenAt(window.topLeft());
    if (!screen) screen = QGuiApplication::primaryScreen();
    const QRect area = screen->availableGeometry();
    const auto within = [](int place, int low, int high) { return std::max(low, std::min(place, high)); };
    return {within(window.left(), area.left(), area.left() + area.width() - window.width()),
            within(window.top(), area.top(), area.top() + area.height() - window.height())};
}

}  // namespace tul::desktop
