// SPDX-License-Identifier: MIT
// The parts that more than one background has, so that they look the same in every window.
#include "Parts.h"

#include "Night.h"
#include "Palette.h"

#include <cmath>

namespace torvane {

void grille(Panel& panel, const QRectF& buttons, qreal left) {
    constexpr int grooves = 4;
    constexpr qreal step = 5;
    constexpr qreal indent = 12;
    const qreal top = std::floor(buttons.center().y() - (grooves - 1) * step / 2 - 1);
    for (int number = 0; number < grooves; ++number)
        panel.groove({left + indent, top + number * step, buttons.left() - left - 2 * indent, 2});
}

void factSheet(Panel& panel, const QRectF& bed, const QList<qreal>& headings) {
    panel.tray(bed, palette::darkPanel.darker(115));
    for (const qreal line : headings)
        panel.groove(between(bed.left() + 1, line - 3, bed.right() - 1, line - 1));
}

void vaneMark(Panel& panel, const QRectF& area) {
    const QPointF foot(area.center().x(), area.bottom() - 3);
    panel.engraving(night::emblem(foot, foot.y() - area.top()));
    panel.groove({area.left(), foot.y() + 1, area.width(), 2});
}

} // namespace torvane
