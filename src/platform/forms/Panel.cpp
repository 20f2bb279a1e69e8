// SPDX-License-Identifier: MIT
// Plain surfaces.
#include "Panel.h"

#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>

namespace torvane {

Panel::Panel(QWidget& parent, const char* name, const DesignRect& rect, const Look& look)
    : Control(parent, name, rect), m_look(look) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void Panel::paintEvent(QPaintEvent* event) {
    QPainter(this).fillRect(event->rect(), Colours::toQColor(m_look.back));
}

void Panel::keyPressEvent(QKeyEvent* event) { emit keyPressed(event->key()); }

} // namespace torvane
