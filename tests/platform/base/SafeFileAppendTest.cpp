// SPDX-License-Identifier: MIT
// Appending: all bytes or none are appended, and what another program does meanwhile is preserved.
#include "platform/base/Leftovers.h"
#include "support/FileWays.h"
#include "support/OtherProgram.h"
#include "support/TestMain.h"

using namespace torvane;

class SafeFileAppendTest : public FileWays {
    Q_OBJECT

    // Another program's action while our bytes are being made, after the length was read.
    std::optional<int> appendFailure(const char* name, const QByteArray& bytes,
                                     const std::function<void()>& meanwhile) const {
        // A reader prevents the lease, which would block this process, too.
        QFile reader(at(name));
        if (!reader.open(QIODevice::ReadOnly)) qFatal("can't read");
        return failureOf([&] {
            SafeFile::append(at(name), [&](qint64) {
                meanwhile();
                return bytes;
            });
        });
    }
    // The same after the last check, in a file that a reader holds open: then nobody is blocked.
    std::optional<int> lateAppendFailure(const char* name, const QByteArray& bytes,
                                         const std::function<void()>& meanwhile) const {
        QFile reader(at(name));
        if (!reader.open(QIODevice::ReadOnly)) qFatal("can't read");
        const auto doMeanwhile = [&](const Handle&) {
            meanwhile();
            return true;
        };
        return failureOf([&] {
            SafeFile::append(
                at(name), [&](qint64) { return bytes; }, doMeanwhile);
        });
    }
    void appendAsAnother(const char* name, const QByteArray& bytes) const {
        QFile file(at(name));
        if (!file.open(QIODevice::Append) || file.write(bytes) != bytes.size()) qFatal("can't append");
    }

private slots:
    void init() { renewFolder(); }

    void appended_bytes_follow_the_rest_and_later_ones_follow_those() {
        const QString path = write("a.gb", "rom");
        QList<qint64> lengths;
        for (const QByteArray& bytes : {QByteArray("one"), QByteArray(), QByteArray("\0\r\n", 3)}) {
            SafeFile::append(path, [&](qint64 length) {
                lengths.append(length);
                return bytes;
            });
        }
        QCOMPARE(read("a.gb"), QByteArray("romone\0\r\n", 9));
        QCOMPARE(lengths, (QList<qint64>{3, 6, 6}));
        expectNames({QStringLiteral("a.gb")});
    }
    void a_missing_file_is_not_created() {
        QCOMPARE(failureOf([&] { changeBy(Way::append, "gone"); }), number(RuntimeFailure::fileNotFound));
        expectNames({});
    }
    void on_a_full_disk_the_file_is_cut_back_wherever_space_ends_data() {
        QTest::addColumn<int>("room");
        for (int room = 0; room < 8; ++room) QTest::addRow("%d bytes", room) << room;
    }
    void on_a_full_disk_the_file_is_cut_back_wherever_space_ends() {
        QFETCH(int, room);
        write("a.gb", QByteArray(1000, 'r'));
        std::optional<int> failure;
        {
            const FullDisk full(static_cast<rlim_t>(1000 + room));
            failure = failureOf([&] { changeBy(Way::append, "a.gb", "12345678"); });
        }
        QCOMPARE(failure, number(RuntimeFailure::diskFull));
        QCOMPARE(read("a.gb"), QByteArray(1000, 'r'));
        expectNames({QStringLiteral("a.gb")});
    }
    void an_append_that_just_fits_succeeds() {
        write("a.gb", QByteArray(1000, 'r'));
        {
            const FullDisk full(1008);
            changeBy(Way::append, "a.gb", "12345678");
        }
        QCOMPARE(read("a.gb"), QByteArray(1000, 'r') + "12345678");
    }
    void without_space_for_the_note_nothing_is_appended() {
        write("a.gb", "rom");
        std::optional<int> failure;
        {
            const FullDisk full(20);
            failure = failureOf([&] { changeBy(Way::append, "a.gb", "12345678"); });
        }
        QCOMPARE(failure, number(RuntimeFailure::diskFull));
        QCOMPARE(read("a.gb"), QByteArray("rom"));
        expectNames({QStringLiteral("a.gb")});
    }
    void bytes_that_no_note_can_hold_are_not_appended() {
        write("a.gb", "rom");
        QCOMPARE(failureOf([&] { changeBy(Way::append, "a.gb", QByteArray(65 << 20, 'x')); }),
                 number(RuntimeFailure::outOfMemory));
        QCOMPARE(read("a.gb"), QByteArray("rom"));
        expectNames({QStringLiteral("a.gb")});
    }
    void a_failure_in_making_the_bytes_leaves_the_file() {
        const QString path = write("a.gb", "rom");
        const auto failing = [](qint64) -> QByteArray { throw RuntimeFailure(RuntimeFailure::overflow); };
        QCOMPARE(failureOf([&] { SafeFile::append(path, failing); }), number(RuntimeFailure::overflow));
        QCOMPARE(read("a.gb"), QByteArray("rom"));
        expectNames({QStringLiteral("a.gb")});
    }

    void what_another_program_appends_meanwhile_stays_and_is_reported() {
        write("a.gb", "rom");
        const auto other = [&] { appendAsAnother("a.gb", "other"); };
        QCOMPARE(appendFailure("a.gb", "ours", other), number(RuntimeFailure::permissionDenied));
        QCOMPARE(read("a.gb"), QByteArray("romother"));
        QCOMPARE(lateAppendFailure("a.gb", "ours", other), number(RuntimeFailure::permissionDenied));
        QCOMPARE(read("a.gb").first(13), QByteArray("romotherother"));
        expectNames({QStringLiteral("a.gb")});
    }
    void what_another_program_appends_meanwhile_stays_even_on_a_full_disk() {
        write("a.gb", QByteArray(1000, 'r'));
        std::optional<int> failure;
        {
            const FullDisk full(1005);
            failure = lateAppendFailure("a.gb", "our longer line", [&] { appendAsAnother("a.gb", "other"); });
        }
        QCOMPARE(failure, number(RuntimeFailure::diskFull));
        QCOMPARE(read("a.gb"), QByteArray(1000, 'r') + "other");
    }
    void a_file_that_another_program_cuts_meanwhile_is_not_filled_up_again() {
        write("a.gb", QByteArray(1000, 'r'));
        const auto cut = [&] { QFile::resize(at("a.gb"), 10); };
        QCOMPARE(appendFailure("a.gb", "ours", cut), number(RuntimeFailure::permissionDenied));
        QCOMPARE(read("a.gb"), QByteArray(10, 'r'));
        const auto cutMore = [&] { QFile::resize(at("a.gb"), 5); };
        QCOMPARE(lateAppendFailure("a.gb", "ours", cutMore), number(RuntimeFailure::permissionDenied));
        QCOMPARE(read("a.gb").first(5), QByteArray(5, 'r'));
        QVERIFY(read("a.gb").size() <= 9);
    }
    void a_file_that_another_program_removes_meanwhile_is_reported() {
        const auto remove = [&] { QFile::remove(at("a.gb")); };
        write("a.gb", "rom");
        QCOMPARE(appendFailure("a.gb", "ours", remove), number(RuntimeFailure::fileNotFound));
        write("a.gb", "rom");
        QCOMPARE(lateAppendFailure("a.gb", "ours", remove), number(RuntimeFailure::fileNotFound));
        expectNames({});
    }
    void a_file_that_another_program_replaces_meanwhile_is_left_alone() {
        const auto replace = [&] { SafeFile::replace(at("a.gb"), "another rom"); };
        for (const bool isLate : {false, true}) {
            write("a.gb", "rom");
            const std::optional<int> failure =
                isLate ? lateAppendFailure("a.gb", "ours", replace) : appendFailure("a.gb", "ours", replace);
            QCOMPARE(failure, number(RuntimeFailure::fileNotFound));
            QCOMPARE(read("a.gb"), QByteArray("another rom"));
        }
        expectNames({QStringLiteral("a.gb")});
    }
    void a_file_that_fails_the_last_check_is_left_alone() {
        const QString path = write("a.gb", "rom");
        const auto bytes = [](qint64) { return QByteArray("new"); };
        QByteArray seen;
        QVERIFY(!SafeFile::append(path, bytes, [&](const Handle& file) {
            seen = allBytesOf(file);
            return false;
        }));
        QCOMPARE(seen, QByteArray("rom"));
        QCOMPARE(read("a.gb"), QByteArray("rom"));
        expectNames({QStringLiteral("a.gb")});
        QVERIFY(SafeFile::append(path, bytes, [](const Handle&) { return true; }));
        QCOMPARE(read("a.gb"), QByteArray("romnew"));
    }
    void nobody_opens_the_file_between_the_last_check_and_the_write() {
        const QString path = write("a.gb", "rom");
        int reason = 0;
        const auto openMeanwhile = [&](const Handle&) {
            const QByteArray name = folder->native("a.gb");
            reason = WEXITSTATUS(inOtherProgram(
                [&] { _exit(open(name.constData(), O_WRONLY | O_NONBLOCK) < 0 ? errno : 0); }));
            return true;
        };
        QVERIFY(SafeFile::append(
            path, [](qint64) { return QByteArray("new"); }, openMeanwhile));
        QCOMPARE(reason, EWOULDBLOCK);
        QCOMPARE(read("a.gb"), QByteArray("romnew"));
    }
    void a_file_that_another_program_holds_open_for_writing_is_refused() {
        write("a.gb", "rom");
        OtherProgram writer([&] {
            if (open(folder->native("a.gb").constData(), O_WRONLY) < 0) _exit(1);
        });
        QCOMPARE(failureOf([&] { changeBy(Way::append, "a.gb"); }), number(RuntimeFailure::permissionDenied));
        QCOMPARE(writer.end(), 0);
        QCOMPARE(read("a.gb"), QByteArray("rom"));
        changeBy(Way::append, "a.gb");
        QCOMPARE(read("a.gb"), QByteArray("romnew"));
    }
    void a_reader_that_holds_the_file_open_sees_the_line() {
        write("a.gb", "rom");
        QFile reader(at("a.gb"));
        QVERIFY(reader.open(QIODevice::ReadOnly));
        changeBy(Way::append, "a.gb");
        QCOMPARE(reader.readAll(), QByteArray("romnew"));
    }

    void half_a_line_of_a_killed_run_is_cut_at_a_later_start_data() {
        QTest::addColumn<int>("written");
        for (const int written : {0, 1, 4000, 9999}) QTest::addRow("%d bytes", written) << written;
    }
    void half_a_line_of_a_killed_run_is_cut_at_a_later_start() {
        QFETCH(int, written);
        const QByteArray rom(50000, 'r');
        write("a.gb", rom);
        const int status = inOtherProgram([&] {
            // The system kills a process that writes beyond this size.
            const rlimit limit{static_cast<rlim_t>(rom.size() + written), RLIM_INFINITY};
            setrlimit(RLIMIT_FSIZE, &limit);
            changeBy(Way::append, "a.gb", QByteArray(10000, 'l'));
        });
        QVERIFY(WIFSIGNALED(status) && WTERMSIG(status) == SIGXFSZ);
        QCOMPARE(read("a.gb").size(), rom.size() + written);
        QCOMPARE(folder->entries().size(), 2);
        Leftovers::sweep(folder->path());
        QCOMPARE(read("a.gb"), rom);
        expectNames({QStringLiteral("a.gb")});
    }
    void two_runs_that_append_at_once_both_write_whole_lines() {
        write("a.gb", "rom");
        const QByteArray line(3000, 'l');
        const OtherProgram other([&] {
            for (int i = 0; i < 200; ++i) failureOf([&] { changeBy(Way::append, "a.gb", line); });
        });
        for (int i = 0; i < 200; ++i) failureOf([&] { changeBy(Way::append, "a.gb", line); });
        const QByteArray after = read("a.gb");
        QVERIFY(after.startsWith("rom"));
        QCOMPARE((after.size() - 3) % line.size(), 0);
        QCOMPARE(after.count('l'), after.size() - 3);
    }
};

TORVANE_APPLESS_TEST(SafeFileAppendTest)
#include "SafeFileAppendTest.moc"
