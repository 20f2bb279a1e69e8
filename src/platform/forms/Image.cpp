// SPDX-License-Identifier: MIT
// Pictures on a form.
#include "Image.h"

#include <QPainter>

namespace torvane {

Image::Image(QWidget& parent, const char* name, const DesignRect& rect, const char* picture, bool visible)
    : Control(parent, name, rect, false), m_picture(picture) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setVisible(visible);
    lower();
}

void Image::setPicture(const Pictures::Deferred& picture) {
    m_picture = picture;
    update();
}

void Image::paintEvent(QPaintEvent*) {
    if (!Picture().isNull()) QPainter(this).drawPixmap(0, 0, Picture());
}

} // namespace torvane
