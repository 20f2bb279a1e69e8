// SPDX-License-Identifier: MIT
// The movies as the player gets them: calm loops in two densities that show the same.
#include "ArtFiles.h"
#include "support/TestMain.h"

#include <QImageReader>
#include <QTest>

using namespace torvane;

namespace {

// All frames of a movie and the duration of each, in milliseconds.
struct Loop {
    QList<QImage> frames;
    QSet<int> delays;

    explicit Loop(const QString& path) {
        QImageReader reader(path, "webp");
        QImage frame;
        while (reader.read(&frame)) {
            frames << frame;
            delays << reader.nextImageDelay();
        }
    }
};

} // namespace

class MoviesTest : public QObject {
    Q_OBJECT

private slots:
    void a_movie_is_animated_and_keeps_its_size_data() {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("kibibytes");
        QTest::newRow("intro") << artTree + "/data/intro.dat" << QSize(192, 122) << 300;
        QTest::newRow("banner") << artTree + "/data/site/banner.swf" << QSize(468, 60) << 300;
        QTest::newRow("dense intro") << artTree + "/data/intro@2x.dat" << QSize(384, 244) << 700;
        QTest::newRow("dense banner") << artTree + "/data/site/banner@2x.swf" << QSize(936, 120) << 700;
    }
    void a_movie_is_animated_and_keeps_its_size() {
        QFETCH(QString, path);
        QFETCH(QSize, size);
        QFETCH(int, kibibytes);
        QCOMPARE(kindOf(path), QByteArray("WebP"));
        QVERIFY(QFile(path).size() < kibibytes * 1024LL);
        const Loop loop(path);
        QVERIFY(loop.frames.size() >= 10);
        for (const QImage& frame : loop.frames) QCOMPARE(frame.size(), size);
        for (const int delay : loop.delays) {
            QVERIFY2(delay >= 50 && delay <= 84,
                     qPrintable(QString("%1 ms is not 12 to 20 frames a second").arg(delay)));
        }
        QVERIFY(loop.frames[loop.frames.size() / 2] != loop.frames[0]);
    }

    void both_densities_show_the_same_data() {
        QTest::addColumn<QString>("path");
        QTest::newRow("intro") << artTree + "/data/intro.dat";
        QTest::newRow("banner") << artTree + "/data/site/banner.swf";
    }
    void both_densities_show_the_same() {
        QFETCH(QString, path);
        const Loop plain(path);
        const Loop dense(scaled(path, 2));
        QCOMPARE(dense.frames.size(), plain.frames.size());
        QCOMPARE(dense.delays, plain.delays);
        const qsizetype count = plain.frames.size();
        for (qsizetype frame = 0; frame < count; ++frame) {
            const QImage& sharp = dense.frames[frame];
            const qreal own = differenceOf(plain.frames[frame], sharp);
            const qreal halfALoopAway = differenceOf(plain.frames[(frame + count / 2) % count], sharp);
            QVERIFY2(own < 3 && own < halfALoopAway, qPrintable(QString("frame %1").arg(frame)));
        }
    }

    // Includes the step from the last frame to the first: a jump there would flicker.
    void a_movie_moves_calmly_data() { both_densities_show_the_same_data(); }
    void a_movie_moves_calmly() {
        QFETCH(QString, path);
        for (const int scale : {1, 2}) {
            const Loop loop(scaled(path, scale));
            QImage previous = loop.frames.last();
            for (const QImage& frame : loop.frames) {
                QVERIFY(differenceOf(previous, frame) < 3);
                previous = frame;
            }
        }
    }
};

TORVANE_TEST(MoviesTest)
#include "MoviesTest.moc"
