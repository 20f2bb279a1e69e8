// SPDX-License-Identifier: MIT
// Decoding and painting of pictures out of files.
#include "FileImage.h"
#include "../base/RuntimeFailure.h"
#include "PictureDecoder.h"

#include <QPainter>

namespace torvane {

namespace {
constexpr int noticeMargin = 6; // pixels
constexpr QColor noticeGround(0, 0, 0, 200);

// Whether each pixel becomes a square of whole pixels.
bool staysSharp(QSize pixels, QSize place) {
    return place.width() % pixels.width() == 0 && place.height() % pixels.height() == 0 &&
           place.width() / pixels.width() == place.height() / pixels.height();
}
} // namespace

FileImage::FileImage(QWidget& parent, const char* name, const DesignRect& rect, Sizing sizing)
    : Image(parent, name, rect), m_sizing(sizing) {}

QSize FileImage::deviceSize() const { return (QSizeF(size()) * devicePixelRatioF()).toSize(); }

QPixmap FileImage::pixelsOf(const PictureFile& picture) const {
    return QPixmap::fromImage(decoded(picture, deviceSize().expandedTo(QSize(1, 1))));
}

// With its own size a picture may be about to be made smaller: its pixels are made when it is painted.
void FileImage::setSource(const PictureFile& picture) {
    const bool isSeen = m_sizing == stretched && !isHidden() && liesInContainer() && !picture.isNull();
    m_pixels = isSeen ? pixelsOf(picture) : QPixmap();
    m_pixelsFor = isSeen ? deviceSize() : QSize();
    m_source = picture;
    if (m_sizing == natural && !picture.isNull()) resize(picture.size());
    update();
}

void FileImage::setNotice(const QString& words) {
    if (words == m_notice) return;
    m_notice = words;
    wordsChanged();
    update();
}

void FileImage::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (!m_source.isNull()) paintPicture(painter);
    if (!m_notice.isEmpty()) paintNotice(painter);
}

// The size may have changed since the pixels were made, or the screen.
void FileImage::paintPicture(QPainter& painter) {
    const QSize place = deviceSize();
    if (m_pixelsFor != place) {
        m_pixelsFor = place;
        if (!ignoring([&] { m_pixels = pixelsOf(m_source); })) m_pixels = QPixmap();
    }
    if (m_pixels.isNull()) return;
    painter.setRenderHint(QPainter::SmoothPixmapTransform, !staysSharp(m_pixels.size(), place));
    painter.drawPixmap(rect(), m_pixels);
}

void FileImage::paintNotice(QPainter& painter) const {
    constexpr int flags = static_cast<int>(Qt::AlignCenter) | Qt::TextWordWrap;
    painter.setFont(Fonts::of(Fonts::V8b));
    const QRect room = rect().adjusted(noticeMargin, noticeMargin, -noticeMargin, -noticeMargin);
    const QRect words = painter.boundingRect(room, flags, m_notice);
    painter.fillRect(QRect(0, words.top() - noticeMargin, width(), words.height() + 2 * noticeMargin),
                     noticeGround);
    painter.setPen(Qt::white);
    painter.drawText(room, flags, m_notice);
}

} // namespace torvane
