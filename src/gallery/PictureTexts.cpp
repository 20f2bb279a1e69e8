// SPDX-License-Identifier: MIT
// Texts of sizes and lengths.
#include "PictureTexts.h"

namespace torvane::PictureTexts {

namespace {
constexpr int digits = 7;

// The gallery measures in eighths of a pixel.
constexpr float unitsInPixel = 8;

QString measured(int pixels) {
    const float units = unitsInPixel * static_cast<float>(pixels);
    return single(units / unitsInPixel);
}
} // namespace

QString single(float number) { return QString::number(static_cast<double>(number), 'g', digits).toUpper(); }

float number(const QString& single) { return single.toFloat(); }

QString dimensions(QSize pixels) {
    return measured(pixels.width()) + QLatin1Char('x') + measured(pixels.height()) +
           QStringLiteral(" píxels");
}

QString weight(qint64 bytes) { return QString::number(bytes / 1000) + QStringLiteral("KB"); }

} // namespace torvane::PictureTexts
