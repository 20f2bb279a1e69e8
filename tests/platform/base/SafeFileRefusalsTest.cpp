// SPDX-License-Identifier: MIT
// What every way to change a file refuses, leaving the file as it was; and what it accepts.
#include "support/FileWays.h"
#include "support/TestMain.h"

#include <sys/socket.h>
#include <sys/sysmacros.h>
#include <sys/un.h>

using namespace torvane;

class SafeFileRefusalsTest : public FileWays {
    Q_OBJECT

private slots:
    void init() {
        renewFolder();
        write("source", "new");
    }

    void a_read_only_file_is_refused_even_in_a_writable_folder_data() { wayRows(); }
    void a_read_only_file_is_refused_even_in_a_writable_folder() {
        QFETCH(Way, way);
        write("open/a.gb", "former");
        setMode("open/a.gb", 0444);
        setMode("open", 0777);
        {
            const OrdinaryUser user;
            QCOMPARE(failureBy(way, "open/a.gb"), number(RuntimeFailure::permissionDenied));
        }
        QCOMPARE(read("open/a.gb"), QByteArray("former"));
        expectNames({QStringLiteral("a.gb")}, "open");
    }
    void a_read_only_folder_is_refused_data() { wayRows(); }
    void a_read_only_folder_is_refused() {
        QFETCH(Way, way);
        write("shut/a.gb", "former");
        setMode("shut/a.gb", 0666);
        setMode("shut", 0555);
        {
            const OrdinaryUser user;
            QCOMPARE(failureBy(way, "shut/a.gb"), number(RuntimeFailure::permissionDenied));
        }
        setMode("shut", 0755);
        QCOMPARE(read("shut/a.gb"), QByteArray("former"));
        expectNames({QStringLiteral("a.gb")}, "shut");
    }
    void a_writable_but_unreadable_folder_is_no_failure_data() { wayRows(); }
    void a_writable_but_unreadable_folder_is_no_failure() {
        QFETCH(Way, way);
        write("drop/a.gb", "former");
        setMode("drop/a.gb", 0666);
        setMode("drop", 0333);
        {
            const OrdinaryUser user;
            QCOMPARE(failureBy(way, "drop/a.gb"), nothing);
        }
        setMode("drop", 0755);
        QCOMPARE(read("drop/a.gb"), changed(way));
        expectNames({QStringLiteral("a.gb")}, "drop");
    }
    void anything_but_a_file_is_refused_at_once_and_stays_data() {
        QTest::addColumn<Way>("way");
        QTest::addColumn<QByteArray>("name");
        for (const char* name : {"folder", "pipe", "link to folder", "link to pipe", "device", "socket"}) {
            QTest::addRow("replace %s", name) << Way::replace << QByteArray(name);
            QTest::addRow("copy onto %s", name) << Way::copy << QByteArray(name);
            QTest::addRow("change %s", name) << Way::change << QByteArray(name);
            QTest::addRow("append to %s", name) << Way::append << QByteArray(name);
        }
    }
    void anything_but_a_file_is_refused_at_once_and_stays() {
        QFETCH(Way, way);
        QFETCH(QByteArray, name);
        makeWhatIsNoFile();
        const mode_t before = infoOf(name.constData()).st_mode;
        const QStringList names = folder->entries();
        QCOMPARE(failureBy(way, name.constData()), number(RuntimeFailure::pathAccess));
        QCOMPARE(infoOf(name.constData()).st_mode, before);
        QVERIFY(S_ISFIFO(infoOf("pipe").st_mode));
        QVERIFY(folder->entries(QStringLiteral("folder")).isEmpty());
        expectNames(names);
    }
    void anything_but_a_file_is_not_copied_data() {
        QTest::addColumn<QByteArray>("name");
        for (const char* name : {"folder", "pipe", "link to folder", "device", "socket"})
            QTest::newRow(name) << QByteArray(name);
    }
    void anything_but_a_file_is_not_copied() {
        QFETCH(QByteArray, name);
        makeWhatIsNoFile();
        QCOMPARE(failureOf([&] { SafeFile::copy(at(name.constData()), at("target")); }),
                 number(RuntimeFailure::pathAccess));
        QVERIFY(!QFile::exists(at("target")));
    }
    void a_missing_folder_or_a_file_in_its_place_is_reported_data() { wayRows(); }
    void a_missing_folder_or_a_file_in_its_place_is_reported() {
        QFETCH(Way, way);
        QCOMPARE(failureBy(way, "gone/a.gb"), number(RuntimeFailure::fileNotFound));
        QCOMPARE(failureBy(way, "source/a.gb"), number(RuntimeFailure::pathNotFound));
        expectNames({QStringLiteral("source")});
    }
    void a_missing_file_is_neither_changed_nor_appended_to_data() {
        QTest::addColumn<QByteArray>("name");
        for (const char* name : {"gone.gb", "link to nowhere"}) QTest::newRow(name) << QByteArray(name);
    }
    void a_missing_file_is_neither_changed_nor_appended_to() {
        QFETCH(QByteArray, name);
        softLink("nowhere", "link to nowhere");
        const QStringList names = folder->entries();
        QCOMPARE(failureBy(Way::change, name.constData()), number(RuntimeFailure::fileNotFound));
        QCOMPARE(failureBy(Way::append, name.constData()), number(RuntimeFailure::fileNotFound));
        expectNames(names);
    }
    void circular_links_are_refused_and_stay_data() { wayRows(); }
    void circular_links_are_refused_and_stay() {
        QFETCH(Way, way);
        softLink("second", "first");
        softLink("first", "second");
        QCOMPARE(failureBy(way, "first"), number(RuntimeFailure::pathAccess));
        QVERIFY(S_ISLNK(infoOf("first").st_mode));
    }
    void a_full_disk_leaves_the_old_file_and_no_stray_one_data() { wayRows(); }
    void a_full_disk_leaves_the_old_file_and_no_stray_one() {
        QFETCH(Way, way);
        const QByteArray previous(1000, 'f');
        write("a.gb", previous);
        write("source", QByteArray(1001, 'n'));
        std::optional<int> failure;
        {
            const FullDisk full(1000);
            failure = failureOf([&] { changeBy(way, "a.gb", QByteArray(1001, 'n')); });
        }
        QCOMPARE(failure, number(RuntimeFailure::diskFull));
        QCOMPARE(read("a.gb"), previous);
        expectNames({QStringLiteral("a.gb"), QStringLiteral("source")});
    }
    void a_change_that_just_fits_succeeds_data() { wayRows(true); }
    void a_change_that_just_fits_succeeds() {
        QFETCH(Way, way);
        write("a.gb", "former");
        write("source", QByteArray(1000, 'n'));
        {
            const FullDisk full(1000);
            changeBy(way, "a.gb", QByteArray(1000, 'n'));
        }
        QCOMPARE(read("a.gb"), QByteArray(1000, 'n'));
    }
    void a_copy_without_enough_space_makes_no_new_file() {
        write("source", QByteArray(1001, 'n'));
        std::optional<int> failure;
        {
            const FullDisk full(1000);
            failure = failureBy(Way::copy, "new.gb");
        }
        QCOMPARE(failure, number(RuntimeFailure::diskFull));
        expectNames({QStringLiteral("source")});
    }

private:
    void makeWhatIsNoFile() const {
        folder->makeFolder(QStringLiteral("folder"));
        if (mkfifo(folder->native("pipe").constData(), 0666) != 0) qFatal("no pipe");
        softLink("folder", "link to folder");
        softLink("pipe", "link to pipe");
        // A device node of its own, if possible: as root, broken code would damage the real device.
        if (mknod(folder->native("device").constData(), S_IFCHR | 0666, makedev(1, 3)) != 0) {
            softLink("/dev/null", "device");
        }
        const int listening = socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        qstrncpy(address.sun_path, folder->native("socket").constData(), sizeof address.sun_path);
        if (bind(listening, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) qFatal("no socket");
        close(listening);
    }
};

TORVANE_APPLESS_TEST(SafeFileRefusalsTest)
#include "SafeFileRefusalsTest.moc"
