#include <xcb/randr.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>

#include "companions/monitors.h"

namespace tul::companion {

namespace {

struct Release {
    void operator()(void* reply) const { std::free(reply); }
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};
template <class T>
using Owned = std::unique_ptr<T, Release>;

xcb_atom_t atom(xcb_connection_t* connection, std::string_view name) {
    const auto request = xcb_intern_atom(connection, 1, static_cast<std::uint16_t>(name.size()), name.data());
    const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, request, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

/// Height of the desktop without bars and docks, as the window manager tells it; the screen's without one.
int workAreaHeight(xcb_connection_t* connection, const xcb_screen_t& screen) {
    const int whole = screen.height_in_pixels;
    const xcb_atom_t property = atom(connection, "_NET_WORKAREA");
    if (property == XCB_ATOM_NONE) return whole;
    constexpr std::uint32_t rectangle = 4;  // left, top, width, height
    const auto request =
        xcb_get_property(connection, 0, screen.root, property, XCB_ATOM_CARDINAL, 0, rectangle);
    const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection, request, nullptr));
    if (!reply || reply->format != 32 || reply->value_len < rectangle) return whole;
    std::uint32_t values[rectangle];
    std::memcpy(values, xcb_get_property_value(reply.get()), sizeof values);
    return static_cast<int>(std::min<std::uint32_t>(values[3], screen.height_in_pixels));
}

void takeMonitors(xcb_connection_t* connection, const xcb_screen_t& screen, ScreenLayout& layout) {
    const auto request = xcb_randr_get_monitors(connection, screen.root, 1);
    const Owned<xcb_randr_get_monitors_reply_t> reply(
        xcb_randr_get_monitors_reply(connection, request, nullptr));
    if (!reply) return;
    int count = 0;
    for (auto monitor = xcb_randr_get_monitors_monitors_iterator(reply.get()); monitor.rem > 0;
         xcb_randr_monitor_info_next(&monitor)) {
        if (count == 0 || monitor.data->primary != 0)
            layout.currentMonitorRight = monitor.data->x + monitor.data->width;
        ++count;
    }
    if (count > 0) layout.monitorCount = count;
}

}  // namespace

ScreenLayout queryScreenLayout() {
    ScreenLayout layout;
    if (!std::getenv("DISPLAY")) return layout;
    const Owned<xcb_connection_t> connection(xcb_connect(nullptr, nullptr));
    if (xcb_connection_has_error(connection.get()) != 0) return layout;
    const auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection.get()));
    if (screens.rem == 0) return layout;
    const xcb_screen_t& screen = *screens.data;
    layout.workAreaHeight = workAreaHeight(connection.get(), screen);
    layout.currentMonitorRight = screen.width_in_pixels;
    layout.monitorCount = 1;
    const auto* extension = xcb_get_extension_data(connection.get(), &xcb_randr_id);
    if (extension && extension->present != 0) takeMonitors(connection.get(), screen, layout);
    return layout;
}

}  // namespace tul::companion
