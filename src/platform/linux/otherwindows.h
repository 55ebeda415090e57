#pragma once

#include "platform/linux/x11.h"

#include <QSocketNotifier>

#include <xcb/xcb.h>
#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>
#include <vector>

namespace zvr {

/// The windows of other programs, over a connection of its own: touching them raises errors when they end, and those
/// stay in here. Everything is harmless without a connection.
class OtherWindows {
public:
    OtherWindows() = default;
    ~OtherWindows();
    OtherWindows(const OtherWindows&) = delete;
    OtherWindows& operator=(const OtherWindows&) = delete;

    /// Connects when there is no connection or the former one broke. False, with a line in the log that names what
    /// can't be done then.
    bool Connect(std::string_view purpose);
    [[nodiscard]] xcb_connection_t* Connection() const { return connection; }
    [[nodiscard]] xcb_window_t Root() const { return root; }
    [[nodiscard]] xcb_atom_t Atom(std::string_view name) const;
    [[nodiscard]] std::vector<std::uint32_t> Numbers(xcb_window_t window, xcb_atom_t property, xcb_atom_t type) const;

    /// Those that the window manager manages, the oldest first; empty without one.
    [[nodiscard]] std::vector<xcb_window_t> Managed() const;
    /// These, and all else that lies on the screen, by number.
    [[nodiscard]] std::vector<xcb_window_t> All() const;
    [[nodiscard]] bool IsDock(xcb_window_t window) const;
    [[nodiscard]] bool IsViewable(xcb_window_t window) const;
    /// As the window tells it, which some forget, or else as the server knows it. 0 for unknown.
    [[nodiscard]] std::uint32_t ProcessOf(xcb_window_t window) const;

    /// Calls from the event loop when managed windows came or went, until `StopWatching`.
    void Watch(std::function<void()> onChange);
    void StopWatching();

private:
    void ReadEvents();

    xcb_connection_t* connection = nullptr;
    xcb_window_t root = XCB_WINDOW_NONE;
    xcb_atom_t clientList = 0;
    xcb_atom_t windowType = 0;
    xcb_atom_t dock = 0;
    xcb_atom_t process = 0;
    /// Answers and events come over one wire: a question of ours would take in the events that wait before its answer,
    /// and nobody would be told. So what is watched has a wire for itself.
    xcb_connection_t* watched = nullptr;
    std::unique_ptr<QSocketNotifier> notifier;
    std::function<void()> onChange;
};

}  // namespace zvr
