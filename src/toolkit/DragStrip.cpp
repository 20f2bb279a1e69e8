// SPDX-License-Identifier: MIT
// Moving a window by a label.
#include "DragStrip.h"
#include "platform/forms/Screen.h"
#include "platform/forms/WindowingSystem.h"

#include <QWindow>
#include <algorithm>

namespace torvane {

DragStrip::DragStrip(Form& window, Label& strip) : QObject(&window), m_window(window), m_strip(strip) {
    connect(&strip, &Label::MouseDown, this, &DragStrip::press);
    connect(&strip, &Label::MouseMove, this, &DragStrip::move);
    connect(&strip, &Label::MouseUp, this, &DragStrip::release);
}

QPoint DragStrip::pointInStrip(QPoint screenPosition) const {
    // Relative to where the window was last put, not to where it was at the event: the window manager moves
    // it a little later, and the difference would make it tremble.
    return (screenPosition - m_strip.mapToGlobal(QPoint())) * twipsPerPixel;
}

void DragStrip::press(QPoint screenPosition) {
    // Only the compositor can move windows there. It keeps them within reach itself, and reports no end.
    if (WindowingSystem::isWayland()) {
        m_window.windowHandle()->startSystemMove();
        return;
    }
    m_dragging = true;
    // No strip is too wide for 16 bits.
    m_dragX = static_cast<qint16>(pointInStrip(screenPosition).x());
    m_dragY = static_cast<qint16>(pointInStrip(screenPosition).y());
    m_window.setCursor(Qt::SizeAllCursor);
}

void DragStrip::move(QPoint screenPosition) {
    if (!m_dragging) return;
    const QPoint here = pointInStrip(screenPosition);
    m_window.moveTo(m_window.Left() + here.x() - m_dragX, m_window.Top() + here.y() - m_dragY);
}

void DragStrip::release() {
    if (!m_dragging) return;
    m_dragging = false;
    m_window.unsetCursor();
    emit dropped();
}

void putInsideScreen(Form& window) {
    const QRect screen = Screen::geometryOf(window);
    const QPoint furthest =
        screen.topLeft() + QPoint(screen.width() - window.width(), screen.height() - window.height());
    const int left = std::min(std::max(window.x(), screen.x()), furthest.x());
    const int top = std::min(std::max(window.y(), screen.y()), furthest.y());
    window.moveTo(left * twipsPerPixel, top * twipsPerPixel);
}

} // namespace torvane
