// SPDX-License-Identifier: MIT
// Counts the bytes that this process reads of files below one folder. The system's calls are replaced in
// the executable that links this: all of them are counted, whoever in the process makes them.
#pragma once

#include <cstdint>
#include <string>

namespace torvane::bench {

/// From now on files whose real path begins with `folder` are counted.
void countReadsBelow(const std::string& folder);
/// The bytes read (or mapped) since the last call.
std::int64_t takeCountedBytes();
/// The files opened since the last call.
int takeCountedOpens();

} // namespace torvane::bench
