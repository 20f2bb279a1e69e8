// SPDX-License-Identifier: MIT
// A second start brings what is there to the front, and nothing that is not.
#include "platform/base/RuntimeFailure.h"
#include "support/ClaimedPlatform.h"
#include "support/OpenedMenu.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class CalledAgainTest : public OpenedMenu {
    Q_OBJECT

    void callAgain(const QByteArrayList& files = {}) const { opened->program->calledAgain({{}, {}, files}); }

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    void a_minimised_main_window_comes_back() {
        openWithGames(1);
        main().setWindowStateWord(Form::minimised);
        callAgain();
        QCOMPARE(main().windowStateWord(), Form::normal);
        QVERIFY(main().isActiveWindow());
    }
    void its_files_are_opened() {
        openWithGames(2);
        main().setWindowStateWord(Form::minimised);
        callAgain({opened->world.folder.native("roms/g002.gb")});
        QTRY_COMPARE(main().Games.FileName(), u"g002.gb"_s);
        QCOMPARE(main().windowStateWord(), Form::normal);
    }
    void the_desktop_gets_its_answer_with_the_window() {
        openWithGames(1);
        const ClaimedPlatform claimed(u"wayland"_s);
        opened->program->calledAgain({"id", "the token", {}});
        QCOMPARE(qgetenv("XDG_ACTIVATION_TOKEN"), QByteArray("the token"));
        QVERIFY(main().isActiveWindow());
        qunsetenv("XDG_ACTIVATION_TOKEN");
    }
    void the_compact_window_comes_and_not_the_main_window() {
        openWithGames(1);
        goCompact();
        loaded<Torvette>()->setWindowStateWord(Form::minimised);
        callAgain();
        QCOMPARE(loaded<Torvette>()->windowStateWord(), Form::normal);
        QVERIFY(!main().isVisible());
    }
    void during_the_intro_it_stays_alone() {
        opened->world.setSetting("Intro", u"1"_s);
        opened->games(1);
        opened->start();
        callAgain();
        QVERIFY(isShown<Splash>());
        QVERIFY(loaded<MainFrm>() == nullptr || !main().isVisible());
    }
    void while_a_handler_runs_what_is_on_screen_comes_back() {
        openWithGames(1);
        main().setWindowStateWord(Form::minimised);
        opened->world.runtime.guarded([&] { callAgain(); });
        QCOMPARE(main().windowStateWord(), Form::normal);
    }
    void before_the_first_window_is_shown_none_is_loaded_out_of_turn() {
        opened->games(1);
        opened->start();
        main().Hide();
        opened->world.runtime.guarded([&] {
            callAgain();
            QVERIFY(!main().isVisible());
        });
        callAgain();
        QVERIFY(main().isVisible());
    }
};

TORVANE_TEST(CalledAgainTest)
#include "CalledAgainTest.moc"
