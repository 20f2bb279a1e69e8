// SPDX-License-Identifier: MIT
// Pictures on a form.
#include "Image.h"
#include "Pictures.h"

#include <QPainter>

namespace torvane {

Image::Image(QWidget& parent, const char* name, const DesignRect& rect, const char* picture, bool visible)
    : Control(parent, name, rect, false),
      m_picture(Pictures::load(QString::fromLatin1(picture), devicePixelRatioF())) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setVisible(visible);
    lower();
}

void Image::setPicture(const QPixmap& picture) {
    m_picture = picture;
    update();
}

void Image::paintEvent(QPaintEvent*) {
    if (!m_picture.isNull()) QPainter(this).drawPixmap(0, 0, m_picture);
}

} // namespace torvane
