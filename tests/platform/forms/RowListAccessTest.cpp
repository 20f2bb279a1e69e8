// SPDX-License-Identifier: MIT
// Lists as assistive tools see them: rows with names, the current one, and the choosing of another one.
#include "platform/forms/ColumnListView.h"
#include "platform/forms/ListView.h"
#include "platform/forms/Panel.h"
#include "support/FakeWorld.h"
#include "support/NotedRows.h"
#include "support/TestForm.h"
#include "support/TestMain.h"

#include <QAccessible>
#include <QSignalSpy>

using namespace torvane;
using namespace Qt::StringLiterals;

class RowListAccessTest : public QObject {
    Q_OBJECT

    std::unique_ptr<FakeWorld> world;
    std::unique_ptr<TestForm> form;
    std::unique_ptr<ImageList> icons;
    std::unique_ptr<Panel> panel;
    std::unique_ptr<ListView> games;
    std::unique_ptr<ColumnListView> entries;

    QAccessibleInterface& toolOf(RowList& list) const {
        return *QAccessible::queryAccessibleInterface(&viewOf(list));
    }
    QAccessibleInterface& cell(RowList& list, int row, int column = 0) const {
        return *toolOf(list).tableInterface()->cellAt(row, column);
    }

private slots:
    void init() {
        world = std::make_unique<FakeWorld>();
        FormDesign design = TestForm::plain;
        design.clientSize = {600, 400};
        form = std::make_unique<TestForm>(world->runtime, design);
        icons = std::make_unique<ImageList>(*form, "icons", std::initializer_list<const char*>{});
        panel = std::make_unique<Panel>(*form, "panel", DesignRect{0, 0, 233, 330}, Panel::Look{});
        games = std::make_unique<ListView>(*panel, "games", DesignRect{0, 1, 233, 327}, *icons);
        entries = std::make_unique<ColumnListView>(*form, "entries", DesignRect{240, 0, 300, 300}, *icons,
                                                   ColumnListView::Look{.widths = {100, 100, 100}});
        QVERIFY(form->appear());
        games->setItems(std::make_shared<NotedRows>(50));
        entries->setItems(std::make_shared<NotedRows>(1'000'000));
    }
    void cleanup() {
        entries.reset();
        games.reset();
        panel.reset();
        icons.reset();
        form.reset();
    }

    void a_list_has_as_many_rows_and_columns_as_there_are() {
        QCOMPARE(toolOf(*games).tableInterface()->rowCount(), 50);
        QCOMPARE(toolOf(*games).tableInterface()->columnCount(), 1);
        QCOMPARE(toolOf(*entries).tableInterface()->rowCount(), 1'000'000);
        QCOMPARE(toolOf(*entries).tableInterface()->columnCount(), 3);
    }
    void a_row_is_called_by_its_text() {
        QCOMPARE(cell(*games, 7).text(QAccessible::Name), u"Game 7"_s);
        QCOMPARE(cell(*entries, 999'999, 2).text(QAccessible::Name), u"Game 999999**"_s);
    }
    void a_column_is_called_by_its_header() {
        entries->setHeader(1, u"Company"_s);
        QCOMPARE(toolOf(*entries).tableInterface()->columnDescription(1), u"Company"_s);
    }
    void the_current_row_alone_is_selected() {
        QCOMPARE(toolOf(*games).tableInterface()->selectedRows(), QList<int>());
        games->setCurrentRow(7);
        QCOMPARE(toolOf(*games).tableInterface()->selectedRows(), QList<int>{7});
        QVERIFY(cell(*games, 7).state().selected);
        QVERIFY(!cell(*games, 8).state().selected);
        games->setCurrentRow(-1);
        QCOMPARE(toolOf(*games).tableInterface()->selectedRows(), QList<int>());
    }
    void a_row_is_where_it_is_painted() {
        games->setTop(-329);
        const QRect place = games->rowRect(12);
        QCOMPARE(cell(*games, 12).rect(), QRect(games->mapToGlobal(place.topLeft()), place.size()));
        QVERIFY(!cell(*games, 12).state().invisible);
        QVERIFY(cell(*games, 2).state().invisible);
    }
    void the_row_in_the_focus_is_the_current_one() {
        games->setFocus();
        pressKey(*games, Qt::Key_End);
        QAccessibleInterface* focus = toolOf(*games).focusChild();
        QVERIFY(focus != nullptr);
        QCOMPARE(focus->text(QAccessible::Name), u"Game 49"_s);
        QVERIFY(focus->state().focused);
    }
    void selecting_a_row_is_a_click_on_it_data() {
        QTest::addColumn<int>("previous");
        QTest::newRow("none was the current one") << -1;
        QTest::newRow("another was the current one") << 2;
    }
    void selecting_a_row_is_a_click_on_it() {
        QFETCH(int, previous);
        for (RowList* list : {static_cast<RowList*>(games.get()), static_cast<RowList*>(entries.get())}) {
            list->setCurrentRow(previous);
            QSignalSpy clicks(list, &RowList::rowClicked);
            QVERIFY(toolOf(*list).tableInterface()->selectRow(40));
            QCOMPARE(clicks.size(), 1);
            QCOMPARE(clicks[0][0].toInt(), 40);
            QCOMPARE(list->currentRow(), 40);
            QCOMPARE(toolOf(*list).tableInterface()->selectedRows(), QList<int>{40});
            QVERIFY(list->rect().contains(list->rowRect(40).center()));
        }
    }
    void the_action_of_a_row_is_a_click_on_it() {
        QSignalSpy clicks(games.get(), &RowList::rowClicked);
        QAccessibleActionInterface* action = cell(*games, 5).actionInterface();
        QVERIFY(action != nullptr);
        QVERIFY(action->actionNames().contains(QAccessibleActionInterface::toggleAction()));
        action->doAction(QAccessibleActionInterface::toggleAction());
        QCOMPARE(clicks.size(), 1);
        QCOMPARE(games->currentRow(), 5);
        QCOMPARE(toolOf(*games).tableInterface()->selectedRows(), QList<int>{5});
    }
    void the_current_row_can_not_be_unselected() {
        games->setCurrentRow(5);
        QSignalSpy clicks(games.get(), &RowList::rowClicked);
        toolOf(*games).tableInterface()->unselectRow(5);
        cell(*games, 5).actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
        QCOMPARE(toolOf(*games).tableInterface()->selectedRows(), QList<int>{5});
        QCOMPARE(games->currentRow(), 5);
        QCOMPARE(clicks.size(), 0);
    }
    void what_code_sets_is_no_click() {
        QSignalSpy clicks(games.get(), &RowList::rowClicked);
        games->setCurrentRow(5);
        games->setCurrentRow(-1);
        games->setItems(std::make_shared<NotedRows>(3));
        QCOMPARE(clicks.size(), 0);
    }
    void a_handler_may_fill_the_list_anew_while_a_tool_selects() {
        connect(games.get(), &RowList::rowClicked, this,
                [this] { games->setItems(std::make_shared<NotedRows>(3)); });
        toolOf(*games).tableInterface()->selectRow(40);
        QCOMPARE(games->rowCount(), 3);
        QCOMPARE(games->currentRow(), -1);
        QCOMPARE(toolOf(*games).tableInterface()->selectedRows(), QList<int>());
    }
};

TORVANE_TEST(RowListAccessTest)
#include "RowListAccessTest.moc"
