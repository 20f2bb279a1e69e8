// SPDX-License-Identifier: MIT
// Where caption, picture, focus mark and outline of a skinned button lie. Pure arithmetic in pixels of the
// design; the text is measured by whoever asks.
#pragma once

#include <QRect>
#include <QRegion>
#include <functional>

namespace torvane {

/// The size of the caption when it is wrapped into the given width.
using TextMeasure = std::function<QSize(int width)>;

/// Where a button's picture is: the values of PicturePosition. Any other value places it like `left`.
enum class PicturePlace { left = 0, right = 1, above = 2, below = 3, behind = 4 };

struct ButtonLayout {
    QSize client;
    QRect focus;
    QRect caption;
    QRect captionMoved; ///< the caption one pixel further right and down
    QRect picture;      ///< empty size without a picture; its place is then of no meaning
};

/// The focus mark's rectangle of a type in a client area.
QRect focusRect(int buttonType, QSize client);

/// What LayoutCaption works from; the picture's size is 0 x 0 without one.
struct CaptionSource {
    QSize client;
    QSize picture;
    PicturePlace place = PicturePlace::left;
    bool blankCaption = false; ///< empty, or blanks only
};
/// Fills the layout's caption and picture rectangles: the text area beside the picture, the measured text
/// in its middle, the picture beside the text.
void LayoutCaption(ButtonLayout& layout, const CaptionSource& source, const TextMeasure& measure);

/// The outline of a type. For most it is the plain rectangle.
QRegion BuildRegion(int buttonType, QSize client);

} // namespace torvane
