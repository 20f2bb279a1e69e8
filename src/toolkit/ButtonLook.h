// SPDX-License-Identifier: MIT
// The row of a skinned button in a window's design.
#pragma once

#include "platform/forms/Colours.h"
#include "platform/forms/Fonts.h"
#include "platform/forms/Wordings.h"

#include <optional>

namespace torvane {

/// What a row of the window catalogue says; the rest is the same for every button of the program.
struct ButtonLook {
    int type = 2;
    int fx = 0;
    OleColour back = Colours::buttonFace;
    std::optional<OleColour> backOver = {}; ///< none: the same as `back`
    OleColour fore = Colours::buttonText;
    std::optional<OleColour> foreOver = {}; ///< none: the same as `fore`
    OleColour mask = 0xC0C0C0;
    const char* caption = "";
    const char* picture = ""; ///< a name in the resources (see Pictures), or empty
    bool lightsUp = false;    ///< under the mouse the picture's twin is shown, "NAME-over.png"
    Wording toolTip = {};
    FontSpec font = Fonts::M8b;
    bool enabled = true;
    bool showFocusRect = false;
    bool useGreyscale = true;
    bool softBevel = false;
};

} // namespace torvane
