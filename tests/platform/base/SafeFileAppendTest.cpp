// SPDX-License-Identifier: MIT
// Appending: the bytes stand behind the rest or nothing does, and what another program does meanwhile stays.
#include "platform/base/Leftovers.h"
#include "support/FileWays.h"
#include "support/OtherProgram.h"
#include "support/TestMain.h"

using namespace torvane;

class SafeFileAppendTest : public FileWays {
    Q_OBJECT

    // What another program does while our bytes are asked for: behind the look at the length.
    std::optional<int> appendFailure(const char* name, const QByteArray& bytes,
                                     const std::function<void()>& meanwhile) const {
        // A reader keeps the lease away, which would hold up this process, too.
        QFile reader(at(name));
        if (!reader.open(QIODevice::ReadOnly)) qFatal("can't read");
        return failureOf([&] {
            SafeFile::append(at(name), [&](qint64) {
                meanwhile();
                return bytes;
            });
        });
    }
    // The same behind the last look, in a file that a reader holds open: nobody is held up then.
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

    void appended_bytes_stand_behind_the_rest_and_second_ones_behind_those() {
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
    void a_missing_file_is_not_made() {
        QCOMPARE(failureOf([&] { changeBy(Way::append, "gone"); }), number(RuntimeFailure::fileNotFound));
        expectNames({});
    }
    void a_full_disk_cuts_the_file_back_wherever_the_room_ends_data() {
        QTest::addColumn<int>("room");
        for (int room = 0; room < 8; ++room) QTest::addRow("%d bytes", room) << room;
    }
    void a_full_disk_cuts_the_file_back_wherever_the_room_ends() {
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
    void an_append_that_just_fits_is_made() {
        write("a.gb", QByteArray(1000, 'r'));
        {
            const FullDisk full(1008);
            changeBy(Way::append, "a.gb", "12345678");
        }
        QCOMPARE(read("a.gb"), QByteArray(1000, 'r') + "12345678");
    }
    void without_room_for_the_note_nothing_is_appended() {
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

    void what_another_program_appends_meanwhile_stays_and_is_told() {
        write("a.gb", "rom");
        const auto other = [&] { appendAsAnother("a.gb", "other"); };
        QCOMPARE(appendFailure("a.gb", "ours", other), number(RuntimeFailure::permissionDenied));
        QCOMPARE(read("a.gb"), QByteArray("romother"));
        QCOMPARE(lateAppendFailure("a.gb", "ours", other), number(RuntimeFailure::permissionDenied));
        QCOMPARE(read("a.gb").first(13), QByteArray("romotherother"));
        expectNames({QStringLiteral("a.gb")});
    }
    void what_another_program_appends_meanwhile_stays_although_the_disk_is_full() {
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
    void a_file_that_another_program_removes_meanwhile_is_told() {
        const auto remove = [&] { QFile::remove(at("a.gb")); };
        write("a.gb", "rom");
        QCOMPARE(appendFailure("a.gb", "ours", remove), number(RuntimeFailure::fileNotFound));
        write("a.gb", "rom");
        QCOMPARE(lateAppendFailure("a.gb", "ours", remove), number(RuntimeFailure::fileNotFound));
        expectNames({});
    }
    void a_file_that_another_program_replaces_meanwhile_stays_its_own() {
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
    void a_file_that_is_not_wanted_after_a_last_look_stays() {
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
    void nobody_opens_the_file_between_the_last_look_and_the_line() {
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
            // The system kills whoever writes beyond this size.
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
    void of_two_runs_that_append_at_once_each_line_is_whole() {
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
