// SPDX-License-Identifier: MIT
// Escaping for JSON.
#include "JsonRows.h"
#include "platform/base/NativeText.h"

#include <algorithm>

namespace torvane {

namespace {
bool isPlainInJson(char c) { return c >= ' ' && c != '"' && c != '\\'; }

std::string_view viewOf(const QByteArray& bytes) {
    return {bytes.constData(), static_cast<size_t>(bytes.size())};
}

QByteArray unicodeEscape(char16_t unit) {
    return "\\u" + QByteArray::number(unit, 16).rightJustified(4, '0');
}
} // namespace

JsonRows::JsonRows(const Columns& columns, Output& output) : m_output(output) {
    for (const Column& column : columns) {
        m_keys.push_back((m_keys.empty() ? "{\"" : ",\"") + std::string(column.name) + "\":");
    }
}

void JsonRows::add(const Row& row) {
    m_line.clear();
    for (size_t i = 0; i < m_keys.size(); ++i) {
        m_line += m_keys[i];
        addValue(row[i]);
    }
    m_line += "}\n";
    m_output.write(m_line);
}

void JsonRows::addValue(const Field& field) {
    switch (field.kind) {
    case Field::Kind::missing: m_line += "null"; break;
    case Field::Kind::text: addString(field.bytes); break;
    case Field::Kind::number: m_line += viewOf(field.bytes); break;
    case Field::Kind::yes: m_line += "true"; break;
    case Field::Kind::no: m_line += "false"; break;
    }
}

void JsonRows::addString(const QByteArray& bytes) {
    m_line += '"';
    if (std::all_of(bytes.begin(), bytes.end(), isPlainInJson)) {
        m_line += viewOf(bytes);
    } else {
        addEscaped(bytes);
    }
    m_line += '"';
}

void JsonRows::addEscaped(const QByteArray& bytes) {
    const QString text = NativeText::fromNative(bytes);
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        const bool isPair = c.isHighSurrogate() && i + 1 < text.size();
        if (c == QChar(u'\xDC5C')) { // a backslash in a name
            m_line += "\\\\";
        } else if (isPair) {
            m_line += viewOf(QStringView(text).sliced(i++, 2).toUtf8());
        } else if (c.unicode() < ' ' || c.isSurrogate()) {
            m_line += viewOf(unicodeEscape(c.unicode()));
        } else {
            if (c == QLatin1Char('"')) m_line += '\\';
            m_line += viewOf(QStringView(&c, 1).toUtf8());
        }
    }
}

} // namespace torvane
