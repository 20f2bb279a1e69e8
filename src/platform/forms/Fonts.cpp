// SPDX-License-Identifier: MIT
// The table of substitute fonts.
#include "Fonts.h"

#include <QtGlobal>

namespace torvane::Fonts {

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
    font.setPixelSize(qRound(named.points * 96.0 / 72.0));
    font.setBold(named.bold);
    font.setUnderline(named.underline);
    font.setItalic(named.italic);
    return font;
}

} // namespace torvane::Fonts
