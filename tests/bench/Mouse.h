// SPDX-License-Identifier: MIT
// The user's hand.
#pragma once

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

namespace torvane::bench {

/// A click in the middle of a widget, delivered at once.
inline void click(QWidget& widget) {
    const QPointF place = widget.rect().center();
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        const Qt::MouseButtons held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
        QMouseEvent event(type, place, widget.mapToGlobal(place), Qt::LeftButton, held, {});
        QApplication::sendEvent(&widget, &event);
    }
}

} // namespace torvane::bench
