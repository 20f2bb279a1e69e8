// SPDX-License-Identifier: MIT
// The texts that describe a picture, and the plain text of numbers in single precision.
#pragma once

#include <QSize>
#include <QString>

namespace torvane::PictureTexts {

/// A number as text with up to seven digits and a point, such as "160" or "7.5"; with an exponent from ten
/// million up ("1.5E+07").
QString single(float number);
/// The number in such a text.
float number(const QString& single);

/// Width and height of a size in pixels: "160x144 píxels".
QString dimensions(QSize pixels);
/// A length in bytes in whole units of 1000, rounded down: "1KB" for 1999.
QString weight(qint64 bytes);

} // namespace torvane::PictureTexts
