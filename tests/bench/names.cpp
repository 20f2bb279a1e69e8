// SPDX-License-Identifier: MIT
// The names of a folder: the program's table against the simplest way to a sorted list, in turns.
// Usage: bench_names FOLDER ROUNDS; prints "table", "plain" (median nanoseconds) and "count".
#include "Samples.h"
#include "platform/base/FolderNames.h"
#include "platform/base/Paths.h"

#include <cinttypes>
#include <cstdio>
#include <dirent.h>
#include <string>

namespace {
using torvane::FolderNames;
using torvane::bench::median;
using torvane::bench::wallClock;

size_t plainNames(const char* folder) {
    std::vector<std::string> names;
    DIR* dir = opendir(folder);
    if (dir == nullptr) return 0;
    while (const dirent* entry = readdir(dir)) names.emplace_back(entry->d_name);
    closedir(dir);
    std::sort(names.begin(), names.end());
    return names.size();
}
} // namespace

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    const QString folder = torvane::Paths::spelled(argv[1]);
    const QString pattern = QStringLiteral("*.gb;*.gba;*.gbc;*.cgb;*.agb;*.zip");
    std::vector<std::int64_t> plain;
    std::vector<std::int64_t> table;
    int count = 0;
    for (int round = 0; round <= std::atoi(argv[2]); ++round) {
        const std::int64_t start = wallClock();
        const size_t all = plainNames(argv[1]);
        const std::int64_t middle = wallClock();
        count = FolderNames::read(folder, pattern)->count();
        const std::int64_t end = wallClock();
        if (all < static_cast<size_t>(count) || count == 0) return 3;
        if (round == 0) continue; // the warm-up
        plain.push_back(middle - start);
        table.push_back(end - middle);
    }
    std::printf("plain %" PRId64 "\ntable %" PRId64 "\ncount %d\n", median(plain), median(table), count);
    return 0;
}
