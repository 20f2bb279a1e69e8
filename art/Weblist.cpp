// SPDX-License-Identifier: MIT
// The list of web pages with what is known about one of them, and the window in which the user adds a page.
#include "Backgrounds.h"

#include "Palette.h"
#include "Panel.h"
#include "Parts.h"

namespace torvane {

using namespace palette;

namespace {

// The right half from top to bottom: the page, the buttons, the state and the two counts.
void pageDeck(Panel& panel, const Catalogue& catalogue, const QString& window) {
    const QStringList buttons = {"ChameleonButton2", "chameleonButton4", "chameleonButton5"};
    const QRectF row = catalogue.united(window, buttons);
    const QRectF page = catalogue.united(window, {"Lbl_ID3Title", "GameDate"});
    const QRectF state = catalogue.rect(window, "Loading");
    const QRectF counts = catalogue.united(window, {"Label12", "Label16"});
    const auto across = [&](qreal top, qreal bottom) {
        return between(row.left(), top, panel.width() - 4, bottom);
    };
    const QRectF sheet = across(page.top() - 3, page.bottom() + 3);
    factSheet(panel, sheet,
              {catalogue.rect(window, "Lbl_ID3Author").top(), catalogue.rect(window, "Lbl_ID3Date").top()});
    vaneMark(panel, between(row.left() + 14, sheet.bottom() + 5, row.right() - 14, row.top() - 4));
    for (const QString& button : buttons) panel.seat({catalogue.rect(window, button)});
    const QRectF foot = across(state.top() - 5, counts.bottom() + 3);
    factSheet(panel, foot, {catalogue.rect(window, "Label12").top() + 1});
}

} // namespace

QImage paintURL(const Workshop& shop) {
    const QString window = "URL";
    const QSize size = shop.catalogue.windowSize(window);
    const QRectF list = shop.catalogue.rect(window, "ListView1");
    Panel panel(size, shop.scale);
    panel.titleBand();
    panel.plate(
        between(list.right() + 3, list.top() - 2, size.width() - frameWidth, size.height() - frameWidth - 1));
    panel.well(list);
    pageDeck(panel, shop.catalogue, window);
    panel.frame();
    return panel.finished();
}

QImage paintAddPersonalWeb(const Workshop& shop) {
    const QString window = "AddPersonalWeb";
    const QSize size = shop.catalogue.windowSize(window);
    const QStringList answers = {"ChameleonButton1", "ChameleonButton17"};
    const QRectF name = shop.catalogue.rect(window, "TVLabel1");
    const QRectF address = shop.catalogue.rect(window, "Text1");
    Panel panel(size, shop.scale);
    // The captions' opaque backs reach to the frame, and so does the sheet of their colour.
    panel.tray(between(-cornerRadius, name.top() - 3, size.width() + cornerRadius, address.bottom() + 5),
               darkPanel);
    panel.titleBand();
    panel.well(shop.catalogue.rect(window, "Text2"), buttonBack);
    panel.well(address, buttonBack);
    for (const QString& answer : answers) panel.seat({shop.catalogue.rect(window, answer)});
    grille(panel, shop.catalogue.united(window, answers));
    panel.frame();
    return panel.finished();
}

} // namespace torvane
