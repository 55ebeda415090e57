#pragma once

#include "ui/geometry.h"

#include <cstdint>

/// Questions to the window system over the toolkit's own connection. All harmless without one.
namespace zvr::x11 {

[[nodiscard]] bool CompositorRuns();
[[nodiscard]] bool WindowManagerRuns();
/// As a pager asks for it: before other programs' windows, wherever the user typed last.
void Activate(std::uintptr_t window);
/// The window manager's menu of the window, where it has one; pixels of the screen.
void ShowWindowMenu(std::uintptr_t window, Point onScreen);
/// Keeps `window` before `owner` while both are shown.
void SetOwner(std::uintptr_t window, std::uintptr_t owner);
void FlushConnection();

}  // namespace zvr::x11
