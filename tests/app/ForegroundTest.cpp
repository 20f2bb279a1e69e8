// SPDX-License-Identifier: MIT
// The menu and the tray icon at every time: which window they work on, and when they do nothing.
#include "platform/forms/HeldInput.h"
#include "support/Archive.h"
#include "support/OpenedMenu.h"
#include "support/TestMain.h"

#include <QDialog>

using namespace torvane;
using namespace Qt::StringLiterals;

class ForegroundTest : public OpenedMenu {
    Q_OBJECT

    QList<MenuEntry*> orders() const {
        Menuing& menu = menuing();
        return {&menu.changetomini, &menu.editromlist, &menu.searchgames,
                &menu.editid3,      &menu.configmn,    &menu.loadrom};
    }
    /// Chooses everything that a desktop's menu may still offer, and checks that nothing comes of it.
    void expectNoOrders() const {
        const QList<MenuEntry*> entries = orders();
        for (MenuEntry* entry : entries) QVERIFY2(!offers(*entry), qPrintable(entry->objectName()));
        const bool wasDatabase = isShown<EditDB>();
        const qsizetype boxes = messages().boxes.size();
        for (MenuEntry* entry : entries) {
            entry->setEnabled(true);
            chooseBlindly(*entry);
        }
        QCOMPARE(starts(), 0);
        QCOMPARE(messages().boxes.size(), boxes);
        QCOMPARE(opened->world.browser.urls.size(), 0);
        QCOMPARE(isShown<EditDB>(), wasDatabase);
        QVERIFY(!isShown<Torvette>());
    }
    void expectNoQuestion() const {
        QVERIFY(!offers(menuing().end));
        menuing().end.setEnabled(true);
        chooseBlindly(menuing().end);
    }
    void openArchive() const {
        writeArchive(opened->world.folder.path(u"roms/a.zip"_s), {{u"m.gb"_s, "x"}});
        opened->open();
        opened->program->desk.go(Window::MainFrm, Window::ZIP_Viewer,
                                 {opened->world.appPath() + u"\\roms\\a.zip"_s, u"a.zip"_s});
    }

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    // While something else has the user's attention

    void orders_are_taken_with_the_main_or_the_compact_window_on_screen() {
        openWithGames(1);
        for (MenuEntry* entry : orders()) QVERIFY2(offers(*entry), qPrintable(entry->objectName()));
        main().setWindowStateWord(Form::minimised);
        for (MenuEntry* entry : orders()) QVERIFY2(offers(*entry), qPrintable(entry->objectName()));
        goCompact();
        for (MenuEntry* entry : orders()) QVERIFY2(offers(*entry), qPrintable(entry->objectName()));
        QVERIFY(offers(menuing().end));
    }
    void no_orders_while_the_exit_question_is_open() {
        openWithGames(1);
        choose(menuing().end);
        expectNoOrders();
        expectNoQuestion();
        QCOMPARE(loaded<TorvMsg>()->Label2.Caption(), u"¿Seguro que quieres salir?"_s);
        click(loaded<TorvMsg>()->chameleonButton3);
        QVERIFY(offers(menuing().end) && offers(menuing().loadrom));
    }
    void no_orders_while_a_message_box_waits() {
        openWithGames(1);
        QDialog box;
        box.setModal(true);
        box.show();
        expectNoOrders();
        expectNoQuestion();
        QVERIFY(loaded<TorvMsg>() == nullptr);
    }
    void no_orders_while_a_download_holds_input_back() {
        openWithGames(1);
        {
            const HeldInput held;
            expectNoOrders();
            expectNoQuestion();
            QVERIFY(loaded<TorvMsg>() == nullptr);
        }
        QVERIFY(offers(menuing().loadrom));
    }
    void no_orders_while_the_database_replaces_the_main_window_but_exit() {
        openWithGames(1);
        choose(menuing().editid3);
        expectNoOrders();
        QVERIFY(!main().isVisible());
        choose(menuing().end);
        QCOMPARE(loaded<TorvMsg>()->windowHandle()->transientParent(), loaded<EditDB>()->windowHandle());
    }
    void no_orders_while_an_archive_is_read_but_exit() {
        writeArchive(opened->world.folder.path(u"roms/a.zip"_s), {{u"m.gb"_s, "x"}});
        opened->open();
        bool wasReading = false;
        QTimer::singleShot(0, this, [&] {
            wasReading = isShown<ZIP_Viewer>() && loaded<ZIP_Viewer>()->Mensaje.isVisible();
            expectNoOrders();
            QVERIFY(offers(menuing().end));
        });
        click(main().Zipper);
        QVERIFY(wasReading);
    }
    void no_orders_to_the_compact_window_while_an_archive_lies_beside_it() {
        writeArchive(opened->world.folder.path(u"roms/a.zip"_s), {{u"m.gb"_s, "x"}});
        opened->open();
        goCompact();
        opened->program->desk.go(Window::MainFrm, Window::ZIP_Viewer,
                                 {opened->world.appPath() + u"\\roms\\a.zip"_s, u"a.zip"_s});
        QVERIFY(isShown<ZIP_Viewer>() && isShown<Torvette>());
        QVERIFY(!offers(menuing().editid3) && !offers(menuing().changetomini));
        loaded<ZIP_Viewer>()->Unload();
        QVERIFY(offers(menuing().editid3));
        QVERIFY(isShown<Torvette>() && !main().isVisible());
    }
    void the_assistant_leaves_the_main_window_and_the_menu_to_the_user() {
        openWithGames(1);
        opened->program->desk.go(Window::MainFrm, Window::NewAssistant);
        QVERIFY(offers(menuing().loadrom));
        choose(menuing().loadrom);
        QCOMPARE(starts(), 1);
        QVERIFY(isShown<NewAssistant>());
    }
    void no_orders_during_the_intro() {
        opened->world.setSetting("Intro", u"1"_s);
        opened->games(1);
        opened->start();
        opened->program->load<MainFrm>();
        expectNoOrders();
        QVERIFY(isShown<Splash>() && !main().isVisible());
    }
    void what_was_chosen_while_a_game_ran_is_forgotten() {
        openWithGames(2);
        opened->world.processes.whileRunning = [this] {
            if (starts() > 1) return;
            for (MenuEntry* entry : orders()) action(*entry).trigger();
            action(menuing().end).trigger();
        };
        choose(menuing().loadrom);
        QCoreApplication::processEvents();
        QCOMPARE(starts(), 1);
        QVERIFY(loaded<TorvMsg>() == nullptr && !isShown<EditDB>() && !isShown<Torvette>());
        QVERIFY(main().isVisible());
    }

    // The way back

    void the_database_opened_from_the_compact_window_leads_back_to_it() {
        openWithGames(1);
        goCompact();
        choose(menuing().editromlist);
        QVERIFY(isShown<EditDB>() && !isShown<Torvette>() && !main().isVisible());
        loaded<EditDB>()->Unload();
        QVERIFY(isShown<Torvette>() && !main().isVisible());
        loaded<Torvette>()->Unload();
        QVERIFY(main().isVisible());
    }
    void the_settings_entry_brings_the_compact_window_back() {
        openWithGames(1);
        goCompact();
        choose(menuing().configmn);
        QCOMPARE(messages().boxes.size(), 1);
        QVERIFY(isShown<Torvette>() && !main().isVisible());
    }
    void torvette_mode_leaves_the_compact_window_as_it_is() {
        openWithGames(1);
        goCompact();
        const Torvette* before = loaded<Torvette>();
        choose(menuing().changetomini);
        QCOMPARE(loaded<Torvette>(), before);
        QVERIFY(before->isVisible() && !main().isVisible());
    }
    void a_game_of_the_menu_leaves_the_compact_window_on_screen() {
        openWithGames(1);
        goCompact();
        choose(menuing().loadrom);
        QCOMPARE(starts(), 1);
        QVERIFY(isShown<Torvette>() && !main().isVisible());
    }
    void a_main_window_that_was_minimised_when_it_was_hidden_comes_back_whole() {
        openWithGames(1);
        main().setWindowStateWord(Form::minimised);
        choose(menuing().changetomini);
        QVERIFY(!offers(menuing().view_tv));
        loaded<Torvette>()->Unload();
        QVERIFY(main().isVisible());
        QCOMPARE(main().windowStateWord(), Form::normal);
    }
    void exit_called_off_from_the_compact_window_leaves_no_dead_main_window() {
        openWithGames(1);
        goCompact();
        choose(menuing().end);
        QCOMPARE(loaded<TorvMsg>()->windowHandle()->transientParent(), loaded<Torvette>()->windowHandle());
        click(loaded<TorvMsg>()->chameleonButton3);
        QVERIFY(isShown<Torvette>() && !main().isVisible());
        loaded<Torvette>()->Unload();
        QVERIFY(main().isVisible() && main().isEnabled());
    }
    void a_main_window_that_comes_back_under_the_exit_question_waits_for_the_answer() {
        openWithGames(1);
        choose(menuing().editid3);
        choose(menuing().end);
        loaded<EditDB>()->Unload();
        QVERIFY(main().isVisible() && !main().isEnabled());
        QVERIFY(loaded<TorvMsg>()->isVisible());
        click(loaded<TorvMsg>()->chameleonButton3);
        QVERIFY(main().isEnabled());
    }
    void the_exit_question_moves_to_the_window_that_comes_back_data() {
        QTest::addColumn<bool>("isDatabase");
        QTest::newRow("compact to main") << false;
        QTest::newRow("database to compact") << true;
    }
    void the_exit_question_moves_to_the_window_that_comes_back() {
        QFETCH(bool, isDatabase);
        openWithGames(1);
        goCompact();
        if (isDatabase) choose(menuing().editid3);
        choose(menuing().end);
        isDatabase ? loaded<EditDB>()->Unload() : loaded<Torvette>()->Unload();
        collectGone();
        const Form* back = isDatabase ? static_cast<Form*>(loaded<Torvette>()) : loaded<MainFrm>();
        QVERIFY(back->isVisible() && isShown<TorvMsg>());
        QCOMPARE(loaded<TorvMsg>()->windowHandle()->transientParent(), back->windowHandle());
        QTRY_COMPARE(QApplication::activeWindow(), loaded<TorvMsg>());
        click(loaded<TorvMsg>()->chameleonButton3);
        QVERIFY(back->isEnabled());
    }
    void the_exit_question_of_a_minimised_window_is_seen() {
        openWithGames(1);
        main().setWindowStateWord(Form::minimised);
        choose(menuing().end);
        QVERIFY(loaded<TorvMsg>()->isVisible());
        QVERIFY(loaded<TorvMsg>()->windowHandle()->transientParent() == nullptr);
    }

    void the_exit_question_does_not_belong_to_a_window_that_goes_with_a_minimised_one() {
        openWithGames(1);
        opened->program->desk.go(Window::MainFrm, Window::NewAssistant);
        main().setWindowStateWord(Form::minimised);
        choose(menuing().end);
        QVERIFY(loaded<TorvMsg>()->isVisible());
        QVERIFY(loaded<TorvMsg>()->windowHandle()->transientParent() == nullptr);
    }

    // The left button on the tray icon

    void the_icon_restores_the_minimised_main_window() {
        openWithGames(1);
        main().setWindowStateWord(Form::minimised);
        emit main().TrayIcon1.clicked();
        QCOMPARE(main().windowStateWord(), Form::normal);
        QVERIFY(main().isActiveWindow());
    }
    void the_icon_shows_the_main_window_if_nothing_is_on_screen() {
        openWithGames(1);
        main().Hide();
        emit main().TrayIcon1.clicked();
        QVERIFY(main().isVisible());
    }
    void the_icon_shows_the_compact_window_if_that_one_was_hidden() {
        openWithGames(1);
        goCompact();
        loaded<Torvette>()->Hide();
        emit main().TrayIcon1.clicked();
        QVERIFY(isShown<Torvette>() && !main().isVisible());
    }
    void the_icon_restores_the_minimised_compact_window_and_leaves_the_main_one_hidden() {
        openWithGames(1);
        goCompact();
        loaded<Torvette>()->setWindowStateWord(Form::minimised);
        emit main().TrayIcon1.clicked();
        QCOMPARE(loaded<Torvette>()->windowStateWord(), Form::normal);
        QVERIFY(!main().isVisible());
    }
    void the_icon_brings_what_replaces_the_main_window_and_not_the_main_window_data() {
        QTest::addColumn<bool>("isDatabase");
        QTest::newRow("database") << true;
        QTest::newRow("archive") << false;
    }
    void the_icon_brings_what_replaces_the_main_window_and_not_the_main_window() {
        QFETCH(bool, isDatabase);
        openArchive();
        if (isDatabase) {
            loaded<ZIP_Viewer>()->Unload();
            choose(menuing().editid3);
        }
        emit main().TrayIcon1.clicked();
        QVERIFY(!main().isVisible());
        Form* shown = isDatabase ? static_cast<Form*>(loaded<EditDB>()) : loaded<ZIP_Viewer>();
        QVERIFY(shown->isVisible() && shown->isActiveWindow());
    }
    void the_icon_brings_the_question_above_its_window() {
        openWithGames(1);
        choose(menuing().end);
        main().activateWindow();
        QTRY_COMPARE(QApplication::activeWindow(), &main());
        emit main().TrayIcon1.clicked();
        QCoreApplication::processEvents();
        QCOMPARE(QApplication::activeWindow(), loaded<TorvMsg>());
        QVERIFY(!main().isEnabled());
    }
    void the_icon_brings_the_archive_above_the_compact_window_beside_it() {
        openArchive();
        goCompact();
        loaded<Torvette>()->activateWindow();
        QTRY_VERIFY(loaded<Torvette>()->isActiveWindow());
        emit main().TrayIcon1.clicked();
        QCoreApplication::processEvents();
        QVERIFY(isShown<Torvette>() && loaded<ZIP_Viewer>()->isActiveWindow());
    }
    void the_icon_brings_a_message_box_and_leaves_all_else() {
        openWithGames(1);
        main().setWindowStateWord(Form::minimised);
        QDialog box;
        box.setModal(true);
        box.show();
        emit main().TrayIcon1.clicked();
        QTRY_VERIFY(box.isActiveWindow());
        QCOMPARE(main().windowStateWord(), Form::minimised);
    }
    void the_icon_can_be_clicked_before_any_window_is_shown() {
        opened->world.setSetting("Intro", u"1"_s);
        opened->games(1);
        opened->start();
        QVERIFY(isShown<Splash>());
        opened->program->load<MainFrm>();
        emit main().TrayIcon1.clicked();
        QVERIFY(isShown<Splash>() && !main().isVisible());
    }

    // What opens the menu

    void the_right_button_on_the_title_band_opens_the_menu_there() {
        openWithGames(1);
        const QPoint inside(60, 9);
        click(main().Label1, inside, Qt::RightButton);
        QVERIFY(menuing().popup.isOpen());
        QCOMPARE(menuing().popup.shown().pos(), main().Label1.mapToGlobal(inside));
        menuing().popup.shown().close();
    }
    void the_right_button_on_the_compact_strip_opens_the_menu_there() {
        opened->world.setSetting("Mini", u"0"_s);
        openWithGames(1);
        goCompact();
        QVERIFY(QTest::qWaitForWindowExposed(loaded<Torvette>()));
        click(loaded<Torvette>()->Label2, {100, 10}, Qt::RightButton);
        QVERIFY(menuing().popup.isOpen());
        QCOMPARE(menuing().popup.shown().pos(), loaded<Torvette>()->Label2.mapToGlobal(QPoint(100, 10)));
        menuing().popup.shown().close();
    }
    void shift_and_f10_open_the_menu_in_both_windows() {
        openWithGames(1);
        QTest::keyClick(main().windowHandle(), Qt::Key_F10, Qt::ShiftModifier);
        QVERIFY(menuing().popup.isOpen());
        menuing().popup.shown().close();
        goCompact();
        QVERIFY(QTest::qWaitForWindowActive(loaded<Torvette>()));
        QTest::keyClick(loaded<Torvette>()->windowHandle(), Qt::Key_F10, Qt::ShiftModifier);
        QVERIFY(menuing().popup.isOpen());
        menuing().popup.shown().close();
    }
};

TORVANE_TEST(ForegroundTest)
#include "ForegroundTest.moc"
