// SPDX-License-Identifier: MIT
// Sizes and places of screens.
#include "Screen.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace torvane::Screen {

QRect geometry() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->geometry() : QRect(0, 0, 1024, 768);
}

QRect geometryOf(const QWidget& window) {
    const bool hasPlace = window.isVisible() || window.testAttribute(Qt::WA_Moved);
    if (!hasPlace) return geometry();
    // A window outside all screens belongs to the one that it was on before.
    const QScreen* screen = QGuiApplication::screenAt(window.geometry().center());
    if (screen == nullptr) screen = window.screen();
    return screen ? screen->geometry() : geometry();
}

} // namespace torvane::Screen
