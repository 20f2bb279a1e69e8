// SPDX-License-Identifier: MIT
// The list box: its items, the current one, and its signals.
#include "platform/forms/ListBox.h"
#include "support/Failing.h"
#include "support/FakeDesktop.h"
#include "support/NotedRows.h"
#include "support/TestForm.h"
#include "support/TestMain.h"

#include <QSignalSpy>

using namespace torvane;
using namespace Qt::StringLiterals;

class ListBoxTest : public QObject {
    Q_OBJECT

    struct World : FakeDesktop {
        TestForm form{runtime};
        ListBox inside{form, "inside", {10, 10, 200, 100}, {Fonts::V8b, 0x00FFFF, 0x000000}};
        ListBox outside{form, "outside", {400, 10, 80, 12}, {}};
    };
    std::unique_ptr<World> world;

private slots:
    void init() {
        world = std::make_unique<World>();
        for (ListBox* list : {&world->inside, &world->outside})
            list->setItems(std::make_shared<NotedRows>(QStringList{u"a"_s, u"b"_s}));
        QVERIFY(world->form.appear());
    }
    void cleanup() { world.reset(); }

    void at_first_no_item_is_the_current_one() {
        QCOMPARE(world->outside.ListCount(), 2);
        QCOMPARE(world->outside.ListIndex(), -1);
        QCOMPARE(world->outside.Text(), QString());
    }
    void setting_the_index_fires_click_even_if_it_stays() {
        const QSignalSpy clicks(&world->outside, &ListBox::Click);
        world->outside.setListIndex(1);
        world->outside.setListIndex(1);
        QCOMPARE(clicks.size(), 2);
        QCOMPARE(world->outside.Text(), u"b"_s);
        world->outside.setListIndex(-1);
        QCOMPARE(clicks.size(), 2);
        QCOMPARE(world->outside.Text(), QString());
    }
    void an_index_outside_of_the_list_is_refused_and_changes_nothing() {
        world->outside.setListIndex(0);
        const QSignalSpy clicks(&world->outside, &ListBox::Click);
        for (const int index : {-2, 2, 100}) {
            QCOMPARE(failureOf([&] { world->outside.setListIndex(index); }),
                     int{RuntimeFailure::invalidProperty});
        }
        QCOMPARE(clicks.size(), 0);
        QCOMPARE(world->outside.ListIndex(), 0);
    }
    void a_list_outside_of_the_window_is_a_mere_store() {
        QVERIFY(world->outside.findChild<QTableView*>() == nullptr);
        QCOMPARE(world->outside.focusPolicy(), Qt::NoFocus);
    }
    void mouse_and_keys_choose_an_item_of_one_in_sight() {
        const QSignalSpy clicks(&world->inside, &ListBox::Click);
        const QSignalSpy doubleClicks(&world->inside, &ListBox::DblClick);
        clickRow(world->inside, 1);
        QCOMPARE(world->inside.Text(), u"b"_s);
        QCOMPARE(clicks.size(), 1);
        doubleClickAt(world->inside, world->inside.rowRect(1).center());
        QCOMPARE(doubleClicks.size(), 1);
    }
    void it_has_the_colours_of_its_design() {
        QVERIFY(hasColour(imageOf(world->inside), Qt::black));
        QVERIFY(hasColour(imageOf(world->inside), Colours::toQColor(0x00FFFF)));
    }
};

TORVANE_TEST(ListBoxTest)
#include "ListBoxTest.moc"
