// SPDX-License-Identifier: MIT
// What the compact window costs.
// Usage: bench_compact PROGRAM_FOLDER CONFIGURATION_FOLDER start 0|1
//        bench_compact PROGRAM_FOLDER CONFIGURATION_FOLDER use ROUNDS
// The first starts with the main window (0) or the compact one (1) and prints "painted", the monotonic time
// of its first frame. The second prints processor time in nanoseconds, with the repaint: "selection" in the
// main window, "step" in the compact one with its panel open, "tick" of its timer with a running line, and
// what a second costs with the window "shown" and "hidden".
#include "Clock.h"
#include "ProgramUnderBench.h"
#include "Repaints.h"
#include "Samples.h"

#include <QEventLoop>
#include <QPixmap>
#include <QScreen>
#include <QTimer>
#include <cinttypes>
#include <cstring>

namespace torvane::bench {

namespace {
constexpr int steps = 200;
constexpr int ticks = 200;
constexpr int idleSeconds = 5;

// A pixel that the display sends back comes after everything that was sent to it before.
void awaitDisplay(const QWidget& window) {
    mustHold(!window.screen()->grabWindow(window.winId(), 1, 1, 1, 1).isNull());
}

template <typename Work>
std::int64_t costOf(const Work& work) {
    const std::int64_t start = processorClock();
    work();
    return processorClock() - start;
}

Form* startedWindow(ProgramUnderBench& bench, const char* which) {
    bench.settings.SaveSetting(QStringLiteral("Torvane"), QStringLiteral("Config"), QStringLiteral("Start"),
                               QString::fromLatin1(which));
    bench.program.start();
    if (which[0] == '1') return bench.program.loaded<Torvette>();
    return bench.program.loaded<MainFrm>();
}

int runStart(ProgramUnderBench& bench, const char* which) {
    Form* window = startedWindow(bench, which);
    mustHold(window != nullptr);
    Repaints(*window).awaitOne();
    awaitDisplay(*window);
    std::printf("painted %" PRId64 "\n", wallClock());
    return 0;
}

class Use {
public:
    explicit Use(ProgramUnderBench& bench) : m_main(bench.startedMainWindow()), m_program(bench.program) {}

    // The same games one after the other, as the compact window steps through them.
    std::int64_t selection() {
        Repaints repaints(m_main);
        m_main.selectGame(0);
        repaints.awaitOne();
        return costOf([&] {
                   for (int i = 1; i <= steps; ++i) {
                       m_main.selectGame(i);
                       repaints.awaitOne();
                   }
               }) /
               steps;
    }
    std::int64_t step() {
        m_main.selectGame(0);
        Torvette& window = open();
        Repaints repaints(window);
        const std::int64_t cost = costOf([&] {
            for (int i = 0; i < steps; ++i) {
                emit window.chameleonButton1.Click();
                repaints.awaitOne();
            }
        });
        close();
        return cost / steps;
    }
    std::int64_t tick() {
        Torvette& window = open();
        window.Timer1.setEnabled(false);
        setRunningLine(window);
        Repaints repaints(window);
        const std::int64_t cost = costOf([&] {
            for (int i = 0; i < ticks; ++i) {
                emit window.Timer1.Tick();
                repaints.awaitOne();
            }
        });
        close();
        return cost / ticks;
    }
    std::int64_t second(bool isShown) {
        Torvette& window = open();
        setRunningLine(window);
        if (!isShown) window.Hide();
        rest(1);
        const std::int64_t cost = costOf([] { rest(idleSeconds); });
        mustHold(window.Timer1.Enabled() == isShown);
        window.Unload();
        return cost / idleSeconds;
    }

private:
    Torvette& open() {
        m_program.desk.go(Window::MainFrm, Window::Torvette);
        Torvette* window = m_program.loaded<Torvette>();
        mustHold(window != nullptr);
        Repaints repaints(*window);
        emit window->ChameleonButton4.Click();
        repaints.awaitOne();
        return *window;
    }
    void close() { m_program.loaded<Torvette>()->Unload(); }
    static void setRunningLine(Torvette& window) {
        window.Text1.setText(QStringLiteral("A LINE THAT IS LONGER THAN ITS LABEL ··· "));
    }
    static void rest(int seconds) {
        QEventLoop loop;
        QTimer::singleShot(seconds * 1000, &loop, &QEventLoop::quit);
        loop.exec();
    }

    MainFrm& m_main;
    Program& m_program;
};

int runUse(ProgramUnderBench& bench, int rounds) {
    Use use(bench);
    std::vector<std::int64_t> selections;
    std::vector<std::int64_t> stepTimes;
    std::vector<std::int64_t> tickTimes;
    for (int round = 0; round <= rounds; ++round) {
        selections.push_back(use.selection());
        stepTimes.push_back(use.step());
        tickTimes.push_back(use.tick());
    }
    std::printf("selection %" PRId64 "\nstep %" PRId64 "\ntick %" PRId64 "\n", median(selections),
                median(stepTimes), median(tickTimes));
    std::printf("shown %" PRId64 "\nhidden %" PRId64 "\n", use.second(true), use.second(false));
    return 0;
}
} // namespace

} // namespace torvane::bench

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Torvane"));
    QApplication::setQuitOnLastWindowClosed(false);
    if (argc != 5) return 2;
    torvane::bench::ProgramUnderBench bench(argv[1], argv[2]);
    const int result = std::strcmp(argv[3], "start") == 0 ? torvane::bench::runStart(bench, argv[4])
                                                          : torvane::bench::runUse(bench, std::atoi(argv[4]));
    std::fflush(nullptr);
    _exit(result);
}
