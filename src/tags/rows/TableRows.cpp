// SPDX-License-Identifier: MIT
// Measuring and aligning.
#include "TableRows.h"
#include "TerminalText.h"

#include <algorithm>

namespace torvane {

namespace {
constexpr int gap = 2;
}

TableRows::TableRows(const Columns& columns, Output& output)
    : m_columns(columns), m_output(output), m_widths(columns.size()) {
    for (size_t i = 0; i < m_columns.size(); ++i) addCell(i, m_columns[i].name);
}

void TableRows::add(const Row& row) {
    for (size_t i = 0; i < m_columns.size(); ++i) addCell(i, TerminalText::word(row[i]));
}

void TableRows::addCell(size_t column, const QByteArray& shown) {
    const int width = TerminalText::width(shown);
    m_text.append(shown.constData(), static_cast<size_t>(shown.size()));
    m_cells.push_back({static_cast<quint32>(shown.size()), width});
    m_widths[column] = std::max(m_widths[column], width);
}

// Nothing follows the last column, so it needs no blanks after it.
QByteArray TableRows::padded(size_t column, const QByteArray& shown, int width) const {
    const bool isLast = column + 1 == m_columns.size();
    const QByteArray blanks(m_widths[column] - width, ' ');
    if (m_columns[column].isNumber) return blanks + shown + QByteArray(isLast ? 0 : gap, ' ');
    return isLast ? shown : shown + blanks + QByteArray(gap, ' ');
}

void TableRows::finish() {
    const int limit = m_output.terminalWidth();
    size_t start = 0;
    QByteArray line;
    for (size_t i = 0; i < m_cells.size(); ++i) {
        const Cell& cell = m_cells[i];
        const size_t column = i % m_columns.size();
        line += padded(column, QByteArray(m_text.data() + start, static_cast<qsizetype>(cell.length)),
                       cell.width);
        start += cell.length;
        if (column + 1 < m_columns.size()) continue;
        while (line.endsWith(' ')) line.chop(1);
        m_output.write((limit > 0 ? TerminalText::cut(line, limit) : line) + '\n');
        line.resize(0);
    }
}

} // namespace torvane
