// SPDX-License-Identifier: MIT
// Drawing of the sheet's picture.
#include "SheetPicture.h"

#include <QPainter>

namespace torvane {

namespace {
constexpr OleColour outline = 0x202020;
constexpr OleColour orange = 0x3C8CE6; // bright: its channels make 430
constexpr OleColour leaf = 0x64DC8C;
constexpr OleColour paper = 0xF5FAFF;
constexpr OleColour ink = 0xB4503C;
constexpr OleColour justDark = 0x808080;   // 384: the brightest that a stencil prints
constexpr OleColour justBright = 0x818080; // 385
constexpr OleColour nearMask = 0xC0C0C1;   // close to the usual mask, and yet no part of it
} // namespace

QPixmap sheetPicture(int edge, OleColour mask, bool underMouse, qreal ratio) {
    if (edge <= 0) return {};
    QImage image(QSize(edge, edge) * ratio, QImage::Format_RGB32);
    image.fill(Colours::toQColor(mask));
    QPainter painter(&image);
    painter.scale(image.width() / 16.0, image.height() / 16.0);
    const auto fill = [&](const QRect& area, OleColour colour) {
        painter.fillRect(area, Colours::toQColor(colour));
    };
    fill({2, 1, 12, 14}, outline);
    fill({3, 2, 10, 12}, underMouse ? leaf : orange);
    fill({4, 4, 8, 6}, paper);
    fill({5, 5, 3, 2}, ink);
    fill({4, 12, 2, 1}, justDark);
    fill({7, 12, 2, 1}, justBright);
    fill({10, 12, 2, 1}, nearMask);
    painter.setPen(QPen(Colours::toQColor(outline), 0));
    painter.drawLine(QPoint(11, 5), QPoint(8, 8));
    painter.end();
    image.setDevicePixelRatio(ratio);
    return QPixmap::fromImage(image);
}

} // namespace torvane
