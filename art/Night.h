// SPDX-License-Identifier: MIT
// The landscape that the start window and the movies share: night sky, stars, moon, hills, the tor and its
// vane. Everything that moves is a function of `turn`, the position in the loop from 0 to 1; 0 and 1 give the
// same picture.
#pragma once

#include <QColor>
#include <QPainter>
#include <QPainterPath>
#include <QPointF>
#include <QRectF>

#include <numbers>

namespace torvane::night {

/// In radians.
inline constexpr qreal fullTurn = 2 * std::numbers::pi;

/// The sky's colours from top to bottom of `area`.
void sky(QPainter& painter, const QRectF& area);

/// `count` stars in the upper two thirds of `area`; each breathes once or twice a loop.
void stars(QPainter& painter, const QRectF& area, int count, qreal turn);

/// The moon with its halo; `radius` is that of the disc.
void moon(QPainter& painter, QPointF centre, qreal radius);

/// A dark cloud with a pale upper edge; `reach` is half of its width.
void cloud(QPainter& painter, QPointF centre, qreal reach);

/// A ridge across `area`, filled down to its bottom: `seed` picks its shape, `rise` is the height of its
/// waves and `drift` (in loops) moves it to the left without a seam.
void ridge(QPainter& painter, const QRectF& area, const QColor& colour, int seed, qreal rise,
           qreal drift = 0);

/// Two thin bands of mist across `area`, drifting one width a loop.
void mist(QPainter& painter, const QRectF& area, qreal turn);

/// Curtains of pale green light in the sky of `area`.
void aurora(QPainter& painter, const QRectF& area, qreal turn);

/// The heap of weathered slabs on a hill; `foot` is the middle of its lowest edge, `unit` a slab's height.
void tor(QPainter& painter, QPointF foot, qreal unit);

/// The weather vane: a mast of `height` above `foot` with an arrow that has turned by `angle` radians.
void vane(QPainter& painter, QPointF foot, qreal height, qreal angle);

/// The outline of the tor with its vane, for engraving: `foot` is the middle of its lowest edge, `height`
/// reaches up to the tip of the mast.
QPainterPath emblem(QPointF foot, qreal height);

} // namespace torvane::night
