// SPDX-License-Identifier: MIT
// The pages of the credits and how they follow each other. While a page stays only the vane moves, so that
// its words can be read at ease.
#include "Credits.h"

#include "Night.h"
#include "Palette.h"

#include <QFile>
#include <QFontInfo>

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace torvane {

using namespace palette;

namespace {

constexpr int framesOfFade = 8;
constexpr int framesOfPage = 52; // with both fades
constexpr int librariesOnPage = 3;
const QColor wordWhite(0xff, 0xff, 0xff);
const QColor wordGrey(0xc6, 0xcc, 0xe2);

QFont fontOf(int pixels, bool isBold) {
    QFont font("DejaVu Sans");
    font.setPixelSize(pixels);
    font.setBold(isBold);
    font.setHintingPreference(QFont::PreferNoHinting); // the same letters at both densities
    return font;
}

// How visible a page is in a frame of its own: from 0 to 1, softly.
qreal strengthIn(qreal frame) {
    const qreal edge = std::min(frame, framesOfPage - frame) / framesOfFade;
    const qreal clipped = std::clamp(edge, 0.0, 1.0);
    return clipped * clipped * (3 - 2 * clipped);
}

void landscape(QPainter& painter, const QRectF& area) {
    night::sky(painter, area);
    night::stars(painter, area.adjusted(0, 0, 0, -60), 70, 0.2);
    night::ridge(painter, area.adjusted(0, 228, 0, 0), farHill, 5, 34);
    night::ridge(painter, area.adjusted(0, 262, 0, 0), middleHill, 9, 26);
    night::ridge(painter, area.adjusted(0, 296, 0, 0), nearHill, 3, 14);
    night::tor(painter, {362, 318}, 11);
}

} // namespace

Credits::Credits(const QString& libraries, const QString& version) {
    if (QFontInfo(fontOf(12, false)).family() != "DejaVu Sans") {
        throw std::runtime_error("the font DejaVu Sans is missing");
    }
    pages << cover(version);
    addLibraries(libraries);
    pages << thanks();
}

Credits::Page Credits::cover(const QString& version) const {
    return {{"Torvane", 52, true, wordWhite, 62},
            {version, 26, true, ember, 128},
            {"Software libre · Programari lliure · Free software", 13, false, wordWhite, 180},
            {"MIT", 13, true, wordGrey, 202}};
}

Credits::Page Credits::thanks() const {
    return {{"Gracias · Gràcies · Thanks", 22, true, ember, 44},
            {"a quienes traducen Torvane", 16, false, wordWhite, 100},
            {"a qui tradueix Torvane", 16, false, wordWhite, 132},
            {"to everyone who translates Torvane", 16, false, wordWhite, 164}};
}

void Credits::addLibraries(const QString& table) {
    QFile file(table);
    if (!file.open(QIODevice::ReadOnly)) throw std::runtime_error("can't read " + table.toStdString());
    int onPage = librariesOnPage;
    while (!file.atEnd()) {
        const QStringList cells = QString::fromUtf8(file.readLine()).trimmed().split('\t');
        if (cells.size() < 3) continue; // the heading of the table
        if (onPage == librariesOnPage) {
            pages << Page{{"Hecho con · Fet amb · Made with", 13, true, ember, 24},
                          {"data/licences", 12, false, wordGrey, 214}};
            onPage = 0;
        }
        const int top = 56 + 52 * onPage++;
        pages.last() << Line{cells[1], 20, true, wordWhite, top}
                     << Line{cells[2], 13, false, wordGrey, top + 25};
    }
}

int Credits::frames() const { return framesOfPage * int(pages.size()); }

void Credits::paintPage(QPainter& painter, const QRectF& area, const Page& page, qreal strength) const {
    painter.save();
    painter.setOpacity(strength);
    for (const Line& line : page) {
        painter.setFont(fontOf(line.pixels, line.isBold));
        const QRectF place(area.left(), area.top() + line.top, area.width(), line.pixels * 1.5);
        const int flags = Qt::AlignHCenter | Qt::AlignTop | Qt::TextDontClip;
        const qreal shadow = line.pixels > 15 ? 1.5 : 1;
        painter.setPen(veil(edge, 200));
        painter.drawText(place.translated(shadow, shadow), flags, line.text);
        painter.setPen(line.colour);
        painter.drawText(place, flags, line.text);
    }
    painter.restore();
}

void Credits::paint(QPainter& painter, const QRectF& area, qreal turn) const {
    landscape(painter, area);
    // It swings and never turns its edge to the eye.
    const qreal angle =
        0.7 * std::sin(2 * night::fullTurn * turn) + 0.35 * std::sin(5 * night::fullTurn * turn);
    night::vane(painter, {360, 275}, 56, angle);
    const qreal frame = turn * frames();
    const auto page = std::min(qsizetype(frame / framesOfPage), pages.size() - 1);
    paintPage(painter, area, pages[page], strengthIn(frame - qreal(page) * framesOfPage));
}

} // namespace torvane
