// SPDX-License-Identifier: MIT
// The archive window: how it opens, lists, launches and closes.
#include "support/OpenedViewer.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QPointer>

using namespace torvane;
using namespace Qt::StringLiterals;

namespace {
// Records an answer whenever the watched window is shown.
class ShowNote : public QObject {
public:
    std::function<bool()> whenShown;
    QList<bool> answers;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Show) answers.append(whenShown());
        return false;
    }
};
} // namespace

class ZIP_ViewerTest : public OpenedViewer {
    Q_OBJECT

    void chooseRow(int row) const { click(window().ListView1, rowPlace(row)); }
    QPoint rowPlace(int row) const { return window().ListView1.rowRect(row).center(); }
    void play(int row) const {
        chooseRow(row);
        doubleClick(window().ListView1, rowPlace(row));
    }
    QStringList panel() const {
        return {window().GameTitle.Caption(), window().GameAutor.Caption(), window().GameDate.Caption(),
                window().GameInfo.Caption(), window().GameFormat.Caption()};
    }
    const QStringList untouched{u"No disponible"_s, u"No disponible"_s, u"No disponible"_s, u"N/A"_s,
                                u"Desconocido / Indetectable"_s};
    const QStringList blank{{}, {}, {}, {}, u"[KB]"_s};

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    // Opening
    void the_zip_button_opens_the_archive_and_hides_the_main_window() {
        openArchive({{u"game.gba"_s, "rom"}});
        QVERIFY(window().isVisible());
        QVERIFY(!main().isVisible());
        QVERIFY(!isSeen(window().Mensaje));
        QCOMPARE(window().ListView1.rowCount(), 1);
        QCOMPARE(opened->world.folder.read(u"ziptemp/game/game.gba"_s), QByteArray("rom"));
    }
    void the_large_button_on_the_archive_panel_opens_it_too() {
        writeArchive(opened->world.folder.path(u"roms/game.zip"_s), {{u"game.gba"_s, "rom"}});
        opened->open();
        click(main().ChameleonButton13);
        QVERIFY(isOpen() && window().isVisible());
    }
    void a_launch_opens_it_if_so_configured_and_starts_no_emulator() {
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
    void the_list_covers_the_panel_and_the_message_covers_the_list() {
        openArchive({{u"game.gba"_s, "rom"}});
        QVERIFY(window().ListView1.isAncestorOf(window().childAt(450, 55)));
        window().Mensaje.setVisible(true);
        QVERIFY(window().Mensaje.isAncestorOf(window().childAt(300, 200)));
    }

    // Listing
    void members_are_listed_by_name_with_the_icons_of_their_consoles() {
        openArchive({{u"b.gbc"_s, "x"}, {u"a.gb"_s, "x"}, {u"sub/c.gb"_s, "x"}, {u"readme.txt"_s, "x"}});
        QCOMPARE(window().ListView1.rowCount(), 3);
        QCOMPARE(window().File2.names()->name(0), u"a.gb"_s);
        QCOMPARE(window().File2.names()->name(1), u"b.gbc"_s);
        QCOMPARE(window().File2.names()->name(2), u"readme.txt"_s);
        for (int row = 0; row < 3; ++row) {
            const QModelIndex index = window().ListView1.model().index(row, 0);
            QCOMPARE(index.data().toString(), window().File2.List(row));
            QCOMPARE(index.data(RowModel::KeyRole).toString(), u"%1file"_s.arg(row + 1));
        }
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
    void members_without_a_dot_are_reported_once_and_the_others_are_listed() {
        openArchive({{u"1ST"_s, "x"}, {u"b.gb"_s, "x"}, {u"COPYING"_s, "x"}, {u"d.gba"_s, "x"}});
        QCOMPARE(opened->world.ends, 0);
        QCOMPARE(opened->world.messages.boxes.size(), 1);
        QVERIFY(opened->world.messages.last().startsWith(u"Run-time error '9'"_s));
        QVERIFY(!isSeen(window().Mensaje));
        QCOMPARE(window().ListView1.rowCount(), 2);
        QCOMPARE(panel(), blank);
        const RowModel& rows = window().ListView1.model();
        for (const int row : {1, 0}) {
            QCOMPARE(rows.index(row, 0).data(RowModel::KeyRole), row == 0 ? u"2file"_s : u"4file"_s);
            chooseRow(row);
            QCOMPARE(window().File2.FileName(), row == 0 ? u"b.gb"_s : u"d.gba"_s);
        }
        play(1);
        QCOMPARE(processes().starts.value(0).arguments, QByteArrayList{temp() + "game/d.gba"});
        window().File2.setListIndex(0);
        QCOMPARE(opened->world.messages.boxes.size(), 1);
    }
    void members_without_a_dot_are_deleted_at_the_close_too() {
        openArchive({{u"README"_s, "x"}, {u"a.gb"_s, "x"}});
        QVERIFY(exists(u"ziptemp/game/README"_s));
        click(window().chameleonButton1);
        QVERIFY(!isOpen());
        QVERIFY(main().isVisible());
        QVERIFY(!exists(u"ziptemp/game"_s));
        QCOMPARE(opened->world.ends, 0);
    }
    void the_next_archive_is_reported_again() {
        openArchive({{u"README"_s, "x"}, {u"a.gb"_s, "x"}});
        window().ListView1.Clear();
        window().ReadZIP(opened->world.folder.path(u"roms/game.zip"_s), u"game.zip"_s);
        QCOMPARE(opened->world.messages.boxes.size(), 2);
    }
    void games_of_the_one_folder_are_listed_and_played() {
        openArchive({{u"My Games/b.gbc"_s, "x"}, {u"My Games/a.gb"_s, "x"}, {u"My Games/tips.txt"_s, "x"}});
        QCOMPARE(window().ListView1.rowCount(), 2);
        play(0);
        QCOMPARE(processes().starts.value(0).arguments, QByteArrayList{temp() + "game/a.gb"});
        click(window().chameleonButton1);
        QVERIFY(!exists(u"ziptemp/game"_s));
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
    void a_double_click_made_while_a_game_runs_is_dropped() {
        openArchive({{u"game.gba"_s, "rom"}});
        processes().whileRunning = [&] {
            if (processes().starts.size() > 1) return;
            postClick(window().ListView1, window().ListView1.rowRect(0).center(), true);
            postKey(window(), Qt::Key_Return);
        };
        play(0);
        QCoreApplication::processEvents();
        QCOMPARE(processes().starts.size(), 1);
    }
    void a_path_with_blanks_reaches_the_emulator_in_pieces() {
        openArchive({{u"my game.gb"_s, "rom"}}, u"a pack.zip"_s);
        play(0);
        const QByteArrayList expected{temp() + "a", "pack/my", "game.gb"};
        QCOMPARE(processes().starts.value(0).arguments, expected);
    }
    void a_member_with_the_unknown_icon_can_be_played() {
        openArchive({{u"demo.agb"_s, "rom"}});
        play(0);
        QCOMPARE(processes().starts.size(), 1);
    }
    void a_member_that_is_no_game_is_not_started_data() {
        QTest::addColumn<QString>("name");
        QTest::newRow("a text") << u"readme.txt"_s;
        QTest::newRow("the second piece counts") << u"a.b.gba"_s;
    }
    void a_member_that_is_no_game_is_not_started() {
        QFETCH(QString, name);
        openArchive({{name, "x"}});
        play(0);
        QCOMPARE(processes().starts.size(), 0);
        QCOMPARE(window().windowStateWord(), Form::normal);
    }
    void the_return_key_plays_the_row_reached_with_the_arrows() {
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
    void closing_brings_the_main_window_back_and_deletes_the_unpacked_files() {
        openArchive({{u"a.gb"_s, "x"}, {u"b.txt"_s, "x"}});
        opened->world.folder.setMode(u"ziptemp/game/a.gb"_s, 0444);
        click(window().chameleonButton1);
        QVERIFY(!isOpen());
        QVERIFY(main().isVisible());
        QVERIFY(!exists(u"ziptemp/game"_s));
        QVERIFY(exists(u"roms/game.zip"_s));
    }
    void the_main_window_is_shown_before_the_unpacked_files_are_deleted() {
        openArchive({{u"a.gb"_s, "x"}});
        ShowNote note;
        note.whenShown = [this] { return exists(u"ziptemp/game/a.gb"_s); };
        main().installEventFilter(&note);
        click(window().chameleonButton1);
        QCOMPARE(note.answers, QList<bool>{true});
        QVERIFY(!exists(u"ziptemp/game"_s));
    }
    void closing_via_the_window_manager_does_the_same() {
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
    void a_foreign_folder_among_the_unpacked_files_stays() {
        opened->world.folder.write(u"ziptemp/game/sub/own.txt"_s, "x");
        openArchive({{u"a.gb"_s, "x"}});
        click(window().chameleonButton1);
        QVERIFY(exists(u"ziptemp/game/sub/own.txt"_s));
        QVERIFY(!exists(u"ziptemp/game/a.gb"_s));
    }
    void an_archive_can_be_opened_repeatedly() {
        openArchive({{u"a.gb"_s, "x"}});
        for (int i = 0; i < 3; ++i) {
            QPointer<ZIP_Viewer> old = &window();
            click(window().chameleonButton1);
            collectGone();
            QVERIFY(old.isNull());
            click(main().Zipper);
            QCOMPARE(window().ListView1.rowCount(), 1);
        }
    }
};

TORVANE_TEST(ZIP_ViewerTest)
#include "ZIP_ViewerTest.moc"
