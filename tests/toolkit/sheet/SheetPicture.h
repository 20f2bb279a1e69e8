// SPDX-License-Identifier: MIT
// The picture on the buttons of the sheet. It is drawn here, so that the program's artwork can change
// without the golden images.
#pragma once

#include "platform/forms/Colours.h"

#include <QPixmap>

namespace torvane {

/// A cartridge in 16 x 16 units on the mask colour: dark and bright parts, tones just on both sides of what
/// a stencil takes for dark, a tone next to the mask, and a line as thin as the picture's dots allow. The
/// edge is in pixels; the ratio is the picture's dots to a pixel. Under the mouse it has another colour.
QPixmap sheetPicture(int edge, OleColour mask, bool underMouse, qreal ratio);

} // namespace torvane
