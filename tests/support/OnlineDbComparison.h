// SPDX-License-Identifier: MIT
// Compares the rows that the program filters with those of the plain model.
#pragma once

#include "OnlineDbModel.h"
#include "platform/base/CodePage1252.h"
#include "tagdb/FilteredLines.h"

namespace torvane::model {

inline QString text(const std::string& bytes) {
    return CodePage1252::fromBytes(QByteArray::fromStdString(bytes));
}

/// The model's filter as the boxes of the window hold it.
inline OnlineDbFilter boxesOf(const Filter& filter) {
    using Kind = OnlineDbFilter::Kind;
    OnlineDbFilter boxes;
    boxes.GB_CL = filter.byn;
    boxes.GB_CO = filter.color;
    boxes.GB_AD = filter.advance;
    boxes.kind = filter.kind == "ALL" ? Kind::all : filter.kind == "USER" ? Kind::user : Kind::system;
    boxes.author = text(filter.author);
    boxes.game = text(filter.game) + (filter.isForeign ? QStringLiteral("\u4E2D") : QString());
    boxes.date = text(filter.age);
    boxes.company = text(filter.company);
    return boxes;
}

inline bool showsValues(const OnlineDbRows& rows, int row, const Values& values) {
    const OnlineDbEntry entry = rows.entry(row);
    const Values own = {entry.System.toStdString(), entry.Title.toStdString(), entry.Company.toStdString(),
                        entry.Date.toStdString(),   entry.Info.toStdString(),  entry.Kind.toStdString(),
                        entry.Author.toStdString()};
    constexpr std::array<size_t, 6> columns = {1, 2, 3, 5, 6, 4};
    for (int column = 0; column < 6; ++column) {
        const std::string& value = values[columns[static_cast<size_t>(column)]];
        if (rows.text(row, column) != text(value.substr(0, 1000))) return false;
    }
    const int icon = values[0] == "byn" ? 1 : values[0] == "color" ? 2 : values[0] == "advance" ? 3 : 0;
    return own == values && rows.icon(row) == icon;
}

/// Whether the program shows exactly these rows.
inline bool shows(const OnlineDbRows& rows, const std::vector<Values>& expected) {
    if (rows.count() != static_cast<int>(expected.size())) return false;
    for (int row = 0; row < rows.count(); ++row) {
        if (!showsValues(rows, row, expected[static_cast<size_t>(row)])) return false;
    }
    return true;
}

} // namespace torvane::model
