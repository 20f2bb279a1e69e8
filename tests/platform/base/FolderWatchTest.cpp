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
#include <sys/resource.h>

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
        int wakings = 0;
        const auto counting = QObject::connect(QAbstractEventDispatcher::instance(),
                                               &QAbstractEventDispatcher::awake, [&] { ++wakings; });
        QEventLoop rest;
        QTimer::singleShot(1000, &rest, &QEventLoop::quit);
        rest.exec();
        QObject::disconnect(counting);
        QVERIFY2(wakings <= 3, "it polls");
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
