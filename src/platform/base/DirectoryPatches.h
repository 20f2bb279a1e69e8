// SPDX-License-Identifier: MIT
// libzip refuses a whole archive if one entry is marked as UTF-8 and its name or comment is invalid UTF-8 or
// holds control characters. These patches to the directory let it open the archive without that entry.
#pragma once

#include "File.h"
#include "Pulse.h"

#include <map>

namespace torvane {

/// New values of single bytes by their offset in the file: they clear the UTF-8 mark, and put a "/" at the
/// start of an invalid name, so that EntryName rejects it.
using DirectoryPatches = std::map<qint64, char>;

/// Walks through the directories that the end records in the file's tail point to, at most `mostEntries`
/// entries in all. Fails if the file can't be read; stops at what is damaged or endless.
DirectoryPatches directoryPatches(const File& file, qint64 mostEntries, Pulse& pulse);

} // namespace torvane
