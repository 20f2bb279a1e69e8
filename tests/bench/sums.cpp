// SPDX-License-Identifier: MIT
// The commands that read whole games: checksums against sha1sum on as many processors, and the identification
// of games by a list against their checksums alone. Usage: bench_sums TORVANE_TAGS ROUNDS; prints medians in
// nanoseconds: "sha1sum", "sha1" and "all" of 512 games of 1 MiB, and "hash" and "identify" of 10,000 games
// against a list of 30,000 entries. "most-kB" is the largest memory of a run.
#include "CommandRun.h"

#include <array>
#include <cinttypes>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <sched.h>
#include <sys/resource.h>

namespace torvane::bench {

namespace {
namespace fs = std::filesystem;

constexpr int collectionGames = 512;
constexpr int identifiedGames = 10'000;
constexpr int listEntries = 30'000;
constexpr off_t gameSize = 1 << 20;

void makeCollection(const fs::path& folder) {
    fs::create_directory(folder);
    std::mt19937_64 numbers;
    std::vector<std::uint64_t> words(gameSize / sizeof(std::uint64_t));
    for (int i = 0; i < collectionGames; ++i) {
        for (std::uint64_t& word : words) word = numbers();
        std::ofstream file(folder / ("game " + std::to_string(i) + ".gb"), std::ios::binary);
        mustHold(file.write(reinterpret_cast<const char*>(words.data()), gameSize).good());
    }
}

// Holes but for a number at the end: as much work for sums, and hardly anything on the disk.
void makeLibrary(const fs::path& folder) {
    fs::create_directory(folder);
    for (int i = 0; i < identifiedGames; ++i) {
        const std::string path = folder / ("Game " + std::to_string(i) + " (World).gb");
        const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
        mustHold(file >= 0 &&
                 pwrite(file, &i, sizeof i, gameSize - static_cast<off_t>(sizeof i)) == sizeof i);
        close(file);
    }
}

// Of the sizes of games, with checksums that are none of theirs: nothing is as slow as a game that is
// missing.
void makeList(const fs::path& path) {
    std::mt19937_64 numbers;
    std::ofstream list(path);
    list << "<?xml version=\"1.0\"?>\n<datafile>\n";
    for (int i = 0; i < listEntries; ++i) {
        const std::string name = "The game of the number " + std::to_string(i) + " (World) (Rev A)";
        std::array<char, 160> sums{};
        std::snprintf(sums.data(), sums.size(),
                      "crc=\"%08x\" md5=\"%016" PRIx64 "%016" PRIx64 "\" sha1=\"%016" PRIx64 "%016" PRIx64
                      "%08x\"",
                      static_cast<unsigned>(numbers()), numbers(), numbers(), numbers(), numbers(),
                      static_cast<unsigned>(numbers()));
        list << "\t<game name=\"" << name << "\">\n\t\t<description>" << name
             << "</description>\n\t\t<rom name=\"" << name << ".gb\" size=\"" << gameSize << "\" "
             << sums.data() << "/>\n\t</game>\n";
    }
    list << "</datafile>\n";
    mustHold(list.good());
}

std::string processors() {
    cpu_set_t set;
    mustHold(sched_getaffinity(0, sizeof set, &set) == 0);
    return std::to_string(CPU_COUNT(&set));
}

int measure(const std::string& program, int rounds) {
    std::string scratch = (fs::temp_directory_path() / "torvane-sums-XXXXXX").string();
    mustHold(mkdtemp(scratch.data()) != nullptr);
    const fs::path folder = scratch;
    makeCollection(folder / "collection");
    makeLibrary(folder / "library");
    makeList(folder / "list");
    const std::string collection = folder / "collection";
    const std::string library = folder / "library";
    const std::vector<std::pair<const char*, std::vector<std::string>>> commands{
        {"sha1sum",
         {"sh", "-c", "find \"$0\" -type f -print0 | xargs -0 -n 32 -P " + processors() + " sha1sum",
          collection}},
        {"sha1", {program, "hash", "--tsv", "--only", "sha1", collection}},
        {"all", {program, "hash", "--tsv", collection}},
        {"hash", {program, "hash", "--tsv", "--only", "sha1", library}},
        {"identify", {program, "identify", "--tsv", "--dat", folder / "list", library}}};
    std::vector<std::vector<std::int64_t>> samples(commands.size());
    for (int round = 0; round <= rounds; ++round) {
        for (size_t i = 0; i < commands.size(); ++i) {
            const std::int64_t time = timeOf([&] { runToEnd(commands[i].second); });
            if (round > 0) samples[i].push_back(time); // the first round warms up
        }
    }
    for (size_t i = 0; i < commands.size(); ++i)
        std::printf("%s %" PRId64 "\n", commands[i].first, median(samples[i]));
    rusage children{};
    getrusage(RUSAGE_CHILDREN, &children);
    std::printf("most-kB %ld\n", children.ru_maxrss);
    fs::remove_all(folder);
    return 0;
}
} // namespace

} // namespace torvane::bench

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    return torvane::bench::measure(argv[1], std::atoi(argv[2]));
}
