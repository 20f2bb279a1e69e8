// SPDX-License-Identifier: MIT
// Tags in files of gigabytes. The files and their copies have holes, so that they need no room.
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

// A file system in memory reads holes ten times as fast.
QString folderForLargeFiles() {
    const QString memory = QStringLiteral("/dev/shm");
    return QFileInfo(memory).isWritable() ? memory : QDir::tempPath();
}

// The peak memory use of the process so far, in bytes.
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
    // The bytes at each gigabyte of an image, and at its end: they hold their own position.
    static QByteArray mark(qint64 position) { return "at " + QByteArray::number(position) + ' '; }
    static QList<qint64> positions(qint64 size) {
        QList<qint64> all;
        for (qint64 position = 0; position < size - 100; position += gigabyte) all << position;
        return all << size - mark(size).size();
    }

    QString makeGame(qint64 size, const QByteArray& tag = {}) const {
        const Handle file = opened(open(native().constData(), O_RDWR | O_CREAT | O_TRUNC, 0666));
        for (const qint64 position : positions(size)) put(file, position, mark(position));
        put(file, size, tag);
        return Paths::spelled(native());
    }
    static void put(const Handle& file, qint64 position, const QByteArray& bytes) {
        if (pwrite(file.number(), bytes.constData(), static_cast<size_t>(bytes.size()), position) !=
            bytes.size()) {
            qFatal("can't write");
        }
    }
    // The file must hold the first `size` bytes of an image of `imageSize` bytes, then `tail`.
    void expectGame(qint64 imageSize, qint64 size, const QByteArray& tail) const {
        const Handle file = opened(open(native().constData(), O_RDONLY));
        const struct stat info = infoOf(file);
        QCOMPARE(info.st_size, size + tail.size());
        QVERIFY2(info.st_blocks * 512 < mostMemory, "the holes are gone");
        for (const qint64 position : positions(imageSize)) {
            const QByteArray expected = mark(position);
            if (position + expected.size() <= size)
                QCOMPARE(bytesOf(file, position, expected.size()), expected);
        }
        QCOMPARE(bytesOf(file, size, 10000), tail);
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
    void an_invalid_tag_leaves_the_game_unchanged() {
        const qint64 size = 3 * gigabyte;
        const QString path = makeGame(size, tagLine("-1"));
        const std::optional<int> expected = RuntimeFailure::invalidCall;
        QCOMPARE(failureOf([&] { ID3::StripRomTag(path); }), expected);
        QCOMPARE(failureOf([&] { id3->SaveRomTag(path, [] {}); }), expected);
        expectGame(size, size, tagLine("-1"));
    }
    void a_marker_in_the_image_cuts_the_image_there() {
        const qint64 size = 3 * gigabyte;
        const QString path = makeGame(size, tagLine(QByteArray::number(size)));
        put(opened(open(native().constData(), O_RDWR)), 5, tagLine("3"));
        QVERIFY(id3->HasRomTag(path));
        ID3::StripRomTag(path);
        QCOMPARE(folder.read(QStringLiteral("game.gb")), QByteArray("at \r\n"));
    }
    void replacing_a_tag_keeps_the_window_and_the_whole_old_game() {
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
