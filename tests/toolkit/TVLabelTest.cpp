// SPDX-License-Identifier: MIT
// The skinned label: two captions, hover at its free edge, saved state.
#include "toolkit/TVLabel.h"
#include "PanelForm.h"
#include "support/TestMain.h"

#include <QPainter>
#include <QSignalSpy>

using namespace torvane;

namespace {
constexpr OleColour restingBack = 0x4A3933;
constexpr OleColour hoverBack = 0xB09A93;

struct LabelForm : PanelForm {
    TVLabel label{*this, "TVLabel1", {10, 10, 203, 17}, {"Idioma", Fonts::M8}};

    QImage picture() { return label.grab().toImage(); }
    void move(QPoint place, Qt::MouseButtons buttons = Qt::NoButton) {
        QMouseEvent event(QEvent::MouseMove, place, label.mapToGlobal(place), Qt::NoButton, buttons,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(&label, &event);
    }
};

int countOf(const QImage& image, OleColour colour) {
    int count = 0;
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y) count += colourAt(image, x, y) == colour;
    }
    return count;
}
} // namespace

class TVLabelTest : public QObject {
    Q_OBJECT

private slots:
    void caption_is_white_over_a_black_shadow_2_pixels_away() {
        LabelForm form;
        QImage expected(203, 17, QImage::Format_RGB32);
        expected.fill(Colours::toQColor(restingBack));
        {
            QPainter painter(&expected);
            painter.setFont(Fonts::of(Fonts::V8b));
            painter.setClipRect(4, 4, 203, 13);
            painter.setPen(Qt::black);
            painter.drawText(QRect(4, 4, 203, 13), Qt::AlignLeft | Qt::AlignTop, QStringLiteral("Idioma"));
            painter.setClipping(false);
            painter.setPen(Qt::white);
            painter.drawText(QRect(2, 2, 203, 17), Qt::AlignLeft | Qt::AlignTop, QStringLiteral("Idioma"));
        }
        QCOMPARE(form.picture().convertToFormat(QImage::Format_RGB32), expected);
    }

    void empty_caption_empties_both_labels() {
        LabelForm form;
        form.label.setCaption(QString());
        QCOMPARE(countOf(form.picture(), restingBack), 203 * 17);
    }

    void fore_colour_0_gives_black_on_black() {
        LabelForm form;
        form.label.setForeColor(0);
        const QImage image = form.picture();
        QCOMPARE(countOf(image, 0xFFFFFF), 0);
        QVERIFY(countOf(image, 0) > 0);
    }

    void fore_colour_leaves_the_shadow_black() {
        LabelForm form;
        form.label.setForeColor(0x0000FF);
        const QImage image = form.picture();
        QVERIFY(countOf(image, 0x0000FF) > 0);
        QVERIFY(countOf(image, 0) > 0);
    }

    void font_enabled_and_appearance_change_nothing_on_the_screen() {
        LabelForm form;
        const QImage before = form.picture();
        form.label.setFontNote(Fonts::V9b);
        form.label.setEnabledNote(true);
        form.label.setAppearance(1);
        QCOMPARE(form.picture(), before);
        QVERIFY(form.label.Font() == Fonts::V9b);
        QVERIFY(form.label.Enabled());
        QCOMPARE(form.label.Appearance(), 1);
    }

    void the_kept_enabled_flag_does_not_switch_the_label_off() {
        LabelForm form;
        form.label.setEnabledNote(false);
        QVERIFY(form.label.isEnabled());
        form.label.setEnabledNote(true);
        form.label.setEnabled(false);
        QVERIFY(form.label.Enabled());
    }

    void transparent_back_style_shows_the_form() {
        LabelForm form;
        form.label.setBackColor(0x0000FF);
        form.label.setBackStyle(0);
        const QImage image = form.grab(form.label.geometry()).toImage();
        QCOMPARE(countOf(image, 0x0000FF), 0);
    }

    void border_style_1_frames_the_surface() {
        LabelForm form;
        COMPARE_PIXEL(form.picture(), 202, 16, restingBack);
        form.label.setBorderStyle(1);
        COMPARE_PIXEL(form.picture(), 202, 16, 0U);
    }

    void moves_over_the_mouse_label_are_reported_and_do_not_hover() {
        LabelForm form;
        QSignalSpy moves(&form.label, &TVLabel::MouseMove);
        form.move({100, 8});
        QCOMPARE(moves.size(), 1);
        QCOMPARE(moves[0][2].toFloat(), 102.0F); // the mouse label begins 2 pixels further left
        QCOMPARE(moves[0][3].toFloat(), 8.0F);
        QCOMPARE(form.label.BackColor(), restingBack);
        form.move({200, 8}); // its last column
        QCOMPARE(form.label.BackColor(), restingBack);
    }

    void the_free_right_edge_sets_the_hover_colour_and_it_stays() {
        LabelForm form;
        form.move({201, 8});
        QCOMPARE(form.label.BackColor(), hoverBack);
        form.move({100, 8});
        QCOMPARE(form.label.BackColor(), hoverBack);
    }

    void a_drag_from_the_free_edge_to_the_outside_sets_the_resting_colour() {
        LabelForm form;
        form.move({202, 8});
        QTest::mousePress(&form.label, Qt::LeftButton, {}, {202, 8});
        form.move({230, 8}, Qt::LeftButton);
        QCOMPARE(form.label.BackColor(), restingBack);
        form.move({202, 3}, Qt::LeftButton);
        QCOMPARE(form.label.BackColor(), hoverBack);
    }

    void click_on_the_mouse_label_is_reported_whatever_enabled_says() {
        LabelForm form;
        QVERIFY(!form.label.Enabled());
        QSignalSpy clicks(&form.label, &TVLabel::Click);
        QTest::mouseClick(&form.label, Qt::LeftButton, {}, {50, 8});
        QCOMPARE(clicks.size(), 1);
        QTest::mouseClick(&form.label, Qt::LeftButton, {}, {202, 8});
        QCOMPARE(clicks.size(), 1);
    }

    void a_fresh_label_writes_only_what_differs_from_the_defaults() {
        LabelForm form;
        PropertyBag bag;
        form.label.WriteProperties(bag);
        QCOMPARE(bag.names(), QStringList{QStringLiteral("Caption")});
    }

    void saved_values_are_read_again_and_missing_ones_are_defaults() {
        LabelForm form;
        form.label.setBackStyle(0);
        form.label.setForeColor(0x00C000);
        form.label.setFontNote(Fonts::V8);
        PropertyBag bag;
        form.label.WriteProperties(bag);
        QCOMPARE(bag.names().join(u' '), QStringLiteral("Font Caption BackStyle ForeColor"));
        LabelForm other;
        other.label.setBorderStyle(1);
        other.label.ReadProperties(bag);
        QCOMPARE(other.label.Caption(), QStringLiteral("Idioma"));
        QCOMPARE(other.label.BackStyle(), 0);
        QCOMPARE(other.label.ForeColor(), OleColour(0x00C000));
        QVERIFY(other.label.Font() == Fonts::V8);
        QCOMPARE(other.label.BorderStyle(), 0);
        other.label.ReadProperties(PropertyBag());
        QCOMPARE(other.label.Caption(), QStringLiteral("Label1"));
        QCOMPARE(other.label.BackColor(), restingBack);
    }

    void markup_is_text() {
        LabelForm form;
        form.label.setCaption(QStringLiteral("<i>a</i>"));
        const QImage tagged = form.picture();
        form.label.setCaption(QStringLiteral("a"));
        QVERIFY(tagged != form.picture());
    }
};

TORVANE_TEST(TVLabelTest)
#include "TVLabelTest.moc"
