// SPDX-License-Identifier: MIT
// Opens the web list by the button of the main window, with 10,000 pages and with 20 in turns, half of them
// in each file, and measures the time from the click to the painted list. Usage: bench_weblist PROGRAM_FOLDER
// CONFIGURATION_FOLDER ROUNDS Prints the medians of "empty" (20) and "full" (10,000) in nanoseconds.
#include "Openings.h"
#include "RoundsMain.h"
#include "Samples.h"

#include <filesystem>

namespace torvane::bench {

namespace {
void makePages(const std::string& path, const char* kind, int count) {
    std::FILE* file = std::fopen(path.c_str(), "wb");
    mustHold(file != nullptr);
    for (int i = 0; i < count; ++i) {
        const int written =
            std::fprintf(file, "Page %d about games;https://www.example.org/pages/%d;%s\r\n", i, i, kind);
        mustHold(written > 0);
    }
    mustHold(std::fclose(file) == 0);
}

void runWeblist(ProgramUnderBench& bench, const std::string& programFolder, int rounds) {
    bench.startedMainWindow();
    const std::string data = programFolder + "/data";
    std::filesystem::create_directories(data);
    printOpenings(rounds, {.few = 20, .many = 10000}, [&](int entries) {
        makePages(data + "/url.dat", "system", entries / 2);
        makePages(data + "/url_perso.dat", "perso", entries / 2);
        return bench.timeToOpen<URL>(&MainFrm::chameleonButton7, entries);
    });
}
} // namespace

} // namespace torvane::bench

int main(int argc, char** argv) {
    return torvane::bench::measureInRounds(argc, argv, torvane::bench::runWeblist);
}
