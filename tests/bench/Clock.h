// SPDX-License-Identifier: MIT
// Clocks of the benchmarks. The monotonic one is the same for all processes, so that one process can take
// the start and another one the end.
#pragma once

#include <cstdint>
#include <ctime>

namespace torvane::bench {

inline std::int64_t nanosecondsOf(clockid_t clock) {
    timespec now{};
    clock_gettime(clock, &now);
    return now.tv_sec * std::int64_t{1'000'000'000} + now.tv_nsec;
}

/// Time that passes, in nanoseconds.
inline std::int64_t wallClock() { return nanosecondsOf(CLOCK_MONOTONIC); }
/// Processor time of this process with all its threads, in nanoseconds.
inline std::int64_t processorClock() { return nanosecondsOf(CLOCK_PROCESS_CPUTIME_ID); }

} // namespace torvane::bench
