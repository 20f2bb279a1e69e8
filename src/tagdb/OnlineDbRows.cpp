// SPDX-License-Identifier: MIT
// Cutting the fields of rows.
#include "OnlineDbRows.h"
#include "FieldEnds.h"
#include "platform/base/CodePage1252.h"

#include <algorithm>

namespace torvane {

namespace {
constexpr std::array columns = {titleField, companyField, dateField, kindField, authorField, infoField};
// No cell is that wide, and a line may be as long as the file.
constexpr qsizetype longestCell = 1000;

QByteArrayView fieldOf(const OnlineDbEntry& entry, OnlineDbField field) {
    switch (field) {
    case systemField: return entry.System;
    case titleField: return entry.Title;
    case companyField: return entry.Company;
    case dateField: return entry.Date;
    case infoField: return entry.Info;
    case kindField: return entry.Kind;
    default: return entry.Author;
    }
}
} // namespace

void OnlineDbRows::appendLine(const FieldStarts& starts, int ownFields) {
    if (ownFields < fieldCount) {
        // Lines that take over the same values share a record.
        const bool isKnown =
            !m_inherited.empty() && std::equal(starts.begin() + ownFields, starts.end(),
                                               m_inherited.back().starts.begin() + ownFields);
        if (!isKnown) m_inherited.push_back({static_cast<int>(m_lines.size()), starts});
    }
    m_lines.push_back(starts[systemField]);
}

QByteArrayView OnlineDbRows::field(int row, OnlineDbField wanted) const {
    const auto line = static_cast<size_t>(row);
    if (line >= m_lines.size()) return fieldOf(m_added[line - m_lines.size()], wanted);
    QByteArrayView value = valueAt(m_file, m_lines[line]);
    for (int i = systemField; i < wanted; ++i) {
        const qsizetype end = value.end() - m_file.begin();
        if (end == m_file.size() || m_file[end] != fieldSeparator) return inheritedField(row, wanted);
        value = valueAt(m_file, end + 1);
    }
    return value;
}

QByteArrayView OnlineDbRows::inheritedField(int row, OnlineDbField wanted) const {
    const auto after = std::upper_bound(m_inherited.begin(), m_inherited.end(), row,
                                        [](int own, const Inherited& other) { return own < other.row; });
    return valueAt(m_file, std::prev(after)->starts[wanted]);
}

QString OnlineDbRows::text(int row, int column) const {
    const OnlineDbField wanted = columns[static_cast<size_t>(column)];
    const QByteArrayView whole = field(row, wanted);
    const QByteArrayView shown = whole.first(std::min(whole.size(), longestCell));
    return CodePage1252::fromBytes(wanted == kindField ? CodePage1252::upper(shown) : shown);
}

int OnlineDbRows::icon(int row) const {
    const QByteArrayView system = field(row, systemField);
    if (system == "byn") return 1;
    if (system == "color") return 2;
    return system == "advance" ? 3 : 0;
}

OnlineDbEntry OnlineDbRows::entry(int row) const {
    const auto bytes = [&](OnlineDbField wanted) { return field(row, wanted).toByteArray(); };
    return {bytes(systemField), bytes(titleField), bytes(companyField),
            bytes(dateField),   bytes(infoField),  CodePage1252::upper(field(row, kindField)),
            bytes(authorField)};
}

} // namespace torvane
