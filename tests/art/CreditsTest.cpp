// SPDX-License-Identifier: MIT
// The credits as the player gets them: a page for every few libraries of the table, each long enough to
// be read, and a calm way from one to the next. The frames are looked at one by one: all at once would need
// 500 MB.
#include "ArtFiles.h"
#include "support/TestMain.h"

#include <QImageReader>
#include <QTest>
#include <functional>

using namespace torvane;

namespace {

const QString creditsFile = artTree + "/data/credits.dat";
constexpr int textHeight = 240;  // the part of the picture in which only words change
constexpr int framesToRead = 30; // three seconds
constexpr int librariesOnPage = 3;
constexpr int pagesWithoutLibraries = 2; // the program's name, and the thanks
constexpr int margin = 12;               // pixels between a word and the side

// Hands each frame to a function, with its duration in milliseconds.
void walk(const QString& path, const std::function<void(const QImage&, int)>& look) {
    QImageReader reader(path, "webp");
    QImage frame;
    while (reader.read(&frame)) look(frame.convertToFormat(QImage::Format_RGB32), reader.nextImageDelay());
}

// The columns that words take: where a frame is far lighter than the empty night. Null if there are none.
QRect wordsOn(const QImage& frame, const QImage& night) {
    QRect words;
    for (int y = 0; y < textHeight; ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(frame.constScanLine(y));
        const auto* empty = reinterpret_cast<const QRgb*>(night.constScanLine(y));
        for (int x = 0; x < frame.width(); ++x) {
            if (qGray(line[x]) > qGray(empty[x]) + 50) words |= QRect(x, 0, 1, 1);
        }
    }
    return words;
}

int librariesInTable() {
    QFile table(TORVANE_TREE_DIR "/data/licences/libraries.tsv");
    if (!table.open(QIODevice::ReadOnly)) return 0;
    return int(table.readAll().trimmed().split('\n').size()) - 1;
}

} // namespace

class CreditsTest : public QObject {
    Q_OBJECT

private slots:
    void it_moves_in_the_size_of_its_player_at_both_densities_data() {
        QTest::addColumn<int>("scale");
        QTest::addColumn<int>("mebibytes");
        QTest::newRow("1x") << 1 << 2;
        QTest::newRow("2x") << 2 << 5;
    }
    void it_moves_in_the_size_of_its_player_at_both_densities() {
        QFETCH(int, scale);
        QFETCH(int, mebibytes);
        const QString path = scaled(creditsFile, scale);
        QCOMPARE(kindOf(path), QByteArray("WebP"));
        QVERIFY(QFile(path).size() < mebibytes << 20);
        int count = 0;
        walk(path, [&](const QImage& frame, int delay) {
            QCOMPARE(frame.size(), QSize(431, 333) * scale);
            QVERIFY(delay >= 50 && delay <= 100);
            ++count;
        });
        QVERIFY(count > 100);
    }
    void each_page_stays_long_enough_to_be_read_and_something_moves_meanwhile() {
        int pages = 0;
        int still = 0;
        int moved = 0, rested = 0;
        QImage before;
        walk(creditsFile, [&](const QImage& frame, int) {
            const QImage text = frame.copy(0, 0, frame.width(), textHeight - 30);
            const bool isStill = !before.isNull() && text == before.copy(text.rect());
            if (isStill) ++(frame != before ? moved : rested);
            still = isStill ? still + 1 : 0;
            if (still == framesToRead) ++pages;
            before = frame;
        });
        const int expected =
            pagesWithoutLibraries + (librariesInTable() + librariesOnPage - 1) / librariesOnPage;
        QVERIFY(expected > pagesWithoutLibraries);
        QCOMPARE(pages, expected);
        QVERIFY2(moved > 9 * rested, "the vane stands still");
    }
    void no_line_is_cut_at_the_sides() {
        QImage night; // the first page is yet to appear
        int number = 0, pagesWithWords = 0;
        walk(creditsFile, [&](const QImage& frame, int) {
            if (night.isNull()) night = frame;
            if (++number % framesToRead != 0) return; // each page stays longer than that
            const QRect words = wordsOn(frame, night);
            if (words.isNull()) return;
            const QRect inside(margin, 0, frame.width() - 2 * margin, 1);
            QVERIFY2(inside.contains(words), qPrintable(QStringLiteral("frame %1").arg(number)));
            if (words.width() > frame.width() / 4) ++pagesWithWords;
        });
        QVERIFY(pagesWithWords > pagesWithoutLibraries);
    }
    // Includes the step from the last frame to the first: a jump there would flicker.
    void nothing_jumps() {
        QImage first, before;
        walk(creditsFile, [&](const QImage& frame, int) {
            if (first.isNull()) first = frame;
            if (!before.isNull()) QVERIFY(differenceOf(before, frame) < 2);
            before = frame;
        });
        QVERIFY(differenceOf(before, first) < 2);
    }
    void both_densities_show_the_same() {
        QList<QImage> some;
        int number = 0;
        walk(creditsFile, [&](const QImage& frame, int) {
            if (number++ % 25 == 0) some += frame;
        });
        int dense = 0;
        walk(scaled(creditsFile, 2), [&](const QImage& frame, int) {
            if (dense % 25 == 0) {
                QVERIFY(differenceOf(some[dense / 25], frame) < 2);
            }
            ++dense;
        });
        QCOMPARE(dense, number);
    }
};

TORVANE_TEST(CreditsTest)
#include "CreditsTest.moc"
