// SPDX-License-Identifier: MIT
// Numbers that stand as text in tags and settings.
#pragma once

#include <QByteArray>

namespace torvane::NumberText {

/// The value of a decimal number, with or without sign, point and exponent, and with ASCII blanks around it.
/// Fails with "type mismatch" for every other text: hexadecimal digits, "inf", "nan", and what no double
/// holds.
double toReal(const QByteArray& text);

/// The same rounded to the nearest whole number, half to even. Fails with "overflow" outside of 32 bits.
int toInteger(const QByteArray& text);

} // namespace torvane::NumberText
