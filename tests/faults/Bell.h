// SPDX-License-Identifier: MIT
// Lets a process sleep until another one has something for it. Lives in shared memory.
#pragma once

#include <chrono>
#include <ctime>
#include <semaphore.h>

namespace torvane::faults {

class Bell {
public:
    Bell() { sem_init(&m_semaphore, 1, 0); }
    Bell(const Bell&) = delete;
    Bell& operator=(const Bell&) = delete;

    /// Wakes one wait, be it now or later.
    void ring() { sem_post(&m_semaphore); }
    /// May return without a ring: look whether there is something to do, and wait again.
    void wait() { sem_wait(&m_semaphore); }
    /// The same, at the longest until then.
    void waitUntil(std::chrono::steady_clock::time_point end) {
        const auto since = std::chrono::duration_cast<std::chrono::nanoseconds>(end.time_since_epoch());
        const timespec then{static_cast<time_t>(since.count() / second),
                            static_cast<long>(since.count() % second)};
        sem_clockwait(&m_semaphore, CLOCK_MONOTONIC, &then);
    }

private:
    static constexpr long long second = 1'000'000'000; // in nanoseconds

    sem_t m_semaphore{};
};

} // namespace torvane::faults
