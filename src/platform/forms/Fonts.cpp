// SPDX-License-Identifier: MIT
// The table of substitute fonts.
#include "Fonts.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <cmath>

namespace torvane::Fonts {

namespace {
constexpr int measuredSize = 100; // pixels
constexpr double slack = 0.93;    // texts differ in their letters
// Words as the captions have them, and capitals with figures: of two fonts the one may be wider in these
// only.
const QString words = QStringLiteral("Escribe las primeras letras del nombre del juego.");
const QString capitals = QStringLiteral("The quick brown fox, 0123456789 - EL ÑANDÚ SABE MÁS");

// What the fonts of the table take at that size, in pixels: the width of both samples, and the height of a
// line.
struct Measure {
    double words;
    double capitals;
    double height;
};
Measure measureOf(FontSpec::Face face, bool isBold) {
    switch (face) {
    case FontSpec::Verdana: return isBold ? Measure{2776, 3212, 117} : Measure{2455, 2875, 117};
    case FontSpec::MSSansSerif: return isBold ? Measure{2333, 2743, 112} : Measure{2167, 2636, 112};
    case FontSpec::Tahoma: return isBold ? Measure{2497, 2889, 117} : Measure{2208, 2586, 117};
    case FontSpec::TrebuchetMS: return isBold ? Measure{2072, 2517, 122} : Measure{2015, 2483, 122};
    case FontSpec::CourierNew: return {2940, 3060, 114};
    }
    return {2167, 2636, 112};
}

// Whether a font takes no more room than the table's one would take at that many pixels. Measured at the very
// size, since hinted letters are rounded to whole pixels.
bool takesNoMore(const QFont& font, const Measure& atMeasuredSize, double pixels) {
    const QFontMetricsF metrics(font);
    const double scale = pixels / measuredSize;
    return metrics.horizontalAdvance(words) <= slack * scale * atMeasuredSize.words &&
           metrics.horizontalAdvance(capitals) <= slack * scale * atMeasuredSize.capitals &&
           metrics.height() <= std::ceil(scale * atMeasuredSize.height);
}

// Where a font of the table is missing another one comes instead. One that is wider or taller gets a smaller
// type, since the places of the captions are made for the table's.
void shrinkSubstitute(QFont& font, const FontSpec& named, double pixels) {
    if (QFontInfo(font).family() == font.family()) return;
    const Measure wanted = measureOf(named.face, named.bold);
    while (font.pixelSize() > 1 && !takesNoMore(font, wanted, pixels)) {
        font.setPixelSize(font.pixelSize() - 1);
    }
}
} // namespace

StandIn standIn(FontSpec::Face face) {
    switch (face) {
    case FontSpec::Verdana: return {"Verdana", "DejaVu Sans", "fonts-dejavu-core"};
    case FontSpec::MSSansSerif: return {"MS Sans Serif", "Liberation Sans", "fonts-liberation"};
    case FontSpec::Tahoma: return {"Tahoma", "DejaVu Sans Condensed", "fonts-dejavu-extra"};
    case FontSpec::TrebuchetMS: return {"Trebuchet MS", "Cabin", "fonts-cabin"};
    case FontSpec::CourierNew: return {"Courier New", "Liberation Mono", "fonts-liberation"};
    }
    return {"MS Sans Serif", "Liberation Sans", "fonts-liberation"};
}

QFont of(const FontSpec& named) {
    QFont font(QString::fromLatin1(standIn(named.face).family));
    font.setBold(named.bold);
    font.setUnderline(named.underline);
    font.setItalic(named.italic);
    const double pixels = named.points * 96.0 / 72.0;
    font.setPixelSize(qRound(pixels));
    shrinkSubstitute(font, named, pixels);
    return font;
}

} // namespace torvane::Fonts
