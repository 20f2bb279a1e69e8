// SPDX-License-Identifier: MIT
// The table of stand-ins.
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

QFont of(const FontSpec& spec) {
    QFont font(QString::fromLatin1(standIn(spec.face).family));
    font.setPixelSize(qRound(spec.points * 96.0 / 72.0));
    font.setBold(spec.bold);
    font.setUnderline(spec.underline);
    font.setItalic(spec.italic);
    return font;
}

} // namespace torvane::Fonts
