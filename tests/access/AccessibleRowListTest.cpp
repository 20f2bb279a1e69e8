// SPDX-License-Identifier: MIT
// A list as an assistive tool finds it on its window. What Qt's view inside reports is in RowListAccessTest.
#include "platform/forms/ColumnListView.h"
#include "platform/forms/ListView.h"
#include "support/AccessibleTree.h"
#include "support/FakeWorld.h"
#include "support/NotedRows.h"
#include "support/TestForm.h"

#include <QSignalSpy>

using namespace torvane;
using namespace Qt::StringLiterals;

class AccessibleRowListTest : public QObject {
    Q_OBJECT

    std::unique_ptr<FakeWorld> world;
    std::unique_ptr<TestForm> form;
    std::unique_ptr<ImageList> icons;
    std::unique_ptr<ListView> games;
    std::unique_ptr<ColumnListView> entries;

    QAccessibleInterface& list() const { return accessible(*games); }

private slots:
    void init() {
        world = std::make_unique<FakeWorld>();
        form = std::make_unique<TestForm>(world->runtime);
        icons = std::make_unique<ImageList>(*form, "icons", std::initializer_list<const char*>{});
        games = std::make_unique<ListView>(*form, "ListView1", DesignRect{0, 0, 100, 200}, *icons);
        games->isCalled({"", "", "Games"});
        entries = std::make_unique<ColumnListView>(*form, "ListView2", DesignRect{100, 0, 200, 200}, *icons,
                                                   ColumnListView::Look{.widths = {60, 60, 60}});
        entries->isCalled({"", "", "Entries"});
        games->setItems(std::make_shared<NotedRows>(50));
        entries->setItems(std::make_shared<NotedRows>(7));
    }
    void cleanup() {
        entries.reset();
        games.reset();
        icons.reset();
        form.reset();
    }

    void a_list_out_of_sight_has_no_rows() {
        QCOMPARE(list().childCount(), 0);
        QCOMPARE(list().child(0), nullptr);
        QCOMPARE(nameOf(*games), u"Games"_s);
    }
    void the_parts_of_a_list_are_its_rows_and_nothing_else() {
        QVERIFY(form->appear());
        QCOMPARE(list().role(), QAccessible::List);
        QCOMPARE(list().childCount(), 50);
        const QStringList names = namesOn(*games);
        QCOMPARE(names.first(), u"Game 0"_s);
        QCOMPARE(names.last(), u"Game 49"_s);
        QCOMPARE(list().indexOfChild(list().child(33)), 33);
        QCOMPARE(list().child(50), nullptr);
        QCOMPARE(list().child(-1), nullptr);
    }
    void the_parts_of_a_list_with_columns_are_its_cells() {
        QVERIFY(form->appear());
        QAccessibleInterface& table = accessible(*entries);
        QCOMPARE(table.role(), QAccessible::Table);
        QCOMPARE(table.childCount(), 21);
        QCOMPARE(table.child(5)->text(QAccessible::Name), u"Game 1**"_s);
        QCOMPARE(table.indexOfChild(table.child(5)), 5);
        QCOMPARE(table.tableInterface()->rowCount(), 7);
        QCOMPARE(table.tableInterface()->columnCount(), 3);
    }
    void the_view_inside_is_called_like_the_list() {
        QVERIFY(form->appear());
        QCOMPARE(nameOf(*games->focusProxy()), u"Games"_s);
    }
    void a_row_is_chosen_by_its_action() {
        QVERIFY(form->appear());
        const QSignalSpy clicks(games.get(), &RowList::rowClicked);
        QAccessibleInterface& row = *list().child(5);
        row.actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
        QCOMPARE(games->currentRow(), 5);
        QCOMPARE(clicks.size(), 1);
        QVERIFY(row.state().selected);
        QVERIFY(!list().child(4)->state().selected);
    }
    void a_list_reports_whether_it_has_the_focus() {
        QVERIFY(form->appear());
        entries->setFocus();
        QVERIFY(list().state().focusable && !list().state().focused);
        games->setFocus();
        QVERIFY(list().state().focused);
    }
    void a_place_on_the_screen_gives_the_row_that_is_seen_there() {
        QVERIFY(form->appear());
        const QPoint here = games->mapToGlobal(games->rowRect(2).center());
        QAccessibleInterface* row = list().childAt(here.x(), here.y());
        QVERIFY(row != nullptr);
        QCOMPARE(row->text(QAccessible::Name), u"Game 2"_s);
    }
};

TORVANE_TEST(AccessibleRowListTest)
#include "AccessibleRowListTest.moc"
