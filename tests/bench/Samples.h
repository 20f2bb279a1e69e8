// SPDX-License-Identifier: MIT
// Shared by the benchmarks that take their samples in turns.
#pragma once

#include "Clock.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace torvane::bench {

/// The wall time of some work, in nanoseconds.
template <typename Work>
std::int64_t timeOf(const Work& work) {
    const std::int64_t start = wallClock();
    work();
    return wallClock() - start;
}

inline std::int64_t median(std::vector<std::int64_t> samples) {
    std::sort(samples.begin(), samples.end());
    return samples[samples.size() / 2];
}

/// Ends the process if the measurement is impossible.
inline void mustHold(bool holds) {
    if (!holds) std::_Exit(3);
}

} // namespace torvane::bench
