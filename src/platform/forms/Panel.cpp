// SPDX-License-Identifier: MIT
// Plain surfaces.
#include "Panel.h"

#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>

namespace torvane {

Panel::Panel(QWidget& parent, const char* name, const DesignRect& rect, const Look& look)
    : Control(parent, name, rect), m_look(look), m_picture(look.picture) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void Panel::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.fillRect(event->rect(), Colours::toQColor(m_look.back));
    if (!Picture().isNull()) painter.drawPixmap(0, 0, Picture());
}

void Panel::keyPressEvent(QKeyEvent* event) { emit keyPressed(event->key()); }

} // namespace torvane
