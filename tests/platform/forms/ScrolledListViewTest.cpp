// SPDX-License-Identifier: MIT
// The list with pictures that keeps its size: rows in sight, scroll bar, wheel and keys, the cost of
// painting.
#include "platform/forms/ScrolledListView.h"
#include "support/FakeWorld.h"
#include "support/NotedRows.h"
#include "support/TestForm.h"
#include "support/TestMain.h"

#include <QScrollBar>

using namespace torvane;
using namespace Qt::StringLiterals;

class ScrolledListViewTest : public QObject {
    Q_OBJECT

    static constexpr int rowHeight = 33;
    static constexpr int height = 4 * rowHeight + 10;

    FakeWorld world;
    std::unique_ptr<TestForm> form;
    std::unique_ptr<ImageList> icons;
    std::unique_ptr<ScrolledListView> list;
    std::shared_ptr<NotedRows> rows;

    QScrollBar& bar() const { return *viewOf(*list).verticalScrollBar(); }
    void fill(int count) {
        rows = std::make_shared<NotedRows>(count);
        list->setItems(rows);
        QCoreApplication::processEvents(); // the scroll bar comes and goes with the next turn
    }
    int clicked(int y) {
        clickAt(*list, {100, y});
        return list->currentRow();
    }
    void wheel(int eighths) { wheelOn(*list, eighths); }
    void key(Qt::Key which) { pressKey(*list, which); }

private slots:
    void init() {
        form = std::make_unique<TestForm>(world.runtime);
        icons = std::make_unique<ImageList>(*form, "icons", std::initializer_list<const char*>{});
        list = std::make_unique<ScrolledListView>(*form, "list", DesignRect{10, 10, 250, height}, *icons);
        QVERIFY(form->appear());
        list->setFocus();
    }
    void cleanup() {
        list.reset();
        icons.reset();
        form.reset();
    }

    void the_list_keeps_its_size_and_place_whatever_it_holds() {
        fill(10'000);
        QCOMPARE(list->geometry(), QRect(10, 10, 250, height));
    }
    void there_is_a_scroll_bar_only_if_there_are_more_rows_than_fit() {
        QVERIFY(!bar().isVisible());
        fill(4);
        QVERIFY(!bar().isVisible());
        fill(5);
        QVERIFY(bar().isVisible());
        QCOMPARE(bar().maximum(), 1);
        fill(2);
        QVERIFY(!bar().isVisible());
    }
    void a_click_hits_the_row_that_is_in_sight_there() {
        fill(100);
        QCOMPARE(clicked(rowHeight + 5), 1);
        bar().setValue(50);
        QCOMPARE(clicked(rowHeight + 5), 51);
    }
    void keys_bring_the_current_row_into_sight() {
        fill(100);
        key(Qt::Key_End);
        QCOMPARE(list->currentRow(), 99);
        QCOMPARE(bar().value(), 96);
        key(Qt::Key_Home);
        QCOMPARE(bar().value(), 0);
        for (int i = 0; i < 4; ++i) key(Qt::Key_Down);
        QCOMPARE(bar().value(), 1);
        key(Qt::Key_PageDown);
        QCOMPARE(list->currentRow(), 8);
    }
    void the_wheel_scrolls_by_three_rows_and_stops_at_the_ends() {
        fill(20);
        wheel(-120);
        QCOMPARE(bar().value(), 3);
        wheel(-12'000);
        QCOMPARE(bar().value(), 16);
        wheel(12'000);
        QCOMPARE(bar().value(), 0);
    }
    void a_click_on_the_scroll_bar_chooses_no_row() {
        fill(100);
        clickAt(*list, {list->width() - 3, height / 2});
        QCOMPARE(list->currentRow(), -1);
    }
    void other_rows_begin_at_the_top_with_none_chosen() {
        fill(100);
        key(Qt::Key_End);
        fill(50);
        QCOMPARE(bar().value(), 0);
        QCOMPARE(list->currentRow(), -1);
    }
    void painting_asks_for_the_rows_in_sight_only() {
        fill(10'000);
        bar().setValue(5000);
        rows->asked.clear();
        imageOf(*list);
        QCOMPARE(rows->asked, (QSet<int>{5000, 5001, 5002, 5003, 5004}));
    }
};

TORVANE_TEST(ScrolledListViewTest)
#include "ScrolledListViewTest.moc"
