// SPDX-License-Identifier: MIT
// The panel backgrounds of the main window, the ZIP window and the yes-or-no box. The others are in files of
// their own, by subject.
#include "Backgrounds.h"

#include "Palette.h"
#include "Panel.h"

#include <QRadialGradient>

namespace torvane {

namespace {

// The left half of the main window: tools, name strip, list of games, page strip, counters.
void listDeck(Panel& panel, const Catalogue& catalogue, const QString& window) {
    const QStringList toolButtons = {"Refresh", "Searcher", "Zipper"};
    const QRectF tools = catalogue.united(window, toolButtons);
    const QRectF back = catalogue.rect(window, "chameleonButton14");
    const QRectF next = catalogue.rect(window, "chameleonButton15");
    const QRectF list = catalogue.rect(window, "Picture2");
    const QRectF totals = catalogue.united(window, {"Label16", "TotalRom"});
    panel.plate(between(tools.left() - 2, tools.top() - 3, next.right() + 2, totals.bottom() + 7));
    panel.seat(catalogue.places(window, toolButtons));
    const QRectF heading = between(tools.right() + 3, tools.top() + 1, next.right() - 1, tools.bottom() - 1);
    panel.slot(heading);
    panel.well(list);
    panel.seat({back});
    panel.seat({next});
    panel.slot(between(back.right() + 3, back.top() + 1, next.left() - 3, back.bottom() - 1));
    panel.slot(totals.adjusted(-4, -3, 5, 4));
}

// The right half: the two tabs, name strip, game panel, the six big buttons.
void gameDeck(Panel& panel, const Catalogue& catalogue, const QString& window) {
    const QStringList tabButtons = {"ID3_Menu", "Edit_Menu"};
    const QStringList barButtons = {"chameleonButton3", "chameleonButton6", "chameleonButton4",
                                    "chameleonButton7", "chameleonButton8", "chameleonButton5"};
    const QRectF tabs = catalogue.united(window, tabButtons);
    const QRectF game = catalogue.rect(window, "Picture1(0)");
    const QRectF bar = catalogue.united(window, barButtons);
    panel.plate(between(tabs.left() - 1, tabs.top() - 3, bar.right() + 2, bar.bottom() + 2));
    panel.seat(catalogue.places(window, tabButtons));
    panel.slot(between(tabs.right() + 3, tabs.top() + 1, bar.right() - 2, tabs.bottom() - 1));
    panel.well(game);
    panel.seat(catalogue.places(window, barButtons));
}

// A small round warm lamp; `light` runs from 0 (dark) to 1.
void lamp(QPainter& painter, QPointF centre, qreal light) {
    constexpr qreal radius = 2.5;
    QRadialGradient glow(centre, radius * 2.6);
    glow.setColorAt(0, palette::veil(palette::ember, qRound(120 * light)));
    glow.setColorAt(1, palette::veil(palette::ember, 0));
    painter.setPen(Qt::NoPen);
    painter.setBrush(glow);
    painter.drawEllipse(centre, radius * 2.6, radius * 2.6);
    painter.setBrush(palette::cut);
    painter.drawEllipse(centre, radius + 1, radius + 1);
    QRadialGradient glass(centre - QPointF(0.8, 0.8), radius * 1.4);
    glass.setColorAt(0, palette::ember.lighter(qRound(45 + 95 * light)));
    glass.setColorAt(1, palette::ember.darker(qRound(420 - 280 * light)));
    painter.setBrush(glass);
    painter.drawEllipse(centre, radius, radius);
}

} // namespace

QImage paintMainFrm(const Workshop& shop) {
    const QString window = "MainFrm";
    Panel panel(shop.catalogue.windowSize(window), shop.scale);
    listDeck(panel, shop.catalogue, window);
    gameDeck(panel, shop.catalogue, window);
    panel.well(shop.catalogue.rect(window, "ShockwaveFlash1"));
    panel.titleBand();
    panel.frame();
    return panel.finished();
}

QImage cutTitleBand(const QImage& mainFrm, int scale) {
    return mainFrm.copy(0, 0, mainFrm.width(), titleBandHeight * scale);
}

QImage paintZipViewer(const Workshop& shop) {
    const QString window = "ZIP_Viewer";
    Panel panel(shop.catalogue.windowSize(window), shop.scale);
    panel.titleBand();
    panel.frame();
    panel.well(shop.catalogue.rect(window, "ListView1"));
    return panel.finished();
}

QImage paintZipWait(const Workshop& shop) {
    const QString window = "ZIP_Viewer";
    const QSizeF size = shop.catalogue.rect(window, "Mensaje").size();
    const QRectF detail = shop.catalogue.rect(window, "Label3");
    Panel panel(size.toSize(), shop.scale);
    // Lighter than the list beneath, so that the panel is noticed before its words are read.
    panel.painter().fillRect(QRectF(QPointF(0, 0), size), palette::veil(palette::foldOut, 70));
    panel.raisedEdge();
    panel.groove({4, detail.top() - 2, size.width() - 8, 2});
    // Three lamps at the free end of the second line show that the archive is being processed.
    constexpr int lamps = 3;
    const qreal step = (size.width() - 4 - detail.right()) / lamps;
    for (int number = 0; number < lamps; ++number)
        lamp(panel.painter(), {detail.right() + step * (number + 0.5), detail.center().y()},
             1 - 0.45 * number);
    return panel.finished();
}

QImage paintTorvMsg(const Workshop& shop) {
    const QString window = "TorvMsg";
    const QSizeF size = shop.catalogue.windowSize(window);
    const QRectF message = shop.catalogue.rect(window, "Label2");
    const QStringList answerButtons = {"chameleonButton2", "chameleonButton3"};
    const QRectF answers = shop.catalogue.united(window, answerButtons);
    const QRectF field = between(message.left() - 2, message.top() - 2, size.width() - 5, answers.top() - 5);
    Panel panel(size.toSize(), shop.scale);
    panel.well(field);
    // The message is an opaque label, smaller than the field: the floor of the field continues its colour.
    panel.painter().fillRect(field.adjusted(2, 2, 0, 0), palette::darkPanel);
    panel.frame();
    panel.seat(shop.catalogue.places(window, answerButtons));
    return panel.finished();
}

} // namespace torvane
