// SPDX-License-Identifier: MIT
// The grooves look like those of the assistant's control strip.
#include "Ornament.h"

#include <cmath>

namespace torvane {

void grille(Panel& panel, const QRectF& buttons) {
    constexpr int grooves = 4;
    constexpr qreal step = 5;
    constexpr qreal indent = 12;
    const qreal top = std::floor(buttons.center().y() - (grooves - 1) * step / 2 - 1);
    for (int number = 0; number < grooves; ++number)
        panel.groove({indent, top + number * step, buttons.left() - 2 * indent, 2});
}

} // namespace torvane
