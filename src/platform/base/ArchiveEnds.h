// SPDX-License-Identifier: MIT
// The end records of ZIP archives in the tail of a file, and what they claim of the directory before them.
#pragma once

#include "File.h"

#include <vector>

namespace torvane {

/// What an end record claims of its directory. None of it can be trusted.
struct ArchiveEnd {
    quint64 entries;
    quint64 directory; ///< its offset in bytes from the beginning of the file
    bool hasRecord;    ///< both come from a ZIP64 record
};

/// All end records in the tail that a reader may find: with the longest comment allowed, the real one may be
/// the first of them. If a ZIP64 locator precedes one, the record that it points to counts instead. An end
/// whose locator points to no record is left out, because no reader opens such an archive.
std::vector<ArchiveEnd> archiveEnds(const File& file);

} // namespace torvane
