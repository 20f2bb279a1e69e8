// SPDX-License-Identifier: MIT
// Check boxes and option buttons: values, clicks, groups, looks, and what assistive tools can do with them.
#include "platform/forms/CheckBox.h"
#include "platform/forms/OptionButton.h"
#include "platform/forms/Panel.h"
#include "support/Failing.h"
#include "support/FakeWorld.h"
#include "support/TestForm.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QSignalSpy>

using namespace torvane;
using namespace Qt::StringLiterals;

namespace {
struct ToggleForm : TestForm {
    explicit ToggleForm(Runtime& givenRuntime) : TestForm(givenRuntime) {}

    CheckBox ticked{*this, "ticked", {5, 5, 134, 15}, {"&Boy", Fonts::V8b, Colours::white, 0x644D4E, true}};
    CheckBox clear{*this, "clear", {5, 25, 134, 15}, {.caption = "Advance"}};
    OptionButton system{*this, "Option(0)", {5, 45, 134, 13}, {.caption = "System", .fore = Colours::white}};
    OptionButton user{*this, "Option(1)", {5, 60, 134, 13}, {.caption = "User", .checked = true}};
    Panel panel{*this, "panel", {5, 80, 150, 40}, {}};
    OptionButton red{panel, "Colour(0)", {0, 0, 134, 13}, {.caption = "Red"}};
    OptionButton blue{panel, "Colour(1)", {0, 20, 134, 13}, {.caption = "Blue"}};
};

QAbstractButton& within(const ToggleControl& control) { return *control.findChild<QAbstractButton*>(); }

// A click where the mark is.
void click(const ToggleControl& control) {
    QWidget* window = control.window();
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {},
                      control.mapTo(window, QPoint(6, control.height() / 2)));
}
} // namespace

class ToggleControlTest : public QObject {
    Q_OBJECT

    std::unique_ptr<FakeWorld> world;
    std::unique_ptr<ToggleForm> form;

    QList<OptionButton*> options() const { return {&form->system, &form->user, &form->red, &form->blue}; }
    QString chosen() const {
        QStringList captions;
        for (const OptionButton* option : options()) {
            if (option->Value()) captions << option->Caption();
        }
        return captions.join(u' ');
    }

private slots:
    void initTestCase() { QApplication::setStyle(u"Fusion"_s); }
    void init() {
        world = std::make_unique<FakeWorld>();
        form = std::make_unique<ToggleForm>(world->runtime);
        QVERIFY(form->appear());
    }
    void cleanup() { form.reset(); }

    // Check boxes
    void the_design_says_what_is_ticked_at_first() {
        QCOMPARE(form->ticked.Value(), 1);
        QCOMPARE(form->clear.Value(), 0);
        QCOMPARE(form->ticked.kind(), u"check box"_s);
    }
    void a_click_ticks_and_clears_a_box() {
        QSignalSpy clicks(&form->clear, &CheckBox::Click);
        click(form->clear);
        QCOMPARE(form->clear.Value(), 1);
        QCOMPARE(clicks.size(), 1);
        click(form->clear);
        QCOMPARE(form->clear.Value(), 0);
        QCOMPARE(clicks.size(), 2);
    }
    void boxes_do_not_mind_each_other() {
        click(form->clear);
        QCOMPARE(form->ticked.Value(), 1);
    }
    void a_handler_of_the_click_sees_the_new_value() {
        QList<int> values;
        connect(&form->clear, &CheckBox::Click, &form->clear, [&] { values << form->clear.Value(); });
        click(form->clear);
        form->clear.setValue(0);
        const QList<int> expected{1, 0};
        QCOMPARE(values, expected);
    }
    void setting_a_value_is_a_click_even_if_it_is_the_same() {
        QSignalSpy clicks(&form->ticked, &CheckBox::Click);
        form->ticked.setValue(1);
        QCOMPARE(clicks.size(), 1);
        form->ticked.setValue(0);
        QCOMPARE(clicks.size(), 2);
        QCOMPARE(form->ticked.Value(), 0);
    }
    void other_values_than_0_and_1_fail_and_change_nothing() {
        QSignalSpy clicks(&form->ticked, &CheckBox::Click);
        for (const int value : {-1, 2, 255}) {
            QCOMPARE(failureOf([&] { form->ticked.setValue(value); }), 380);
        }
        QCOMPARE(form->ticked.Value(), 1);
        QCOMPARE(clicks.size(), 0);
    }
    void keys_reach_a_box() {
        form->clear.setFocus();
        QTest::keyClick(form->windowHandle(), Qt::Key_Space);
        QCOMPARE(form->clear.Value(), 1);
        QVERIFY(QTest::qWaitForWindowActive(form.get()));
        QTest::keyClick(&within(form->clear), Qt::Key_B, Qt::AltModifier);
        QTRY_COMPARE(form->ticked.Value(), 0); // the button is seen pressed for a moment
    }
    void a_disabled_control_does_not_react() {
        form->clear.setEnabled(false);
        form->system.setEnabled(false);
        click(form->clear);
        click(form->system);
        QCOMPARE(form->clear.Value(), 0);
        QCOMPARE(chosen(), u"User"_s);
    }

    void the_words_of_a_disabled_control_are_fainter() {
        const auto words = [this] { return imageOf(form->ticked).copy(20, 0, 114, 15); };
        QVERIFY(hasColour(words(), Qt::white));
        form->ticked.setEnabled(false);
        QVERIFY(!hasColour(words(), Qt::white));
    }

    // Option buttons
    void the_design_says_what_is_chosen_at_first() {
        QCOMPARE(chosen(), u"User"_s);
        QCOMPARE(form->user.kind(), u"option"_s);
    }
    void one_of_a_container_is_chosen() {
        click(form->system);
        QCOMPARE(chosen(), u"System"_s);
        click(form->blue);
        QCOMPARE(chosen(), u"System Blue"_s);
        click(form->red);
        QCOMPARE(chosen(), u"System Red"_s);
    }
    void only_the_chosen_one_is_clicked() {
        QSignalSpy system(&form->system, &OptionButton::Click);
        QSignalSpy user(&form->user, &OptionButton::Click);
        click(form->system);
        QCOMPARE(system.size(), 1);
        QCOMPARE(user.size(), 0);
        form->user.setValue(true);
        QCOMPARE(system.size(), 1);
        QCOMPARE(user.size(), 1);
    }
    void choosing_by_the_program_is_a_click_even_if_it_was_chosen() {
        QSignalSpy clicks(&form->user, &OptionButton::Click);
        form->user.setValue(true);
        QCOMPARE(clicks.size(), 1);
        QCOMPARE(chosen(), u"User"_s);
    }
    void the_choice_can_be_taken_away_without_a_click() {
        QSignalSpy clicks(&form->user, &OptionButton::Click);
        form->user.setValue(false);
        QCOMPARE(chosen(), QString());
        QCOMPARE(clicks.size(), 0);
        click(form->system);
        click(form->user);
        QCOMPARE(chosen(), u"User"_s);
    }
    void arrow_keys_move_the_choice_within_the_group() {
        form->user.setFocus();
        QTest::keyClick(form->focusWidget(), Qt::Key_Up);
        QCOMPARE(chosen(), u"System"_s);
        QVERIFY(within(form->system).hasFocus());
        QTest::keyClick(form->focusWidget(), Qt::Key_Down);
        QCOMPARE(chosen(), u"User"_s);
    }
    void the_tab_key_leads_to_the_chosen_one_and_on() {
        form->user.setFocus();
        form->clear.setFocus();
        QTest::keyClick(form->focusWidget(), Qt::Key_Tab);
        QVERIFY(within(form->user).hasFocus());
        QTest::keyClick(form->focusWidget(), Qt::Key_Tab);
        QVERIFY(within(form->red).hasFocus() || within(form->blue).hasFocus());
    }

    void return_is_reported_and_changes_nothing() {
        QSignalSpy entered(&form->user, &OptionButton::entered);
        QSignalSpy clicks(&form->user, &OptionButton::Click);
        form->user.setFocus();
        QTest::keyClick(form->windowHandle(), Qt::Key_Return);
        QTest::keyClick(form->windowHandle(), Qt::Key_Enter);
        QCOMPARE(entered.size(), 2);
        QTest::keyClick(form->windowHandle(), Qt::Key_A);
        QCOMPARE(entered.size(), 2);
        QCOMPARE(clicks.size(), 0);
        QCOMPARE(chosen(), u"User"_s);
    }

    // Looks
    void font_and_colours_are_those_of_the_design() {
        const QImage image = imageOf(form->ticked);
        QCOMPARE(image.size(), QSize(134, 15));
        QCOMPARE(image.pixelColor(130, 7), QColor(0x4E, 0x4D, 0x64));
        QVERIFY(hasColour(image, Qt::white));
        QCOMPARE(within(form->ticked).font(), Fonts::of(Fonts::V8b));
        QCOMPARE(form->ticked.backColour(), OleColour(0x644D4E));
    }
    void without_a_back_colour_the_ground_shows_through() {
        const QImage image = imageOf(*form);
        const QPoint behindCaption = form->system.geometry().topRight() - QPoint(3, -3);
        QCOMPARE(image.pixelColor(behindCaption), Colours::toQColor(TestForm::back));
        QVERIFY(!form->system.backColour().has_value());
    }
    void the_mark_is_whole_in_a_line_of_13_pixels() {
        OptionButton low(*form, "low", {200, 10, 30, 13}, {});
        OptionButton high(*form, "high", {200, 40, 30, 30}, {});
        low.show();
        high.show();
        const QImage image = imageOf(*form);
        const QColor ground = Colours::toQColor(TestForm::back);
        const QRect lowMark = inkOf(image.copy(low.geometry()), ground);
        QCOMPARE(lowMark.size(), inkOf(image.copy(high.geometry()), ground).size());
        QVERIFY(lowMark.height() >= 11);
    }
    void a_mark_is_seen_to_be_set() {
        for (const ToggleControl* control : QList<ToggleControl*>{&form->clear, &form->system}) {
            const QImage before = imageOf(*form).copy(control->geometry());
            click(*control);
            QVERIFY(imageOf(*form).copy(control->geometry()) != before);
        }
    }
    void captions_can_be_changed_and_are_plain_text() {
        form->clear.setCaption(u"<b>100 %</b>"_s);
        QCOMPARE(form->clear.Caption(), u"<b>100 %</b>"_s);
        QCOMPARE(within(form->clear).text(), u"<b>100 %</b>"_s);
    }

    // Assistive tools
    void assistive_tools_get_role_name_and_state() {
        const auto check = [](ToggleControl& control, QAccessible::Role role, const QString& name,
                              bool isSet) {
            QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&within(control));
            QCOMPARE(interface->role(), role);
            QCOMPARE(interface->text(QAccessible::Name), name);
            QCOMPARE(bool(interface->state().checked), isSet);
        };
        check(form->ticked, QAccessible::CheckBox, u"Boy"_s, true);
        check(form->clear, QAccessible::CheckBox, u"Advance"_s, false);
        check(form->user, QAccessible::RadioButton, u"User"_s, true);
        check(form->system, QAccessible::RadioButton, u"System"_s, false);
        QCOMPARE(form->ticked.accessibleText(), u"Boy"_s);
    }
    void an_option_that_assistive_tools_toggle_is_clicked_once() {
        QSignalSpy clicks(&form->system, &OptionButton::Click);
        QSignalSpy others(&form->user, &OptionButton::Click);
        QAccessible::queryAccessibleInterface(&within(form->system))
            ->actionInterface()
            ->doAction(QAccessibleActionInterface::toggleAction());
        QCOMPARE(chosen(), u"System"_s);
        QCOMPARE(clicks.size(), 1);
        QCOMPARE(others.size(), 0);
        click(form->system);
        QCOMPARE(clicks.size(), 2);
    }
    void a_box_that_assistive_tools_toggle_is_clicked_once() {
        QSignalSpy clicks(&form->clear, &CheckBox::Click);
        QAccessible::queryAccessibleInterface(&within(form->clear))
            ->actionInterface()
            ->doAction(QAccessibleActionInterface::toggleAction());
        QCOMPARE(form->clear.Value(), 1);
        QCOMPARE(clicks.size(), 1);
        click(form->clear);
        QCOMPARE(form->clear.Value(), 0);
        QCOMPARE(clicks.size(), 2);
        form->clear.setValue(1);
        QCOMPARE(clicks.size(), 3);
    }
    void after_a_click_a_toggle_by_assistive_tools_still_counts() {
        click(form->clear);
        QSignalSpy clicks(&form->clear, &CheckBox::Click);
        QAccessible::queryAccessibleInterface(&within(form->clear))
            ->actionInterface()
            ->doAction(QAccessibleActionInterface::toggleAction());
        QCOMPARE(form->clear.Value(), 0);
        QCOMPARE(clicks.size(), 1);
    }
    void assistive_tools_can_press() {
        QSignalSpy clicks(&form->system, &OptionButton::Click);
        QAccessible::queryAccessibleInterface(&within(form->clear))
            ->actionInterface()
            ->doAction(QAccessibleActionInterface::toggleAction());
        QAccessible::queryAccessibleInterface(&within(form->system))
            ->actionInterface()
            ->doAction(QAccessibleActionInterface::pressAction());
        QTRY_COMPARE(form->clear.Value(), 1);
        QTRY_COMPARE(chosen(), u"System"_s);
        QCOMPARE(clicks.size(), 1);
    }
};

TORVANE_TEST(ToggleControlTest)
#include "ToggleControlTest.moc"
