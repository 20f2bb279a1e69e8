// SPDX-License-Identifier: MIT
// Controls as assistive tools see them: names, roles, states, what there is of them, presses.
#include "art/ArtResources.h"
#include "platform/forms/Image.h"
#include "platform/forms/Label.h"
#include "platform/forms/Panel.h"
#include "platform/forms/TextBox.h"
#include "support/AccessibleTree.h"
#include "support/FakeWorld.h"
#include "support/TestForm.h"
#include "toolkit/TVLabel.h"
#include "toolkit/chameleonButton.h"
#include "toolkit/vbwHyperlink.h"

#include <QMessageBox>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QTimer>

using namespace torvane;
using namespace Qt::StringLiterals;

class AccessibleControlTest : public QObject {
    Q_OBJECT

    static constexpr DesignRect place{10, 10, 100, 20};
    static constexpr DesignRect below{10, 40, 100, 20};

    std::unique_ptr<FakeWorld> world;
    std::unique_ptr<TestForm> form;

    static QAccessible::State stateOf(QObject& object) { return accessible(object).state(); }
    QList<QObject*> parts() const {
        QList<QObject*> found;
        for (QAccessibleInterface* part : accessiblesFrom(accessible(*form)).sliced(1))
            found += part->object();
        return found;
    }
    // The events that a press gives, in their order.
    template <typename Press>
    static QByteArrayList eventsOf(chameleonButton& button, Press press) {
        QByteArrayList events;
        QObject context;
        const auto note = [&](const char* name) { return [&events, name] { events += name; }; };
        connect(&button, &chameleonButton::MouseDown, &context, note("down"));
        connect(&button, &chameleonButton::MouseUp, &context, note("up"));
        connect(&button, &chameleonButton::Click, &context, note("click"));
        press();
        return events;
    }

private slots:
    void init() {
        initArtResources();
        world = std::make_unique<FakeWorld>();
        form = std::make_unique<TestForm>(world->runtime);
    }
    void cleanup() { form.reset(); }

    // Names
    void a_control_is_called_as_it_is_given_or_by_its_caption_or_by_its_tip_but_never_by_the_design() {
        chameleonButton button(*form, "chameleonButton1", place, {});
        QCOMPARE(nameOf(button), QString());
        button.setToolTip(u"Minimise"_s);
        QCOMPARE(nameOf(button), u"Minimise"_s);
        button.setCaption(u" &Save && go "_s);
        QCOMPARE(nameOf(button), u"Save & go"_s);
        button.isCalled({"", "", "Guardar"});
        QCOMPARE(nameOf(button), u"Guardar"_s);
    }
    void a_tip_that_is_the_name_is_not_said_twice() {
        chameleonButton button(*form, "button", place, {.toolTip = {"", "", "Minimizar"}});
        QCOMPARE(accessible(button).text(QAccessible::Description), QString());
        button.setCaption(u"Hide"_s);
        QCOMPARE(accessible(button).text(QAccessible::Description), u"Minimizar"_s);
    }
    void labels_are_called_by_what_they_show() {
        Label label(*form, "Label1", place, {"Título"});
        TVLabel skin(*form, "Label2", below, {"Idioma"});
        QCOMPARE(nameOf(label), u"Título"_s);
        QCOMPARE(nameOf(skin), u"Idioma"_s);
        label.setCaption(u"Title"_s);
        skin.setCaption(u"Language"_s);
        QCOMPARE(nameOf(label), u"Title"_s);
        QCOMPARE(nameOf(skin), u"Language"_s);
    }
    void a_field_and_its_editor_are_called_by_the_label_that_names_them() {
        TextBox line(*form, "EditID3Title", place, {});
        TextBox area(*form, "EditID3Info", below, {.multiLine = true});
        Label label(*form, "Label45", {0, 0, 10, 10}, {"Título"});
        label.names(line);
        label.names(area);
        QVERIFY(form->appear());
        for (TextBox* field : {&line, &area}) {
            QCOMPARE(nameOf(*field), u"Título"_s);
            QCOMPARE(nameOf(*field->focusProxy()), u"Título"_s);
            for (const QString& name : namesOn(*field)) QCOMPARE(name, u"Título"_s);
        }
        label.setCaption(u"Title"_s);
        for (TextBox* field : {&line, &area}) {
            QCOMPARE(nameOf(*field), u"Title"_s);
            for (const QString& name : namesOn(*field)) QCOMPARE(name, u"Title"_s);
        }
    }
    void a_label_that_outlives_what_it_names_does_no_harm() {
        Label label(*form, "label", place, {"a"});
        {
            Panel panel(*form, "panel", below, {});
            label.names(panel);
            QCOMPARE(nameOf(panel), u"a"_s);
        }
        label.setCaption(u"b"_s);
        QCOMPARE(label.Caption(), u"b"_s);
    }
    void a_window_is_called_by_its_title_line_or_else_by_the_application() {
        QCOMPARE(nameOf(*form), QCoreApplication::applicationName());
        Label title(*form, "Label1", place, {"Torvane » Menú"});
        title.names(*form);
        QCOMPARE(nameOf(*form), u"Torvane » Menú"_s);
        title.setCaption(u"Torvane » Menu"_s);
        QCOMPARE(nameOf(*form), u"Torvane » Menu"_s);
    }

    // Roles and states
    void windows_of_the_task_bar_are_windows_and_the_others_dialogs() {
        TestForm shown(world->runtime,
                       {.name = "A", .title = "A", .clientSize = {99, 99}, .inTaskBar = true});
        QCOMPARE(accessible(shown).role(), QAccessible::Window);
        QCOMPARE(accessible(*form).role(), QAccessible::Dialog);
    }
    void controls_have_their_roles() {
        chameleonButton button(*form, "button", place, {});
        Label label(*form, "label", place, {"x"});
        TVLabel skin(*form, "skin", place, {"x"});
        vbwHyperlink link(*form, "link", place, {});
        Panel panel(*form, "panel", place, {});
        TextBox field(*form, "field", place, {});
        QVERIFY(form->appear());
        QCOMPARE(accessible(button).role(), QAccessible::Button);
        QCOMPARE(accessible(label).role(), QAccessible::StaticText);
        QCOMPARE(accessible(skin).role(), QAccessible::StaticText);
        QCOMPARE(accessible(link).role(), QAccessible::Link);
        QCOMPARE(accessible(panel).role(), QAccessible::Grouping);
        QCOMPARE(accessible(*field.focusProxy()).role(), QAccessible::EditableText);
    }
    void a_field_reports_its_text_and_takes_another_one() {
        TextBox line(*form, "line", place, {"Uno"});
        TextBox area(*form, "area", below, {.text = "Dos", .multiLine = true});
        QVERIFY(form->appear());
        for (TextBox* field : {&line, &area}) {
            QAccessibleInterface& editor = accessible(*field->focusProxy());
            QVERIFY(editor.textInterface() != nullptr);
            QCOMPARE(editor.textInterface()->text(0, 3), field->Text());
            QVERIFY(editor.state().editable && editor.state().focusable);
            editor.setText(QAccessible::Value, u"Three"_s);
            QCOMPARE(field->Text(), u"Three"_s);
        }
        QVERIFY(accessible(*area.focusProxy()).state().multiLine);
    }
    void a_button_reports_its_state() {
        chameleonButton button(*form, "button", place, {});
        chameleonButton other(*form, "other", below, {});
        QVERIFY(form->appear());
        button.setFocus();
        QVERIFY(stateOf(button).focusable && stateOf(button).focused && !stateOf(other).focused);
        QVERIFY(!stateOf(button).pressed && !stateOf(button).checkable && !stateOf(button).disabled);
        QTest::mousePress(&button, Qt::LeftButton);
        QVERIFY(stateOf(button).pressed);
        QTest::mouseRelease(&button, Qt::LeftButton);
        QVERIFY(!stateOf(button).pressed);
        button.setCheckBoxBehaviour(true);
        button.setValue(true);
        QVERIFY(stateOf(button).checkable && stateOf(button).checked);
        button.setEnabled(false);
        QVERIFY(stateOf(button).disabled);
        button.hide();
        QVERIFY(stateOf(button).invisible);
    }
    void what_lies_beside_its_window_is_off_the_screen() {
        Label inside(*form, "inside", place, {"x"});
        Label outside(*form, "outside", {310, 10, 30, 30}, {"x"});
        QVERIFY(!stateOf(inside).offscreen);
        QVERIFY(stateOf(outside).offscreen);
    }

    void what_lies_under_another_panel_is_invisible_and_takes_no_press() {
        Panel lower(*form, "lower", {10, 10, 100, 100}, {});
        chameleonButton button(lower, "button", place, {});
        Panel upper(*form, "upper", {10, 10, 100, 100}, {});
        QVERIFY(form->appear());
        QSignalSpy clicks(&button, &chameleonButton::Click);
        QVERIFY(stateOf(lower).invisible && stateOf(button).invisible && !stateOf(upper).invisible);
        press(button);
        QCOMPARE(clicks.size(), 0);
        lower.raise();
        QVERIFY(!stateOf(lower).invisible && !stateOf(button).invisible && stateOf(upper).invisible);
        upper.hide();
        upper.raise();
        QVERIFY(!stateOf(button).invisible);
        press(button);
        QCOMPARE(clicks.size(), 1);
    }

    // What there is
    void shadows_ornaments_and_stores_are_not_there() {
        Label label(*form, "label", place, {"x"});
        const Label shadow(*form, "shadow", below, label);
        const Label silent(*form, "silent", below, {});
        const Image image(*form, "image", place);
        const Label outside(*form, "outside", {310, 10, 30, 30}, {"x"});
        Label store(*form, "store", below, {"x"});
        store.conceal();
        QCOMPARE(parts(), QList<QObject*>{&label});
    }
    void a_label_is_there_as_soon_as_it_says_something() {
        Label label(*form, "label", place, {});
        TVLabel skin(*form, "skin", below, {""});
        QCOMPARE(parts(), QList<QObject*>{});
        label.setCaption(u"x"_s);
        QCOMPARE(parts(), QList<QObject*>{&label});
        skin.setCaption(u"y"_s);
        QCOMPARE(parts(), (QList<QObject*>{&label, &skin}));
    }
    void a_control_that_comes_into_sight_is_there() {
        const Label label(*form, "label", {310, 10, 30, 30}, {"x"});
        QCOMPARE(parts().size(), 0);
        form->setFixedSize(400, 200);
        QCOMPARE(parts().size(), 1);
    }
    void parents_and_children_know_each_other() {
        Label first(*form, "first", place, {"x"});
        const Label shadow(*form, "shadow", below, first);
        Panel panel(*form, "panel", {10, 60, 100, 100}, {});
        Label inner(panel, "inner", place, {"y"});
        QAccessibleInterface& window = accessible(*form);
        QCOMPARE(window.childCount(), 2);
        for (int i = 0; i < window.childCount(); ++i) {
            QCOMPARE(window.indexOfChild(window.child(i)), i);
            QCOMPARE(window.child(i)->parent(), &window);
        }
        QCOMPARE(accessible(panel).child(0)->object(), &inner);
        QCOMPARE(window.child(7), nullptr);
    }
    void a_place_on_the_screen_gives_what_is_seen_there() {
        Panel hidden(*form, "hidden", {0, 0, 100, 100}, {});
        Panel shown(*form, "shown", {0, 0, 100, 100}, {});
        hidden.hide();
        QVERIFY(form->appear());
        const QPoint here = form->mapToGlobal(QPoint(50, 50));
        QCOMPARE(accessible(*form).childAt(here.x(), here.y())->object(), &shown);
    }

    // Presses
    void a_press_gives_the_same_events_as_a_click() {
        chameleonButton button(*form, "button", place, {});
        QVERIFY(form->appear());
        const QByteArrayList clicked = eventsOf(button, [&] { QTest::mouseClick(&button, Qt::LeftButton); });
        QCOMPARE(clicked, (QByteArrayList{"down", "up", "click"}));
        QCOMPARE(eventsOf(button, [&] { QVERIFY(press(button)); }), clicked);
    }
    void a_press_turns_a_check_box_over() {
        chameleonButton button(*form, "button", place, {});
        button.setCheckBoxBehaviour(true);
        QVERIFY(form->appear());
        press(button);
        QVERIFY(button.Value());
    }
    void disabled_and_hidden_buttons_take_no_press() {
        chameleonButton button(*form, "button", place, {});
        QVERIFY(form->appear());
        QSignalSpy clicks(&button, &chameleonButton::Click);
        QSignalSpy downs(&button, &chameleonButton::MouseDown);
        button.setEnabled(false);
        QVERIFY(!press(button));
        button.setEnabled(true);
        form->setEnabled(false);
        QVERIFY(!press(button));
        form->setEnabled(true);
        button.hide();
        press(button);
        QCOMPARE(clicks.size() + downs.size(), 0);
        button.show();
        press(button);
        QCOMPARE(clicks.size(), 1);
    }
    void a_press_waits_for_no_box_and_does_not_reach_under_one() {
        chameleonButton button(*form, "button", place, {});
        QVERIFY(form->appear());
        QSignalSpy clicks(&button, &chameleonButton::Click);
        QMessageBox box;
        connect(&button, &chameleonButton::Click, &box, [&] { box.exec(); });
        accessible(button).actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(clicks.size(), 0);
        QTimer::singleShot(0, &box, [&] {
            QTRY_VERIFY(box.isVisible());
            press(button);
            QCOMPARE(clicks.size(), 1);
            box.accept();
        });
        QTRY_COMPARE(clicks.size(), 1);
        QVERIFY(!box.isVisible());
    }
    void a_control_that_its_own_press_deletes_does_no_harm() {
        const QPointer<Label> label(new Label(*form, "label", place, {"x"}));
        const QSignalSpy clicks(label.data(), &Label::Click);
        QVERIFY(form->appear());
        connect(label.data(), &Label::MouseDown, form.get(), [&] { delete label.data(); });
        QVERIFY(press(*label));
        QVERIFY(label == nullptr);
    }
    void a_label_can_be_pressed_if_somebody_hears_of_its_click() {
        Label label(*form, "label", place, {"x"});
        TVLabel skin(*form, "skin", below, {"x"});
        QVERIFY(form->appear());
        QVERIFY(!press(label));
        QVERIFY(!press(skin));
        QSignalSpy clicks(&label, &Label::Click);
        QSignalSpy skinClicks(&skin, &TVLabel::Click);
        QCOMPARE(accessible(label).role(), QAccessible::Button);
        QCOMPARE(accessible(skin).role(), QAccessible::Button);
        QVERIFY(press(label));
        QVERIFY(press(skin));
        QCOMPARE(clicks.size(), 1);
        QCOMPARE(skinClicks.size(), 1);
    }
    void an_area_without_words_is_there_if_it_can_be_pressed() {
        Label area(*form, "area", {310, 10, 30, 30}, {});
        QCOMPARE(parts(), QList<QObject*>{});
        const QSignalSpy clicks(&area, &Label::Click);
        QCOMPARE(parts(), QList<QObject*>{&area});
    }
    void a_link_that_is_pressed_jumps_and_looks_as_before() {
        vbwHyperlink link(*form, "link", place, {.fore = 0x123456});
        link.setURL(u"http://torvane.example"_s);
        QVERIFY(form->appear());
        QVERIFY(press(link));
        QCOMPARE(world->browser.urls, QStringList{u"http://torvane.example"_s});
        QCOMPARE(link.ForeColor(), OleColour(0x123456));
    }
    void the_focus_can_be_asked_for() {
        chameleonButton button(*form, "button", place, {});
        QVERIFY(form->appear());
        accessible(button).actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
        QVERIFY(button.hasFocus());
    }
};

TORVANE_TEST(AccessibleControlTest)
#include "AccessibleControlTest.moc"
