// SPDX-License-Identifier: MIT
// What a user may enter into a tag.
#pragma once

#include <QString>

namespace torvane::TagInput {

/// The length of an information text that the program recommends, in characters.
constexpr int longestInfo = 125;

/// What a tag can hold of a piece that the user has entered. A tag is one line of code page 1252 with "§"
/// between its fields: line breaks and other control characters become blanks, "§" and what the code page
/// lacks are left out.
QString storable(const QString& entered);

/// Whether a tag of today with these texts is longer than the piece of a file that a selection reads, so that
/// the game would show as one without a tag. `imageSize`: bytes before the tag.
bool isTooLongToRead(const QString& title, const QString& company, const QString& info, qint64 imageSize);

/// Today as the desktop writes dates in short form; as day, month and year in digits if the desktop's form
/// has letters that a tag can't hold.
QString todayAsText();

} // namespace torvane::TagInput
