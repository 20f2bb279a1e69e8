// SPDX-License-Identifier: MIT
// The two pictures with a face: the start window with the helper figure and the device of the intro window.
#include "Backgrounds.h"

#include "Drawing.h"
#include "Night.h"
#include "Palette.h"
#include "Panel.h"

#include <QPainterPath>
#include <QPolygonF>

namespace torvane {

using namespace palette;

namespace {

// The colour around the device is nearly black, so that a dense screen shows no coloured fringe at its edge.
const QColor splashMask(0x01, 0x02, 0x05);

// The face colour of the system's buttons: the scan of the window's outline ends a row at this colour.
constexpr QRgb rowEnd = 0xfff0f0f0U;

// The helper's words lie on this plate: a rounded sheet with a beak towards the helper.
QPainterPath speech(const QRectF& rect, qreal beakHeight) {
    QPainterPath path = rounded(rect);
    const qreal at = rect.top() + beakHeight;
    QPainterPath beak;
    beak.addPolygon(
        QPolygonF({{rect.left() + 2, at - 9}, {rect.left() - 15, at + 7}, {rect.left() + 2, at + 9}}));
    beak.closeSubpath();
    return path.united(beak);
}

void landscape(QPainter& painter, const QRectF& area, bool glad) {
    night::sky(painter, area);
    night::stars(painter, area, glad ? 130 : 90, 0.3);
    if (glad) night::aurora(painter, QRectF(area.left(), area.top(), area.width(), area.height() * 0.8), 0.2);
    night::moon(painter, QPointF(52, 50), 17);
    night::ridge(painter, area.adjusted(0, 168, 0, 0), farHill, 5, 56);
    night::ridge(painter, area.adjusted(0, 206, 0, 0), middleHill, 9, 44);
    night::mist(painter, area.adjusted(0, 196, 0, 0), 0.35);
    night::ridge(painter, area.adjusted(0, 252, 0, 0), nearHill, 2, 26);
}

void saySheet(QPainter& painter, const QRectF& words) {
    const QPainterPath sheet = speech(words, 108);
    painter.fillPath(sheet.translated(2, 3), veil(edge, 110));
    QLinearGradient glass(words.topLeft(), words.bottomLeft());
    glass.setColorAt(0, veil(QColor(0x22, 0x26, 0x38), 232));
    glass.setColorAt(1, veil(QColor(0x16, 0x19, 0x28), 232));
    painter.setPen(QPen(veil(rim, 230), 1));
    painter.setBrush(glass);
    painter.drawPath(sheet);
    painter.setPen(QPen(veil(Qt::white, 60), 1));
    painter.drawLine(words.topLeft() + QPointF(5, 1), words.topRight() + QPointF(-5, 1));
}

QRgb safeColour(QRgb colour) {
    if (colour == rowEnd) return qRgb(0xef, 0xef, 0xef);
    return colour == splashMask.rgb() ? palette::edge.rgb() : colour;
}

// What is at least half covered belongs to the device and lies on its own dark edge; all else is the mask.
QImage shaped(const QImage& device) {
    QImage result(device.size(), QImage::Format_RGB888);
    for (int y = 0; y < device.height(); ++y) {
        for (int x = 0; x < device.width(); ++x) {
            const QColor pixel = device.pixelColor(x, y);
            const qreal cover = pixel.alphaF();
            const auto over = [&](int upper, int lower) {
                return qRound(upper * cover + lower * (1 - cover));
            };
            const QRgb mixed =
                qRgb(over(pixel.red(), palette::edge.red()), over(pixel.green(), palette::edge.green()),
                     over(pixel.blue(), palette::edge.blue()));
            result.setPixel(x, y, pixel.alpha() < 128 ? splashMask.rgb() : safeColour(mixed));
        }
    }
    return result;
}

} // namespace

QImage paintSelLangStartUp(const Workshop& shop, bool glad) {
    const QString window = "SelLangStartUp";
    const QSizeF size = shop.catalogue.windowSize(window);
    const QRectF words = shop.catalogue.united(window, {"Label7", "Label4", "Label5", "Label6", "ok", "no"});
    Panel panel(size.toSize(), shop.scale);
    QPainter& painter = panel.painter();
    landscape(painter, QRectF(QPointF(0, 0), size), glad);
    panel.brush();
    saySheet(painter, words.adjusted(-8.5, -8.5, 10.5, 4.5));
    night::tor(painter, QPointF(121, 334), 18);
    const QRectF place(0, 58, 240, 260);
    const Drawing helper(shop.drawings.filePath("helper.svg"));
    helper.paintPart(painter, "figure", place);
    helper.paintPart(painter, glad ? "glad" : "asking", place);
    panel.frame();
    return panel.finished();
}

QImage paintSplash(const Workshop& shop) {
    const QString window = "Splash";
    const QSizeF size = shop.catalogue.windowSize(window);
    QImage device((size * shop.scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    device.fill(Qt::transparent);
    QPainter painter(&device);
    painter.scale(shop.scale, shop.scale);
    painter.setRenderHint(QPainter::Antialiasing);
    Drawing(shop.drawings.filePath("splash.svg")).paint(painter, QRectF(QPointF(0, 0), size));
    const QRectF screen = shop.catalogue.rect(window, "Picture1");
    painter.fillPath(rounded(screen.adjusted(-3, -3, 3, 3)), cut);
    painter.fillRect(screen, skyTop);
    painter.end();
    return shaped(device.convertToFormat(QImage::Format_ARGB32));
}

} // namespace torvane
