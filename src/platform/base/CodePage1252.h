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

/// The capital of a letter that has one in the code page; every other byte as it is. These are a to z, E0 to
/// FE but for the division sign F7 (à to þ, to C0 to DE), 9A (š), 9C (œ), 9E (ž) and FF (ÿ, to 9F). Sharp s
/// (DF), micro (B5) and the hooked f (83) stay: their capitals lie outside the code page.
constexpr char upper(char byte) {
    const auto code = static_cast<unsigned char>(byte);
    const bool isAccented = code >= 0xE0 && code <= 0xFE && code != 0xF7;
    if ((code >= 'a' && code <= 'z') || isAccented) return static_cast<char>(code - 0x20);
    if (code == 0x9A || code == 0x9C || code == 0x9E) return static_cast<char>(code - 0x10);
    return code == 0xFF ? '\x9F' : byte;
}
/// The bytes of a text in upper case.
QByteArray upper(QByteArrayView bytes);

} // namespace torvane::CodePage1252
