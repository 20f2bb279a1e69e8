// SPDX-License-Identifier: MIT
// The lines of the web lists as two series that grow line by line: the rows that the user sees, and the
// entries that the buttons work on. Both have the same places as long as every line has three fields.
//
// A line ends with CR LF, LF or CR; the last one of a file may end with it. Every other byte is data. A line
// of three fields or more gives a row and an entry; one of one or two fields gives a row alone, with the icon
// of the line before. An empty line gives neither, but is counted.
#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

namespace torvane {

class WebEntries {
public:
    /// Adds the lines of a file after all others. All files together have less than 4 GiB.
    void append(QByteArrayView file);

    int rowCount() const { return static_cast<int>(m_rows.size()); }
    /// The name in a row, in code page 1252; perhaps as long as the file.
    QByteArrayView name(int row) const;
    /// The number of a row's picture: 1 for the kind "system", 2 for "perso", 0 for any other.
    int icon(int row) const { return at(m_rows, row).icon; }
    /// The number of a row's line, counted from 0 over all files.
    quint32 lineNumber(int row) const { return at(m_rows, row).number; }

    int entryCount() const { return static_cast<int>(m_entries.size()); }
    /// The text of an entry (see WebEntry).
    QString entryText(int entry) const;

private:
    struct Row {
        quint32 start; // of the line in m_bytes
        quint32 number;
        quint8 icon;
    };

    template <typename T>
    static const T& at(const std::vector<T>& series, int place) {
        return series[static_cast<size_t>(place)];
    }
    QByteArrayView lineAt(quint32 start) const;
    void appendLine(quint32 start);

    QByteArray m_bytes; // of all files, each of which ends with a line end
    std::vector<Row> m_rows;
    std::vector<quint32> m_entries; // where their lines start
    quint32 m_lineCount = 0;
    quint8 m_icon = 0; // of the last line with a kind
};

} // namespace torvane
