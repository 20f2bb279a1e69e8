// SPDX-License-Identifier: MIT
// The hardware panel that every background is made of: base, texture, frame, title band, plates, wells and
// slots. One light from the top left, one corner radius, one texture. Backgrounds decides where the parts
// are.
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

/// The lines of a window's edge together, in logical pixels.
inline constexpr qreal frameWidth = 2;

/// The height of a title band with its hairline, in logical pixels.
inline constexpr int titleBandHeight = 21;

/// A background that is being painted. All rectangles are in logical pixels of the window.
class Panel {
public:
    /// Starts with the lit base and the texture; `scale` is the number of device pixels per logical pixel.
    Panel(QSize logicalSize, int scale);

    /// The window's edge: one dark line outside, one light line inside.
    void frame();
    /// The band that carries the title, with its hairline as the last row.
    void titleBand();
    /// A raised sheet that groups controls.
    void plate(const QRectF& rect);
    /// The bed of a list, panel or text field: `rect` is the control's own rectangle, with the rim around it.
    void well(const QRectF& rect);
    /// The same with a floor of another colour, for a control that is not dark.
    void well(const QRectF& rect, const QColor& floor);
    /// A shallow dark strip under a label, a calm ground for its text.
    void slot(const QRectF& rect);
    void slot(const QPainterPath& shape);
    /// A shallow bed whose floor has exactly one colour, for controls with an opaque back of that colour.
    void tray(const QRectF& rect, const QColor& floor);
    /// A mark cut into the panel for ornament, fainter than a slot.
    void engraving(const QPainterPath& shape);
    /// The narrow cut around a row of buttons, one pixel outside of them. On its floor is a blank cover plate
    /// for each button, visible while that button is hidden.
    void seat(const QList<QRectF>& buttons);
    /// The raised edge of a panel that is on top of another one: lit at top and left, dark at bottom and
    /// right.
    void raisedEdge();
    /// A narrow groove across, dark with a lit lower lip; `rect` is two pixels high.
    void groove(const QRectF& rect);
    /// The bright line under a title band or between two parts of a window, with a dark line above it; `top`
    /// is the y coordinate of the bright one.
    void hairline(qreal top);
    /// Lays the fine brushed texture over what has been painted so far in `area`.
    void brush(const QRectF& area);

    /// For painting that is special to one background; coordinates are logical pixels.
    QPainter& painter() { return brushwork; }
    qreal width() const { return size.width(); }
    /// Ends painting and returns the picture.
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

/// The rectangle between two of its corners.
inline QRectF between(qreal left, qreal top, qreal right, qreal bottom) {
    return {QPointF(left, top), QPointF(right, bottom)};
}

/// A value from 0 to 1 that looks random but is the same in every build.
qreal noise(quint32 x, quint32 y);

} // namespace torvane
