// SPDX-License-Identifier: MIT
// What a user may enter into a tag.
#pragma once

#include <QString>

namespace torvane::TagLine {
struct Fields;
}

namespace torvane::TagInput {

/// The length of an information text that the program recommends, in characters.
constexpr int longestInfo = 125;

/// The form of entered text that a tag can hold. A tag is one line in code page 1252 with "§" between its
/// fields: line breaks and other control characters become blanks; "§" and characters that the code page
/// lacks are left out.
QString storable(const QString& entered);

/// By how many bytes the line of a tag is longer than the part of a file that a selection reads, with empty
/// texts as one blank; 0 or less if the game will appear tagged.
qsizetype excessOf(const TagLine::Fields& fields);

/// Whether a tag with these texts and today's date is longer than the part of a file that a selection reads:
/// the game would appear untagged. An empty text counts as one blank. `imageSize`: bytes before the tag.
bool isTooLongToRead(const QString& title, const QString& company, const QString& info, qint64 imageSize);

/// Today in the short date format of the desktop; as dd/MM/yyyy if that format has characters that a tag
/// can't hold.
QString todayAsText();

} // namespace torvane::TagInput
