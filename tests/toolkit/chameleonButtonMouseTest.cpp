// SPDX-License-Identifier: MIT
// Mouse of the skinned button.
#include "ButtonsOnForm.h"
#include "support/TestMain.h"

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

    void mouse_down_reports_button_shift_and_place() {
        ButtonForm form;
        QSignalSpy downs(&form.first, &chameleonButton::MouseDown);
        QTest::mousePress(&form.first, Qt::MiddleButton, Qt::ShiftModifier | Qt::ControlModifier, {7, 9});
        QCOMPARE(downs.size(), 1);
        QCOMPARE(downs[0], (QList<QVariant>{4, 3, 7.0F, 9.0F}));
    }

    void mouse_move_and_mouse_up_report_button_shift_and_place() {
        ButtonForm form;
        QSignalSpy moves(&form.first, &chameleonButton::MouseMove);
        QSignalSpy ups(&form.first, &chameleonButton::MouseUp);
        QMouseEvent move(QEvent::MouseMove, QPointF(3, 4), form.first.mapToGlobal(QPointF(3, 4)),
                         Qt::NoButton, Qt::LeftButton | Qt::RightButton, Qt::ShiftModifier);
        QCoreApplication::sendEvent(&form.first, &move);
        QCOMPARE(moves.last(), (QList<QVariant>{3, 1, 3.0F, 4.0F}));
        QTest::mouseRelease(&form.first, Qt::RightButton, Qt::AltModifier, {7, 9});
        QCOMPARE(ups.last(), (QList<QVariant>{2, 4, 7.0F, 9.0F}));
    }

    void the_side_buttons_of_a_mouse_do_nothing() {
        ButtonForm form;
        QSignalSpy downs(&form.first, &chameleonButton::MouseDown);
        QSignalSpy ups(&form.first, &chameleonButton::MouseUp);
        form.press();
        form.release();
        form.press(Qt::BackButton);
        QCOMPARE(form.corner(), raisedCorner);
        form.release(Qt::BackButton);
        form.send(QEvent::MouseButtonDblClick, middle, Qt::BackButton, Qt::BackButton);
        QCOMPARE(form.corner(), raisedCorner);
        QCOMPARE(downs.size(), 1);
        QCOMPARE(ups.size(), 1);
    }

    void a_press_in_the_pressed_look_paints_nothing_more() {
        ButtonForm form;
        QTest::keyPress(&form.first, Qt::Key_Space);
        QCoreApplication::processEvents();
        PaintCounter counter;
        form.first.installEventFilter(&counter);
        form.press();
        QCoreApplication::processEvents();
        QCOMPARE(counter.paints, 0);
    }

    void a_click_counts_for_the_button_pressed_last() {
        ButtonForm form;
        QSignalSpy clicks(&form.first, &chameleonButton::Click);
        form.press();
        form.press(Qt::RightButton);
        form.release();
        QCOMPARE(clicks.size(), 0);
        form.release(Qt::RightButton);
        form.press(Qt::RightButton);
        form.press();
        form.release(Qt::RightButton);
        QCOMPARE(clicks.size(), 0);
        form.release();
        QCOMPARE(clicks.size(), 1);
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

    void the_hover_timer_runs_only_between_over_and_out() {
        ButtonForm form;
        const auto* timer = form.first.findChild<QTimer*>(QStringLiteral("OverTimer"));
        QVERIFY(timer != nullptr);
        QCOMPARE(timer->interval(), 3);
        QVERIFY(!timer->isActive());
        form.point(middle);
        QVERIFY(timer->isActive());
        QSignalSpy out(&form.first, &chameleonButton::MouseOut);
        QCursor::setPos(900, 700);
        QTRY_COMPARE(out.size(), 1);
        QVERIFY(!timer->isActive());
    }

    void over_and_out_are_reported_when_their_look_is_there() {
        ButtonForm form;
        QList<OleColour> surfaces;
        const auto note = [&] { surfaces += form.surface(); };
        connect(&form.first, &chameleonButton::MouseOver, this, note);
        connect(&form.first, &chameleonButton::MouseOut, this, note);
        form.point(middle);
        QCursor::setPos(900, 700);
        QTRY_COMPARE(surfaces.size(), 2);
        QCOMPARE(surfaces, (QList<OleColour>{backOver, back}));
    }

    void a_button_that_comes_up_under_the_resting_pointer_is_hovered() {
        ButtonForm form;
        QSignalSpy over(&form.first, &chameleonButton::MouseOver);
        QCursor::setPos(form.first.mapToGlobal(middle));
        QEnterEvent enter(middle, middle, form.first.mapToGlobal(middle));
        QCoreApplication::sendEvent(&form.first, &enter);
        QCOMPARE(over.size(), 1);
        QCOMPARE(form.surface(), backOver);
    }

    void hover_colours_and_the_over_picture_show_at_once_when_they_change() {
        ButtonForm form;
        form.point(middle);
        COMPARE_PIXEL(form.first.grab().toImage(), 2, 2, backOver);
        QCOMPARE(pixelsIn(form.first.grab().toImage(), 0x00C000), 0);
        form.first.setForeOver(0x00C000);
        const QImage image = form.first.grab().toImage();
        QVERIFY(pixelsIn(image, 0x00C000) > 5);
        QCOMPARE(pixelsIn(image, Colours::white), 0);
        form.first.setBackOver(0x102030);
        QCOMPARE(form.surface(), OleColour(0x102030));
        QPixmap red(8, 8);
        red.fill(Qt::red);
        QPixmap green(8, 8);
        green.fill(Qt::green);
        form.first.setPictureNormal(red);
        QCOMPARE(pixelsIn(form.first.grab().toImage(), 0x0000FF), 64);
        form.first.setPictureOver(green);
        QCOMPARE(pixelsIn(form.first.grab().toImage(), 0x00FF00), 64);
    }

    void a_button_disabled_under_the_mouse_loses_its_hover() {
        ButtonForm form;
        QSignalSpy out(&form.first, &chameleonButton::MouseOut);
        form.point(middle);
        form.first.setEnabled(false);
        QTRY_COMPARE(out.size(), 1);
        QCOMPARE(form.surface(), back);
    }

    void type_9_of_the_fixed_scheme_lightens_its_accent_when_pressed() {
        ButtonForm form;
        form.first.setColorScheme(3);
        form.first.setButtonType(9);
        form.point(middle);
        form.press();
        QCOMPARE(form.surface(), OleColour(0xBF8080)); // blue 127 x 128 / 255 + 128, the others 128
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

    void dragging_out_lifts_the_look_by_itself_and_only_once() {
        ButtonForm form; // never hovered, so that no timer runs
        form.press();
        form.point(outside, Qt::LeftButton);
        QCOMPARE(form.corner(), raisedCorner);
        QCoreApplication::processEvents();
        PaintCounter counter;
        form.first.installEventFilter(&counter);
        form.point({201, 100}, Qt::LeftButton);
        form.release(Qt::LeftButton, outside);
        QCoreApplication::processEvents();
        QCOMPARE(counter.paints, 0);
    }

    void dragging_back_in_presses_with_the_hover_colours() {
        ButtonForm form;
        form.press();
        form.point(outside, Qt::LeftButton);
        form.point(middle, Qt::LeftButton);
        QCOMPARE(form.surface(), backOver);
        QCOMPARE(form.corner(), OleColour(0x101010)); // 0x50 - 64
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

    void checked_button_stays_pressed_under_the_mouse_and_still_reports_over_and_out() {
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

    void click_turns_a_check_box_over_before_it_is_reported() {
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

    void click_is_on_the_screen_before_it_is_reported() {
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

TORVANE_TEST(chameleonButtonMouseTest)
#include "chameleonButtonMouseTest.moc"
