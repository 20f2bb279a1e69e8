// SPDX-License-Identifier: MIT
// The archive window: how it opens, lists, launches and closes.
#include "support/Archive.h"
#include "support/OpenedProgram.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QTimer>

using namespace torvane;
using namespace Qt::StringLiterals;

class ZIP_ViewerTest : public QObject {
    Q_OBJECT

    std::unique_ptr<OpenedProgram> opened;
    MainFrm& main() const { return opened->main(); }
    ZIP_Viewer& window() const { return *opened->program->zipViewer.ifLoaded(); }
    bool isOpen() const { return opened->program->zipViewer.ifLoaded() != nullptr; }
    FakeProcesses& processes() const { return opened->world.processes; }
    QByteArray temp() const { return opened->world.appPath().toUtf8() + "/ziptemp/"; }
    bool exists(const QString& relative) const {
        return QFileInfo::exists(opened->world.folder.path(relative));
    }
    /// An archive as the only game of the library, opened by the button of its panel.
    void openArchive(const QList<ArchiveMember>& members, const QString& name = u"game.zip"_s) {
        writeArchive(opened->world.folder.path(u"roms/"_s + name), members);
        opened->open();
        click(main().Zipper);
        QVERIFY(isOpen());
    }
    void chooseRow(int row) const { click(window().ListView1, rowPlace(row)); }
    QPoint rowPlace(int row) const { return {100, row * window().ListView1.rowHeight() + 10}; }
    void play(int row) const {
        chooseRow(row);
        doubleClick(window().ListView1, rowPlace(row));
    }
    /// What the user does while an archive is being read, which serves his events.
    void during(int milliseconds, const std::function<void()>& act) {
        QTimer::singleShot(milliseconds, this, act);
    }
    QStringList panel() const {
        return {window().GameTitle.Caption(), window().GameAutor.Caption(), window().GameDate.Caption(),
                window().GameInfo.Caption(), window().GameFormat.Caption()};
    }
    const QStringList untouched{u"No disponible"_s, u"No disponible"_s, u"No disponible"_s, u"N/A"_s,
                                u"Desconocido / Indetectable"_s};
    const QStringList blank{{}, {}, {}, {}, u"[KB]"_s};

private slots:
    void init() { opened = std::make_unique<OpenedProgram>(); }
    void cleanup() { opened.reset(); }

    // Opening
    void the_zip_button_opens_the_archive_and_hides_the_main_window() {
        openArchive({{u"game.gba"_s, "rom"}});
        QVERIFY(window().isVisible());
        QVERIFY(!main().isVisible());
        QVERIFY(!isSeen(window().Mensaje));
        QCOMPARE(window().ListView1.rowCount(), 1);
        QCOMPARE(opened->world.folder.read(u"ziptemp/game/game.gba"_s), QByteArray("rom"));
    }
    void the_large_button_of_the_archives_panel_opens_it_too() {
        writeArchive(opened->world.folder.path(u"roms/game.zip"_s), {{u"game.gba"_s, "rom"}});
        opened->open();
        click(main().ChameleonButton13);
        QVERIFY(isOpen() && window().isVisible());
    }
    void a_launch_opens_it_if_the_user_has_set_that_and_starts_no_emulator() {
        opened->world.setSetting("zip", u"1"_s);
        writeArchive(opened->world.folder.path(u"roms/GAME.zip"_s), {{u"game.gba"_s, "rom"}});
        opened->open();
        main().Label15_Click();
        QVERIFY(isOpen() && window().isVisible());
        QCOMPARE(processes().starts.size(), 0);
    }
    void without_a_game_the_zip_button_opens_nothing() {
        opened->open();
        emit main().Zipper.Click();
        QVERIFY(!isOpen());
        QVERIFY(main().isVisible());
    }
    void the_texts_come_from_the_language_file() {
        openArchive({{u"game.gba"_s, "rom"}});
        QCOMPARE(window().Label1.Caption(), u"Torvane 1.1 » ZIP contents"_s);
        QCOMPARE(window().Label2.Caption(), u"Unzipping…"_s);
        QCOMPARE(window().Label3.Caption(), u"Reading the contents…"_s);
        QCOMPARE(window().Lbl_ID3Title.Caption(), u"Título del juego"_s);
    }
    void the_list_lies_over_the_panel_and_the_message_over_the_list() {
        openArchive({{u"game.gba"_s, "rom"}});
        QCOMPARE(window().childAt(450, 55), &window().ListView1);
        window().Mensaje.setVisible(true);
        QVERIFY(window().Mensaje.isAncestorOf(window().childAt(300, 200)));
    }

    // Listing
    void members_are_listed_by_name_with_the_pictures_of_their_consoles() {
        openArchive({{u"b.gbc"_s, "x"}, {u"a.gb"_s, "x"}, {u"sub/c.gb"_s, "x"}, {u"readme.txt"_s, "x"}});
        QCOMPARE(window().ListView1.rowCount(), 3);
        QCOMPARE(window().File2.names()->name(0), u"a.gb"_s);
        QCOMPARE(window().File2.names()->name(1), u"b.gbc"_s);
        QCOMPARE(window().File2.names()->name(2), u"readme.txt"_s);
    }
    void the_panel_is_blank_as_soon_as_a_game_is_listed() {
        openArchive({{u"a.gb"_s, "x"}, {u"readme.txt"_s, "x"}});
        QCOMPARE(panel(), blank);
    }
    void without_a_game_the_panel_stays_as_designed() {
        openArchive({{u"readme.txt"_s, "x"}});
        QCOMPARE(panel(), untouched);
        chooseRow(0);
        QCOMPARE(panel(), untouched);
    }
    void a_click_on_a_row_makes_its_member_the_current_one() {
        openArchive({{u"a.gb"_s, "x"}, {u"readme.txt"_s, "x"}});
        chooseRow(0);
        QCOMPARE(window().File2.FileName(), u"a.gb"_s);
        QCOMPARE(panel(), blank);
        chooseRow(1);
        QCOMPARE(window().File2.FileName(), u"readme.txt"_s);
        QCOMPARE(panel(), blank);
    }
    void a_member_without_a_dot_takes_the_default_failure_path() {
        writeArchive(opened->world.folder.path(u"roms/game.zip"_s), {{u"readme"_s, "x"}});
        opened->open();
        click(main().Zipper);
        QCOMPARE(opened->world.ends, 1);
        QVERIFY(opened->world.messages.last().startsWith(u"Run-time error '9'"_s));
    }
    void ten_thousand_members_are_listed_and_painted_in_less_than_two_seconds() {
        openArchive({{u"m.gb"_s, "x"}});
        for (int i = 0; i < 10'000; ++i) {
            opened->world.folder.write(u"ziptemp/game/m%1.gb"_s.arg(i), {});
        }
        window().ListView1.Clear();
        QElapsedTimer clock;
        clock.start();
        window().ReadZIP(opened->world.folder.path(u"none.zip"_s), u"game.zip"_s);
        window().grab();
        QCOMPARE(window().ListView1.rowCount(), 10'001);
        QVERIFY2(clock.elapsed() < 2000, qPrintable(QString::number(clock.elapsed())));
    }

    // Playing
    void a_double_click_starts_the_member_with_the_window_minimised_meanwhile() {
        openArchive({{u"game.gba"_s, "rom"}});
        const QPoint place = window().pos();
        Form::State meanwhile = Form::normal;
        processes().whileRunning = [&] { meanwhile = window().windowStateWord(); };
        play(0);
        QCOMPARE(processes().starts.size(), 1);
        QCOMPARE(processes().starts[0].arguments, QByteArrayList{temp() + "game/game.gba"});
        QCOMPARE(meanwhile, Form::minimised);
        QCOMPARE(window().windowStateWord(), Form::normal);
        QCOMPARE(window().pos(), place);
        QVERIFY(window().isVisible() && !main().isVisible());
    }
    void a_path_with_blanks_reaches_the_emulator_in_pieces() {
        openArchive({{u"my game.gb"_s, "rom"}}, u"a pack.zip"_s);
        play(0);
        const QByteArrayList expected{temp() + "a", "pack/my", "game.gb"};
        QCOMPARE(processes().starts.value(0).arguments, expected);
    }
    void a_member_with_the_unknown_picture_may_be_played_all_the_same() {
        openArchive({{u"demo.agb"_s, "rom"}});
        play(0);
        QCOMPARE(processes().starts.size(), 1);
    }
    void what_is_no_game_is_not_started_data() {
        QTest::addColumn<QString>("name");
        QTest::newRow("a text") << u"readme.txt"_s;
        QTest::newRow("the second piece counts") << u"a.b.gba"_s;
    }
    void what_is_no_game_is_not_started() {
        QFETCH(QString, name);
        openArchive({{name, "x"}});
        play(0);
        QCOMPARE(processes().starts.size(), 0);
        QCOMPARE(window().windowStateWord(), Form::normal);
    }
    void the_return_key_plays_the_row_that_the_arrows_have_reached() {
        openArchive({{u"a.gb"_s, "x"}, {u"b.gb"_s, "x"}});
        QTest::keyClick(&window().ListView1, Qt::Key_Home);
        QTest::keyClick(&window().ListView1, Qt::Key_Down);
        QTest::keyClick(&window().ListView1, Qt::Key_Return);
        QCOMPARE(processes().starts.value(0).arguments, QByteArrayList{temp() + "game/b.gb"});
    }
    void the_minimise_button_minimises() {
        openArchive({{u"a.gb"_s, "x"}});
        click(window().chameleonButton2);
        QCOMPARE(window().windowStateWord(), Form::minimised);
    }

    // Closing
    void closing_brings_the_main_window_back_and_removes_what_was_unpacked() {
        openArchive({{u"a.gb"_s, "x"}, {u"b.txt"_s, "x"}});
        opened->world.folder.setMode(u"ziptemp/game/a.gb"_s, 0444);
        click(window().chameleonButton1);
        QVERIFY(!isOpen());
        QVERIFY(main().isVisible());
        QVERIFY(!exists(u"ziptemp/game"_s));
        QVERIFY(exists(u"roms/game.zip"_s));
    }
    void the_window_managers_close_does_the_same() {
        openArchive({{u"a.gb"_s, "x"}});
        window().close();
        QVERIFY(!isOpen());
        QVERIFY(main().isVisible());
        QVERIFY(!exists(u"ziptemp/game"_s));
    }
    void members_in_subfolders_are_left_out() {
        openArchive({{u"a.gb"_s, "x"}, {u"sub/b.gb"_s, "x"}});
        QCOMPARE(window().ListView1.rowCount(), 1);
        QVERIFY(!exists(u"ziptemp/game/sub"_s));
        click(window().chameleonButton1);
        QVERIFY(!exists(u"ziptemp/game"_s));
    }
    void a_folder_of_somebody_else_in_the_temporary_folder_stays() {
        opened->world.folder.write(u"ziptemp/game/sub/own.txt"_s, "x");
        openArchive({{u"a.gb"_s, "x"}});
        click(window().chameleonButton1);
        QVERIFY(exists(u"ziptemp/game/sub/own.txt"_s));
        QVERIFY(!exists(u"ziptemp/game/a.gb"_s));
    }
    void an_archive_can_be_opened_again_and_again() {
        openArchive({{u"a.gb"_s, "x"}});
        for (int i = 0; i < 3; ++i) {
            QPointer<ZIP_Viewer> former = &window();
            click(window().chameleonButton1);
            collectGone();
            QVERIFY(former.isNull());
            click(main().Zipper);
            QCOMPARE(window().ListView1.rowCount(), 1);
        }
    }

    // An archive that gives nothing
    void an_archive_that_gives_nothing_is_waited_for_until_the_window_closes_data() {
        QTest::addColumn<bool>("byWindowManager");
        QTest::newRow("close button") << false;
        QTest::newRow("window manager") << true;
    }
    void an_archive_that_gives_nothing_is_waited_for_until_the_window_closes() {
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
    void an_archive_that_is_repaired_meanwhile_shows_itself() {
        opened->game(u"game.zip"_s, "no archive");
        opened->open();
        during(300, [&] { writeArchive(opened->world.folder.path(u"roms/game.zip"_s), {{u"a.gb"_s, "x"}}); });
        click(main().Zipper);
        QCOMPARE(window().ListView1.rowCount(), 1);
        QVERIFY(!isSeen(window().Mensaje));
    }
    void waiting_does_not_keep_a_processor_busy() {
        opened->game(u"game.zip"_s, QByteArray());
        opened->open();
        std::clock_t used = 0;
        during(2000, [&] { used = std::clock(); });
        during(5000, [&] {
            used = std::clock() - used;
            click(window().chameleonButton1);
        });
        click(main().Zipper);
        // Three seconds of waiting; a try a second costs a few milliseconds.
        QVERIFY2(used < CLOCKS_PER_SEC / 2, qPrintable(QString::number(used)));
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
    void a_second_click_on_close_in_between_does_no_harm() {
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
    void a_foreign_folder_behind_a_link_is_neither_filled_nor_emptied() {
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

QTEST_MAIN(ZIP_ViewerTest)
#include "ZIP_ViewerTest.moc"
