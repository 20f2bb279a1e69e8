// SPDX-License-Identifier: MIT
// The recurring faces of skinned buttons, by name, so that a button stays on one line of a design.
#pragma once

#include "ButtonLook.h"
#include "DesignWords.h"

namespace torvane {

/// A wide button with a caption, and a picture at its left if it has one.
constexpr ButtonLook wide(const char* caption, const char* picture = "") {
    return {.type = 7,
            .fx = 2,
            .back = indigo,
            .fore = white,
            .mask = black,
            .caption = caption,
            .picture = picture};
}
/// The same, switched off.
constexpr ButtonLook wideOff(const char* caption) {
    return {.type = 7,
            .fx = 3,
            .back = indigo,
            .fore = white,
            .mask = black,
            .caption = caption,
            .font = V8b,
            .enabled = false};
}
/// A button at the foot of a dialog, with a picture at its left if it has one.
constexpr ButtonLook foot(const char* caption, const char* picture = "") {
    return {.type = 7,
            .fx = 2,
            .back = slate,
            .fore = white,
            .mask = black,
            .caption = caption,
            .picture = picture};
}
/// The same face, switched off at first.
constexpr ButtonLook off(ButtonLook face) {
    face.enabled = false;
    return face;
}
/// A button of the title band.
constexpr ButtonLook onBand(const char* picture, const Wording& toolTip = {}) {
    return {.type = 6,
            .fx = 2,
            .back = band,
            .fore = black,
            .mask = 0xC0C0C0,
            .picture = picture,
            .toolTip = toolTip};
}
/// A small tool above or below a list.
constexpr ButtonLook tool(const char* picture, const Wording& toolTip = {}, bool enabled = true) {
    return {.type = 6,
            .fx = 3,
            .back = slate,
            .fore = black,
            .mask = black,
            .picture = picture,
            .toolTip = toolTip,
            .enabled = enabled};
}
/// A small button with a picture alone.
constexpr ButtonLook small(const char* picture) {
    return {.type = 6, .fx = 2, .back = indigo, .fore = black, .mask = black, .picture = picture};
}
/// A button that opens another window; its picture changes under the mouse.
constexpr ButtonLook door(const char* picture, const Wording& toolTip) {
    return {.type = 6,
            .fx = 2,
            .back = indigo,
            .fore = black,
            .mask = black,
            .picture = picture,
            .lightsUp = true,
            .toolTip = toolTip};
}
/// A tab of the game panel.
constexpr ButtonLook tab(const char* caption) {
    return {.type = 6,
            .fx = 3,
            .back = indigo,
            .fore = 0x808080,
            .foreOver = 0x00C000,
            .mask = black,
            .caption = caption,
            .font = V8b};
}
/// A button of the control panel, of a plain desktop's colours, with a picture at its left.
constexpr ButtonLook soft(const char* caption, const char* picture, OleColour back = 0xD8E9EC) {
    return {.type = 14,
            .fx = 2,
            .back = back,
            .fore = 0x800000,
            .mask = 0xC0C0C0,
            .caption = caption,
            .picture = picture,
            .softBevel = true};
}
/// An answer to the program's own question.
constexpr ButtonLook answer(const char* caption, OleColour backOver) {
    return {.type = 6,
            .fx = 3,
            .back = indigo,
            .backOver = backOver,
            .fore = black,
            .caption = caption,
            .font = V9b,
            .showFocusRect = true,
            .useGreyscale = false};
}

} // namespace torvane
