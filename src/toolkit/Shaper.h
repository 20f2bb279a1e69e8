// SPDX-License-Identifier: MIT
// Gives a window the outline of its own background picture, and lets the desktop move a window that has
// no title bar. Keeps nothing between calls.
#pragma once

#include <QImage>
#include <QRegion>

namespace torvane {

class Form;

/// The region of the pixels that a window shows: in each row the runs of pixels that have neither the
/// colour of the image's top left pixel nor the end-of-image colour; a row ends at its first pixel of the
/// latter. Colours are compared without tolerance, in 24 bits. Empty if no pixel is left.
QRegion shapeOf(const QImage& image, QRgb endOfImage);

/// Shapes a window after its background picture; the window's back colour ends a row. A window without a
/// picture keeps its rectangle; one whose picture has no visible pixel vanishes from the screen.
void ShapeForm(Form& window);

/// Has the window manager move the window as if its title bar had been pressed. Does nothing unless a
/// mouse button is down.
void DragForm(Form& window);

} // namespace torvane
