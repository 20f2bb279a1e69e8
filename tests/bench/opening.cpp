// SPDX-License-Identifier: MIT
// Opens the window of the tag database by the button of the main window, with a file of 10,000 entries and
// with an empty one in turns, and measures the time from the click to the painted list.
// Usage: bench_opening PROGRAM_FOLDER CONFIGURATION_FOLDER ROUNDS
// Prints the medians of "empty" and "full" in nanoseconds.
#include "DatabaseFile.h"
#include "Openings.h"
#include "ProgramUnderBench.h"
#include "Samples.h"

#include <filesystem>

namespace torvane::bench {

namespace {
int runOpening(const std::string& programFolder, const char* configurationFolder, int rounds) {
    ProgramUnderBench bench(programFolder.c_str(), configurationFolder);
    bench.startedMainWindow();
    const std::string site = programFolder + "/data/site";
    std::filesystem::create_directories(site);
    printOpenings(rounds, {.few = 0, .many = 10000}, [&](int entries) {
        makeDatabase(site + "/online_db.txt", entries);
        return bench.timeToOpen<EditDB>(&MainFrm::chameleonButton3, entries);
    });
    _exit(0);
}
} // namespace

} // namespace torvane::bench

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    if (argc != 4) return 2;
    return torvane::bench::runOpening(argv[1], argv[2], std::atoi(argv[3]));
}
