// SPDX-License-Identifier: MIT
// What rows with pictures look like, and the numbers of the pictures.
#include "platform/forms/ListView.h"
#include "support/ListInPanel.h"
#include "support/TestMain.h"

using namespace torvane;

class ListViewPaintTest : public ListInPanel {
    Q_OBJECT

    QImage textOf(int row) const { return imageOf(*panel).copy(45, 1 + row * rowHeight, 185, rowHeight - 1); }
    static int darkest(const QImage& image) {
        int least = 255;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) least = std::min(least, qGray(image.pixel(x, y)));
        }
        return least;
    }

private slots:
    void init() { start(180); }
    void cleanup() { end(); }

    void of_a_million_rows_only_the_visible_ones_are_asked_for() {
        const qsizetype mostInSight = panel->height() / rowHeight + 2;
        const auto rows = std::make_shared<NotedRows>(1'000'000);
        list->setItems(rows);
        imageOf(*panel);
        QVERIFY(!rows->asked.isEmpty());
        QVERIFY2(rows->asked.size() <= mostInSight, qPrintable(QString::number(rows->asked.size())));
        rows->asked.clear();
        pressKey(*list, Qt::Key_End);
        QCOMPARE(list->currentRow(), 999'999);
        imageOf(*panel);
        QVERIFY(rows->asked.contains(999'999));
        QVERIFY(rows->asked.size() <= mostInSight);
        clickAt(*panel, {100, panel->height() - 2});
        QCOMPARE(list->currentRow(), 999'999);
    }
    void the_current_row_looks_different_and_icons_are_drawn() {
        fill(5);
        const QImage plain = imageOf(*panel);
        list->setCurrentRow(1);
        const QImage chosen = imageOf(*panel);
        QCOMPARE(chosen.copy(0, 1, 233, rowHeight), plain.copy(0, 1, 233, rowHeight));
        QVERIFY(chosen.copy(0, 1 + rowHeight, 233, rowHeight) !=
                plain.copy(0, 1 + rowHeight, 233, rowHeight));
        // Row 0 has no picture, row 1 the first one.
        const QColor back(0x33, 0x39, 0x4A);
        QVERIFY(inkOf(plain.copy(0, 1, 38, rowHeight - 1), back).isNull());
        QVERIFY(!inkOf(plain.copy(0, 1 + rowHeight, 38, rowHeight - 1), back).isNull());
    }
    void names_have_a_dark_shadow() {
        list->setItems(std::make_shared<NotedRows>(QStringList{QStringLiteral("Name")}));
        QVERIFY(darkest(textOf(0)) < 0x18);
        list->setItems(std::make_shared<NotedRows>(QStringList{QString()}));
        QVERIFY(darkest(textOf(0)) > 0x30);
    }
    void signs_that_break_lines_look_like_blanks_data() {
        QTest::addColumn<QChar>("sign");
        for (const char16_t sign : {u'\t', u'\n', u'\r', u'\u2028', u'\u2029'}) {
            QTest::addRow("U+%04X", sign) << QChar(sign);
        }
    }
    void signs_that_break_lines_look_like_blanks() {
        QFETCH(QChar, sign);
        const QString text = QStringLiteral("A%1B");
        list->setItems(std::make_shared<NotedRows>(QStringList{text.arg(QLatin1Char(' ')), text.arg(sign)}));
        QCOMPARE(textOf(1), textOf(0));
    }
    void pictures_are_numbered_from_one_and_others_are_none() {
        QCOMPARE(icons->picture(1).deviceIndependentSize(), QSizeF(32, 32));
        QCOMPARE(icons->picture(4).deviceIndependentSize(), QSizeF(32, 32));
        QVERIFY(icons->picture(0).isNull());
        QVERIFY(icons->picture(5).isNull());
        QVERIFY(icons->picture(-1).isNull());
    }
};

TORVANE_TEST(ListViewPaintTest)
#include "ListViewPaintTest.moc"
