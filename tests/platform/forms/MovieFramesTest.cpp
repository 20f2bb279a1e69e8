// SPDX-License-Identifier: MIT
// The frames of moving pictures: their order and time, and what is kept of them.
#include "platform/forms/MovieFrames.h"
#include "support/GifMovie.h"
#include "support/IntroMovie.h"
#include "support/TestMain.h"

using namespace torvane;

namespace {
const QColor red{0xFF, 0, 0};
const QColor blue{0, 0, 0xFF};

QColor corner(const MovieFrames::Frame& frame) {
    return frame.image.isNull() ? QColor() : frame.image.pixelColor(0, 0);
}
} // namespace

class MovieFramesTest : public QObject {
    Q_OBJECT

private slots:
    void frames_come_in_their_order_and_begin_again() {
        MovieFrames frames(twoColours(), "gif");
        for (int round = 0; round < 3; ++round) {
            QCOMPARE(corner(frames.next()), red);
            QCOMPARE(corner(frames.next()), blue);
        }
        QVERIFY(!frames.isStill());
    }
    void each_frame_has_its_time() {
        MovieFrames frames(gifHead() + gifFrame(0, 10) + gifFrame(1, 200) + ';', "gif");
        for (int round = 0; round < 2; ++round) {
            QCOMPARE(frames.next().milliseconds, 100);
            QCOMPARE(frames.next().milliseconds, 2000);
        }
    }
    void no_frame_is_shorter_than_20_milliseconds() {
        QByteArray webp = introBytes();
        for (qsizetype at = webp.indexOf("ANMF"); at >= 0; at = webp.indexOf("ANMF", at + 4)) {
            webp.replace(at + 20, 3, QByteArray(3, '\0')); // the frame's time
        }
        MovieFrames frames(webp, "webp");
        for (int i = 0; i < 4; ++i) QCOMPARE(frames.next().milliseconds, 20);
    }
    void frames_of_a_short_movie_are_decoded_once() {
        MovieFrames frames(twoColours(), "gif");
        QList<qint64> keys;
        for (int i = 0; i < 4; ++i) keys << frames.next().image.cacheKey();
        QCOMPARE(keys[2], keys[0]);
        QCOMPARE(keys[3], keys[1]);
    }
    void a_long_movie_plays_on_without_being_kept() {
        // Two frames of 2000 x 1500 in three bytes a pixel are more than 8 MiB.
        MovieFrames frames(gifHead(2000, 1500) + gifFrame(0) + gifFrame(1) + ';', "gif");
        QList<qint64> keys;
        for (const QColor& colour : {red, blue, red, blue, red}) {
            const MovieFrames::Frame frame = frames.next();
            QCOMPARE(corner(frame), colour);
            QCOMPARE(frame.image.size(), QSize(2000, 1500));
            keys << frame.image.cacheKey();
        }
        QCOMPARE(QSet<qint64>(keys.begin(), keys.end()).size(), 5);
    }
    void a_single_frame_is_known_as_still_when_it_has_come_again() {
        MovieFrames frames(gifHead() + gifFrame(1) + ';', "gif");
        QCOMPARE(corner(frames.next()), blue);
        QCOMPARE(corner(frames.next()), blue);
        QVERIFY(frames.isStill());
        QCOMPARE(corner(frames.next()), blue);
    }
    void the_frames_before_a_damage_go_round() {
        MovieFrames frames(gifHead() + gifFrame(0) + gifFrame(1) + gifFrame(0).first(14), "gif");
        for (int round = 0; round < 3; ++round) {
            QCOMPARE(corner(frames.next()), red);
            QCOMPARE(corner(frames.next()), blue);
        }
    }
    void a_movie_without_any_frame_gives_null_images_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("head alone") << gifHead();
        QTest::newRow("no picture") << gifHead() + ';';
        QTest::newRow("cut picture") << gifHead() + gifFrame(0).first(14);
    }
    void a_movie_without_any_frame_gives_null_images() {
        QFETCH(QByteArray, bytes);
        MovieFrames frames(bytes, "gif");
        for (int i = 0; i < 3; ++i) QVERIFY(frames.next().image.isNull());
        QVERIFY(!frames.isStill());
    }
    void only_what_is_seen_through_keeps_an_alpha_channel() {
        QVERIFY(!MovieFrames(introBytes(), "webp").next().image.hasAlphaChannel());
        QByteArray frame = gifFrame(0);
        frame[3] = 1; // its colour 0 is transparent
        QVERIFY(MovieFrames(gifHead() + frame + ';', "gif").next().image.hasAlphaChannel());
    }
};

TORVANE_GUILESS_TEST(MovieFramesTest)
#include "MovieFramesTest.moc"
