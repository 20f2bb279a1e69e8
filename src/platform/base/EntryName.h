// SPDX-License-Identifier: MIT
// The names under which archive entries are unpacked. Whoever made the archive chose its names, so each may
// try to reach another folder or to look like another file. An entry is left out if
//   - its name contains "/" or "\": it would go to a subfolder, the root or another folder. A leading "./" is
//     harmless and is cut off;
//   - the name begins with a drive letter and a colon;
//   - the name is empty, or longer than the 255 bytes that file systems allow;
//   - the name begins with a dot: ".", "..", and hidden files, which no list shows and nobody would remove,
//     this program's own among them;
//   - the name contains a control character, or one that changes the writing direction: another name would be
//     read;
//   - the name is that of a device on other systems, with any extension and in any case: CON, PRN, AUX, NUL,
//     COM1 to COM9, LPT1 to LPT9.
// Trailing dots and blanks, which other systems drop, are cut off. Bytes that are not UTF-8 stay.
#pragma once

#include <QByteArray>

namespace torvane::EntryName {

/// The file name for an entry's name; empty if the entry is to be left out. Idempotent.
QByteArray sanitized(QByteArrayView entry);

} // namespace torvane::EntryName
