#include "platform/linux/otherwindows.h"

#include "platform/log.h"

#include <xcb/res.h>
#include <algorithm>
#include <cstring>
#include <utility>

namespace zvr {

using x11::Reply;

OtherWindows::~OtherWindows() {
    StopWatching();
    if (connection != nullptr) {
        xcb_disconnect(connection);
    }
}

bool OtherWindows::Connect(std::string_view purpose) {
    if (connection != nullptr) {
        if (xcb_connection_has_error(connection) == 0) {
            return true;
        }
        xcb_disconnect(connection);
    }
    int screen = 0;
    connection = xcb_connect(nullptr, &screen);
    if (const int error = xcb_connection_has_error(connection); error != 0) {
        Log::Warning("{}: no connection to the X server, error {}", purpose, error);
        xcb_disconnect(connection);
        connection = nullptr;
        return false;
    }
    root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    clientList = Atom("_NET_CLIENT_LIST");
    windowType = Atom("_NET_WM_WINDOW_TYPE");
    dock = Atom("_NET_WM_WINDOW_TYPE_DOCK");
    process = Atom("_NET_WM_PID");
    return true;
}

xcb_atom_t OtherWindows::Atom(std::string_view name) const {
    const auto cookie = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

std::vector<std::uint32_t> OtherWindows::Numbers(xcb_window_t window, xcb_atom_t property, xcb_atom_t type) const {
    constexpr std::uint32_t most = 4096;
    const auto cookie = xcb_get_property(connection, 0, window, property, type, 0, most);
    const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection, cookie, nullptr));
    if (!reply || reply->format != 32) {
        return {};
    }
    std::vector<std::uint32_t> numbers(static_cast<std::size_t>(xcb_get_property_value_length(reply.get())) / 4);
    if (!numbers.empty()) {
        std::memcpy(numbers.data(), xcb_get_property_value(reply.get()), numbers.size() * 4);
    }
    return numbers;
}

std::vector<xcb_window_t> OtherWindows::Managed() const {
    return Numbers(root, clientList, XCB_ATOM_WINDOW);
}

std::vector<xcb_window_t> OtherWindows::All() const {
    std::vector<xcb_window_t> windows = Managed();
    const Reply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(connection, xcb_query_tree(connection, root), nullptr));
    if (tree) {
        const xcb_window_t* const first = xcb_query_tree_children(tree.get());
        windows.insert(windows.end(), first, first + xcb_query_tree_children_length(tree.get()));
    }
    std::sort(windows.begin(), windows.end());
    windows.erase(std::unique(windows.begin(), windows.end()), windows.end());
    return windows;
}

bool OtherWindows::IsDock(xcb_window_t window) const {
    const std::vector<std::uint32_t> types = Numbers(window, windowType, XCB_ATOM_ATOM);
    return std::find(types.begin(), types.end(), dock) != types.end();
}

bool OtherWindows::IsViewable(xcb_window_t window) const {
    const auto cookie = xcb_get_window_attributes(connection, window);
    const Reply<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(connection, cookie, nullptr));
    return reply && reply->map_state != XCB_MAP_STATE_UNMAPPED;
}

std::uint32_t OtherWindows::ProcessOf(xcb_window_t window) const {
    if (const auto told = Numbers(window, process, XCB_ATOM_CARDINAL); !told.empty()) {
        return told.front();
    }
    const xcb_res_client_id_spec_t wanted{window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    const auto cookie = xcb_res_query_client_ids(connection, 1, &wanted);
    const Reply<xcb_res_query_client_ids_reply_t> reply(xcb_res_query_client_ids_reply(connection, cookie, nullptr));
    if (!reply) {
        return 0;
    }
    for (auto ids = xcb_res_query_client_ids_ids_iterator(reply.get()); ids.rem > 0;
         xcb_res_client_id_value_next(&ids)) {
        if ((ids.data->spec.mask & XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID) != 0 &&
            xcb_res_client_id_value_value_length(ids.data) > 0) {
            return *xcb_res_client_id_value_value(ids.data);
        }
    }
    return 0;
}

void OtherWindows::Watch(std::function<void()> onWindowsChange) {
    onChange = std::move(onWindowsChange);
    if (watched != nullptr && xcb_connection_has_error(watched) == 0) {
        return;
    }
    notifier.reset();
    if (watched != nullptr) {
        xcb_disconnect(watched);
    }
    watched = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(watched) != 0) {
        return;
    }
    const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(watched, root, XCB_CW_EVENT_MASK, &mask);
    xcb_flush(watched);
    notifier = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(watched), QSocketNotifier::Read);
    QObject::connect(notifier.get(), &QSocketNotifier::activated, [this] { ReadEvents(); });
}

void OtherWindows::StopWatching() {
    onChange = nullptr;
    if (notifier != nullptr) {
        notifier->setEnabled(false);
        notifier.release()->deleteLater();  // it may be the one that calls
    }
    if (watched != nullptr) {
        xcb_disconnect(watched);
        watched = nullptr;
    }
}

void OtherWindows::ReadEvents() {
    bool windowsChanged = false;
    while (xcb_generic_event_t* const event = xcb_poll_for_event(watched)) {
        const Reply<xcb_generic_event_t> owned(event);
        if ((event->response_type & 0x7F) == XCB_PROPERTY_NOTIFY) {
            const auto* const change = reinterpret_cast<const xcb_property_notify_event_t*>(event);
            windowsChanged = windowsChanged || change->atom == clientList;
        }
    }
    if (xcb_connection_has_error(watched) != 0) {
        notifier->setEnabled(false);
        return;
    }
    if (windowsChanged && onChange) {
        const auto call = onChange;  // it may stop the watch
        call();
    }
}

}  // namespace zvr
