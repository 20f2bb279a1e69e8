// SPDX-License-Identifier: MIT
// The tag of a whole file of any size, searched block by block. The rules are TagLine's.
#pragma once

#include "platform/base/SystemCalls.h"

#include <optional>

namespace torvane::TagInFile {

/// Whether a marker is anywhere in the file. Fails only if the file can't be read.
bool hasMarker(const Handle& file);

/// How many bytes at the start of the file remain when its tag is removed (see TagLine::keptImage). Nothing
/// if there is no marker. Fails as TagLine does if the tag is invalid, and if the file can't be read. A Size
/// piece of more than 16 MiB is a "type mismatch", whatever it holds.
std::optional<qint64> keptLength(const Handle& file);

/// Remembers where the first marker of a file is, as long as nothing is written to the file: the next
/// `keptLength` need not search the image, which may be many megabytes.
void rememberMarker(const Handle& file, qint64 marker);

} // namespace torvane::TagInFile
