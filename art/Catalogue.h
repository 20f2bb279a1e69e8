// SPDX-License-Identifier: MIT
// Reads the table of windows and controls, so that every well of a background and every mask colour of an
// icon comes from the rows that the windows are tested against. It contains no painting.
#pragma once

#include <QColor>
#include <QHash>
#include <QList>
#include <QRectF>
#include <QSize>
#include <QString>
#include <QStringList>

namespace torvane {

/// The rows of `controls.tsv` and `windows.tsv`. Sizes and positions are logical pixels.
class Catalogue {
public:
    /// Reads both tables from `folder`; throws std::runtime_error if one of them can't be read.
    explicit Catalogue(const QString& folder);

    /// The client size of a window; throws std::runtime_error for a window that is not in the table.
    QSize windowSize(const QString& window) const;

    /// The rectangle of a control in its window; throws std::runtime_error for a control that is not in the
    /// table.
    QRectF rect(const QString& window, const QString& control) const;

    /// The smallest rectangle that contains all the named controls.
    QRectF united(const QString& window, const QStringList& controls) const;

    /// The rectangles of the named controls in whole pixels, as the window rounds them.
    QList<QRectF> places(const QString& window, const QStringList& controls) const;

    /// The mask colour in a button's notes; throws std::runtime_error if its notes contain none.
    QColor mask(const QString& window, const QString& control) const;

private:
    struct Control {
        QRectF rect;
        QString notes;
    };
    const Control& control(const QString& window, const QString& name) const;

    QHash<QString, QSize> windows;
    QHash<QString, Control> controls;
};

} // namespace torvane
