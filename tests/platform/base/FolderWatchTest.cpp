// SPDX-License-Identifier: MIT
// Changes of a folder by other programs are reported once, when it is quiet.
#include "platform/base/FolderWatch.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"

#include <QAbstractEventDispatcher>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QSignalSpy>
#include <QTimer>
#include <atomic>
#include <sys/resource.h>
#include <thread>

using namespace torvane;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class FolderWatchTest : public QObject {
    Q_OBJECT

    static constexpr auto quiet = 60ms;
    static constexpr int longEnough = 600; // ms in which a report that comes would have come

    std::unique_ptr<TestFolder> folder;
    std::unique_ptr<FolderWatch> watch;
    std::unique_ptr<QSignalSpy> reports;

    void start(const QByteArray& name = "games") {
        watch = std::make_unique<FolderWatch>(quiet);
        reports = std::make_unique<QSignalSpy>(watch.get(), &FolderWatch::changed);
        watch->watch(folder->native(name));
    }
    void verifyReported() {
        QTRY_VERIFY(!reports->isEmpty());
        QTest::qWait(longEnough);
        QCOMPARE(reports->size(), 1);
        reports->clear();
    }
    void verifyNothing() {
        QTest::qWait(longEnough);
        QCOMPARE(reports->size(), 0);
    }
    // Serves events as the program does; gives how often the loop woke up. QTest's waits wake it themselves.
    static int wakingsWithin(std::chrono::milliseconds time) {
        int wakings = 0;
        QEventLoop loop;
        QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, &loop,
                         [&] { ++wakings; });
        QTimer::singleShot(time, &loop, &QEventLoop::quit);
        loop.exec();
        return wakings;
    }
    // How many folders the kernel watches for this process.
    static qsizetype watched() {
        qsizetype count = 0;
        const QDir handles(u"/proc/self/fdinfo"_s);
        for (const QString& handle : handles.entryList(QDir::Files)) {
            QFile info(handles.filePath(handle));
            if (info.open(QIODevice::ReadOnly)) count += info.readAll().count("inotify wd:");
        }
        return count;
    }
    void rename(const char* from, const char* to) const {
        QCOMPARE(::rename(folder->native(from).constData(), folder->native(to).constData()), 0);
    }

private slots:
    void init() {
        folder = std::make_unique<TestFolder>();
        folder->write(u"games/old.gb"_s, "old");
    }
    void cleanup() {
        reports.reset();
        watch.reset();
        folder.reset();
    }

    void what_happens_to_files_is_reported_once_data() {
        QTest::addColumn<QByteArray>("deed");
        for (const char* deed : {"come", "go", "rename", "write", "touch"})
            QTest::newRow(deed) << QByteArray(deed);
    }
    void what_happens_to_files_is_reported_once() {
        QFETCH(QByteArray, deed);
        start();
        if (deed == "come") folder->writeNative("games/n\xffw.gb", "new");
        if (deed == "go") QVERIFY(QFile::remove(folder->path(u"games/old.gb"_s)));
        if (deed == "rename") rename("games/old.gb", "games/new.gb");
        if (deed == "write") folder->write(u"games/old.gb"_s, "new");
        if (deed == "touch") folder->setMode(u"games/old.gb"_s, 0600);
        verifyReported();
    }
    void a_folder_with_a_name_of_any_bytes_is_watched() {
        rename("games", "g\xe4mes");
        start("g\xe4mes");
        folder->writeNative("g\xe4mes/new.gb", "new");
        verifyReported();
    }
    void hidden_files_are_no_change() {
        start();
        folder->write(u"games/.torvane-abcdef"_s, "x");
        folder->write(u"elsewhere/new.gb"_s, "x");
        verifyNothing();
        rename("games/.torvane-abcdef", "games/new.gb");
        verifyReported();
    }
    void reading_is_no_change() {
        start();
        QCOMPARE(folder->read(u"games/old.gb"_s), QByteArray("old"));
        QCOMPARE(folder->entries(u"games"_s).size(), 1);
        verifyNothing();
    }
    // More than the queue of the kernel takes, and than a pause in between.
    void thousands_of_files_are_one_change() {
        start();
        for (int i = 0; i < 10000; ++i) {
            folder->write(u"games/%1.gb"_s.arg(i), "x");
            if (i % 100 == 0) QCoreApplication::processEvents();
        }
        QCOMPARE(reports->size(), 0);
        verifyReported();
    }
    void a_change_that_the_kernel_had_no_room_for_is_reported() {
        const QByteArrayList hidden{"games/.a", "games/.b"};
        for (const QByteArray& name : hidden) folder->writeNative(name, "x");
        start();
        QFile limit(u"/proc/sys/fs/inotify/max_queued_events"_s);
        QVERIFY(limit.open(QIODevice::ReadOnly));
        // Two in turn: the kernel makes one event of two that are alike.
        for (int room = limit.readAll().trimmed().toInt(); room >= 0; --room) {
            chmod(folder->native(hidden[room % 2]).constData(), 0600);
        }
        folder->write(u"games/new.gb"_s, "x");
        verifyReported();
    }
    void many_files_wake_the_program_a_few_times() {
        start();
        std::atomic<bool> isOver = false;
        std::thread writer([&] {
            for (int i = 0; !isOver; ++i) {
                folder->writeNative("games/" + QByteArray::number(i) + ".gb", "x");
                std::this_thread::sleep_for(1ms);
            }
        });
        const int wakings = wakingsWithin(600ms);
        isOver = true;
        writer.join();
        QVERIFY2(wakings < 60, QByteArray::number(wakings).constData());
        QTRY_VERIFY(!reports->isEmpty());
    }
    void a_file_that_is_closed_after_a_pause_is_a_change() {
        start();
        QFile file(folder->path(u"games/slow.gb"_s));
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        QCOMPARE(file.write("half"), 4);
        verifyReported();
        QCOMPARE(file.write("rest"), 4);
        file.close();
        verifyReported();
    }
    void a_folder_that_goes_and_comes_back_is_reported_each_time() {
        start();
        rename("games", "away");
        verifyReported();
        folder->write(u"away/new.gb"_s, "x");
        verifyNothing();
        rename("away", "games");
        verifyReported();
        folder->write(u"games/new.gb"_s, "y");
        verifyReported();
    }
    void a_folder_that_is_deleted_and_made_anew_is_watched_again() {
        start();
        QVERIFY(QDir(folder->path(u"games"_s)).removeRecursively());
        verifyReported();
        folder->makeFolder(u"games"_s);
        verifyReported();
        folder->write(u"games/new.gb"_s, "x");
        verifyReported();
    }
    void a_folder_that_is_missing_is_reported_when_it_comes() {
        start("later");
        verifyNothing();
        folder->makeFolder(u"later"_s);
        verifyReported();
        folder->write(u"later/new.gb"_s, "x");
        verifyReported();
    }
    void another_folder_takes_the_place_of_the_first() {
        start();
        folder->makeFolder(u"other/games"_s);
        watch->watch(folder->native("other/games"));
        folder->write(u"games/new.gb"_s, "x");
        verifyNothing();
        folder->write(u"other/games/new.gb"_s, "x");
        verifyReported();
    }
    // A user may watch so many at a time.
    void folders_that_have_been_left_are_no_longer_watched() {
        folder->makeFolder(u"other/games"_s);
        start();
        const qsizetype before = watched();
        watch->watch(folder->native("other/games"));
        QCOMPARE(watched(), before);
        rename("other/games", "other/away");
        folder->makeFolder(u"other/games"_s);
        verifyReported();
        QCOMPARE(watched(), before);
    }
    void a_second_look_is_reported_in_its_time() {
        start();
        QElapsedTimer clock;
        clock.start();
        watch->lookAgain(200ms);
        verifyReported();
        QVERIFY(clock.elapsed() >= 190);
    }
    void at_rest_it_takes_no_time() {
        start();
        QVERIFY2(wakingsWithin(1s) <= 3, "it polls");
    }
    // All files of the process are in use, so that the system gives no instance of inotify.
    void without_inotify_nothing_happens() {
        rlimit usual{};
        getrlimit(RLIMIT_NOFILE, &usual);
        const rlimit none{3, usual.rlim_max};
        setrlimit(RLIMIT_NOFILE, &none);
        start();
        setrlimit(RLIMIT_NOFILE, &usual);
        folder->write(u"games/new.gb"_s, "x");
        watch->lookAgain(1ms);
        verifyNothing();
        watch->watch(folder->native("games"));
        folder->write(u"games/newer.gb"_s, "x");
        verifyReported();
    }
};

TORVANE_GUILESS_TEST(FolderWatchTest)
#include "FolderWatchTest.moc"
