// SPDX-License-Identifier: MIT
// The two pictures with a face: the start window with the helper figure and the device of the intro window.
#include "Backgrounds.h"

#include "Drawing.h"
#include "Palette.h"
#include "Panel.h"
#include "Scene.h"

namespace torvane {

using namespace palette;

namespace {

// The colour around the device is nearly black, so that dense screens show no coloured fringe at its edge.
const QColor splashMask(0x01, 0x02, 0x05);

// The face colour of the system's buttons: a row of the window's outline ends at this colour.
constexpr QRgb rowEnd = 0xfff0f0f0U;

QRgb safeColour(QRgb colour) {
    if (colour == rowEnd) return qRgb(0xef, 0xef, 0xef);
    return colour == splashMask.rgb() ? palette::edge.rgb() : colour;
}

// Pixels that are at least half covered belong to the device and get its dark edge; all others are the mask.
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
    const QRectF whole(QPointF(0, 0), size);
    scene::landscape(painter, whole, glad ? scene::Weather::Aurora : scene::Weather::Clear);
    panel.brush(whole);
    scene::speechSheet(painter, words.adjusted(-8.5, -8.5, 10.5, 4.5), 108, rim);
    scene::helper(painter, shop.drawings, glad ? "glad" : "asking", QRectF(0, 58, 240, 260));
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
