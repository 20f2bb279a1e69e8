// SPDX-License-Identifier: MIT
// The program's menu: its tree, and what each entry does.
#include "support/CatalogueTable.h"
#include "support/OpenedMenu.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

namespace {
struct BareMenu {
    FakeDesktop desktop;
    MenuingDesign design{desktop.runtime};
    QList<MenuEntry*> entries = design.findChildren<MenuEntry*>(QString(), Qt::FindDirectChildrenOnly);
};
} // namespace

class MenuingTest : public OpenedMenu {
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    void the_tree_is_that_of_the_table() {
        const BareMenu menu;
        const auto rows = tableRows(QStringLiteral(TORVANE_TESTS_DIR "/catalogue/menu.tsv"));
        QCOMPARE(rows.size(), 25);
        QCOMPARE(menu.entries.size(), rows.size());
        for (qsizetype i = 0; i < rows.size(); ++i) {
            const MenuEntry& entry = *menu.entries[i];
            const QString caption = rows[i][u"caption"_s];
            const QString state = rows[i][u"state"_s];
            QCOMPARE(entry.objectName(), rows[i][u"name"_s]);
            QCOMPARE(entry.level(), rows[i][u"level"_s].toInt());
            QCOMPARE(entry.isSeparator(), caption == u"---"_s);
            QCOMPARE(entry.Caption(), entry.isSeparator() ? QString() : caption);
            QCOMPARE(entry.Enabled(), state != u"disabled"_s);
            QCOMPARE(entry.Visible(), state != u"hidden"_s);
        }
    }
    // 15 of the 25 are no separators, and two of these are headings.
    void what_can_be_used_is_what_the_catalogue_counts_as_menus() {
        const BareMenu menu;
        QCOMPARE(std::count_if(menu.entries.begin(), menu.entries.end(),
                               [](const MenuEntry* entry) { return entry->kind() == u"menu"_s; }),
                 13);
    }
    void captions_stay_spanish_in_every_language() {
        opened->world.useLanguage("cat");
        openWithGames(1);
        QCOMPARE(action(menuing().end).text(), u"Salir"_s);
        QCOMPARE(action(menuing().loadrom).text(), u"Cargar la ROM seleccionada"_s);
    }
    void load_menu_does_nothing() {
        openWithGames(1);
        menuing().LoadMenu();
        QVERIFY(!menuing().popup.isOpen());
        QVERIFY(!menuing().isVisible());
    }
    void the_window_itself_is_never_shown_by_its_menu() {
        openWithGames(1);
        menuing().popup.popUp({});
        QVERIFY(!menuing().isVisible());
        menuing().popup.shown().close();
    }

    void torvette_mode_replaces_the_main_window_by_the_compact_one() {
        openWithGames(2);
        choose(menuing().changetomini);
        QVERIFY(isShown<Torvette>() && !main().isVisible());
        loaded<Torvette>()->Unload();
        QVERIFY(main().isVisible());
    }
    void both_edit_entries_replace_the_main_window_by_the_database_data() {
        QTest::addColumn<QString>("name");
        QTest::newRow("list of games") << u"editromlist"_s;
        QTest::newRow("database") << u"editid3"_s;
    }
    void both_edit_entries_replace_the_main_window_by_the_database() {
        QFETCH(QString, name);
        openWithGames(1);
        choose(*menuing().findChild<MenuEntry*>(name));
        QVERIFY(isShown<EditDB>() && !main().isVisible());
        loaded<EditDB>()->Unload();
        QVERIFY(main().isVisible());
    }
    void the_settings_entry_hides_the_main_window_reports_a_missing_object_and_brings_it_back() {
        struct Watching : FakeMessages {
            MainFrm* window = nullptr;
            bool wasVisible = true;
            int MsgBox(const QString& text, int flags, const QString& title) override {
                wasVisible = window->isVisible();
                return FakeMessages::MsgBox(text, flags, title);
            }
        } watching;
        Runtime runtime = opened->world.runtimeAsking(watching);
        opened->games(1);
        opened->program = std::make_unique<Program>(runtime, opened->world.appPath());
        opened->program->start();
        QVERIFY(QTest::qWaitForWindowExposed(&main()));
        watching.window = &main();
        choose(menuing().configmn);
        QCOMPARE(watching.boxes.size(), 1);
        QVERIFY(watching.last().contains(u"91"_s));
        QVERIFY(!watching.wasVisible);
        QVERIFY(main().isVisible() && main().isEnabled());
        QCOMPARE(opened->world.ends, 0);
        opened->close();
    }
    void new_games_are_searched_for_on_the_page_of_the_search_host() {
        openWithGames(1);
        choose(menuing().searchgames);
        const QString page = u"file://%1/data/site/modules-name-Edonkey.html"_s.arg(opened->world.appPath());
        QCOMPARE(opened->world.browser.urls, QStringList{page});
        QVERIFY(main().isVisible());
        QVERIFY(QFile::exists(QStringLiteral(TORVANE_TREE_DIR "/data/site/modules-name-Edonkey.html")));
    }
    void new_games_are_searched_for_on_the_server_that_the_deployment_names() {
        opened->world.folder.write(u"data/hosts.ini"_s, "[Hosts]\r\nsearch=http://search.example\r\n");
        openWithGames(1);
        choose(menuing().searchgames);
        QCOMPARE(opened->world.browser.urls,
                 QStringList{u"http://search.example/modules.php?name=Edonkey"_s});
    }
    void load_plays_the_selected_game() {
        openWithGames(2);
        opened->chooseRow(1);
        choose(menuing().loadrom);
        QCOMPARE(starts(), 1);
        QVERIFY(opened->world.processes.starts[0].arguments[0].endsWith("g002.gb"));
        QVERIFY(main().isVisible());
    }
    void load_plays_nothing_without_a_game() {
        openWithGames(0);
        loaded<NewAssistant>()->Unload();
        choose(menuing().loadrom);
        QCOMPARE(starts(), 0);
        QCOMPARE(messages().boxes.size(), 0);
    }
    void exit_asks_in_spanish_and_ends_the_program_on_yes() {
        openWithGames(1);
        choose(menuing().end);
        TorvMsg& question = *loaded<TorvMsg>();
        QCOMPARE(question.Label2.Caption(), u"¿Seguro que quieres salir?"_s);
        QVERIFY(question.isVisible() && !main().isEnabled());
        click(question.chameleonButton2);
        QCOMPARE(opened->world.ends, 1);
    }
    void exit_called_off_lets_the_main_window_take_input_again() {
        openWithGames(1);
        choose(menuing().end);
        click(loaded<TorvMsg>()->chameleonButton3);
        QVERIFY(main().isEnabled());
        QCOMPARE(opened->world.ends, 0);
    }

    void minimising_the_main_window_offers_to_view_it_and_restoring_does_not() {
        openWithGames(1);
        const Menuing& menu = menuing();
        QVERIFY(!menu.view_tv.Visible() && !menu.barra1.Visible());
        click(main().chameleonButton2);
        QVERIFY(menu.view_tv.Visible() && menu.barra1.Visible());
        QVERIFY(offers(menu.view_tv));
        main().setWindowStateWord(Form::normal);
        QVERIFY(!menu.view_tv.Visible() && !menu.barra1.Visible());
        QVERIFY(!offers(menu.view_tv));
    }
    void view_gives_a_minimised_main_window_its_normal_state() {
        openWithGames(1);
        main().setWindowStateWord(Form::minimised);
        choose(menuing().view_tv);
        QCOMPARE(main().windowStateWord(), Form::normal);
        QVERIFY(main().isVisible());
    }
    void editing_the_tag_is_never_offered() {
        openWithGames(1);
        QVERIFY(!offers(menuing().editromid3));
        main().setWindowStateWord(Form::minimised);
        QVERIFY(!offers(menuing().editromid3));
    }
};

TORVANE_TEST(MenuingTest)
#include "MenuingTest.moc"
