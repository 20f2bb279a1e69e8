// SPDX-License-Identifier: MIT
// The intro: what it plays, and what ends it.
#include "support/OpenedProgram.h"
#include "support/TestMain.h"

#include <QPointer>

using namespace torvane;

class SplashTest : public QObject {
    Q_OBJECT

    std::unique_ptr<OpenedProgram> opened;

    Splash& splash() const { return *opened->program->loaded<Splash>(); }
    bool introIsOver() const { return opened->program->loaded<Splash>() == nullptr; }
    void openIntro() {
        opened->start();
        QVERIFY(!introIsOver());
        QVERIFY(QTest::qWaitForWindowExposed(&splash()));
    }

private slots:
    void init() {
        opened = std::make_unique<OpenedProgram>();
        opened->world.setSetting("Intro", QStringLiteral("1"));
        opened->games(3);
        openIntro();
    }
    void cleanup() { opened.reset(); }

    void the_intro_is_alone_and_the_main_window_does_not_exist_yet() {
        QVERIFY(splash().isVisible());
        QVERIFY(!opened->program->loaded<MainFrm>());
    }
    void the_movie_next_to_the_program_is_played_and_without_it_the_intro_still_waits_for_input() {
        QCOMPARE(splash().Flash.Movie(), opened->world.appPath() + QStringLiteral("\\data\\intro.dat"));
        QTest::qWait(50);
        QVERIFY(!splash().Flash.isPlaying());
        QVERIFY(splash().isVisible());
        QCOMPARE(opened->world.messages.boxes.size(), 0);
    }
    void an_existing_movie_plays() {
        opened->close();
        opened->world.folder.write(QStringLiteral("data/intro.dat"), oneFrameGif());
        openIntro();
        QTRY_VERIFY(splash().Flash.isPlaying());
    }
    void an_unsupported_movie_leaves_the_intro_waiting() {
        opened->close();
        opened->world.folder.write(QStringLiteral("data/intro.dat"), QByteArray("FWS\x05 not shown here"));
        openIntro();
        QTest::qWait(50);
        QVERIFY(!splash().Flash.isPlaying());
        QVERIFY(splash().isVisible());
    }
    void the_window_is_shaped_by_its_picture() { QVERIFY(!splash().mask().isEmpty()); }

    void a_key_in_the_panel_ends_the_intro() {
        splash().Picture1.setFocus();
        QTest::keyClick(&splash().Picture1, Qt::Key_A);
        QVERIFY(introIsOver());
        QVERIFY(opened->main().isVisible());
    }
    void a_key_in_the_window_ends_the_intro() {
        splash().setFocus();
        QTest::keyClick(&splash(), Qt::Key_Escape);
        QVERIFY(introIsOver());
        QVERIFY(opened->main().isVisible());
    }
    void a_key_reaches_the_intro_through_the_window_system_once_it_is_active() {
        QVERIFY(QTest::qWaitForWindowActive(&splash()));
        QTest::keyClick(splash().windowHandle(), Qt::Key_Space);
        QVERIFY(introIsOver());
    }
    void any_mouse_button_in_the_window_ends_the_intro_data() {
        QTest::addColumn<Qt::MouseButton>("button");
        QTest::newRow("left") << Qt::LeftButton;
        QTest::newRow("right") << Qt::RightButton;
        QTest::newRow("middle") << Qt::MiddleButton;
    }
    void any_mouse_button_in_the_window_ends_the_intro() {
        QFETCH(Qt::MouseButton, button);
        const QPoint beside(splash().width() / 2, 20);
        QVERIFY(splash().childAt(beside) == nullptr);
        QTest::mouseClick(splash().windowHandle(), button, {}, beside);
        QVERIFY(introIsOver());
        QVERIFY(opened->main().isVisible());
    }
    void a_click_on_the_movie_ends_the_intro() {
        const QPoint onMovie = splash().Flash.mapTo(&splash(), splash().Flash.rect().center());
        QTest::mouseClick(splash().windowHandle(), Qt::LeftButton, {}, onMovie);
        QVERIFY(introIsOver());
    }
    void the_main_window_opens_with_its_first_game() {
        QTest::keyClick(&splash(), Qt::Key_Return);
        QCOMPARE(opened->main().Games.ListIndex(), 0);
        QCOMPARE(opened->main().Label41.Caption(), QStringLiteral("#1/3"));
    }
    void an_empty_library_does_not_prevent_the_start() {
        opened->close();
        QVERIFY(QDir(opened->world.folder.path(QStringLiteral("roms"))).removeRecursively());
        openIntro();
        QTest::keyClick(&splash(), Qt::Key_Return);
        QVERIFY(opened->main().isVisible());
        QCOMPARE(opened->world.messages.boxes.size(), 0);
        QCOMPARE(opened->world.ends, 0);
    }
    // The intro and the main window are never on screen together.
    void the_intro_closes_before_the_main_window_appears() {
        struct Watch : QObject {
            QPointer<Splash> intro;
            bool wasSeenTogether = false;
            bool hasMainAppeared = false;
            bool eventFilter(QObject* object, QEvent* event) override {
                if (event->type() == QEvent::Show && object->objectName() == QStringLiteral("MainFrm")) {
                    hasMainAppeared = true;
                    wasSeenTogether = intro != nullptr && intro->isVisible();
                }
                return false;
            }
        } watch;
        watch.intro = &splash();
        qApp->installEventFilter(&watch);
        QTest::keyClick(&splash(), Qt::Key_Return);
        QVERIFY(watch.hasMainAppeared);
        QVERIFY(!watch.wasSeenTogether);
    }
    void the_compact_window_opens_if_it_is_wanted_before_the_intro_closes() {
        opened->world.setSetting("Start", QStringLiteral("1"));
        bool wasSeenTogether = false;
        connect(&splash(), &Form::unloaded, this,
                [&] { wasSeenTogether = opened->program->loaded<Torvette>()->isVisible(); });
        QTest::keyClick(&splash(), Qt::Key_Return);
        QVERIFY(introIsOver());
        QVERIFY(wasSeenTogether);
        QVERIFY(opened->program->loaded<MainFrm>() != nullptr);
        QVERIFY(!opened->main().isVisible());
    }
    void a_start_setting_that_is_no_number_takes_the_default_failure_path() {
        opened->world.setSetting("Start", QStringLiteral("main"));
        click(splash(), {230, 20});
        QCOMPARE(opened->world.messages.boxes.size(), 1);
        QVERIFY(opened->world.messages.last().contains(QStringLiteral("'13'")));
        QCOMPARE(opened->world.messages.boxes.last().flags, 16);
        QCOMPARE(opened->world.ends, 1);
    }
    void the_timer_gives_the_window_its_keys_back() {
        QVERIFY(splash().Timer1.Enabled());
        QCOMPARE(splash().Timer1.Interval(), 250);
        QVERIFY(QTest::qWaitForWindowActive(&splash()));
        splash().Flash.setFocusPolicy(Qt::StrongFocus);
        splash().Flash.setFocus();
        emit splash().Timer1.Tick();
        QVERIFY(splash().hasFocus());
    }
    void the_panel_takes_the_focus_when_the_player_changes_its_state() {
        QVERIFY(QTest::qWaitForWindowActive(&splash()));
        splash().setFocus();
        emit splash().Flash.readyStateChanged();
        QVERIFY(splash().Picture1.hasFocus());
    }
    void closing_the_window_via_the_window_manager_ends_the_program() {
        splash().close();
        QCOMPARE(opened->world.ends, 1);
        QVERIFY(!opened->program->loaded<MainFrm>());
    }

private:
    static QByteArray oneFrameGif() {
        return QByteArray::fromHex("47494638396101000100800000000000ffffff2c00000000010001000002024401003b");
    }
};

TORVANE_TEST(SplashTest)
#include "SplashTest.moc"
