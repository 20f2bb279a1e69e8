// SPDX-License-Identifier: MIT
// The list with pictures inside its panel: reach, mouse, wheel, keys, and the cost of painting.
#include "platform/forms/ListView.h"
#include "support/ListInPanel.h"
#include "support/TestMain.h"

#include <QSignalSpy>

using namespace torvane;
using namespace Qt::StringLiterals;

class ListViewTest : public ListInPanel {
    Q_OBJECT

    static constexpr int panelHeight = 330;

    using ListInPanel::fill;
    void fill(const QStringList& rows) const { list->setItems(std::make_shared<NotedRows>(rows)); }
    void key(Qt::Key which) const { pressKey(*list, which); }
    void doubleClick(int row) const { doubleClickAt(*panel, {100, list->seenTop() + row * rowHeight + 4}); }
    void wheel(int eighths) const { wheelOn(*list, eighths); }
    bool isInSight(int row) const {
        const QRect place = placeInPanel(row);
        return place.top() == list->seenTop() + row * rowHeight && panel->rect().contains(place);
    }

private slots:
    void init() {
        start(panelHeight);
        list->setFocus();
    }
    void cleanup() { end(); }

    // Height and reach
    void the_height_is_kept() {
        QCOMPARE(list->Height(), 327);
        for (const int height : {0, 33, 327, 20000}) {
            list->setHeight(height);
            QCOMPARE(list->Height(), height);
            fill(20);
            QCOMPARE(list->Height(), height);
        }
    }
    void every_row_can_be_reached_whatever_height_is_set() {
        for (const int height : {0, 33, 327, 20000}) {
            list->setHeight(height);
            fill(50);
            key(Qt::Key_End);
            QCOMPARE(list->currentRow(), 49);
            QVERIFY(isInSight(49));
            clickInPanel(panelHeight - 2 - rowHeight);
            QCOMPARE(list->currentRow(), 48);
            key(Qt::Key_Home);
        }
    }
    void the_top_is_moved() {
        fill(50);
        list->setTop(-329);
        QCOMPARE(list->Top(), -329);
        clickInPanel(5);
        QCOMPARE(list->currentRow(), 10);
    }
    void a_top_below_the_upper_edge_leaves_room_above_the_rows() {
        fill(50);
        list->setTop(33);
        QCOMPARE(list->Top(), 33);
        clickInPanel(32);
        QCOMPARE(list->currentRow(), -1);
        clickInPanel(33);
        QCOMPARE(list->currentRow(), 0);
        clickInPanel(panelHeight - 1);
        QCOMPARE(list->currentRow(), 8);
    }
    void the_rows_may_be_moved_out_of_sight_at_both_ends() {
        fill(20);
        list->setTop(-20 * rowHeight + 40);
        clickInPanel(39);
        QCOMPARE(list->currentRow(), 19);
        list->setCurrentRow(-1);
        clickInPanel(40);
        QCOMPARE(list->currentRow(), -1);
        for (const int top : {-20 * rowHeight, -100'000, panelHeight, 100'000}) {
            list->setTop(top);
            QCOMPARE(list->Top(), top);
            QVERIFY(inkOf(imageOf(*panel), QColor(0x33, 0x39, 0x4A)).isNull());
        }
        list->setTop(1);
        clickInPanel(1);
        QCOMPARE(list->currentRow(), 0);
    }
    void the_top_stays_when_the_window_is_hidden_and_shown_again() {
        fill(50);
        list->setTop(-329);
        form->hide();
        QVERIFY(form->appear());
        clickInPanel(5);
        QCOMPARE(list->currentRow(), 10);
    }
    void what_is_set_before_the_list_is_shown_holds_then() {
        auto early = std::make_unique<ListView>(*panel, "early", DesignRect{0, 1, 233, 327}, *icons);
        early->setItems(std::make_shared<NotedRows>(50));
        early->setTop(-329);
        early->setCurrentRow(12);
        early->show();
        early->raise();
        clickInPanel(5);
        QCOMPARE(early->currentRow(), 10);
        early->setCurrentRow(12);
        const QImage image = imageOf(*panel);
        QVERIFY(image.pixelColor(230, 2 * rowHeight + 5) != image.pixelColor(230, rowHeight + 5));
    }
    void the_space_below_few_rows_has_the_colour_of_the_list() {
        fill(2);
        const QImage image = imageOf(*panel);
        QCOMPARE(image.pixelColor(5, panelHeight - 1), QColor(0x33, 0x39, 0x4A));
        list->Clear();
        QCOMPARE(list->rowCount(), 0);
        QCOMPARE(imageOf(*panel).pixelColor(5, 10), QColor(0x33, 0x39, 0x4A));
    }
    void new_rows_have_no_current_one() {
        fill(5);
        list->setCurrentRow(3);
        fill(5);
        QCOMPARE(list->currentRow(), -1);
    }
    void the_current_row_is_set_without_a_signal_and_only_to_a_row_that_exists() {
        fill(5);
        QSignalSpy clicks(list.get(), &ListView::rowClicked);
        list->setCurrentRow(4);
        QCOMPARE(list->currentRow(), 4);
        list->setCurrentRow(5);
        QCOMPARE(list->currentRow(), -1);
        list->setCurrentRow(-7);
        QCOMPARE(list->currentRow(), -1);
        QCOMPARE(clicks.size(), 0);
    }

    // Mouse
    void a_click_chooses_the_row_under_the_mouse() {
        fill(5);
        QSignalSpy clicks(list.get(), &ListView::rowClicked);
        clickInPanel(1 + 2 * rowHeight);
        QCOMPARE(list->currentRow(), 2);
        clickInPanel(2 * rowHeight);
        QCOMPARE(list->currentRow(), 1);
        QCOMPARE(clicks.size(), 2);
        QCOMPARE(clicks[0][0].toInt(), 2);
    }
    void a_click_under_the_last_row_selects_nothing() {
        fill(5);
        list->setCurrentRow(1);
        QSignalSpy clicks(list.get(), &ListView::rowClicked);
        clickInPanel(1 + 5 * rowHeight);
        clickInPanel(panelHeight - 1);
        QCOMPARE(clicks.size(), 0);
        QCOMPARE(list->currentRow(), 1);
    }
    void a_click_on_the_current_row_is_reported_again() {
        fill(5);
        QSignalSpy clicks(list.get(), &ListView::rowClicked);
        clickInPanel(40);
        clickInPanel(40);
        QCOMPARE(clicks.size(), 2);
        QCOMPARE(list->currentRow(), 1);
    }
    void a_row_is_chosen_by_the_press_and_a_drag_chooses_no_other() {
        fill(5);
        QSignalSpy clicks(list.get(), &ListView::rowClicked);
        const auto place = [&](int row) { return list->mapTo(form.get(), list->rowRect(row).center()); };
        QTest::mousePress(form->windowHandle(), Qt::LeftButton, {}, place(1));
        QCOMPARE(list->currentRow(), 1);
        QTest::mouseMove(form->windowHandle(), place(3));
        QTest::mouseRelease(form->windowHandle(), Qt::LeftButton, {}, place(3));
        QCOMPARE(list->currentRow(), 1);
        QCOMPARE(clicks.size(), 1);
    }
    void the_current_row_stays_marked_whatever_is_held_or_clicked() {
        fill(5);
        const auto marked = [this] {
            QList<int> rows;
            for (const QModelIndex& index : viewOf(*list).selectionModel()->selectedRows())
                rows << index.row();
            return rows;
        };
        clickRow(*list, 1);
        QCOMPARE(marked(), QList<int>{1});
        clickAt(*list, list->rowRect(1).center(), Qt::LeftButton, Qt::ControlModifier);
        QCOMPARE(marked(), QList<int>{1});
        clickAt(*list, list->rowRect(3).center(), Qt::LeftButton, Qt::ShiftModifier);
        QCOMPARE(marked(), QList<int>{3});
        clickInPanel(panelHeight - 1);
        QCOMPARE(marked(), QList<int>{3});
        pressKey(*list, Qt::Key_A, Qt::ControlModifier);
        pressKey(*list, Qt::Key_Space, Qt::ControlModifier);
        QCOMPARE(marked(), QList<int>{3});
        QCOMPARE(list->currentRow(), 3);
    }
    void the_focus_alone_chooses_no_row() {
        fill(5);
        viewOf(*list).clearFocus();
        list->setFocus(Qt::TabFocusReason);
        QVERIFY(viewOf(*list).hasFocus());
        QCOMPARE(list->currentRow(), -1);
        key(Qt::Key_Down);
        QCOMPARE(list->currentRow(), 0);
    }
    void the_right_button_chooses_nothing() {
        fill(5);
        clickAt(*list, {100, 10}, Qt::RightButton);
        QCOMPARE(list->currentRow(), -1);
    }
    void a_double_click_is_reported_with_its_row() {
        fill(5);
        QSignalSpy doubles(list.get(), &ListView::rowDoubleClicked);
        doubleClick(3);
        QCOMPARE(doubles.size(), 1);
        QCOMPARE(doubles[0][0].toInt(), 3);
        doubleClick(5);
        QCOMPARE(doubles.size(), 1);
    }
    void the_wheel_moves_three_rows_a_notch_and_stops_at_both_ends() {
        fill(20);
        wheel(-120);
        QCOMPARE(list->Top(), 1 - 3 * rowHeight);
        wheel(-60);
        wheel(-60);
        QCOMPARE(list->Top(), 1 - 6 * rowHeight);
        for (int i = 0; i < 10; ++i) wheel(-120);
        QVERIFY(isInSight(19));
        QCOMPARE(list->seenTop() + 20 * rowHeight, panelHeight);
        for (int i = 0; i < 20; ++i) wheel(120);
        QCOMPARE(list->Top(), 1);
        QCOMPARE(list->currentRow(), -1);
    }
    void the_wheel_does_not_move_a_list_that_fits() {
        fill(9);
        wheel(-120);
        QCOMPARE(list->Top(), 1);
        wheel(120);
        QCOMPARE(list->Top(), 1);
    }

    // Keys
    void arrows_go_row_by_row_and_stop_at_the_ends() {
        fill(3);
        QSignalSpy clicks(list.get(), &ListView::rowClicked);
        const QList<std::pair<Qt::Key, int>> steps{{Qt::Key_Down, 0}, {Qt::Key_Down, 1}, {Qt::Key_Down, 2},
                                                   {Qt::Key_Down, 2}, {Qt::Key_Up, 1},   {Qt::Key_Up, 0},
                                                   {Qt::Key_Up, 0}};
        for (const auto& [which, row] : steps) {
            key(which);
            QCOMPARE(list->currentRow(), row);
        }
        QCOMPARE(clicks.size(), 5);
    }
    void page_keys_go_by_what_the_panel_holds() {
        fill(35);
        list->setCurrentRow(0);
        key(Qt::Key_PageDown);
        QCOMPARE(list->currentRow(), 10);
        QVERIFY(isInSight(10));
        key(Qt::Key_PageDown);
        key(Qt::Key_PageDown);
        key(Qt::Key_PageDown);
        QCOMPARE(list->currentRow(), 34);
        key(Qt::Key_PageUp);
        QCOMPARE(list->currentRow(), 24);
        key(Qt::Key_PageUp);
        key(Qt::Key_PageUp);
        key(Qt::Key_PageUp);
        QCOMPARE(list->currentRow(), 0);
        QVERIFY(isInSight(0));
    }
    void home_and_end_go_to_the_ends() {
        fill(35);
        key(Qt::Key_End);
        QCOMPARE(list->currentRow(), 34);
        QVERIFY(isInSight(34));
        key(Qt::Key_Home);
        QCOMPARE(list->currentRow(), 0);
        QCOMPARE(list->Top(), 1);
    }
    void every_row_that_keys_reach_is_in_sight() {
        fill(35);
        for (int row = 0; row < 35; ++row) {
            key(Qt::Key_Down);
            QVERIFY2(isInSight(row), qPrintable(QString::number(row)));
        }
        for (int row = 33; row >= 0; --row) {
            key(Qt::Key_Up);
            QVERIFY2(isInSight(row), qPrintable(QString::number(row)));
        }
    }
    void return_is_a_double_click_on_the_current_row() {
        fill(3);
        QSignalSpy doubles(list.get(), &ListView::rowDoubleClicked);
        key(Qt::Key_Return);
        QCOMPARE(doubles.size(), 0);
        list->setCurrentRow(1);
        key(Qt::Key_Return);
        QCOMPARE(doubles.size(), 1);
        QCOMPARE(doubles[0][0].toInt(), 1);
    }
    void typing_the_beginning_of_a_name_goes_to_it() {
        fill({u"Alpha"_s, u"Tennis"_s, u"Tetris"_s, u"TETRIS 2"_s, u"Zelda"_s, u"ñandú"_s});
        QTest::keyClicks(&viewOf(*list), u"t"_s);
        QCOMPARE(list->currentRow(), 1);
        QTest::keyClicks(&viewOf(*list), u"et"_s);
        QCOMPARE(list->currentRow(), 2);
        QTest::keyClicks(&viewOf(*list), u"ris 2"_s);
        QCOMPARE(list->currentRow(), 3);
    }
    void after_a_pause_of_a_second_typing_begins_a_new_name() {
        fill({u"Alpha"_s, u"Tetris"_s, u"Zelda"_s});
        QSignalSpy clicks(list.get(), &ListView::rowClicked);
        typeAt(*list, 5'000, u"t"_s);
        typeAt(*list, 6'000, u"e"_s);
        QCOMPARE(list->currentRow(), 1);
        typeAt(*list, 7'000, u"z"_s);
        QCOMPARE(list->currentRow(), 1);
        typeAt(*list, 8'001, u"z"_s);
        QCOMPARE(list->currentRow(), 2);
        typeAt(*list, 9'002, u"A"_s);
        typeAt(*list, 9'002, u"L"_s);
        QCOMPARE(list->currentRow(), 0);
        QCOMPARE(clicks.last()[0].toInt(), 0);
    }
    void typing_begins_a_new_name_when_the_clock_of_keys_starts_again() {
        fill({u"Alpha"_s, u"Tetris"_s, u"Zelda"_s});
        typeAt(*list, 0xFFFF'FFFF, u"t"_s);
        QCOMPARE(list->currentRow(), 1);
        typeAt(*list, 3, u"z"_s);
        QCOMPARE(list->currentRow(), 2);
    }
    void a_list_of_one_row_stays_where_it_is() {
        fill(1);
        for (const Qt::Key which : {Qt::Key_End, Qt::Key_Home, Qt::Key_PageDown, Qt::Key_Down, Qt::Key_Up}) {
            key(which);
            QCOMPARE(list->currentRow(), 0);
            QCOMPARE(list->Top(), 1);
        }
        wheel(-120);
        QCOMPARE(list->Top(), 1);
        clickInPanel(rowHeight);
        QCOMPARE(list->currentRow(), 0);
    }
    void an_empty_list_takes_keys_wheel_and_clicks_in_silence() {
        QSignalSpy clicks(list.get(), &ListView::rowClicked);
        for (const Qt::Key which :
             {Qt::Key_End, Qt::Key_Home, Qt::Key_Down, Qt::Key_Up, Qt::Key_Return, Qt::Key_A}) {
            key(which);
        }
        wheel(-120);
        clickInPanel(10);
        QCOMPARE(clicks.size(), 0);
        QCOMPARE(list->currentRow(), -1);
        QCOMPARE(list->Top(), 1);
    }

    // Painting
};

TORVANE_TEST(ListViewTest)
#include "ListViewTest.moc"
