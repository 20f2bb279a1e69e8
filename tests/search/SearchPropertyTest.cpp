// SPDX-License-Identifier: MIT
// Some two thousand searches in lists of 0 to 10,001 games: each ends where the model ends, and its row is in
// sight.
#include "SearchModel.h"
#include "support/OpenedSearch.h"
#include "support/TestMain.h"

#include <QRandomGenerator>

using namespace torvane;
using namespace Qt::StringLiterals;

namespace {
QString nameOf(int number) { return u"g%1"_s.arg(number, 5, 10, QLatin1Char('0')); }
} // namespace

class SearchPropertyTest : public OpenedSearch {
    Q_OBJECT

    QRandomGenerator random{11};
    SearchModel model;

    void growTo(int games) {
        for (int i = static_cast<int>(model.titles.size()) + 1; i <= games; ++i) {
            opened->game(nameOf(i) + u".gb"_s, "x");
            model.titles.push_back(nameOf(i).toStdString());
        }
        click(main().Refresh);
        QCOMPARE(main().ListView1.rowCount(), games);
        model.top = top();
        model.marked = marked();
        model.selected = main().Games.ListIndex();
    }
    // A row, often one at which the arithmetic changes.
    int anyRow() {
        const int games = static_cast<int>(model.titles.size());
        const QList<int> ends{0,   1,   9,    10,   11,   20,    99,    100,      101,
                              110, 999, 1000, 1001, 9999, 10000, games, games + 1};
        return random.bounded(2) == 0 ? ends[random.bounded(int(ends.size()))] : random.bounded(games + 2);
    }
    QString anyNumber() {
        const QString digits = QString::number(anyRow());
        switch (random.bounded(6)) {
        case 0: return digits.rightJustified(random.bounded(8), u'0');
        case 1: return u' ' + digits;
        case 2: return digits + u".5"_s;
        case 3: return digits + u'x';
        default: return digits;
        }
    }
    QString anyTitle() {
        switch (random.bounded(8)) {
        case 0: return QString();
        case 1: return u" "_s;
        case 2: return u"h"_s;
        case 3: return nameOf(anyRow()).left(random.bounded(6));
        default: return nameOf(anyRow());
        }
    }
    void runOne(int run) {
        const int way = run % 10 == 0 ? 3 : run % 10 == 1 ? 2 : run % 2;
        const QString title = anyTitle();
        const QString number = anyNumber();
        AdvSearch& window = *opened->program->load<AdvSearch>();
        OptionButton* options[] = {&window.Search_0, &window.Search_1, &window.Search_2, &window.Search_3};
        options[way]->setValue(true);
        window.CRYTextBox1.setText(title);
        window.Text1.setText(number);
        messages().boxes.clear();
        model.run(way, title.toStdString(), number.toStdString());
        emit window.ChameleonButton17.Click();
        const QString what = u"way %1, title \"%2\", number \"%3\" in %4 games"_s.arg(way)
                                 .arg(title, number)
                                 .arg(model.titles.size());
        QVERIFY2(top() == model.top, qPrintable(u"%1: %2, not %3"_s.arg(what).arg(top()).arg(model.top)));
        QVERIFY2(marked() == model.marked, qPrintable(what));
        QVERIFY2(main().Games.ListIndex() == model.selected, qPrintable(what));
        QVERIFY2((messages().boxes.size() == 1) == model.reports, qPrintable(what));
        QVERIFY2(model.marked == 0 || isMarkedInSight(), qPrintable(what));
    }

private slots:
    void init() {
        start();
        opened->open();
        loaded<NewAssistant>()->Unload();
    }
    void cleanup() { end(); }

    void every_search_ends_where_the_model_ends() {
        for (const int games :
             {0, 1, 2, 9, 10, 11, 12, 25, 99, 100, 101, 999, 1000, 1001, 9999, 10000, 10001}) {
            growTo(games);
            if (games == 0) {
                model.marked = 0;
                model.selected = -1;
            }
            for (int run = 0; run < 120; ++run) {
                runOne(run);
                if (QTest::currentTestFailed()) return;
            }
        }
    }
};

TORVANE_TEST(SearchPropertyTest)
#include "SearchPropertyTest.moc"
