// SPDX-License-Identifier: MIT
// The texts of the compact window: its running line and the data of a game, as far as name and number alone
// give them.
#pragma once

#include <QString>

namespace torvane::CompactTexts {

/// Characters of the line that are seen at once. A longer line runs, a shorter one stands.
constexpr int visible = 21;

/// A name as the window shows it: in upper case. Letters without a capital of one character, such as sharp s,
/// stay.
QString shown(const QString& name);
/// The running line of a name.
QString line(const QString& name);
/// Whether the line is longer than what is seen of it.
bool runs(const QString& line);
/// The line one character further: the first one has gone to the end.
QString advanced(const QString& line);
/// What is seen of the line: its first characters.
QString seen(const QString& line);

/// The console by the second piece of a game's file name, in this very case; null if there is none for it.
QString console(const QString& name);
/// The place of a game in the list, counted from 1, with its sign and zeros.
QString number(int place);

} // namespace torvane::CompactTexts
