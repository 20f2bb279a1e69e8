// SPDX-License-Identifier: MIT
// The database window over a file of a million lines: from the click on its filter button to the painted
// list, and scrolled by a page, in turns with a count of the lines by wc.
// Usage: bench_database PROGRAM_FOLDER CONFIGURATION_FOLDER ROUNDS
// Prints median wall nanoseconds: "rare" (one line in a thousand passes), "all", "page" and "count-lines";
// and in kB, "file-kB" and "memory-kB", by how much the peak of the resident memory has grown.
#include "DatabaseFile.h"
#include "RoundsMain.h"
#include "Samples.h"

#include <QProcess>
#include <QScrollBar>
#include <QTableView>
#include <cinttypes>
#include <filesystem>
#include <map>
#include <sys/resource.h>

namespace torvane::bench {

namespace {
constexpr int lines = 1'000'000;

std::int64_t peakMemory() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

class Database {
public:
    /// The window, which shows some other database, and the folder of the program.
    Database(EditDB& window, const std::string& folder)
        : m_window(window), m_path(folder + "/online_db.dat"), m_memoryBefore(peakMemory()) {
        makeDatabase(m_path, lines);
    }

    void take(int round) {
        sample("count-lines", round, [&] { countLines(); });
        filter("rare", round, QString::fromLatin1(rareTitle).toLower(), lines / linesPerRareTitle);
        filter("all", round, QString(), lines);
        scroll(round);
    }
    void print() const {
        for (const auto& [name, samples] : m_samples) std::printf("%s %" PRId64 "\n", name, median(samples));
        const auto bytes = static_cast<std::int64_t>(std::filesystem::file_size(m_path));
        std::printf("file-kB %" PRId64 "\nmemory-kB %" PRId64 "\n", bytes / 1024,
                    peakMemory() - m_memoryBefore);
    }

private:
    void countLines() const {
        const QStringList words = {QStringLiteral("-l"), QString::fromStdString(m_path)};
        QProcess wc;
        wc.start(QStringLiteral("wc"), words);
        mustHold(wc.waitForFinished() && wc.readAll().startsWith(QByteArray::number(lines)));
    }
    void filter(const char* name, int round, const QString& game, int expected) {
        m_window.File_Game.setText(game);
        QApplication::processEvents();
        sample(name, round, [&] {
            click(m_window.ChameleonButton2);
            m_repaints.awaitOne();
        });
        mustHold(m_window.ListView1.rowCount() == expected);
        QApplication::processEvents();
    }
    void scroll(int round) {
        QScrollBar& bar = *m_window.ListView1.findChild<QTableView*>()->verticalScrollBar();
        bar.setValue(lines / (round + 2));
        QApplication::processEvents();
        sample("page", round, [&] {
            bar.triggerAction(QAbstractSlider::SliderPageStepAdd);
            m_repaints.awaitOne();
        });
    }
    // The first round warms up.
    template <typename Work>
    void sample(const char* name, int round, const Work& work) {
        const std::int64_t time = timeOf(work);
        if (round > 0) m_samples[name].push_back(time);
    }

    EditDB& m_window;
    std::string m_path;
    Repaints m_repaints{m_window.ListView1};
    std::map<const char*, std::vector<std::int64_t>> m_samples;
    std::int64_t m_memoryBefore;
};

void runDatabase(ProgramUnderBench& bench, const std::string& programFolder, int rounds) {
    bench.startedMainWindow();
    const std::string site = programFolder + "/data/site";
    std::filesystem::create_directories(site);
    makeDatabase(site + "/online_db.txt", 0);
    Database database(bench.openedDatabase(), programFolder);
    for (int round = 0; round <= rounds; ++round) database.take(round);
    database.print();
}
} // namespace

} // namespace torvane::bench

int main(int argc, char** argv) {
    return torvane::bench::measureInRounds(argc, argv, torvane::bench::runDatabase);
}
