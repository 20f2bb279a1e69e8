// SPDX-License-Identifier: MIT
// The pixel loop of the masked copy.
#include "TransparentBlit.h"

#include <QPainter>

namespace torvane {

namespace {
QRgb bitsOf(OleColour colour) { return Colours::toQColor(colour).rgb() & RGB_MASK; }

QRgb blended(QRgb source, QRgb target) {
    const auto mix = [](int from, int onto) { return (2 * from + onto) / 3; };
    return qRgb(mix(qRed(source), qRed(target)), mix(qGreen(source), qGreen(target)),
                mix(qBlue(source), qBlue(target)));
}

bool isDark(QRgb colour) { return qRed(colour) + qGreen(colour) + qBlue(colour) <= 384; }

// The rule with its colours in the surface's own order.
struct PixelRule {
    explicit PixelRule(const BlitRule& blit)
        : rule(blit), mask(blit.mask ? bitsOf(*blit.mask) : ~0U),
          brush(blit.brush ? bitsOf(*blit.brush) | ~RGB_MASK : 0) {}

    QRgb operator()(QRgb source, QRgb target) const {
        if ((source & RGB_MASK) == mask) return target;
        if (rule.brush) return !rule.stencil || isDark(source) ? brush : target;
        if (rule.grey) {
            const int level = luminance(source);
            return qRgb(level, level, level);
        }
        return rule.blend ? blended(source, target) : source | ~RGB_MASK;
    }

    const BlitRule& rule;
    QRgb mask; // a value that no pixel has when nothing is transparent
    QRgb brush;
};
} // namespace

int luminance(QRgb colour) {
    const int hundredths = 30 * qRed(colour) + 59 * qGreen(colour) + 11 * qBlue(colour);
    const int whole = hundredths / 100;
    const int rest = hundredths % 100;
    return rest > 50 || (rest == 50 && whole % 2 == 1) ? whole + 1 : whole;
}

void TransparentBlit(QImage& target, const QRect& at, const QImage& picture, const BlitRule& rule) {
    const QSize wanted(at.width() < 0 ? picture.width() : at.width(),
                       at.height() < 0 ? picture.height() : at.height());
    const QRect area = QRect(at.topLeft(), wanted.boundedTo(picture.size())) & target.rect();
    if (area.isEmpty()) return;
    const QImage source = picture.convertToFormat(QImage::Format_RGB32);
    const PixelRule pixel(rule);
    const int shift = at.x();
    for (int y = area.top(); y <= area.bottom(); ++y) {
        const auto* from = reinterpret_cast<const QRgb*>(source.constScanLine(y - at.y()));
        auto* onto = reinterpret_cast<QRgb*>(target.scanLine(y));
        for (int x = area.left(); x <= area.right(); ++x) onto[x] = pixel(from[x - shift], onto[x]);
    }
}

QImage pictureAt(const QImage& picture, qreal ratio, OleColour mask) {
    if (picture.isNull()) return {};
    QImage opaque = picture;
    if (picture.hasAlphaChannel()) {
        opaque = QImage(picture.size(), QImage::Format_RGB32);
        opaque.fill(Colours::toQColor(mask));
        opaque.setDevicePixelRatio(picture.devicePixelRatio());
        QPainter(&opaque).drawImage(0, 0, picture);
    }
    const QSize size = (picture.deviceIndependentSize() * ratio).toSize();
    if (size != opaque.size()) opaque = opaque.scaled(size, Qt::IgnoreAspectRatio, Qt::FastTransformation);
    opaque = opaque.convertToFormat(QImage::Format_RGB32);
    opaque.setDevicePixelRatio(1.0);
    return opaque;
}

} // namespace torvane
