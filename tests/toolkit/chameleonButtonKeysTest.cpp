// SPDX-License-Identifier: MIT
// Keyboard and focus of the skinned button.
#include "ButtonsOnForm.h"
#include "support/TestMain.h"

#include <QSignalSpy>

using namespace torvane;

class chameleonButtonKeysTest : public QObject {
    Q_OBJECT

private slots:
    void space_presses_and_its_release_clicks() {
        ButtonForm form;
        QSignalSpy clicks(&form.first, &chameleonButton::Click);
        QTest::keyPress(&form.first, Qt::Key_Space);
        QCOMPARE(form.corner(), pressedCorner);
        QCOMPARE(clicks.size(), 0);
        QTest::keyRelease(&form.first, Qt::Key_Space);
        QCOMPARE(form.corner(), raisedCorner);
        QCOMPARE(clicks.size(), 1);
    }

    void keys_give_their_events_in_order_with_the_looks_from_before() {
        ButtonForm form;
        QByteArrayList story;
        const auto note = [&](const char* what) {
            story += what + QByteArray(form.corner() == pressedCorner ? " down" : " up");
        };
        connect(&form.first, &chameleonButton::KeyDown, this, [&] { note("KeyDown"); });
        connect(&form.first, &chameleonButton::KeyPress, this, [&] { note("KeyPress"); });
        connect(&form.first, &chameleonButton::KeyUp, this, [&] { note("KeyUp"); });
        connect(&form.first, &chameleonButton::Click, this, [&] { note("Click"); });
        QTest::keyClick(&form.first, Qt::Key_Space);
        QCOMPARE(story, (QByteArrayList{"KeyDown up", "KeyPress down", "KeyUp down", "Click up"}));
    }

    void the_lifted_look_is_on_the_screen_before_the_click_of_a_key() {
        ButtonForm form;
        QTest::keyPress(&form.first, Qt::Key_Space);
        QCoreApplication::processEvents();
        PaintCounter counter;
        form.first.installEventFilter(&counter);
        int paintsAtClick = 0;
        connect(&form.first, &chameleonButton::Click, this, [&] { paintsAtClick = counter.paints; });
        QTest::keyRelease(&form.first, Qt::Key_Space);
        QCOMPARE(paintsAtClick, 1);
    }

    void return_does_not_press() {
        ButtonForm form;
        QSignalSpy clicks(&form.first, &chameleonButton::Click);
        QTest::keyPress(&form.first, Qt::Key_Return);
        QCOMPARE(form.corner(), raisedCorner);
        QTest::keyRelease(&form.first, Qt::Key_Return);
        QCOMPARE(clicks.size(), 0);
    }

    void without_check_box_behaviour_no_click_changes_the_value() {
        ButtonForm form;
        QTest::mouseClick(&form.first, Qt::LeftButton, {}, middle);
        QVERIFY(!form.first.Value());
        QTest::keyClick(&form.first, Qt::Key_Space);
        QVERIFY(!form.first.Value());
    }

    void focus_that_leaves_lets_a_held_space_go_without_a_click() {
        ButtonForm form;
        QSignalSpy clicks(&form.first, &chameleonButton::Click);
        QTest::keyPress(&form.first, Qt::Key_Space);
        QCOMPARE(form.corner(), pressedCorner);
        form.second.setFocus();
        QCOMPARE(form.corner(), raisedCorner);
        form.first.setFocus();
        QCOMPARE(form.corner(), raisedCorner);
        QTest::keyRelease(&form.first, Qt::Key_Space);
        QCOMPARE(clicks.size(), 0);
    }

    void a_letter_typed_meanwhile_does_not_keep_the_button_down_when_the_focus_leaves() {
        ButtonForm form;
        QTest::keyPress(&form.first, Qt::Key_Space);
        QTest::keyPress(&form.first, Qt::Key_A);
        form.second.setFocus();
        QCOMPARE(form.corner(), raisedCorner);
    }

    void focus_that_leaves_keeps_the_look_that_the_mouse_pressed() {
        ButtonForm form;
        form.press();
        form.second.setFocus();
        QCOMPARE(form.corner(), pressedCorner);
        form.first.setFocus();
        QCOMPARE(form.corner(), pressedCorner);
        form.release();
        QCOMPARE(form.corner(), raisedCorner);
    }

    void a_space_that_repeats_after_the_focus_has_moved_presses_no_other_button() {
        ButtonForm form;
        QSignalSpy clicks(&form.second, &chameleonButton::Click);
        const QImage before = form.second.grab().toImage();
        QTest::keyPress(&form.first, Qt::Key_Space);
        form.second.setFocus();
        QKeyEvent again(QEvent::KeyPress, Qt::Key_Space, {}, QStringLiteral(" "), true);
        QCoreApplication::sendEvent(&form.second, &again);
        QCOMPARE(form.second.grab().toImage(), before);
        QTest::keyRelease(&form.second, Qt::Key_Space);
        QCOMPARE(clicks.size(), 0);
    }

    void a_held_space_clicks_once() {
        ButtonForm form;
        QSignalSpy clicks(&form.first, &chameleonButton::Click);
        const QString blank = QStringLiteral(" ");
        for (int i = 0; i < 3; ++i) {
            QKeyEvent down(QEvent::KeyPress, Qt::Key_Space, {}, blank, i > 0);
            QKeyEvent up(QEvent::KeyRelease, Qt::Key_Space, {}, blank, i < 2);
            QCoreApplication::sendEvent(&form.first, &down);
            QCoreApplication::sendEvent(&form.first, &up);
        }
        QCOMPARE(clicks.size(), 1);
    }

    void space_pressed_on_one_button_and_released_on_another_clicks_neither() {
        ButtonForm form;
        QSignalSpy firstClicks(&form.first, &chameleonButton::Click);
        QSignalSpy secondClicks(&form.second, &chameleonButton::Click);
        QTest::keyClick(&form.second, Qt::Key_Space);
        QCOMPARE(secondClicks.size(), 1);
        form.second.setFocus();
        form.first.setFocus();
        QTest::keyPress(&form.first, Qt::Key_Space);
        form.second.setFocus();
        QTest::keyRelease(&form.second, Qt::Key_Space);
        QCOMPARE(firstClicks.size(), 0);
        QCOMPARE(secondClicks.size(), 1);
    }

    void space_after_another_key_does_not_click() {
        ButtonForm form;
        QSignalSpy clicks(&form.first, &chameleonButton::Click);
        QTest::keyPress(&form.first, Qt::Key_Space);
        QTest::keyPress(&form.first, Qt::Key_A);
        QTest::keyRelease(&form.first, Qt::Key_Space);
        QCOMPARE(clicks.size(), 0);
    }

    void a_press_while_painting_is_not_allowed_is_not_remembered() {
        ButtonForm form;
        form.first.DisableRefresh();
        QTest::keyPress(&form.first, Qt::Key_Space);
        form.first.Refresh();
        QCOMPARE(form.corner(), raisedCorner);
    }

    void arrow_keys_walk_the_tab_order() {
        ButtonForm form;
        QTest::keyClick(&form.first, Qt::Key_Right);
        QVERIFY(form.second.hasFocus());
        QTest::keyClick(&form.second, Qt::Key_Down);
        QVERIFY(form.third.hasFocus());
        QTest::keyClick(&form.third, Qt::Key_Up);
        QVERIFY(form.second.hasFocus());
        QTest::keyClick(&form.second, Qt::Key_Left);
        QVERIFY(form.first.hasFocus());
    }

    void keys_are_reported_with_their_codes() {
        ButtonForm form;
        QSignalSpy downs(&form.first, &chameleonButton::KeyDown);
        QSignalSpy presses(&form.first, &chameleonButton::KeyPress);
        QSignalSpy ups(&form.first, &chameleonButton::KeyUp);
        QTest::keyClick(&form.first, Qt::Key_A, Qt::ShiftModifier);
        QCOMPARE(downs.last(), (QList<QVariant>{65, 1}));
        QCOMPARE(presses.size(), 1);
        QCOMPARE(presses[0][0].toInt(), 97); // the byte, not the key's code
        QCOMPARE(ups.first()[0].toInt(), 65);
    }

    void keys_do_not_reach_the_window_behind() {
        ButtonForm form;
        QKeyEvent key(QEvent::KeyPress, Qt::Key_Escape, {});
        QCoreApplication::sendEvent(&form.first, &key);
        QVERIFY(key.isAccepted());
    }

    void access_key_with_alt_clicks_without_moving_the_focus() {
        ButtonForm form;
        QSignalSpy clicks(&form.second, &chameleonButton::Click);
        QTest::keyClick(&form.first, Qt::Key_D, Qt::AltModifier);
        QCOMPARE(clicks.size(), 1);
        QVERIFY(form.first.hasFocus());
        QTest::keyClick(&form.first, Qt::Key_D);
        QCOMPARE(clicks.size(), 1);
    }

    void access_key_follows_the_caption() {
        ButtonForm form;
        QSignalSpy clicks(&form.second, &chameleonButton::Click);
        form.second.setCaption(QStringLiteral("C&uatro && más"));
        form.first.setCaption(QString());
        QTest::keyClick(&form.first, Qt::Key_D, Qt::AltModifier);
        QCOMPARE(clicks.size(), 0);
        QTest::keyClick(&form.first, Qt::Key_U, Qt::AltModifier);
        QCOMPARE(clicks.size(), 1);
    }

    void focus_mark_comes_and_goes_with_the_focus() {
        ButtonForm form;
        const QImage without = form.first.grab().toImage();
        form.first.setShowFocusRect(true);
        QVERIFY(form.first.grab().toImage() != without);
        form.second.setFocus();
        QCOMPARE(form.first.grab().toImage(), without);
    }
};

TORVANE_TEST(chameleonButtonKeysTest)
#include "chameleonButtonKeysTest.moc"
