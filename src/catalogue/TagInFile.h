// SPDX-License-Identifier: MIT
// The tag of a whole file of any size, searched block by block. The rules are TagLine's.
#pragma once

#include "platform/base/SystemCalls.h"

#include <optional>

namespace torvane::TagInFile {

/// Whether a marker stands anywhere in the file. Fails only if the file can't be read.
bool hasMarker(const Handle& file);

/// How many bytes remain of the image, from the file's beginning, when its tag goes (see TagLine::keptImage).
/// Nothing without a marker. Fails as TagLine does if the tag can't be understood, or the file not be read. A
/// Size piece of more than 16 MiB is a "type mismatch", whatever it holds.
std::optional<qint64> keptLength(const Handle& file);

} // namespace torvane::TagInFile
