// SPDX-License-Identifier: MIT
// Searches the list of the shown main window for titles at its end and for one that is not there. Usage:
// bench_search PROGRAM_FOLDER CONFIGURATION_FOLDER ROUNDS
// Prints median nanoseconds of processor time: "found", from the press of the button to the painted list, in
// turns with "missing", which paints nothing.
#include "Repaints.h"
#include "RoundsMain.h"
#include "Samples.h"

#include <QWindow>
#include <cinttypes>

namespace torvane::bench {

namespace {
template <typename Work>
std::int64_t processorTimeOf(const Work& work) {
    const std::int64_t start = processorClock();
    work();
    return processorClock() - start;
}

class Search {
public:
    explicit Search(ProgramUnderBench& bench)
        : m_main(bench.startedMainWindow()), m_dialog(*bench.program.load<AdvSearch>()) {
        while (m_main.windowHandle() == nullptr || !m_main.windowHandle()->isExposed()) {
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        QApplication::processEvents();
    }

    void take(int round) {
        const int games = m_main.ListView1.rowCount();
        // Another row each time, so that there is something to paint.
        const int row = games - 1 - round;
        m_dialog.CRYTextBox1.setText(m_main.ListView1.model().index(row, 0).data().toString());
        const std::int64_t found = processorTimeOf([&] {
            emit m_dialog.ChameleonButton17.Click();
            m_repaints.awaitOne();
        });
        mustHold(m_main.ListView1.currentRow() > games - games / 100 - round - 10);
        m_dialog.CRYTextBox1.setText(QStringLiteral("zzz"));
        const std::int64_t missing = processorTimeOf([&] { emit m_dialog.ChameleonButton17.Click(); });
        if (round == 0) return; // warms up
        m_found.push_back(found);
        m_missing.push_back(missing);
    }
    void print() const {
        std::printf("found %" PRId64 "\nmissing %" PRId64 "\n", median(m_found), median(m_missing));
    }

private:
    MainFrm& m_main;
    AdvSearch& m_dialog;
    Repaints m_repaints{m_main};
    std::vector<std::int64_t> m_found, m_missing;
};

void runSearch(ProgramUnderBench& bench, const std::string&, int rounds) {
    Search search(bench);
    for (int round = 0; round <= rounds; ++round) search.take(round);
    search.print();
}
} // namespace

} // namespace torvane::bench

int main(int argc, char** argv) {
    return torvane::bench::measureInRounds(argc, argv, torvane::bench::runSearch);
}
