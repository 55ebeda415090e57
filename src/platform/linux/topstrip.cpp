#include "platform/linux/topstrip.h"

#include "platform/linux/x11.h"

#include <QGuiApplication>

#include <unistd.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <array>
#include <span>

namespace zvr {

TopStrip::TopStrip(Size size) : size(size) {
    xcb_connection_t* const connection = x11::Connection();
    if (connection == nullptr) {
        return;
    }
    const xcb_screen_t* const screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    window = xcb_generate_id(connection);
    const std::uint32_t background = screen->black_pixel;
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, screen->root, 0, 0,
                      static_cast<std::uint16_t>(size.width), static_cast<std::uint16_t>(size.height), 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL, &background);
    const auto set = [&](std::string_view property, xcb_atom_t type, std::span<const std::uint32_t> values) {
        xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, x11::Atom(connection, property), type, 32,
                            static_cast<std::uint32_t>(values.size()), values.data());
    };
    // It stays where it is: flags of a place and a size that the user wants.
    const std::array<std::uint32_t, 18> hints{1 | 2};
    set("WM_NORMAL_HINTS", XCB_ATOM_WM_SIZE_HINTS, hints);
    const std::array<std::uint32_t, 1> dock{x11::Atom(connection, "_NET_WM_WINDOW_TYPE_DOCK")};
    set("_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM, dock);
    // Whose it is: hidden are only the panels of others.
    const std::array<std::uint32_t, 1> process{static_cast<std::uint32_t>(getpid())};
    set("_NET_WM_PID", XCB_ATOM_CARDINAL, process);
    // A bar that is seen through shows the desktop, and nothing of this.
    const std::array<std::uint32_t, 1> invisible{0};
    set("_NET_WM_WINDOW_OPACITY", XCB_ATOM_CARDINAL, invisible);
    // Left, right, top, bottom; then the span of each, from and to.
    std::array<std::uint32_t, 12> strip{};
    strip[2] = static_cast<std::uint32_t>(size.height);
    strip[9] = static_cast<std::uint32_t>(std::max(0, size.width - 1));
    set("_NET_WM_STRUT_PARTIAL", XCB_ATOM_CARDINAL, strip);
    set("_NET_WM_STRUT", XCB_ATOM_CARDINAL, std::span(strip).first(4));
    xcb_map_window(connection, window);
    xcb_flush(connection);
}

TopStrip::~TopStrip() {
    xcb_connection_t* const connection = window == 0 || qGuiApp == nullptr ? nullptr : x11::Connection();
    if (connection != nullptr) {
        xcb_destroy_window(connection, window);
        xcb_flush(connection);
    }
}

}  // namespace zvr
