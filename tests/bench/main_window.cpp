// SPDX-License-Identifier: MIT
// The program's own start up to the painted main window, with banner and tray as they are.
// Usage: bench_main_window PROGRAM_FOLDER CONFIGURATION_FOLDER MILLISECONDS, the time that the window stays
// open.
#include "FirstFrame.h"
#include "ProgramUnderBench.h"

#include <QApplication>
#include <cstdlib>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Torvane"));
    QApplication::setApplicationDisplayName(QStringLiteral("Torvane"));
    QApplication::setQuitOnLastWindowClosed(false);
    if (argc != 4) return 2;
    torvane::bench::ProgramUnderBench bench(argv[1], argv[2]);
    torvane::MainFrm& window = bench.startedMainWindow();
    const int hold = std::atoi(argv[3]);
    torvane::bench::FirstFrame frame(window, hold, [&] { return window.ShockwaveFlash1.isPlaying(); });
    return QApplication::exec();
}
