// SPDX-License-Identifier: MIT
// Rendering of SVG sources. QtSvg always smooths, so for hard edges an icon is rendered eight times too
// large, and the majority of its 64 samples decides each pixel.
#include "Drawing.h"

#include "Palette.h"

#include <QFile>
#include <QHash>
#include <QSvgRenderer>

#include <stdexcept>
#include <utility>

namespace torvane {

namespace {

constexpr int samples = 8;

// The tones in which the icon sources are drawn, and those of the hover twin.
const QList<std::pair<QByteArray, QByteArray>> warmTones = {
    {"#E8ECF8", "#FFE9C4"}, {"#7F8ABA", "#E08A2A"}, {"#FFB84D", "#FFFFFF"}};

// The most frequent colour among one pixel's samples, or clear if less than half of them are covered.
QRgb vote(const QImage& large, int x, int y) {
    QHash<QRgb, int> votes;
    QRgb winner = 0;
    int covered = 0;
    for (int sample = 0; sample < samples * samples; ++sample) {
        const QRgb pixel = large.pixel(x * samples + sample % samples, y * samples + sample / samples);
        if (qAlpha(pixel) < 128) continue;
        ++covered;
        const QRgb colour = pixel | 0xff000000U;
        if (++votes[colour] > votes.value(winner)) winner = colour;
    }
    return covered * 2 >= samples * samples ? winner : 0;
}

// Whether there is colour near a pixel. Dark lines don't count: at the rim they are already the outline.
bool colourNear(const QImage& image, int x, int y, int reach) {
    for (int dy = -reach; dy <= reach; ++dy) {
        for (int dx = -reach; dx <= reach; ++dx) {
            if (dx * dx + dy * dy > reach * reach || !image.valid(x + dx, y + dy)) continue;
            const QRgb pixel = image.pixel(x + dx, y + dy);
            if (qAlpha(pixel) != 0 && pixel != palette::outline.rgb()) return true;
        }
    }
    return false;
}

QImage outlined(const QImage& plain, int width) {
    QImage result = plain;
    for (int y = 0; y < plain.height(); ++y) {
        for (int x = 0; x < plain.width(); ++x) {
            if (qAlpha(plain.pixel(x, y)) != 0 || !colourNear(plain, x, y, width)) continue;
            result.setPixel(x, y, palette::outline.rgb());
        }
    }
    return result;
}

QByteArray contentOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) throw std::runtime_error("cannot read " + path.toStdString());
    return file.readAll();
}

} // namespace

Drawing::Drawing(const QString& path) : Drawing(contentOf(path), path) {}

Drawing::Drawing(QByteArray svg, const QString& path) : source(std::move(svg)), name(path) {
    if (!QSvgRenderer(source).isValid()) throw std::runtime_error("no drawing in " + path.toStdString());
}

Drawing Drawing::recoloured(const QList<std::pair<QByteArray, QByteArray>>& colours) const {
    QByteArray text = source;
    for (const auto& [from, to] : colours) text.replace(from, to);
    return Drawing(text, name);
}

Drawing Drawing::warm() const { return recoloured(warmTones); }

void Drawing::paint(QPainter& painter, const QRectF& target) const {
    QSvgRenderer renderer(source);
    renderer.render(&painter, target);
}

void Drawing::paintPart(QPainter& painter, const QString& part, const QRectF& target) const {
    QSvgRenderer renderer(source);
    if (!renderer.elementExists(part))
        throw std::runtime_error("no " + part.toStdString() + " in " + name.toStdString());
    const QRectF whole = renderer.viewBoxF();
    const QRectF at = renderer.boundsOnElement(part);
    const qreal across = target.width() / whole.width();
    const qreal down = target.height() / whole.height();
    renderer.render(&painter, part,
                    QRectF(target.left() + (at.left() - whole.left()) * across,
                           target.top() + (at.top() - whole.top()) * down, at.width() * across,
                           at.height() * down));
}

QImage Drawing::smooth(int pixels) const {
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    paint(painter, QRectF(0, 0, pixels, pixels));
    return image;
}

QImage Drawing::hardEdged(int pixels, int outlineWidth) const {
    const QImage large = smooth(pixels * samples).convertToFormat(QImage::Format_ARGB32);
    QImage plain(pixels, pixels, QImage::Format_ARGB32);
    for (int y = 0; y < pixels; ++y) {
        for (int x = 0; x < pixels; ++x) plain.setPixel(x, y, vote(large, x, y));
    }
    return outlined(plain, outlineWidth);
}

QImage masked(const QImage& icon, const QColor& mask) {
    QImage result(icon.size(), QImage::Format_RGB32);
    for (int y = 0; y < icon.height(); ++y) {
        for (int x = 0; x < icon.width(); ++x) {
            const QRgb pixel = icon.pixel(x, y);
            if (pixel == mask.rgb()) throw std::runtime_error("an icon uses its own mask colour");
            result.setPixel(x, y, qAlpha(pixel) == 0 ? mask.rgb() : pixel);
        }
    }
    return result;
}

} // namespace torvane
