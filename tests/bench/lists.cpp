// SPDX-License-Identifier: MIT
// A list of a million rows and six columns in a shown window: sets and paints it, and scrolls it by a page,
// in turns with a list of a thousand rows and with the same texts painted without any list. Usage:
// bench_lists CONFIGURATION_FOLDER ROUNDS [PICTURE] Prints median nanoseconds: "set-large", "page-large",
// "set-small", "page-small" and "plain". With the name of a PNG file it saves a look at the middle of the
// million rows there.
#include "ProgramUnderBench.h"
#include "Repaints.h"
#include "Samples.h"
#include "platform/forms/ColumnListView.h"

#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>
#include <QTableView>
#include <QWindow>
#include <array>
#include <cinttypes>
#include <map>

namespace torvane::bench {

namespace {
constexpr int manyRows = 1'000'000;
constexpr int fewRows = 1'000;
constexpr std::array widths = {150, 100, 70, 60, 80, 63};
constexpr std::array headers = {"Title", "Company", "Date", "Kind", "Author", "Info"};
constexpr FormDesign design{.name = "Lists", .title = "Lists", .clientSize = {523, 473}, .inTaskBar = true};

// Makes the texts on request, as a source over a file does.
struct Entries : RowSource {
    explicit Entries(int rows) : m_count(rows) {}
    int count() const override { return m_count; }
    QString text(int row, int column) const override {
        switch (column) {
        case 0: return QStringLiteral("The quest of the lantern %1").arg(row);
        case 1: return QStringLiteral("Studio %1").arg(row % 90);
        case 2: return QStringLiteral("%1/02/1999").arg(row % 28 + 1);
        case 3: return QStringLiteral("USER");
        case 4: return QStringLiteral("Author %1").arg(row % 700);
        default: return QStringLiteral("Plays well on a rainy day, and has %1 levels.").arg(row % 60);
        }
    }
    int icon(int row) const override { return row % 3 + 1; }

private:
    int m_count;
};

// Paints only a page of such texts in the cells of a list, each cut to its width.
class PlainPage : public QWidget {
public:
    explicit PlainPage(QWidget& parent) : QWidget(&parent) { resize(parent.size()); }
    int first = 0;

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const Entries entries(manyRows);
        for (int row = 0; row * 18 < height(); ++row) {
            int left = 0;
            for (int column = 0; column < static_cast<int>(widths.size()); ++column) {
                const int width = widths[static_cast<size_t>(column)];
                const QRect place(left + 2, row * 18, width - 6, 18);
                painter.drawText(place, Qt::AlignVCenter | Qt::TextSingleLine,
                                 fontMetrics().elidedText(entries.text(first + row, column), Qt::ElideRight,
                                                          place.width()));
                left += width;
            }
        }
    }
};

class Lists {
public:
    explicit Lists(Runtime& runtime) : m_form(runtime, design) {
        for (int column = 0; column < m_list.model().columnCount(); ++column) {
            m_list.setHeader(column, QString::fromLatin1(headers[static_cast<size_t>(column)]));
        }
        m_plain.setFont(Fonts::of(Fonts::V8));
        m_plain.hide();
        m_form.Show();
        while (m_form.windowHandle() == nullptr || !m_form.windowHandle()->isExposed()) {
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        m_repaints.awaitOne();
    }

    void take(int round) {
        m_list.show();
        m_list.raise();
        settle();
        takeList("set-small", "page-small", fewRows, round);
        takeList("set-large", "page-large", manyRows, round);
        m_plain.show();
        m_plain.raise();
        settle();
        m_plain.first = manyRows / 2 + round;
        sample("plain", round, [&] {
            m_plain.update();
            m_repaints.awaitOne();
        });
    }
    bool savePicture(const QString& file) {
        m_plain.hide();
        m_list.show();
        m_list.setItems(std::make_shared<Entries>(manyRows));
        m_list.setCurrentRow(manyRows / 2);
        settle();
        return m_form.grab().save(file, "PNG");
    }
    void print() {
        for (const auto& [name, samples] : m_samples) std::printf("%s %" PRId64 "\n", name, median(samples));
    }

private:
    static void settle() { QApplication::processEvents(); }

    void takeList(const char* set, const char* page, int rows, int round) {
        m_list.Clear();
        settle();
        sample(set, round, [&] {
            m_list.setItems(std::make_shared<Entries>(rows));
            m_repaints.awaitOne();
        });
        mustHold(m_list.rowCount() == rows);
        settle();
        QScrollBar& bar = *m_list.findChild<QTableView*>()->verticalScrollBar();
        bar.setValue(rows / 2);
        settle();
        const int before = bar.value();
        sample(page, round, [&] {
            bar.triggerAction(QAbstractSlider::SliderPageStepAdd);
            m_repaints.awaitOne();
        });
        mustHold(bar.value() > before);
    }
    // The first round warms up.
    template <typename Work>
    void sample(const char* name, int round, const Work& work) {
        const std::int64_t time = timeOf(work);
        if (round > 0) m_samples[name].push_back(time);
    }

    Form m_form;
    ImageList m_icons{m_form, "icons", {"delete-16.png", "copy-16.png", "tag-delete-16.png"}};
    ColumnListView m_list{m_form, "list", {0, 0, 523, 473}, m_icons, {.widths = {150, 100, 70, 60, 80, 63}}};
    PlainPage m_plain{m_form};
    Repaints m_repaints{m_form};
    std::map<const char*, std::vector<std::int64_t>> m_samples;
};

// The picture may be null.
int runLists(const char* configurationFolder, int rounds, const char* picture) {
    ProgramUnderBench bench(configurationFolder, configurationFolder);
    Lists lists(bench.runtime);
    for (int round = 0; round <= rounds; ++round) lists.take(round);
    lists.print();
    std::fflush(nullptr);
    _exit(picture == nullptr || lists.savePicture(QString::fromLocal8Bit(picture)) ? 0 : 3);
}
} // namespace

} // namespace torvane::bench

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    if (argc != 3 && argc != 4) return 2;
    return torvane::bench::runLists(argv[1], std::atoi(argv[2]), argc == 4 ? argv[3] : nullptr);
}
