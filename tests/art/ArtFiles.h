// SPDX-License-Identifier: MIT
// Reads rendered files: their kind, their pixels, their high-density twins. The tests say what these should
// be.
#pragma once

#include <QFile>
#include <QImage>
#include <QSet>
#include <QString>

namespace torvane {

/// The folder of the files that are beside the executable.
inline const QString artTree = QStringLiteral(TORVANE_ART_TREE_DIR);

/// The kind of a file by its signature, not by its name; otherwise "missing" or "unknown".
inline QByteArray kindOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return "missing";
    const QByteArray head = file.read(16);
    if (head.startsWith("\xff\xd8\xff")) return "JPEG";
    if (head.startsWith("\x89PNG\r\n\x1a\n")) return "PNG";
    if (head.startsWith("BM")) return "BMP";
    if (head.startsWith("RIFF") && head.mid(8, 4) == "WEBP") return "WebP";
    return "unknown";
}

/// The name of the twin at a scale: "name@2x.png" for 2, the name itself for 1.
inline QString scaled(QString path, int scale) {
    return scale == 1 ? path : path.insert(path.lastIndexOf('.'), QStringLiteral("@2x"));
}

/// The pixels, ignoring the "@2x" in the name, which would make Qt report half the size.
inline QImage pixelsOf(const QString& path) {
    QImage image(path);
    image.setDevicePixelRatio(1);
    return image.convertToFormat(QImage::Format_ARGB32);
}

/// The pixels of a bound JPEG at a scale.
inline QImage picture(const QString& name, int scale) {
    return pixelsOf(scaled(":/art/" + name + ".jpg", scale));
}

/// A rectangle of the window in pixels of a picture at a scale.
inline QRect device(const QRect& rect, int scale) { return {rect.topLeft() * scale, rect.size() * scale}; }

/// The mean difference in brightness between two pictures of the same scene, 0 to 255.
inline qreal differenceOf(const QImage& one, const QImage& other) {
    const QImage fitted = other.scaled(one.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    qint64 sum = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) sum += qAbs(qGray(one.pixel(x, y)) - qGray(fitted.pixel(x, y)));
    }
    return qreal(sum) / (one.width() * one.height());
}

inline int countOf(const QImage& image, QRgb colour) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) count += image.pixel(x, y) == colour ? 1 : 0;
    }
    return count;
}

inline QSet<int> alphasOf(const QImage& image) {
    QSet<int> alphas;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) alphas << qAlpha(image.pixel(x, y));
    }
    return alphas;
}

/// The mean brightness of a part of a picture, 0 to 255.
inline qreal brightnessOf(const QImage& image, const QRect& part) {
    qint64 sum = 0;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x) sum += qGray(image.pixel(x, y));
    }
    return qreal(sum) / (part.width() * part.height());
}

} // namespace torvane
