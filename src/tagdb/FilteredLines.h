// SPDX-License-Identifier: MIT
// The filter of the tag database: a pure function over the bytes of the file.
//
// A line ends with CR LF, LF or CR; the last one may end with the file. Every other byte is data. A line is
// cut at each "§" into system, title, company, date, info, kind and author; whatever follows is ignored. A
// line with fewer fields takes over the others from the line before; before the first line all are empty.
#pragma once

#include "OnlineDbFilter.h"
#include "OnlineDbRows.h"

#include <QDate>
#include <memory>

namespace torvane {

/// The entries that pass the filter, in file order. A line passes if
/// - its system is exactly one of the words of the three consoles. "no" replaces the word of a console that
///   is not wanted: an entry of the system "no" passes unless all three are wanted;
/// - title, company and author equal the filter's texts, if these aren't empty, in upper case (see
///   CodePage1252::upper); a text that the code page can't hold or that contains "§" or a line break equals
///   nothing;
/// - its date means the day that was so many days ago (see EntryAge);
/// - its kind in upper case is the one that is wanted.
/// `file` has at most 4 GiB. `shortDateFormat` is the user's form of dates, as QDate takes it.
std::shared_ptr<OnlineDbRows> filterLines(QByteArray file, const OnlineDbFilter& filter, const QDate& today,
                                          const QString& shortDateFormat);

} // namespace torvane
