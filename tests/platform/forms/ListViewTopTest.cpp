// SPDX-License-Identifier: MIT
// The list with pictures where its place was computed for its current row: Top is what was set, and the row
// is in sight all the same.
#include "platform/forms/ListView.h"
#include "support/Failing.h"
#include "support/ListInPanel.h"
#include "support/TestMain.h"

#include <QSignalSpy>

using namespace torvane;

class ListViewTopTest : public ListInPanel {
    Q_OBJECT

    static constexpr int panelHeight = 330;

    void make(int rows) {
        makeList();
        fill(rows);
    }
    void makeShown(int rows) {
        make(rows);
        list->show();
        list->setFocus();
    }
    // A place of the panel has the colours of the current row.
    bool isMarkedAt(int y) const {
        const QImage image = imageOf(*panel);
        return image.pixelColor(230, y) != QColor(0x33, 0x39, 0x4A);
    }

private slots:
    void init() { start(panelHeight); }
    void cleanup() { end(); }

    void a_place_at_which_the_current_row_is_in_sight_is_where_the_rows_are() {
        makeShown(50);
        for (const auto& [row, top] :
             QList<std::pair<int, int>>{{6, 33}, {8, 33}, {0, 3}, {24, -660}, {49, -1617}}) {
            list->setCurrentRow(row);
            list->setTopForCurrent(static_cast<float>(top));
            QCOMPARE(list->Top(), static_cast<float>(top));
            QCOMPARE(list->seenTop(), top);
            QCOMPARE(placeInPanel(row).top(), top + row * rowHeight);
        }
    }
    void a_place_at_which_it_is_not_is_kept_and_the_row_is_in_sight_data() {
        QTest::addColumn<int>("rows");
        QTest::addColumn<int>("row");
        QTest::addColumn<float>("top");
        QTest::newRow("a page further down") << 50 << 9 << -330.0F;
        QTest::newRow("pages further down") << 50 << 9 << -2970.0F;
        QTest::newRow("under the last row") << 10 << 9 << -2970.0F;
        QTest::newRow("far away") << 9999 << 24 << -7920.0F;
        QTest::newRow("pages further up") << 9999 << 9000 << 33.0F;
        QTest::newRow("the last row") << 50 << 49 << 33.0F;
        QTest::newRow("the first row") << 50 << 0 << -329670.0F;
        QTest::newRow("a single row") << 1 << 0 << -330.0F;
        QTest::newRow("half of it under the edge") << 50 << 10 << -16.5F;
        QTest::newRow("half of it above the edge") << 50 << 10 << -347.0F;
        QTest::newRow("room above") << 50 << 3 << 300.0F;
    }
    void a_place_at_which_it_is_not_is_kept_and_the_row_is_in_sight() {
        QFETCH(int, rows);
        QFETCH(int, row);
        QFETCH(float, top);
        makeShown(rows);
        list->setCurrentRow(row);
        list->setTopForCurrent(top);
        QCOMPARE(list->Top(), top);
        QVERIFY(panel->rect().contains(placeInPanel(row)));
        QVERIFY(isMarkedAt(placeInPanel(row).top() + 5));
        // A click meets the rows where they are seen.
        list->setCurrentRow(-1);
        clickInPanel(placeInPanel(row).center().y());
        QCOMPARE(list->currentRow(), row);
        QCOMPARE(list->Top(), top);
        // There is no empty space where rows could be.
        const int end = placeInPanel(rows - 1).bottom();
        QVERIFY(list->seenTop() == 1 || end >= panelHeight - 1);
        QVERIFY(list->seenTop() <= 1);
    }
    void without_a_current_row_the_rows_are_where_the_place_is() {
        makeShown(50);
        list->setTopForCurrent(-3300);
        QCOMPARE(list->seenTop(), -3300);
        make(0);
        list->setTopForCurrent(3);
        QCOMPARE(list->Top(), 3.0F);
    }
    void a_marked_row_leaves_the_place_and_fires_nothing() {
        makeShown(10'500);
        QSignalSpy clicks(list.get(), &ListView::rowClicked);
        list->markRow(10'199);
        QCOMPARE(list->Top(), 1.0F);
        QCOMPARE(list->currentRow(), 10'199);
        QVERIFY(panel->rect().contains(placeInPanel(10'199)));
        QVERIFY(isMarkedAt(placeInPanel(10'199).top() + 5));
        list->markRow(2);
        QCOMPARE(list->Top(), 1.0F);
        QCOMPARE(list->seenTop(), 1);
        QCOMPARE(clicks.size(), 0);
    }
    void only_rows_that_exist_can_be_marked() {
        makeShown(5);
        list->markRow(4);
        for (const int row : {-1, 5, 100}) {
            QCOMPARE(failureOf([&] { list->markRow(row); }), std::optional<int>(9));
        }
        QCOMPARE(list->currentRow(), 4);
        make(0);
        QCOMPARE(failureOf([&] { list->markRow(0); }), std::optional<int>(9));
    }

    void the_wheel_goes_on_from_what_is_seen() {
        makeShown(500);
        list->setCurrentRow(99);
        list->setTopForCurrent(33);
        const int seen = list->seenTop();
        wheelOn(*list, -120);
        QCOMPARE(list->seenTop(), seen - 3 * rowHeight);
        QCOMPARE(list->Top(), static_cast<float>(list->seenTop()));
        wheelOn(*list, 120);
        QCOMPARE(list->seenTop(), seen);
    }
    void the_keys_go_on_from_what_is_seen() {
        makeShown(500);
        list->setCurrentRow(99);
        list->setTopForCurrent(33);
        const int seen = list->seenTop();
        pressKey(*list, Qt::Key_Down);
        QCOMPARE(list->currentRow(), 100);
        QCOMPARE(list->seenTop(), seen);
        pressKey(*list, Qt::Key_PageDown);
        QCOMPARE(list->currentRow(), 110);
        QCOMPARE(placeInPanel(110).bottom(), panelHeight - 1);
        QCOMPARE(list->Top(), static_cast<float>(list->seenTop()));
    }
    void what_is_seen_stays_when_the_window_is_hidden_and_shown_again() {
        makeShown(500);
        list->setCurrentRow(99);
        list->setTopForCurrent(33);
        const QRect place = placeInPanel(99);
        form->hide();
        QVERIFY(form->appear());
        QCOMPARE(placeInPanel(99), place);
        QCOMPARE(list->Top(), 33.0F);
    }
    void what_is_set_before_the_list_is_shown_holds_then() {
        make(500);
        list->markRow(99);
        list->setTopForCurrent(33);
        list->show();
        QCOMPARE(list->Top(), 33.0F);
        QVERIFY(panel->rect().contains(placeInPanel(99)));
    }
};

TORVANE_TEST(ListViewTopTest)
#include "ListViewTopTest.moc"
