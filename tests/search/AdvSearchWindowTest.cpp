// SPDX-License-Identifier: MIT
// The window of the search in the list: keys, mode, boxes, owner, and how it follows the compact window.
#include "support/OpenedSearch.h"
#include "support/TestMain.h"

#include <qtestspontaneevent.h>

using namespace torvane;
using namespace Qt::StringLiterals;

class AdvSearchWindowTest : public OpenedSearch {
    Q_OBJECT

    AdvSearch& window() const { return *loaded<AdvSearch>(); }
    bool isOpen() const { return window().isVisible(); }
    void type(const QString& text) const { typeText(*window().focusWidget(), text); }
    // Shows the compact window instead of the main one.
    Torvette& openCompact() const {
        click(main().ChameleonButton12);
        Torvette* compact = loaded<Torvette>();
        if (compact == nullptr || !QTest::qWaitForWindowExposed(compact)) qFatal("no compact window");
        return *compact;
    }

private slots:
    void init() {
        start();
        opened->games(40);
        opened->open();
    }
    void cleanup() { end(); }

    void the_first_way_is_chosen_at_first_and_its_box_has_the_focus() {
        openList();
        QVERIFY(window().Search_0.Value());
        QVERIFY(window().CRYTextBox1.isAncestorOf(window().focusWidget()));
        type(u"g012"_s);
        key(window(), Qt::Key_Return);
        QCOMPARE(marked(), 12);
    }
    void return_in_both_boxes_and_on_the_options_runs_the_chosen_way() {
        for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter}) {
            openList();
            click(window().Search_1);
            window().Text1.setText(u"5"_s);
            for (Control* control : std::initializer_list<Control*>{&window().CRYTextBox1, &window().Text1,
                                                                    &window().Search_1}) {
                openList();
                main().ListView1.setCurrentRow(0);
                control->setFocus();
                key(window(), enter);
                QVERIFY2(!isOpen(), qPrintable(control->objectName()));
                QCOMPARE(marked(), 5);
            }
        }
    }
    void return_in_the_number_box_runs_the_way_of_the_title_if_that_is_chosen() {
        openList();
        window().CRYTextBox1.setText(u"g003"_s);
        window().Text1.setText(u"7"_s);
        window().Text1.setFocus();
        key(window(), Qt::Key_Return);
        QCOMPARE(marked(), 3);
    }
    void other_keys_run_nothing() {
        openList();
        click(window().Search_2);
        for (const Qt::Key other : {Qt::Key_A, Qt::Key_Space, Qt::Key_F3}) {
            key(window(), other);
            QVERIFY(isOpen());
        }
        QCOMPARE(marked(), 1);
    }
    void an_option_is_chosen_by_its_caption_too() {
        openList();
        const std::pair<OptionButton*, TVLabel*> pairs[] = {{&window().Search_1, &window().TVLabel2},
                                                            {&window().Search_2, &window().TVLabel3},
                                                            {&window().Search_3, &window().TVLabel4},
                                                            {&window().Search_0, &window().TVLabel1}};
        for (const auto& [option, caption] : pairs) {
            click(*caption);
            QVERIFY(option->Value());
            QVERIFY(option->isAncestorOf(window().focusWidget()));
        }
        click(window().TVLabel3);
        click(window().ChameleonButton17);
        QCOMPARE(marked(), 40);
    }
    void arrow_keys_choose_ways() {
        openList();
        window().Search_0.setFocus();
        QTest::keyClick(window().focusWidget(), Qt::Key_Down);
        QVERIFY(window().Search_1.Value());
        window().Text1.setText(u"8"_s);
        key(window(), Qt::Key_Return);
        QCOMPARE(marked(), 8);
    }
    void typing_into_a_box_chooses_no_way() {
        openList();
        window().Text1.setFocus();
        type(u"8"_s);
        click(window().ChameleonButton17);
        QCOMPARE(marked(), 1);
        QVERIFY(window().Search_0.Value());
    }

    void a_run_keeps_way_and_boxes_for_the_next_time() {
        search(1, u"title"_s, u"12"_s);
        const AdvSearch* before = loaded<AdvSearch>();
        QVERIFY(!isOpen());
        main().ListView1.setCurrentRow(0);
        openList();
        QCOMPARE(loaded<AdvSearch>(), before);
        QVERIFY(window().Search_1.Value());
        QCOMPARE(window().CRYTextBox1.Text(), u"title"_s);
        QCOMPARE(window().Text1.Text(), u"12"_s);
        QVERIFY(window().CRYTextBox1.isAncestorOf(window().focusWidget()));
        click(window().ChameleonButton17);
        QCOMPARE(marked(), 12);
    }
    void what_the_box_holds_from_last_time_is_replaced_by_typing() {
        search(0, u"g012"_s);
        openList();
        type(u"g015"_s);
        QCOMPARE(window().CRYTextBox1.Text(), u"g015"_s);
    }
    void brought_back_by_the_desktop_it_leaves_the_focus_where_it_was() {
        openList().Text1.setFocus();
        QShowEvent again;
        QSpontaneKeyEvent::setSpontaneous(&again);
        qApp->notify(&window(), &again);
        QVERIFY(window().Text1.isAncestorOf(window().focusWidget()));
    }
    void closing_acts_not_and_forgets_data() {
        QTest::addColumn<int>("how");
        QTest::newRow("button") << 0;
        QTest::newRow("escape") << 1;
        QTest::newRow("window manager") << 2;
        QTest::newRow("escape on the close button") << 3;
    }
    void closing_acts_not_and_forgets() {
        QFETCH(int, how);
        openList();
        click(window().Search_2);
        window().CRYTextBox1.setText(u"g030"_s);
        QVERIFY(QTest::qWaitForWindowActive(&window()));
        if (how == 0) click(window().chameleonButton1);
        if (how == 2) window().close();
        if (how == 3) window().chameleonButton1.setFocus();
        if (how == 1 || how == 3) key(window(), Qt::Key_Escape);
        QVERIFY(loaded<AdvSearch>() == nullptr);
        QCOMPARE(marked(), 1);
        openList();
        QVERIFY(window().Search_0.Value());
        QCOMPARE(window().CRYTextBox1.Text(), QString());
        click(window().ChameleonButton17); // an empty title
        QCOMPARE(marked(), 1);
    }

    void the_window_belongs_to_whoever_opened_it_last() {
        openList();
        QCOMPARE(window().windowHandle()->transientParent(), main().windowHandle());
        QVERIFY(main().isVisible() && main().isEnabled());
        window().Hide();
        Torvette& compact = openCompact();
        opened->program->desk.go(Window::Torvette, Window::AdvSearch);
        QVERIFY(isOpen());
        QCOMPARE(window().windowHandle()->transientParent(), compact.windowHandle());
        window().Hide();
        compact.Unload();
        collectGone();
        openList();
        QCOMPARE(window().windowHandle()->transientParent(), main().windowHandle());
    }
    void the_compact_window_shows_the_game_that_was_selected() {
        Torvette& compact = openCompact();
        opened->program->desk.go(Window::Torvette, Window::AdvSearch);
        click(window().Search_2);
        click(window().ChameleonButton17);
        QCOMPARE(compact.Label3.Caption(), u"#0040"_s);
        QVERIFY(compact.Text1.Text().startsWith(u"G040"_s) || compact.Text1.Text().startsWith(u"NO"_s));
        QVERIFY(!main().isVisible());
        QVERIFY(!isOpen());
    }
    void a_search_without_an_end_leaves_the_compact_window_as_it_was() {
        Torvette& compact = openCompact();
        opened->program->desk.go(Window::Torvette, Window::AdvSearch);
        compact.Label3.setCaption(u"as it was"_s);
        for (const QString& title : {u""_s, u" "_s, u"zz"_s}) {
            opened->program->desk.go(Window::Torvette, Window::AdvSearch);
            window().CRYTextBox1.setText(title);
            click(window().ChameleonButton17);
            QVERIFY(!isOpen());
        }
        opened->program->desk.go(Window::Torvette, Window::AdvSearch);
        click(window().Search_1);
        click(window().ChameleonButton17);
        QCOMPARE(compact.Label3.Caption(), u"as it was"_s);
        opened->program->desk.go(Window::Torvette, Window::AdvSearch);
        window().Text1.setText(u"2"_s);
        click(window().ChameleonButton17);
        QCOMPARE(compact.Label3.Caption(), u"#0002"_s);
    }
    void a_search_by_title_refreshes_the_compact_window_with_its_old_game() {
        Torvette& compact = openCompact();
        opened->program->desk.go(Window::Torvette, Window::AdvSearch);
        compact.Label3.setCaption(u"as it was"_s);
        window().CRYTextBox1.setText(u"g020"_s);
        click(window().ChameleonButton17);
        QCOMPARE(marked(), 20);
        QCOMPARE(compact.Label3.Caption(), u"#0001"_s);
    }
};

TORVANE_TEST(AdvSearchWindowTest)
#include "AdvSearchWindowTest.moc"
