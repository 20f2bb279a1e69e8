// SPDX-License-Identifier: MIT
// The colours of all pictures, so that backgrounds, icons and movies match. The program's own controls get
// their colours from their designs; these are the others that the artwork needs.
#pragma once

#include <QColor>

namespace torvane::palette {

inline const QColor darkPanel(0x33, 0x39, 0x4a);
inline const QColor buttonBack(0x4e, 0x4d, 0x64);
inline const QColor titleBand(0x1a, 0x1a, 0x1a);
inline const QColor paleField(0x93, 0x9a, 0xb0);
inline const QColor foldOut(0x74, 0x77, 0xa3);
inline const QColor edge(0x0a, 0x0b, 0x11);
inline const QColor cut(0x10, 0x12, 0x1a);
inline const QColor rim(0x86, 0x8f, 0xb2);
inline const QColor ember(0xf2, 0xa2, 0x3c);

// Icons: two tones, one accent, one outline. The outline is not pure black, because that is the mask.
inline const QColor outline(0x0a, 0x0a, 0x12);

// The night outside: sky from its top to the horizon, and the hills from the farthest to the nearest.
inline const QColor skyTop(0x10, 0x12, 0x22);
inline const QColor skyMiddle(0x2a, 0x2d, 0x4e);
inline const QColor skyLow(0x5d, 0x5b, 0x8c);
inline const QColor farHill(0x3f, 0x42, 0x68);
inline const QColor middleHill(0x2a, 0x2e, 0x48);
inline const QColor nearHill(0x16, 0x19, 0x28);
inline const QColor auroraHigh(0x58, 0x7f, 0xc0);
inline const QColor auroraLow(0x5f, 0xd2, 0xa4);
inline const QColor moon(0xf4, 0xec, 0xd6);

/// The colour `from` with `alpha` (0 to 255) instead of its own.
inline QColor veil(QColor from, int alpha) {
    from.setAlpha(alpha);
    return from;
}

} // namespace torvane::palette
