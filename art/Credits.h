// SPDX-License-Identifier: MIT
// The credits of the about window: pages of words in the night sky, one after the other, above the swinging
// vane.
#pragma once

#include <QColor>
#include <QList>
#include <QPainter>
#include <QRectF>
#include <QSize>
#include <QString>

namespace torvane {

/// The scene of the loop; its words come with the program, so that they are always true.
class Credits {
public:
    static constexpr QSize size{431, 333};

    /// `libraries` is the table of the libraries that the program is linked with, `version` the program's
    /// own. Throws std::runtime_error if the table can't be read or the font of the words is missing.
    Credits(const QString& libraries, const QString& version);

    /// How many frames the loop has.
    int frames() const;
    /// The frame at the position `turn` in the loop, from 0 to 1; 0 and 1 give the same picture.
    void paint(QPainter& painter, const QRectF& area, qreal turn) const;

private:
    struct Line {
        QString text;
        int pixels; // the size of its letters
        bool isBold;
        QColor colour;
        int top; // of the line, below the top of the area
    };
    using Page = QList<Line>;

    Page cover(const QString& version) const;
    Page thanks() const;
    void addLibraries(const QString& table);
    void paintPage(QPainter& painter, const QRectF& area, const Page& page, qreal strength) const;

    QList<Page> pages;
};

} // namespace torvane
