// SPDX-License-Identifier: MIT
// The two search windows: one text for the web, and the four ways to a game of the list.
#include "Backgrounds.h"

#include "Palette.h"
#include "Panel.h"
#include "Parts.h"

namespace torvane {

using namespace palette;

namespace {

// One way to a game: the sheet from the frame to the frame has the colour of the captions' opaque backs.
void way(Panel& panel, qreal top, qreal bottom) {
    panel.tray(between(frameWidth, top, panel.width() - frameWidth, bottom), darkPanel);
}

} // namespace

QImage paintSearchROM(const Workshop& shop) {
    const QString window = "SearchROM";
    const QSize size = shop.catalogue.windowSize(window);
    const QRectF words = shop.catalogue.united(window, {"Label2", "Label4"});
    const QRectF field = shop.catalogue.rect(window, "CRYTextBox1");
    const QRectF small = shop.catalogue.united(window, {"Label3", "Label5"});
    const QRectF button = shop.catalogue.rect(window, "ChameleonButton17");
    Panel panel(size, shop.scale);
    panel.titleBand();
    panel.frame();
    panel.slot(between(frameWidth, words.top() - 1, size.width() - frameWidth, words.bottom() + 1));
    panel.slot(between(frameWidth, field.bottom() + 4, size.width() - frameWidth, small.bottom() + 1));
    panel.well(field, buttonBack);
    panel.seat({button});
    grille(panel, button);
    return panel.finished();
}

QImage paintAdvSearch(const Workshop& shop) {
    const QString window = "AdvSearch";
    const QSize size = shop.catalogue.windowSize(window);
    const QRectF title = shop.catalogue.rect(window, "CRYTextBox1");
    const QRectF number = shop.catalogue.rect(window, "Text1");
    const QRectF second = shop.catalogue.rect(window, "TVLabel2");
    const QRectF ends = shop.catalogue.united(window, {"TVLabel3", "TVLabel4"});
    const QRectF button = shop.catalogue.rect(window, "ChameleonButton17");
    Panel panel(size, shop.scale);
    panel.titleBand();
    panel.frame();
    way(panel, shop.catalogue.rect(window, "TVLabel1").top() - 4, title.bottom() + 4);
    way(panel, second.top() - 3, number.bottom() + 3);
    way(panel, ends.top() - 2, ends.bottom() + 3);
    panel.well(title, buttonBack);
    panel.well(number, buttonBack);
    panel.seat({button});
    grille(panel, button);
    vaneMark(panel, between(12, ends.bottom() + 9, size.width() - 12, button.top() - 4));
    return panel.finished();
}

} // namespace torvane
