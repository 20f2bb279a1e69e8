// SPDX-License-Identifier: MIT
// Checksums of images, in files and as they come in pieces.
#include "tags/images/GameImage.h"
#include "catalogue/TagLine.h"
#include "support/Failing.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"
#include "tags/images/StreamedSums.h"

#include <QCryptographicHash>

using namespace torvane;
using namespace Qt::StringLiterals;

class GameImageTest : public QObject {
    Q_OBJECT

    static QByteArray digest(const QByteArray& bytes, QCryptographicHash::Algorithm algorithm) {
        return QCryptographicHash::hash(bytes, algorithm);
    }
    static void compare(const Sums& sums, const QByteArray& bytes) {
        QCOMPARE(sums[1], digest(bytes, QCryptographicHash::Md5));
        QCOMPARE(sums[2], digest(bytes, QCryptographicHash::Sha1));
        QCOMPARE(sums[3], digest(bytes, QCryptographicHash::Sha256));
    }
    static QByteArray noise(qsizetype size) {
        QByteArray bytes(size, '\0');
        quint32 state = 1;
        for (char& byte : bytes) byte = static_cast<char>((state = state * 1664525 + 1013904223) >> 24);
        return bytes;
    }
    static QByteArray tagged(const QByteArray& body, qint64 size) {
        return body + TagLine::build({"C", "T", "D", "I", QByteArray::number(size)});
    }
    // In pieces of several sizes.
    static StreamedSums streamed(const QByteArray& bytes, WantedSums wanted) {
        StreamedSums sums(wanted);
        for (qsizetype at = 0, step = 1; at < bytes.size(); at += step, step = step * 7 % 100003)
            sums.add(QByteArrayView(bytes).sliced(at, std::min(step, bytes.size() - at)));
        return sums;
    }

private slots:
    void the_sums_are_those_of_others() {
        SumMaker maker(WantedSums().set());
        maker.add("1234");
        maker.add("56789");
        const Sums sums = maker.finish();
        QCOMPARE(sums[0].toHex(), QByteArray("cbf43926")); // the check value of this CRC
        compare(sums, "123456789");
    }
    void only_wanted_sums_are_made() {
        SumMaker maker(WantedSums().set(2));
        maker.add("abc");
        const Sums sums = maker.finish();
        QVERIFY(sums[0].isEmpty() && sums[1].isEmpty() && sums[3].isEmpty());
        QCOMPARE(sums[2].toHex(), QByteArray("a9993e364706816aba3e25717850c26c9cd0d89d"));
    }
    void files_of_all_sizes_are_summed_up_without_their_tags() {
        const TestFolder folder;
        for (const qsizetype size : {0, 1, 1024, 65535, 65536, 65537, 300000}) {
            const QByteArray bytes = noise(size);
            folder.write(u"a.gb"_s, tagged(bytes, size));
            const GameImage image(folder.native("a.gb"));
            QCOMPARE(image.end().length(), size);
            compare(image.sums(size, WantedSums().set()), bytes);
        }
    }
    void a_file_that_changes_is_reported_data() {
        QTest::addColumn<int>("way");
        QTest::newRow("written") << 0;
        QTest::newRow("cut") << 1;
        QTest::newRow("grown") << 2;
    }
    void a_file_that_changes_is_reported() {
        QFETCH(int, way);
        const TestFolder folder;
        folder.write(u"a.gb"_s, noise(4096));
        const GameImage image(folder.native("a.gb"));
        compare(image.sums(4096, WantedSums().set()), noise(4096));
        const Handle file(open(folder.native("a.gb").constData(), O_WRONLY));
        if (way == 0) {
            // Files get the time of the last tick of the clock: it must not be the same one.
            QTRY_VERIFY((pwrite(file.number(), "x", 1, 5) == 1 &&
                         failureOf([&] { image.sums(4096, WantedSums().set()); }).has_value()));
        }
        if (way == 1) QCOMPARE(ftruncate(file.number(), 100), 0);
        if (way == 2) QCOMPARE(ftruncate(file.number(), 5000), 0);
        try {
            image.sums(4096, WantedSums().set());
            QFAIL("it is not reported");
        } catch (const RuntimeFailure& failure) {
            QCOMPARE(failure.reason(), RuntimeFailure::Reason::changed);
        }
    }
    void only_ordinary_files_are_read() {
        const TestFolder folder;
        QCOMPARE(failureOf([&] { GameImage{folder.native("no.gb")}; }), number(RuntimeFailure::fileNotFound));
        QCOMPARE(mkfifo(folder.native("pipe.gb").constData(), 0600), 0);
        QCOMPARE(failureOf([&] { GameImage{folder.native("pipe.gb")}; }), number(RuntimeFailure::pathAccess));
        QVERIFY(failureOf([&] { GameImage{folder.native("")}; }).has_value());
    }

    // Streams
    void streams_of_all_sizes_are_summed_up_without_their_tags() {
        for (const qsizetype size : {0, 1, 17000, 17408, 262144, 1000000}) {
            const QByteArray bytes = noise(size);
            StreamedSums sums = streamed(tagged(bytes, size), WantedSums().set());
            QCOMPARE(sums.end().length(), size);
            QVERIFY(sums.canEndAt(size));
            compare(sums.finish(size), bytes);
        }
    }
    void a_long_tag_at_the_end_of_one_piece_is_seen() {
        StreamedSums sums(WantedSums(4));
        sums.add(noise(300032) + TagLine::build({"C", "T", "D", QByteArray(3000, 'i'), "300032"}));
        QCOMPARE(sums.end().length(), 300032);
        QVERIFY(sums.canEndAt(300032));
    }
    void a_stream_whose_tag_names_a_far_smaller_size_has_to_come_again() {
        const QByteArray bytes = noise(1000000);
        StreamedSums sums = streamed(tagged(bytes, 1024), WantedSums().set());
        QCOMPARE(sums.end().length(), 1024);
        QVERIFY(!sums.canEndAt(1024));
    }
};

TORVANE_APPLESS_TEST(GameImageTest)
#include "GameImageTest.moc"
