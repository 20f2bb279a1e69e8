// SPDX-License-Identifier: MIT
// Escaping for lines with tabs.
#include "TsvRows.h"

namespace torvane {

namespace {
// The letter that stands after a backslash for a byte; 0 for a byte that stands for itself.
char letterFor(char c) {
    switch (c) {
    case '\t': return 't';
    case '\n': return 'n';
    case '\r': return 'r';
    case '\0': return '0';
    case '\\': return '\\';
    default: return 0;
    }
}
} // namespace

TsvRows::TsvRows(const Columns& columns, Output& output) : m_output(output) {
    for (const Column& column : columns) {
        if (!m_line.empty()) m_line += '\t';
        m_line += column.name;
    }
    m_line += '\n';
    m_output.write(m_line);
}

void TsvRows::add(const Row& row) {
    m_line.clear();
    bool isFirst = true;
    for (const Field& field : row) {
        if (!isFirst) m_line += '\t';
        isFirst = false;
        addField(field);
    }
    m_line += '\n';
    m_output.write(m_line);
}

void TsvRows::addField(const Field& field) {
    if (field.kind == Field::Kind::yes) m_line += "yes";
    if (field.kind == Field::Kind::no) m_line += "no";
    for (const char c : field.bytes) {
        const char letter = letterFor(c);
        if (letter != 0) m_line += '\\';
        m_line += letter != 0 ? letter : c;
    }
}

} // namespace torvane
