// SPDX-License-Identifier: MIT
// The entries of a database file, found by title and console. The lines are read by the rules of
// FilteredLines, without a filter, but here every entry is looked at: a line that takes over values of a
// megabyte must cost no more than its own bytes.
#pragma once

#include "tagdb/FieldStarts.h"
#include "tagdb/OnlineDbEntry.h"

#include <QByteArrayView>
#include <optional>
#include <vector>

namespace torvane {

class TitledEntries {
public:
    /// Reads the bytes of a file of less than 4 GiB.
    explicit TitledEntries(QByteArray file);

    /// Whether there is no entry of the three consoles with a title.
    bool isEmpty() const { return m_entries.empty(); }

    struct Match {
        std::optional<OnlineDbEntry> entry; ///< nothing if there is none, or if several differ
        bool hasRivals = false;             ///< several entries have the title, but other texts
    };
    /// The entry of a title, in code page 1252, without regard to case (see CodePage1252::upper), and of a
    /// console's word; any console if that is empty. Entries with equal texts count as one.
    Match find(const QByteArray& title, const QByteArray& system) const;

private:
    struct Entry {
        quint32 hash; // of the title in upper case
        FieldStarts starts;
    };
    void read();
    void endLine(qsizetype at, const FieldStarts& starts);
    std::optional<quint32> hashOfTitleAt(quint32 start);
    QByteArrayView value(const FieldStarts& starts, OnlineDbField field) const;
    bool isSame(const FieldStarts& one, const FieldStarts& other, OnlineDbField field) const;
    bool areSameTexts(const FieldStarts& one, const FieldStarts& other) const;
    OnlineDbEntry entry(const FieldStarts& starts) const;

    QByteArray m_file;
    std::vector<Entry> m_entries; // sorted by hash
    // The last title: lines that take it over follow.
    std::optional<quint32> m_titleStart;
    std::optional<quint32> m_titleHash;
};

} // namespace torvane
