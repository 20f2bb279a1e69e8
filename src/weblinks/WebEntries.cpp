// SPDX-License-Identifier: MIT
// Reading the lines of the web lists.
#include "WebEntries.h"
#include "WebEntry.h"
#include "WebFields.h"
#include "platform/base/CodePage1252.h"

#include <algorithm>

namespace torvane {

namespace {
bool endsLine(char byte) { return byte == '\r' || byte == '\n'; }

quint8 iconOf(QByteArrayView kind) {
    if (kind == "system") return 1;
    return kind == "perso" ? 2 : 0;
}
} // namespace

void WebEntries::append(QByteArrayView file) {
    qsizetype start = m_bytes.size();
    m_bytes += file;
    if (!file.isEmpty() && !endsLine(file.back())) m_bytes += '\n';
    while (start < m_bytes.size()) {
        appendLine(static_cast<quint32>(start));
        start += lineAt(static_cast<quint32>(start)).size();
        start += QByteArrayView(m_bytes).sliced(start).startsWith("\r\n") ? 2 : 1;
    }
}

void WebEntries::appendLine(quint32 start) {
    const quint32 number = m_lineCount++;
    const QByteArrayView line = lineAt(start);
    if (line.isEmpty()) return;
    const QByteArrayView kind = WebFields::fieldOf(line, 2);
    if (!kind.isNull()) {
        m_icon = iconOf(kind);
        m_entries.push_back(start);
    }
    m_rows.push_back({start, number, m_icon});
}

QByteArrayView WebEntries::lineAt(quint32 start) const {
    const QByteArrayView rest = QByteArrayView(m_bytes).sliced(start);
    return rest.first(std::find_if(rest.begin(), rest.end(), endsLine) - rest.begin());
}

QByteArrayView WebEntries::name(int row) const {
    return WebFields::fieldOf(lineAt(at(m_rows, row).start), 0);
}

QString WebEntries::entryText(int entry) const {
    const QByteArrayView line = lineAt(at(m_entries, entry));
    const auto field = [&](int number) { return CodePage1252::fromBytes(WebFields::fieldOf(line, number)); };
    return WebEntry::textOf(field(0), field(1), field(2));
}

} // namespace torvane
