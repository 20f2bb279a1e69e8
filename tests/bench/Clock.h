// SPDX-License-Identifier: MIT
// Clocks of the benchmarks. The monotonic one is shared by all processes, so one process can take the start
// time and another the end time.
#pragma once

#include <cstdint>
#include <ctime>

namespace torvane::bench {

inline std::int64_t nanosecondsOf(clockid_t clock) {
    timespec now{};
    clock_gettime(clock, &now);
    return now.tv_sec * std::int64_t{1'000'000'000} + now.tv_nsec;
}

/// Elapsed time, in nanoseconds.
inline std::int64_t wallClock() { return nanosecondsOf(CLOCK_MONOTONIC); }
/// Processor time of this process with all its threads, in nanoseconds.
inline std::int64_t processorClock() { return nanosecondsOf(CLOCK_PROCESS_CPUTIME_ID); }

} // namespace torvane::bench
