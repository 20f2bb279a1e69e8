// SPDX-License-Identifier: MIT
// Labels as they are seen and clicked: plain text, shadows, twins.
#include "platform/forms/Label.h"
#include "support/FakeWorld.h"
#include "support/TestForm.h"
#include "support/TestMain.h"

#include <QSignalSpy>

using namespace torvane;
using namespace Qt::StringLiterals;

class LabelTest : public QObject {
    Q_OBJECT

    static constexpr DesignRect place{10, 10, 200, 40};

    std::unique_ptr<FakeWorld> world;
    std::unique_ptr<TestForm> form;

    QColor back() const { return Colours::toQColor(TestForm::back); }

    // What the form shows while it holds one label of the look.
    QImage seen(const Label::Look& look) const {
        const Label label(*form, "label", place, look);
        return imageOf(*form);
    }
    QRect ink(const Label::Look& look) const { return inkOf(seen(look), back()); }
    int widthOf(const char* text, const FontSpec& font) const {
        return QFontMetrics(Fonts::of(font)).horizontalAdvance(QString::fromUtf8(text));
    }
    void compareWidth(const char* text) const {
        const int width = ink({text, Fonts::V8, Colours::white}).width();
        QVERIFY2(qAbs(width - widthOf(text, Fonts::V8)) <= 4, qPrintable(QString::number(width)));
    }

private slots:
    void init() {
        world = std::make_unique<FakeWorld>();
        form = std::make_unique<TestForm>(world->runtime);
    }
    void cleanup() { form.reset(); }

    void markup_is_drawn_as_it_stands() {
        compareWidth("<b>x</b>");
        compareWidth("<img src='x'>");
        compareWidth("&lt;&amp;");
        QVERIFY(seen({"<b>x</b>", Fonts::V8, Colours::white}) != seen({"x", Fonts::V8b, Colours::white}));
        QVERIFY(widthOf("<b>x</b>", Fonts::V8) > widthOf("x", Fonts::V8b) + 20);
    }
    void an_ampersand_is_a_character_and_marks_no_letter() {
        compareWidth("Salt & Pepper");
        compareWidth("a&b");
        QVERIFY(widthOf("a&b", Fonts::V8) > widthOf("ab", Fonts::V8) + 5);
    }
    void an_empty_transparent_label_draws_nothing() { QVERIFY(ink({""}).isNull()); }
    void the_text_is_in_the_fore_colour_and_begins_at_the_top_left() {
        const QImage image = seen({"MMM", Fonts::V8b, 0x0000FF});
        QVERIFY(hasColour(image, QColor(0xFF, 0, 0)));
        const QRect drawn = inkOf(image, back());
        QVERIFY(drawn.left() >= 10 && drawn.left() <= 14);
        QVERIFY(drawn.bottom() < 30);
    }
    void an_opaque_label_fills_its_rectangle() {
        const QImage image = seen({"", Fonts::M8, Colours::black, Qt::AlignLeft, false, 0xFF0000});
        QCOMPARE(inkOf(image, back()), QRect(10, 10, 200, 40));
        QCOMPARE(image.pixelColor(209, 49), QColor(0, 0, 0xFF));
    }
    void text_is_aligned_left_right_or_in_the_middle() {
        const QRect left = ink({"Wide", Fonts::V8, Colours::white, Qt::AlignLeft});
        const QRect right = ink({"Wide", Fonts::V8, Colours::white, Qt::AlignRight});
        const QRect middle = ink({"Wide", Fonts::V8, Colours::white, Qt::AlignHCenter});
        QVERIFY(qAbs(left.left() - 10) <= 3);
        QVERIFY(qAbs(right.right() - 209) <= 3);
        QVERIFY(qAbs(middle.center().x() - 110) <= 3);
        QCOMPARE(left.top(), right.top());
        QCOMPARE(left.top(), middle.top());
    }
    void a_long_text_is_broken_at_blanks_and_cut_at_the_rectangle() {
        const QRect drawn =
            ink({"one two three four five six seven eight nine ten eleven twelve thirteen fourteen "
                 "fifteen sixteen seventeen eighteen nineteen twenty twenty-one twenty-two",
                 Fonts::V8, Colours::white});
        QVERIFY(drawn.height() > 25);
        QVERIFY(QRect(10, 10, 200, 40).contains(drawn));
    }
    // Such as the "J" of many fonts, whose hook lies to the left of its place.
    void a_letter_that_reaches_to_the_left_is_whole_at_the_beginning_of_any_line() {
        QVERIFY(QFontMetrics(Fonts::of(Fonts::V8)).leftBearing(u'J') < 0);
        const QRect hooked = ink({"J", Fonts::V8, Colours::white, Qt::AlignHCenter});
        const QRect first = ink({"J", Fonts::V8, Colours::white});
        const QRect second = ink({"\r\nJ", Fonts::V8, Colours::white});
        QCOMPARE(first.size(), hooked.size());
        QCOMPARE(second.size(), hooked.size());
        QVERIFY(second.top() > first.bottom());
    }
    void such_a_letter_is_whole_where_lines_have_a_pitch() {
        const QRect hooked = ink({"J", Fonts::V8, Colours::white, Qt::AlignHCenter});
        Label label(*form, "label", place, {"i\r\nJ", Fonts::V8, Colours::white});
        label.setLinePitch(20);
        const QImage second = imageOf(*form).copy(0, place.top + 20, place.width, 20);
        QCOMPARE(inkOf(second, back()).width(), hooked.width());
    }
    void bold_and_size_of_the_font_are_seen() {
        const int plain = ink({"WWWW", Fonts::V8, Colours::white}).width();
        QVERIFY(ink({"WWWW", Fonts::V8b, Colours::white}).width() > plain);
        QVERIFY(ink({"WWWW", {FontSpec::Verdana, 12, false}, Colours::white}).width() > plain);
    }

    void a_shadow_is_black_and_has_caption_font_and_alignment_of_its_source() {
        Label source(*form, "source", place, {"Título", Fonts::V9b, Colours::white, Qt::AlignRight});
        const Label shadow(*form, "shadow", {12, 12, 200, 40}, source);
        QVERIFY(shadow.isShadow());
        QVERIFY(!source.isShadow());
        QCOMPARE(shadow.Caption(), u"Título"_s);
        QCOMPARE(shadow.ForeColor(), Colours::black);
        QVERIFY(shadow.fontSpec() == Fonts::V9b);
        QCOMPARE(shadow.alignment(), source.alignment());
        QVERIFY(shadow.isTransparent());
    }
    void a_shadow_lies_under_its_source() {
        Label source(*form, "source", place,
                     {"", Fonts::V8b, Colours::white, Qt::AlignLeft, false, 0xFF0000});
        Label shadow(*form, "shadow", place, source);
        shadow.setCaption(u"MMM"_s);
        QVERIFY(form->children().indexOf(&shadow) < form->children().indexOf(&source));
        QVERIFY(!hasColour(imageOf(*form), Qt::black));
        source.hide();
        QVERIFY(hasColour(imageOf(*form), Qt::black));
    }
    void a_caption_with_its_shadow_is_seen_twice_two_pixels_apart() {
        const QRect alone = ink({"MMM", Fonts::V8b, Colours::white});
        Label source(*form, "source", place, {"MMM", Fonts::V8b, Colours::white});
        const Label shadow(*form, "shadow", {12, 12, 200, 40}, source);
        const QImage image = imageOf(*form);
        QVERIFY(hasColour(image, Qt::white));
        QVERIFY(hasColour(image, Qt::black));
        QCOMPARE(inkOf(image, back()), alone | alone.translated(2, 2));
    }
    void lines_stand_at_a_pitch_of_their_own() {
        const auto linesOf = [&](int pitch) {
            Label label(*form, "label", {10, 10, 40, 100},
                        {"HHH HHH HHH\r\n\r\nHHH", Fonts::V8b, Colours::white});
            label.setLinePitch(pitch);
            const QImage image = imageOf(*form);
            QList<int> tops; // of the rows of letters, seen from the label
            bool wasInk = false;
            for (int y = 0; y < 100; ++y) {
                const bool isInk = !inkOf(image.copy(10, 10 + y, 40, 1), back()).isNull();
                if (isInk && !wasInk) tops.append(y);
                wasInk = isInk;
            }
            return tops;
        };
        const QList<int> tops = linesOf(20);
        QCOMPARE(tops.size(), 4); // two words never fit beside each other, and one line is empty
        QCOMPARE(tops, (QList<int>{tops[0], tops[0] + 20, tops[0] + 40, tops[0] + 80}));
        QCOMPARE(linesOf(0)[0], tops[0]);
    }
    void a_shadow_lets_the_mouse_through() {
        Label source(*form, "source", place, {"x"});
        const Label shadow(*form, "shadow", {12, 12, 200, 40}, source);
        QVERIFY(form->appear());
        QCOMPARE(form->childAt(20, 20), static_cast<QWidget*>(&source));
        source.hide();
        QVERIFY(form->childAt(20, 20) == nullptr);
    }

    void a_twin_follows_every_change_of_the_caption() {
        Label label(*form, "label", place, {"before"});
        Label twin(*form, "twin", {12, 12, 200, 40}, label);
        label.setTwin(twin);
        label.setCaption(u"after"_s);
        QCOMPARE(twin.Caption(), u"after"_s);
        label.setCaption(QString());
        QCOMPARE(twin.Caption(), QString());
        twin.setCaption(u"alone"_s);
        QCOMPARE(label.Caption(), QString());
    }
    void a_change_is_reported_only_when_the_caption_is_another_one() {
        Label label(*form, "label", place, {"before"});
        QSignalSpy changes(&label, &Label::Change);
        label.setCaption(u"before"_s);
        QCOMPARE(changes.size(), 0);
        label.setCaption(u"after"_s);
        QCOMPARE(changes.size(), 1);
    }
    void a_new_caption_and_a_new_colour_are_painted() {
        Label label(*form, "label", place, {"I", Fonts::V8b, Colours::white});
        const QImage before = imageOf(*form);
        label.setCaption(u"MMMM"_s);
        QVERIFY(imageOf(*form) != before);
        QVERIFY(!hasColour(imageOf(*form), Qt::red));
        label.setForeColor(0x0000FF);
        QCOMPARE(label.ForeColor(), 0x0000FFU);
        QVERIFY(hasColour(imageOf(*form), Qt::red));
    }

    void the_left_button_clicks_when_it_is_let_go_over_the_label() {
        Label label(*form, "label", place, {"x"});
        QSignalSpy clicks(&label, &Label::Click);
        QSignalSpy downs(&label, &Label::MouseDown);
        QSignalSpy ups(&label, &Label::MouseUp);
        QVERIFY(form->appear());
        QTest::mouseClick(&label, Qt::LeftButton, {}, {5, 5});
        QCOMPARE(clicks.size(), 1);
        QCOMPARE(downs.size(), 1);
        QCOMPARE(downs[0][0].toPoint(), label.mapToGlobal(QPoint(5, 5)));
        QTest::mousePress(&label, Qt::LeftButton, {}, {5, 5});
        QTest::mouseRelease(&label, Qt::LeftButton, {}, {-5, 5});
        QCOMPARE(clicks.size(), 1);
        QCOMPARE(ups.size(), 2);
        QTest::mouseClick(&label, Qt::RightButton, {}, {5, 5});
        QCOMPARE(clicks.size(), 1);
    }
};

TORVANE_TEST(LabelTest)
#include "LabelTest.moc"
