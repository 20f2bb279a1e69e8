// SPDX-License-Identifier: MIT
// The list with columns: headers, widths, choosing of rows, looks, and what a million rows cost.
#include "platform/forms/ColumnListView.h"
#include "art/ArtResources.h"
#include "support/FakeWorld.h"
#include "support/NotedRows.h"
#include "support/TestForm.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QHeaderView>
#include <QScrollBar>
#include <QSignalSpy>

using namespace torvane;
using namespace Qt::StringLiterals;

class ColumnListViewTest : public QObject {
    Q_OBJECT

    static constexpr OleColour back = 0xB09A93;

    std::unique_ptr<FakeWorld> world;
    std::unique_ptr<TestForm> form;
    std::unique_ptr<ImageList> icons;
    std::unique_ptr<ColumnListView> list;
    std::shared_ptr<NotedRows> rows;

    void fill(int count) {
        rows = std::make_shared<NotedRows>(count);
        list->setItems(rows);
    }
    QTableView& view() const { return viewOf(*list); }
    int rowsInSight() const { return view().viewport()->height() / list->rowHeight() + 2; }
    // What is painted of a row in a column.
    QImage cell(int row, int column) const {
        const QRect place = view().visualRect(list->model().index(row, column));
        return imageOf(*view().viewport()).copy(place.adjusted(0, 0, 0, -1));
    }
    void key(Qt::Key which) const { pressKey(*list, which); }

private slots:
    void initTestCase() { initArtResources(); }
    void init() {
        world = std::make_unique<FakeWorld>();
        FormDesign design = TestForm::plain;
        design.clientSize = {560, 500};
        form = std::make_unique<TestForm>(world->runtime, design);
        icons = std::make_unique<ImageList>(
            *form, "icons", std::initializer_list<const char*>{"apply-24.png", "delete-16.png"});
        list = std::make_unique<ColumnListView>(*form, "list", DesignRect{4, 26, 523, 473}, *icons,
                                                ColumnListView::Look{.widths = {150, 100, 70, 60, 80, 60}});
        QVERIFY(form->appear());
        list->setFocus();
    }
    void cleanup() {
        list.reset();
        icons.reset();
        form.reset();
    }

    // Columns
    void the_columns_have_the_widths_of_the_design_and_the_last_one_reaches_to_the_edge() {
        const QHeaderView& header = *view().horizontalHeader();
        QCOMPARE(header.count(), 6);
        QCOMPARE(header.sectionSize(0), 150);
        QCOMPARE(header.sectionSize(4), 80);
        QCOMPARE(header.length(), view().viewport()->width());
    }
    void headers_are_shown_above_the_rows_and_may_change() {
        const QHeaderView& header = *view().horizontalHeader();
        QVERIFY(header.isVisible());
        QVERIFY(!view().verticalHeader()->isVisible());
        const QImage without = imageOf(*list);
        list->setHeader(0, u"Title"_s);
        const QImage with = imageOf(*list);
        QVERIFY(with.copy(0, 0, 150, header.height()) != without.copy(0, 0, 150, header.height()));
        QCOMPARE(with.copy(150, 0, 373, 473), without.copy(150, 0, 373, 473));
        fill(3);
        QCOMPARE(list->rowRect(0).top(), header.height());
    }
    void the_user_can_make_a_column_wider() {
        fill(3);
        const QHeaderView& header = *view().horizontalHeader();
        const QPoint border = header.mapTo(form.get(), QPoint(150, header.height() / 2));
        QTest::mousePress(form->windowHandle(), Qt::LeftButton, {}, border);
        QTest::mouseMove(form->windowHandle(), border + QPoint(20, 0));
        QTest::mouseRelease(form->windowHandle(), Qt::LeftButton, {}, border + QPoint(20, 0));
        QCOMPARE(header.sectionSize(0), 170);
        QCOMPARE(list->currentRow(), -1);
    }
    void columns_wider_than_the_list_can_be_scrolled_sideways_by_keys_wheel_and_bar() {
        fill(3);
        QScrollBar& bar = *view().horizontalScrollBar();
        QVERIFY(!bar.isVisible());
        key(Qt::Key_Right);
        QCOMPARE(bar.value(), 0);
        view().horizontalHeader()->resizeSection(0, 400);
        QTRY_VERIFY(bar.isVisible());
        key(Qt::Key_Right);
        QCOMPARE(bar.value(), 40);
        key(Qt::Key_Left);
        QCOMPARE(bar.value(), 0);
        wheelSidewaysOn(*list, -120);
        QCOMPARE(bar.value(), 40);
        wheelSidewaysOn(*list, 240);
        QCOMPARE(bar.value(), 0);
        QCOMPARE(list->currentRow(), -1);
        bar.setValue(bar.maximum());
        QCOMPARE(view().visualRect(list->model().index(0, 5)).right(), view().viewport()->width() - 1);
    }
    void the_last_column_stays_in_sight_when_others_get_narrower() {
        view().horizontalHeader()->resizeSection(0, 40);
        QCOMPARE(view().horizontalHeader()->length(), view().viewport()->width());
    }
    void a_click_on_a_header_chooses_nothing() {
        fill(3);
        clickAt(*list, {50, 5});
        QCOMPARE(list->currentRow(), -1);
        QVERIFY(view().selectionModel()->selectedIndexes().isEmpty());
    }

    // Choosing
    void a_click_in_any_column_chooses_the_row() {
        fill(10);
        QSignalSpy clicks(list.get(), &RowList::rowClicked);
        int row = 0;
        for (const int x : {5, 200, 300, 350, 400, 520}) {
            clickAt(*list, {x, list->rowRect(row).center().y()});
            QCOMPARE(list->currentRow(), row++);
        }
        QCOMPARE(clicks.size(), 6);
    }
    void a_double_click_is_reported_with_its_row() {
        fill(10);
        QSignalSpy doubles(list.get(), &RowList::rowDoubleClicked);
        doubleClickAt(*list, list->rowRect(4).center());
        QCOMPARE(doubles.size(), 1);
        QCOMPARE(doubles[0][0].toInt(), 4);
    }
    void other_rows_have_no_current_one_and_begin_at_the_top() {
        fill(100);
        key(Qt::Key_End);
        QCOMPARE(list->currentRow(), 99);
        fill(80);
        QCOMPARE(list->currentRow(), -1);
        QCOMPARE(list->rowRect(0).top(), view().horizontalHeader()->height());
        list->Clear();
        QCOMPARE(list->rowCount(), 0);
        clickAt(*list, {50, 100});
        QCOMPARE(list->currentRow(), -1);
    }
    void the_key_of_the_current_row_can_be_asked_for() {
        fill(10);
        clickRow(*list, 7);
        QCOMPARE(list->model().index(list->currentRow(), 0).data(RowModel::KeyRole).toString(), u"key7"_s);
    }

    // Looks
    void the_current_row_looks_different_in_every_column() {
        fill(5);
        QList<QImage> plain;
        for (int column = 0; column < 6; ++column) plain << cell(2, column);
        const QImage other = cell(3, 0);
        list->setCurrentRow(2);
        for (int column = 0; column < 6; ++column) {
            QVERIFY(cell(2, column) != plain[column]);
            QVERIFY(!hasColour(cell(2, column), Colours::toQColor(back)));
        }
        QCOMPARE(cell(3, 0), other);
    }
    void pictures_lie_in_front_of_the_first_column() {
        fill(5);
        const QColor ground = Colours::toQColor(back);
        QVERIFY(inkOf(cell(0, 0).copy(0, 0, 20, 17), ground).isNull());
        QVERIFY(!inkOf(cell(2, 0).copy(0, 0, 20, 17), ground).isNull());
        QVERIFY(inkOf(cell(2, 0), ground).left() < 20);
        QVERIFY(inkOf(cell(0, 0), ground).left() >= 20);
    }
    void a_text_that_is_too_long_ends_inside_its_column() {
        rows = std::make_shared<NotedRows>(QStringList{QString(200, u'W')});
        list->setItems(rows);
        const QRect ink = inkOf(cell(0, 1), Colours::toQColor(back));
        QVERIFY(ink.left() >= 1);
        QVERIFY(ink.right() <= 98);
    }
    void a_text_of_millions_of_characters_is_cut_off_as_fast_as_any_other() {
        const auto paintTime = [this](const QString& text) {
            rows = std::make_shared<NotedRows>(QStringList(20, text));
            list->setItems(rows);
            imageOf(*list);
            QElapsedTimer timer;
            timer.start();
            imageOf(*list);
            return timer.nsecsElapsed();
        };
        const qint64 usual = paintTime(QString(200, u'W'));
        const qint64 endless = paintTime(QString(5'000'000, u'W'));
        QVERIFY2(endless < 10 * usual, qPrintable(u"%1 and %2"_s.arg(endless).arg(usual)));
    }
    void the_ground_below_the_rows_has_the_colour_of_the_design() {
        fill(3);
        QVERIFY(inkOf(imageOf(*view().viewport()).copy(0, 100, 500, 300), Colours::toQColor(back)).isNull());
    }

    // A million rows
    void of_a_million_rows_only_those_in_sight_are_asked_for_and_once_a_paint() {
        fill(1'000'000);
        imageOf(*list);
        QVERIFY(!rows->asked.isEmpty());
        QVERIFY2(rows->asked.size() <= rowsInSight(), qPrintable(QString::number(rows->asked.size())));
        // The first paint may be followed by another one; each asks for six texts and a picture a row.
        QVERIFY2(rows->questions <= 2 * 7 * rowsInSight(), qPrintable(QString::number(rows->questions)));
        rows->questions = 0;
        imageOf(*list);
        QVERIFY2(rows->questions <= 7 * rowsInSight(), qPrintable(QString::number(rows->questions)));
    }
    void the_last_of_a_million_rows_is_reached_and_asks_for_its_page_only() {
        fill(1'000'000);
        rows->asked.clear();
        key(Qt::Key_End);
        QCOMPARE(list->currentRow(), 999'999);
        imageOf(*list);
        QVERIFY(rows->asked.contains(999'999));
        QVERIFY(rows->asked.size() <= 2 * rowsInSight());
        QVERIFY(list->rowRect(999'999).bottom() < list->height());
        clickRow(*list, 999'998);
        QCOMPARE(list->currentRow(), 999'998);
    }
    void a_page_further_asks_for_that_page_only() {
        fill(1'000'000);
        view().verticalScrollBar()->setValue(500'000);
        imageOf(*list);
        rows->asked.clear();
        view().verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepAdd);
        imageOf(*list);
        QVERIFY(rows->asked.size() <= rowsInSight());
        for (const int row : std::as_const(rows->asked)) QVERIFY(row > 500'000 && row < 500'100);
    }
    void choosing_among_a_million_rows_asks_for_the_rows_that_change_only() {
        fill(1'000'000);
        QCoreApplication::processEvents();
        imageOf(*list);
        rows->asked.clear();
        clickRow(*list, 3);
        clickRow(*list, 5);
        QVERIFY(rows->asked.size() <= rowsInSight());
    }
};

TORVANE_TEST(ColumnListViewTest)
#include "ColumnListViewTest.moc"
