// SPDX-License-Identifier: MIT
// The tor and the weather vane of the night landscape, which give the program its name.
#include "Night.h"

#include "Palette.h"
#include "Panel.h"

#include <QLinearGradient>
#include <QPainterPath>
#include <QPolygonF>
#include <QTransform>

#include <cmath>

namespace torvane::night {

using namespace palette;

namespace {

struct Slab {
    qreal middle, top, width, height; // in units, from the foot upwards
};

// Weathered granite: broad below, a few slabs askew above, a flat one on top for the mast.
constexpr Slab slabs[] = {{-0.3, 1.1, 6.6, 1.15}, {-1.5, 2.1, 3.2, 1.05}, {1.7, 2.0, 2.6, 0.95},
                          {-1.2, 3.1, 2.6, 1.05}, {1.3, 2.9, 2.2, 0.95},  {-0.2, 4.0, 3.4, 0.95}};

void slab(QPainter& painter, const QRectF& rect) {
    QLinearGradient stone(rect.topLeft(), rect.bottomRight());
    stone.setColorAt(0, foldOut.lighter(108));
    stone.setColorAt(0.4, buttonBack.darker(110));
    stone.setColorAt(1, nearHill.darker(130));
    painter.setPen(QPen(veil(edge, 200), rect.height() * 0.09));
    painter.setBrush(stone);
    painter.drawPath(rounded(rect, rect.height() * 0.38));
    painter.setPen(QPen(veil(rim, 170), rect.height() * 0.1, Qt::SolidLine, Qt::RoundCap));
    const qreal inset = rect.height() * 0.4;
    painter.drawLine(rect.topLeft() + QPointF(inset, rect.height() * 0.14),
                     rect.topRight() + QPointF(-inset * 2, rect.height() * 0.14));
}

// The arrow seen from the side, with its middle at the origin and a length of 2.
QPainterPath arrow() {
    QPainterPath path;
    path.addPolygon(QPolygonF({{-0.98, -0.34},
                               {-0.6, -0.34},
                               {-0.38, -0.07},
                               {0.5, -0.07},
                               {0.42, -0.36},
                               {1.0, 0},
                               {0.42, 0.36},
                               {0.5, 0.07},
                               {-0.38, 0.07},
                               {-0.6, 0.34},
                               {-0.98, 0.34},
                               {-0.78, 0}}));
    path.closeSubpath();
    return path;
}

} // namespace

void tor(QPainter& painter, QPointF foot, qreal unit) {
    for (const Slab& part : slabs) {
        slab(painter, QRectF(foot.x() + (part.middle - part.width / 2) * unit, foot.y() - part.top * unit,
                             part.width * unit, part.height * unit));
    }
}

void vane(QPainter& painter, QPointF foot, qreal height, qreal angle) {
    painter.save();
    painter.translate(foot);
    const qreal thick = height * 0.055;
    painter.setPen(QPen(veil(edge, 220), thick * 2, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(0, 0), QPointF(0, -height));
    painter.setPen(QPen(paleField, thick, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(-thick * 0.2, 0), QPointF(-thick * 0.2, -height));
    painter.translate(0, -height * 0.8);
    painter.save();
    const qreal reach = height * 0.62;
    painter.scale(reach * std::cos(angle), reach * 0.8);
    const QColor brass = ember.lighter(qRound(100 + 18 * std::sin(angle)));
    QLinearGradient metal(QPointF(0, -0.4), QPointF(0, 0.4));
    metal.setColorAt(0, brass.lighter(135));
    metal.setColorAt(1, brass.darker(130));
    painter.fillPath(arrow(), metal);
    painter.restore();
    painter.setPen(Qt::NoPen);
    painter.setBrush(brass.lighter(125));
    painter.drawEllipse(QPointF(0, -height * 0.2), thick * 1.5, thick * 1.5);
    painter.drawEllipse(QPointF(0, 0), thick * 1.2, thick * 1.2);
    painter.restore();
}

QPainterPath emblem(QPointF foot, qreal height) {
    constexpr qreal slabsHigh = 4;
    constexpr qreal gap = 0.1; // between slabs, so that each can be seen
    const qreal unit = height / 9;
    const qreal mast = height - slabsHigh * unit;
    QPainterPath shape;
    for (const Slab& part : slabs) {
        const QRectF stone(part.middle - part.width / 2 + gap, gap - std::round(part.top),
                           part.width - 2 * gap, 1 - 2 * gap);
        shape.addPath(rounded({stone.topLeft() * unit, stone.size() * unit}, unit * 0.3));
    }
    const qreal thick = mast * 0.07;
    const qreal reach = mast * 0.62;
    const QPainterPath turned = QTransform::fromScale(reach, reach * 0.8).map(arrow());
    shape.addPath(rounded({-thick / 2, -height, thick, mast}, thick / 2) |
                  turned.translated(0, -slabsHigh * unit - mast * 0.8));
    return shape.translated(foot);
}

} // namespace torvane::night
