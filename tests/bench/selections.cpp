// SPDX-License-Identifier: MIT
// Selects a thousand different games in the shown main window, and measures what one selection costs with its
// repaint. Usage: bench_selections PROGRAM_FOLDER CONFIGURATION_FOLDER
// Prints "most-bytes" and "mean-bytes" read of a game, "opens" per selection and "processor" nanoseconds.
#include "Clock.h"
#include "CountedReads.h"
#include "GameLibrary.h"
#include "ProgramUnderBench.h"
#include "Repaints.h"
#include "platform/base/File.h"

#include <QApplication>
#include <algorithm>
#include <cinttypes>
#include <random>

namespace torvane::bench {

namespace {
constexpr size_t selections = 1000;

// The indices of games with content, shuffled so that successive ones are hardly ever neighbours in the list.
std::vector<int> gamesWithContent(const FileList& games) {
    std::vector<int> places;
    for (int i = 0; i < games.ListCount(); ++i) {
        if (File::lengthOf(games.Path() + QLatin1Char('\\') + games.List(i)) == filledGameSize) {
            places.push_back(i);
        }
    }
    std::shuffle(places.begin(), places.end(), std::mt19937(1));
    return places;
}

struct Cost {
    std::int64_t most = 0;
    std::int64_t sum = 0;
    int opens = 0;
    std::int64_t processor = 0;
};

Cost costOfSelecting(MainFrm& window, const std::vector<int>& places) {
    Repaints repaints(window);
    Cost cost;
    window.selectGame(places.back());
    repaints.awaitOne();
    takeCountedBytes();
    takeCountedOpens();
    const std::int64_t start = processorClock();
    for (size_t i = 0; i < selections; ++i) {
        window.selectGame(places[i]);
        repaints.awaitOne();
        const std::int64_t bytes = takeCountedBytes();
        cost.most = std::max(cost.most, bytes);
        cost.sum += bytes;
    }
    cost.processor = processorClock() - start;
    cost.opens = takeCountedOpens();
    return cost;
}

int runSelections(const char* programFolder, const char* configurationFolder) {
    ProgramUnderBench bench(programFolder, configurationFolder);
    MainFrm& window = bench.startedMainWindow();
    const std::vector<int> places = gamesWithContent(window.Games);
    if (places.size() <= selections) return 3;
    countReadsBelow(Paths::real(window.Games.Path()).toStdString());
    const Cost cost = costOfSelecting(window, places);
    const double count = selections;
    std::printf("most-bytes %" PRId64 "\nmean-bytes %.1f\nopens %.2f\nprocessor %.0f\n", cost.most,
                static_cast<double>(cost.sum) / count, cost.opens / count,
                static_cast<double>(cost.processor) / count);
    std::fflush(nullptr);
    // A count of 0 would mean that the reads bypassed the counters.
    _exit(cost.sum > 0 ? 0 : 3);
}
} // namespace

} // namespace torvane::bench

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    if (argc != 3) return 2;
    return torvane::bench::runSelections(argv[1], argv[2]);
}
