// SPDX-License-Identifier: MIT
// libzip refuses a whole archive if one entry is marked as UTF-8 and its name or comment is none, or holds
// control characters. These are the bytes of the directory that must read differently for it to open the
// archive and leave out that entry alone.
#pragma once

#include "File.h"
#include "Pulse.h"

#include <map>

namespace torvane {

/// New values of single bytes by their place in the file: the mark goes, and a name that is not what it
/// claims gets a "/" in front, with which no entry is unpacked (see EntryName).
using DirectoryPatches = std::map<qint64, char>;

/// Walks through the directories that the ends of archives in the file's tail lead to, at most `mostEntries`
/// entries in all. Fails if the file can't be read; what is damaged or endless is not looked at further.
DirectoryPatches directoryPatches(const File& file, qint64 mostEntries, Pulse& pulse);

} // namespace torvane
