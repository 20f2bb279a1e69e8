// SPDX-License-Identifier: MIT
// Painting a page.
#include "PagePdf.h"
#include "../base/RuntimeFailure.h"
#include "Fonts.h"
#include "FormDesign.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QLocale>
#include <QPainter>
#include <QPdfWriter>
#include <algorithm>

namespace torvane {

namespace {
constexpr int twipsPerInch = 1440;
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

void paint(QPainter& painter, const PrintedPage& page, QSizeF room) {
    painter.setRenderHint(QPainter::LosslessImageRendering); // else Qt would turn the picture into a JPEG
    painter.drawPixmap(QRectF(page.pictureAt, page.picture.deviceIndependentSize() * twipsPerPixel),
                       page.picture, page.picture.rect());
    painter.setFont(headingFont(page.heading, room.width()));
    painter.drawText(QRectF(QPointF(0, 0), room), Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine,
                     page.heading);
}
} // namespace

QByteArray pdfOf(const PrintedPage& page, const QPageLayout& layout) {
    QByteArray document;
    QBuffer buffer(&document);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setTitle(QGuiApplication::applicationDisplayName());
    writer.setResolution(twipsPerInch); // the painter's unit is the twip
    QPainter painter;
    if (!layout.isValid() || !writer.setPageLayout(layout) || !painter.begin(&writer)) {
        throw RuntimeFailure(RuntimeFailure::printer);
    }
    paint(painter, page, layout.paintRect(QPageLayout::Point).size() * (twipsPerInch / 72));
    painter.end();
    return document;
}

QPageLayout layoutWithoutPrinter() {
    const bool usesInches = QLocale().measurementSystem() == QLocale::ImperialUSSystem;
    return QPageLayout(QPageSize(usesInches ? QPageSize::Letter : QPageSize::A4), QPageLayout::Portrait,
                       QMarginsF(usualMargin, usualMargin, usualMargin, usualMargin));
}

} // namespace torvane
