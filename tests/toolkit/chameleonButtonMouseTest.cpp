// SPDX-License-Identifier: MIT
// Mouse of the skinned button.
#include "ButtonsOnForm.h"

#include <QSignalSpy>

using namespace torvane;

class chameleonButtonMouseTest : public QObject {
    Q_OBJECT

private slots:
    void left_press_and_release_give_the_events_in_order_with_the_looks_from_before() {
        ButtonForm form;
        QByteArrayList story;
        const auto note = [&](const char* what) {
            story += what + QByteArray(form.corner() == pressedCorner ? " down" : " up");
        };
        connect(&form.first, &chameleonButton::MouseDown, this, [&] { note("MouseDown"); });
        connect(&form.first, &chameleonButton::MouseUp, this, [&] { note("MouseUp"); });
        connect(&form.first, &chameleonButton::Click, this, [&] { note("Click"); });
        form.press();
        QCOMPARE(form.corner(), pressedCorner);
        form.release();
        QCOMPARE(story, (QByteArrayList{"MouseDown up", "MouseUp down", "Click up"}));
    }

    void mouse_down_tells_button_shift_and_place() {
        ButtonForm form;
        QSignalSpy downs(&form.first, &chameleonButton::MouseDown);
        QTest::mousePress(&form.first, Qt::MiddleButton, Qt::ShiftModifier | Qt::ControlModifier, {7, 9});
        QCOMPARE(downs.size(), 1);
        QCOMPARE(downs[0], (QList<QVariant>{4, 3, 7.0F, 9.0F}));
    }

    void right_press_and_release_do_not_change_the_look() {
        ButtonForm form;
        QSignalSpy clicks(&form.first, &chameleonButton::Click);
        QSignalSpy downs(&form.first, &chameleonButton::MouseDown);
        form.press(Qt::RightButton);
        QCOMPARE(form.corner(), raisedCorner);
        form.release(Qt::RightButton);
        QCOMPARE(form.corner(), raisedCorner);
        QCOMPARE(downs.size(), 1);
        QCOMPARE(clicks.size(), 0);
    }

    void right_release_does_not_lift_a_pressed_look() {
        ButtonForm form;
        QTest::keyPress(&form.first, Qt::Key_Space);
        QCOMPARE(form.corner(), pressedCorner);
        form.press(Qt::RightButton);
        form.release(Qt::RightButton);
        QCOMPARE(form.corner(), pressedCorner);
    }

    void middle_press_looks_pressed_but_does_not_click() {
        ButtonForm form;
        QSignalSpy clicks(&form.first, &chameleonButton::Click);
        form.press(Qt::MiddleButton);
        QCOMPARE(form.corner(), pressedCorner);
        form.release(Qt::MiddleButton);
        QCOMPARE(form.corner(), raisedCorner);
        QCOMPARE(clicks.size(), 0);
    }

    void release_outside_is_no_click() {
        ButtonForm form;
        QSignalSpy clicks(&form.first, &chameleonButton::Click);
        form.press();
        form.release(Qt::LeftButton, outside);
        QCOMPARE(clicks.size(), 0);
        QCOMPARE(form.corner(), raisedCorner);
    }

    void two_quick_left_clicks_give_two_clicks() {
        ButtonForm form;
        QSignalSpy clicks(&form.first, &chameleonButton::Click);
        QSignalSpy downs(&form.first, &chameleonButton::MouseDown);
        form.press();
        form.release();
        form.send(QEvent::MouseButtonDblClick, middle, Qt::LeftButton, Qt::LeftButton);
        QCOMPARE(form.corner(), pressedCorner);
        form.release();
        QCOMPARE(clicks.size(), 2);
        QCOMPARE(downs.size(), 2);
        QCOMPARE(downs[1], (QList<QVariant>{1, 0, 0.0F, 0.0F}));
    }

    void double_click_with_the_right_button_does_nothing() {
        ButtonForm form;
        QSignalSpy clicks(&form.first, &chameleonButton::Click);
        form.press(Qt::RightButton);
        form.release(Qt::RightButton);
        form.send(QEvent::MouseButtonDblClick, middle, Qt::RightButton, Qt::RightButton);
        QCOMPARE(form.corner(), raisedCorner);
        form.release(Qt::RightButton);
        QCOMPARE(clicks.size(), 0);
    }

    void pointer_over_the_button_turns_the_hover_look_on_and_leaving_turns_it_off() {
        ButtonForm form;
        QSignalSpy over(&form.first, &chameleonButton::MouseOver);
        QSignalSpy out(&form.first, &chameleonButton::MouseOut);
        form.point(middle);
        QCOMPARE(over.size(), 1);
        QCOMPARE(form.surface(), backOver);
        QCursor::setPos(900, 700);
        QTRY_COMPARE(out.size(), 1);
        QCOMPARE(form.surface(), back);
        QTest::qWait(20);
        QCOMPARE(out.size(), 1);
    }

    void moves_over_the_button_paint_nothing_more() {
        ButtonForm form;
        form.point(middle);
        QTest::qWait(20);
        PaintCounter counter;
        form.first.installEventFilter(&counter);
        QSignalSpy moves(&form.first, &chameleonButton::MouseMove);
        for (int x = 40; x < 60; ++x) form.point({x, 15});
        QTest::qWait(20);
        QVERIFY(moves.size() >= 20);
        QCOMPARE(counter.paints, 0);
    }

    void moves_with_the_button_held_paint_nothing_more() {
        ButtonForm form;
        form.point(middle);
        form.press();
        form.point({51, 15}, Qt::LeftButton);
        QTest::qWait(20);
        PaintCounter counter;
        form.first.installEventFilter(&counter);
        for (int x = 40; x < 60; ++x) form.point({x, 15}, Qt::LeftButton);
        QTest::qWait(20);
        QCOMPARE(counter.paints, 0);
    }

    void button_under_another_window_part_is_not_hovered() {
        ButtonForm form;
        chameleonButton cover(form, "cover", {20, 20, 100, 30}, lookWith(""));
        cover.show();
        QSignalSpy over(&form.first, &chameleonButton::MouseOver);
        form.point(middle);
        QCOMPARE(over.size(), 0);
        QCOMPARE(form.surface(), back);
    }

    void dragging_out_lifts_the_look_and_dragging_back_presses_it_again() {
        ButtonForm form;
        form.point(middle);
        form.press();
        form.point(outside, Qt::LeftButton);
        QTRY_COMPARE(form.corner(), raisedCorner); // once the timer has seen the pointer leave
        form.point(middle, Qt::LeftButton);
        QVERIFY(form.corner() != raisedCorner);
    }

    void hover_look_is_off_after_a_drag_on_the_button() {
        ButtonForm form;
        form.point(middle);
        form.press();
        form.point({51, 15}, Qt::LeftButton);
        form.release();
        QCOMPARE(form.surface(), back);
        form.point({52, 15});
        QCOMPARE(form.surface(), backOver);
    }

    void moves_with_the_right_button_held_change_nothing() {
        ButtonForm form;
        QSignalSpy over(&form.first, &chameleonButton::MouseOver);
        QCursor::setPos(form.first.mapToGlobal(middle));
        form.send(QEvent::MouseMove, middle, Qt::NoButton, Qt::RightButton);
        form.send(QEvent::MouseMove, outside, Qt::NoButton, Qt::RightButton);
        QCOMPARE(form.surface(), back);
        QCOMPARE(over.size(), 0);
    }

    void checked_button_stays_pressed_under_the_mouse_and_still_tells_over_and_out() {
        ButtonForm form;
        form.first.setBackOver(back);
        form.first.setCheckBoxBehaviour(true);
        form.first.setValue(true);
        QSignalSpy over(&form.first, &chameleonButton::MouseOver);
        QSignalSpy out(&form.first, &chameleonButton::MouseOut);
        form.point(middle);
        QCOMPARE(form.corner(), pressedCorner);
        QCOMPARE(over.size(), 1);
        QCursor::setPos(900, 700);
        QTRY_COMPARE(out.size(), 1);
        QCOMPARE(form.corner(), pressedCorner);
    }

    void click_turns_a_check_box_over_before_it_is_told() {
        ButtonForm form;
        form.first.setCheckBoxBehaviour(true);
        QList<bool> values;
        connect(&form.first, &chameleonButton::Click, this, [&] { values += form.first.Value(); });
        QTest::mouseClick(&form.first, Qt::LeftButton, {}, middle);
        QCOMPARE(form.corner(), pressedCorner);
        QTest::keyClick(&form.first, Qt::Key_Space);
        QCOMPARE(form.corner(), raisedCorner);
        QCOMPARE(values, (QList<bool>{true, false}));
    }

    void click_is_on_the_screen_before_it_is_told() {
        ButtonForm form;
        PaintCounter counter;
        form.press();
        QCoreApplication::processEvents();
        form.first.installEventFilter(&counter);
        int paintsAtClick = 0;
        connect(&form.first, &chameleonButton::Click, this, [&] { paintsAtClick = counter.paints; });
        form.release();
        QVERIFY(paintsAtClick >= 1);
    }

    void a_button_that_is_disabled_by_its_own_release_does_not_click() {
        ButtonForm form;
        QSignalSpy clicks(&form.first, &chameleonButton::Click);
        connect(&form.first, &chameleonButton::MouseUp, &form.first, [&] { form.first.setEnabled(false); });
        form.press();
        form.release();
        QCOMPARE(clicks.size(), 0);
    }

    void a_disabled_button_takes_neither_mouse_nor_keys() {
        ButtonForm form;
        form.first.setEnabled(false);
        QSignalSpy clicks(&form.first, &chameleonButton::Click);
        QSignalSpy downs(&form.first, &chameleonButton::MouseDown);
        QTest::mouseClick(&form.first, Qt::LeftButton, {}, middle);
        QTest::keyClick(&form, Qt::Key_U, Qt::AltModifier);
        QCOMPARE(clicks.size(), 0);
        QCOMPARE(downs.size(), 0);
    }
};

QTEST_MAIN(chameleonButtonMouseTest)
#include "chameleonButtonMouseTest.moc"
