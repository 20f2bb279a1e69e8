// SPDX-License-Identifier: MIT
// Where the values of a line of the database file start.
#pragma once

#include <QtGlobal>
#include <array>

namespace torvane {

/// The places of the fields in a line of the file, counted from 0.
enum OnlineDbField {
    systemField,
    titleField,
    companyField,
    dateField,
    infoField,
    kindField,
    authorField,
    fieldCount
};

/// The byte between two fields: "§" in code page 1252.
constexpr char fieldSeparator = '\xA7';

/// The offsets in the file at which the current values of the fields start. A value ends before the next "§",
/// CR or LF, or with the file.
using FieldStarts = std::array<quint32, fieldCount>;

/// Whether a byte ends a value.
constexpr bool endsField(char byte) { return byte == fieldSeparator || byte == '\r' || byte == '\n'; }

} // namespace torvane
