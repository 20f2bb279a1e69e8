// SPDX-License-Identifier: MIT
// What the window catalogue says of a window.
#pragma once

#include "Colours.h"

#include <QSize>

namespace torvane {

/// Twips in a pixel: the forms' unit of measure.
constexpr int twipsPerPixel = 15;

/// The row of a window in the window catalogue.
struct FormDesign {
    enum Border { none, fixedDialog, sizable };
    enum StartPosition { centreOfScreen, systemDefault };
    enum Unit { pixels, twips };

    const char* name;
    const char* title;
    QSize clientSize; ///< pixels
    Border border = none;
    StartPosition start = centreOfScreen;
    const char* picture = ""; ///< name in the resources (see Pictures), or empty
    OleColour backColour = Colours::buttonFace;
    Unit unit = pixels;
    bool inTaskBar = false;
};

} // namespace torvane
