// SPDX-License-Identifier: MIT
// The hardware panel that every background is made of: base, texture, frame, title band, plates, wells and
// slots. One light from the top left, one corner radius, one texture. What lies where is told by Backgrounds.
#pragma once

#include <QImage>
#include <QLinearGradient>
#include <QList>
#include <QPainter>
#include <QPainterPath>
#include <QRectF>
#include <QSize>

namespace torvane {

/// The one corner radius, in logical pixels.
inline constexpr qreal cornerRadius = 4;

/// The height of a title band with its hairline, in logical pixels.
inline constexpr int titleBandHeight = 21;

/// A background under way. All rectangles are logical pixels of the window.
class Panel {
public:
    /// Starts with the lit base and the texture; `scale` is device pixels for one logical pixel.
    Panel(QSize logicalSize, int scale);

    /// The window's edge: one dark line outside, one light line inside.
    void frame();
    /// The band that carries the title, with its hairline as the last row.
    void titleBand();
    /// A raised sheet that holds a group of controls together.
    void plate(const QRectF& rect);
    /// The bed of a list, panel or text field: `rect` is the control's own rectangle, the rim lies around it.
    void well(const QRectF& rect);
    /// A shallow dark strip under a label, so that its text is calm to read.
    void slot(const QRectF& rect);
    void slot(const QPainterPath& shape);
    /// The narrow cut around a row of buttons, one pixel outside of them, and on its floor a blank cover
    /// plate for each, which is seen while that button is hidden.
    void seat(const QList<QRectF>& buttons);
    /// The raised edge of a panel that lies on another one: lit at top and left, dark at bottom and right.
    void raisedEdge();
    /// A narrow groove across, dark with a lit lower lip; `rect` is two pixels high.
    void groove(const QRectF& rect);
    /// The bright line under a title band or between two parts of a window, with the dark one above it; `top`
    /// is where the bright one begins.
    void hairline(qreal top);
    /// Lays the fine brushed texture over what has been painted so far in `area`.
    void brush(const QRectF& area);

    /// For what a background paints of its own; coordinates are logical pixels.
    QPainter& painter() { return brushwork; }
    /// Ends painting and hands the picture over.
    QImage finished();

private:
    void base();
    void coverPlate(const QRectF& rect);
    QLinearGradient fading(const QColor& left, const QColor& right) const;
    QRectF whole() const { return QRectF(QPointF(0, 0), size); }

    QSizeF size;
    int scale;
    QImage image;
    QPainter brushwork;
};

/// A rectangle with the corner radius, as a path.
QPainterPath rounded(const QRectF& rect, qreal radius = cornerRadius);

/// A value in 0 to 1 that looks random and is the same in every build.
qreal noise(quint32 x, quint32 y);

} // namespace torvane
