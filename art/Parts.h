// SPDX-License-Identifier: MIT
// Larger parts that several windows are made of: sheets for words, and ornaments in the free areas.
#pragma once

#include "Panel.h"

namespace torvane {

/// Short grooves one above the other in the row of `buttons`, from x coordinate `left` up to the buttons.
void grille(Panel& panel, const QRectF& buttons, qreal left = 0);

/// A bed for values under their headings: `headings` are the y coordinates where a further value begins.
void factSheet(Panel& panel, const QRectF& bed, const QList<qreal>& headings);

/// The vane on its tor, cut into the panel, on a groove across the foot of `area`.
void vaneMark(Panel& panel, const QRectF& area);

} // namespace torvane
