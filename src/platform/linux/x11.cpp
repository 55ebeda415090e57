#include "platform/linux/x11.h"

#include <QGuiApplication>

#include <xcb/xcb.h>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>

namespace zvr::x11 {
namespace {

xcb_window_t RootWindow(xcb_connection_t* connection) {
    return xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
}

}  // namespace

xcb_connection_t* Connection() {
    auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 == nullptr ? nullptr : x11->connection();
}

std::uint32_t Atom(xcb_connection_t* connection, std::string_view name) {
    const auto cookie = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

void AskWindowManager(xcb_connection_t* connection, std::uintptr_t window, std::string_view what,
                      const std::array<std::uint32_t, 3>& data) {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = static_cast<xcb_window_t>(window);
    message.type = Atom(connection, what);
    std::copy(data.begin(), data.end(), message.data.data32);
    xcb_send_event(connection, 0, RootWindow(connection),
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(connection);
}

bool CompositorRuns() {
    xcb_connection_t* const connection = Connection();
    if (connection == nullptr) {
        return false;
    }
    const auto cookie = xcb_get_selection_owner(connection, Atom(connection, "_NET_WM_CM_S0"));
    const Reply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(connection, cookie, nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

bool WindowManagerRuns() {
    xcb_connection_t* const connection = Connection();
    if (connection == nullptr) {
        return false;
    }
    const xcb_atom_t check = Atom(connection, "_NET_SUPPORTING_WM_CHECK");
    const auto windowNamedBy = [=](xcb_window_t window) -> xcb_window_t {
        const auto cookie = xcb_get_property(connection, 0, window, check, XCB_ATOM_WINDOW, 0, 1);
        const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection, cookie, nullptr));
        if (!reply || xcb_get_property_value_length(reply.get()) < 4) {
            return XCB_WINDOW_NONE;
        }
        xcb_window_t named = XCB_WINDOW_NONE;
        std::memcpy(&named, xcb_get_property_value(reply.get()), sizeof named);
        return named;
    };
    // A manager that was killed leaves its property behind; only a living window names itself.
    const xcb_window_t manager = windowNamedBy(RootWindow(connection));
    return manager != XCB_WINDOW_NONE && windowNamedBy(manager) == manager;
}

void Activate(std::uintptr_t window) {
    xcb_connection_t* const connection = Connection();
    if (connection == nullptr) {
        return;
    }
    // Source: a pager, whose wish is not refused.
    AskWindowManager(connection, window, "_NET_ACTIVE_WINDOW", {2, XCB_CURRENT_TIME, 0});
}

void SetOwner(std::uintptr_t window, std::uintptr_t owner) {
    if (xcb_connection_t* const connection = Connection(); connection != nullptr) {
        const auto id = static_cast<xcb_window_t>(owner);
        xcb_change_property(connection, XCB_PROP_MODE_REPLACE, static_cast<xcb_window_t>(window),
                            XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW, 32, 1, &id);
    }
}

Size SizeOf(std::uintptr_t window) {
    xcb_connection_t* const connection = Connection();
    if (connection == nullptr) {
        return {};
    }
    const auto cookie = xcb_get_geometry(connection, static_cast<xcb_drawable_t>(window));
    const Reply<xcb_get_geometry_reply_t> reply(xcb_get_geometry_reply(connection, cookie, nullptr));
    return reply ? Size{reply->width, reply->height} : Size{};
}

std::uint32_t MakeChild(std::uintptr_t parent, ChildKind kind) {
    xcb_connection_t* const connection = Connection();
    const Size size = SizeOf(parent);
    if (connection == nullptr || size == Size{}) {
        return 0;
    }
    const std::uint32_t window = xcb_generate_id(connection);
    const bool isPane = kind == ChildKind::pane;
    constexpr std::uint32_t black = 0;  // where a picture that shrinks has been
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, static_cast<xcb_window_t>(parent), 0, 0,
                      static_cast<std::uint16_t>(size.width), static_cast<std::uint16_t>(size.height), 0,
                      isPane ? XCB_WINDOW_CLASS_INPUT_ONLY : XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      isPane ? 0 : XCB_CW_BACK_PIXEL, &black);
    xcb_map_window(connection, window);
    xcb_flush(connection);
    return window;
}

void Resize(std::uint32_t window, Size size) {
    if (xcb_connection_t* const connection = Connection(); connection != nullptr && size != Size{}) {
        const std::array values{static_cast<std::uint32_t>(size.width), static_cast<std::uint32_t>(size.height)};
        xcb_configure_window(connection, window, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, values.data());
        xcb_flush(connection);
    }
}

void Destroy(std::uint32_t window) {
    if (xcb_connection_t* const connection = Connection()) {
        xcb_destroy_window(connection, window);
        xcb_flush(connection);
    }
}

void SendPress(std::uint32_t window, Point p) {
    xcb_connection_t* const connection = Connection();
    if (connection == nullptr) {
        return;
    }
    const auto send = [=](std::uint8_t type, std::uint32_t listeners, std::uint16_t pressed) {
        xcb_button_press_event_t event{};
        event.response_type = type;
        event.detail = type == XCB_MOTION_NOTIFY ? std::uint8_t{0} : std::uint8_t{1};
        event.root = RootWindow(connection);
        event.event = window;
        event.event_x = static_cast<std::int16_t>(p.x);
        event.event_y = static_cast<std::int16_t>(p.y);
        event.state = pressed;
        event.same_screen = 1;
        xcb_send_event(connection, 0, window, listeners, reinterpret_cast<const char*>(&event));
    };
    send(XCB_MOTION_NOTIFY, XCB_EVENT_MASK_POINTER_MOTION, 0);
    send(XCB_BUTTON_PRESS, XCB_EVENT_MASK_BUTTON_PRESS, 0);
    send(XCB_BUTTON_RELEASE, XCB_EVENT_MASK_BUTTON_RELEASE, XCB_BUTTON_MASK_1);
    xcb_flush(connection);
}

void FlushConnection() {
    if (xcb_connection_t* const connection = Connection(); connection != nullptr) {
        xcb_flush(connection);
    }
}

}  // namespace zvr::x11
