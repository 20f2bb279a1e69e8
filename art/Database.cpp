// SPDX-License-Identifier: MIT
// The three windows of the tag database: the list with its filters, one entry in full, and the choice of the
// game that gets an entry.
#include "Backgrounds.h"

#include "Night.h"
#include "Palette.h"
#include "Panel.h"

namespace torvane {

using namespace palette;

namespace {

// The free margin between the parts of a window and its edge.
constexpr qreal margin = 3;

// Short grooves in a free part of the panel, one every five pixels: the same ornament as in the assistant.
void grille(Panel& panel, const QRectF& area) {
    constexpr qreal step = 5;
    for (qreal y = area.top(); y + 2 <= area.bottom(); y += step)
        panel.groove({area.left(), y, area.width(), 2});
}

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
    panel.slot(between(rule.left(), heading.top() + 1, rule.right(), heading.bottom() + 1));
    const QRectF kinds = catalogue.united(window, {"Entradas(0)", "Entradas(1)", "Entradas(2)"});
    panel.slot(between(kinds.left() - 4, kinds.top() - 1, rule.right(), kinds.bottom() + 1));
    const QStringList fields = {"File_Author", "File_Game", "File_Date", "File_Company"};
    for (const QString& field : fields) panel.well(catalogue.rect(window, field), paleField);
    // The vane on its tor fills the free part between the filters for words and those for consoles.
    const qreal top = catalogue.united(window, fields).bottom();
    const QPointF foot(rule.center().x(), rule.top() - 13);
    panel.engraving(night::emblem(foot, (rule.top() - top) * 0.76));
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
    panel.frame();
    panel.plate(between(list.right() + 5, list.top() - 2, size.width() - margin, size.height() - margin));
    entryDeck(panel, shop.catalogue, window);
    filterDeck(panel, shop.catalogue, window);
    for (const char* button : {"ChameleonButton2", "ChameleonButton3", "ChameleonButton17"})
        panel.seat(shop.catalogue.places(window, {button}));
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
    painter.fillRect(between(table.left(), table.top(), names.right(), table.bottom()), darkPanel);
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
    const QRectF close = shop.catalogue.rect(window, "Command1");
    Panel panel(size, shop.scale);
    panel.titleBand();
    panel.frame();
    valueTable(panel, shop.catalogue, window);
    textSheet(panel, shop.catalogue, window);
    panel.seat(shop.catalogue.places(window, {"Command1"}));
    grille(panel, between(12, close.top() + 3, close.left() - 12, close.bottom() - 3));
    return panel.finished();
}

QImage paintForm2(const Workshop& shop) {
    const QString window = "Form2";
    const QSize size = shop.catalogue.windowSize(window);
    const QRectF words = shop.catalogue.rect(window, "Label2");
    const QRectF list = shop.catalogue.rect(window, "File1");
    const QStringList answers = {"Command2", "Command1"};
    const QRectF row = shop.catalogue.united(window, answers);
    Panel panel(size, shop.scale);
    panel.titleBand();
    panel.frame();
    panel.painter().fillRect(between(2, words.top() - 2, size.width() - 2, list.top() - 2), veil(edge, 70));
    panel.well(list, paleField);
    panel.seat(shop.catalogue.places(window, answers));
    grille(panel, between(12, row.top() + 3, row.left() - 12, row.bottom() - 3));
    return panel.finished();
}

} // namespace torvane
