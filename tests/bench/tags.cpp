// SPDX-License-Identifier: MIT
// The command that lists games against the simplest reading of the same bytes, in turns. It makes tagged
// games of 40 KiB each. Usage: bench_tags TORVANE_TAGS COUNT ROUNDS; prints "list" (a whole run, from its
// start to its end), "plain" (open, pread and close of each game) and "version" (a run that does nothing) as
// medians in nanoseconds, and "most-kB", the largest memory of a run.
#include "CommandRun.h"

#include <array>
#include <cinttypes>
#include <cstdio>
#include <dirent.h>
#include <filesystem>
#include <sys/resource.h>
#include <sys/stat.h>

namespace torvane::bench {

namespace {
namespace fs = std::filesystem;

constexpr off_t imageSize = 40960;
constexpr off_t windowSize = 1024;

// The image is a hole: only its end is read.
void makeGame(const std::string& path, int number) {
    const std::string text = std::to_string(number);
    const std::string tag = "ID3TAG\xA7Studio " + std::to_string(number % 90) +
                            "\xA7The game of the number " + text +
                            "\xA7"
                            "01/02/1999\xA7Plays well on a rainy day.\xA7" +
                            std::to_string(imageSize) + "\xA7\r\n";
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
    mustHold(file >= 0);
    mustHold(pwrite(file, tag.data(), tag.size(), imageSize) == static_cast<ssize_t>(tag.size()));
    close(file);
}

void readPlainly(const std::string& folder) {
    DIR* const dir = opendir(folder.c_str());
    mustHold(dir != nullptr);
    std::array<char, windowSize> window{};
    while (const dirent* entry = readdir(dir)) {
        if (entry->d_name[0] == '.') continue;
        const int file = open((folder + '/' + entry->d_name).c_str(), O_RDONLY | O_CLOEXEC);
        struct stat info {};
        mustHold(file >= 0 && fstat(file, &info) == 0);
        mustHold(pread(file, window.data(), window.size(), info.st_size - windowSize) == windowSize);
        close(file);
    }
    closedir(dir);
}

int measure(const std::string& program, int count, int rounds) {
    std::string folder = (fs::temp_directory_path() / "torvane-tags-XXXXXX").string();
    mustHold(mkdtemp(folder.data()) != nullptr);
    for (int i = 0; i < count; ++i) makeGame(folder + "/Game " + std::to_string(i) + " (World).gb", i);
    std::vector<std::int64_t> list;
    std::vector<std::int64_t> plain;
    std::vector<std::int64_t> version;
    for (int round = 0; round <= rounds; ++round) {
        const std::int64_t one = timeOf([&] { readPlainly(folder); });
        const std::int64_t other = timeOf([&] { runToEnd({program, "list", "--json", folder}); });
        const std::int64_t nothing = timeOf([&] { runToEnd({program, "--version"}); });
        if (round == 0) continue; // the warm-up
        plain.push_back(one);
        list.push_back(other);
        version.push_back(nothing);
    }
    rusage children{};
    getrusage(RUSAGE_CHILDREN, &children);
    std::printf("list %" PRId64 "\nplain %" PRId64 "\nversion %" PRId64 "\nmost-kB %ld\n", median(list),
                median(plain), median(version), children.ru_maxrss);
    fs::remove_all(folder);
    return 0;
}
} // namespace

} // namespace torvane::bench

int main(int argc, char** argv) {
    if (argc != 4) return 2;
    return torvane::bench::measure(argv[1], std::atoi(argv[2]), std::atoi(argv[3]));
}
