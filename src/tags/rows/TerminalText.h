// SPDX-License-Identifier: MIT
// Text as a terminal shows it. Widths are those of the system's table of characters, which the locale of the
// process has to have: any locale in UTF-8.
#pragma once

#include "Field.h"

namespace torvane::TerminalText {

/// The text of UTF-8 or of a name of any bytes. What is no character, or one that a terminal would obey,
/// becomes "?".
QByteArray shown(const QByteArray& bytes);
/// The same for a field: its text, "yes" or "no"; empty for a missing one.
QByteArray word(const Field& field);
/// How many cells of a terminal a shown text takes: two for wide characters, none for combining ones.
int width(const QByteArray& shown);
/// The beginning of a shown text that takes at most so many cells.
QByteArray cut(const QByteArray& shown, int width);

} // namespace torvane::TerminalText
