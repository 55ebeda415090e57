#include "platform/desktop.h"

#include "platform/linux/x11.h"
#include "platform/log.h"

#include <QSocketNotifier>

#include <unistd.h>
#include <xcb/xcb.h>
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <vector>

namespace zvr {
namespace {

using x11::Reply;

/// A hidden panel as it is noted at the root window: its window, and its process, since window numbers come again.
struct Panel {
    std::uint32_t window = 0;
    std::uint32_t process = 0;
    friend bool operator==(const Panel&, const Panel&) = default;
};

}  // namespace

struct Desktop::State {
    xcb_connection_t* connection = nullptr;
    xcb_window_t root = XCB_WINDOW_NONE;
    xcb_atom_t clientList = 0;
    xcb_atom_t windowType = 0;
    xcb_atom_t dock = 0;
    xcb_atom_t process = 0;
    xcb_atom_t note = 0;
    std::unique_ptr<QSocketNotifier> notifier;
    bool hiding = false;

    ~State();
    bool Connect();
    [[nodiscard]] xcb_atom_t Atom(std::string_view name) const;
    [[nodiscard]] std::vector<std::uint32_t> Numbers(xcb_window_t window, xcb_atom_t property, xcb_atom_t type) const;
    [[nodiscard]] std::vector<xcb_window_t> Windows() const;
    [[nodiscard]] bool IsDock(xcb_window_t window) const;
    [[nodiscard]] std::uint32_t ProcessOf(xcb_window_t window) const;
    [[nodiscard]] bool IsViewable(xcb_window_t window) const;
    [[nodiscard]] std::vector<Panel> Noted() const;
    void HidePanels();
    void Watch();
    void ReadEvents();
};

Desktop::State::~State() {
    notifier.reset();
    if (connection != nullptr) {
        xcb_disconnect(connection);
    }
}

bool Desktop::State::Connect() {
    if (connection != nullptr) {
        if (xcb_connection_has_error(connection) == 0) {
            return true;
        }
        notifier.reset();
        xcb_disconnect(connection);
    }
    int screen = 0;
    // A connection of its own: hiding other programs' windows raises errors when they end, and those stay in here.
    connection = xcb_connect(nullptr, &screen);
    if (const int error = xcb_connection_has_error(connection); error != 0) {
        Log::Warning("the taskbar can't be hidden or shown: no connection to the X server, error {}", error);
        xcb_disconnect(connection);
        connection = nullptr;
        return false;
    }
    root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    clientList = Atom("_NET_CLIENT_LIST");
    windowType = Atom("_NET_WM_WINDOW_TYPE");
    dock = Atom("_NET_WM_WINDOW_TYPE_DOCK");
    process = Atom("_NET_WM_PID");
    note = Atom("_ZVR_HIDDEN_PANELS");
    return true;
}

xcb_atom_t Desktop::State::Atom(std::string_view name) const {
    const auto cookie = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

std::vector<std::uint32_t> Desktop::State::Numbers(xcb_window_t window, xcb_atom_t property, xcb_atom_t type) const {
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

/// The managed windows; on a screen without a window manager all that lie on it.
std::vector<xcb_window_t> Desktop::State::Windows() const {
    std::vector<xcb_window_t> windows = Numbers(root, clientList, XCB_ATOM_WINDOW);
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

bool Desktop::State::IsDock(xcb_window_t window) const {
    const std::vector<std::uint32_t> types = Numbers(window, windowType, XCB_ATOM_ATOM);
    return std::find(types.begin(), types.end(), dock) != types.end();
}

std::uint32_t Desktop::State::ProcessOf(xcb_window_t window) const {
    const std::vector<std::uint32_t> ids = Numbers(window, process, XCB_ATOM_CARDINAL);
    return ids.empty() ? 0 : ids.front();
}

bool Desktop::State::IsViewable(xcb_window_t window) const {
    const auto cookie = xcb_get_window_attributes(connection, window);
    const Reply<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(connection, cookie, nullptr));
    return reply && reply->map_state != XCB_MAP_STATE_UNMAPPED;
}

std::vector<Panel> Desktop::State::Noted() const {
    const std::vector<std::uint32_t> numbers = Numbers(root, note, XCB_ATOM_CARDINAL);
    std::vector<Panel> panels;
    for (std::size_t i = 0; i + 1 < numbers.size(); i += 2) {
        panels.push_back({numbers[i], numbers[i + 1]});
    }
    return panels;
}

void Desktop::State::HidePanels() {
    std::vector<Panel> noted = Noted();
    std::vector<Panel> found;
    for (const xcb_window_t window : Windows()) {
        const Panel panel{window, IsDock(window) ? ProcessOf(window) : 0};
        if (IsDock(window) && panel.process != static_cast<std::uint32_t>(getpid()) && IsViewable(window)) {
            found.push_back(panel);
            if (std::find(noted.begin(), noted.end(), panel) == noted.end()) {
                noted.push_back(panel);
            }
        }
    }
    if (found.empty()) {
        return;
    }
    // The note comes first: a run that is killed between the two leaves a screen that the next one can mend.
    static_assert(sizeof(Panel) == 8);
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, root, note, XCB_ATOM_CARDINAL, 32,
                        static_cast<std::uint32_t>(noted.size() * 2), noted.data());
    for (const Panel& panel : found) {
        xcb_unmap_window(connection, panel.window);
    }
    xcb_flush(connection);
}

void Desktop::State::Watch() {
    const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(connection, root, XCB_CW_EVENT_MASK, &mask);
    xcb_flush(connection);
    notifier = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(connection), QSocketNotifier::Read);
    QObject::connect(notifier.get(), &QSocketNotifier::activated, [this] { ReadEvents(); });
}

void Desktop::State::ReadEvents() {
    bool windowsChanged = false;
    while (xcb_generic_event_t* const event = xcb_poll_for_event(connection)) {
        const Reply<xcb_generic_event_t> owned(event);
        if ((event->response_type & 0x7F) == XCB_PROPERTY_NOTIFY) {
            const auto* const change = reinterpret_cast<const xcb_property_notify_event_t*>(event);
            windowsChanged = windowsChanged || change->atom == clientList;
        }
    }
    if (xcb_connection_has_error(connection) != 0) {
        notifier->setEnabled(false);
        return;
    }
    // A panel that was started again comes up visible.
    if (windowsChanged && hiding) {
        HidePanels();
    }
}

Desktop::Desktop() : state(std::make_unique<State>()) {}
Desktop::~Desktop() = default;

void Desktop::HideTaskbar() {
    if (!state->Connect()) {
        return;
    }
    state->hiding = true;
    state->HidePanels();
    if (state->notifier == nullptr) {
        state->Watch();
    }
}

void Desktop::ShowTaskbar() {
    state->hiding = false;
    if (!state->Connect()) {
        return;
    }
    for (const Panel& panel : state->Noted()) {
        if (state->IsDock(panel.window) && state->ProcessOf(panel.window) == panel.process) {
            xcb_map_window(state->connection, panel.window);
        }
    }
    xcb_delete_property(state->connection, state->root, state->note);
    xcb_flush(state->connection);
    state->notifier.reset();
    const std::uint32_t mask = XCB_EVENT_MASK_NO_EVENT;
    xcb_change_window_attributes(state->connection, state->root, XCB_CW_EVENT_MASK, &mask);
    xcb_flush(state->connection);
}

}  // namespace zvr
