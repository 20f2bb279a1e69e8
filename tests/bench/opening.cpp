// SPDX-License-Identifier: MIT
// Opens the window of the tag database by the button of the main window, with a file of 10,000 entries and
// with an empty one in turns, and measures the time from the click to the painted list.
// Usage: bench_opening PROGRAM_FOLDER CONFIGURATION_FOLDER ROUNDS
// Prints the medians of "empty" and "full" in nanoseconds.
#include "DatabaseFile.h"
#include "Openings.h"
#include "RoundsMain.h"
#include "Samples.h"

#include <filesystem>

namespace torvane::bench {

namespace {
void runOpening(ProgramUnderBench& bench, const std::string& programFolder, int rounds) {
    bench.startedMainWindow();
    const std::string site = programFolder + "/data/site";
    std::filesystem::create_directories(site);
    printOpenings(rounds, {.few = 0, .many = 10000}, [&](int entries) {
        makeDatabase(site + "/online_db.txt", entries);
        return bench.timeToOpen<EditDB>(&MainFrm::chameleonButton3, entries);
    });
}
} // namespace

} // namespace torvane::bench

int main(int argc, char** argv) {
    return torvane::bench::measureInRounds(argc, argv, torvane::bench::runOpening);
}
