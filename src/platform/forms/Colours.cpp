// SPDX-License-Identifier: MIT
// Colour words and system colours.
#include "Colours.h"

namespace torvane::Colours {

namespace {
OleColour systemColour(OleColour index) {
    switch (index) {
    case 5: return 0xFFFFFF;  // window
    case 13: return 0xD77800; // selection
    case 14: return 0xFFFFFF; // text of the selection
    case 15: return 0xF0F0F0; // button face
    case 16: return 0xA0A0A0; // button shadow
    case 17: return 0x6D6D6D; // disabled text
    case 20: return 0xFFFFFF; // button highlight
    case 21: return 0x696969; // dark shadow
    case 22: return 0xE3E3E3; // light
    default: return 0x000000; // texts: 6, 7, 8, 9 and 18 among them
    }
}
} // namespace

OleColour translate(OleColour colour) {
    return (colour & 0x80000000U) != 0 ? systemColour(colour & 0x7FFFFFFFU) : colour & 0xFFFFFFU;
}

QColor toQColor(OleColour colour) {
    const OleColour plain = translate(colour);
    return QColor(static_cast<int>(plain & 0xFF), static_cast<int>(plain >> 8 & 0xFF),
                  static_cast<int>(plain >> 16 & 0xFF));
}

} // namespace torvane::Colours
