// SPDX-License-Identifier: MIT
// The scene in which the helper speaks: the night behind it, the tor under it, the sheet with its words. The
// start window and the assistant share it, so both look alike.
#pragma once

#include <QColor>
#include <QDir>
#include <QPainter>
#include <QRectF>
#include <QString>

namespace torvane::scene {

enum class Weather { Clear, Aurora, Clouds };

/// The night landscape; its hills rise from the bottom of `area`.
void landscape(QPainter& painter, const QRectF& area, Weather weather);

/// The sheet under the helper's words, with a beak on its left side `beakHeight` below its top; `rim` is the
/// colour of its edge.
void speechSheet(QPainter& painter, const QRectF& sheet, qreal beakHeight, const QColor& rim);

/// The helper in one of its moods, which are the groups of helper.svg, on top of the tor. `place` is the
/// rectangle of the whole drawing; the tor extends a little below it.
void helper(QPainter& painter, const QDir& drawings, const QString& mood, const QRectF& place);

} // namespace torvane::scene
