// SPDX-License-Identifier: MIT
// Where the main window stands on a screen, and where in it nothing but its background picture is seen.
#pragma once

#include <QPoint>
#include <QRect>

namespace torvane::bench {

constexpr QSize windowSize{478, 504};
/// In pixels of the window, right of all controls.
constexpr QPoint bareSpot{474, 300};

/// The top left corner of the window in the middle of a screen.
inline QPoint cornerOn(const QRect& screen) {
    return screen.topLeft() +
           QPoint((screen.width() - windowSize.width()) / 2, (screen.height() - windowSize.height()) / 2);
}

} // namespace torvane::bench
