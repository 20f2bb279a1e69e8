// SPDX-License-Identifier: MIT
// Counts the bytes that this process reads from files below one folder. Replaces the system calls in the
// executable that links this, whatever code of the process calls them.
#pragma once

#include <cstdint>
#include <string>

namespace torvane::bench {

/// From now on, counts files whose real path begins with `folder`.
void countReadsBelow(const std::string& folder);
/// The bytes read (or mapped) since the last call.
std::int64_t takeCountedBytes();
/// The files opened since the last call.
int takeCountedOpens();

} // namespace torvane::bench
