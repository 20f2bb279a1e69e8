// SPDX-License-Identifier: MIT
// A tag database of a million lines in a shown list: read, filtered and painted, and scrolled by a page, in
// turns with a count of its lines by wc. Usage: bench_database PROGRAM_FOLDER CONFIGURATION_FOLDER ROUNDS
// Prints median wall nanoseconds: "rare" (one line in a thousand passes), "all", "page" and "count-lines";
// and in kB, "file-kB" and "memory-kB", by how much the peak of the resident memory has grown.
#include "DatabaseFile.h"
#include "ProgramUnderBench.h"
#include "Repaints.h"
#include "Samples.h"
#include "platform/forms/ColumnListView.h"
#include "tagdb/OnlineDb.h"

#include <QProcess>
#include <QScrollBar>
#include <QTableView>
#include <QWindow>
#include <cinttypes>
#include <filesystem>
#include <map>
#include <sys/resource.h>

namespace torvane::bench {

namespace {
constexpr int lines = 1'000'000;
constexpr FormDesign design{
    .name = "Database", .title = "Database", .clientSize = {523, 473}, .inTaskBar = true};

std::int64_t peakMemory() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

class Database {
public:
    Database(Runtime& runtime, const char* folder) : m_form(runtime, design) {
        m_globals.AppPath = Paths::spelled(folder);
        m_path = std::string(folder) + "/online_db.dat";
        makeDatabase(m_path, lines);
        m_form.Show();
        while (m_form.windowHandle() == nullptr || !m_form.windowHandle()->isExposed()) {
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        m_repaints.awaitOne();
        m_memoryBefore = peakMemory();
    }

    void take(int round) {
        OnlineDbFilter rare;
        rare.game = QString::fromLatin1(rareTitle).toLower();
        sample("count-lines", round, [&] { countLines(); });
        filter("rare", round, rare, lines / linesPerRareTitle);
        filter("all", round, {}, lines);
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
    void filter(const char* name, int round, const OnlineDbFilter& filter, int expected) {
        sample(name, round, [&] {
            m_list.Clear();
            m_list.setItems(
                OnlineDb(m_globals).filtered(filter, QDate(2026, 11, 22), QStringLiteral("d/M/yyyy")));
            m_repaints.awaitOne();
        });
        mustHold(m_list.rowCount() == expected);
        QApplication::processEvents();
    }
    void scroll(int round) {
        QScrollBar& bar = *m_list.findChild<QTableView*>()->verticalScrollBar();
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

    Globals m_globals;
    std::string m_path;
    Form m_form;
    ImageList m_icons{m_form, "icons", {"delete-16.png", "copy-16.png", "tag-delete-16.png"}};
    ColumnListView m_list{m_form, "list", {0, 0, 523, 473}, m_icons, {.widths = {150, 100, 70, 60, 80, 63}}};
    Repaints m_repaints{m_form};
    std::map<const char*, std::vector<std::int64_t>> m_samples;
    std::int64_t m_memoryBefore = 0;
};

int runDatabase(const char* programFolder, const char* configurationFolder, int rounds) {
    ProgramUnderBench bench(programFolder, configurationFolder);
    Database database(bench.runtime, programFolder);
    for (int round = 0; round <= rounds; ++round) database.take(round);
    database.print();
    std::fflush(nullptr);
    _exit(0);
}
} // namespace

} // namespace torvane::bench

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    if (argc != 4) return 2;
    return torvane::bench::runDatabase(argv[1], argv[2], std::atoi(argv[3]));
}
