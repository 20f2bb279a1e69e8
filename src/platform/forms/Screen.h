// SPDX-License-Identifier: MIT
// The screen that windows are placed on: the desktop's primary one.
#pragma once

#include <QRect>

namespace torvane::Screen {

/// The whole screen in device-independent pixels; a fallback of 1024 x 768 where there is no screen.
QRect geometry();
/// The screen's size in twips.
int Width();
int Height();

} // namespace torvane::Screen
