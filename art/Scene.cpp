// SPDX-License-Identifier: MIT
// Composes the helper's scene from the parts of the landscape.
#include "Scene.h"

#include "Drawing.h"
#include "Night.h"
#include "Palette.h"
#include "Panel.h"

#include <QPainterPath>
#include <QPolygonF>

namespace torvane::scene {

using namespace palette;

namespace {

// A rounded sheet with a beak towards the helper.
QPainterPath speech(const QRectF& rect, qreal beakHeight) {
    QPainterPath path = rounded(rect);
    const qreal at = rect.top() + beakHeight;
    QPainterPath beak;
    beak.addPolygon(
        QPolygonF({{rect.left() + 2, at - 9}, {rect.left() - 15, at + 7}, {rect.left() + 2, at + 9}}));
    beak.closeSubpath();
    return path.united(beak);
}

int starsIn(Weather weather) {
    switch (weather) {
    case Weather::Clear: return 90;
    case Weather::Aurora: return 130;
    case Weather::Clouds: return 45;
    }
    return 0;
}

} // namespace

void landscape(QPainter& painter, const QRectF& area, Weather weather) {
    const auto fromGround = [&](qreal height) {
        return QRectF(QPointF(area.left(), area.bottom() - height), area.bottomRight());
    };
    const QPointF moon = area.topLeft() + QPointF(52, 50);
    night::sky(painter, area);
    night::stars(painter, area, starsIn(weather), 0.3);
    if (weather == Weather::Aurora)
        night::aurora(painter, QRectF(area.left(), area.top(), area.width(), area.height() * 0.8), 0.2);
    night::moon(painter, moon, 17);
    if (weather == Weather::Clouds) {
        night::cloud(painter, moon + QPointF(18, 12), 62);
        night::cloud(painter, moon + QPointF(118, -22), 46);
    }
    night::ridge(painter, fromGround(152), farHill, 5, 56);
    night::ridge(painter, fromGround(114), middleHill, 9, 44);
    night::mist(painter, fromGround(124), 0.35);
    night::ridge(painter, fromGround(68), nearHill, 2, 26);
}

void speechSheet(QPainter& painter, const QRectF& sheet, qreal beakHeight, const QColor& rim) {
    const QPainterPath shape = speech(sheet, beakHeight);
    painter.fillPath(shape.translated(2, 3), veil(edge, 110));
    QLinearGradient glass(sheet.topLeft(), sheet.bottomLeft());
    glass.setColorAt(0, veil(QColor(0x22, 0x26, 0x38), 232));
    glass.setColorAt(1, veil(QColor(0x16, 0x19, 0x28), 232));
    painter.setPen(QPen(veil(rim, 230), 1));
    painter.setBrush(glass);
    painter.drawPath(shape);
    painter.setPen(QPen(veil(Qt::white, 60), 1));
    painter.drawLine(sheet.topLeft() + QPointF(5, 1), sheet.topRight() + QPointF(-5, 1));
}

void helper(QPainter& painter, const QDir& drawings, const QString& mood, const QRectF& place) {
    const qreal unit = place.width() / 240; // the drawing is 240 wide
    night::tor(painter, place.topLeft() + QPointF(121, 276) * unit, 18 * unit);
    const Drawing figure(drawings.filePath("helper.svg"));
    figure.paintPart(painter, "figure", place);
    figure.paintPart(painter, mood, place);
}

} // namespace torvane::scene
