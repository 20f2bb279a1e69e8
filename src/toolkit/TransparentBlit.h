// SPDX-License-Identifier: MIT
// The copy of a picture onto a surface, pixel by pixel: with a transparent colour, as a stencil in one
// colour, in grey, or blended with what is there.
#pragma once

#include "platform/forms/Colours.h"

#include <QImage>
#include <optional>

namespace torvane {

/// How each pixel of a picture reaches the surface. The colours are plain 0xBBGGRR words.
struct BlitRule {
    std::optional<OleColour> mask = {};  ///< pixels of this colour leave the surface as it is
    std::optional<OleColour> brush = {}; ///< the colour that replaces that of the picture's pixels
    bool stencil = false; ///< with a brush: only dark pixels (sum of channels 384 or less) print
    bool grey = false;    ///< without a brush: luminance in all three channels
    bool blend = false;   ///< without a brush and grey: (2 x picture + surface) / 3
};

/// Copies the picture's top left part to the rectangle `at` of the target, in the target's own pixels. A
/// negative width or height means the picture's own, 0 copies nothing. What lies outside the target or
/// the picture is left out. The target must be of the format RGB32; the picture may be of any.
void TransparentBlit(QImage& target, const QRect& at, const QImage& picture, const BlitRule& rule);

/// The luminance of a colour, 0 to 255: 0.3 red + 0.59 green + 0.11 blue, rounded, exact halves to even.
int luminance(QRgb colour);

/// A picture made ready for the copy at a number of surface pixels to a pixel of the design: nearest
/// neighbours, so that a transparent colour stays exact, and transparent parts filled with the mask.
QImage pictureAt(const QImage& picture, qreal ratio, OleColour mask);

} // namespace torvane
