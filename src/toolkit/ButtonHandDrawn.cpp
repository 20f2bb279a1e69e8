// SPDX-License-Identifier: MIT
// The button types 3 (warm), 4 (round) and 5 (notched): gradient rows and drawn edges. No window of the
// program shows them; they are here for whoever sets ButtonType.
#include "ButtonPainter.h"

namespace torvane {

namespace {
constexpr OleColour deepEdge = 0x733C00;
constexpr OleColour cornerEdge = 0x7B4D10;
constexpr OleColour orangeLight = 0x8CD6FF;
constexpr OleColour orangeDark = 0x2897E9;
constexpr OleColour blueLight = 0xFAD6C4;
constexpr OleColour blueDark = 0xD89878;
} // namespace

void ButtonPainter::paintRows(int topShift, int bottomShift) {
    const bool blueRule = m_face.type == 3;
    for (int y = 0; y < m_height; ++y) {
        const int amount = topShift + (bottomShift - topShift) * y / m_height;
        paintLine({0, y}, {m_width, y}, shifted(m_colours.deepFace, amount, blueRule));
    }
}

void ButtonPainter::fillHandDrawn() {
    const bool isDown = m_face.pressed && m_face.enabled;
    switch (m_face.type) {
    case 3:
        if (!m_face.enabled) return paintRows(-24, -24);
        return isDown ? paintRows(-40, -25) : paintRows(0, -25);
    case 4:
        // Pressed it turns dark: its caption is then light.
        return isDown ? paintRows(-130, -80) : paintRows(16, -40);
    default:
        if (isDown) fillOrFrame({0, 0, m_width, m_height}, shifted(m_colours.face, -24), false);
        return;
    }
}

void ButtonPainter::frameHandDrawn() {
    switch (m_face.type) {
    case 3: return frameWarm();
    case 4: return frameRound();
    default: return frameNotched();
    }
}

void ButtonPainter::paintRim(OleColour topLeft, OleColour bottomRight) {
    fillOrFrame({2, 1, m_width - 4, 2}, topLeft, false);
    fillOrFrame({1, 2, 2, m_height - 4}, topLeft, false);
    fillOrFrame({2, m_height - 3, m_width - 4, 2}, bottomRight, false);
    fillOrFrame({m_width - 3, 2, 2, m_height - 4}, bottomRight, false);
}

void ButtonPainter::frameWarm() {
    if (!m_face.enabled) {
        return fillOrFrame({0, 0, m_width, m_height}, shifted(m_colours.deepFace, -84, true), true);
    }
    if (m_face.over && !m_face.pressed) {
        paintRim(orangeLight, orangeDark);
    } else if ((m_face.focusMark || m_face.isDefault) && !m_face.pressed) {
        paintRim(blueLight, blueDark);
    }
    fillOrFrame({0, 0, m_width, m_height}, deepEdge, true);
    for (const int x : {1, m_width - 2}) {
        for (const int y : {1, m_height - 2}) paintPixel(x, y, cornerEdge);
    }
}

void ButtonPainter::frameRound() {
    const OleColour edge = m_face.enabled ? m_colours.darkShadow : m_colours.shadow;
    if (m_face.over && m_face.enabled && !m_face.pressed) paintRim(blueLight, blueDark);
    fillOrFrame({0, 0, m_width, m_height}, edge, true);
    for (const int x : {1, m_width - 2}) {
        for (const int y : {1, m_height - 2}) paintPixel(x, y, shifted(edge, 48));
    }
}

void ButtonPainter::frameNotched() {
    const bool isLit = m_face.over && m_face.enabled && !m_face.pressed;
    fillOrFrame({1, 1, m_width - 1, m_height - 1}, isLit ? blueLight : m_colours.highlight, true);
    fillOrFrame({0, 0, m_width - 1, m_height - 1}, isLit ? blueDark : m_colours.shadow, true);
}

} // namespace torvane
