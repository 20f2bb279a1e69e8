// SPDX-License-Identifier: MIT
// The table of substitute fonts.
#include "Fonts.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <algorithm>

namespace torvane::Fonts {

namespace {
constexpr int measuredSize = 100; // pixels
constexpr double slack = 0.93;    // texts differ in their letters
const QString sample = QStringLiteral("The quick brown fox, 0123456789 - EL ÑANDÚ SABE MÁS");

// The width of the sample, regular and bold, and the height of a line in the fonts of the table, in pixels at
// that size.
struct Measure {
    double width;
    double boldWidth;
    double height;
};
Measure measureOf(FontSpec::Face face) {
    switch (face) {
    case FontSpec::Verdana: return {2875, 3212, 117};
    case FontSpec::MSSansSerif: return {2636, 2743, 112};
    case FontSpec::Tahoma: return {2586, 2890, 117};
    case FontSpec::TrebuchetMS: return {2483, 2517, 122};
    case FontSpec::CourierNew: return {3060, 3060, 114};
    }
    return {2636, 2743, 112};
}

// Where a font of the table is missing another one comes instead. One that is wider or taller gets a smaller
// type, since the places of the captions are made for the table's.
double shrinkageOf(const FontSpec& named, QFont font) {
    if (QFontInfo(font).family() == font.family()) return 1.0;
    font.setPixelSize(measuredSize);
    const QFontMetricsF metrics(font);
    const Measure wanted = measureOf(named.face);
    const double width =
        slack * (named.bold ? wanted.boldWidth : wanted.width) / metrics.horizontalAdvance(sample);
    return std::min({1.0, width, wanted.height / metrics.height()});
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
    if (const double shrinkage = shrinkageOf(named, font); shrinkage < 1.0) {
        font.setPixelSize(std::max(1, static_cast<int>(pixels * shrinkage)));
    }
    return font;
}

} // namespace torvane::Fonts
