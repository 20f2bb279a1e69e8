// SPDX-License-Identifier: MIT
// The three windows of the tag database: the list with its filters, one entry in full, and the choice of the
// game that gets an entry.
#include "Backgrounds.h"

#include "Palette.h"
#include "Panel.h"
#include "Parts.h"

namespace torvane {

using namespace palette;

namespace {

// The list, and below it the strip where the window shows that it is loading.
void entryDeck(Panel& panel, const Catalogue& catalogue, const QString& window) {
    const QRectF list = catalogue.rect(window, "ListView1");
    const QRectF busy = catalogue.rect(window, "load");
    panel.well(list, paleField);
    panel.slot(between(list.left() - 2, busy.top() + 1, list.right() + 2, busy.bottom() + 1));
}

// The filters, from the kind of an entry down to the consoles.
void filterDeck(Panel& panel, const Catalogue& catalogue, const QString& window) {
    const QRectF heading = catalogue.rect(window, "Label14");
    const QRectF rule = catalogue.rect(window, "Label30");
    panel.groove(between(rule.left(), heading.bottom(), rule.right(), heading.bottom() + 2));
    const QRectF kinds = catalogue.united(window, {"Entradas(0)", "Entradas(1)", "Entradas(2)"});
    panel.tray(between(rule.left(), kinds.top() - 2, rule.right(), kinds.bottom() + 2), buttonBack);
    const QStringList fields = {"File_Author", "File_Game", "File_Date", "File_Company"};
    for (const QString& field : fields) panel.well(catalogue.rect(window, field), paleField);
    // The vane on its tor fills the free part between the filters for words and those for consoles.
    const qreal top = catalogue.united(window, fields).bottom();
    vaneMark(panel, between(rule.left() + 16, top + 11, rule.right() - 16, rule.top() - 10));
    const QRectF consoles = catalogue.united(window, {"GB_CL", "GB_CO", "GB_AD"});
    panel.tray(between(rule.left(), rule.bottom() + 2, rule.right(), consoles.bottom() + 2), buttonBack);
}

} // namespace

QImage paintEditDB(const Workshop& shop) {
    const QString window = "EditDB";
    const QSize size = shop.catalogue.windowSize(window);
    const QRectF list = shop.catalogue.rect(window, "ListView1");
    Panel panel(size, shop.scale);
    panel.titleBand();
    panel.plate(
        between(list.right() + 5, list.top() - 2, size.width() - frameWidth, size.height() - frameWidth - 1));
    entryDeck(panel, shop.catalogue, window);
    filterDeck(panel, shop.catalogue, window);
    for (const char* button : {"ChameleonButton2", "ChameleonButton3", "ChameleonButton17"})
        panel.seat(shop.catalogue.places(window, {button}));
    panel.frame();
    return panel.finished();
}

namespace {

// The table of the short values: headings on the left, which have an opaque back, values on the right.
void valueTable(Panel& panel, const Catalogue& catalogue, const QString& window) {
    const QStringList headings = {"Label2", "Label4", "Label6", "Label8", "Label10", "Label12"};
    const QRectF names = catalogue.united(window, headings);
    const QRectF values =
        catalogue.united(window, {"Label22", "Label21", "Label20", "Label19", "Label18", "Label17"});
    const QRectF table =
        between(names.left(), names.top(), panel.width() - names.left(), values.bottom() + 1);
    panel.well(table);
    QPainter& painter = panel.painter();
    // From the back of the headings the floor darkens slowly, because the values begin right at their edge.
    QLinearGradient floor(QPointF(names.right(), 0), table.topRight());
    floor.setColorAt(0, darkPanel);
    floor.setColorAt(1, darkPanel.darker(150));
    painter.fillRect(table, floor);
    for (const QString& heading : headings.mid(1)) {
        const qreal line = catalogue.rect(window, heading).top();
        panel.groove(between(table.left(), line - 2, table.right(), line));
    }
}

// The long text, with its heading on a tab above.
void textSheet(Panel& panel, const Catalogue& catalogue, const QString& window) {
    const QRectF heading = catalogue.rect(window, "Label14");
    const QRectF text = catalogue.united(window, {"Label15", "Label16"});
    const qreal right = panel.width() - heading.left();
    panel.tray(heading.adjusted(-2, -2, 4, 6), darkPanel);
    panel.well(between(heading.left(), text.top() - 2, right, text.bottom() + 1));
}

} // namespace

QImage paintDBInfo(const Workshop& shop) {
    const QString window = "DB_Info";
    const QSize size = shop.catalogue.windowSize(window);
    Panel panel(size, shop.scale);
    panel.titleBand();
    panel.frame();
    valueTable(panel, shop.catalogue, window);
    textSheet(panel, shop.catalogue, window);
    panel.seat(shop.catalogue.places(window, {"Command1"}));
    grille(panel, shop.catalogue.rect(window, "Command1"));
    return panel.finished();
}

QImage paintForm2(const Workshop& shop) {
    const QString window = "Form2";
    const QSize size = shop.catalogue.windowSize(window);
    const QRectF words = shop.catalogue.rect(window, "Label2");
    const QRectF list = shop.catalogue.rect(window, "File1");
    const QStringList answers = {"Command2", "Command1"};
    Panel panel(size, shop.scale);
    panel.titleBand();
    panel.frame();
    panel.slot(between(frameWidth, words.top() - 1, size.width() - frameWidth, list.top() - 3));
    panel.well(list, paleField);
    panel.seat(shop.catalogue.places(window, answers));
    grille(panel, shop.catalogue.united(window, answers));
    return panel.finished();
}

} // namespace torvane
