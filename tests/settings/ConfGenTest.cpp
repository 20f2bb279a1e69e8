// SPDX-License-Identifier: MIT
// The window of the general options: what it shows, what each control stores, and what acts at once.
#include "support/CutCaptions.h"
#include "support/Failing.h"
#include "support/OpenedSettings.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class ConfGenTest : public OpenedSettings {
    Q_OBJECT

    const QStringList defaults{u"1"_s, u"0"_s, u"1"_s, u"0"_s, u"1"_s, u"0"_s, u"0"_s};

    CheckBox& box(const QString& name) const { return *window().findChild<CheckBox*>(name); }
    QList<int> boxes() const {
        QList<int> values;
        for (const char* name : {"Check1", "Check2", "Check3", "Check4", "Check6"}) {
            values += box(QString::fromLatin1(name)).Value();
        }
        return values;
    }
    void goCompact() {
        opened->program->desk.go(Window::MainFrm, Window::Torvette);
        QVERIFY(QTest::qWaitForWindowExposed(loaded<Torvette>()));
    }
    QPoint compactPlace() const { return loaded<Torvette>()->pos(); }
    // The place of the compact window in the upper right corner.
    QPoint rightCorner() const {
        return {loaded<Torvette>()->screen()->geometry().right() + 1 - loaded<Torvette>()->width(), 0};
    }
    static void key(Qt::Key code) { QTest::keyClick(QApplication::focusWidget(), code); }
    static void languageRows() {
        QTest::addColumn<QByteArray>("language");
        for (const char* language : {"esp", "cat", "eng"}) QTest::newRow(language) << QByteArray(language);
    }

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    // The window
    void every_text_comes_from_the_language_file() {
        openOptions();
        QCOMPARE(window().Label1.Caption(), u"Torvane 1.1 » General settings"_s);
        const QList<QPair<const Label*, const char*>> labels{
            {&window().Label4, "ss"}, {&window().Label5, "agentcolor"}, {&window().Label7, "torvettepos"}};
        for (const auto& [label, key] : labels) QCOMPARE(label->Caption(), text(key));
        const QList<QPair<const ToggleControl*, const char*>> toggles{
            {&window().Check1, "activateagent"}, {&window().Check2, "alwaysontop"},
            {&window().Check3, "intro"},         {&window().Check4, "ministartup"},
            {&window().Check6, "zipwindow"},     {&window().Option2_0, "leftup"},
            {&window().Option2_1, "rightup"},    {&window().Option1_0, "color1"},
            {&window().Option1_1, "color2"},     {&window().Option1_2, "color3"},
            {&window().Option1_3, "color4"},     {&window().Option1_4, "color5"},
            {&window().Option1_5, "color6"},     {&window().Option1_6, "color7"}};
        for (const auto& [toggle, key] : toggles) QCOMPARE(toggle->Caption(), text(key));
        const QList<QPair<const chameleonButton*, const char*>> buttons{
            {&window().ChameleonButton2, "showselected"},
            {&window().ChameleonButton17, "select"},
            {&window().ChameleonButton3, "close"}};
        for (const auto& [button, key] : buttons) QCOMPARE(button->Caption(), text(key));
    }
    void every_caption_fits_data() { languageRows(); }
    void every_caption_fits() {
        QFETCH(QByteArray, language);
        world().useLanguage(language.constData());
        openOptions();
        CutCaptions cut;
        QCOMPARE(cut.check(window()), 21);
        QCOMPARE(cut.found.join(u'\n'), QString());
    }
    void it_belongs_to_the_control_panel_and_both_stay_on_screen() {
        openOptions();
        QVERIFY(main().isVisible() && panel().isVisible() && window().isVisible());
        QCOMPARE(window().windowHandle()->transientParent(), panel().windowHandle());
    }
    void it_leaves_the_panel_to_the_user() {
        openOptions();
        panel().activateWindow();
        click(panel().chameleonButton4);
        QVERIFY(loaded<SelLang>() != nullptr && loaded<SelLang>()->isVisible());
        QVERIFY(window().isVisible());
    }
    void both_buttons_escape_and_the_window_manager_close_it_data() {
        QTest::addColumn<QByteArray>("how");
        for (const char* how : {"cross", "close", "escape", "window manager"})
            QTest::newRow(how) << QByteArray(how);
    }
    void both_buttons_escape_and_the_window_manager_close_it() {
        QFETCH(QByteArray, how);
        openOptions();
        if (how == "cross") click(window().chameleonButton1);
        if (how == "close") click(window().ChameleonButton3);
        if (how == "escape") QTest::keyClick(window().windowHandle(), Qt::Key_Escape);
        if (how == "window manager") window().close();
        QVERIFY(loaded<ConfGen>() == nullptr);
        QVERIFY(panel().isVisible() && main().isVisible());
    }
    void a_second_press_on_its_button_of_the_panel_leaves_it_as_it_is() {
        openOptions();
        const ConfGen* before = loaded<ConfGen>();
        clickOptions();
        QCOMPARE(loaded<ConfGen>(), before);
    }

    // Load
    void opening_and_closing_stores_the_defaults_of_an_empty_store() {
        opened->open();
        world().folder.write(u"config/Torvane/Torvane.conf"_s, "");
        opened->program->load<ConfGen>()->Unload();
        QCOMPARE(stored(), defaults);
        QCOMPARE(messages().boxes.size(), 0);
    }
    void opening_stores_what_was_not_stored_and_nothing_else() {
        world().setSetting("Other", u"x"_s);
        openOptions();
        QCOMPARE(stored(), (QStringList{u"1"_s, u"0"_s, u"1"_s, u"0"_s, u"0"_s, u"0"_s, u"0"_s}));
        QCOMPARE(world().setting("Other"), u"x"_s);
        QCOMPARE(world().setting("Capturas"), u"(absent)"_s);
    }
    void opening_again_writes_nothing() {
        openOptions();
        struct stat before {};
        QCOMPARE(stat(world().folder.native("config/Torvane/Torvane.conf"), &before), 0);
        click(window().ChameleonButton3);
        collectGone();
        clickOptions();
        struct stat after {};
        QCOMPARE(stat(world().folder.native("config/Torvane/Torvane.conf"), &after), 0);
        QCOMPARE(after.st_ino, before.st_ino);
        QCOMPARE(after.st_mtim.tv_nsec, before.st_mtim.tv_nsec);
    }
    void it_shows_what_is_stored() {
        for (const char* key : {"Mini", "Tray"}) world().setSetting(key, u"0"_s);
        for (const char* key : {"OnTop", "Intro", "Start", "zip"}) world().setSetting(key, u"1"_s);
        world().setSetting("Icon", u"5"_s);
        opened->start();
        opened->program->load<MainFrm>();
        opened->program->load<ConfGen>();
        QCOMPARE(chosenColour(), 5);
        QCOMPARE(chosenCorner(), 0);
        QCOMPARE(boxes(), (QList<int>{0, 1, 1, 1, 1}));
        QCOMPARE(stored(), (QStringList{u"0"_s, u"5"_s, u"0"_s, u"1"_s, u"1"_s, u"1"_s, u"1"_s}));
    }
    void each_box_shows_its_own_setting_data() {
        QTest::addColumn<QByteArray>("setting");
        QTest::addColumn<QList<int>>("shown");
        QTest::newRow("tray") << "Tray"_ba << QList<int>{1, 0, 0, 0, 0};
        QTest::newRow("on top") << "OnTop"_ba << QList<int>{0, 1, 0, 0, 0};
        QTest::newRow("intro") << "Intro"_ba << QList<int>{0, 0, 1, 0, 0};
        QTest::newRow("compact start") << "Start"_ba << QList<int>{0, 0, 0, 1, 0};
        QTest::newRow("archives") << "zip"_ba << QList<int>{0, 0, 0, 0, 1};
    }
    void each_box_shows_its_own_setting() {
        QFETCH(QByteArray, setting);
        openPanel();
        for (const char* key : {"Tray", "OnTop", "Intro", "Start", "zip"}) world().setSetting(key, u"0"_s);
        world().setSetting(setting, u"1"_s);
        clickOptions();
        QTEST(boxes(), "shown");
    }
    void stored_values_that_the_controls_cannot_take_count_as_the_defaults_data() {
        QTest::addColumn<QString>("value");
        for (const char* value : {"9", "-1", "red", "", "256", "99999999999999"}) {
            QTest::newRow(value) << QString::fromLatin1(value);
        }
    }
    void stored_values_that_the_controls_cannot_take_count_as_the_defaults() {
        QFETCH(QString, value);
        opened->open();
        for (const char* key : {"Tray", "Icon", "Mini", "OnTop", "Intro", "Start", "zip"}) {
            world().setSetting(key, value);
        }
        opened->program->load<ConfGen>()->Show();
        QCOMPARE(chosenColour(), 0);
        QCOMPARE(chosenCorner(), 1);
        QCOMPARE(boxes(), (QList<int>{1, 0, 1, 0, 0}));
        QCOMPARE(stored(), defaults);
        QCOMPARE(messages().boxes.size(), 0);
        QCOMPARE(world().ends, 0);
    }
    void tray_may_hold_true_or_false_and_becomes_a_number_data() {
        QTest::addColumn<QString>("tray");
        QTest::addColumn<int>("value");
        QTest::newRow("True") << u"True"_s << 1;
        QTest::newRow("False") << u"False"_s << 0;
        QTest::newRow("1") << u"1"_s << 1;
        QTest::newRow("0") << u"0"_s << 0;
    }
    void tray_may_hold_true_or_false_and_becomes_a_number() {
        QFETCH(QString, tray);
        QFETCH(int, value);
        world().setSetting("Tray", tray);
        openOptions();
        QCOMPARE(window().Check1.Value(), value);
        QCOMPARE(hasTrayIcon(), value == 1);
        QCOMPARE(world().setting("Tray"), QString::number(value));
    }
    void the_load_puts_the_options_into_effect() {
        openPanel();
        goCompact();
        loaded<Torvette>()->move(100, 100);
        world().setSetting("Icon", u"4"_s);
        world().setSetting("Tray", u"0"_s);
        world().setSetting("Mini", u"0"_s);
        clickOptions();
        QCOMPARE(trayPicture(), 4);
        QVERIFY(!hasTrayIcon());
        QCOMPARE(compactPlace(), QPoint(0, 0));
    }

    // Tray
    void each_colour_is_stored_and_changes_the_icon_at_once() {
        openOptions();
        for (const int number : {1, 2, 3, 4, 5, 6, 0}) {
            mark(colour(number));
            QCOMPARE(world().setting("Icon"), QString::number(number));
            QCOMPARE(trayPicture(), number);
            QCOMPARE(chosenColour(), number);
        }
    }
    void red_is_picture_number_3() {
        openOptions();
        QCOMPARE(window().Option1_3.Caption(), u"Red"_s);
        mark(window().Option1_3);
        QCOMPARE(trayPicture(), 3);
    }
    void arrow_keys_go_from_colour_to_colour() {
        openOptions();
        mark(colour(3));
        key(Qt::Key_Down);
        const int next = chosenColour();
        QVERIFY(next == 2 || next == 4);
        QCOMPARE(world().setting("Icon"), QString::number(next));
        QCOMPARE(trayPicture(), next);
    }
    void the_agent_is_shown_and_removed_at_once() {
        openOptions();
        QVERIFY(hasTrayIcon());
        mark(window().Check1);
        QVERIFY(!hasTrayIcon());
        QCOMPARE(world().setting("Tray"), u"0"_s);
        key(Qt::Key_Space);
        QVERIFY(hasTrayIcon());
        QCOMPARE(world().setting("Tray"), u"1"_s);
    }
    void the_colour_of_an_icon_that_is_not_shown_is_taken_all_the_same() {
        world().setSetting("Tray", u"0"_s);
        openOptions();
        mark(colour(6));
        QVERIFY(!hasTrayIcon());
        QCOMPARE(trayPicture(), 6);
    }
    void the_next_start_has_the_chosen_colour() {
        openOptions();
        mark(colour(2));
        opened->close();
        opened->open();
        QCOMPARE(trayPicture(), 2);
    }

    // The compact window
    void a_corner_is_only_stored_while_the_compact_window_is_not_on_screen() {
        openOptions();
        mark(corner(0));
        QCOMPARE(world().setting("Mini"), u"0"_s);
        QVERIFY(loaded<Torvette>() == nullptr);
        QVERIFY(main().isVisible());
        goCompact();
        QCOMPARE(compactPlace(), QPoint(0, 0));
        loaded<Torvette>()->Hide();
        mark(corner(1));
        QCOMPARE(compactPlace(), QPoint(0, 0));
        QCOMPARE(world().setting("Mini"), u"1"_s);
    }
    void a_corner_moves_the_compact_window_at_once() {
        openOptions();
        goCompact();
        QCOMPARE(compactPlace(), rightCorner());
        mark(corner(0));
        QCOMPARE(compactPlace(), QPoint(0, 0));
        loaded<Torvette>()->move(40, 50);
        mark(corner(0));
        QCOMPARE(compactPlace(), QPoint(0, 0));
        mark(corner(1));
        QCOMPARE(compactPlace(), rightCorner());
    }
    void always_on_top_waits_for_the_next_compact_window() {
        openOptions();
        goCompact();
        loaded<Torvette>()->move(40, 50);
        mark(window().Check2);
        QCOMPARE(world().setting("OnTop"), u"1"_s);
        QCOMPARE(compactPlace(), QPoint(40, 50));
        QVERIFY(isSeen(loaded<Torvette>()->ChameleonButton9) &&
                !isSeen(loaded<Torvette>()->ChameleonButton7));
        loaded<Torvette>()->Unload();
        collectGone();
        goCompact();
        QVERIFY(isSeen(loaded<Torvette>()->ChameleonButton7) &&
                !isSeen(loaded<Torvette>()->ChameleonButton9));
    }

    // The other boxes
    void the_other_boxes_are_stored_at_once_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("setting");
        QTest::newRow("on top") << u"Check2"_s << "OnTop"_ba;
        QTest::newRow("intro") << u"Check3"_s << "Intro"_ba;
        QTest::newRow("compact start") << u"Check4"_s << "Start"_ba;
        QTest::newRow("archives") << u"Check6"_s << "zip"_ba;
    }
    void the_other_boxes_are_stored_at_once() {
        QFETCH(QString, name);
        QFETCH(QByteArray, setting);
        openOptions();
        QCOMPARE(world().setting(setting), u"0"_s);
        QStringList expected = stored();
        for (const char* value : {"1", "0", "1"}) {
            mark(box(name));
            QCOMPARE(world().setting(setting), QLatin1String(value));
        }
        // No other one has changed.
        mark(box(name));
        QCOMPARE(stored(), expected);
    }
    void every_box_and_button_is_reached_by_the_tab_key_and_one_option_of_each_group() {
        openOptions();
        QSet<QString> seen;
        for (int i = 0; i < 30; ++i) {
            QTest::keyClick(window().windowHandle(), Qt::Key_Tab);
            QVERIFY(QApplication::focusWidget() != nullptr);
            const QWidget* focus = QApplication::focusWidget();
            const QString name =
                focus->objectName().isEmpty() ? focus->parent()->objectName() : focus->objectName();
            seen.insert(name.section(u'(', 0, 0));
        }
        for (const char* name :
             {"chameleonButton1", "Check1", "Check2", "Check3", "Check4", "Check6", "ChameleonButton2",
              "ChameleonButton17", "ChameleonButton3", "Option1", "Option2"}) {
            QVERIFY2(seen.contains(QString::fromLatin1(name)), qPrintable(seen.values().join(u' ')));
        }
    }
};

TORVANE_TEST(ConfGenTest)
#include "ConfGenTest.moc"
