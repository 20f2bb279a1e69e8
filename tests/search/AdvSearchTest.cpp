// SPDX-License-Identifier: MIT
// The window that goes to a game of the list: its four ways, what breaks them off, and its life.
#include "support/OpenedSearch.h"
#include "support/TestMain.h"

#include <QSignalSpy>

using namespace torvane;
using namespace Qt::StringLiterals;

class AdvSearchTest : public OpenedSearch {
    Q_OBJECT

    AdvSearch& window() const { return *loaded<AdvSearch>(); }
    bool isOpen() const { return window().isVisible(); }
    QString position() const { return main().Label41.Caption(); }

    void openWith(const QStringList& names) const {
        for (const QString& name : names) opened->game(name);
        opened->open();
    }
    void openWith(int games) const {
        opened->games(games);
        opened->open();
    }

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    // By title
    void a_title_is_found_by_its_beginning_alone() {
        openWith({u"Super Tetris.gb"_s, u"Tetris.gb"_s, u"Tetris 2.gb"_s, u"Zelda.gb"_s});
        search(0, u"tet"_s);
        // "Tetris 2" is listed before "Tetris".
        QCOMPARE(main().ListView1.model().index(marked() - 1, 0).data().toString(), u"Tetris 2"_s);
        QVERIFY(!isOpen());
        search(0, u"etris"_s);
        QCOMPARE(marked(), 2);
        search(0, u"SUPER T"_s);
        QCOMPARE(marked(), 1);
    }
    void a_title_is_found_without_regard_to_case_as_in_the_database_data() {
        QTest::addColumn<QString>("typed");
        for (const char* text : {"ñandú", "ÑANDÚ", "ñANDú"}) QTest::newRow(text) << QString::fromUtf8(text);
    }
    void a_title_is_found_without_regard_to_case_as_in_the_database() {
        QFETCH(QString, typed);
        openWith({u"a.gb"_s, u"Ñandú.gb"_s});
        search(0, typed);
        QCOMPARE(marked(), 2);
    }
    void a_search_by_title_marks_the_row_and_leaves_the_selected_game() {
        openWith({u"a.gb"_s, u"b.gb"_s, u"c.gb"_s});
        opened->chooseRow(1);
        const QSignalSpy clicks(&main().Games, &FileList::Click);
        search(0, u"c"_s);
        QCOMPARE(marked(), 3);
        QCOMPARE(top(), 33.0F);
        QCOMPARE(main().Games.ListIndex(), 1);
        QCOMPARE(position(), u"#2/3"_s);
        QCOMPARE(clicks.size(), 0);
    }
    void return_plays_the_game_that_a_search_by_title_has_marked() {
        openWith({u"a.gb"_s, u"b.gb"_s, u"c.gb"_s});
        search(0, u"c"_s);
        QTest::keyClick(&main().ListView1, Qt::Key_Return);
        QCOMPARE(opened->world.processes.starts.size(), 1);
        QVERIFY(opened->world.processes.starts[0].arguments.last().endsWith("/c.gb"));
        QCOMPARE(position(), u"#3/3"_s);
    }
    void return_on_a_marked_row_whose_game_is_gone_plays_nothing() {
        openWith({u"a.gb"_s, u"b.gb"_s, u"c.gb"_s});
        QVERIFY(QFile::remove(opened->world.folder.path(u"roms/c.gb"_s)));
        main().Games.Refresh();
        main().Games.setListIndex(0);
        search(0, u"c"_s);
        QTest::keyClick(&main().ListView1, Qt::Key_Return);
        QCOMPARE(opened->world.processes.starts.size(), 0);
        QCOMPARE(messages().boxes.size(), 1);
        QCOMPARE(opened->world.ends, 0);
    }
    void an_empty_title_or_a_blank_only_hides_the_window_data() {
        QTest::addColumn<QString>("title");
        QTest::newRow("empty") << QString();
        QTest::newRow("blank") << u" "_s;
        QTest::newRow("a title that no row begins with") << u"zz"_s;
        QTest::newRow("two blanks") << u"  "_s;
        QTest::newRow("100,000 characters") << QString(100'000, u'g');
    }
    void an_empty_title_or_a_blank_only_hides_the_window() {
        QFETCH(QString, title);
        openWith(20);
        opened->chooseRow(4);
        search(0, title);
        QVERIFY(!isOpen());
        QCOMPARE(marked(), 5);
        QCOMPARE(top(), 1.0F);
        QCOMPARE(messages().boxes.size(), 0);
        QCOMPARE(opened->world.ends, 0);
    }
    void a_title_with_blanks_around_is_searched_as_it_stands() {
        openWith({u"a.gb"_s, u"b c.gb"_s});
        search(0, u"b "_s);
        QCOMPARE(marked(), 2);
        search(0, u" b"_s);
        QCOMPARE(marked(), 2);
        search(0, u"a"_s);
        QCOMPARE(marked(), 1);
        search(0, u"b  "_s);
        QCOMPARE(marked(), 1);
    }

    void a_blank_is_no_search_even_for_a_title_that_begins_with_one() {
        openWith({u" a.gb"_s, u"b.gb"_s});
        opened->chooseRow(1);
        search(0, u" "_s);
        QCOMPARE(marked(), 2);
        search(0, u" a"_s);
        QCOMPARE(marked(), 1);
    }

    // By number
    void a_number_selects_its_game() {
        openWith(30);
        search(1, {}, u"25"_s);
        QCOMPARE(marked(), 25);
        QCOMPARE(main().Games.ListIndex(), 24);
        QCOMPARE(position(), u"#25/30"_s);
        QCOMPARE(top(), -660.0F);
        QVERIFY(isMarkedInSight());
        QVERIFY(!isOpen());
    }
    void the_number_09_is_row_9_on_the_first_page() {
        openWith(12);
        search(1, {}, u"09"_s);
        QCOMPARE(marked(), 9);
        QCOMPARE(top(), 33.0F);
    }
    void the_number_10_is_shown_although_its_page_is_another() {
        openWith(40);
        search(1, {}, u"10"_s);
        QCOMPARE(marked(), 10);
        QCOMPARE(top(), -2970.0F);
        QVERIFY(isMarkedInSight());
        opened->chooseRow(11); // in sight, too
        QCOMPARE(main().Games.ListIndex(), 11);
    }
    void what_is_no_number_of_a_row_only_hides_the_window_data() {
        QTest::addColumn<QString>("number");
        for (const char* text : {"", " ", "abc", "12x", "0", "-1", "-0", "31", "32767", "32768", "-32769",
                                 "1,5", "0x1", "99999999999999999999999999999999999999", ".4", "inf"}) {
            QTest::newRow(text) << QString::fromLatin1(text);
        }
        QTest::newRow("40 digits") << QString(40, u'9');
        QTest::newRow("40 zeros") << QString(40, u'0');
    }
    void what_is_no_number_of_a_row_only_hides_the_window() {
        QFETCH(QString, number);
        openWith(30);
        opened->chooseRow(4);
        search(1, {}, number);
        QVERIFY(!isOpen());
        QCOMPARE(marked(), 5);
        QCOMPARE(main().Games.ListIndex(), 4);
        QCOMPARE(top(), 1.0F);
        QCOMPARE(messages().boxes.size(), 0);
    }
    void a_number_of_a_game_that_is_gone_shows_what_the_main_window_reports() {
        openWith(12);
        QVERIFY(QFile::remove(opened->world.folder.path(u"roms/g011.gb"_s)));
        search(1, {}, u"11"_s);
        QCOMPARE(marked(), 11);
        QCOMPARE(top(), -330.0F);
        QVERIFY(!isOpen());
        QCOMPARE(opened->world.ends, 0);
    }

    // To the ends
    void the_last_game_is_selected() {
        openWith(40);
        search(2);
        QCOMPARE(marked(), 40);
        QCOMPARE(main().Games.ListIndex(), 39);
        QCOMPARE(position(), u"#40/40"_s);
        QCOMPARE(top(), -990.0F);
        QVERIFY(isMarkedInSight());
        QVERIFY(!isOpen());
    }
    void the_first_game_is_selected_at_3_even_from_33() {
        openWith(40);
        search(1, {}, u"7"_s);
        QCOMPARE(top(), 33.0F);
        search(3);
        QCOMPARE(marked(), 1);
        QCOMPARE(main().Games.ListIndex(), 0);
        QCOMPARE(top(), 3.0F);
        QCOMPARE(main().ListView1.seenTop(), 3);
    }
    void the_first_game_is_seen_at_its_place_from_far_down() {
        openWith(60);
        search(2);
        search(3);
        QCOMPARE(top(), 3.0F);
        QCOMPARE(main().ListView1.seenTop(), 3);
        QVERIFY(isMarkedInSight());
    }
    void an_empty_list_is_reported_before_the_window_hides_data() {
        QTest::addColumn<int>("way");
        QTest::addColumn<float>("top");
        QTest::newRow("last") << 2 << 1.0F;
        QTest::newRow("first") << 3 << 3.0F;
    }
    void an_empty_list_is_reported_before_the_window_hides() {
        QFETCH(int, way);
        QFETCH(float, top);
        opened->open();
        loaded<NewAssistant>()->Unload();
        search(way);
        QCOMPARE(messages().boxes.size(), 1);
        QCOMPARE(messages().last(), RuntimeFailure(RuntimeFailure::subscript).boxText());
        QCOMPARE(messages().boxes.first().flags, MsgBoxFlags::critical);
        QVERIFY(!isOpen());
        QCOMPARE(this->top(), top);
        QCOMPARE(opened->world.ends, 0);
        opened->game(u"new.gb"_s);
        click(main().Refresh);
        search(way);
        QCOMPARE(messages().boxes.size(), 1);
        QCOMPARE(main().Games.ListIndex(), 0);
    }
    void the_window_stands_while_the_failure_is_reported() {
        struct Watched : FakeMessages {
            std::function<bool()> isOpen;
            QList<bool> seen;
            int MsgBox(const QString&, int, const QString&) override {
                seen += isOpen();
                return MsgBoxFlags::answerOk;
            }
        } watched;
        watched.isOpen = [this] { return isOpen(); };
        Runtime runtime = opened->world.runtimeAsking(watched);
        opened->program = std::make_unique<Program>(runtime, opened->world.appPath());
        opened->program->start();
        QVERIFY(QTest::qWaitForWindowExposed(&main()));
        loaded<NewAssistant>()->Unload();
        search(2);
        QCOMPARE(watched.seen, QList<bool>{true});
        QVERIFY(!isOpen());
        opened->close();
    }
    void an_empty_list_has_no_title_and_no_number() {
        opened->open();
        loaded<NewAssistant>()->Unload();
        search(0, u"a"_s);
        search(1, {}, u"1"_s);
        QCOMPARE(messages().boxes.size(), 0);
        QVERIFY(!isOpen());
    }
    void a_list_that_is_longer_than_the_library_is_searched_as_it_stands() {
        openWith(5);
        QVERIFY(QFile::remove(opened->world.folder.path(u"roms/g005.gb"_s)));
        main().Games.Refresh();
        search(1, {}, u"5"_s); // the row is there, the game is not
        QCOMPARE(marked(), 5);
        QCOMPARE(main().Games.ListIndex(), -1);
        QCOMPARE(top(), 1.0F);
        QCOMPARE(messages().boxes.size(), 0);
        search(2);
        QCOMPARE(marked(), 4);
    }
    void a_list_that_is_shorter_than_the_library_ends_where_it_ends() {
        openWith(5);
        opened->game(u"z.gb"_s);
        main().Games.Refresh();
        search(2);
        QCOMPARE(messages().last(), RuntimeFailure(RuntimeFailure::subscript).boxText());
        QVERIFY(!isOpen());
    }

    // What goes on from there
    void the_buttons_of_the_list_go_on_from_what_is_seen() {
        openWith(60);
        search(1, {}, u"10"_s);
        const int seen = main().ListView1.seenTop();
        QVERIFY(seen != -2970);
        click(main().chameleonButton15);
        QCOMPARE(main().ListView1.seenTop(), seen - 330);
        click(main().chameleonButton14);
        QCOMPARE(main().ListView1.seenTop(), seen);
        QCOMPARE(top(), static_cast<float>(seen));
    }
    void the_lower_button_turns_a_page_where_rows_are_left() {
        openWith(40);
        search(2);
        click(main().chameleonButton15);
        QCOMPARE(main().ListView1.seenTop(), -990);
    }
    void refreshing_the_list_shows_its_first_game() {
        openWith(40);
        search(1, {}, u"10"_s);
        click(main().Refresh);
        QCOMPARE(marked(), 1);
        QVERIFY(isMarkedInSight());
    }
    void a_row_is_clicked_where_it_is_seen_after_each_way() {
        openWith(101);
        const QList<std::pair<int, QString>> runs{
            {0, u"g020"_s}, {1, u"10"_s}, {1, u"100"_s}, {2, {}}, {3, {}}};
        for (const auto& [way, text] : runs) {
            search(way, text, text);
            const int row = marked() - 1;
            QVERIFY(isMarkedInSight());
            opened->chooseRow(row);
            QCOMPARE(main().Games.ListIndex(), row);
        }
    }
};

TORVANE_TEST(AdvSearchTest)
#include "AdvSearchTest.moc"
