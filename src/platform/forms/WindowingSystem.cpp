// SPDX-License-Identifier: MIT
// Qt's plugin gives the windowing system away.
#include "WindowingSystem.h"

#include <QGuiApplication>

namespace torvane::WindowingSystem {

// There are several plugins: "wayland", "wayland-egl" and others.
bool isWayland() { return QGuiApplication::platformName().startsWith(QStringLiteral("wayland")); }

} // namespace torvane::WindowingSystem
