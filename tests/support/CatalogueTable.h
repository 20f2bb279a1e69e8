// SPDX-License-Identifier: MIT
// The window catalogue as tests read it: one row a window, one row a control, and the notes of a row as
// pieces that are taken off one by one, so that what no check has looked at remains and is found.
#pragma once

#include "platform/forms/Colours.h"
#include "platform/forms/Control.h"

#include <QMap>
#include <QSize>
#include <QStringList>
#include <optional>

namespace torvane {

/// The rows of a table of tab-separated columns, by the names of the first line. Empty if there is no file.
QList<QMap<QString, QString>> tableRows(const QString& file);

/// The notes on a control, such as: V8.25b, fore 0xFFFFFF, tip "x, y".
class CatalogueNotes {
public:
    explicit CatalogueNotes(const QString& notes);

    /// Whether the word is there; takes it off.
    bool take(const QString& word);
    /// What follows the word; nothing if it is not there. Takes it off.
    std::optional<QString> takeAfter(const QString& word);
    /// The same of a text in quotes; empty if it is not there.
    QString takeQuoted(const QString& word);
    /// The width and height behind a word; an invalid size if it is not there.
    QSize takeSize(const QString& word);
    /// The number behind a word; -1 if it is not there.
    int takeNumber(const QString& word);

    /// A colour "fore 0xBBGGRR over 0xBBGGRR": the plain one, and the one under the mouse.
    struct ColourPair {
        std::optional<OleColour> plain;
        std::optional<OleColour> over;
    };
    ColourPair takeColours(const QString& word);
    /// The font; nothing if none is noted.
    std::optional<FontSpec> takeFont();

    /// What has not been taken.
    QString rest() const { return m_pieces.join(QStringLiteral(", ")); }

private:
    QStringList m_pieces;
};

} // namespace torvane
