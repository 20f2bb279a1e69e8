// SPDX-License-Identifier: MIT
// The entries that passed the filter, as rows of a list. Keeps the file's bytes and one offset per row;
// fields are cut when they are asked for.
#pragma once

#include "FieldStarts.h"
#include "OnlineDbEntry.h"
#include "platform/base/RowSource.h"

#include <vector>

namespace torvane {

class OnlineDbRows : public RowSource {
public:
    /// No rows yet; appendLine adds lines of the file, which may have up to 4 GiB.
    explicit OnlineDbRows(QByteArray file = {}) : m_file(std::move(file)) {}

    int count() const override { return static_cast<int>(m_lines.size() + m_added.size()); }
    /// Columns: 0 title, 1 company, 2 date, 3 kind, 4 author, 5 info. At most the first 1000 characters of a
    /// field; `entry` has all.
    QString text(int row, int column) const override;
    /// The system of the entry: 1 for "byn", 2 for "color", 3 for "advance", 0 for any other word.
    int icon(int row) const override;
    OnlineDbEntry entry(int row) const;

    /// Adds an entry that is not in the file, after all others.
    void append(const OnlineDbEntry& entry) { m_added.push_back(entry); }
    /// Adds a line of the file: where its values start, and how many of them are its own; the others are from
    /// lines before it. Lines are added in file order, and before any other entry.
    void appendLine(const FieldStarts& starts, int ownFields);

private:
    // Where the values start that short lines take over from lines before them. Valid from a row on, up to
    // the next such record.
    struct Inherited {
        int row;
        FieldStarts starts;
    };

    QByteArrayView field(int row, OnlineDbField wanted) const;
    QByteArrayView inheritedField(int row, OnlineDbField wanted) const;

    QByteArray m_file;
    std::vector<quint32> m_lines;
    std::vector<Inherited> m_inherited;
    std::vector<OnlineDbEntry> m_added;
};

} // namespace torvane
