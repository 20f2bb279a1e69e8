// SPDX-License-Identifier: MIT
// What the compact window does: steps, launches, the way back, what is dropped on it, and libraries that
// change under it.
#include "support/Archive.h"
#include "support/OpenedCompact.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class TorvetteStepsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<OpenedCompact> opened;
    Torvette& window() const { return opened->compact(); }
    FakeMessages& messages() const { return opened->world.messages; }
    FakeProcesses& processes() const { return opened->world.processes; }
    QString number() const { return window().Label3.Caption(); }
    bool isGone() const { return opened->program->loaded<Torvette>() == nullptr; }
    void openWith(int games) {
        opened->games(games);
        opened->openCompact();
    }
    void remove(const QString& name) { QVERIFY(QFile::remove(opened->world.folder.path(u"roms/"_s + name))); }

private slots:
    void init() { opened = std::make_unique<OpenedCompact>(); }
    void cleanup() { opened.reset(); }

    void steps_move_the_selection_of_the_main_window_and_show_its_tag() {
        opened->tagged(u"a.gb"_s, u"One"_s);
        opened->tagged(u"b.gba"_s, u"Two"_s, u"Tin Fern"_s, u"More"_s);
        opened->openCompact();
        opened->next();
        QCOMPARE(opened->main().Games.ListIndex(), 1);
        QCOMPARE(opened->main().ListView1.currentRow(), 1);
        QCOMPARE(opened->line(), u"TWO ··· "_s);
        QCOMPARE(opened->data(),
                 QStringList({u"#0002"_s, u"GB Advance"_s, u"4 KB"_s, u"Tin Fern"_s, u"More"_s}));
        opened->previous();
        QCOMPARE(opened->main().Games.ListIndex(), 0);
        QCOMPARE(opened->line(), u"ONE ··· "_s);
        QCOMPARE(number(), u"#0001"_s);
    }
    void next_at_the_last_game_stays_there_and_builds_line_and_data_anew() {
        opened->tagged(u"a.gb"_s, u"A name of 17 char"_s);
        opened->openCompact();
        opened->tick();
        QVERIFY(opened->line().startsWith(u' '));
        window().Label5.setCaption(u"?"_s);
        opened->next();
        QCOMPARE(opened->main().Games.ListIndex(), 0);
        QCOMPARE(opened->line(), u"A NAME OF 17 CHAR ··· "_s);
        QCOMPARE(window().Label5.Caption(), u"4 KB"_s);
        QCOMPARE(messages().boxes.size(), 0);
    }
    void previous_at_the_first_game_does_nothing_at_all() {
        opened->tagged(u"a.gb"_s, u"A name of 17 char"_s);
        opened->openCompact();
        opened->tick();
        window().Label5.setCaption(u"?"_s);
        opened->previous();
        QCOMPARE(opened->line(), u" NAME OF 17 CHAR ··· A"_s);
        QCOMPARE(window().Label5.Caption(), u"?"_s);
    }
    void arrow_keys_step_whatever_button_has_the_focus() {
        openWith(4);
        opened->press(Qt::Key_Right);
        opened->press(Qt::Key_Down);
        QCOMPARE(number(), u"#0003"_s);
        click(window().ChameleonButton4);
        opened->press(Qt::Key_Left);
        QCOMPARE(number(), u"#0002"_s);
        window().chameleonButton3.setFocus();
        opened->press(Qt::Key_Up);
        QCOMPARE(number(), u"#0001"_s);
        opened->press(Qt::Key_Up);
        QCOMPARE(number(), u"#0001"_s);
    }

    void a_held_arrow_key_steps_on_and_a_held_enter_launches_once_data() {
        QTest::addColumn<bool>("hasFocus");
        QTest::newRow("launch button") << true;
        QTest::newRow("another button") << false;
    }
    void a_held_arrow_key_steps_on_and_a_held_enter_launches_once() {
        QFETCH(bool, hasFocus);
        openWith(4);
        (hasFocus ? window().chameleonButton2 : window().chameleonButton3).setFocus();
        const auto hold = [this](Qt::Key key) {
            for (const bool repeats : {false, true, true})
                QTest::simulateEvent(window().focusWidget(), true, key, {}, QString(), repeats);
            QTest::simulateEvent(window().focusWidget(), false, key, {}, QString(), false);
        };
        hold(Qt::Key_Right);
        QCOMPARE(number(), u"#0004"_s);
        hold(Qt::Key_Up);
        QCOMPARE(number(), u"#0001"_s);
        hold(Qt::Key_Return);
        QCOMPARE(processes().starts.size(), 1);
        hold(Qt::Key_Enter);
        QCOMPARE(processes().starts.size(), 2);
        QVERIFY(opened->isCompact());
    }

    // Launches
    void the_launch_button_and_enter_play_the_selected_game_and_nothing_else_comes_on_screen() {
        openWith(2);
        bool isCompact = false;
        processes().whileRunning = [&] { isCompact = opened->isCompact(); };
        click(window().chameleonButton2);
        opened->next();
        opened->press(Qt::Key_Return);
        opened->press(Qt::Key_Enter);
        QCOMPARE(processes().starts.size(), 3);
        QVERIFY(processes().starts[0].arguments.last().endsWith("/g001.gb"));
        QVERIFY(processes().starts[1].arguments.last().endsWith("/g002.gb"));
        QVERIFY(isCompact && opened->isCompact());
        QCOMPARE(window().windowStateWord(), Form::normal);
        click(window().chameleonButton3);
        QCOMPARE(opened->main().windowStateWord(), Form::normal);
    }
    void clicks_and_keys_that_come_while_a_game_runs_are_dropped() {
        openWith(2);
        processes().whileRunning = [&] {
            if (processes().starts.size() > 1) return;
            postClick(window().chameleonButton2);
            postClick(window().chameleonButton1);
            postKey(window(), Qt::Key_Return);
            postKey(window(), Qt::Key_Escape);
        };
        click(window().chameleonButton2);
        QCoreApplication::processEvents();
        QCOMPARE(processes().starts.size(), 1);
        QCOMPARE(number(), u"#0001"_s);
        QVERIFY(opened->isCompact());
    }
    void the_archive_window_comes_back_to_the_compact_one() {
        writeArchive(opened->world.folder.path(u"roms/a.zip"_s), {{u"m.gb"_s, "x"}});
        opened->world.setSetting("zip", u"1"_s);
        opened->openCompact();
        click(window().chameleonButton2);
        ZIP_Viewer* viewer = opened->program->loaded<ZIP_Viewer>();
        QVERIFY(viewer != nullptr && viewer->isVisible() && opened->isCompact());
        click(viewer->chameleonButton1);
        QVERIFY(opened->program->loaded<ZIP_Viewer>() == nullptr);
        QVERIFY(opened->isCompact());
    }

    void the_search_button_opens_the_search_above_the_compact_window() {
        openWith(2);
        click(window().ChameleonButton4);
        click(window().ChameleonButton6);
        const AdvSearch* search = opened->program->loaded<AdvSearch>();
        QVERIFY(search != nullptr && search->isVisible() && opened->isCompact());
        QCOMPARE(search->windowHandle()->transientParent(), window().windowHandle());
    }
    void another_archive_replaces_the_one_that_is_listed() {
        writeArchive(opened->world.folder.path(u"roms/a.zip"_s), {{u"m.gb"_s, "x"}, {u"n.gb"_s, "x"}});
        writeArchive(opened->world.folder.path(u"roms/b.zip"_s), {{u"o.gb"_s, "x"}});
        opened->world.setSetting("zip", u"1"_s);
        opened->openCompact();
        click(window().chameleonButton2);
        ZIP_Viewer& viewer = *opened->program->loaded<ZIP_Viewer>();
        QCOMPARE(viewer.ListView1.rowCount(), 2);
        click(window().chameleonButton2); // the same archive again
        QCOMPARE(viewer.ListView1.rowCount(), 2);
        opened->next();
        click(window().chameleonButton2);
        QCOMPARE(viewer.ListView1.rowCount(), 1);
        QCOMPARE(viewer.ListView1.model().index(0, 0).data().toString(), u"o.gb"_s);
        doubleClick(viewer.ListView1, viewer.ListView1.rowRect(0).center());
        QCOMPARE(processes().starts.size(), 1);
        QVERIFY(processes().starts[0].arguments.last().endsWith("/b/o.gb"));
        QCOMPARE(opened->world.folder.entries(u"ziptemp"_s), QStringList{u"b"_s});
        click(viewer.chameleonButton1);
        QCOMPARE(opened->world.folder.entries(u"ziptemp"_s), QStringList());
        QVERIFY(opened->isCompact());
    }

    // The way back
    void the_back_button_unloads_it_and_shows_the_main_window() {
        openWith(3);
        opened->next();
        click(window().chameleonButton3);
        QVERIFY(isGone());
        QVERIFY(opened->main().isVisible());
        QCOMPARE(opened->main().Label41.Caption(), u"#2/3"_s);
    }
    void escape_and_the_window_managers_close_do_the_same() {
        openWith(1);
        opened->press(Qt::Key_Escape);
        QVERIFY(isGone() && opened->main().isVisible());
        click(opened->main().ChameleonButton12);
        window().close();
        QVERIFY(isGone() && opened->main().isVisible());
        QCOMPARE(opened->world.ends, 0);
    }
    void a_main_window_that_was_minimised_comes_back_open() {
        openWith(1);
        opened->main().setWindowStateWord(Form::minimised);
        QVERIFY(!opened->main().isVisible());
        click(window().chameleonButton3);
        QVERIFY(opened->main().isVisible());
        QCOMPARE(opened->main().windowStateWord(), Form::normal);
    }
    void opened_again_it_shows_the_game_of_the_main_window() {
        openWith(3);
        click(window().chameleonButton3);
        opened->chooseRow(2);
        click(opened->main().ChameleonButton12);
        QCOMPARE(number(), u"#0003"_s);
    }

    // What is dropped
    void a_dropped_game_goes_to_the_assistant_whose_end_comes_back() {
        opened->tagged(u"b.gb"_s, u"B"_s);
        opened->openCompact();
        const QString dropped = opened->original(u"a.gba"_s);
        QVERIFY(dropOn(window(), addressOf(dropped)));
        QTRY_VERIFY(opened->isThere());
        NewAssistant& assistant = opened->assistant();
        QTRY_COMPARE(assistant.FilePath.Text(), dropped);
        QCOMPARE(assistant.windowHandle()->transientParent(), window().windowHandle());
        QVERIFY(QTest::qWaitForWindowExposed(&assistant));
        click(assistant.chameleonButton1);
        click(assistant.ChameleonButton6);
        click(assistant.chameleonButton1);
        QVERIFY(!opened->isThere());
        QVERIFY(opened->isCompact());
        QCOMPARE(opened->data(), QStringList({u"#0001"_s, u"GB Advance"_s, u"0 KB"_s, QString(), QString()}));
    }

    // Libraries that change
    void a_game_that_has_gone_is_reported_and_the_window_stays() {
        openWith(3);
        remove(u"g002.gb"_s);
        opened->next();
        QCOMPARE(messages().boxes.size(), 1);
        QVERIFY2(messages().last().contains(u"g002.gb"_s), qPrintable(messages().last()));
        QCOMPARE(opened->world.ends, 0);
        QVERIFY(opened->isCompact());
        // What does not depend on the file is the new game's.
        QCOMPARE(opened->main().Games.ListIndex(), 1);
        QCOMPARE(opened->line(), u"G002.GB ··· "_s);
        QCOMPARE(number(), u"#0001"_s);
        opened->next();
        QCOMPARE(number(), u"#0003"_s);
        QCOMPARE(messages().boxes.size(), 1);
    }
    void of_a_game_that_has_gone_all_data_up_to_the_size_are_shown() {
        opened->tagged(u"a.gb"_s, u"One"_s);
        opened->game(u"b.gba"_s);
        opened->openCompact();
        remove(u"b.gba"_s);
        opened->next();
        QCOMPARE(opened->data(), QStringList({u"#0001"_s, u"GB Advance"_s, u"4 KB"_s, QString(), QString()}));
    }
    void a_game_that_has_gone_before_the_load_is_reported_and_the_window_opens() {
        opened->games(2);
        opened->open();
        remove(u"g001.gb"_s);
        click(opened->main().ChameleonButton12);
        QCOMPARE(messages().boxes.size(), 1);
        QVERIFY(opened->isCompact());
        QCOMPARE(opened->world.ends, 0);
    }
    void an_archive_that_has_gone_ends_nothing() {
        opened->games(1);
        opened->game(u"z.zip"_s);
        opened->openCompact();
        remove(u"z.zip"_s);
        opened->next();
        QVERIFY(!messages().boxes.isEmpty());
        QVERIFY(opened->isCompact());
        QCOMPARE(opened->world.ends, 0);
    }
    void a_library_that_vanishes_leaves_a_window_that_leads_back() {
        openWith(3);
        QVERIFY(QDir(opened->world.folder.path(u"roms"_s)).removeRecursively());
        opened->next();
        opened->next();
        opened->previous();
        for (int i = 0; i < 3; ++i) opened->tick();
        QCOMPARE(opened->world.ends, 0);
        opened->program->shelf.refresh();
        opened->program->compact.refresh();
        QCOMPARE(opened->data(), QStringList({u"#0000"_s, QString(), QString(), QString(), QString()}));
        messages().boxes.clear();
        opened->next();
        opened->previous();
        click(window().chameleonButton2);
        opened->tick();
        QCOMPARE(messages().boxes.size(), 0);
        QCOMPARE(processes().starts.size(), 0);
        opened->press(Qt::Key_Escape);
        QVERIFY(opened->main().isVisible());
    }
    void a_library_that_shrinks_is_walked_to_its_new_end() {
        openWith(5);
        for (int i = 0; i < 4; ++i) opened->next();
        for (const char* name : {"g003.gb", "g004.gb", "g005.gb"}) remove(QString::fromLatin1(name));
        opened->program->shelf.refresh();
        opened->program->compact.refresh();
        QCOMPARE(number(), u"#0001"_s);
        for (int i = 0; i < 4; ++i) opened->next();
        QCOMPARE(number(), u"#0002"_s);
        QCOMPARE(messages().boxes.size(), 0);
    }

    // What others ask of it
    void others_learn_whether_it_is_shown() {
        opened->games(1);
        opened->open();
        const CompactWindow& compact = opened->program->compact;
        QVERIFY(!compact.isShown());
        click(opened->main().ChameleonButton12);
        QVERIFY(compact.isShown());
        window().setWindowStateWord(Form::minimised);
        QVERIFY(compact.isShown());
        window().setWindowStateWord(Form::normal);
        window().Hide();
        QVERIFY(!compact.isShown());
    }
    void a_refresh_shows_another_selection() {
        opened->tagged(u"a.gb"_s, u"One"_s);
        opened->tagged(u"b.gb"_s, u"Two"_s);
        opened->open();
        opened->program->compact.refresh();
        QVERIFY(isGone());
        click(opened->main().ChameleonButton12);
        opened->program->shelf.select(1);
        opened->program->compact.refresh();
        QCOMPARE(opened->line(), u"TWO ··· "_s);
        QCOMPARE(number(), u"#0002"_s);
    }
    void a_refresh_reports_a_game_that_has_gone() {
        openWith(1);
        remove(u"g001.gb"_s);
        opened->program->compact.refresh();
        QCOMPARE(messages().boxes.size(), 1);
        QCOMPARE(opened->world.ends, 0);
    }
};

TORVANE_TEST(TorvetteStepsTest)
#include "TorvetteStepsTest.moc"
