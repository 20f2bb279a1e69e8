// SPDX-License-Identifier: MIT
// The order of one paint of a skinned button, its captions, effect passes and pictures.
#include "ButtonPainter.h"
#include "TransparentBlit.h"

namespace torvane {

ButtonPainter::ButtonPainter(QImage& surface, const ButtonFace& face)
    : m_surface(surface), m_face(face), m_colours(face.colours), m_width(face.layout.client.width()),
      m_height(face.layout.client.height()), m_painter(&surface) {}

void ButtonPainter::paint() {
    fillOrFrame({0, 0, m_width, m_height}, m_colours.face, false);
    if (!m_face.enabled) {
        paintDisabled();
        paintPicture(Branch::disabled);
    } else if (m_face.pressed) {
        paintPressed();
        paintPicture(Branch::pressed);
    } else {
        paintNormal();
        paintPicture(Branch::normal);
    }
}

void ButtonPainter::paintCaption(Look look) {
    const QRect& first = m_face.layout.caption;
    const QRect& second = m_face.layout.captionMoved;
    m_captionLook = look;
    if (m_face.caption.isEmpty()) return;
    switch (look) {
    case normal:
    case under:
        paintCaptionEffect(first);
        return paintText(first, look == normal ? m_colours.text : m_colours.textOver);
    case down:
        paintCaptionEffect(second);
        return paintText(second, m_face.type == 4 ? m_colours.light : m_colours.textOver);
    case dead: paintText(second, m_colours.highlight); return paintText(first, m_colours.shadow);
    case deadFlat: paintCaptionEffect(first); return paintText(first, m_colours.shadow);
    case deadWarm: return paintText(first, shifted(m_colours.deepFace, -104, true));
    case deadSmooth: paintText(second, m_colours.highlight); return paintText(first, m_colours.face);
    case downSmooth:
        paintText(second, shifted(m_colours.shadow, -50));
        return paintText(first, m_colours.highlight);
    }
}

void ButtonPainter::paintCaptionEffect(const QRect& place) {
    const int effect = m_face.specialEffect;
    if (effect <= 0) return;
    paintText(place.translated(1, 1), shifted(effectBase(), effect == 2 ? 40 : -40));
    if (effect < 3) paintText(place.translated(-1, -1), shifted(effectBase(), effect == 2 ? -40 : 40));
}

void ButtonPainter::paintText(const QRect& place, OleColour colour) {
    QFont font = m_face.font;
    QRect area = place;
    if (m_boldCaption) {
        // The place was measured for the plain font: bold needs more on both sides.
        const int spare = std::min(place.left(), m_width - place.left() - place.width());
        area.adjust(-spare, 0, spare, 0);
        font.setBold(true);
    }
    m_painter.setFont(font);
    m_painter.setPen(Colours::toQColor(colour));
    m_painter.drawText(area, captionFlags | Qt::AlignHCenter, m_face.caption);
}

void ButtonPainter::paintPicture(Branch branch) {
    if (m_face.normalPicture.isNull()) return;
    const bool hasOver = !m_face.overPicture.isNull();
    const QImage& chosen =
        hasOver && (branch == Branch::pressed || m_face.over) ? m_face.overPicture : m_face.normalPicture;
    if (branch == Branch::disabled) {
        paintDisabledPicture();
    } else {
        const bool stays = branch == Branch::normal || m_face.type == 5 || m_face.type == 9;
        paintPictureEffect(chosen, stays ? 0 : 1);
        copyPicture(chosen, stays ? 0 : 1, branch == Branch::normal && !m_face.over && m_face.useGreyscale);
    }
    if (m_face.place == PicturePlace::behind) paintCaption(m_captionLook);
}

void ButtonPainter::paintPictureEffect(const QImage& picture, int offset) {
    const int effect = m_face.specialEffect;
    if (effect <= 0) return;
    stencilPicture(picture, {offset + 1, offset + 1}, shifted(effectBase(), effect == 2 ? 40 : -40));
    if (effect >= 3) return;
    stencilPicture(picture, {offset - 1, offset - 1}, shifted(effectBase(), effect == 2 ? -40 : 40));
}

void ButtonPainter::paintDisabledPicture() {
    const QImage& picture = m_face.normalPicture;
    switch (m_face.type) {
    case 3: return stencilPicture(picture, {1, 1}, m_colours.deepFace);
    case 5:
    case 6:
    case 9: return stencilPicture(picture, {0, 0}, m_colours.shadow);
    default:
        stencilPicture(picture, {1, 1}, m_colours.highlight);
        return stencilPicture(picture, {0, 0}, m_colours.shadow);
    }
}

void ButtonPainter::stencilPicture(const QImage& picture, QPoint offset, OleColour colour) {
    BlitRule rule;
    if (m_face.useMaskColor) rule.mask = m_colours.mask;
    rule.brush = colour;
    rule.stencil = true;
    TransparentBlit(m_surface, onSurface(m_face.layout.picture.translated(offset)), picture, rule);
}

void ButtonPainter::copyPicture(const QImage& picture, int offset, bool grey) {
    BlitRule rule;
    if (m_face.useMaskColor) rule.mask = m_colours.mask;
    rule.grey = grey;
    TransparentBlit(m_surface, onSurface(m_face.layout.picture.translated(offset, offset)), picture, rule);
}

void ButtonPainter::paintFocus() {
    if (!m_face.focusMark) return;
    // Every second pixel is inverted, so that the mark shows on any face.
    m_painter.setCompositionMode(QPainter::CompositionMode_Difference);
    const QRect& mark = m_face.layout.focus;
    for (int x = mark.left(); x <= mark.right(); ++x) {
        for (int y = mark.top(); y <= mark.bottom(); ++y) {
            const bool onEdge =
                x == mark.left() || x == mark.right() || y == mark.top() || y == mark.bottom();
            if (onEdge && (x + y) % 2 == 0) paintPixel(x, y, Colours::white);
        }
    }
    m_painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
}

void ButtonPainter::paintLine(QPoint from, QPoint to, OleColour colour) {
    const auto span = [](int first, int last) {
        return first <= last ? std::pair(first, last - first) : std::pair(last + 1, first - last);
    };
    const auto [x, width] = span(from.x(), to.x());
    const auto [y, height] = span(from.y(), to.y());
    const bool isLevel = from.y() == to.y();
    m_painter.fillRect(isLevel ? x : from.x(), isLevel ? from.y() : y, isLevel ? width : 1,
                       isLevel ? 1 : height, Colours::toQColor(colour));
}

void ButtonPainter::paintPixel(int x, int y, OleColour colour) {
    m_painter.fillRect(x, y, 1, 1, Colours::toQColor(colour));
}

void ButtonPainter::fillOrFrame(const QRect& area, OleColour colour, bool frameOnly) {
    if (area.isEmpty()) return;
    if (!frameOnly) return m_painter.fillRect(area, Colours::toQColor(colour));
    paintLine(area.topLeft(), area.topRight(), colour);
    paintLine(area.topRight(), area.bottomRight(), colour);
    paintLine(area.bottomRight(), area.bottomLeft(), colour);
    paintLine(area.bottomLeft(), area.topLeft(), colour);
}

QRect ButtonPainter::onSurface(const QRect& area) const {
    const qreal ratio = m_surface.devicePixelRatio();
    return {(QPointF(area.topLeft()) * ratio).toPoint(), (QSizeF(area.size()) * ratio).toSize()};
}

OleColour ButtonPainter::shifted(OleColour colour, int amount, bool blueRule) const {
    return ShiftRgb(colour, softened(amount, m_face.softBevel), blueRule);
}

OleColour ButtonPainter::effectBase() const {
    const bool isDeep = m_face.type == 3 || m_face.type == 4 || m_face.type == 14;
    return isDeep ? m_colours.deepFace : m_colours.face;
}

} // namespace torvane
