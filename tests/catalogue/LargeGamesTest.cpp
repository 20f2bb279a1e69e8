// SPDX-License-Identifier: MIT
// Tags in files of gigabytes. The files have holes, so that they take no room, and so has what is made of
// them.
#include "ID3Fixture.h"
#include "catalogue/TagLine.h"
#include "platform/base/Paths.h"
#include "platform/base/SafeFile.h"
#include "support/Failing.h"
#include "support/TestMain.h"

#include <fcntl.h>
#include <sys/resource.h>

using namespace torvane;

namespace {
constexpr qint64 gigabyte = qint64{1} << 30;
constexpr qint64 mostMemory = 64 << 20;

QByteArray newLine(qint64 size) {
    return "ID3TAG\xA7"
           "Acme\xA7Title\xA7"
           "21/11/26\xA7Info\xA7" +
           QByteArray::number(size) + "\xA7\r\n";
}

// Holes are read ten times as fast where files are kept in memory.
QString folderForLargeFiles() {
    const QString memory = QStringLiteral("/dev/shm");
    return QFileInfo(memory).isWritable() ? memory : QDir::tempPath();
}

// The most memory that the process has had so far, in bytes.
qint64 mostMemoryUsed() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return qint64{usage.ru_maxrss} * 1024;
}
} // namespace

class LargeGamesTest : public ID3Fixture {
    Q_OBJECT

    qint64 memoryBefore = 0;

    QByteArray native() const { return folder.native("game.gb"); }
    // What stands at each gigabyte of an image, and at its end, says where it is.
    static QByteArray mark(qint64 place) { return "at " + QByteArray::number(place) + ' '; }
    static QList<qint64> places(qint64 size) {
        QList<qint64> all;
        for (qint64 place = 0; place < size - 100; place += gigabyte) all << place;
        return all << size - mark(size).size();
    }

    QString makeGame(qint64 size, const QByteArray& tag = {}) const {
        const Handle file = opened(open(native().constData(), O_RDWR | O_CREAT | O_TRUNC, 0666));
        for (const qint64 place : places(size)) put(file, place, mark(place));
        put(file, size, tag);
        return Paths::spelled(native());
    }
    static void put(const Handle& file, qint64 place, const QByteArray& bytes) {
        if (pwrite(file.number(), bytes.constData(), static_cast<size_t>(bytes.size()), place) !=
            bytes.size()) {
            qFatal("can't write");
        }
    }
    // The file is the first `size` bytes of an image that was `imageSize` bytes, and what stands behind them.
    void expectGame(qint64 imageSize, qint64 size, const QByteArray& behind) const {
        const Handle file = opened(open(native().constData(), O_RDONLY));
        const struct stat info = infoOf(file);
        QCOMPARE(info.st_size, size + behind.size());
        QVERIFY2(info.st_blocks * 512 < mostMemory, "the holes are gone");
        for (const qint64 place : places(imageSize)) {
            const QByteArray expected = mark(place);
            if (place + expected.size() <= size) QCOMPARE(bytesOf(file, place, expected.size()), expected);
        }
        QCOMPARE(bytesOf(file, size, 10000), behind);
        QCOMPARE(folder.entries(), QStringList{QStringLiteral("game.gb")});
    }
    static void sizes() {
        QTest::addColumn<qint64>("size");
        QTest::newRow("3 GiB") << 3 * gigabyte;
        QTest::newRow("above 4 GiB") << 4 * gigabyte + 4711;
    }

public:
    LargeGamesTest() : ID3Fixture(folderForLargeFiles()) {}

private slots:
    void init() {
        ID3Fixture::init();
        fillNew();
        memoryBefore = mostMemoryUsed();
    }
    void cleanup() { QVERIFY(mostMemoryUsed() - memoryBefore < mostMemory); }

    void an_untagged_game_is_saved_data() { sizes(); }
    void an_untagged_game_is_saved() {
        QFETCH(qint64, size);
        const QString path = makeGame(size);
        id3->SaveRomTag(path, [] {});
        expectGame(size, size, newLine(size));
        QVERIFY(id3->HasRomTag(path));
        id3->ReadRomTag(path, panel);
        QVERIFY(panel.tagged);
        QCOMPARE(id3->RomTag.SizeKB, static_cast<int>((size + 500) / 1000));
    }
    void a_tagged_game_is_saved_data() { sizes(); }
    void a_tagged_game_is_saved() {
        QFETCH(qint64, size);
        const QString path = makeGame(size, tagLine(QByteArray::number(size)));
        id3->SaveRomTag(path, [] {});
        expectGame(size, size, "\r\n" + newLine(size + 2));
    }
    void a_stripped_game_keeps_at_most_the_stored_size_rounded_half_to_even() {
        const qint64 size = 4 * gigabyte + 4711;
        ID3::StripRomTag(makeGame(size, tagLine(QByteArray::number(size - 7) + ".5")));
        expectGame(size, size - 7, "\r\n");
    }
    void a_tag_that_can_not_be_understood_leaves_the_game() {
        const qint64 size = 3 * gigabyte;
        const QString path = makeGame(size, tagLine("-1"));
        const std::optional<int> expected = RuntimeFailure::invalidCall;
        QCOMPARE(failureOf([&] { ID3::StripRomTag(path); }), expected);
        QCOMPARE(failureOf([&] { id3->SaveRomTag(path, [] {}); }), expected);
        expectGame(size, size, tagLine("-1"));
    }
    void a_marker_in_the_image_cuts_it_there() {
        const qint64 size = 3 * gigabyte;
        const QString path = makeGame(size, tagLine(QByteArray::number(size)));
        put(opened(open(native().constData(), O_RDWR)), 5, tagLine("3"));
        QVERIFY(id3->HasRomTag(path));
        ID3::StripRomTag(path);
        QCOMPARE(folder.read(QStringLiteral("game.gb")), QByteArray("at \r\n"));
    }
    void a_replaced_tag_keeps_the_window_and_the_former_game_whole() {
        const qint64 size = 3 * gigabyte;
        const QByteArray tag = tagLine(QByteArray::number(size));
        const QString path = makeGame(size, tag);
        id3->ReplaceRomTag(path, QStringLiteral("T"), QStringLiteral("C"), QString(), QStringLiteral("I"));
        QVERIFY(folder.read(QStringLiteral("game.gb"))
                    .endsWith("\r\nID3TAG\xA7"
                              "C\xA7T\xA7\xA7I\xA7" +
                              QByteArray::number(size) + "\xA7\r\n"));
        std::filesystem::rename(folder.native("roms/data/backup/game.gb").toStdString(),
                                native().toStdString());
        std::filesystem::remove_all(folder.native("roms").toStdString());
        expectGame(size, size, tag);
    }
    void a_copy_has_the_holes_of_the_game() {
        const qint64 size = 3 * gigabyte + gigabyte / 2; // it ends in a hole
        const QString path = makeGame(3 * gigabyte);
        QVERIFY(QFile(path).resize(size));
        SafeFile::copy(path, folder.path(QStringLiteral("copy.gb")));
        std::filesystem::rename(folder.native("copy.gb").toStdString(), native().toStdString());
        expectGame(3 * gigabyte, size, {});
    }
};

TORVANE_GUILESS_TEST(LargeGamesTest)
#include "LargeGamesTest.moc"
