// SPDX-License-Identifier: MIT
// Chosen by Qt's variable for its plugins; the name of the plugin gives the windowing system away.
#include "WindowingSystem.h"

#include <QGuiApplication>

namespace torvane::WindowingSystem {

void preferX11() {
    if (!qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") || qEnvironmentVariableIsEmpty("DISPLAY")) return;
    // Named alone, xcb would end the program where the variable is left over from another session.
    const bool hasWayland = !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
    qputenv("QT_QPA_PLATFORM", hasWayland ? "xcb;wayland" : "xcb");
}

// There are several plugins: "wayland", "wayland-egl" and others.
bool isWayland() { return QGuiApplication::platformName().startsWith(QStringLiteral("wayland")); }

} // namespace torvane::WindowingSystem
