// SPDX-License-Identifier: MIT
// The ends of ZIP archives in the tail of a file, and what they tell of the directory in front of them.
#pragma once

#include "File.h"

#include <vector>

namespace torvane {

/// What the end of an archive tells of its directory. Any of it may be a lie.
struct ArchiveEnd {
    quint64 entries;
    quint64 directory; ///< where it begins, in bytes from the beginning of the file
    bool hasRecord;    ///< both come from a record of ZIP64
};

/// All ends in the tail that a reader may come upon: with the longest comment allowed, the real one may be
/// the first of them. Where a locator of ZIP64 stands in front, its record is what counts; an end with a
/// locator that leads to no record is left out, as no reader opens such an archive.
std::vector<ArchiveEnd> archiveEnds(const File& file);

} // namespace torvane
