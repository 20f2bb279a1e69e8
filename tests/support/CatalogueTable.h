// SPDX-License-Identifier: MIT
// The window catalogue as tests read it: one row per window, one row per control. The checks remove the notes
// of a row one by one, so that a note that no check knows remains and is found.
#pragma once

#include "platform/forms/Colours.h"
#include "platform/forms/Control.h"

#include <QMap>
#include <QSize>
#include <QStringList>
#include <optional>

namespace torvane {

/// The rows of a tab-separated table, keyed by the names in its first line. Empty if the file is missing.
QList<QMap<QString, QString>> tableRows(const QString& file);

/// The notes on a control, such as: V8.25b, fore 0xFFFFFF, tip "x, y".
class CatalogueNotes {
public:
    explicit CatalogueNotes(const QString& notes);

    /// Whether the word is there; removes it.
    bool take(const QString& word);
    /// The text after the word; nothing if the word is absent. Removes both, as do the functions below.
    std::optional<QString> takeAfter(const QString& word);
    /// The text in quotes after the word; empty if the word is absent.
    QString takeQuoted(const QString& word);
    /// The width and height after a word; an invalid size if the word is absent.
    QSize takeSize(const QString& word);
    /// The number after a word; -1 if the word is absent.
    int takeNumber(const QString& word);

    /// A note such as "fore 0xBBGGRR over 0xBBGGRR": the normal colour, and the one under the mouse.
    struct ColourPair {
        std::optional<OleColour> plain;
        std::optional<OleColour> over;
    };
    ColourPair takeColours(const QString& word);
    /// The font; nothing if none is noted.
    std::optional<FontSpec> takeFont();

    /// The notes that are left.
    QString rest() const { return m_pieces.join(QStringLiteral(", ")); }

private:
    QStringList m_pieces;
};

} // namespace torvane
