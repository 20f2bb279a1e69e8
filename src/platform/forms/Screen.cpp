// SPDX-License-Identifier: MIT
// The primary screen.
#include "Screen.h"
#include "Form.h"

#include <QGuiApplication>
#include <QScreen>

namespace torvane::Screen {

QRect geometry() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->geometry() : QRect(0, 0, 1024, 768);
}

int Width() { return geometry().width() * twipsPerPixel; }
int Height() { return geometry().height() * twipsPerPixel; }

} // namespace torvane::Screen
