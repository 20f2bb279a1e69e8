// SPDX-License-Identifier: MIT
// Numbers in the text of tags and settings.
#pragma once

#include <QByteArray>

namespace torvane::NumberText {

/// The value of a decimal number, optionally with sign, point and exponent, and with surrounding ASCII
/// blanks. Fails with typeMismatch for every other text, such as hexadecimal digits, "inf", "nan", and
/// numbers beyond the range of double.
double toReal(const QByteArray& text);

/// The same, rounded to the nearest whole number, half to even. Fails with overflow outside 32 bits.
int toInteger(const QByteArray& text);

/// The same; fails with overflow outside 16 bits.
int toShort(const QByteArray& text);

} // namespace torvane::NumberText
