// SPDX-License-Identifier: MIT
// The looks of the skinned button by type: the ground under the caption and the frame around it.
// Types 3, 4 and 5 have a file of their own.
#include "ButtonPainter.h"

#include <QPainterPath>

namespace torvane {

void ButtonPainter::paintNormal() {
    // For the whole paint: over a picture behind it the caption is painted once more.
    m_boldCaption = m_face.type == 14 && m_face.isDefault;
    paintGround();
    paintCaption(m_face.over ? under : normal);
    paintFrame(false);
    paintFocus();
}

void ButtonPainter::paintPressed() {
    if (m_face.type == 14) return pressSmooth();
    paintGround();
    paintCaption(down);
    paintFrame(true);
    const bool isThin = m_face.type == 7 || m_face.type == 8 || m_face.type == 12;
    if (!isThin) paintFocus();
}

void ButtonPainter::paintDisabled() {
    paintGround();
    if (m_face.type == 14) paintFrame(false);
    paintCaption(deadLook());
    if (m_face.type != 14) paintFrame(false);
}

ButtonPainter::Look ButtonPainter::deadLook() const {
    switch (m_face.type) {
    case 3: return deadWarm;
    case 6: return deadFlat;
    case 14: return deadSmooth;
    default: return dead;
    }
}

void ButtonPainter::paintGround() {
    switch (m_face.type) {
    case 3:
    case 4:
    case 5: return fillHandDrawn();
    case 9: return fillFlat();
    case 11: return m_painter.drawImage(0, 0, m_face.background);
    case 13: return fillEllipse();
    case 14: return fillSmooth();
    default: return;
    }
}

void ButtonPainter::paintFrame(bool isDown) {
    switch (m_face.type) {
    case 1: return frameClassic(isDown);
    case 2: return frameTwoLevel(isDown);
    case 3:
    case 4:
    case 5: return frameHandDrawn();
    case 6: return frameTwoTone(isDown);
    case 7: return frameThin(isDown);
    case 8: return m_face.over ? frameThin(isDown) : void();
    case 12: return m_face.over ? frameTwoLevel(isDown) : void();
    case 14: return frameSmooth();
    default: return;
    }
}

void ButtonPainter::paintBevel(const BevelColours& colours, int offset, Depth depth) {
    const int a = std::abs(offset);
    const int right = m_width - 1 + offset;
    const int bottom = m_height - 1 + offset;
    paintLine({a, bottom}, {a, a}, colours.topLeftOuter);
    paintLine({a, a}, {right, a}, colours.topLeftOuter);
    paintLine({right, a}, {right, bottom}, colours.bottomRightOuter);
    paintLine({right, bottom}, {a - 1, bottom}, colours.bottomRightOuter);
    if (depth == Depth::flat) return;
    paintLine({a + 1, bottom - 1}, {a + 1, a + 1}, colours.topLeftInner);
    paintLine({a + 1, a + 1}, {right - 1, a + 1}, colours.topLeftInner);
    paintLine({right - 1, a + 1}, {right - 1, bottom - 1}, colours.bottomRightInner);
    paintLine({right - 1, bottom - 1}, {a, bottom - 1}, colours.bottomRightInner);
}

void ButtonPainter::frameTwoTone(bool isDown) {
    const OleColour lit = shifted(m_colours.light, 8);
    const OleColour topLeft = isDown ? m_colours.shadow : lit;
    const OleColour bottomRight = isDown ? lit : m_colours.shadow;
    paintBevel({topLeft, bottomRight, topLeft, bottomRight}, 0, Depth::full);
}

void ButtonPainter::frameThin(bool isDown) {
    const BevelColours raised{m_colours.highlight, m_colours.shadow};
    const BevelColours sunken{m_colours.shadow, m_colours.highlight};
    paintBevel(isDown ? sunken : raised, 0, Depth::flat);
}

void ButtonPainter::frameClassic(bool isDown) {
    const OleColour topLeft = isDown ? m_colours.shadow : m_colours.highlight;
    const OleColour bottomRight = isDown ? m_colours.highlight : m_colours.shadow;
    paintBevel({topLeft, bottomRight, topLeft, bottomRight}, -1, Depth::full);
    fillOrFrame({0, 0, m_width, m_height}, m_colours.darkShadow, true);
}

void ButtonPainter::frameTwoLevel(bool isDown) {
    const auto& c = m_colours;
    const BevelColours raised{c.highlight, c.darkShadow, c.light, c.shadow};
    const BevelColours sunken{c.darkShadow, c.highlight, c.shadow, c.light};
    // At rest the default mark shows with the focus mark only, pressed always.
    const bool isMarked = m_face.type != 12 && m_face.isDefault && (isDown || m_face.showFocusRect);
    if (!isMarked) return paintBevel(isDown ? sunken : raised, 0, Depth::full);
    fillOrFrame({0, 0, m_width, m_height}, c.darkShadow, true);
    if (isDown) {
        fillOrFrame({1, 1, m_width - 2, m_height - 2}, c.shadow, true);
    } else {
        paintBevel(raised, -1, Depth::full);
    }
}

void ButtonPainter::fillFlat() {
    if (!m_face.over || !m_face.enabled) return;
    const OleColour pressedFill =
        m_face.customScheme ? shifted(m_colours.accentLight, -32) : LightenRgb(m_colours.accent, 128);
    fillOrFrame({1, 1, m_width, m_height}, m_face.pressed ? pressedFill : m_colours.accentLight, false);
    fillOrFrame({0, 0, m_width, m_height}, m_colours.accent, true);
}

void ButtonPainter::fillEllipse() {
    const bool isDown = m_face.pressed && m_face.enabled;
    const OleColour edge = isDown ? m_colours.darkShadow : m_face.over ? m_colours.shadow : m_colours.face;
    // The outline cuts the edge off outside: what it leaves of it is two pixels wide all round.
    fillOrFrame({0, 0, m_width, m_height}, edge, false);
    QPainterPath inside;
    inside.addEllipse(2, 2, m_width - 4, m_height - 4);
    m_painter.fillPath(inside, Colours::toQColor(isDown ? shifted(m_colours.face, -32) : m_colours.face));
}

void ButtonPainter::fillSmooth() {
    if (m_face.over && m_face.enabled) {
        return fillOrFrame({0, 0, m_width, m_height}, m_colours.light, false);
    }
    for (int y = 1; y < m_height; ++y) {
        paintLine({0, y}, {m_width, y}, shifted(m_colours.highlight, gradientShift(y, m_height)));
    }
}

void ButtonPainter::frameSmooth() {
    fillOrFrame({0, 0, m_width, m_height}, shifted(m_colours.shadow, -50), true);
    fillOrFrame({1, 1, m_width - 2, m_height - 2}, shifted(m_colours.face, -9), true);
    fillOrFrame({2, 2, m_width - 4, 2}, m_colours.highlight, false);
    fillOrFrame({2, 4, 2, m_height - 6}, m_colours.highlight, false);
}

void ButtonPainter::pressSmooth() {
    fillOrFrame({1, 1, m_width, m_height}, shifted(m_colours.face, -9), false);
    fillOrFrame({0, 0, m_width, m_height}, shifted(m_colours.shadow, -48), true);
    paintLine({2, m_height - 2}, {m_width - 2, m_height - 2}, m_colours.highlight);
    paintLine({m_width - 2, 2}, {m_width - 2, m_height - 1}, m_colours.highlight);
    paintCaption(downSmooth);
}

} // namespace torvane
