// SPDX-License-Identifier: MIT
// A change from reading a file to replacing it, what other programs do to it meanwhile, and where the old
// file is kept.
#include "platform/base/File.h"
#include "platform/base/Leftovers.h"
#include "platform/base/SafeFile.h"
#include "support/FileFixture.h"
#include "support/OtherProgram.h"
#include "support/TestMain.h"

#include <fcntl.h>

using namespace torvane;
using SafeFile::Change;

namespace {
const QString kept = QStringLiteral("\\data\\backup");

std::optional<int> commitFailure(const Change& change) {
    return failureOf([&] { change.commit({"ours"}); });
}

// A folder on another file system than the file; empty if there is none.
QByteArray elsewhere(const QByteArray& file) {
    QByteArray made = "/dev/shm/torvane-test-XXXXXX";
    struct stat here {};
    struct stat there {};
    const bool differs = stat(file.constData(), &here) == 0 && stat("/dev/shm", &there) == 0 &&
                         here.st_dev != there.st_dev && mkdtemp(made.data()) != nullptr;
    return differs ? made : QByteArray();
}
} // namespace

class SafeFileChangeTest : public FileFixture {
    Q_OBJECT

    // Opens the game for writing as another program does, without waiting; returns the error.
    int openForWriting(const char* name) const {
        const int handle = open(folder->native(name).constData(), O_WRONLY | O_NONBLOCK);
        if (handle < 0) return errno;
        close(handle);
        return 0;
    }

private slots:
    void init() {
        renewFolder();
        write("a.gb", "former");
        makeOld("a.gb");
    }

    void a_change_reads_the_file_and_replaces_it_by_the_pieces() {
        const Change change(at("a.gb"));
        QCOMPARE(change.length(), 6);
        QCOMPARE(change.readAt(0, 100), QByteArray("former"));
        QCOMPARE(change.readAt(2, 3), QByteArray("rme"));
        QCOMPARE(change.readAt(4, 100), QByteArray("er"));
        change.commit({"one", QByteArrayView(), QByteArrayView("\0two", 4)});
        QCOMPARE(read("a.gb"), QByteArray("one\0two", 7));
        expectNames({QStringLiteral("a.gb")});
    }
    void an_abandoned_change_leaves_everything() {
        const struct stat before = infoOf("a.gb");
        { const Change change(at("a.gb")); }
        QCOMPARE(infoOf("a.gb").st_ino, before.st_ino);
        QCOMPARE(openForWriting("a.gb"), 0);
        expectNames({QStringLiteral("a.gb")});
    }
    void a_second_commit_of_one_change_is_refused() {
        const Change change(at("a.gb"));
        change.commit({"first"});
        QCOMPARE(commitFailure(change), number(RuntimeFailure::permissionDenied));
        QCOMPARE(read("a.gb"), QByteArray("first"));
        expectNames({QStringLiteral("a.gb")});
    }
    void what_another_program_does_meanwhile_is_never_overwritten_data() {
        QTest::addColumn<QString>("deed");
        QTest::addColumn<QByteArray>("after");
        QTest::newRow("replaces it") << QStringLiteral("mv -f other a.gb") << QByteArray("other!");
        QTest::newRow("removes it") << QStringLiteral("rm a.gb") << QByteArray("(unreadable)");
        QTest::newRow("renames it") << QStringLiteral("mv a.gb b.gb") << QByteArray("(unreadable)");
        QTest::newRow("renames it and makes another")
            << QStringLiteral("mv a.gb b.gb && cp other a.gb") << QByteArray("other!");
        QTest::newRow("puts a link in its place")
            << QStringLiteral("rm a.gb && ln -s other a.gb") << QByteArray("other!");
        QTest::newRow("puts a folder in its place")
            << QStringLiteral("rm a.gb && mkdir a.gb") << QByteArray("(unreadable)");
        QTest::newRow("exchanges it with a copy of it")
            << QStringLiteral("cp -p a.gb same && mv -f same a.gb") << QByteArray("former");
    }
    void what_another_program_does_meanwhile_is_never_overwritten() {
        QFETCH(QString, deed);
        QFETCH(QByteArray, after);
        write("other", "other!");
        const Change change(at("a.gb"));
        const QByteArray command = "cd " + folder->native("") + " && " + deed.toUtf8();
        QCOMPARE(std::system(command.constData()), 0);
        const QStringList names = folder->entries();
        QCOMPARE(commitFailure(change), number(RuntimeFailure::permissionDenied));
        QCOMPARE(read("a.gb"), after);
        expectNames(names);
    }
    void without_leases_what_another_program_writes_is_not_overwritten_either_data() {
        QTest::addColumn<QString>("deed");
        QTest::addColumn<QByteArray>("after");
        QTest::newRow("appends") << QStringLiteral("printf + >> a.gb") << QByteArray("former+");
        QTest::newRow("appends and sets the time back")
            << QStringLiteral("printf + >> a.gb && touch -d @1000000000.123456789 a.gb")
            << QByteArray("former+");
        QTest::newRow("truncates") << QStringLiteral("truncate -s 2 a.gb") << QByteArray("fo");
        QTest::newRow("empties") << QStringLiteral(": > a.gb") << QByteArray();
        QTest::newRow("writes as many bytes")
            << QStringLiteral("printf other! > a.gb") << QByteArray("other!");
    }
    void without_leases_what_another_program_writes_is_not_overwritten_either() {
        QFETCH(QString, deed);
        QFETCH(QByteArray, after);
        if (geteuid() != 0) QSKIP("only on a file of another user no lease can be had");
        setMode("a.gb", 0666);
        setMode(".", 0777);
        std::optional<OrdinaryUser> user(std::in_place);
        const Change change(at("a.gb"));
        user.reset();
        const QByteArray command = "cd " + folder->native("") + " && " + deed.toUtf8();
        QCOMPARE(std::system(command.constData()), 0);
        QCOMPARE(commitFailure(change), number(RuntimeFailure::permissionDenied));
        QCOMPARE(read("a.gb"), after);
        expectNames({QStringLiteral("a.gb")});
    }
    void without_leases_an_untouched_file_is_changed() {
        setMode("a.gb", 0666);
        setMode(".", 0777);
        const OrdinaryUser user;
        Change(at("a.gb")).commit({"ours"});
        QCOMPARE(read("a.gb"), QByteArray("ours"));
    }
    void a_program_that_opens_it_for_writing_meanwhile_waits_and_then_writes_to_the_old_file() {
        std::optional<Change> change(at("a.gb"));
        OtherProgram writer(
            [&] {
                // This open does not wait, but is noticed all the same.
                if (openForWriting("a.gb") != EWOULDBLOCK) _exit(1);
            },
            [&] {
                const int handle = open(folder->native("a.gb").constData(), O_WRONLY);
                if (handle < 0 || ::write(handle, "OTHER", 5) != 5) _exit(2);
            });
        // The default action of a lease-break signal would kill a process that does not choose another
        // signal.
        QCOMPARE(commitFailure(*change), number(RuntimeFailure::permissionDenied));
        QCOMPARE(read("a.gb"), QByteArray("former"));
        expectNames({QStringLiteral("a.gb")});
        change.reset();
        QCOMPARE(writer.end(), 0);
        QCOMPARE(read("a.gb"), QByteArray("OTHERr"));
    }
    void a_file_that_another_program_holds_open_for_writing_is_refused_data() {
        QTest::addColumn<int>("flags");
        QTest::newRow("writing") << O_WRONLY;
        QTest::newRow("reading and writing") << O_RDWR;
        QTest::newRow("appending") << (O_WRONLY | O_APPEND);
    }
    void a_file_that_another_program_holds_open_for_writing_is_refused() {
        QFETCH(int, flags);
        OtherProgram writer([&] {
            if (open(folder->native("a.gb").constData(), flags) < 0) _exit(1);
        });
        QCOMPARE(failureOf([&] { const Change change(at("a.gb")); }),
                 number(RuntimeFailure::permissionDenied));
        QCOMPARE(writer.end(), 0);
        Change(at("a.gb")).commit({"ours"});
        QCOMPARE(read("a.gb"), QByteArray("ours"));
    }
    void another_run_does_not_sweep_the_old_file_while_it_has_a_hidden_name() {
        const Change change(at("a.gb"));
        QVERIFY(QFile::rename(at("a.gb"), at(".torvane-abcdef")));
        QCOMPARE(inOtherProgram([&] { Leftovers::sweep(folder->path()); }), 0);
        QCOMPARE(read(".torvane-abcdef"), QByteArray("former"));
    }
    void an_emulator_that_is_reading_it_is_no_obstacle_and_keeps_its_content() {
        QFile emulator(at("a.gb"));
        QVERIFY(emulator.open(QIODevice::ReadOnly));
        const Change change(at("a.gb"));
        QFile second(at("a.gb"));
        QVERIFY(second.open(QIODevice::ReadOnly));
        change.commit({"ours"});
        QCOMPARE(read("a.gb"), QByteArray("ours"));
        QCOMPARE(emulator.readAll(), QByteArray("former"));
        QCOMPARE(second.readAll(), QByteArray("former"));
    }

    void the_old_file_is_kept_as_a_second_link_in_a_new_folder() {
        const ino_t previous = infoOf("a.gb").st_ino;
        const Change change(at("a.gb"));
        change.keepBackup(folder->path() + kept);
        QCOMPARE(infoOf("data/backup/a.gb").st_ino, previous);
        change.commit({"ours"});
        QCOMPARE(read("a.gb"), QByteArray("ours"));
        QCOMPARE(infoOf("data/backup/a.gb").st_ino, previous);
        QCOMPARE(read("data/backup/a.gb"), QByteArray("former"));
        expectNames({QStringLiteral("a.gb"), QStringLiteral("data")});
        expectNames({QStringLiteral("a.gb")}, "data/backup");
    }
    void the_newest_of_each_name_is_kept() {
        write("b.gb", "another");
        for (const char* bytes : {"second", "third"}) {
            for (const char* name : {"a.gb", "b.gb"}) {
                const Change change(at(name));
                change.keepBackup(folder->path() + kept);
                change.commit({bytes, name});
            }
        }
        QCOMPARE(read("data/backup/a.gb"), QByteArray("seconda.gb"));
        QCOMPARE(read("data/backup/b.gb"), QByteArray("secondb.gb"));
        expectNames({QStringLiteral("a.gb"), QStringLiteral("b.gb")}, "data/backup");
    }
    void keeping_twice_leaves_one_name() {
        const Change change(at("a.gb"));
        change.keepBackup(folder->path() + kept);
        change.keepBackup(folder->path() + kept);
        QCOMPARE(read("data/backup/a.gb"), QByteArray("former"));
        expectNames({QStringLiteral("a.gb")}, "data/backup");
    }
    void it_is_kept_under_another_name_beside_the_file() {
        for (const char* bytes : {"second", "third"}) {
            const Change change(at("a.gb"));
            change.keepBackup(folder->path(), "a.bak");
            change.commit({bytes});
        }
        QCOMPARE(read("a.gb"), QByteArray("third"));
        QCOMPARE(read("a.bak"), QByteArray("second"));
        expectNames({QStringLiteral("a.bak"), QStringLiteral("a.gb")});
    }
    void names_that_differ_only_in_case_are_kept_apart() {
        write("A.gb", "other game");
        for (const char* name : {"a.gb", "A.gb"}) Change(at(name)).keepBackup(folder->path() + kept);
        QCOMPARE(read("data/backup/a.gb"), QByteArray("former"));
        QCOMPARE(read("data/backup/A.gb"), QByteArray("other game"));
    }
    void on_another_file_system_a_copy_is_kept_with_the_same_permissions_and_time() {
        const QByteArray other = elsewhere(folder->native("a.gb"));
        if (other.isEmpty()) QSKIP("no second file system");
        setMode("a.gb", 0640);
        const Change change(at("a.gb"));
        change.keepBackup(QString::fromUtf8(other) + kept);
        change.commit({"ours"});
        const QByteArray name = other + "/data/backup/a.gb";
        struct stat info {};
        const int isThere = stat(name.constData(), &info);
        const QByteArray bytes = File::contentOf(QString::fromUtf8(name));
        const QStringList names = QDir(QString::fromUtf8(other) + QStringLiteral("/data/backup"))
                                      .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
        std::filesystem::remove_all(other.toStdString());
        QCOMPARE(isThere, 0);
        QCOMPARE(bytes, QByteArray("former"));
        QCOMPARE(info.st_mode & 07777, 0640u);
        QCOMPARE(info.st_mtim.tv_sec, longAgo.tv_sec);
        QCOMPARE(names, QStringList{QStringLiteral("a.gb")});
    }
    void a_folder_that_can_not_be_made_or_written_is_reported_and_the_file_stays_data() {
        QTest::addColumn<QString>("obstacle");
        for (const char* name : {"file", "shut", "taken"}) QTest::newRow(name) << QString::fromLatin1(name);
    }
    void a_folder_that_can_not_be_made_or_written_is_reported_and_the_file_stays() {
        QFETCH(QString, obstacle);
        write("file", "x");
        folder->makeFolder(QStringLiteral("shut/in"));
        folder->makeFolder(QStringLiteral("taken/a.gb"));
        setMode("a.gb", 0666);
        setMode("shut/in", 0555);
        setMode("taken", 0777);
        const QString where = obstacle == QStringLiteral("shut") ? QStringLiteral("shut/in/new") : obstacle;
        {
            const OrdinaryUser user;
            const Change change(at("a.gb"));
            QVERIFY(failureOf([&] { change.keepBackup(folder->path(where)); }).has_value());
        }
        setMode("shut/in", 0755);
        QCOMPARE(read("a.gb"), QByteArray("former"));
        expectNames({QStringLiteral("a.gb")}, "taken");
        expectNames({}, "shut/in");
    }
};

TORVANE_APPLESS_TEST(SafeFileChangeTest)
#include "SafeFileChangeTest.moc"
