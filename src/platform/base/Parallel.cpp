// SPDX-License-Identifier: MIT
// Threads that take the next index until there is none.
#include "Parallel.h"

#include <algorithm>
#include <atomic>
#include <system_error>
#include <thread>
#include <vector>

namespace torvane {

void inParallel(std::size_t count, const std::function<void(std::size_t)>& work) {
    std::atomic<std::size_t> next = 0;
    const auto takeAll = [&] {
        for (std::size_t index = next++; index < count; index = next++) work(index);
    };
    std::vector<std::jthread> others;
    const std::size_t wanted = std::min<std::size_t>(count, std::thread::hardware_concurrency());
    try {
        while (others.size() + 1 < wanted) others.emplace_back(takeAll);
    } catch (const std::system_error&) {
        // The threads that there are do all of it.
    }
    takeAll();
}

} // namespace torvane
