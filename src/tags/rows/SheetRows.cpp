// SPDX-License-Identifier: MIT
// A line for each field.
#include "SheetRows.h"
#include "TerminalText.h"

#include <algorithm>

namespace torvane {

SheetRows::SheetRows(const Columns& columns, Output& output) : m_output(output) {
    qsizetype longest = 0;
    for (const Column& column : columns) longest = std::max(longest, QByteArrayView(column.name).size());
    for (const Column& column : columns) {
        m_labels.push_back((QByteArray(column.name) + ':').leftJustified(longest + 2));
    }
}

void SheetRows::add(const Row& row) {
    if (!m_isFirst) m_output.write("\n");
    m_isFirst = false;
    for (size_t i = 0; i < m_labels.size(); ++i) {
        if (row[i].kind != Field::Kind::missing)
            m_output.write(m_labels[i] + TerminalText::word(row[i]) + '\n');
    }
}

} // namespace torvane
