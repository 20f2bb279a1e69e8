// SPDX-License-Identifier: MIT
// Reading in the archive window: archives that give nothing yet, and what the user does meanwhile.
#include "support/OpenedViewer.h"
#include "support/TestMain.h"

#include <ctime>

using namespace torvane;
using namespace Qt::StringLiterals;

class ZIP_ViewerReadingTest : public OpenedViewer {
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    void an_archive_that_gives_nothing_is_retried_until_the_window_closes_data() {
        QTest::addColumn<bool>("byWindowManager");
        QTest::newRow("close button") << false;
        QTest::newRow("window manager") << true;
    }
    void an_archive_that_gives_nothing_is_retried_until_the_window_closes() {
        QFETCH(bool, byWindowManager);
        opened->game(u"game.zip"_s, "no archive");
        opened->open();
        bool waited = false;
        during(700, [&] {
            waited = isOpen() && window().isVisible() && isSeen(window().Mensaje) && !main().isVisible() &&
                     exists(u"ziptemp/game"_s);
            byWindowManager ? static_cast<void>(window().close()) : click(window().chameleonButton1);
        });
        click(main().Zipper);
        QVERIFY(waited);
        QVERIFY(!isOpen());
        QVERIFY(main().isVisible());
        QVERIFY(!exists(u"ziptemp/game"_s));
        QCOMPARE(opened->world.messages.boxes.size(), 0);
    }
    void an_archive_repaired_meanwhile_is_listed() {
        opened->game(u"game.zip"_s, "no archive");
        opened->open();
        during(300, [&] { writeArchive(opened->world.folder.path(u"roms/game.zip"_s), {{u"a.gb"_s, "x"}}); });
        click(main().Zipper);
        QCOMPARE(window().ListView1.rowCount(), 1);
        QVERIFY(!isSeen(window().Mensaje));
    }
    void an_archive_of_only_members_without_a_dot_is_reported_once_and_retried() {
        writeArchive(opened->world.folder.path(u"roms/game.zip"_s),
                     {{u"README"_s, "x"}, {u"LICENSE"_s, "x"}});
        opened->open();
        QString reason;
        // Long enough for several attempts.
        during(700, [&] {
            reason = window().Label3.Caption();
            click(window().chameleonButton1);
        });
        click(main().Zipper);
        QCOMPARE(opened->world.messages.boxes.size(), 1);
        QCOMPARE(opened->world.ends, 0);
        QCOMPARE(reason, opened->text("ZIP", "nogame"));
        QVERIFY(!isOpen());
        QVERIFY(!exists(u"ziptemp/game"_s));
    }
    void waiting_does_not_keep_a_processor_busy() {
        opened->game(u"game.zip"_s, QByteArray());
        opened->open();
        std::clock_t used = 0;
        during(400, [&] { used = std::clock(); });
        during(1400, [&] {
            used = std::clock() - used;
            click(window().chameleonButton1);
        });
        click(main().Zipper);
        // A second of waiting; an attempt costs a few milliseconds.
        QVERIFY2(used < CLOCKS_PER_SEC / 5, qPrintable(QString::number(used)));
    }
    void events_are_served_while_it_waits() {
        opened->game(u"game.zip"_s, "no archive");
        opened->open();
        int ticks = 0;
        QTimer ticking;
        connect(&ticking, &QTimer::timeout, this, [&] { ++ticks; });
        ticking.start(20);
        during(1000, [&] { click(window().chameleonButton1); });
        click(main().Zipper);
        QVERIFY2(ticks > 20, qPrintable(QString::number(ticks)));
    }
    void closing_in_the_middle_of_an_extraction_leaves_no_folder() {
        QList<ArchiveMember> members;
        for (int i = 0; i < 300; ++i) members.append({u"m%1.gb"_s.arg(i), QByteArray(100'000, 'm')});
        writeArchive(opened->world.folder.path(u"roms/game.zip"_s), members);
        opened->open();
        qsizetype unpacked = -1;
        QTimer looking;
        connect(&looking, &QTimer::timeout, this, [&] {
            const qsizetype count = opened->world.folder.entries(u"ziptemp/game"_s).size();
            if (count == 0) return;
            looking.stop();
            unpacked = count;
            click(window().chameleonButton1);
        });
        looking.start(1);
        click(main().Zipper);
        QVERIFY2(unpacked > 0 && unpacked < 300, qPrintable(QString::number(unpacked)));
        QVERIFY(!isOpen());
        QVERIFY(main().isVisible());
        QVERIFY(!exists(u"ziptemp/game"_s));
    }
    void a_second_click_on_close_meanwhile_does_no_harm() {
        opened->game(u"game.zip"_s, "no archive");
        opened->open();
        during(200, [&] {
            emit window().chameleonButton1.Click();
            emit window().chameleonButton1.Click();
            window().close();
        });
        click(main().Zipper);
        QVERIFY(!isOpen());
        QVERIFY(main().isVisible());
    }
    void the_target_of_a_linked_folder_is_neither_filled_nor_emptied() {
        opened->world.folder.write(u"mine/a.gb"_s, "mine");
        opened->world.folder.makeFolder(u"ziptemp"_s);
        QVERIFY(
            QFile::link(opened->world.folder.path(u"mine"_s), opened->world.folder.path(u"ziptemp/game"_s)));
        writeArchive(opened->world.folder.path(u"roms/game.zip"_s), {{u"a.gb"_s, "other"}});
        opened->open();
        during(300, [&] { click(window().chameleonButton1); });
        click(main().Zipper);
        QCOMPARE(opened->world.folder.read(u"mine/a.gb"_s), QByteArray("mine"));
        QVERIFY(exists(u"ziptemp/game"_s));
    }
};

TORVANE_TEST(ZIP_ViewerReadingTest)
#include "ZIP_ViewerReadingTest.moc"
