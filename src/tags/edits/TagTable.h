// SPDX-License-Identifier: MIT
// A file with the tags of many games: lines of fields with tabs between them, under a line that names the
// columns. Reads bytes and knows no files.
#pragma once

#include "GivenTag.h"

#include <QByteArrayList>

#include <vector>

namespace torvane {

/// The columns are file, title, company, info and date, in any order. Those that only a list prints (console,
/// tagged, image, size) are skipped. Lines end with LF or CR LF, a byte order mark is skipped, quotes are
/// characters like any other, and \t, \n, \r, \0 and \\ stand for the bytes that a field can't hold. Empty
/// lines are skipped.
class TagTable {
public:
    /// Reads the line with the names of the columns.
    explicit TagTable(const QByteArray& bytes);

    /// Why no row can be read, without a line end; empty if rows can be read.
    const QByteArray& fault() const { return m_fault; }

    struct Row {
        int line = 0; ///< its number in the file, counted from 1
        QByteArray file;
        GivenTag tag;     ///< without the fields that are empty or that the line lacks
        QByteArray fault; ///< why the row is of no use, without a line end; empty for a good one
    };
    /// The next row; nothing after the last one, and if there is a fault.
    std::optional<Row> next();
    /// About how many rows there are: the lines after the first.
    int lineCount() const;

private:
    enum class Use { file, title, company, info, date, none };
    QByteArray takeLine();
    void readHeader();
    void put(Use use, const QByteArray& text, Row& row) const;

    QByteArray m_bytes;
    qsizetype m_at = 0;
    int m_line = 0;
    std::vector<Use> m_columns;
    QByteArray m_fault;
};

} // namespace torvane
