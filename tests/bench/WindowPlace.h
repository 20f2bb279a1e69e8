// SPDX-License-Identifier: MIT
// The place of the main window on a screen, and a spot in it that shows only the background picture.
#pragma once

#include <QPoint>
#include <QRect>

namespace torvane::bench {

constexpr QSize windowSize{478, 504};
/// In window pixels, right of all controls.
constexpr QPoint bareSpot{474, 300};

/// The top left corner that centres the window on a screen.
inline QPoint cornerOn(const QRect& screen) {
    return screen.topLeft() +
           QPoint((screen.width() - windowSize.width()) / 2, (screen.height() - windowSize.height()) / 2);
}

} // namespace torvane::bench
