// SPDX-License-Identifier: MIT
// Code page 1252 in both directions.
#include "CodePage1252.h"

#include <algorithm>
#include <array>

namespace torvane::CodePage1252 {

namespace {
// Characters of the bytes 80 to 9F; every other byte is the code point of its character.
constexpr std::array<char16_t, 32> upperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

// The byte of a character, or -1.
int byteOf(char16_t unit) {
    if (unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF)) return unit;
    const auto* found = std::find(upperControls.begin(), upperControls.end(), unit);
    return found == upperControls.end() ? -1 : 0x80 + static_cast<int>(found - upperControls.begin());
}
} // namespace

QString fromBytes(QByteArrayView bytes) {
    QString text = QString::fromLatin1(bytes);
    for (QChar& c : text) {
        const char16_t unit = c.unicode();
        if (unit >= 0x80 && unit < 0xA0) c = QChar(upperControls[unit - 0x80]);
    }
    return text;
}

QByteArray toBytes(QStringView text) {
    QByteArray bytes;
    bytes.reserve(text.size());
    for (const QChar c : text) {
        const int byte = byteOf(c.unicode());
        bytes.append(byte < 0 ? '?' : static_cast<char>(byte));
    }
    return bytes;
}

bool holds(QStringView text) {
    return std::all_of(text.begin(), text.end(), [](QChar c) { return byteOf(c.unicode()) >= 0; });
}

QByteArray upper(QByteArrayView bytes) {
    QByteArray result = bytes.toByteArray();
    for (char& byte : result) byte = upper(byte);
    return result;
}

} // namespace torvane::CodePage1252
