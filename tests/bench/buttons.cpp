// SPDX-License-Identifier: MIT
// Paints each skinned button of the shown main window many times and measures one paint.
// Usage: bench_buttons PROGRAM_FOLDER CONFIGURATION_FOLDER
// Prints the processor nanoseconds of one paint: "mean" of all buttons and "costliest" of one button.
#include "Clock.h"
#include "ProgramUnderBench.h"

#include <QApplication>
#include <QWindow>
#include <algorithm>

namespace torvane::bench {

namespace {
constexpr int paints = 500;

// One complete paint: colours, layout, frame, caption with its shades, picture, and the copy to the window.
double costOfPainting(chameleonButton& button) {
    button.Refresh();
    const std::int64_t start = processorClock();
    for (int i = 0; i < paints; ++i) button.Refresh();
    return static_cast<double>(processorClock() - start) / paints;
}

int runButtons(const char* programFolder, const char* configurationFolder) {
    ProgramUnderBench bench(programFolder, configurationFolder);
    MainFrm& window = bench.startedMainWindow();
    // Nothing is painted before the window is exposed.
    while (window.windowHandle() == nullptr || !window.windowHandle()->isExposed()) {
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    double sum = 0;
    double costliest = 0;
    int count = 0;
    for (auto* button : window.findChildren<chameleonButton*>()) {
        if (!button->isVisible()) continue;
        const double cost = costOfPainting(*button);
        sum += cost;
        costliest = std::max(costliest, cost);
        ++count;
    }
    if (count < 10) return 3;
    std::printf("mean %.0f\ncostliest %.0f\n", sum / count, costliest);
    std::fflush(nullptr);
    _exit(0);
}
} // namespace

} // namespace torvane::bench

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    if (argc != 3) return 2;
    return torvane::bench::runButtons(argv[1], argv[2]);
}
