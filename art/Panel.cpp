// SPDX-License-Identifier: MIT
// How the parts of the panel are painted. Lines are filled rectangles or paths between whole pixels, so that
// they are sharp.
#include "Panel.h"

#include "Palette.h"

#include <QRadialGradient>

#include <algorithm>
#include <utility>

namespace torvane {

using namespace palette;

namespace {

// The ring between a rounded rectangle and the same one inset by one pixel.
QPainterPath ring(const QRectF& rect, qreal radius) {
    return rounded(rect, radius) - rounded(rect.adjusted(1, 1, -1, -1), std::max(radius - 1, 0.0));
}

// A gradient from one colour at the top left to another at the bottom right, with a sharp change along the
// other diagonal, so that a ring filled with it has one colour on two sides and the other on the remaining
// two.
QLinearGradient diagonal(const QRectF& rect, const QColor& topLeft, const QColor& bottomRight) {
    const qreal w = rect.width();
    const qreal h = rect.height();
    const QPointF centre = rect.center();
    const QPointF step = QPointF(h, w) * (w * h / (w * w + h * h));
    QLinearGradient gradient(centre - step, centre + step);
    gradient.setColorAt(0.46, topLeft);
    gradient.setColorAt(0.54, bottomRight);
    return gradient;
}

QLinearGradient vertical(const QRectF& rect, const QColor& top, const QColor& bottom) {
    QLinearGradient gradient(rect.topLeft(), rect.bottomLeft());
    gradient.setColorAt(0, top);
    gradient.setColorAt(1, bottom);
    return gradient;
}

int clamped(int channel) { return std::clamp(channel, 0, 255); }

QRgb shifted(QRgb pixel, int by) {
    return qRgb(clamped(qRed(pixel) + by), clamped(qGreen(pixel) + by), clamped(qBlue(pixel) + by));
}

} // namespace

QPainterPath rounded(const QRectF& rect, qreal radius) {
    QPainterPath path;
    path.addRoundedRect(rect, radius, radius);
    return path;
}

qreal noise(quint32 x, quint32 y) {
    quint32 n = x * 374761393U + y * 668265263U;
    n = (n ^ (n >> 13)) * 1274126177U;
    return ((n ^ (n >> 16)) & 0xffffU) / 65535.0;
}

Panel::Panel(QSize logicalSize, int scaleFactor)
    : size(logicalSize), scale(scaleFactor), image(logicalSize * scaleFactor, QImage::Format_RGB32),
      brushwork(&image) {
    brushwork.scale(scale, scale);
    brushwork.setRenderHint(QPainter::Antialiasing);
    base();
    brush(whole());
}

void Panel::base() {
    QLinearGradient fall(whole().topLeft(), whole().bottomRight());
    fall.setColorAt(0, darkPanel.lighter(128));
    fall.setColorAt(0.45, darkPanel);
    fall.setColorAt(1, darkPanel.darker(140));
    brushwork.fillRect(whole(), fall);
    QRadialGradient lamp(QPointF(size.width() * 0.28, 0), size.width() * 0.8);
    lamp.setColorAt(0, veil(foldOut, 80));
    lamp.setColorAt(1, veil(foldOut, 0));
    brushwork.fillRect(whole(), lamp);
}

void Panel::brush(const QRectF& area) {
    constexpr int stroke = 22; // the length of a brushed hair in device pixels
    const QRect part = QRectF(area.topLeft() * scale, area.size() * scale).toRect() & image.rect();
    for (int y = part.top(); y <= part.bottom(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        const int start = int(noise(quint32(y), 7) * stroke);
        for (int x = part.left(); x <= part.right(); ++x) {
            const qreal hair = noise(quint32((x + start) / stroke), quint32(y)) - 0.5;
            const qreal grain = noise(quint32(x), quint32(y) + 4096) - 0.5;
            line[x] = shifted(line[x], qRound(hair * 5 + grain * 3));
        }
    }
}

void Panel::frame() {
    const QRectF inner = whole().adjusted(1, 1, -1, -1);
    brushwork.fillPath(ring(inner, 0), diagonal(inner, veil(rim, 190), veil(rim, 70)));
    brushwork.fillPath(ring(whole(), 0), edge);
}

void Panel::raisedEdge() {
    const QRectF inner = whole().adjusted(1, 1, -1, -1);
    brushwork.fillPath(ring(inner, 0), diagonal(inner, rim.lighter(120), veil(edge, 150)));
    brushwork.fillPath(ring(whole(), 0), edge);
}

void Panel::groove(const QRectF& rect) {
    const QRectF half(rect.topLeft(), QSizeF(rect.width(), 1));
    brushwork.fillRect(half, veil(edge, 190));
    brushwork.fillRect(half.translated(0, 1), veil(rim, 95));
}

QLinearGradient Panel::fading(const QColor& left, const QColor& right) const {
    QLinearGradient gradient(QPointF(1, 0), QPointF(size.width() * 0.7, 0));
    gradient.setColorAt(0, left);
    gradient.setColorAt(1, right);
    return gradient;
}

void Panel::titleBand() {
    const QRectF band(0, 0, size.width(), titleBandHeight);
    QLinearGradient gradient = vertical(band, QColor(0x3a, 0x3b, 0x44), QColor(0x0e, 0x0e, 0x11));
    gradient.setColorAt(0.12, QColor(0x2a, 0x2a, 0x2e));
    gradient.setColorAt(0.5, palette::titleBand);
    brushwork.fillRect(band, gradient);
    hairline(titleBandHeight);
}

void Panel::hairline(qreal top) {
    // The dark hairline is a little warm where the bright one is, because a JPEG has one hue for each pair of
    // rows.
    brushwork.fillRect(QRectF(0, top - 1, size.width(), 1), fading(ember.darker(700), edge));
    brushwork.fillRect(QRectF(1, top, size.width() - 2, 1), fading(ember, veil(rim, 150)));
}

void Panel::plate(const QRectF& rect) {
    brushwork.fillPath(rounded(rect.translated(1, 2)), veil(edge, 90));
    brushwork.fillPath(rounded(rect), vertical(rect, veil(paleField, 62), veil(buttonBack, 70)));
    brushwork.fillPath(ring(rect, cornerRadius), diagonal(rect, veil(rim, 170), veil(edge, 170)));
}

void Panel::well(const QRectF& rect) { well(rect, darkPanel.darker(125)); }

void Panel::well(const QRectF& rect, const QColor& floor) {
    const QRectF lip = rect.adjusted(-2, -2, 2, 2);
    brushwork.fillPath(rounded(lip), cut);
    brushwork.fillPath(ring(lip, cornerRadius), diagonal(lip, edge, veil(rim, 200)));
    brushwork.fillRect(rect, floor);
    for (int depth = 0; depth < 6; ++depth) {
        const QColor shade = veil(edge, 120 - depth * 19);
        brushwork.fillRect(QRectF(rect.left() + depth, rect.top() + depth, rect.width() - depth, 1), shade);
        brushwork.fillRect(QRectF(rect.left() + depth, rect.top() + depth, 1, rect.height() - depth), shade);
    }
}

void Panel::slot(const QRectF& rect) { slot(rounded(rect)); }

void Panel::slot(const QPainterPath& shape) {
    brushwork.fillPath(shape, vertical(shape.boundingRect(), veil(edge, 150), veil(edge, 105)));
    brushwork.fillPath(shape - shape.translated(1, 1), veil(edge, 190));
    brushwork.fillPath(shape - shape.translated(-1, -1), veil(rim, 95));
}

void Panel::tray(const QRectF& rect, const QColor& floor) {
    slot(rect);
    brushwork.fillPath(rounded(rect.adjusted(1, 1, -1, -1), cornerRadius - 1), floor);
}

void Panel::engraving(const QPainterPath& shape) {
    brushwork.fillPath(shape, veil(edge, 60));
    brushwork.fillPath(shape - shape.translated(1, 1), veil(edge, 120));
    brushwork.fillPath(shape.translated(1, 1) - shape, veil(rim, 95));
}

void Panel::seat(const QList<QRectF>& buttons) {
    QRectF row;
    for (const QRectF& button : buttons) row |= button;
    const QRectF lip = row.adjusted(-1, -1, 1, 1);
    brushwork.fillPath(ring(lip, 1), diagonal(lip, edge, edge.lighter(160)));
    brushwork.fillRect(row, veil(cut, 150));
    for (const QRectF& button : buttons) coverPlate(button);
}

// Darker than any button and without its bright edge, so that nobody mistakes it for one.
void Panel::coverPlate(const QRectF& rect) {
    const QRectF plate = rect.adjusted(1, 1, -1, -1);
    brushwork.fillPath(ring(rect, 1), cut);
    brushwork.fillPath(rounded(plate, 1), vertical(plate, veil(foldOut, 46), veil(buttonBack, 34)));
    brushwork.fillPath(ring(plate, 1), diagonal(plate, veil(rim, 74), veil(edge, 130)));
    // Sunk screws in two opposite corners: one at the middle of each end would look like a symbol on a
    // button.
    constexpr qreal inset = 3;
    constexpr qreal head = 3;
    const QRectF first(plate.left() + inset, plate.top() + inset, head, head);
    const QRectF second(plate.right() - inset - head, plate.bottom() - inset - head, head, head);
    for (const QRectF& screw : {first, second}) {
        brushwork.fillPath(rounded(screw.translated(1, 1), 1), veil(rim, 60));
        brushwork.fillPath(rounded(screw, 1), veil(cut, 235));
        brushwork.fillRect(QRectF(screw.center() - QPointF(0.5, 0.5), QSizeF(1, 1)), veil(rim, 90));
    }
}

QImage Panel::finished() {
    brushwork.end();
    return std::exchange(image, {});
}

} // namespace torvane
