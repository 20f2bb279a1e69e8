// SPDX-License-Identifier: MIT
// The screens that windows are placed on.
#pragma once

#include <QRect>

class QWidget;

namespace torvane::Screen {

/// The whole primary screen in device-independent pixels; a fallback of 1024 x 768 where there is no screen.
QRect geometry();
/// The whole screen that the middle of a window is on, or was on when it was hidden, in the same pixels: the
/// primary one for a window that has had no place yet. Its corner is (0, 0) on one screen of several.
QRect geometryOf(const QWidget& window);

} // namespace torvane::Screen
