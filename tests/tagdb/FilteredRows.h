// SPDX-License-Identifier: MIT
// Shared by the tests of the tag database: lines of a file, and what passes a filter on a fixed day.
#pragma once

#include "tagdb/FilteredLines.h"

#include <QStringList>

namespace torvane {

/// The fields of a line, joined by "§".
inline QByteArray line(const QByteArrayList& fields) { return fields.join('\xA7'); }

inline QByteArray lineOf(const QByteArray& system, const QByteArray& title) {
    return line({system, title, "Acme", "1/2/2003", "Good.", "SYSTEM", "somebody"});
}

/// What passes, on 22 November 2026 for a user who writes 22/11/26.
inline std::shared_ptr<OnlineDbRows> filtered(const QByteArray& file, const OnlineDbFilter& filter = {}) {
    return filterLines(file, filter, QDate(2026, 11, 22), QStringLiteral("dd/MM/yy"));
}

/// The texts of a column.
inline QStringList column(const OnlineDbRows& rows, int number) {
    QStringList texts;
    for (int row = 0; row < rows.count(); ++row) texts << rows.text(row, number);
    return texts;
}

inline QStringList titles(const QByteArray& file, const OnlineDbFilter& filter = {}) {
    return column(*filtered(file, filter), 0);
}

/// The texts of a row.
inline QStringList rowTexts(const OnlineDbRows& rows, int row) {
    QStringList texts;
    for (int number = 0; number < 6; ++number) texts << rows.text(row, number);
    return texts;
}

} // namespace torvane
