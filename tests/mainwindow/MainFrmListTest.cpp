// SPDX-License-Identifier: MIT
// The game list of the main window: how it is built from the folder, its height, and how it scrolls.
#include "support/NotedRows.h"
#include "support/OpenedProgram.h"
#include "support/TestMain.h"

using namespace torvane;

namespace {
QStringList textsOf(const RowList& list) {
    QStringList texts;
    for (int row = 0; row < list.rowCount(); ++row) texts << list.model().index(row, 0).data().toString();
    return texts;
}

bool rowIsInSight(const MainFrm& main, int row) {
    const int top = main.ListView1.seenTop() + row * main.ListView1.rowHeight();
    return top >= 0 && top + main.ListView1.rowHeight() <= main.Picture2.height();
}
} // namespace

class MainFrmListTest : public QObject {
    Q_OBJECT

    std::unique_ptr<OpenedProgram> opened;
    MainFrm& window() const { return opened->main(); }
    void wheel(int steps) const { wheelOn(window().ListView1, -120 * steps); }
    void key(Qt::Key code) const {
        window().ListView1.setFocus();
        pressKey(window().ListView1, code);
    }

private slots:
    void init() { opened = std::make_unique<OpenedProgram>(); }
    void cleanup() { opened.reset(); }

    void rows_are_the_names_up_to_the_first_dot_in_order() {
        for (const char* name : {"beta.gb", "Alpha.gbc", "gamma.v2.gba", "delta.ZIP", "notes.txt", "x.bin"}) {
            opened->game(QString::fromLatin1(name));
        }
        opened->world.folder.makeFolder(QStringLiteral("roms/folder.gb"));
        opened->open();
        const QStringList expected = {QStringLiteral("Alpha"), QStringLiteral("beta"),
                                      QStringLiteral("delta"), QStringLiteral("gamma")};
        QCOMPARE(textsOf(window().ListView1), expected);
        QCOMPARE(window().TotalRom.Caption(), QStringLiteral("0004"));
    }
    void kinds_known_only_to_the_second_list_are_counted_but_misalign_the_names() {
        opened->game(QStringLiteral("a.gb"));
        opened->game(QStringLiteral("b.cgb"));
        opened->game(QStringLiteral("c.gb"));
        opened->game(QStringLiteral("d.agb"));
        MainFrm& main = opened->open();
        QCOMPARE(main.Games.ListCount(), 2);
        QCOMPARE(main.File1.ListCount(), 4);
        QCOMPARE(main.TotalRom.Caption(), QStringLiteral("0004"));
        QCOMPARE(main.Label41.Caption(), QStringLiteral("#1/2"));
        const QStringList shown = {QStringLiteral("a"), QStringLiteral("b")};
        QCOMPARE(textsOf(main.ListView1), shown);
        opened->chooseRow(1);
        QCOMPARE(main.Games.FileName(), QStringLiteral("c.gb"));
    }
    void a_library_of_only_second_list_kinds_has_a_total_and_no_rows() {
        opened->game(QStringLiteral("a.cgb"));
        MainFrm& main = opened->open();
        QCOMPARE(main.TotalRom.Caption(), QStringLiteral("0001"));
        QCOMPARE(main.ListView1.rowCount(), 0);
        QCOMPARE(main.Label41.Caption(), QStringLiteral("#1/0"));
    }
    void the_total_has_four_digits_data() {
        QTest::addColumn<int>("count");
        QTest::addColumn<QString>("total");
        QTest::newRow("9") << 9 << QStringLiteral("0009");
        QTest::newRow("10") << 10 << QStringLiteral("0010");
        QTest::newRow("123") << 123 << QStringLiteral("0123");
    }
    void the_total_has_four_digits() {
        QFETCH(int, count);
        QFETCH(QString, total);
        opened->games(count);
        QCOMPARE(opened->open().TotalRom.Caption(), total);
    }
    void a_row_is_cut_to_30_characters_but_the_launch_uses_the_whole_name() {
        const QString name = QStringLiteral("abcdefghijklmnopqrstuvwxyz0123456789.gb");
        opened->game(name);
        opened->open();
        const QStringList shown = {QStringLiteral("abcdefghijklmnopqrstuvwxyz0123")};
        QCOMPARE(textsOf(window().ListView1), shown);
        click(window().ChameleonButton16);
        QCOMPARE(opened->world.processes.starts.size(), 1);
        QVERIFY(opened->world.processes.starts[0].arguments.value(0).endsWith('/' + name.toUtf8()));
    }
    void making_the_list_reads_no_tag_and_fires_no_click() {
        opened->games(5);
        MainFrm& main = opened->open();
        opened->chooseRow(2);
        opened->program->id3.RomTag.Title = QStringLiteral("kept");
        const QSignalSpy clicks(&main.Games, &FileList::Click);
        const QSignalSpy positions(&main.Label41, &Label::Change);
        main.GetGameList(QString(), QString());
        QCOMPARE(clicks.size(), 0);
        QCOMPARE(positions.size(), 0);
        QCOMPARE(opened->program->id3.RomTag.Title, QStringLiteral("kept"));
    }
    void the_list_of_another_folder_can_be_asked_for_and_refresh_goes_back_to_the_library() {
        opened->games(2);
        opened->world.folder.write(QStringLiteral("other/z.gb"), "z");
        MainFrm& main = opened->open();
        main.GetGameList(opened->world.appPath() + QStringLiteral("\\other"), QStringLiteral("anything"));
        QCOMPARE(textsOf(main.ListView1), QStringList{QStringLiteral("z")});
        QCOMPARE(main.TotalRom.Caption(), QStringLiteral("0001"));
        click(main.Refresh);
        QCOMPARE(main.TotalRom.Caption(), QStringLiteral("0002"));
        QCOMPARE(main.Games.Path(), opened->world.appPath() + QStringLiteral("\\roms"));
    }
    void refresh_lists_new_games_and_selects_the_first() {
        opened->games(2);
        MainFrm& main = opened->open();
        opened->chooseRow(1);
        opened->game(QStringLiteral("a.gb"));
        click(main.Refresh);
        const QStringList shown = {QStringLiteral("a"), QStringLiteral("g001"), QStringLiteral("g002")};
        QCOMPARE(textsOf(main.ListView1), shown);
        QCOMPARE(main.Games.ListIndex(), 0);
        QCOMPARE(main.ListView1.currentRow(), 0);
        QCOMPARE(main.Label41.Caption(), QStringLiteral("#1/3"));
    }
    void refresh_of_an_empty_library_does_no_harm() {
        MainFrm& main = opened->open();
        click(main.Refresh);
        QCOMPARE(main.TotalRom.Caption(), QStringLiteral("0000"));
        QCOMPARE(main.Label41.Caption(), QStringLiteral("#1/0"));
        QCOMPARE(opened->world.messages.boxes.size(), 0);
        QCOMPARE(opened->world.ends, 0);
    }
    void refresh_of_an_emptied_library_shows_nothing_of_the_vanished_game() {
        opened->game(QStringLiteral("pack.zip"));
        MainFrm& main = opened->open();
        main.EditID3Title.setText(QStringLiteral("left over"));
        QVERIFY(isSeen(main.Picture1_2));
        QVERIFY(QFile::remove(opened->world.folder.path(QStringLiteral("roms/pack.zip"))));
        click(main.Refresh);
        QVERIFY(!isSeen(main.Picture1_2) && !isSeen(main.Zipper) && isSeen(main.Edit_Menu));
        QCOMPARE(main.Label41.Caption(), QStringLiteral("#1/0"));
        QCOMPARE(main.Label42.Caption(), QStringLiteral("#1/0"));
        for (const Label* label : {&main.GameTitle, &main.GameAutor, &main.GameDate, &main.Label10}) {
            QCOMPARE(label->Caption(), opened->text("globals", "nodisp"));
        }
        QCOMPARE(main.GameFormat.Caption(), opened->text("globals", "unknown"));
        QCOMPARE(main.GameInfo.Caption(), opened->text("globals", "na"));
        QCOMPARE(main.EditID3Title.Text(), QString());
    }
    void the_last_game_is_the_current_entry_of_both_lists_after_the_list_is_made() {
        opened->games(4);
        MainFrm& main = opened->open();
        main.GetGameList(QString(), QString());
        QCOMPARE(main.Games.ListIndex(), 3);
        QCOMPARE(main.File1.ListIndex(), 3);
    }
    void refresh_of_an_emptied_library_leaves_no_game_selected() {
        const QString path = opened->game(QStringLiteral("a.gb"));
        MainFrm& main = opened->open();
        QVERIFY(QFile::remove(path));
        click(main.Refresh);
        QCOMPARE(main.ListView1.rowCount(), 0);
        QCOMPARE(main.Games.ListIndex(), -1);
        click(main.ChameleonButton16);
        QCOMPARE(opened->world.processes.starts.size(), 0);
        QCOMPARE(opened->world.ends, 0);
    }
    void the_folder_is_found_in_any_case_of_its_name() {
        QDir program(opened->world.appPath());
        QVERIFY(program.rename(QStringLiteral("roms"), QStringLiteral("ROMs")));
        opened->world.folder.write(QStringLiteral("ROMs/a.gb"), "a");
        QCOMPARE(opened->open().TotalRom.Caption(), QStringLiteral("0001"));
    }

    // Height and scrolling
    void the_list_is_one_row_less_high_than_its_games_data() {
        QTest::addColumn<int>("count");
        for (const int count : {1, 2, 10, 11, 12, 22, 40}) QTest::addRow("%d", count) << count;
    }
    void the_list_is_one_row_less_high_than_its_games() {
        QFETCH(int, count);
        opened->games(count);
        QCOMPARE(opened->open().ListView1.Height(), (count - 1) * 33);
    }
    void the_scroll_buttons_move_by_the_frame_until_the_end_data() {
        QTest::addColumn<int>("count");
        QTest::addColumn<QList<int>>("tops"); // after each press of the lower button
        QTest::newRow("1") << 1 << QList<int>{1, 1};
        QTest::newRow("2") << 2 << QList<int>{1, 1};
        QTest::newRow("10") << 10 << QList<int>{1, 1};
        QTest::newRow("11") << 11 << QList<int>{1, 1};
        QTest::newRow("12") << 12 << QList<int>{-329, -329};
        QTest::newRow("22") << 22 << QList<int>{-329, -659, -659};
        QTest::newRow("40") << 40 << QList<int>{-329, -659, -989, -989};
    }
    void the_scroll_buttons_move_by_the_frame_until_the_end() {
        QFETCH(int, count);
        QFETCH(QList<int>, tops);
        opened->games(count);
        MainFrm& main = opened->open();
        QCOMPARE(main.Picture2.height(), 330);
        QCOMPARE(main.ListView1.Top(), 1);
        for (const int top : tops) {
            click(main.chameleonButton15);
            QCOMPARE(main.ListView1.Top(), top);
        }
        for (int top = tops.last(); top < 1; top += 330) {
            QCOMPARE(main.ListView1.Top(), top);
            click(main.chameleonButton14);
        }
        QCOMPARE(main.ListView1.Top(), 1);
        click(main.chameleonButton14);
        QCOMPARE(main.ListView1.Top(), 1);
    }
    void the_upper_button_needs_a_top_below_minus_3_and_stops_at_the_upper_end() {
        opened->games(40);
        MainFrm& main = opened->open();
        main.ListView1.setTop(-3);
        click(main.chameleonButton14);
        QCOMPARE(main.ListView1.Top(), -3);
        main.ListView1.setTop(-4);
        click(main.chameleonButton14);
        QCOMPARE(main.ListView1.Top(), 1);
        main.ListView1.setTop(-400);
        click(main.chameleonButton14);
        QCOMPARE(main.ListView1.Top(), -70);
    }
    void the_lower_button_scrolls_on_press() {
        opened->games(40);
        MainFrm& main = opened->open();
        const QPoint place = main.chameleonButton15.geometry().center();
        QTest::mousePress(main.windowHandle(), Qt::LeftButton, {}, place);
        QCOMPARE(main.ListView1.Top(), -329);
        QTest::mouseRelease(main.windowHandle(), Qt::LeftButton, {}, place);
        QCOMPARE(main.ListView1.Top(), -329);
        const QPoint up = main.chameleonButton14.geometry().center();
        QTest::mousePress(main.windowHandle(), Qt::LeftButton, {}, up);
        QCOMPARE(main.ListView1.Top(), -329);
        QTest::mouseRelease(main.windowHandle(), Qt::LeftButton, {}, up);
        QCOMPARE(main.ListView1.Top(), 1);
    }
    void a_row_scrolled_into_view_can_be_clicked() {
        opened->games(22);
        MainFrm& main = opened->open();
        click(main.chameleonButton15);
        opened->chooseRow(15);
        QCOMPARE(main.Games.ListIndex(), 15);
        QCOMPARE(main.Label41.Caption(), QStringLiteral("#16/22"));
    }
    void a_click_below_the_last_row_selects_nothing() {
        opened->games(2);
        MainFrm& main = opened->open();
        opened->chooseRow(1);
        click(main.ListView1, {100, 5 * 33});
        QCOMPARE(main.Games.ListIndex(), 1);
    }
    void the_last_game_is_reached_by_keys_and_by_the_wheel_data() {
        the_list_is_one_row_less_high_than_its_games_data();
    }
    void the_last_game_is_reached_by_keys_and_by_the_wheel() {
        QFETCH(int, count);
        opened->games(count);
        MainFrm& main = opened->open();
        for (int row = 1; row < count; ++row) key(Qt::Key_Down);
        QCOMPARE(main.Games.ListIndex(), count - 1);
        QCOMPARE(main.Label41.Caption(), QStringLiteral("#%1/%1").arg(count));
        QVERIFY(rowIsInSight(main, count - 1));
        key(Qt::Key_Home);
        QCOMPARE(main.Games.ListIndex(), 0);
        QVERIFY(rowIsInSight(main, 0));
        wheel(100);
        QVERIFY(rowIsInSight(main, count - 1));
        opened->chooseRow(count - 1);
        QCOMPARE(main.Games.ListIndex(), count - 1);
        wheel(-100);
        QCOMPARE(main.ListView1.Top(), 1);
        QCOMPARE(main.Games.ListIndex(), count - 1);
    }
    void keys_move_the_selection_by_one_by_a_page_and_to_the_ends() {
        opened->games(40);
        MainFrm& main = opened->open();
        key(Qt::Key_Down);
        QCOMPARE(main.Games.ListIndex(), 1);
        key(Qt::Key_PageDown);
        QCOMPARE(main.Games.ListIndex(), 11);
        QVERIFY(rowIsInSight(main, 11));
        key(Qt::Key_End);
        QCOMPARE(main.Games.ListIndex(), 39);
        key(Qt::Key_Down);
        QCOMPARE(main.Games.ListIndex(), 39);
        key(Qt::Key_PageUp);
        QCOMPARE(main.Games.ListIndex(), 29);
        key(Qt::Key_Up);
        QCOMPARE(main.Games.ListIndex(), 28);
        QVERIFY(rowIsInSight(main, 28));
    }
    void refresh_after_scrolling_shows_the_selected_first_row() {
        opened->games(40);
        MainFrm& main = opened->open();
        key(Qt::Key_End);
        click(main.Refresh);
        QCOMPARE(main.Games.ListIndex(), 0);
        QVERIFY(rowIsInSight(main, 0));
    }
    void names_with_markup_and_format_characters_are_shown_literally() {
        opened->game(QStringLiteral("<b>%s & 100%<_b>.zip"));
        MainFrm& main = opened->open();
        QCOMPARE(textsOf(main.ListView1), QStringList{QStringLiteral("<b>%s & 100%<_b>")});
        QCOMPARE(main.Label10.Caption(), QStringLiteral("<b>%s & 100%<_b>.zip"));
    }
};

TORVANE_TEST(MainFrmListTest)
#include "MainFrmListTest.moc"
