// SPDX-License-Identifier: MIT
// A PDF document of one page as a reader sees it, by the tools of poppler.
#pragma once

#include "CommandOutput.h"

#include <QDir>
#include <QImage>
#include <QRegularExpression>
#include <QtTest>

namespace torvane {

class PdfPage {
public:
    /// Dots that the page is rendered with for each pixel of the design, of which an inch has 96. With less,
    /// the renderer would blend neighbouring pixels of a picture; as it is, it makes a picture one dot
    /// larger.
    static constexpr int density = 4;

    explicit PdfPage(const QString& path) : m_path(path) {
        m_image.loadFromData(outputOf({"pdftoppm", "-r", QByteArray::number(96 * density), path.toUtf8()}));
    }

    bool isReadable() const { return !m_image.isNull(); }
    /// All text of the page, without line breaks at its end.
    QString text() const {
        return QString::fromUtf8(outputOf({"pdftotext", "-layout", m_path.toUtf8(), "-"})).trimmed();
    }
    /// That of the document.
    QString title() const {
        static const QRegularExpression form(QStringLiteral("Title: +(.*)"));
        return form.match(info()).captured(1);
    }
    /// In points.
    QSizeF size() const {
        static const QRegularExpression form(QStringLiteral("Page size: +([0-9.]+) x ([0-9.]+)"));
        const auto found = form.match(info());
        return {found.captured(1).toDouble(), found.captured(2).toDouble()};
    }
    /// The colour in the middle of a pixel of the design, counted from the paper's top left corner.
    QRgb at(int x, int y) const {
        return m_image.pixel(x * density + density / 2, y * density + density / 2);
    }
    /// The pixels of the design, counted in the same way, around everything that is not white.
    QRect inked(const QRect& within) const {
        QRect ink;
        for (int y = within.top(); y <= within.bottom(); ++y) {
            for (int x = within.left(); x <= within.right(); ++x) {
                if (at(x, y) != white) ink |= QRect(x, y, 1, 1);
            }
        }
        return ink;
    }
    QRect paper() const { return {0, 0, m_image.width() / density, m_image.height() / density}; }
    /// Whether a picture lies on the paper, pixel by pixel, with its corner there.
    bool shows(const QImage& picture, const QPoint& corner) const {
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (at(corner.x() + x, corner.y() + y) != picture.pixel(x, y)) return false;
            }
        }
        return true;
    }

private:
    static constexpr QRgb white = 0xFFFFFFFF;

    QString info() const { return QString::fromUtf8(outputOf({"pdfinfo", m_path.toUtf8()})); }

    QString m_path;
    QImage m_image;
};

/// A picture in which no two neighbouring pixels are alike, and which hardly can be compressed.
inline QImage motley(int width, int height) {
    QImage picture(width, height, QImage::Format_RGB32);
    quint32 dice = 2463534242;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            dice ^= dice << 13;
            dice ^= dice >> 17;
            dice ^= dice << 5;
            picture.setPixel(x, y, 0xFF000000 | (dice & 0x7F7F7F)); // never white
        }
    }
    return picture;
}

} // namespace torvane
