// SPDX-License-Identifier: MIT
// The captions of the web list and of its dialog in all three languages: none is cut.
#include "support/CutCaptions.h"
#include "support/OpenedWeblist.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class WeblistCaptionsTest : public OpenedWeblist {
    Q_OBJECT

    static void languageRows() {
        QTest::addColumn<QByteArray>("language");
        for (const char* language : {"esp", "cat", "eng"}) QTest::newRow(language) << QByteArray(language);
    }
    void check(int captions) const {
        window().Loading.show();
        CutCaptions cut;
        QCOMPARE(cut.check(window()), captions);
        QCOMPARE(cut.found.join(u'\n'), QString());
    }

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    void every_caption_of_the_list_fits_data() { languageRows(); }
    void every_caption_of_the_list_fits() {
        QFETCH(QByteArray, language);
        opened->world.useLanguage(language.constData());
        openList({});
        check(15);
        writeShared(pandocs);
        writePersonal(mine);
        click(window().chameleonButton1);
        collectGone();
        clickList();
        for (int row = 0; row < 2; ++row) {
            chooseRow(row);
            check(15);
        }
    }
    void every_caption_of_the_dialog_fits_data() { languageRows(); }
    void every_caption_of_the_dialog_fits() {
        QFETCH(QByteArray, language);
        opened->world.useLanguage(language.constData());
        openList(pandocs);
        openDialog();
        CutCaptions cut;
        QCOMPARE(cut.check(dialog()), 5);
        QCOMPARE(cut.found.join(u'\n'), QString());
    }
    void the_names_and_addresses_that_come_with_the_program_fit() {
        opened->open();
        clickList();
        for (int row = 0; row < window().ListView1.rowCount(); ++row) {
            QTest::keyClick(window().windowHandle(), row == 0 ? Qt::Key_Home : Qt::Key_Down);
            CutCaptions cut;
            cut.check(window());
            QCOMPARE(cut.found.join(u'\n'), QString());
            for (const QPlainTextEdit* field : window().findChildren<QPlainTextEdit*>())
                QVERIFY2(!field->isVisible() || field->parentWidget()->height() > 50,
                         qPrintable(field->toPlainText()));
        }
    }
};

TORVANE_TEST(WeblistCaptionsTest)
#include "WeblistCaptionsTest.moc"
