// SPDX-License-Identifier: MIT
// The SVG sources: loading, rendering onto a background, and turning an icon into hard-edged pixels.
#pragma once

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QList>
#include <QPainter>
#include <QRectF>
#include <QString>

#include <utility>

namespace torvane {

/// One SVG source. Throws std::runtime_error if the file is missing or not a drawing.
class Drawing {
public:
    explicit Drawing(const QString& path);

    /// The same drawing with colours replaced: each pair is a colour as the source spells it and its
    /// replacement.
    Drawing recoloured(const QList<std::pair<QByteArray, QByteArray>>& colours) const;

    /// The same drawing with its three icon tones changed to those of the warm hover twin.
    Drawing warm() const;

    /// Paints the drawing with soft edges into `target`.
    void paint(QPainter& painter, const QRectF& target) const;

    /// Paints only the element `part`, at its place in the whole drawing, which fills `target`.
    void paintPart(QPainter& painter, const QString& part, const QRectF& target) const;

    /// The drawing with soft edges and alpha, `pixels` wide and high.
    QImage smooth(int pixels) const;

    /// The drawing as pixel art, `pixels` wide and high: each pixel takes the colour of most of its samples
    /// or stays clear, and a dark outline of `outlineWidth` pixels surrounds the shape. Alpha is either 0 or
    /// 255.
    QImage hardEdged(int pixels, int outlineWidth) const;

private:
    explicit Drawing(QByteArray svg, const QString& path);

    QByteArray source;
    QString name;
};

/// `icon` on an opaque ground of `mask`; throws std::runtime_error if the icon uses the mask colour itself.
QImage masked(const QImage& icon, const QColor& mask);

} // namespace torvane
