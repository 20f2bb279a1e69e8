// SPDX-License-Identifier: MIT
// Painting of the sheet's groups for the golden images, on a platform whose text looks alike on every
// desktop, and the comparison of two such pictures. Where the images lie is the caller's affair.
#pragma once

#include "ButtonSheet.h"

#include <QImage>

namespace torvane {

/// Before the application object is made: no display, the given number of dots to a pixel, Debian's way
/// with fonts, and nothing of the user's desktop.
void useFixedPlatform(const QByteArray& scaleFactor);

/// Empty if the stand-ins of all fonts on the sheet are there; else what is missing and which Debian
/// packages bring it, in one line.
QString missingFonts();

/// Paints all cells of a group side by side, each button brought into its state by mouse and focus. The
/// image has the screen's dots; its device pixel ratio is 1. It is null when a state could not be reached.
QImage paintedGroup(const SheetGroup& group);

/// How two pictures differ in an area; both must hold all of it.
struct PixelDifference {
    int count = 0; ///< pixels that differ
    QPoint first;  ///< the first of them, row by row, from the area's corner
    QRgb wanted = 0;
    QRgb painted = 0;
};
PixelDifference differenceIn(const QRect& area, const QImage& wanted, const QImage& painted);
/// The painted picture, pale, with the pixels that differ in red; four times enlarged.
QImage differencePicture(const QImage& wanted, const QImage& painted);

/// Writes the golden image of each group into the folder, over those that are there. False when one
/// could not be painted or written.
bool writeGoldenImages(const QString& folder);

} // namespace torvane
