// SPDX-License-Identifier: MIT
// The page arithmetic of the search in the list, digit by digit.
#include "search/ListPages.h"
#include "SearchModel.h"
#include "support/TestMain.h"

#include <QRandomGenerator>

using namespace torvane;
using namespace Qt::StringLiterals;

namespace {
constexpr float stays = 12345;
float placed(const ListPages::Top& top) { return top.value_or(stays); }
} // namespace

class ListPagesTest : public QObject {
    Q_OBJECT

private slots:
    void a_title_is_on_the_page_of_its_first_digits_data() {
        QTest::addColumn<int>("row");
        QTest::addColumn<float>("top");
        const auto row = [](int number, float top) { QTest::addRow("%d", number) << number << top; };
        row(1, 33);
        row(7, 33);
        row(9, 33);
        row(10, -330);
        row(20, -660);
        row(25, -660);
        row(99, -2970);
        row(100, -3300);
        row(999, -32670);
        row(1000, -33000);
        row(9999, -329670);
        row(10000, stays);
        row(100000, stays);
    }
    void a_title_is_on_the_page_of_its_first_digits() {
        QFETCH(int, row);
        QFETCH(float, top);
        QCOMPARE(placed(ListPages::ofTitle(row, 330)), top);
    }
    void a_number_is_on_the_page_of_the_row_above_by_the_length_of_the_text_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<float>("top");
        const auto row = [](const char* text, float top) {
            QTest::newRow(text) << QString::fromLatin1(text) << top;
        };
        row("1", 33);
        row("9", 33);
        row("09", 33);
        row("00009", 33);
        row(" 9 ", 33);
        row("9.5", 33); // selects row 10, but is below it
        row("10", -2970);
        row("11", -330);
        row("20", -330);
        row("25", -660);
        row("99", -2970);
        row("100", -2970);
        row("0100", -2970);
        row("1e2", -2970);
        row(" 100 ", -2970);
        row("99.5", -32670); // row 100 by another text: four characters of 99
        row("101", -3300);
        row("010", -2970);
        row("025", -7920);
        row("0025", -7920);
        row("00025", stays);
        row("999", -32670);
        row("1000", -329670);
        row("1001", -33000);
        row("9999", -329670);
        row("10000", stays);
        row("32767", stays);
    }
    void a_number_is_on_the_page_of_the_row_above_by_the_length_of_the_text() {
        QFETCH(QString, text);
        QFETCH(float, top);
        const TypedNumber typed = TypedNumber::read(text);
        QCOMPARE(placed(ListPages::ofNumber(typed, typed.row, 330)), top);
    }
    void the_last_game_is_on_the_page_of_the_row_above_but_for_100_and_1000_data() {
        QTest::addColumn<int>("row");
        QTest::addColumn<float>("top");
        const auto row = [](int number, float top) { QTest::addRow("%d", number) << number << top; };
        row(1, 33);
        row(9, 33);
        row(10, -2970);
        row(11, -330);
        row(99, -2970);
        row(100, -3300);
        row(101, -3300);
        row(110, -3300);
        row(999, -32670);
        row(1000, -33000);
        row(1001, -33000);
        row(9999, -329670);
        row(10000, stays);
        row(10001, stays);
    }
    void the_last_game_is_on_the_page_of_the_row_above_but_for_100_and_1000() {
        QFETCH(int, row);
        QFETCH(float, top);
        QCOMPARE(placed(ListPages::ofLast(row, 330)), top);
    }
    void the_first_game_has_a_place_of_its_own() { QCOMPARE(ListPages::ofFirst, 3.0F); }

    void places_are_single_precision_numbers() {
        QCOMPARE(placed(ListPages::ofTitle(25, 330.1F)), 2 * 330.1F * -1);
        QCOMPARE(placed(ListPages::ofTitle(9999, 16777.215F)), 999 * 16777.215F * -1);
        QCOMPARE(placed(ListPages::ofLast(1000, 0.1F)), 0.1F * 100 * -1);
        QCOMPARE(placed(ListPages::ofTitle(25, 0)), 0.0F);
    }

    void two_thousand_searches_end_where_the_model_ends() {
        QRandomGenerator random(12);
        const float heights[] = {330, 329, 1, 0, 17.5F, 330.1F, 4950};
        for (int i = 0; i < 2000; ++i) {
            SearchModel model;
            model.height = heights[random.bounded(7)];
            model.top = stays;
            // All orders of magnitude, and the ends of each.
            const int most = QList<int>{9, 11, 99, 101, 999, 1001, 9999, 10001}[random.bounded(8)];
            const int length = random.bounded(i % 2 == 0 ? 1 : most / 10 * 9, most) + 1;
            model.titles.assign(static_cast<size_t>(length), "other");
            const int mode = random.bounded(3);
            const int row = mode == 2 ? length : random.bounded(length) + 1;
            model.titles[static_cast<size_t>(row) - 1] = "wanted";
            QString text = QString::number(row).rightJustified(random.bounded(7), u'0');
            if (random.bounded(5) == 0) text += QString(random.bounded(3), u' ');
            QVERIFY(model.run(mode, "wanted", text.toStdString()));
            QCOMPARE(model.marked, row);
            const ListPages::Top top = mode == 0 ? ListPages::ofTitle(row, model.height)
                                       : mode == 1
                                           ? ListPages::ofNumber(TypedNumber::read(text), row, model.height)
                                           : ListPages::ofLast(row, model.height);
            QVERIFY2(placed(top) == model.top,
                     qPrintable(u"mode %1, row %2, \"%3\", height %4: %5, not %6"_s.arg(mode)
                                    .arg(row)
                                    .arg(text)
                                    .arg(model.height)
                                    .arg(placed(top))
                                    .arg(model.top)));
        }
    }
};

TORVANE_APPLESS_TEST(ListPagesTest)
#include "ListPagesTest.moc"
