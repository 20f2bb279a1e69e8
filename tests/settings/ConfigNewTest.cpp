// SPDX-License-Identifier: MIT
// The control panel: its texts, and the ways to the windows of the settings and back.
#include "support/CutCaptions.h"
#include "support/OpenedSettings.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class ConfigNewTest : public OpenedSettings {
    Q_OBJECT

    QString words(const char* key) const { return opened->text("ControlPanel", key); }
    const QWindow* ownerOf(const Form& form) const { return form.windowHandle()->transientParent(); }

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    // The window
    void every_text_comes_from_the_language_file() {
        openPanel();
        QCOMPARE(panel().Label6.Caption(), words("title"));
        QCOMPARE(panel().load.Caption(), words("checking"));
        const QList<std::tuple<const chameleonButton*, const Label*, const char*, const char*>> rows{
            {&panel().chameleonButton2, &panel().Label1, "1", "1b"},
            {&panel().chameleonButton3, &panel().Label2, "2", "2b"},
            {&panel().chameleonButton4, &panel().Label3, "3", "3b"},
            {&panel().chameleonButton5, &panel().Label4, "4", "4b"},
            {&panel().chameleonButton6, &panel().Label5, "5", "5b"}};
        for (const auto& [button, label, key, explained] : rows) {
            QCOMPARE(button->Caption(), words(key));
            QCOMPARE(label->Caption(), words(explained));
            QVERIFY(!button->Caption().isEmpty() && !label->Caption().isEmpty());
        }
        QCOMPARE(panel().chameleonButton1.Caption(), words("return"));
        QCOMPARE(panel().Label9.Caption(), u"Torvane 1.1"_s);
    }
    void every_caption_fits_data() {
        QTest::addColumn<QByteArray>("language");
        for (const char* language : {"esp", "cat", "eng"}) QTest::newRow(language) << QByteArray(language);
    }
    void every_caption_fits() {
        QFETCH(QByteArray, language);
        world().useLanguage(language.constData());
        openPanel();
        panel().load.setVisible(true);
        CutCaptions cut;
        // The sign and the rule are ornaments.
        QCOMPARE(cut.check(panel(), {u"Label8"_s, u"Label10"_s}), 14);
        QCOMPARE(cut.found.join(u'\n'), QString());
    }
    void the_words_of_the_check_are_hidden_at_first() {
        openPanel();
        QVERIFY(!isSeen(panel().load));
        QVERIFY(isSeen(panel().Label5));
    }
    void the_title_is_painted_above_its_band_and_the_sign_below_everything() {
        openPanel();
        const QImage picture = panel().grab().toImage();
        const auto has = [&](const QWidget& control, const QColor& colour) {
            for (int y = 0; y < control.height(); ++y) {
                for (int x = 0; x < control.width(); ++x) {
                    const QPoint place = control.pos() + QPoint(x, y);
                    if (picture.valid(place) && picture.pixelColor(place) == colour) return true;
                }
            }
            return false;
        };
        const QColor navy(0, 0, 0x80);
        QVERIFY(has(panel().Label6, navy));
        QVERIFY(has(panel().Label9, Qt::black));
        QVERIFY(has(panel().Label6, Qt::white));
        QVERIFY(has(panel().Label10, QColor(0xC0, 0xC0, 0xFF)));
        for (const Label* label : {&panel().Label1, &panel().Label2, &panel().Label3, &panel().Label4}) {
            QVERIFY2(has(*label, navy), qPrintable(label->objectName()));
        }
    }

    // The way here and back
    void the_settings_button_opens_it_above_the_main_window_which_stays() {
        openPanel();
        QVERIFY(main().isVisible() && panel().isVisible());
        QCOMPARE(ownerOf(panel()), main().windowHandle());
    }
    void the_button_escape_and_the_window_manager_close_it_data() {
        QTest::addColumn<QByteArray>("how");
        for (const char* how : {"button", "escape", "window manager"}) QTest::newRow(how) << QByteArray(how);
    }
    void the_button_escape_and_the_window_manager_close_it() {
        QFETCH(QByteArray, how);
        openPanel();
        if (how == "button") click(panel().chameleonButton1);
        if (how == "escape") QTest::keyClick(panel().windowHandle(), Qt::Key_Escape);
        if (how == "window manager") panel().close();
        QVERIFY(loaded<ConfigNew>() == nullptr);
        QVERIFY(main().isVisible());
        collectGone();
        clickPanel();
        QVERIFY(panel().isVisible());
    }
    void it_stays_while_its_windows_are_open() {
        openPanel();
        click(panel().chameleonButton2);
        click(panel().chameleonButton3);
        QVERIFY(panel().isVisible() && loaded<NewAssistant>()->isVisible() && window().isVisible());
        QCOMPARE(ownerOf(*loaded<NewAssistant>()), panel().windowHandle());
        QCOMPARE(ownerOf(window()), panel().windowHandle());
    }
    void the_languages_open_above_the_panel() {
        openPanel();
        click(panel().chameleonButton4);
        QVERIFY(loaded<SelLang>() != nullptr && loaded<SelLang>()->isVisible() && panel().isVisible());
        QCOMPARE(ownerOf(*loaded<SelLang>()), panel().windowHandle());
    }
    void the_button_of_the_services_to_come_does_nothing() {
        openPanel();
        QVERIFY(!panel().chameleonButton5.Enabled());
        const auto before = QApplication::topLevelWidgets().size();
        click(panel().chameleonButton5);
        panel().chameleonButton5.setEnabled(true);
        click(panel().chameleonButton5);
        QCoreApplication::processEvents();
        QCOMPARE(QApplication::topLevelWidgets().size(), before);
        QCOMPARE(messages().boxes.size(), 0);
        QVERIFY(world().browser.urls.isEmpty());
        QVERIFY(panel().isVisible());
    }
    void what_was_opened_from_it_belongs_to_the_main_window_afterwards_data() {
        QTest::addColumn<int>("window");
        QTest::newRow("assistant") << static_cast<int>(Window::NewAssistant);
        QTest::newRow("general options") << static_cast<int>(Window::ConfGen);
    }
    void what_was_opened_from_it_belongs_to_the_main_window_afterwards() {
        QFETCH(int, window);
        openPanel();
        opened->program->desk.go(Window::ConfigNew, static_cast<Window>(window));
        panel().Unload();
        collectGone();
        const Form* owned = opened->program->windows.ifLoaded(static_cast<Window>(window));
        QVERIFY(owned != nullptr && owned->isVisible() && main().isVisible());
        QCOMPARE(ownerOf(*owned), main().windowHandle());
    }
    void the_assistant_stays_above_a_main_window_that_is_loaded_anew_after_the_panel_has_gone() {
        openPanel();
        click(panel().chameleonButton2);
        panel().Unload();
        opened->program->desk.go(Window::MainFrm, Window::MainFrm);
        collectGone();
        QCOMPARE(ownerOf(*loaded<NewAssistant>()), main().windowHandle());
    }
    void an_assistant_that_was_open_before_goes_to_the_panel_and_back() {
        opened->open();
        opened->program->desk.go(Window::MainFrm, Window::NewAssistant);
        clickPanel();
        click(panel().chameleonButton2);
        QCOMPARE(ownerOf(*loaded<NewAssistant>()), panel().windowHandle());
        panel().Unload();
        collectGone();
        QCOMPARE(ownerOf(*loaded<NewAssistant>()), main().windowHandle());
    }
    void it_stays_with_a_main_window_that_is_loaded_anew() {
        openOptions();
        opened->program->desk.go(Window::MainFrm, Window::MainFrm);
        collectGone();
        QVERIFY(panel().isVisible() && window().isVisible());
        QCOMPARE(ownerOf(panel()), main().windowHandle());
        mark(colour(2));
        QCOMPARE(trayPicture(), 2);
    }
    void it_stays_while_the_compact_window_replaces_the_main_one_and_belongs_to_that_again() {
        openPanel();
        opened->program->desk.go(Window::MainFrm, Window::Torvette);
        QVERIFY(panel().isVisible() && !main().isVisible());
        loaded<Torvette>()->Unload();
        collectGone();
        QVERIFY(panel().isVisible() && main().isVisible());
        QCOMPARE(ownerOf(panel()), main().windowHandle());
        click(panel().chameleonButton1);
        QVERIFY(main().isVisible());
    }
    void closed_while_the_compact_window_is_on_screen_it_brings_nobody_back() {
        openPanel();
        click(panel().chameleonButton2);
        opened->program->desk.go(Window::MainFrm, Window::Torvette);
        panel().Unload();
        collectGone();
        QVERIFY(loaded<Torvette>()->isVisible() && !main().isVisible());
        QVERIFY(loaded<NewAssistant>()->isVisible());
        loaded<Torvette>()->Unload();
        QVERIFY(main().isVisible());
    }
};

TORVANE_TEST(ConfigNewTest)
#include "ConfigNewTest.moc"
