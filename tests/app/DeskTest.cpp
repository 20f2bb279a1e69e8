// SPDX-License-Identifier: MIT
// The ways between windows, and what the main window offers to the others.
#include "support/Archive.h"
#include "support/Failing.h"
#include "support/OpenedProgram.h"
#include "support/TestMain.h"

using namespace torvane;

class DeskTest : public QObject {
    Q_OBJECT

    std::unique_ptr<OpenedProgram> opened;

    Program& program() const { return *opened->program; }
    GameShelf& shelf() const { return program().shelf; }

private slots:
    void init() { opened = std::make_unique<OpenedProgram>(); }
    void cleanup() { opened.reset(); }

    void every_name_is_in_the_list_of_windows_once() {
        QSet<int> ids;
        int count = 0;
        Windows::forEach([&]<typename W>() {
            ids.insert(static_cast<int>(W::id));
            ++count;
        });
        QCOMPARE(ids.size(), count);
    }
    void every_name_means_the_window_of_that_name() {
        opened->games(1);
        opened->open();
        Windows::forEach([&]<typename W>() {
            const QString name = QString::fromLatin1(W::staticMetaObject.className()).section(u':', -1);
            Form* form = program().windows.load(W::id);
            // The language window closes at once, since a language is stored.
            QCOMPARE(form == nullptr, W::id == Window::SelLangStartUp);
            if (form != nullptr) QCOMPARE(form->objectName(), name);
        });
    }
    void a_way_that_is_not_in_the_table_leads_nowhere() {
        opened->games(1);
        opened->open();
        program().desk.go(Window::Splash, Window::NewAssistant);
        QVERIFY(program().loaded<NewAssistant>() == nullptr);
    }
    void the_start_makes_no_window_but_the_menu_and_the_main_one() {
        opened->games(1);
        opened->open();
        QStringList made;
        Windows::forEach([&]<typename W>() {
            if (const Form* form = program().windows.ifLoaded(W::id)) made += form->objectName();
        });
        QCOMPARE(made, QStringList({QStringLiteral("Menuing"), QStringLiteral("MainFrm")}));
    }
    void the_main_window_is_hidden_while_the_archive_window_is_open_and_then_comes_back() {
        writeArchive(opened->world.folder.path(QStringLiteral("roms/a.zip")),
                     {{QStringLiteral("m.gb"), "x"}});
        opened->open();
        click(opened->main().Zipper);
        ZIP_Viewer* viewer = program().loaded<ZIP_Viewer>();
        QVERIFY(viewer->isVisible() && !opened->main().isVisible());
        click(viewer->chameleonButton1);
        QVERIFY(program().loaded<ZIP_Viewer>() == nullptr);
        QVERIFY(opened->main().isVisible());
    }
    void the_archive_window_leads_to_the_main_one_if_the_compact_one_is_hidden() {
        const QString archive = opened->world.folder.path(QStringLiteral("roms/a.zip"));
        writeArchive(archive, {{QStringLiteral("m.gb"), "x"}});
        opened->open();
        program().desk.go(Window::MainFrm, Window::Torvette);
        program().loaded<Torvette>()->Hide();
        program().desk.go(Window::MainFrm, Window::ZIP_Viewer, {archive, QStringLiteral("a.zip")});
        program().loaded<ZIP_Viewer>()->Unload();
        QVERIFY(opened->main().isVisible());
    }
    void an_owned_window_leaves_its_opener_on_screen_and_stays_above_it_when_it_is_reloaded() {
        opened->games(1);
        opened->open();
        program().desk.go(Window::MainFrm, Window::NewAssistant);
        NewAssistant* assistant = program().loaded<NewAssistant>();
        QVERIFY(opened->main().isVisible() && assistant->isVisible());
        const MainFrm* old = program().loaded<MainFrm>();
        program().desk.go(Window::MainFrm, Window::MainFrm);
        QVERIFY(program().loaded<MainFrm>() != old);
        QVERIFY(opened->main().isVisible());
        QCOMPARE(assistant->windowHandle()->transientParent(), opened->main().windowHandle());
    }
    void a_closed_window_is_not_shown_when_its_opener_is_reloaded() {
        opened->games(1);
        opened->open();
        program().desk.go(Window::MainFrm, Window::NewAssistant);
        program().loaded<NewAssistant>()->Unload();
        program().desk.go(Window::MainFrm, Window::MainFrm);
        QVERIFY(program().loaded<NewAssistant>() == nullptr);
    }

    void a_held_window_goes_when_its_opener_goes_and_an_owned_one_stays() {
        opened->games(1);
        opened->open();
        program().desk.go(Window::MainFrm, Window::EditDB);
        program().desk.go(Window::EditDB, Window::DB_Info, {QStringLiteral("SYSTEM")});
        program().desk.go(Window::EditDB, Window::Form2);
        program().loaded<DB_Info>()->Unload();
        QVERIFY(program().loaded<EditDB>() != nullptr);
        program().loaded<EditDB>()->Unload();
        QVERIFY(program().loaded<Form2>() == nullptr);
        QVERIFY(opened->main().isVisible());
    }

    void what_belonged_to_the_compact_window_belongs_to_the_main_one_when_that_comes_back_data() {
        QTest::addColumn<int>("window");
        QTest::newRow("search") << static_cast<int>(Window::AdvSearch);
        QTest::newRow("assistant") << static_cast<int>(Window::NewAssistant);
    }
    void what_belonged_to_the_compact_window_belongs_to_the_main_one_when_that_comes_back() {
        QFETCH(int, window);
        const auto owned = static_cast<Window>(window);
        opened->games(1);
        opened->open();
        program().desk.go(Window::MainFrm, Window::Torvette);
        program().desk.go(Window::Torvette, owned);
        program().loaded<Torvette>()->Unload();
        collectGone();
        const Form* form = program().windows.ifLoaded(owned);
        QVERIFY(form->isVisible() && opened->main().isVisible());
        QCOMPARE(form->windowHandle()->transientParent(), opened->main().windowHandle());
        QTRY_COMPARE(QApplication::activeWindow(), form);
        // From then on it is as if the main window had opened it.
        program().desk.go(Window::MainFrm, Window::MainFrm);
        collectGone();
        QCOMPARE(form->windowHandle()->transientParent(), opened->main().windowHandle());
    }
    void a_hidden_window_of_the_compact_one_stays_hidden() {
        opened->games(1);
        opened->open();
        program().desk.go(Window::MainFrm, Window::Torvette);
        program().desk.go(Window::Torvette, Window::AdvSearch);
        program().loaded<AdvSearch>()->Hide();
        program().loaded<Torvette>()->Unload();
        QVERIFY(!program().loaded<AdvSearch>()->isVisible());
    }
    void a_main_window_that_comes_back_has_its_own_windows_above_it() {
        opened->games(1);
        opened->open();
        program().desk.go(Window::MainFrm, Window::AdvSearch);
        program().desk.go(Window::MainFrm, Window::EditDB);
        QTRY_COMPARE(QApplication::activeWindow(), program().loaded<EditDB>());
        program().loaded<EditDB>()->Unload();
        QTRY_COMPARE(QApplication::activeWindow(), program().loaded<AdvSearch>());
        QVERIFY(opened->main().isVisible());
    }

    void a_window_that_is_opened_anew_keeps_its_way_back_and_takes_its_held_window_along() {
        opened->games(1);
        opened->open();
        program().desk.go(Window::MainFrm, Window::Compartir);
        program().desk.go(Window::Compartir, Window::AmpliCaptura, {QStringLiteral("a.bmp")});
        const Compartir* old = program().loaded<Compartir>();
        program().desk.go(Window::Compartir, Window::Compartir);
        QVERIFY(program().loaded<Compartir>() != old);
        QVERIFY(program().loaded<AmpliCaptura>() == nullptr);
        QVERIFY(!opened->main().isVisible());
        program().loaded<Compartir>()->Unload();
        QVERIFY(opened->main().isVisible());
    }
    void the_shelf_gives_the_selected_game() {
        opened->games(3);
        opened->open();
        opened->chooseRow(1);
        const SelectedGame game = shelf().selected();
        QCOMPARE(game.name, QStringLiteral("g002.gb"));
        QCOMPARE(game.path, opened->world.appPath() + QStringLiteral("\\roms\\g002.gb"));
        QCOMPARE(game.index, 1);
        QCOMPARE(game.count, 3);
    }
    void the_shelf_gives_no_game_of_an_empty_library() {
        opened->open();
        QCOMPARE(shelf().selected().name, QString());
        QCOMPARE(shelf().selected().index, -1);
        QCOMPARE(shelf().selected().count, 0);
    }
    void a_selection_through_the_shelf_does_what_a_click_does() {
        opened->games(3);
        opened->open();
        shelf().select(2);
        QCOMPARE(opened->main().Games.ListIndex(), 2);
        QCOMPARE(opened->main().ListView1.currentRow(), 2);
        QCOMPARE(opened->main().Label41.Caption(), QStringLiteral("#3/3"));
    }
    void a_position_beyond_the_list_is_an_invalid_property_value() {
        opened->games(3);
        opened->open();
        try {
            shelf().select(3);
            QFAIL("no failure");
        } catch (const RuntimeFailure& failure) {
            QCOMPARE(failure.number(), RuntimeFailure::invalidProperty);
        }
        QCOMPARE(shelf().selected().index, 0);
    }
    void the_shelf_loads_a_missing_main_window() {
        opened->games(2);
        Program fresh(opened->world.runtime, opened->world.appPath());
        QVERIFY(fresh.loaded<MainFrm>() == nullptr);
        fresh.shelf.refresh();
        fresh.shelf.tagChanged(QStringLiteral("g001.gb"));
        fresh.shelf.setTakesInput(false);
        QVERIFY(fresh.loaded<MainFrm>() == nullptr);
        QCOMPARE(fresh.shelf.selected().count, 2);
        QVERIFY(!fresh.loaded<MainFrm>()->isVisible());
    }
    void a_refresh_through_the_shelf_lists_new_games_and_selects_the_first() {
        opened->games(2);
        opened->open();
        opened->chooseRow(1);
        opened->game(QStringLiteral("a.gb"));
        shelf().refresh();
        QCOMPARE(shelf().selected().name, QStringLiteral("a.gb"));
        QCOMPARE(shelf().selected().count, 3);
    }
    void a_launch_through_the_shelf_plays_the_selected_game() {
        opened->games(1);
        opened->open();
        shelf().launch();
        QCOMPARE(opened->world.processes.starts.size(), 1);
        QVERIFY(opened->world.processes.starts.last().arguments.last().endsWith("g001.gb"));
    }
    void the_position_of_the_list_can_be_set() {
        opened->games(40);
        opened->open();
        QCOMPARE(opened->main().ListView1.Top(), 1.0F);
        QCOMPARE(shelf().listPage(), 330.0F);
        shelf().setListTop(-100.5F);
        QCOMPARE(opened->main().ListView1.Top(), -100.5F);
        QCOMPARE(opened->main().ListView1.seenTop(), 1); // shows the first row, which is the marked one
    }
    void rows_are_found_by_title_and_marked() {
        opened->games(40);
        opened->open();
        QCOMPARE(shelf().rowOf(QStringLiteral("G02")), 19);
        QCOMPARE(shelf().rowOf(QStringLiteral("h")), -1);
        shelf().markRow(19);
        QCOMPARE(opened->main().ListView1.currentRow(), 19);
        QCOMPARE(shelf().selected().index, 0);
        QCOMPARE(opened->main().ListView1.Top(), 1.0F);
        for (const int row : {-1, 40}) {
            QCOMPARE(failureOf([&] { shelf().markRow(row); }), std::optional<int>(RuntimeFailure::subscript));
        }
    }
    void only_a_visible_window_takes_input_again() {
        opened->games(1);
        opened->open();
        shelf().setTakesInput(false);
        QVERIFY(!opened->main().isEnabled());
        opened->main().Hide();
        shelf().setTakesInput(true);
        QVERIFY(!opened->main().isEnabled());
        opened->main().Show();
        shelf().setTakesInput(true);
        QVERIFY(opened->main().isEnabled());
    }
};

TORVANE_TEST(DeskTest)
#include "DeskTest.moc"
