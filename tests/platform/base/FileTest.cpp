// SPDX-License-Identifier: MIT
// One open file: what is read, and the error number of every refusal.
#include "platform/base/File.h"
#include "support/FileFixture.h"
#include "support/TestMain.h"

#include <limits>
#include <sys/socket.h>
#include <sys/un.h>

using namespace torvane;

class FileTest : public FileFixture {
    Q_OBJECT

    static std::optional<int> openFailure(const QString& path) {
        return failureOf([&] { const File file(path); });
    }

private slots:
    void init() { renewFolder(); }

    void all_bytes_are_read_as_they_are() {
        QByteArray bytes;
        for (int i = 0; i < 1024; ++i) bytes.append(static_cast<char>(i));
        const QString path = folder->write(QStringLiteral("a.gb"), bytes);
        QCOMPARE(File::contentOf(path), bytes);
        QCOMPARE(File::lengthOf(path), 1024);
    }
    void an_empty_file_has_length_0_and_no_bytes() {
        const QString path = folder->write(QStringLiteral("empty"), "");
        QCOMPARE(File::lengthOf(path), 0);
        QCOMPARE(File::contentOf(path), QByteArray());
        QCOMPARE(File(path).readAt(0, 10), QByteArray());
    }
    void reading_at_a_position_stops_at_the_end_of_the_file_data() {
        QTest::addColumn<qint64>("position");
        QTest::addColumn<qint64>("count");
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("inside") << qint64(2) << qint64(3) << QByteArray("234");
        QTest::newRow("up to the end") << qint64(7) << qint64(3) << QByteArray("789");
        QTest::newRow("over the end") << qint64(7) << qint64(100) << QByteArray("789");
        QTest::newRow("at the end") << qint64(10) << qint64(1) << QByteArray();
        QTest::newRow("beyond the end") << qint64(1000) << qint64(1) << QByteArray();
        QTest::newRow("nothing") << qint64(3) << qint64(0) << QByteArray();
    }
    void reading_at_a_position_stops_at_the_end_of_the_file() {
        QFETCH(qint64, position);
        QFETCH(qint64, count);
        QFETCH(QByteArray, bytes);
        const QString path = folder->write(QStringLiteral("digits"), "0123456789");
        QCOMPARE(File(path).readAt(position, count), bytes);
    }
    void a_negative_position_fails() {
        const File file(folder->write(QStringLiteral("digits"), "0123456789"));
        QCOMPARE(failureOf([&] { (void)file.readAt(-1, 5); }), number(RuntimeFailure::deviceError));
    }
    void a_missing_file_is_reported_and_not_created() {
        QCOMPARE(openFailure(at("gone")), number(RuntimeFailure::fileNotFound));
        QVERIFY(!QFile::exists(at("gone")));
    }
    void a_read_only_file_is_read() {
        const QString path = folder->write(QStringLiteral("a.gb"), "rom");
        setMode("a.gb", 0444);
        const OrdinaryUser user;
        QCOMPARE(File::contentOf(path), QByteArray("rom"));
    }
    void an_unreadable_file_is_refused() {
        const QString path = folder->write(QStringLiteral("shut"), "secret");
        folder->setMode(QStringLiteral("shut"), 0);
        const OrdinaryUser user;
        QCOMPARE(openFailure(path), number(RuntimeFailure::permissionDenied));
        QCOMPARE(failureOf([&] { (void)File::lengthOf(path); }), number(RuntimeFailure::permissionDenied));
    }
    void anything_but_a_file_is_refused_at_once_data() {
        QTest::addColumn<QString>("kind");
        for (const char* kind : {"folder", "pipe", "device", "socket"})
            QTest::newRow(kind) << QString::fromLatin1(kind);
    }
    void anything_but_a_file_is_refused_at_once() {
        QFETCH(QString, kind);
        folder->makeFolder(QStringLiteral("folder"));
        QCOMPARE(mkfifo(folder->native("pipe").constData(), 0666), 0);
        QCOMPARE(symlink("/dev/null", folder->native("device").constData()), 0);
        const int listening = socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        qstrncpy(address.sun_path, folder->native("socket").constData(), sizeof address.sun_path);
        QCOMPARE(bind(listening, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
        const auto failure = openFailure(folder->path(kind));
        close(listening);
        QCOMPARE(failure, number(RuntimeFailure::pathAccess));
    }
    void a_path_that_leads_nowhere_fails_with_the_matching_number_data() {
        QTest::addColumn<QString>("path");
        QTest::addColumn<int>("expected");
        QTest::newRow("empty path") << QString() << int(RuntimeFailure::fileNotFound);
        QTest::newRow("missing folder") << QStringLiteral("gone\\a.gb") << int(RuntimeFailure::fileNotFound);
        QTest::newRow("below a file") << QStringLiteral("file\\a.gb") << int(RuntimeFailure::pathNotFound);
        QTest::newRow("name too long") << QString(300, QLatin1Char('n')) << int(RuntimeFailure::pathAccess);
        QTest::newRow("links in a circle") << QStringLiteral("circle") << int(RuntimeFailure::pathAccess);
        QTest::newRow("link to nowhere") << QStringLiteral("nowhere") << int(RuntimeFailure::fileNotFound);
    }
    void a_path_that_leads_nowhere_fails_with_the_matching_number() {
        QFETCH(QString, path);
        QFETCH(int, expected);
        folder->write(QStringLiteral("file"), "x");
        QCOMPARE(symlink("circle", folder->native("circle").constData()), 0);
        QCOMPARE(symlink("missing", folder->native("nowhere").constData()), 0);
        QCOMPARE(openFailure(path.isEmpty() ? path : folder->path(path)), std::optional<int>(expected));
    }
    void a_huge_file_is_read_in_part_but_not_as_a_whole() {
        QFile sparse(folder->write(QStringLiteral("huge"), ""));
        const qint64 limit = std::numeric_limits<qint32>::max();
        QVERIFY(sparse.resize(limit + 1));
        const File file(at("huge"));
        QCOMPARE(file.length(), limit + 1);
        QCOMPARE(file.readAt(limit - 1, 1024), QByteArray(2, '\0'));
        QCOMPARE(failureOf([&] { (void)file.readAll(); }), number(RuntimeFailure::outOfMemory));
        QCOMPARE(failureOf([&] { (void)File::contentOf(at("huge")); }), number(RuntimeFailure::outOfMemory));
    }
    void a_file_with_more_bytes_than_the_caller_allows_is_not_read() {
        const QString path = folder->write(QStringLiteral("digits"), "0123456789");
        QCOMPARE(File::contentOf(path, 10), QByteArray("0123456789"));
        QCOMPARE(failureOf([&] { (void)File::contentOf(path, 9); }), number(RuntimeFailure::outOfMemory));
        QCOMPARE(failureOf([&] { (void)File::contentOf(at("gone"), 9); }),
                 number(RuntimeFailure::fileNotFound));
    }
    void a_file_of_several_megabytes_is_read_as_it_is() {
        QByteArray bytes(9 << 20, Qt::Uninitialized);
        for (qsizetype i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i * 2654435761 >> 13);
        QCOMPARE(File::contentOf(folder->write(QStringLiteral("large"), bytes)), bytes);
    }
    void names_of_any_bytes_are_opened() {
        for (const char* name :
             {"no utf8 \xF1.gb", "back\\slash", "%s \"quoted\"", "line\nbreak", " blanks "}) {
            QCOMPARE(File::contentOf(folder->writeNative(name, name)), QByteArray(name));
        }
    }
    void a_file_is_found_without_regard_to_case() {
        folder->write(QStringLiteral("Roms/Game.GB"), "x");
        QCOMPARE(File::lengthOf(folder->path() + QStringLiteral("\\roms\\GAME.gb")), 1);
    }
    void removing_deletes_a_file_and_fails_on_anything_else() {
        const QString path = folder->write(QStringLiteral("a.gb"), "x");
        File::remove(path);
        QVERIFY(!QFile::exists(path));
        QCOMPARE(failureOf([&] { File::remove(path); }), number(RuntimeFailure::fileNotFound));
        folder->makeFolder(QStringLiteral("sub"));
        QCOMPARE(failureOf([&] { File::remove(at("sub")); }), number(RuntimeFailure::pathAccess));
        QVERIFY(QFile::exists(at("sub")));
    }
    void removing_a_link_leaves_the_file_that_it_names() {
        folder->write(QStringLiteral("a.gb"), "x");
        QCOMPARE(symlink("a.gb", folder->native("link").constData()), 0);
        File::remove(at("link"));
        QCOMPARE(folder->entries(), QStringList{QStringLiteral("a.gb")});
    }
    void removing_exactly_leaves_a_file_whose_name_has_other_letters() {
        const QString other = folder->write(QStringLiteral("Sub/A.gb"), "x");
        const QString path = folder->path() + QStringLiteral("\\sub\\a.gb");
        QCOMPARE(failureOf([&] { File::removeExactly(path); }), number(RuntimeFailure::fileNotFound));
        QVERIFY(QFile::exists(other));
        folder->write(QStringLiteral("Sub/a.gb"), "x");
        File::removeExactly(path);
        QCOMPARE(folder->entries(QStringLiteral("Sub")), QStringList{QStringLiteral("A.gb")});
        File::remove(path);
        QVERIFY(!QFile::exists(other));
    }
    void existence_is_known_of_files_and_folders_and_never_fails() {
        folder->write(QStringLiteral("sub/A.gb"), "x");
        QVERIFY(File::exists(at("sub/A.gb")));
        QVERIFY(File::exists(at("sub")));
        QVERIFY(File::exists(folder->path() + QStringLiteral("\\SUB\\a.GB")));
        QVERIFY(!File::exists(at("gone")));
        QVERIFY(!File::exists(at("sub/A.gb/below")));
        QVERIFY(!File::exists(QString()));
        QVERIFY(!File::exists(folder->path(QString(5000, QLatin1Char('n')))));
        QCOMPARE(symlink("missing", folder->native("nowhere").constData()), 0);
        QVERIFY(!File::exists(at("nowhere")));
    }
};

TORVANE_APPLESS_TEST(FileTest)
#include "FileTest.moc"
