// SPDX-License-Identifier: MIT
// The captions of the database windows in all three languages: none is cut.
#include "support/CutCaptions.h"
#include "support/LanguageRows.h"
#include "support/OpenedDatabase.h"
#include "support/TestMain.h"

#include <QScrollBar>

using namespace torvane;
using namespace Qt::StringLiterals;

class DatabaseCaptionsTest : public OpenedDatabase {
    Q_OBJECT

    void openIn(const QByteArray& language) {
        opened->world.useLanguage(language.constData());
        openDatabase(tetris + wario + metroid);
    }

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    void every_caption_of_the_database_fits_data() { languageRows(); }
    void every_caption_of_the_database_fits() {
        QFETCH(QByteArray, language);
        openIn(language);
        window().load.setVisible(true);
        CutCaptions cut;
        QVERIFY(cut.check(window()) >= 20);
        QCOMPARE(cut.found.join(u'\n'), QString());
    }
    void every_caption_of_the_entry_fits_data() { languageRows(); }
    void every_caption_of_the_entry_fits() {
        QFETCH(QByteArray, language);
        openIn(language);
        for (int row = 0; row < 3; ++row) {
            showRow(row);
            QVERIFY(QTest::qWaitForWindowExposed(loaded<DB_Info>()));
            CutCaptions cut;
            QVERIFY(cut.check(*loaded<DB_Info>()) >= 20);
            QCOMPARE(cut.found.join(u'\n'), QString());
        }
    }
    void every_caption_of_the_question_for_a_game_fits_data() { languageRows(); }
    void every_caption_of_the_question_for_a_game_fits() {
        QFETCH(QByteArray, language);
        openIn(language);
        CutCaptions cut;
        QCOMPARE(cut.check(useRow(0)), 4);
        QCOMPARE(cut.found.join(u'\n'), QString());
    }
    void the_check_finds_cut_options_skin_labels_and_headers() {
        openIn("eng");
        CutCaptions cut;
        window().Entradas_0.setCaption(QString(40, u'm'));
        window().ListView1.setHeader(5, QString(40, u'm'));
        cut.check(window());
        QCOMPARE(cut.found.size(), 2);
        showRow(0);
        QVERIFY(QTest::qWaitForWindowExposed(loaded<DB_Info>()));
        loaded<DB_Info>()->Label2.setCaption(QString(40, u'm'));
        cut.check(*loaded<DB_Info>());
        QCOMPARE(cut.found.size(), 3);
    }
    void usual_dates_and_kinds_fit_into_their_columns() {
        openIn("eng");
        const auto* view = window().ListView1.findChild<QTableView*>();
        const QFontMetrics metrics(window().ListView1.font());
        constexpr int margins = 6;
        QVERIFY(metrics.horizontalAdvance(u"28/12/2002"_s) + margins <= view->columnWidth(2));
        QVERIFY(metrics.horizontalAdvance(u"SYSTEM"_s) + margins <= view->columnWidth(3));
        QVERIFY(metrics.horizontalAdvance(u"torvane"_s) + margins <= view->columnWidth(4));
        QVERIFY(!view->horizontalScrollBar()->isVisible());
    }
};

TORVANE_TEST(DatabaseCaptionsTest)
#include "DatabaseCaptionsTest.moc"
