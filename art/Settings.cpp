// SPDX-License-Identifier: MIT
// The general settings and the choice of the language.
#include "Backgrounds.h"

#include "Palette.h"
#include "Panel.h"
#include "Parts.h"

namespace torvane {

using namespace palette;

namespace {

// The controls of two sheets have opaque backs of these colours, in which no other window has any.
const QColor graphite(0x40, 0x40, 0x40);
const QColor silver(0x80, 0x80, 0x80);

// The left half: the tray icon and its colours.
void trayDeck(Panel& panel, const Catalogue& catalogue, const QString& window) {
    const QRectF active = catalogue.rect(window, "Check1");
    const QRectF colours = catalogue.rect(window, "Picture1");
    panel.tray(between(2, active.top() - 3, colours.right() + 5, colours.bottom() + 6), darkPanel);
    panel.well(colours, darkPanel);
}

// The right half: the folder of screenshots and, on a lighter sheet for its black words, the compact window.
void placesDeck(Panel& panel, const Catalogue& catalogue, const QString& window) {
    const QRectF heading = catalogue.rect(window, "Label4");
    const QRectF show = catalogue.rect(window, "ChameleonButton2");
    const QRectF choose = catalogue.rect(window, "ChameleonButton17");
    const QRectF corner = catalogue.united(window, {"Label7", "Check2"});
    const qreal left = show.left() - 3;
    const qreal right = show.right() + 2;
    panel.slot(between(left, heading.top() - 1, right, heading.bottom() + 3));
    for (qreal y = heading.bottom() + 6; y + 2 < show.top() - 2; y += 4)
        panel.groove({left + 6, y, right - left - 12, 2});
    panel.seat({show});
    panel.seat({choose});
    panel.tray(between(left, corner.top() - 3, right, corner.bottom() + 4), silver);
}

} // namespace

QImage paintConfGen(const Workshop& shop) {
    const QString window = "ConfGen";
    const QSize size = shop.catalogue.windowSize(window);
    const QRectF starts = shop.catalogue.united(window, {"Check3", "Check6"});
    const QRectF close = shop.catalogue.rect(window, "ChameleonButton3");
    Panel panel(size, shop.scale);
    // Its boxes reach to the frame, and so does the sheet of their colour.
    panel.tray(between(-cornerRadius, starts.top() - 3, size.width() + cornerRadius, starts.bottom() + 4),
               graphite);
    panel.titleBand();
    trayDeck(panel, shop.catalogue, window);
    placesDeck(panel, shop.catalogue, window);
    panel.seat({close});
    grille(panel, close);
    panel.frame();
    return panel.finished();
}

QImage paintSelLang(const Workshop& shop) {
    const QString window = "SelLang";
    const QSize size = shop.catalogue.windowSize(window);
    const QStringList wide = {"ChameleonButton4", "ChameleonButton3", "ChameleonButton17"};
    const QRectF list = shop.catalogue.rect(window, "File1");
    const QRectF facts = shop.catalogue.united(window, {"TVLabel1", "TVLabel2", "TVLabel3"});
    const QRectF load = shop.catalogue.rect(window, "ChameleonButton2");
    const QRectF row = shop.catalogue.united(window, wide);
    Panel panel(size, shop.scale);
    // The sheet goes on under the list, so that it has no edge beside the captions' opaque backs.
    panel.tray(between(list.center().x(), facts.top() - 3, row.right() + 2, facts.bottom() + 2), darkPanel);
    panel.titleBand();
    panel.well(list, buttonBack);
    panel.seat({load});
    grille(panel, load, list.right());
    vaneMark(panel, between(row.left() + 10, load.bottom() + 7, row.right() - 10, row.top() - 4));
    for (const QString& button : wide) panel.seat({shop.catalogue.rect(window, button)});
    panel.frame();
    return panel.finished();
}

} // namespace torvane
