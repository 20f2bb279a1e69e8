// SPDX-License-Identifier: MIT
// The turns of few and many entries.
#include "Openings.h"
#include "Samples.h"

#include <cinttypes>
#include <cstdio>

namespace torvane::bench {

void printOpenings(int rounds, const Entries& entries, const std::function<std::int64_t(int)>& open) {
    open(entries.many); // warms up
    std::vector<std::int64_t> few;
    std::vector<std::int64_t> many;
    for (int round = 0; round < rounds; ++round) {
        few.push_back(open(entries.few));
        many.push_back(open(entries.many));
    }
    std::printf("empty %" PRId64 "\nfull %" PRId64 "\n", median(few), median(many));
}

} // namespace torvane::bench
