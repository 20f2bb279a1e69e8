// SPDX-License-Identifier: MIT
// When a skinned button paints, its outline on a window, and what shows through it.
#include "OneButtonForm.h"
#include "PaintCounter.h"
#include "support/TestMain.h"

using namespace torvane;

class ButtonSurfaceTest : public QObject {
    Q_OBJECT

private slots:
    void disabled_refresh_holds_all_paints_back_until_refresh() {
        OneButtonForm form;
        const QImage before = form.picture();
        form.button.DisableRefresh();
        form.button.setBackColor(0x102030);
        form.button.setCaption(QStringLiteral("Otra"));
        QCOMPARE(form.picture(), before);
        form.button.Refresh();
        COMPARE_PIXEL(form.picture(), 2, 2, 0x102030U);
    }

    void disabled_refresh_shows_what_was_set_before_it_and_not_what_came_after() {
        OneButtonForm form;
        form.button.setBackColor(0x102030);
        form.button.DisableRefresh();
        form.button.setBackColor(0x405060);
        COMPARE_PIXEL(form.picture(), 2, 2, 0x102030U);
    }

    void a_hidden_button_does_not_paint_and_catches_up_when_shown() {
        OneButtonForm form;
        form.showAndWait();
        form.button.hide();
        form.button.setBackColor(0x102030);
        form.button.show();
        COMPARE_PIXEL(form.picture(), 2, 2, 0x102030U);
    }

    void a_button_without_height_takes_everything_quietly() {
        OneButtonForm form;
        form.button.resize(100, 0);
        form.button.setBackColor(0x102030);
        form.button.resize(100, 30);
        COMPARE_PIXEL(form.picture(), 2, 2, 0x102030U);
    }

    void changes_of_one_turn_are_painted_once() {
        OneButtonForm form;
        form.showAndWait();
        QCoreApplication::processEvents();
        PaintCounter counter;
        form.button.installEventFilter(&counter);
        form.button.setBackColor(0x102030);
        form.button.setForeColor(0x203040);
        form.button.setCaption(QStringLiteral("Otra"));
        QCoreApplication::processEvents();
        QCOMPARE(counter.paints, 1);
    }

    void what_does_not_show_paints_nothing() {
        OneButtonForm form;
        form.showAndWait();
        QCoreApplication::processEvents();
        PaintCounter counter;
        form.button.installEventFilter(&counter);
        form.button.setUseMaskColor(false);                // there is no picture
        form.button.setUseGreyscale(false);                // nor here
        form.button.setValue(true);                        // it is no check box
        form.button.setPictureOver(filled(8, 8, Qt::red)); // the mouse is elsewhere
        QCoreApplication::processEvents();
        QCOMPARE(counter.paints, 0);
    }

    void refresh_is_on_the_screen_before_it_returns() {
        OneButtonForm form;
        form.showAndWait();
        QCoreApplication::processEvents();
        PaintCounter counter;
        form.button.installEventFilter(&counter);
        form.button.Refresh();
        QCOMPARE(counter.paints, 1);
    }

    void refresh_keeps_a_pressed_look() {
        OneButtonForm form;
        QTest::keyPress(&form.button, Qt::Key_Space);
        form.button.Refresh();
        COMPARE_PIXEL(form.picture(), 0, 0, 0x240D0EU); // face - 64
    }

    void a_new_size_and_the_next_show_lift_a_pressed_look() {
        OneButtonForm form;
        form.showAndWait();
        QTest::keyPress(&form.button, Qt::Key_Space);
        COMPARE_PIXEL(form.picture(), 0, 0, 0x240D0EU); // face - 64
        form.button.resize(90, 30);
        COMPARE_PIXEL(form.picture(), 0, 0, 0x937C7DU); // face + 47
        QTest::keyPress(&form.button, Qt::Key_Space);
        form.button.hide();
        form.button.show();
        COMPARE_PIXEL(form.picture(), 0, 0, 0x937C7DU);
    }

    void a_hidden_button_keeps_its_last_picture() {
        OneButtonForm form;
        form.showAndWait();
        const QImage before = form.picture();
        form.button.hide();
        form.button.setBackColor(0x102030);
        QCOMPARE(form.picture(), before);
    }

    void soft_bevel_shows_at_once_and_in_every_shade() {
        OneButtonForm form;
        form.button.setButtonType(6);
        form.button.setBackColor(0x808080);
        COMPARE_PIXEL(form.picture(), 0, 0, 0xA7A7A7U); // 128 + 31 + 8
        form.button.setSoftBevel(true);
        COMPARE_PIXEL(form.picture(), 0, 0, 0x939393U); // 128 + 15 + 4
    }

    void deep_face_of_type_3_follows_its_own_rule() {
        OneButtonForm form;
        form.button.setButtonType(3);
        COMPARE_PIXEL(form.picture(), 50, 1, 0x7D7D7EU); // blue 100 + 100 x 48 / 192
    }

    void default_mark_frames_type_2_at_once() {
        OneButtonForm form;
        form.button.setButtonType(2);
        form.button.setShowFocusRect(true);
        COMPARE_PIXEL(form.picture(), 0, 0, 0x937C7DU);
        form.button.setDisplayAsDefault(true);
        COMPARE_PIXEL(form.picture(), 0, 0, 0x000000U);
    }

    void special_effect_shows_at_once() {
        OneButtonForm form;
        form.button.setCaption(QString());
        form.button.setPictureNormal(filled(16, 16, Qt::red)); // centred: 42 to 58, 7 to 23
        COMPARE_PIXEL(form.picture(), 58, 23, face);
        form.button.setSpecialEffect(3);
        COMPARE_PIXEL(form.picture(), 58, 23, 0x3C2526U); // face - 40
    }

    void picture_goes_to_its_place_and_under_the_caption() {
        OneButtonForm form;
        form.button.setCaption(QStringLiteral("I"));
        form.button.setUseGreyscale(false);
        form.button.setPictureNormal(filled(16, 16, Qt::red));
        const auto isRed = [&](int x, int y) { return colourAt(form.picture(), x, y) == 0x0000FF; };
        // The letter is t pixels wide, less than 20. Left: the picture from (83 - t) / 2 - 3, right: from
        // 5 + (79 + t) / 2 on.
        QVERIFY(isRed(40, 10) && !isRed(56, 10));
        form.button.setPicturePosition(1);
        QVERIFY(isRed(56, 10) && !isRed(40, 10));
        form.button.setPicturePosition(4);
        QVERIFY(isRed(42, 7) && isRed(57, 22) && !isRed(41, 10) && !isRed(58, 10));
        const QImage around = form.picture().copy(42, 7, 16, 16);
        QVERIFY(around != filled(16, 16, Qt::red).toImage().convertToFormat(around.format()));
    }

    void picture_beside_a_caption_of_blanks_is_centred() {
        OneButtonForm form;
        form.button.setCaption(QStringLiteral("   "));
        form.button.setUseGreyscale(false);
        form.button.setPictureNormal(filled(16, 16, Qt::red));
        COMPARE_PIXEL(form.picture(), 41, 10, face);
        COMPARE_PIXEL(form.picture(), 42, 10, 0x0000FFU);
        COMPARE_PIXEL(form.picture(), 57, 10, 0x0000FFU);
    }

    void mask_colour_shows_at_once() {
        OneButtonForm form;
        form.button.setCaption(QString());
        form.button.setUseGreyscale(false);
        form.button.setPictureNormal(filled(16, 16, Qt::red));
        COMPARE_PIXEL(form.picture(), 50, 15, 0x0000FFU);
        form.button.setMaskColor(0x0000FF);
        COMPARE_PIXEL(form.picture(), 50, 15, face);
    }

    void outline_is_a_mask_only_where_it_is_no_rectangle() {
        OneButtonForm form;
        QVERIFY(form.button.mask().isEmpty());
        form.button.setButtonType(14);
        QCOMPARE(form.button.mask(), BuildRegion(14, {100, 30}));
        form.button.resize(50, 20);
        QTest::qWait(0);
        form.grab();
        QCOMPARE(form.button.mask(), BuildRegion(14, {50, 20}));
        form.button.setButtonType(6);
        QVERIFY(form.button.mask().isEmpty());
    }

    void cut_corners_show_the_window() {
        OneButtonForm form;
        form.button.setButtonType(14);
        form.showAndWait();
        const QImage image = form.grab().toImage();
        for (const QPoint corner : {QPoint(20, 20), QPoint(119, 20), QPoint(20, 49), QPoint(119, 49)}) {
            COMPARE_PIXEL(image, corner.x(), corner.y(), PanelForm::back);
        }
        QVERIFY(colourAt(image, 21, 20) != PanelForm::back);
    }

    void type_11_shows_what_lay_under_it() {
        OneButtonForm form;
        form.setPicture(filled(400, 300, QColor(1, 2, 3)));
        form.button.setButtonType(11);
        COMPARE_PIXEL(form.picture(), 2, 2, 0x030201U);
        form.setPicture(filled(400, 300, QColor(7, 8, 9)));
        COMPARE_PIXEL(form.picture(), 2, 2, 0x030201U);
        form.button.Refresh();
        COMPARE_PIXEL(form.picture(), 2, 2, 0x090807U);
    }

    void type_11_looks_anew_at_each_show() {
        OneButtonForm form;
        form.setPicture(filled(400, 300, QColor(1, 2, 3)));
        form.button.setButtonType(11);
        form.showAndWait();
        form.button.hide();
        form.setPicture(filled(400, 300, QColor(7, 8, 9)));
        form.button.show();
        COMPARE_PIXEL(form.picture(), 2, 2, 0x090807U);
    }

    void type_11_shows_controls_under_it_but_not_above_it() {
        PanelForm form;
        chameleonButton under(form, "under", {0, 0, 60, 60}, {.type = 10, .back = 0x0000FF});
        chameleonButton button(form, "button", {30, 30, 100, 30}, {.type = 10});
        chameleonButton above(form, "above", {100, 30, 60, 60}, {.type = 10, .back = 0x00FF00});
        button.setButtonType(11);
        const QImage image = button.grab().toImage();
        COMPARE_PIXEL(image, 2, 2, 0x0000FFU);
        COMPARE_PIXEL(image, 40, 2, PanelForm::back);
        COMPARE_PIXEL(image, 90, 2, PanelForm::back);
    }
};

TORVANE_TEST(ButtonSurfaceTest)
#include "ButtonSurfaceTest.moc"
