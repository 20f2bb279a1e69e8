// SPDX-License-Identifier: MIT
// A game's tag as a line of the tag database (see FilteredLines).
#pragma once

#include "tagdb/OnlineDbEntry.h"

namespace torvane::EntryLine {

/// The word of the database for a console; empty for an archive and for an unknown one.
QByteArray systemOf(const QByteArray& console);

/// Why an entry can't be a line that gives the same entry again, without a line end; empty if it can. A line
/// holds no line breaks, and "§" only between its fields.
QByteArray faultOf(const OnlineDbEntry& entry);

/// The line of an entry, with its line end.
QByteArray of(const OnlineDbEntry& entry);

} // namespace torvane::EntryLine
