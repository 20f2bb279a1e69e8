// SPDX-License-Identifier: MIT
// The compact window: the strip with its buttons and the scrolling line, which is all that is visible while
// the window is folded, and below it the fold-out with the game's data and a column of buttons.
#include "Backgrounds.h"

#include "Palette.h"
#include "Panel.h"

namespace torvane {

using namespace palette;

namespace {

constexpr auto compactWindow = "Torvette";

// The strip is as high as its buttons, and its last row is the edge of the folded window.
void strip(Panel& panel, const Catalogue& catalogue, const QRectF& area) {
    QLinearGradient fall(area.topLeft(), area.bottomLeft());
    fall.setColorAt(0, buttonBack.lighter(125));
    fall.setColorAt(0.4, buttonBack);
    fall.setColorAt(1, buttonBack.darker(112));
    panel.painter().fillRect(area, fall);
    panel.brush(area);
    panel.well(catalogue.rect(compactWindow, "Label1"), buttonBack);
}

// The ground of the fold-out has the colour of its buttons' backs; it is a little lighter at the top.
void foldOutGround(Panel& panel, const QRectF& area) {
    QLinearGradient fall(area.topLeft(), area.bottomLeft());
    fall.setColorAt(0, foldOut.lighter(108));
    fall.setColorAt(0.3, foldOut);
    fall.setColorAt(1, foldOut.darker(108));
    panel.painter().fillRect(area, fall);
    panel.brush(area);
}

// White words without a shadow need a darker ground than that of the buttons.
void display(Panel& panel, const Catalogue& catalogue, const QRectF& area) {
    const QRectF numbers = catalogue.united(compactWindow, {"Label4", "Label5"});
    panel.tray(area, foldOut.darker(140));
    panel.groove(between(area.left() + 1, numbers.bottom() + 1, area.right() - 1, numbers.bottom() + 3));
}

// The free part of the button column: short grooves.
void column(Panel& panel, const QRectF& area) {
    constexpr qreal step = 5;
    constexpr qreal margin = 9;
    for (qreal y = area.top() + margin; y + 2 <= area.bottom() - margin; y += step)
        panel.groove({area.left() + 5, y, area.width() - 10, 2});
}

} // namespace

QImage paintTorvette(const Workshop& shop) {
    const QStringList stripButtons = {"Edit_Menu", "chameleonButton1", "chameleonButton2", "ChameleonButton4",
                                      "chameleonButton3"};
    const QRectF first = shop.catalogue.united(compactWindow, stripButtons);
    const QRectF search = shop.catalogue.rect(compactWindow, "ChameleonButton6");
    const QRectF pin = shop.catalogue.rect(compactWindow, "ChameleonButton7");
    const QSizeF size(shop.catalogue.windowSize(compactWindow).width(), pin.bottom());
    const QRectF open = between(0, first.bottom(), size.width(), size.height());
    Panel panel(size.toSize(), shop.scale);
    strip(panel, shop.catalogue, first);
    foldOutGround(panel, open);
    display(panel, shop.catalogue, between(2, open.top() + 2, search.left() - 2, open.bottom() - 2));
    column(panel, between(search.left(), search.bottom(), search.right(), pin.top()));
    panel.frame();
    panel.hairline(open.top());
    return panel.finished();
}

} // namespace torvane
