// SPDX-License-Identifier: MIT
// The about window: above, the night with the vane as the program's mark beside its name; below, the screen
// for the credits and the line for reports.
#include "Backgrounds.h"

#include "Night.h"
#include "Palette.h"
#include "Panel.h"

namespace torvane {

using namespace palette;

namespace {

constexpr auto aboutWindow = "Aboutfrm";

// The name is on the left, with no stars behind it, and a white rule is under it, so the mark stands on the
// right, on that rule.
void mark(Panel& panel, const QRectF& area, const QRectF& name, qreal rule) {
    QPainter& painter = panel.painter();
    const QRectF above(area.topLeft(), QPointF(area.right(), rule));
    painter.save();
    painter.setClipRect(area);
    painter.fillRect(area, nearHill);
    painter.setClipRect(above);
    night::sky(painter, above);
    night::stars(painter, between(name.right(), above.top(), above.right(), rule), 45, 0.3);
    night::moon(painter, {area.left() + area.width() * 0.68, above.top() + 12}, 6);
    night::ridge(painter, above.adjusted(0, 8, 0, 8), farHill, 5, 16);
    night::ridge(painter, above.adjusted(0, 20, 0, 20), middleHill, 9, 12);
    const QPointF foot(area.right() - 52, rule + 1);
    constexpr qreal unit = 3.2;
    night::tor(painter, foot, unit);
    night::vane(painter, foot - QPointF(0, 4 * unit), 24, 0);
    painter.restore();
    panel.brush(area);
}

} // namespace

QImage paintAboutfrm(const Workshop& shop) {
    const QSize size = shop.catalogue.windowSize(aboutWindow);
    const QRectF screen = shop.catalogue.places(aboutWindow, {"ShockwaveFlash1"}).first();
    const QRectF rule = shop.catalogue.rect(aboutWindow, "Label22");
    const QRectF line = shop.catalogue.rect(aboutWindow, "TVLabel1");
    const QRectF button = shop.catalogue.rect(aboutWindow, "ChameleonButton17");
    Panel panel(size, shop.scale);
    mark(panel, between(0, titleBandHeight, size.width(), screen.top() - 4),
         shop.catalogue.united(aboutWindow, {"Label2", "Label23"}), rule.top());
    panel.titleBand();
    panel.hairline(screen.top() - 4);
    panel.well(screen);
    panel.tray(line.adjusted(-3, -5, 2, 4), darkPanel);
    panel.seat({button});
    panel.frame();
    return panel.finished();
}

} // namespace torvane
