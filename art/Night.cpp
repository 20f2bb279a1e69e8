// SPDX-License-Identifier: MIT
// Sky, stars, moon, ridges and mist of the night landscape. The tor and the vane are in Vane.cpp.
#include "Night.h"

#include "Palette.h"
#include "Panel.h"

#include <QLinearGradient>
#include <QPainterPath>
#include <QRadialGradient>

#include <cmath>
#include <tuple>

namespace torvane::night {

using namespace palette;

namespace {

// The glow of a light: bright in the middle, fading to nothing at `radius`.
void glow(QPainter& painter, QPointF centre, qreal radius, const QColor& colour) {
    QRadialGradient gradient(centre, radius);
    gradient.setColorAt(0, colour);
    gradient.setColorAt(0.4, veil(colour, colour.alpha() * 2 / 5));
    gradient.setColorAt(1, veil(colour, 0));
    painter.fillRect(QRectF(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius), gradient);
}

// The height of a ridge at `at` (0 to 1 across): made of whole waves, so that its ends meet.
qreal ridgeHeight(qreal at, int seed) {
    const auto wave = [&](int waves, qreal share) {
        return share * std::sin(fullTurn * (waves * at + noise(quint32(seed), quint32(waves))));
    };
    return 0.5 + 0.5 * (wave(1, 0.45) + wave(2, 0.3) + wave(3, 0.25) + wave(7, 0.08));
}

} // namespace

void sky(QPainter& painter, const QRectF& area) {
    QLinearGradient gradient(area.topLeft(), area.bottomLeft());
    gradient.setColorAt(0, skyTop);
    gradient.setColorAt(0.55, skyMiddle);
    gradient.setColorAt(1, skyLow);
    painter.fillRect(area, gradient);
}

void stars(QPainter& painter, const QRectF& area, int count, qreal turn) {
    for (quint32 star = 0; star < quint32(count); ++star) {
        const qreal depth = noise(star, 2);
        const QPointF at(area.left() + area.width() * noise(star, 1),
                         area.top() + area.height() * 0.66 * depth * std::sqrt(depth));
        const qreal size = 0.45 + 0.75 * noise(star, 3) * noise(star, 4);
        const qreal breath = std::sin(fullTurn * ((1 + star % 2) * turn + noise(star, 5)));
        const int light = qRound(150 + 60 * breath - 70 * depth);
        painter.setPen(Qt::NoPen);
        painter.setBrush(veil(QColor(0xdf, 0xe6, 0xff), light));
        painter.drawEllipse(at, size, size);
        if (size > 0.95) glow(painter, at, 5, veil(QColor(0xbf, 0xcf, 0xff), light / 3));
    }
}

void moon(QPainter& painter, QPointF centre, qreal radius) {
    glow(painter, centre, radius * 6, veil(palette::moon, 70));
    glow(painter, centre, radius * 2.2, veil(palette::moon, 90));
    QRadialGradient face(centre - QPointF(radius, radius) * 0.35, radius * 1.5);
    face.setColorAt(0, palette::moon.lighter(106));
    face.setColorAt(1, palette::moon.darker(128));
    painter.setPen(Qt::NoPen);
    painter.setBrush(face);
    painter.drawEllipse(centre, radius, radius);
    painter.setBrush(veil(QColor(0x9a, 0x93, 0x9a), 80));
    painter.drawEllipse(centre + QPointF(-0.25, 0.2) * radius, radius * 0.24, radius * 0.2);
    painter.drawEllipse(centre + QPointF(0.35, -0.25) * radius, radius * 0.16, radius * 0.14);
    painter.drawEllipse(centre + QPointF(0.28, 0.42) * radius, radius * 0.13, radius * 0.1);
}

void cloud(QPainter& painter, QPointF centre, qreal reach) {
    QPainterPath shape;
    shape.addRoundedRect(QRectF(centre.x() - reach, centre.y(), 2 * reach, reach * 0.3), reach * 0.15,
                         reach * 0.15);
    for (const auto& [across, up, radius] :
         {std::tuple{-0.42, 0.02, 0.26}, std::tuple{0.02, -0.1, 0.36}, std::tuple{0.48, 0.04, 0.22}}) {
        QPainterPath puff;
        puff.addEllipse(centre + QPointF(across, up) * reach, radius * reach, radius * reach);
        shape = shape.united(puff);
    }
    QLinearGradient shade(shape.boundingRect().topLeft(), shape.boundingRect().bottomLeft());
    shade.setColorAt(0, skyLow.darker(112));
    shade.setColorAt(1, skyMiddle);
    painter.fillPath(shape, shade);
    painter.strokePath(shape, QPen(veil(paleField, 110), 0.8));
}

void ridge(QPainter& painter, const QRectF& area, const QColor& colour, int seed, qreal rise, qreal drift) {
    constexpr int steps = 160;
    QPainterPath crest;
    for (int step = 0; step <= steps; ++step) {
        const qreal at = qreal(step) / steps;
        const QPointF point(area.left() + area.width() * at,
                            area.top() + rise * (1 - ridgeHeight(at + drift, seed)));
        step == 0 ? crest.moveTo(point) : crest.lineTo(point);
    }
    QPainterPath land = crest;
    land.lineTo(area.bottomRight());
    land.lineTo(area.bottomLeft());
    land.closeSubpath();
    QLinearGradient shade(area.topLeft(), area.bottomLeft());
    shade.setColorAt(0, colour.lighter(112));
    shade.setColorAt(1, colour.darker(150));
    painter.fillPath(land, shade);
    painter.strokePath(crest, QPen(veil(colour.lighter(170), 120), 0.7));
}

void mist(QPainter& painter, const QRectF& area, qreal turn) {
    for (int band = 0; band < 2; ++band) {
        for (int copy = -1; copy < 2; ++copy) {
            const qreal way = (band == 0 ? turn : 1 - turn) + copy;
            const QPointF centre(area.left() + area.width() * (way + 0.2 + band * 0.3),
                                 area.top() + area.height() * (0.35 + 0.4 * band));
            painter.save();
            painter.translate(centre);
            painter.scale(1, 0.09);
            glow(painter, QPointF(0, 0), area.width() * 0.42, veil(paleField, 60));
            painter.restore();
        }
    }
}

void aurora(QPainter& painter, const QRectF& area, qreal turn) {
    constexpr int strips = 234;
    const qreal width = area.width() / strips;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false); // antialiased strips would show seams
    for (int strip = 0; strip < strips; ++strip) {
        const qreal at = qreal(strip) / strips;
        const qreal wave =
            std::sin(fullTurn * (2 * at + turn)) + 0.6 * std::sin(fullTurn * (3 * at - turn + 0.3));
        const qreal light = 0.5 + 0.5 * std::sin(fullTurn * (1.5 * at - turn) + 1.2 * wave);
        const qreal foot = area.top() + area.height() * (0.62 + 0.1 * wave);
        const QRectF curtain(area.left() + strip * width, foot - area.height() * 0.62, width,
                             area.height() * 0.68);
        QLinearGradient fade(curtain.topLeft(), curtain.bottomLeft());
        fade.setColorAt(0, veil(auroraHigh, 0));
        fade.setColorAt(0.5, veil(auroraHigh, qRound(40 * light)));
        fade.setColorAt(0.85, veil(auroraLow, qRound(88 * light)));
        fade.setColorAt(1, veil(auroraLow, 0));
        painter.fillRect(curtain, fade);
    }
    painter.restore();
}

} // namespace torvane::night
