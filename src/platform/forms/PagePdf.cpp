// SPDX-License-Identifier: MIT
// Painting a page.
#include "PagePdf.h"
#include "../base/RuntimeFailure.h"
#include "Fonts.h"
#include "FormDesign.h"
#include "PictureDecoder.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QLocale>
#include <QPainter>
#include <QPdfWriter>
#include <QtMath>
#include <algorithm>

namespace torvane {

namespace {
constexpr int twipsPerInch = 1440;
constexpr int twipsPerPoint = 20;
constexpr double usualMargin = 18; // in points: a quarter of an inch

// Lines of text that are wider than this are printed smaller.
QFont headingFont(const QString& heading, double width) {
    QFont font = Fonts::of(Fonts::M8);
    const double designSize = font.pixelSize() * twipsPerPixel;
    font.setPixelSize(qRound(designSize));
    const double needed = QFontMetricsF(font).horizontalAdvance(heading);
    if (needed > width) font.setPixelSize(std::max(1, static_cast<int>(designSize * width / needed)));
    return font;
}

// The size in pixels from the corner of the picture to that of the paper: what is beyond would cost memory
// and make the document longer.
QSize roomForPicture(QPoint pictureAt, const QPageLayout& layout) {
    const QMarginsF margins = layout.margins(QPageLayout::Point);
    const QSizeF paper = layout.fullRect(QPageLayout::Point).size();
    const QSizeF room = (paper - QSizeF(margins.left(), margins.top())) * twipsPerPoint;
    return {qCeil((room.width() - pictureAt.x()) / twipsPerPixel),
            qCeil((room.height() - pictureAt.y()) / twipsPerPixel)};
}

QImage pictureOn(const PrintedPage& page, const QPageLayout& layout) {
    const QSize room = roomForPicture(page.pictureAt, layout);
    return page.picture.isNull() || room.isEmpty() ? QImage() : decodedCorner(page.picture, room);
}

void paint(QPainter& painter, const PrintedPage& page, const QImage& picture, QSizeF room) {
    painter.setRenderHint(QPainter::LosslessImageRendering); // else Qt would turn the picture into a JPEG
    painter.drawImage(QRectF(page.pictureAt, QSizeF(picture.size() * twipsPerPixel)), picture);
    painter.setFont(headingFont(page.heading, room.width()));
    painter.drawText(QRectF(QPointF(0, 0), room), Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine,
                     page.heading);
}
} // namespace

QByteArray pdfOf(const PrintedPage& page, const QPageLayout& layout) {
    if (!layout.isValid()) throw RuntimeFailure(RuntimeFailure::printer);
    const QImage picture = pictureOn(page, layout);
    QByteArray document;
    QBuffer buffer(&document);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setTitle(QGuiApplication::applicationDisplayName());
    writer.setResolution(twipsPerInch); // the painter's unit is the twip
    QPainter painter;
    if (!writer.setPageLayout(layout) || !painter.begin(&writer)) {
        throw RuntimeFailure(RuntimeFailure::printer);
    }
    paint(painter, page, picture, layout.paintRect(QPageLayout::Point).size() * twipsPerPoint);
    painter.end();
    return document;
}

QPageLayout layoutWithoutPrinter() {
    const bool usesInches = QLocale().measurementSystem() == QLocale::ImperialUSSystem;
    return QPageLayout(QPageSize(usesInches ? QPageSize::Letter : QPageSize::A4), QPageLayout::Portrait,
                       QMarginsF(usualMargin, usualMargin, usualMargin, usualMargin));
}

} // namespace torvane
