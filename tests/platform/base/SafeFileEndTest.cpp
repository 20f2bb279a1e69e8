// SPDX-License-Identifier: MIT
// Changing the end of a file in place: what is ahead of it is never written, and where another program could
// see half of the change, the file is replaced instead.
#include "platform/base/Leftovers.h"
#include "platform/base/SafeFile.h"
#include "support/FileFixture.h"
#include "support/OtherProgram.h"
#include "support/TestMain.h"

#include <sys/resource.h>

using namespace torvane;
using SafeFile::Change;

namespace {
const QByteArray image(5000, 'i');
const QByteArray oldEnd = "the old end";
} // namespace

class SafeFileEndTest : public FileFixture {
    Q_OBJECT

    quint64 inodeOf(const char* name) const {
        struct stat info {};
        return stat(folder->native(name).constData(), &info) == 0 ? info.st_ino : 0;
    }
    // Returns whether the end was changed in place.
    bool changeEnd(const QByteArray& end, qint64 kept = image.size()) const {
        int calls = 0;
        const auto count = [&](const Handle& file) {
            calls += allBytesOf(file) == image.first(kept) + end ? 1 : 100;
        };
        Change(at("a.gb"), Change::Part::end).commitEnd(kept, {end.first(1), end.sliced(1)}, count);
        if (calls > 1) qFatal("the file is not as it was written");
        return calls == 1;
    }

private slots:
    void init() {
        renewFolder();
        write("a.gb", image + oldEnd);
    }

    void the_end_is_changed_in_the_same_file_data() {
        QTest::addColumn<QByteArray>("end");
        QTest::newRow("shorter") << QByteArray("new");
        QTest::newRow("as long") << QByteArray("the new end");
        QTest::newRow("longer") << QByteArray(3000, 'n');
        QTest::newRow("as it was") << oldEnd;
        QTest::newRow("longest") << QByteArray(64 << 10, 'n');
    }
    void the_end_is_changed_in_the_same_file() {
        QFETCH(QByteArray, end);
        const quint64 inode = inodeOf("a.gb");
        setMode("a.gb", 0640);
        QVERIFY(changeEnd(end));
        QCOMPARE(read("a.gb"), image + end);
        QCOMPARE(inodeOf("a.gb"), inode);
        QCOMPARE(modeOf("a.gb"), 0640u);
        expectNames({QStringLiteral("a.gb")});
    }
    void a_part_of_the_image_may_belong_to_the_end() {
        const quint64 inode = inodeOf("a.gb");
        QVERIFY(changeEnd("\r\n", 100));
        QCOMPARE(read("a.gb"), image.first(100) + "\r\n");
        QCOMPARE(inodeOf("a.gb"), inode);
    }
    void more_than_64_kib_are_replaced_instead_data() {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<QByteArray>("after");
        const QByteArray much((64 << 10) + 1, 'm');
        QTest::newRow("before") << much << QByteArray("new");
        QTest::newRow("after") << oldEnd << much;
    }
    void more_than_64_kib_are_replaced_instead() {
        QFETCH(QByteArray, before);
        QFETCH(QByteArray, after);
        write("a.gb", image + before);
        const quint64 inode = inodeOf("a.gb");
        QVERIFY(!changeEnd(after));
        QCOMPARE(read("a.gb"), image + after);
        QVERIFY(inodeOf("a.gb") != inode);
        expectNames({QStringLiteral("a.gb")});
    }
    void another_link_keeps_the_old_end() {
        QCOMPARE(link(folder->native("a.gb").constData(), folder->native("b.gb").constData()), 0);
        QVERIFY(!changeEnd("new"));
        QCOMPARE(read("a.gb"), image + "new");
        QCOMPARE(read("b.gb"), image + oldEnd);
    }
    void a_link_that_is_made_meanwhile_keeps_the_old_end() {
        std::optional<Change> change(std::in_place, at("a.gb"), Change::Part::end);
        QCOMPARE(link(folder->native("a.gb").constData(), folder->native("b.gb").constData()), 0);
        change->commitEnd(image.size(), {"new"});
        change.reset(); // which would keep this test from reading the file
        QCOMPARE(read("a.gb"), image + "new");
        QCOMPARE(read("b.gb"), image + oldEnd);
    }
    void a_program_that_is_reading_the_file_keeps_its_content() {
        QFile emulator(at("a.gb"));
        QVERIFY(emulator.open(QIODevice::ReadOnly));
        QVERIFY(!changeEnd("new"));
        QCOMPARE(read("a.gb"), image + "new");
        QCOMPARE(emulator.readAll(), image + oldEnd);
    }
    void without_leases_the_file_is_replaced() {
        if (geteuid() != 0) QSKIP("only on a file of another user no lease can be had");
        setMode("a.gb", 0666);
        setMode(".", 0777);
        const OrdinaryUser user;
        QVERIFY(!changeEnd("new"));
        QCOMPARE(read("a.gb"), image + "new");
    }
    void a_program_that_opens_it_meanwhile_waits_and_sees_the_whole_change_data() {
        QTest::addColumn<qsizetype>("size");
        QTest::newRow("in place") << qsizetype(3000);
        QTest::newRow("replaced") << qsizetype(70000);
    }
    void a_program_that_opens_it_meanwhile_waits_and_sees_the_whole_change() {
        QFETCH(qsizetype, size);
        const QByteArray end(size, 'n');
        std::optional<Change> change(std::in_place, at("a.gb"), Change::Part::end);
        OtherProgram reader(
            [&] {
                if (open(folder->native("a.gb").constData(), O_RDONLY | O_NONBLOCK) >= 0) _exit(1);
            },
            [&] {
                const Handle file(open(folder->native("a.gb").constData(), O_RDONLY));
                const QByteArray found = allBytesOf(file);
                if (found != image + end && found != image + oldEnd) _exit(2);
            });
        change->commitEnd(image.size(), {end});
        change.reset();
        QCOMPARE(reader.end(), 0);
        QCOMPARE(read("a.gb"), image + end);
    }
    void a_file_that_another_program_holds_open_for_writing_is_refused() {
        QFile writer(at("a.gb"));
        QVERIFY(writer.open(QIODevice::ReadWrite));
        QCOMPARE(failureOf([&] { changeEnd("new"); }), number(RuntimeFailure::permissionDenied));
        QCOMPARE(read("a.gb"), image + oldEnd);
        expectNames({QStringLiteral("a.gb")});
    }
    void what_another_program_does_to_its_name_meanwhile_is_never_overwritten_data() {
        QTest::addColumn<QString>("deed");
        QTest::newRow("replaces it") << QStringLiteral("mv -f other a.gb");
        QTest::newRow("removes it") << QStringLiteral("rm a.gb");
        QTest::newRow("renames it") << QStringLiteral("mv a.gb b.gb");
        QTest::newRow("puts a link in its place") << QStringLiteral("rm a.gb && ln -s other a.gb");
        QTest::newRow("puts a folder in its place") << QStringLiteral("rm a.gb && mkdir a.gb");
    }
    void what_another_program_does_to_its_name_meanwhile_is_never_overwritten() {
        QFETCH(QString, deed);
        write("other", "other!");
        std::optional<Change> change(std::in_place, at("a.gb"), Change::Part::end);
        const QByteArray command = "cd " + folder->native("") + " && " + deed.toUtf8();
        QCOMPARE(std::system(command.constData()), 0);
        const QStringList names = folder->entries();
        const QByteArray moved = names.contains(QStringLiteral("b.gb")) ? image + oldEnd : QByteArray();
        QCOMPARE(failureOf([&] { change->commitEnd(image.size(), {"new"}); }),
                 number(RuntimeFailure::permissionDenied));
        change.reset(); // which would keep this test from reading the file
        expectNames(names);
        if (!moved.isEmpty()) QCOMPARE(read("b.gb"), moved);
        if (names.contains(QStringLiteral("other"))) QCOMPARE(read("other"), QByteArray("other!"));
    }
    void on_a_full_disk_the_old_end_comes_back_wherever_space_ends_data() {
        QTest::addColumn<int>("room");
        for (const int room : {0, 1, 5, 11, 12, 500, 2999}) QTest::addRow("%d bytes", room) << room;
    }
    void on_a_full_disk_the_old_end_comes_back_wherever_space_ends() {
        QFETCH(int, room);
        std::optional<int> failure;
        {
            const FullDisk full(static_cast<rlim_t>(image.size() + std::max<qint64>(room, oldEnd.size())));
            failure = failureOf([&] { changeEnd(QByteArray(3000, 'n')); });
        }
        QCOMPARE(failure, number(RuntimeFailure::diskFull));
        QCOMPARE(read("a.gb"), image + oldEnd);
        expectNames({QStringLiteral("a.gb")});
    }
    void a_change_that_is_abandoned_leaves_everything() {
        { const Change change(at("a.gb"), Change::Part::end); }
        QCOMPARE(read("a.gb"), image + oldEnd);
        expectNames({QStringLiteral("a.gb")});
    }
};

TORVANE_APPLESS_TEST(SafeFileEndTest)
#include "SafeFileEndTest.moc"
