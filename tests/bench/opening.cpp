// SPDX-License-Identifier: MIT
// Opens the window of the tag database by the button of the main window, with a file of 10,000 entries and
// with an empty one in turns, and measures the time from the click to the painted list.
// Usage: bench_opening PROGRAM_FOLDER CONFIGURATION_FOLDER ROUNDS
// Prints the medians of "empty" and "full" in nanoseconds.
#include "Clock.h"
#include "DatabaseFile.h"
#include "ProgramUnderBench.h"

#include <QApplication>
#include <algorithm>
#include <cinttypes>
#include <cstdlib>
#include <filesystem>
#include <vector>

namespace torvane::bench {

namespace {
constexpr int entries = 10000;

class Opening {
public:
    Opening(ProgramUnderBench& bench, const std::string& programFolder)
        : m_bench(bench), m_site(programFolder + "/data/site") {
        std::filesystem::create_directories(m_site);
    }

    /// Nanoseconds until the list of so many entries is painted.
    std::int64_t take(int lines) {
        makeDatabase(m_site + "/online_db.txt", lines);
        const std::int64_t start = wallClock();
        EditDB& window = m_bench.openedDatabase();
        const std::int64_t time = wallClock() - start;
        if (window.ListView1.rowCount() != lines) _exit(3);
        window.Unload();
        QApplication::processEvents();
        return time;
    }

private:
    ProgramUnderBench& m_bench;
    std::string m_site;
};

std::int64_t median(std::vector<std::int64_t> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

int runOpening(const char* programFolder, const char* configurationFolder, int rounds) {
    ProgramUnderBench bench(programFolder, configurationFolder);
    bench.startedMainWindow();
    Opening opening(bench, programFolder);
    opening.take(entries);
    std::vector<std::int64_t> empty;
    std::vector<std::int64_t> full;
    for (int round = 0; round < rounds; ++round) {
        empty.push_back(opening.take(0));
        full.push_back(opening.take(entries));
    }
    std::printf("empty %" PRId64 "\nfull %" PRId64 "\n", median(empty), median(full));
    std::fflush(nullptr);
    _exit(0);
}
} // namespace

} // namespace torvane::bench

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    if (argc != 4) return 2;
    return torvane::bench::runOpening(argv[1], argv[2], std::atoi(argv[3]));
}
