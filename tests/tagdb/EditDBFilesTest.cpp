// SPDX-License-Identifier: MIT
// The database window on bad days of the disk: what becomes of the local copy, and of the window.
#include "support/Failing.h"
#include "support/OpenedDatabase.h"
#include "support/TestMain.h"
#include "support/WebServer.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class EditDBFilesTest : public OpenedDatabase {
    Q_OBJECT

    const TestFolder& folder() const { return opened->world.folder; }
    QByteArray native(const char* name) const { return folder().native(name); }

    // Opens the database; the download, or what follows it, fails.
    void openInVain() {
        click(main().chameleonButton3);
        QCOMPARE(messages().boxes.size(), 1);
        QCOMPARE(messages().last().left(24), u"Se ha producido un error"_s);
        QCOMPARE(titles(), QStringList());
    }
    void applyUsably(const QStringList& expected) {
        QVERIFY(window().isVisible());
        QCOMPARE(opened->world.ends, 0);
        emit window().Timer1.Tick();
        click(window().ChameleonButton2);
        QCOMPARE(titles(), expected);
        QCOMPARE(messages().boxes.size(), 1);
    }

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    // Writing the copy
    void a_full_disk_leaves_the_old_copy_data() {
        QTest::addColumn<int>("room");
        for (const int room : {0, 1, 100}) QTest::addRow("%d bytes", room) << room;
    }
    void a_full_disk_leaves_the_old_copy() {
        QFETCH(int, room);
        folder().write(u"online_db.dat"_s, wario);
        publish(tetris.repeated(3));
        opened->open();
        {
            const FullDisk full(static_cast<rlim_t>(room));
            openInVain();
        }
        QCOMPARE(copy(), wario);
        QCOMPARE(hiddenNames(), QStringList());
        applyUsably({u"Wario"_s});
    }
    void a_full_disk_without_an_old_copy_leaves_none() {
        publish(tetris);
        opened->open();
        {
            const FullDisk full(10);
            openInVain();
        }
        QVERIFY(!folder().entries().contains(u"online_db.dat"_s));
        QCOMPARE(hiddenNames(), QStringList());
    }
    void a_folder_that_cannot_be_written_leaves_the_old_copy() {
        folder().write(u"online_db.dat"_s, wario);
        publish(tetris);
        opened->open();
        folder().setMode(u"."_s, 0555);
        {
            const OrdinaryUser user;
            openInVain();
        }
        folder().setMode(u"."_s, 0755);
        QCOMPARE(copy(), wario);
        applyUsably({u"Wario"_s});
    }
    void a_copy_that_cannot_be_written_stays_data() {
        QTest::addColumn<mode_t>("mode");
        QTest::newRow("read-only") << mode_t{0444};
        QTest::newRow("neither read nor written") << mode_t{0};
    }
    void a_copy_that_cannot_be_written_stays() {
        QFETCH(mode_t, mode);
        folder().write(u"online_db.dat"_s, wario);
        folder().setMode(u"online_db.dat"_s, mode);
        folder().setMode(u"."_s, 0777);
        publish(tetris);
        opened->open();
        {
            const OrdinaryUser user;
            openInVain();
        }
        QCOMPARE(copy(), wario);
        applyUsably({u"Wario"_s});
    }
    void what_is_no_file_stays_in_its_place_data() {
        QTest::addColumn<mode_t>("kind");
        QTest::newRow("folder") << mode_t{S_IFDIR};
        QTest::newRow("pipe") << mode_t{S_IFIFO};
    }
    void what_is_no_file_stays_in_its_place() {
        QFETCH(mode_t, kind);
        const QByteArray path = native("online_db.dat");
        QCOMPARE(kind == S_IFDIR ? mkdir(path, 0777) : mkfifo(path, 0666), 0);
        publish(tetris);
        opened->open();
        openInVain();
        struct stat info {};
        QCOMPARE(lstat(path, &info), 0);
        QCOMPARE(info.st_mode & S_IFMT, kind);
        QVERIFY(window().isVisible());
        // The filter refuses it, too, and does not wait for the pipe.
        click(window().ChameleonButton2);
        QCOMPARE(messages().boxes.size(), 2);
        QVERIFY2(messages().last().contains(u"online_db.dat"_s), qPrintable(messages().last()));
        QCOMPARE(opened->world.ends, 0);
    }
    void a_copy_that_can_be_written_but_not_read_is_reported_like_a_failed_download() {
        folder().setMode(u"."_s, 0777);
        publish(tetris);
        opened->open();
        {
            const OrdinaryUser user;
            folder().write(u"online_db.dat"_s, wario);
            folder().setMode(u"online_db.dat"_s, 0200);
            openInVain();
        }
        QCOMPARE(copy(), tetris + "\r\n");
        applyUsably({u"TETRIS"_s});
    }

    // A host that is a folder
    void a_file_of_the_host_that_cannot_be_read_leaves_the_old_copy_data() {
        QTest::addColumn<QByteArray>("kind");
        for (const char* kind : {"missing", "unreadable", "folder", "pipe", "link to itself"}) {
            QTest::newRow(kind) << QByteArray(kind);
        }
    }
    void a_file_of_the_host_that_cannot_be_read_leaves_the_old_copy() {
        QFETCH(QByteArray, kind);
        folder().write(u"online_db.dat"_s, wario);
        folder().makeFolder(u"data/site"_s);
        const QByteArray path = native("data/site/online_db.txt");
        if (kind == "unreadable") {
            publish(tetris);
            folder().setMode(u"data/site/online_db.txt"_s, 0);
        }
        if (kind == "folder") QCOMPARE(mkdir(path, 0777), 0);
        if (kind == "pipe") QCOMPARE(mkfifo(path, 0666), 0);
        if (kind == "link to itself") QCOMPARE(symlink("online_db.txt", path), 0);
        opened->open();
        {
            const OrdinaryUser user;
            openInVain();
        }
        QCOMPARE(copy(), wario);
        applyUsably({u"Wario"_s});
    }

    // The window goes when the body has just arrived.
    void closed_before_the_body_is_written_it_writes_it_and_goes() {
        folder().write(u"online_db.dat"_s, wario);
        const WebServer server(answerOf(tetris));
        useServer(server.address(QString()));
        opened->open();
        QTimer timer;
        bool wasOldThen = false;
        connect(&timer, &QTimer::timeout, &timer, [&] {
            const EditDB* database = loaded<EditDB>();
            if (database == nullptr || server.requests.isEmpty() || database->down.StillExecuting()) return;
            timer.stop();
            wasOldThen = copy() == wario;
            window().close();
        });
        timer.start(0);
        click(main().chameleonButton3);
        QVERIFY(wasOldThen);
        QVERIFY(loaded<EditDB>() == nullptr);
        QVERIFY(main().isVisible());
        QCOMPARE(copy(), tetris + "\r\n");
        QCOMPARE(messages().boxes.size(), 0);
        QCOMPARE(opened->world.ends, 0);
    }
};

TORVANE_TEST(EditDBFilesTest)
#include "EditDBFilesTest.moc"
