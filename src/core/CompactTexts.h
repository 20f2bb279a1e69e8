// SPDX-License-Identifier: MIT
// The texts of the compact window: its scrolling line, and the data that come from a game's name and number
// alone.
#pragma once

#include "Pieces.h"

namespace torvane::CompactTexts {

/// Characters of the line that are visible at once. A longer line scrolls, others do not.
constexpr int visible = 21;

/// A name as the window shows it: in upper case. Letters without a capital of one character, such as sharp s,
/// stay.
QString shown(const QString& name);
/// The scrolling line of a name.
QString line(const QString& name);
/// Whether the line is longer than what is visible of it.
bool scrolls(const QString& line);
/// The line one step later: its first character is at its end.
QString advanced(const QString& line);
/// What is visible of the line: its first characters.
QString seen(const QString& line);

/// The console by the second piece of a game's file name, in this very case; null if there is none for it.
QString console(const QString& name, const NameCut& cut);
/// The place of a game in the list, counted from 1, with its sign and zeros.
QString number(int place);

} // namespace torvane::CompactTexts
