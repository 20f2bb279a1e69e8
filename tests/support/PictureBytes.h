// SPDX-License-Identifier: MIT
// Small picture files of each format, as bytes.
#pragma once

#include "GifMovie.h"

#include <QBuffer>
#include <QImage>
#include <QtEndian>
#include <algorithm>

namespace torvane {

/// A picture as a BMP, which keeps its pixels.
inline QByteArray bmpOf(const QImage& image) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, "BMP")) qFatal("can't make a picture");
    return bytes;
}

/// A picture of four fields, each in another shade of the colour, in Qt's name of a format.
inline QByteArray pictureBytes(const char* format, QSize size = {160, 144}, QColor colour = Qt::red) {
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        const int row = 2 * y >= size.height() ? 2 : 0;
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        const int half = (size.width() + 1) / 2;
        std::fill_n(line, half, colour.darker(100 + 40 * row).rgb());
        std::fill_n(line + half, size.width() - half, colour.darker(100 + 40 * (row + 1)).rgb());
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, format)) qFatal("can't make a picture");
    return bytes;
}

inline QByteArray jpegBytes(QSize size = {160, 144}, QColor colour = Qt::red) {
    return pictureBytes("JPG", size, colour);
}
inline QByteArray bmpBytes(QSize size = {160, 144}, QColor colour = Qt::red) {
    return pictureBytes("BMP", size, colour);
}
inline QByteArray pngBytes(QSize size = {160, 144}) { return pictureBytes("PNG", size); }
/// A GIF with one pixel in its corner on a clear canvas, followed by a frame in another colour.
inline QByteArray gifBytes(QSize size = {160, 144}) {
    return gifHead(size.width(), size.height()) + gifFrame(0) + gifFrame(1) + ';';
}

/// The bytes with others in their place from a position on.
inline QByteArray overwritten(QByteArray bytes, qsizetype at, const QByteArray& by) {
    return bytes.replace(at, by.size(), by);
}
/// A BMP that claims another size than it has.
inline QByteArray bmpClaiming(qint32 width, qint32 height) {
    QByteArray claims(8, '\0');
    qToLittleEndian(width, claims.data());
    qToLittleEndian(height, claims.data() + 4);
    return overwritten(bmpBytes({4, 4}), 18, claims);
}
/// A JPEG that claims another size than it has.
inline QByteArray jpegClaiming(quint16 width, quint16 height) {
    QByteArray claims(4, '\0');
    qToBigEndian(height, claims.data());
    qToBigEndian(width, claims.data() + 2);
    const QByteArray bytes = jpegBytes({16, 16});
    return overwritten(bytes, bytes.indexOf("\xFF\xC0") + 5, claims);
}

} // namespace torvane
