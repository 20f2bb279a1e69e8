// SPDX-License-Identifier: MIT
// Compares the opening of a window over a list of many entries with that over a list of few.
#pragma once

#include <cstdint>
#include <functional>

namespace torvane::bench {

struct Entries {
    int few;
    int many;
};

/// Opens the window in turns with few and with many entries, so many times each, and prints the medians of
/// both as "empty" and "full". `open` gives the nanoseconds until the list of so many entries is painted, and
/// closes the window again.
void printOpenings(int rounds, const Entries& entries, const std::function<std::int64_t(int)>& open);

} // namespace torvane::bench
