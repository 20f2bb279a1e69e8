// SPDX-License-Identifier: MIT
// The skinned button's properties and what they show.
#include "toolkit/chameleonButton.h"
#include "OneButtonForm.h"
#include "WithoutPictures.h"
#include "support/TestMain.h"

#include <QHelpEvent>
#include <QToolTip>

using namespace torvane;

class chameleonButtonTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { removePictures(); }

    void design_gives_what_every_button_of_the_program_has() {
        OneButtonForm form;
        const chameleonButton& button = form.button;
        QCOMPARE(button.objectName(), QStringLiteral("chameleonButton1"));
        QCOMPARE(button.geometry(), QRect(20, 20, 100, 30));
        QCOMPARE(button.ButtonType(), 7);
        QCOMPARE(button.ColorScheme(), 2);
        QCOMPARE(button.PicturePosition(), 0);
        QCOMPARE(button.MousePointer(), 1);
        QVERIFY(button.UseMaskColor() && button.UseGreyscale() && button.Enabled());
        QVERIFY(!button.HandPointer() && !button.CheckBoxBehaviour() && !button.Value() &&
                !button.ShowFocusRect());
        QCOMPARE(button.BackOver(), OleColour(0x808080));
        QCOMPARE(button.ForeOver(), Colours::white); // the fore colour, for want of another
        QCOMPARE(button.Version(), QStringLiteral("2.0.6"));
    }

    void fresh_button_has_its_name_as_caption_and_the_systems_colours() {
        PanelForm form;
        const chameleonButton button(form, "Command1");
        QCOMPARE(button.Caption(), QStringLiteral("Command1"));
        QCOMPARE(button.size(), QSize(320, 240));
        QCOMPARE(button.ButtonType(), 2);
        QCOMPARE(button.ColorScheme(), 1);
        QVERIFY(button.Enabled() && button.ShowFocusRect() && button.UseMaskColor() &&
                !button.UseGreyscale());
        QCOMPARE(button.BackColor(), Colours::translate(Colours::system(15)));
        QCOMPARE(button.BackOver(), button.BackColor());
        QCOMPARE(button.ForeColor(), Colours::translate(Colours::system(18)));
        QCOMPARE(button.ForeOver(), button.ForeColor());
        QCOMPARE(button.MaskColor(), OleColour(0xC0C0C0));
    }

    void the_words_of_a_button_are_its_caption_without_the_access_mark() {
        OneButtonForm form;
        QCOMPARE(form.button.accessibleRole(), QAccessible::Button);
        QCOMPARE(form.button.accessibleText(), QStringLiteral("Salir"));
        form.button.setCaption(QString());
        QCOMPARE(form.button.accessibleText(), QString());
    }

    void saved_state_is_applied_on_reading() {
        OneButtonForm form;
        PropertyBag bag;
        form.button.WriteProperties(bag);
        bag.WriteProperty(QStringLiteral("TX"), QStringLiteral("&Nuevo"));
        bag.WriteProperty(QStringLiteral("ENAB"), false);
        bag.WriteProperty(QStringLiteral("HAND"), true);
        bag.WriteProperty(QStringLiteral("MPTR"), 99);
        form.button.ReadProperties(bag);
        QCOMPARE(form.button.Caption(), QStringLiteral("&Nuevo"));
        QCOMPARE(form.button.accessKey(), QChar(u'n'));
        QVERIFY(!form.button.isEnabled());
        QCOMPARE(form.button.cursor().shape(), Qt::PointingHandCursor);
        QCOMPARE(form.button.ButtonType(), 7);
    }

    void colours_are_painted_when_they_change() {
        OneButtonForm form;
        COMPARE_PIXEL(form.picture(), 2, 2, face);
        form.button.setBackColor(0x102030);
        COMPARE_PIXEL(form.picture(), 2, 2, 0x102030U);
        const QImage before = form.picture();
        form.button.setForeColor(0x0000FF);
        QVERIFY(form.picture() != before);
    }

    void text_properties_lay_the_caption_out_anew() {
        OneButtonForm form;
        QImage before = form.picture();
        const auto changed = [&] {
            const QImage now = form.picture();
            return std::exchange(before, now) != now;
        };
        form.button.setCaption(QStringLiteral("Entrar"));
        QVERIFY(changed());
        form.button.setFontBold(false);
        QVERIFY(changed() && !form.button.FontBold());
        form.button.setFontItalic(true);
        QVERIFY(changed() && form.button.FontItalic());
        form.button.setFontUnderline(true);
        QVERIFY(changed() && form.button.FontUnderline());
        form.button.setFontSize(12);
        QVERIFY(changed());
        QCOMPARE(form.button.FontSize(), 12);
        form.button.setFontName(QStringLiteral("Courier New"));
        QVERIFY(changed());
        QCOMPARE(form.button.FontName(), QStringLiteral("Courier New"));
        form.button.setFontName(QStringLiteral("Unheard Of"));
        QCOMPARE(form.button.FontName(), QStringLiteral("Courier New"));
    }

    void caption_as_wide_as_the_button_stays_inside() {
        OneButtonForm form;
        form.button.setCaption(QStringLiteral("Una leyenda que no cabe en una sola línea"));
        const QImage image = form.picture();
        for (int x = 0; x < 99; ++x) COMPARE_PIXEL(image, x, 0, faceHighlight);
    }

    void picture_appears_beside_the_caption_and_over_picture_only_under_the_mouse() {
        OneButtonForm form;
        form.button.setUseGreyscale(false);
        form.button.setCaption(QString());
        form.button.setPictureNormal(filled(16, 16, Qt::red));
        form.button.setPictureOver(filled(16, 16, Qt::green));
        COMPARE_PIXEL(form.picture(), 50, 15, 0x0000FFU);
        COMPARE_PIXEL(form.picture(), 41, 15, face);
        form.button.setUseGreyscale(true);
        COMPARE_PIXEL(form.picture(), 50, 15, 0x4C4C4CU);
        form.button.setPictureNormal(QPixmap());
        COMPARE_PIXEL(form.picture(), 50, 15, face);
    }

    void mask_colour_can_be_changed_and_left_out() {
        OneButtonForm form;
        form.button.setUseGreyscale(false);
        form.button.setCaption(QString());
        form.button.setPictureNormal(filled(16, 16, QColor(0xC0, 0xC0, 0xC0)));
        COMPARE_PIXEL(form.picture(), 50, 15, face);
        form.button.setUseMaskColor(false);
        COMPARE_PIXEL(form.picture(), 50, 15, 0xC0C0C0U);
        form.button.setUseMaskColor(true);
        form.button.setMaskColor(0x000000);
        COMPARE_PIXEL(form.picture(), 50, 15, 0xC0C0C0U);
    }

    void disabled_look_holds_even_if_pressed() {
        OneButtonForm form;
        form.button.setEnabled(false);
        const QImage disabled = form.picture();
        form.button.setCheckBoxBehaviour(true);
        form.button.setValue(true);
        QCOMPARE(form.picture(), disabled);
        QVERIFY(!form.button.isEnabled());
    }

    void a_button_that_is_disabled_as_a_plain_widget_is_disabled_in_every_way() {
        OneButtonForm form;
        OneButtonForm other;
        other.button.setEnabled(false);
        QWidget& plain = form.button;
        plain.setEnabled(false);
        QVERIFY(!form.button.Enabled());
        QCOMPARE(form.picture(), other.picture());
        PropertyBag bag;
        form.button.WriteProperties(bag);
        QCOMPARE(bag.ReadProperty(QStringLiteral("ENAB"), true), false);
        plain.setEnabled(true);
        QVERIFY(form.button.Enabled());
        QVERIFY(form.picture() != other.picture());
    }

    void a_button_that_is_disabled_while_its_window_is_looks_so_afterwards() {
        OneButtonForm form;
        OneButtonForm other;
        other.button.setEnabled(false);
        form.picture();
        form.setEnabled(false);
        form.button.setEnabled(false);
        form.setEnabled(true);
        QVERIFY(!form.button.Enabled());
        QCOMPARE(form.picture(), other.picture());
    }

    void a_disabled_button_is_not_painted_while_painting_is_not_allowed() {
        OneButtonForm form;
        const QImage before = form.picture();
        form.button.DisableRefresh();
        form.button.setEnabled(false);
        QCOMPARE(form.picture(), before);
        form.button.Refresh();
        QVERIFY(form.picture() != before);
    }

    void a_font_that_is_set_as_on_a_plain_widget_lays_the_caption_out_anew() {
        OneButtonForm form;
        OneButtonForm other;
        other.button.setFontSpec({FontSpec::Verdana, 12, true});
        QWidget& plain = form.button;
        plain.setFont(other.button.font());
        QCOMPARE(form.picture(), other.picture());
    }

    void a_disabled_window_does_not_give_its_buttons_the_disabled_look() {
        OneButtonForm form;
        const QImage before = form.picture();
        static_cast<QWidget&>(form).setEnabled(false);
        QCOMPARE(form.picture(), before);
        QVERIFY(form.button.Enabled());
    }

    void value_presses_a_check_box_button() {
        OneButtonForm form;
        const QImage normal = form.picture();
        form.button.setValue(true);
        QCOMPARE(form.picture(), normal);
        form.button.setCheckBoxBehaviour(true);
        QVERIFY(form.picture() != normal);
    }

    void a_value_that_is_set_is_painted_in_the_last_state() {
        OneButtonForm form;
        form.button.setCheckBoxBehaviour(true);
        const QImage normal = form.picture();
        QTest::mousePress(&form.button, Qt::LeftButton);
        const QImage pressed = form.picture();
        form.button.setValue(false);
        QCOMPARE(form.picture(), pressed);
        QTest::mouseRelease(&form.button, Qt::LeftButton, {}, {-5, -5});
        QCOMPARE(form.picture(), normal);
    }

    void a_button_that_was_checked_stays_down_until_it_is_painted_in_another_state() {
        OneButtonForm form;
        form.button.setCheckBoxBehaviour(true);
        const QImage normal = form.picture();
        form.button.setValue(true);
        const QImage pressed = form.picture();
        form.button.setValue(false);
        QCOMPARE(form.picture(), pressed);
        QTest::mousePress(&form.button, Qt::LeftButton);
        QTest::mouseRelease(&form.button, Qt::LeftButton, {}, {-5, -5});
        QCOMPARE(form.picture(), normal);
    }

    void scheme_4_takes_the_windows_back_colour() {
        OneButtonForm form;
        form.button.setColorScheme(4);
        COMPARE_PIXEL(form.picture(), 2, 2, PanelForm::back);
    }

    void pointer_and_hand() {
        OneButtonForm form;
        QCOMPARE(form.button.cursor().shape(), Qt::ArrowCursor);
        form.button.setHandPointer(true);
        QCOMPARE(form.button.MousePointer(), 99);
        QCOMPARE(form.button.cursor().shape(), Qt::PointingHandCursor);
        form.button.setHandPointer(false);
        QCOMPARE(form.button.MousePointer(), 1);
        QCOMPARE(form.button.cursor().shape(), Qt::ArrowCursor);
        form.button.setMouseIcon(filled(8, 8, Qt::red));
        form.button.setMousePointer(99);
        QCOMPARE(form.button.cursor().shape(), Qt::BitmapCursor);
        form.button.setMouseIcon(filled(16, 16, Qt::red));
        QCOMPARE(form.button.cursor().pixmap().width(), 16);
        form.button.setHandPointer(false);
        QVERIFY(form.button.MouseIcon().isNull());
    }

    void pointer_number_0_is_the_windows_own() {
        OneButtonForm form;
        form.setCursor(Qt::CrossCursor);
        form.button.setMousePointer(0);
        QCOMPARE(form.button.cursor().shape(), Qt::CrossCursor);
    }

    void a_larger_font_is_centred_anew() {
        OneButtonForm form;
        form.button.setCaption(QStringLiteral("H"));
        form.button.setFontSize(16);
        const QImage image = form.picture();
        int first = 30;
        int last = 0;
        for (int x = 0; x < 100; ++x) {
            for (int y = 0; y < 30; ++y) {
                if (colourAt(image, x, y) != Colours::white) continue;
                first = std::min(first, y);
                last = std::max(last, y);
            }
        }
        // A letter of 15 pixels that stands on its base line, within 2 pixels of the middle.
        QVERIFY(last > first + 10);
        QVERIFY(std::abs(first + last - 29) <= 4);
    }

    void tool_tip_is_shown_as_plain_text() {
        OneButtonForm form;
        form.showAndWait();
        form.button.setToolTip(QStringLiteral("<b>Borrar</b>"));
        QHelpEvent help(QEvent::ToolTip, {5, 5}, form.button.mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(&form.button, &help);
        QVERIFY(QToolTip::text().contains(QStringLiteral("&lt;b&gt;Borrar")));
        QToolTip::hideText();
    }
};

TORVANE_TEST(chameleonButtonTest)
#include "chameleonButtonTest.moc"
