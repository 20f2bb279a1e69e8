// SPDX-License-Identifier: MIT
// When a skinned button paints, its outline on a window, and what shows through it.
#include "TestRuntime.h"
#include "toolkit/chameleonButton.h"

using namespace torvane;

namespace {
constexpr OleColour face = 0x644D4E;

struct ButtonForm : TestForm {
    chameleonButton button{
        *this,
        "chameleonButton1",
        {20, 20, 100, 30},
        {.type = 7, .back = face, .backOver = 0x808080, .fore = Colours::white, .caption = "&Salir"}};

    QImage picture() { return button.grab().toImage(); }
};

struct PaintCounter : QObject {
    int paints = 0;
    bool eventFilter(QObject*, QEvent* event) override {
        paints += event->type() == QEvent::Paint;
        return false;
    }
};

QPixmap filled(int width, int height, QColor colour) {
    QPixmap picture(width, height);
    picture.fill(colour);
    return picture;
}
} // namespace

class ButtonSurfaceTest : public QObject {
    Q_OBJECT

private slots:
    void disabled_refresh_holds_all_paints_back_until_refresh() {
        ButtonForm form;
        const QImage before = form.picture();
        form.button.DisableRefresh();
        form.button.setBackColor(0x102030);
        form.button.setCaption(QStringLiteral("Otra"));
        QCOMPARE(form.picture(), before);
        form.button.Refresh();
        COMPARE_PIXEL(form.picture(), 2, 2, 0x102030U);
    }

    void disabled_refresh_shows_what_was_set_before_it_and_not_what_came_after() {
        ButtonForm form;
        form.button.setBackColor(0x102030);
        form.button.DisableRefresh();
        form.button.setBackColor(0x405060);
        COMPARE_PIXEL(form.picture(), 2, 2, 0x102030U);
    }

    void a_hidden_button_does_not_paint_and_catches_up_when_shown() {
        ButtonForm form;
        form.showAndWait();
        form.button.hide();
        form.button.setBackColor(0x102030);
        form.button.show();
        COMPARE_PIXEL(form.picture(), 2, 2, 0x102030U);
    }

    void a_button_without_height_takes_everything_quietly() {
        ButtonForm form;
        form.button.resize(100, 0);
        form.button.setBackColor(0x102030);
        form.button.resize(100, 30);
        COMPARE_PIXEL(form.picture(), 2, 2, 0x102030U);
    }

    void changes_of_one_turn_are_painted_once() {
        ButtonForm form;
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

    void outline_is_a_mask_only_where_it_is_no_rectangle() {
        ButtonForm form;
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
        ButtonForm form;
        form.button.setButtonType(14);
        form.showAndWait();
        const QImage image = form.grab().toImage();
        for (const QPoint corner : {QPoint(20, 20), QPoint(119, 20), QPoint(20, 49), QPoint(119, 49)}) {
            COMPARE_PIXEL(image, corner.x(), corner.y(), TestForm::back);
        }
        QVERIFY(colourAt(image, 21, 20) != TestForm::back);
    }

    void type_11_shows_what_lay_under_it() {
        ButtonForm form;
        form.setPicture(filled(400, 300, QColor(1, 2, 3)));
        form.button.setButtonType(11);
        COMPARE_PIXEL(form.picture(), 2, 2, 0x030201U);
        form.setPicture(filled(400, 300, QColor(7, 8, 9)));
        COMPARE_PIXEL(form.picture(), 2, 2, 0x030201U);
        form.button.Refresh();
        COMPARE_PIXEL(form.picture(), 2, 2, 0x090807U);
    }

    void type_11_shows_controls_under_it_but_not_above_it() {
        TestForm form;
        chameleonButton under(form, "under", {0, 0, 60, 60}, {.type = 10, .back = 0x0000FF});
        chameleonButton button(form, "button", {30, 30, 100, 30}, {.type = 10});
        chameleonButton above(form, "above", {100, 30, 60, 60}, {.type = 10, .back = 0x00FF00});
        button.setButtonType(11);
        const QImage image = button.grab().toImage();
        COMPARE_PIXEL(image, 2, 2, 0x0000FFU);
        COMPARE_PIXEL(image, 40, 2, TestForm::back);
        COMPARE_PIXEL(image, 90, 2, TestForm::back);
    }
};

QTEST_MAIN(ButtonSurfaceTest)
#include "ButtonSurfaceTest.moc"
