// SPDX-License-Identifier: MIT
// The menu that a tree of entries becomes.
#include "platform/forms/PopupMenu.h"
#include "support/FakeDesktop.h"
#include "support/TestForm.h"
#include "support/TestMain.h"

#include <QAction>
#include <QMenu>

using namespace torvane;
using namespace Qt::StringLiterals;

namespace {
struct MenuForm : TestForm {
    using TestForm::TestForm;

    MenuEntry before{*this, 0, "before", "Another menu"};
    MenuEntry notMine{*this, 1, "notMine", "Of another menu"};
    MenuEntry root{*this, 0, "root", "x"};
    MenuEntry first{*this, 1, "first", "First & <b>best</b>"};
    MenuEntry tools{*this, 1, "tools", "Tools"};
    MenuEntry inner{*this, 2, "inner", "Inner"};
    MenuEntry innerEnd{*this, 2, "innerEnd", MenuEntry::separator};
    MenuEntry line{*this, 1, "line", MenuEntry::separator};
    MenuEntry lineToo{*this, 1, "lineToo", MenuEntry::separator};
    MenuEntry grey{*this, 1, "grey", "Grey", MenuEntry::disabled};
    MenuEntry away{*this, 1, "away", "Away", MenuEntry::hidden};
    MenuEntry awayLine{*this, 1, "awayLine", MenuEntry::hiddenSeparator};
    MenuEntry last{*this, 1, "last", "Last"};
    MenuEntry end{*this, 1, "end", MenuEntry::separator};
    MenuEntry after{*this, 0, "after", "A third menu"};
    PopupMenu menu{root};
};
} // namespace

class PopupMenuTest : public QObject {
    Q_OBJECT

    std::unique_ptr<FakeDesktop> desktop;
    std::unique_ptr<MenuForm> form;

    static QStringList namesOf(const QMenu& menu, bool seenOnly = false) {
        QStringList names;
        for (const QAction* action : menu.actions()) {
            if (!seenOnly || action->isVisible()) names.append(action->objectName());
        }
        return names;
    }
    QAction* action(const char* name) const {
        QAction* found = form->menu.shown().findChild<QAction*>(QString::fromLatin1(name));
        if (found == nullptr) qFatal("no action %s", name);
        return found;
    }

private slots:
    void init() {
        desktop = std::make_unique<FakeDesktop>();
        form = std::make_unique<MenuForm>(desktop->runtime);
    }
    void cleanup() {
        form.reset();
        desktop.reset();
    }

    void the_menu_is_made_when_it_is_first_needed() {
        const auto menus = [] {
            const QWidgetList all = QApplication::allWidgets();
            return std::count_if(all.begin(), all.end(),
                                 [](const QWidget* widget) { return qobject_cast<const QMenu*>(widget); });
        };
        QCOMPARE(menus(), 0);
        form->last.setVisible(false);
        QVERIFY(!form->menu.isOpen());
        QCOMPARE(menus(), 0);
        form->menu.popUp({});
        QCOMPARE(menus(), 2);
    }
    void entries_come_in_their_order_and_deeper_ones_in_a_submenu() {
        QMenu& menu = form->menu.shown();
        QCOMPARE(namesOf(menu), (QStringList{u"first"_s, u"tools"_s, u"line"_s, u"lineToo"_s, u"grey"_s,
                                             u"away"_s, u"awayLine"_s, u"last"_s, u"end"_s}));
        QCOMPARE(namesOf(*action("tools")->menu()), (QStringList{u"inner"_s, u"innerEnd"_s}));
        QVERIFY(action("first")->menu() == nullptr);
    }
    void a_caption_is_plain_text_and_gives_no_access_key() {
        QCOMPARE(action("first")->text(), u"First && <b>best</b>"_s);
        form->menu.popUp({});
        QSignalSpy clicked(&form->first, &MenuEntry::Click);
        QTest::keyClick(&form->menu.shown(), Qt::Key_B);
        QTest::keyClick(&form->menu.shown(), Qt::Key_B, Qt::AltModifier);
        QCoreApplication::processEvents();
        QCOMPARE(clicked.size(), 0);
    }
    void the_states_of_the_design_are_those_of_the_menu() {
        QVERIFY(action("first")->isEnabled() && action("first")->isVisible());
        QVERIFY(!action("grey")->isEnabled() && action("grey")->isVisible());
        QVERIFY(!action("away")->isVisible());
        QVERIFY(action("line")->isSeparator() && !action("first")->isSeparator());
    }
    void a_later_change_of_a_state_is_followed() {
        form->menu.shown();
        form->first.setEnabled(false);
        form->away.setVisible(true);
        QVERIFY(!action("first")->isEnabled());
        QVERIFY(action("away")->isVisible());
    }
    void a_state_that_changed_before_the_menu_was_made_counts() {
        form->first.setEnabled(false);
        QVERIFY(!action("first")->isEnabled());
    }
    void of_separators_in_a_row_one_is_seen_and_none_at_an_end() {
        QCOMPARE(namesOf(form->menu.shown(), true),
                 (QStringList{u"first"_s, u"tools"_s, u"line"_s, u"grey"_s, u"last"_s}));
        QCOMPARE(namesOf(*action("tools")->menu(), true), QStringList{u"inner"_s});
        form->first.setVisible(false);
        form->tools.setVisible(false);
        QCOMPARE(namesOf(form->menu.shown(), true), (QStringList{u"grey"_s, u"last"_s}));
        form->awayLine.setVisible(true);
        QCOMPARE(namesOf(form->menu.shown(), true), (QStringList{u"grey"_s, u"awayLine"_s, u"last"_s}));
    }
    void popping_up_returns_at_once_with_the_menu_at_its_place() {
        QSignalSpy opening(&form->menu, &PopupMenu::aboutToOpen);
        form->menu.popUp({40, 30});
        QCOMPARE(opening.size(), 1);
        QVERIFY(form->menu.isOpen());
        QCOMPARE(form->menu.shown().pos(), QPoint(40, 30));
        form->menu.shown().close();
        QVERIFY(!form->menu.isOpen());
    }
    void a_menu_that_would_leave_the_screen_stays_on_it() {
        const QRect screen = QGuiApplication::primaryScreen()->geometry();
        form->menu.popUp(screen.bottomRight());
        QVERIFY(screen.contains(form->menu.shown().geometry()));
    }
    void a_state_set_while_it_is_about_to_open_is_shown() {
        connect(&form->menu, &PopupMenu::aboutToOpen, this, [this] { form->last.setEnabled(false); });
        form->menu.popUp({});
        QVERIFY(!action("last")->isEnabled());
    }
    void a_choice_reaches_its_entry_when_the_menu_has_closed() {
        form->menu.popUp({});
        QMenu& menu = form->menu.shown();
        bool wasOpen = true;
        int clicks = 0;
        connect(&form->last, &MenuEntry::Click, this, [&] {
            wasOpen = form->menu.isOpen();
            ++clicks;
        });
        QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(action("last")).center());
        QCOMPARE(clicks, 0); // whoever has chosen it need not wait for what it does
        QTRY_COMPARE(clicks, 1);
        QVERIFY(!wasOpen);
    }
    void an_entry_that_is_disabled_or_hidden_by_the_time_it_is_chosen_does_nothing() {
        QSignalSpy last(&form->last, &MenuEntry::Click);
        QSignalSpy away(&form->away, &MenuEntry::Click);
        action("last")->trigger();
        form->last.setEnabled(false);
        QCoreApplication::processEvents();
        form->away.choose();
        QCOMPARE(last.size() + away.size(), 0);
    }
    void a_separator_cannot_be_chosen() {
        const QSignalSpy line(&form->line, &MenuEntry::Click);
        form->line.choose();
        QCOMPARE(line.size(), 0);
    }
    void the_menu_speaks_to_assistive_tools_with_names_and_presses() {
        form->menu.popUp({});
        QSignalSpy clicked(&form->first, &MenuEntry::Click);
        QAccessibleInterface* menu = QAccessible::queryAccessibleInterface(&form->menu.shown());
        QAccessibleInterface* entry = menu->child(0);
        QCOMPARE(entry->role(), QAccessible::MenuItem);
        QCOMPARE(entry->text(QAccessible::Name), u"First & <b>best</b>"_s);
        entry->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QTRY_COMPARE(clicked.size(), 1);
    }
};

TORVANE_TEST(PopupMenuTest)
#include "PopupMenuTest.moc"
