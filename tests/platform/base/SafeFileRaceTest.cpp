// SPDX-License-Identifier: MIT
// What another program does exactly between two system calls, and file systems that lack a call: hooks run
// before these calls. An executable's own functions take precedence over those of the library.
#include "platform/base/SafeFile.h"
#include "support/FileFixture.h"
#include "support/TestMain.h"

#include <cstdio>
#include <fcntl.h>
#include <sys/syscall.h>

using namespace torvane;
using SafeFile::Change;

namespace {
// Each hook runs before its call, and returns 0 to let it through or an error to fail with.
std::function<int(unsigned flags)> beforeExchange;
std::function<int()> beforeLink;
std::function<int(off_t position)> beforeRead;

template <typename Hook, typename... Arguments>
bool fails(const Hook& hook, Arguments... arguments) {
    const int error = hook ? hook(arguments...) : 0;
    if (error != 0) errno = error;
    return error != 0;
}

ssize_t hookedRead(int file, void* bytes, size_t count, off_t position) {
    if (fails(beforeRead, position)) return -1;
    return syscall(SYS_pread64, file, bytes, count, position);
}
} // namespace

// NOLINTBEGIN: the signatures are those of the C library.
extern "C" int renameat2(int fromFolder, const char* from, int toFolder, const char* to,
                         unsigned flags) noexcept {
    if (fails(beforeExchange, flags)) return -1;
    return static_cast<int>(syscall(SYS_renameat2, fromFolder, from, toFolder, to, flags));
}
extern "C" int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept {
    if (fails(beforeLink)) return -1;
    return static_cast<int>(syscall(SYS_linkat, fromFolder, from, toFolder, to, flags));
}
extern "C" ssize_t pread(int file, void* bytes, size_t count, off_t position) {
    return hookedRead(file, bytes, count, position);
}
extern "C" ssize_t pread64(int file, void* bytes, size_t count, off_t position) {
    return hookedRead(file, bytes, count, position);
}
// NOLINTEND

class SafeFileRaceTest : public FileFixture {
    Q_OBJECT

    std::optional<int> commitFailure() const {
        return failureOf([&] { Change(at("a.gb")).commit({"ours"}); });
    }
    // How another program replaces a file.
    void moveOver(const char* from, const char* to) const {
        if (std::rename(folder->native(from).constData(), folder->native(to).constData()) != 0)
            qFatal("can't rename");
    }
    void expectOthersFile() const {
        QCOMPARE(read("a.gb"), QByteArray("other"));
        expectNames({QStringLiteral("a.gb")});
    }

private slots:
    void init() {
        renewFolder();
        write("a.gb", "former");
        makeOld("a.gb");
    }
    void cleanup() {
        beforeExchange = {};
        beforeLink = {};
        beforeRead = {};
    }

    void a_program_that_wins_the_race_against_the_exchange_gets_its_file_back() {
        write("other", "other");
        beforeExchange = [&, first = true](unsigned) mutable {
            if (first) moveOver("other", "a.gb");
            first = false;
            return 0;
        };
        QCOMPARE(commitFailure(), number(RuntimeFailure::permissionDenied));
        expectOthersFile();
    }
    void a_file_that_is_removed_right_before_the_exchange_stays_away() {
        beforeExchange = [&](unsigned) {
            QFile::remove(at("a.gb"));
            return 0;
        };
        QCOMPARE(commitFailure(), number(RuntimeFailure::fileNotFound));
        expectNames({});
    }
    void its_file_gets_its_name_back_even_if_ours_was_removed() {
        write("other", "other");
        beforeExchange = [&, calls = 0](unsigned) mutable {
            ++calls;
            if (calls == 1) moveOver("other", "a.gb");
            if (calls == 2) QFile::remove(at("a.gb"));
            return 0;
        };
        QCOMPARE(commitFailure(), number(RuntimeFailure::permissionDenied));
        expectOthersFile();
    }
    void its_file_is_not_removed_if_it_can_not_get_its_name_back() {
        write("other", "other");
        beforeExchange = [&, calls = 0](unsigned) mutable {
            ++calls;
            if (calls == 1) moveOver("other", "a.gb");
            return calls == 1 ? 0 : EIO;
        };
        QCOMPARE(commitFailure(), number(RuntimeFailure::permissionDenied));
        QByteArrayList found;
        for (const QString& name : folder->entries()) found << folder->read(name);
        QVERIFY(found.contains("other"));
    }
    void a_program_that_opens_it_for_writing_right_before_the_exchange_keeps_the_old_file() {
        beforeExchange = [&, first = true](unsigned) mutable {
            if (first) open(folder->native("a.gb").constData(), O_WRONLY | O_NONBLOCK);
            first = false;
            return 0;
        };
        const ino_t before = infoOf("a.gb").st_ino;
        QCOMPARE(commitFailure(), number(RuntimeFailure::permissionDenied));
        QCOMPARE(infoOf("a.gb").st_ino, before);
        expectNames({QStringLiteral("a.gb")});
    }
    void where_files_can_not_be_exchanged_the_new_one_replaces_the_old_data() {
        QTest::addColumn<int>("error");
        QTest::newRow("the file system does not know how") << EINVAL;
        QTest::newRow("the system does not") << ENOSYS;
    }
    void where_files_can_not_be_exchanged_the_new_one_replaces_the_old() {
        QFETCH(int, error);
        beforeExchange = [&](unsigned flags) { return flags != 0 ? error : 0; };
        QCOMPARE(commitFailure(), nothing);
        QCOMPARE(read("a.gb"), QByteArray("ours"));
        expectNames({QStringLiteral("a.gb")});
    }
    void a_failed_exchange_is_reported_and_leaves_the_old_file() {
        beforeExchange = [](unsigned) { return EIO; };
        QCOMPARE(commitFailure(), number(RuntimeFailure::deviceError));
        QCOMPARE(read("a.gb"), QByteArray("former"));
        expectNames({QStringLiteral("a.gb")});
    }
    void a_call_that_a_signal_interrupts_is_repeated() {
        int interruptions = 3;
        const auto interrupt = [&] { return interruptions-- > 0 ? EINTR : 0; };
        beforeExchange = [&](unsigned) { return interrupt(); };
        beforeRead = [&](off_t) { return interrupt(); };
        const Change change(at("a.gb"));
        QCOMPARE(change.readAt(0, 100), QByteArray("former"));
        interruptions = 3;
        change.commit({"ours"});
        QCOMPARE(read("a.gb"), QByteArray("ours"));
    }

    void where_links_are_refused_a_copy_of_the_old_file_is_kept_data() {
        QTest::addColumn<int>("error");
        for (const int error : {EPERM, EMLINK, EXDEV, ENOTSUP}) QTest::addRow("%d", error) << error;
    }
    void where_links_are_refused_a_copy_of_the_old_file_is_kept() {
        QFETCH(int, error);
        setMode("a.gb", 0600);
        beforeLink = [&] { return error; };
        for (const char* bytes : {"second", "third"}) {
            const Change change(at("a.gb"));
            change.keepBackup(at("backup"));
            QVERIFY(infoOf("backup/a.gb").st_ino != infoOf("a.gb").st_ino);
            change.commit({bytes});
        }
        QCOMPARE(read("backup/a.gb"), QByteArray("second"));
        QCOMPARE(modeOf("backup/a.gb"), 0600u); // a private file stays private
        expectNames({QStringLiteral("a.gb")}, "backup");
    }
    void a_full_disk_during_the_backup_copy_is_reported_and_leaves_the_last_backup() {
        write("backup/a.gb", "kept before");
        write("a.gb", QByteArray(5000, 'f'));
        beforeLink = [] { return EPERM; };
        std::optional<int> failure;
        {
            const FullDisk full(1000);
            failure = failureOf([&] { Change(at("a.gb")).keepBackup(at("backup")); });
        }
        QCOMPARE(failure, number(RuntimeFailure::diskFull));
        QCOMPARE(read("backup/a.gb"), QByteArray("kept before"));
        expectNames({QStringLiteral("a.gb")}, "backup");
    }
    void a_program_that_wins_the_race_against_the_link_does_not_replace_the_backup_data() {
        QTest::addColumn<int>("error");
        QTest::newRow("link") << 0;
        QTest::newRow("copy") << EPERM;
    }
    void a_program_that_wins_the_race_against_the_link_does_not_replace_the_backup() {
        QFETCH(int, error);
        write("backup/a.gb", "kept before");
        write("other", "other");
        beforeLink = [&] {
            moveOver("other", "a.gb");
            return error;
        };
        QCOMPARE(failureOf([&] { Change(at("a.gb")).keepBackup(at("backup")); }),
                 number(RuntimeFailure::permissionDenied));
        QCOMPARE(read("backup/a.gb"), QByteArray("kept before"));
        QCOMPARE(read("a.gb"), QByteArray("other"));
        expectNames({QStringLiteral("a.gb")}, "backup");
    }

    void a_source_that_changes_while_it_is_copied_is_reported_and_leaves_the_target_data() {
        QTest::addColumn<QByteArray>("deed");
        for (const char* deed : {"append", "truncate", "write"}) QTest::newRow(deed) << QByteArray(deed);
    }
    void a_source_that_changes_while_it_is_copied_is_reported_and_leaves_the_target() {
        QFETCH(QByteArray, deed);
        const QString source = write("source", QByteArray(3 << 20, 's'));
        makeOld("source");
        beforeRead = [&](off_t position) {
            QFile file(source);
            if (position == 0 || !file.open(QIODevice::ReadWrite)) return 0;
            if (deed == "append") file.seek(file.size());
            if (deed == "truncate") file.resize(2 << 20);
            if (deed != "truncate") file.write("changed");
            return 0;
        };
        QCOMPARE(failureOf([&] { SafeFile::copy(source, at("a.gb")); }),
                 number(RuntimeFailure::permissionDenied));
        QCOMPARE(read("a.gb"), QByteArray("former"));
        expectNames({QStringLiteral("a.gb"), QStringLiteral("source")});
    }
    void a_source_that_can_not_be_read_to_its_end_is_reported_and_leaves_the_target() {
        const QString source = write("source", QByteArray(3 << 20, 's'));
        beforeRead = [](off_t position) { return position == 0 ? 0 : EIO; };
        QCOMPARE(failureOf([&] { SafeFile::copy(source, at("a.gb")); }), number(RuntimeFailure::deviceError));
        QCOMPARE(read("a.gb"), QByteArray("former"));
        expectNames({QStringLiteral("a.gb"), QStringLiteral("source")});
    }
};

TORVANE_APPLESS_TEST(SafeFileRaceTest)
#include "SafeFileRaceTest.moc"
