#pragma once

#include "ui/geometry.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>

struct xcb_connection_t;

/// Questions to the window system over the toolkit's own connection. All harmless without one.
namespace zvr::x11 {

/// An answer of the server, which its library leaves to us.
struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};
template <typename T>
using Reply = std::unique_ptr<T, FreeReply>;

[[nodiscard]] xcb_connection_t* Connection();  ///< null without one
[[nodiscard]] std::uint32_t Atom(xcb_connection_t* connection, std::string_view name);
[[nodiscard]] bool CompositorRuns();
[[nodiscard]] bool WindowManagerRuns();
/// As a pager asks for it: before other programs' windows, wherever the user typed last.
void Activate(std::uintptr_t window);
/// Keeps `window` before `owner` while both are shown.
void SetOwner(std::uintptr_t window, std::uintptr_t owner);
/// Pixels; 0 by 0 without such a window.
[[nodiscard]] Size SizeOf(std::uintptr_t window);
enum class ChildKind {
    picture,  ///< somebody draws into it
    pane,     ///< invisible; what is touched is its parent
};
/// A window that fills another one, in front of its other children; 0 when there is none to fill.
[[nodiscard]] std::uint32_t MakeChild(std::uintptr_t parent, ChildKind kind);
void Resize(std::uint32_t window, Size size);  ///< pixels
void Destroy(std::uint32_t window);
/// Moves the pointer to a pixel of the window and presses and lifts the first button there, for those that listen to
/// this window; the real pointer stays.
void SendPress(std::uint32_t window, Point p);
void FlushConnection();
/// Sends the window manager what a client message of that kind asks for a window.
void AskWindowManager(xcb_connection_t* connection, std::uintptr_t window, std::string_view what,
                      const std::array<std::uint32_t, 3>& data);

}  // namespace zvr::x11
