// SPDX-License-Identifier: MIT
// Cutting lines and fields, and what stands for what in them.
#include "TagTable.h"
#include "platform/base/Printable.h"

#include <algorithm>

namespace torvane {

namespace {
const QByteArray byteOrderMark = QByteArrayLiteral("\xEF\xBB\xBF");
constexpr qsizetype longestShown = 40; // of a column's name in a message

// The byte that a letter after a backslash stands for; nothing for all other letters.
std::optional<char> byteFor(char letter) {
    switch (letter) {
    case 't': return '\t';
    case 'n': return '\n';
    case 'r': return '\r';
    case '0': return '\0';
    case '\\': return '\\';
    default: return std::nullopt;
    }
}

// Nothing if a backslash stands before anything else.
std::optional<QByteArray> unescaped(const QByteArray& field) {
    if (!field.contains('\\')) return field;
    QByteArray text;
    for (qsizetype i = 0; i < field.size(); ++i) {
        if (field[i] != '\\') {
            text += field[i];
            continue;
        }
        const auto byte = ++i < field.size() ? byteFor(field[i]) : std::nullopt;
        if (!byte) return std::nullopt;
        text += *byte;
    }
    return text;
}
} // namespace

TagTable::TagTable(const QByteArray& bytes) : m_bytes(bytes) {
    if (m_bytes.startsWith(byteOrderMark)) m_at = byteOrderMark.size();
    readHeader();
    if (!m_fault.isEmpty()) m_at = m_bytes.size();
}

QByteArray TagTable::takeLine() {
    const qsizetype end = m_bytes.indexOf('\n', m_at);
    QByteArray line = m_bytes.mid(m_at, end < 0 ? -1 : end - m_at);
    m_at = end < 0 ? m_bytes.size() : end + 1;
    ++m_line;
    if (line.endsWith('\r')) line.chop(1);
    return line;
}

void TagTable::readHeader() {
    const QByteArrayList uses{"file", "title", "company", "info", "date"};
    const QByteArrayList skipped{"console", "tagged", "image", "size"};
    QByteArrayList seen;
    for (const QByteArray& name : takeLine().split('\t')) {
        const qsizetype use = uses.indexOf(name);
        const QByteArray shown = '\'' + printable(name.left(longestShown)) + '\'';
        if (use < 0 && !skipped.contains(name)) m_fault = "unknown column " + shown;
        if (seen.contains(name)) m_fault = "column " + shown + " is there twice";
        if (!m_fault.isEmpty()) return;
        seen += name;
        m_columns.push_back(use < 0 ? Use::none : static_cast<Use>(use));
    }
    if (!seen.contains("file")) m_fault = "there is no column 'file'";
}

std::optional<TagTable::Row> TagTable::next() {
    QByteArray line;
    while (m_at < m_bytes.size() && line.isEmpty()) line = takeLine();
    if (line.isEmpty()) return std::nullopt;
    Row row;
    row.line = m_line;
    const QByteArrayList fields = line.split('\t');
    if (fields.size() > static_cast<qsizetype>(m_columns.size())) {
        row.fault = "there are more fields than columns";
        return row;
    }
    for (qsizetype i = 0; i < fields.size(); ++i) {
        const auto text = unescaped(fields[i]);
        if (!text) row.fault = "a backslash stands before something else than t, n, r, 0 or a backslash";
        if (text && !text->isEmpty()) put(m_columns[static_cast<size_t>(i)], *text, row);
    }
    if (row.file.isEmpty() && row.fault.isEmpty()) row.fault = "the name of the file is missing";
    if (row.file.contains('\0')) row.fault = "the name of the file has a zero byte";
    return row;
}

void TagTable::put(Use use, const QByteArray& text, Row& row) const {
    switch (use) {
    case Use::file: row.file = text; break;
    case Use::title: row.tag.title = text; break;
    case Use::company: row.tag.company = text; break;
    case Use::info: row.tag.info = text; break;
    case Use::date: row.tag.date = text; break;
    case Use::none: break;
    }
}

int TagTable::lineCount() const {
    return static_cast<int>(std::count(m_bytes.begin() + m_at, m_bytes.end(), '\n'));
}

} // namespace torvane
