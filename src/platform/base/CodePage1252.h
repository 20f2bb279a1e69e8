// SPDX-License-Identifier: MIT
// The 8-bit text of all data files: code page 1252, in a mapping that round-trips every byte. The table is
// that of the WHATWG Encoding Standard: the five bytes that the code page leaves undefined (81, 8D, 8F, 90,
// 9D) map to the C1 control characters of the same number.
#pragma once

#include <QByteArray>
#include <QString>

namespace torvane::CodePage1252 {

/// The text of any bytes; 256 byte values give 256 different characters.
QString fromBytes(QByteArrayView bytes);
/// The bytes of a text; a character outside the code page becomes "?".
QByteArray toBytes(QStringView text);
/// Whether the code page has every character of the text.
bool holds(QStringView text);

} // namespace torvane::CodePage1252
