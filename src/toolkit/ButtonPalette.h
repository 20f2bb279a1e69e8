// SPDX-License-Identifier: MIT
// The twelve colours that a skinned button paints with, and the arithmetic that derives them from a few.
// Knows no widget: which colours go in is the button's affair.
#pragma once

#include "platform/forms/Colours.h"

namespace torvane {

/// Adds the amount to each channel of a plain 0xBBGGRR word and clamps to 0..255. With the blue rule, blue
/// takes blue x amount / 192 (integer division) instead of the amount.
OleColour ShiftRgb(OleColour colour, int amount, bool blueRule = false);
/// Moves each channel towards white: (255 - amount) x channel / 255 + amount, at most 255. The amount is
/// 0 (unchanged) to 255 (white).
OleColour LightenRgb(OleColour colour, int amount);
/// The amount that a shift really takes: half of it, cut towards zero, with the soft bevel.
constexpr int softened(int amount, bool softBevel) { return softBevel ? amount / 2 : amount; }
/// The shift of row y (1 to height) of the gradient of type 14: from nearly 0 down to -58.
int gradientShift(int y, int height);

/// What a palette is made from. All colours may be system colours.
struct PaletteSource {
    int colorScheme = 1; ///< 2 custom, 3 fixed, 4 the container's, any other the system's
    int buttonType = 2;
    bool softBevel = false;
    OleColour back = Colours::buttonFace;
    OleColour backOver = Colours::buttonFace;
    OleColour fore = Colours::buttonText;
    OleColour foreOver = Colours::buttonText;
    OleColour mask = 0xC0C0C0;
    OleColour containerBack = Colours::buttonFace; ///< for scheme 4 only
    OleColour containerText = Colours::buttonText; ///< for scheme 4 only
};

/// The resolved palette: plain 0xBBGGRR words.
struct ButtonPalette {
    OleColour face = 0;
    OleColour light = 0;      ///< inner highlight
    OleColour highlight = 0;  ///< outer highlight
    OleColour shadow = 0;     ///< outer shadow
    OleColour darkShadow = 0; ///< darkest edge
    OleColour text = 0;
    OleColour textOver = 0; ///< caption under the mouse, and pressed
    OleColour faceOver = 0;
    OleColour accent = 0;      ///< edge of the flat type 9
    OleColour accentLight = 0; ///< fill of the flat type 9
    OleColour mask = 0;
    OleColour deepFace = 0; ///< ground of the gradients

    bool operator==(const ButtonPalette&) const = default;
};

ButtonPalette ApplyColorScheme(const PaletteSource& source);

} // namespace torvane
