// SPDX-License-Identifier: MIT
// The rows that commands print: named columns, and a field for each of them.
#pragma once

#include <QByteArray>
#include <vector>

namespace torvane {

struct Column {
    const char* name;
    bool isNumber = false; ///< aligned to the right in tables
};
using Columns = std::vector<Column>;

/// One value of a row. Its bytes are UTF-8, except that the name of a file may have any others, too.
struct Field {
    enum class Kind { missing, text, number, yes, no };

    Kind kind = Kind::missing;
    QByteArray bytes; ///< the text or the digits; empty for the other kinds

    /// The name of a file, as the system has it.
    static Field ofName(const QByteArray& name) { return {Kind::text, name}; }
    /// A text of a tag, in code page 1252.
    static Field ofTagText(const QByteArray& text);
    static Field ofNumber(qint64 number) { return {Kind::number, QByteArray::number(number)}; }
    static Field ofTruth(bool isTrue) { return {isTrue ? Kind::yes : Kind::no, {}}; }
};
using Row = std::vector<Field>;

} // namespace torvane
