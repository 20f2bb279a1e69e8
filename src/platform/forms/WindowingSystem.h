// SPDX-License-Identifier: MIT
// Which windowing system the windows are on, for the few places where that makes a difference.
#pragma once

namespace torvane::WindowingSystem {

/// Wayland lets no program place its windows: has Qt use an X11 server where DISPLAY names one, and Wayland
/// only if that does not answer. The user's QT_QPA_PLATFORM stays. Must come before the QApplication.
void preferX11();

/// Whether this is Wayland: windows neither know nor choose their places, one that is minimised comes back by
/// the user alone, and there is no tray but that of the session bus.
bool isWayland();

} // namespace torvane::WindowingSystem
