#include "zvr_osk/linux/presence.h"

#include "platform/linux/x11.h"

#include <xcb/xcb.h>

#include <string_view>

namespace zvr::osk {
namespace {

constexpr std::string_view markName = "_ZVR_OSK";

}  // namespace

Presence::Presence() : connection(xcb_connect(nullptr, nullptr)) {}

Presence::~Presence() {
    xcb_disconnect(connection);
}

bool Presence::Claim() {
    const x11::Reply<xcb_intern_atom_reply_t> atom(
        xcb_intern_atom_reply(connection, xcb_intern_atom(connection, 0, markName.size(), markName.data()), nullptr));
    if (!atom) {
        return true;  // there is no display; whoever opens a window will say so
    }
    mark = atom->atom;
    holder = xcb_generate_id(connection);
    xcb_create_window(connection, 0, holder, xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root, -1, -1, 1,
                      1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    // Between the look and the taking nobody else may take it.
    xcb_grab_server(connection);
    const x11::Reply<xcb_get_selection_owner_reply_t> owner(
        xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, mark), nullptr));
    const bool isFree = !owner || owner->owner == XCB_NONE;
    if (isFree) {
        xcb_set_selection_owner(connection, holder, mark, XCB_CURRENT_TIME);
    } else {
        xcb_client_message_event_t ask{};
        ask.response_type = XCB_CLIENT_MESSAGE;
        ask.format = 32;
        ask.window = owner->owner;
        ask.type = mark;
        xcb_send_event(connection, 0, owner->owner, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&ask));
    }
    xcb_ungrab_server(connection);
    xcb_flush(connection);
    return isFree;
}

void Presence::Watch(std::uintptr_t window) {
    watched = static_cast<xcb_window_t>(window);
    const std::uint32_t events = XCB_EVENT_MASK_VISIBILITY_CHANGE;
    xcb_change_window_attributes(connection, watched, XCB_CW_EVENT_MASK, &events);
    xcb_flush(connection);
}

int Presence::Descriptor() const {
    return xcb_get_file_descriptor(connection);
}

void Presence::Read() {
    bool rises = false;
    while (const x11::Reply<xcb_generic_event_t> event{xcb_poll_for_event(connection)}) {
        const int kind = event->response_type & 0x7F;
        // What lies over a part of it only may be a menu, which wants to be there.
        rises = rises || kind == XCB_CLIENT_MESSAGE ||
                (kind == XCB_VISIBILITY_NOTIFY &&
                 reinterpret_cast<const xcb_visibility_notify_event_t*>(event.get())->state ==
                     XCB_VISIBILITY_FULLY_OBSCURED);
    }
    if (rises) {
        const std::uint32_t above = XCB_STACK_MODE_ABOVE;
        xcb_configure_window(connection, watched, XCB_CONFIG_WINDOW_STACK_MODE, &above);
        xcb_flush(connection);
    }
}

}  // namespace zvr::osk
