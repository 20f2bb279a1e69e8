// SPDX-License-Identifier: MIT
// One open file: what is read and written, and what number every refusal has.
#include "platform/base/File.h"
#include "support/Failing.h"
#include "support/TestFolder.h"

#include <limits>
#include <sys/socket.h>
#include <sys/un.h>

using namespace torvane;

namespace {
std::optional<int> number(RuntimeFailure::Number value) { return static_cast<int>(value); }
} // namespace

class FileTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestFolder> folder;

    QString at(const char* name) const { return folder->path(QString::fromLatin1(name)); }
    QByteArray read(const char* name) const { return folder->read(QString::fromLatin1(name)); }
    std::optional<int> openFailure(const QString& path, File::Mode mode = File::Mode::read) const {
        return failureOf([&] { const File file(path, mode); });
    }

private slots:
    void init() { folder = std::make_unique<TestFolder>(); }

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
    void reading_at_a_position_gives_at_most_what_is_there_data() {
        QTest::addColumn<qint64>("position");
        QTest::addColumn<qint64>("count");
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("inside") << qint64(2) << qint64(3) << QByteArray("234");
        QTest::newRow("up to the end") << qint64(7) << qint64(3) << QByteArray("789");
        QTest::newRow("over the end") << qint64(7) << qint64(100) << QByteArray("789");
        QTest::newRow("at the end") << qint64(10) << qint64(1) << QByteArray();
        QTest::newRow("behind the end") << qint64(1000) << qint64(1) << QByteArray();
        QTest::newRow("nothing") << qint64(3) << qint64(0) << QByteArray();
    }
    void reading_at_a_position_gives_at_most_what_is_there() {
        QFETCH(qint64, position);
        QFETCH(qint64, count);
        QFETCH(QByteArray, bytes);
        const QString path = folder->write(QStringLiteral("digits"), "0123456789");
        QCOMPARE(File(path).readAt(position, count), bytes);
    }
    void a_position_in_front_of_the_file_fails() {
        const File file(folder->write(QStringLiteral("digits"), "0123456789"));
        QCOMPARE(failureOf([&] { (void)file.readAt(-1, 5); }), number(RuntimeFailure::deviceError));
    }
    void an_appended_text_stands_behind_the_rest_and_a_second_one_behind_that() {
        const QString path = folder->write(QStringLiteral("a.gb"), "rom");
        File file(path, File::Mode::append);
        file.append("one");
        file.append(QByteArray());
        file.append(QByteArray("\0\r\n", 3));
        QCOMPARE(file.length(), 9);
        QCOMPARE(read("a.gb"), QByteArray("romone\0\r\n", 9));
    }
    void appending_makes_a_missing_file_and_reading_does_not() {
        QCOMPARE(openFailure(at("gone")), number(RuntimeFailure::fileNotFound));
        QVERIFY(!QFile::exists(at("gone")));
        File(at("new"), File::Mode::append).append("text");
        QCOMPARE(read("new"), QByteArray("text"));
    }
    void appending_keeps_mode_and_goes_through_a_link() {
        const QString path = folder->write(QStringLiteral("a.gb"), "rom");
        folder->setMode(QStringLiteral("a.gb"), 0640);
        QCOMPARE(symlink("a.gb", folder->native("link.gb").constData()), 0);
        File(at("link.gb"), File::Mode::append).append("+");
        QCOMPARE(read("a.gb"), QByteArray("rom+"));
        struct stat info {};
        QCOMPARE(stat(QFile::encodeName(path).constData(), &info), 0);
        QCOMPARE(info.st_mode & 07777, 0640u);
    }
    void a_full_disk_during_an_append_cuts_the_file_back() {
        const QString path = folder->write(QStringLiteral("a.gb"), QByteArray(1000, 'r'));
        std::optional<int> failure;
        {
            const FullDisk full(1004);
            failure = failureOf([&] { File(path, File::Mode::append).append("12345678"); });
        }
        QCOMPARE(failure, number(RuntimeFailure::diskFull));
        QCOMPARE(read("a.gb"), QByteArray(1000, 'r'));
        QCOMPARE(folder->entries(), QStringList{QStringLiteral("a.gb")});
    }
    void an_append_that_just_fits_is_made() {
        const QString path = folder->write(QStringLiteral("a.gb"), QByteArray(1000, 'r'));
        {
            const FullDisk full(1008);
            File(path, File::Mode::append).append("12345678");
        }
        QCOMPARE(read("a.gb"), QByteArray(1000, 'r') + "12345678");
    }
    void a_file_that_may_not_be_read_or_written_is_refused() {
        const QString path = folder->write(QStringLiteral("shut"), "secret");
        folder->setMode(QStringLiteral("shut"), 0);
        const OrdinaryUser user;
        QCOMPARE(openFailure(path), number(RuntimeFailure::permissionDenied));
        QCOMPARE(openFailure(path, File::Mode::append), number(RuntimeFailure::permissionDenied));
        QCOMPARE(failureOf([&] { (void)File::lengthOf(path); }), number(RuntimeFailure::permissionDenied));
    }
    void what_is_no_file_is_refused_at_once_data() {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<bool>("append");
        for (const char* kind : {"folder", "pipe", "device", "socket"}) {
            QTest::addRow("reading a %s", kind) << QString::fromLatin1(kind) << false;
            QTest::addRow("appending to a %s", kind) << QString::fromLatin1(kind) << true;
        }
    }
    void what_is_no_file_is_refused_at_once() {
        QFETCH(QString, kind);
        QFETCH(bool, append);
        folder->makeFolder(QStringLiteral("folder"));
        QCOMPARE(mkfifo(folder->native("pipe").constData(), 0666), 0);
        QCOMPARE(symlink("/dev/null", folder->native("device").constData()), 0);
        const int listening = socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        qstrncpy(address.sun_path, folder->native("socket").constData(), sizeof address.sun_path);
        QCOMPARE(bind(listening, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
        const auto failure = openFailure(folder->path(kind), append ? File::Mode::append : File::Mode::read);
        close(listening);
        QCOMPARE(failure, number(RuntimeFailure::pathAccess));
    }
    void a_path_that_leads_nowhere_has_the_number_of_its_reason_data() {
        QTest::addColumn<QString>("path");
        QTest::addColumn<int>("expected");
        QTest::newRow("empty path") << QString() << int(RuntimeFailure::fileNotFound);
        QTest::newRow("missing folder") << QStringLiteral("gone\\a.gb") << int(RuntimeFailure::fileNotFound);
        QTest::newRow("below a file") << QStringLiteral("file\\a.gb") << int(RuntimeFailure::pathNotFound);
        QTest::newRow("name too long") << QString(300, QLatin1Char('n')) << int(RuntimeFailure::pathAccess);
        QTest::newRow("links in a circle") << QStringLiteral("circle") << int(RuntimeFailure::pathAccess);
        QTest::newRow("link to nowhere") << QStringLiteral("nowhere") << int(RuntimeFailure::fileNotFound);
    }
    void a_path_that_leads_nowhere_has_the_number_of_its_reason() {
        QFETCH(QString, path);
        QFETCH(int, expected);
        folder->write(QStringLiteral("file"), "x");
        QCOMPARE(symlink("circle", folder->native("circle").constData()), 0);
        QCOMPARE(symlink("missing", folder->native("nowhere").constData()), 0);
        QCOMPARE(openFailure(path.isEmpty() ? path : folder->path(path)), std::optional<int>(expected));
    }
    void a_huge_file_is_read_in_part_and_refused_whole() {
        QFile sparse(folder->write(QStringLiteral("huge"), ""));
        const qint64 limit = std::numeric_limits<qint32>::max();
        QVERIFY(sparse.resize(limit + 1));
        const File file(at("huge"));
        QCOMPARE(file.length(), limit + 1);
        QCOMPARE(file.readAt(limit - 1, 1024), QByteArray(2, '\0'));
        QCOMPARE(failureOf([&] { (void)file.readAll(); }), number(RuntimeFailure::outOfMemory));
        QCOMPARE(failureOf([&] { (void)File::contentOf(at("huge")); }), number(RuntimeFailure::outOfMemory));
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
    void removing_takes_the_file_away_and_fails_on_what_is_none() {
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
    void existence_is_told_of_files_and_folders_and_never_fails() {
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

QTEST_APPLESS_MAIN(FileTest)
#include "FileTest.moc"
