// SPDX-License-Identifier: MIT
// Under which name an entry of an archive is unpacked. Whoever made the archive chose its names, so that each
// of them may be an attempt to reach another place, or to look like another file. Entries are left out if
//   - they lie in a subfolder, at the root or in another folder: there is a "/" or a "\" in the name. "./" at
//     its beginning says nothing and is cut off;
//   - the name begins with a drive letter and its colon;
//   - it is empty, or has more than 255 bytes, which no file system takes;
//   - it begins with a dot: ".", "..", hidden files, which no list shows and nobody would remove, and the
//     hidden names of this program's own;
//   - it holds a control character, or one that turns the direction of writing: another name would be read;
//   - it is that of a device elsewhere, whatever the ending and the case: CON, PRN, AUX, NUL, COM1 to COM9,
//     LPT1 to LPT9.
// Dots and blanks at the end, which other systems don't keep, are cut off. Bytes that are no UTF-8 stay.
#pragma once

#include <QByteArray>

namespace torvane::EntryName {

/// The file name for the name of an entry; empty if the entry is to be left out. Applied to its own result it
/// changes nothing.
QByteArray sanitized(QByteArrayView entry);

} // namespace torvane::EntryName
