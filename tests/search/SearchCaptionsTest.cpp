// SPDX-License-Identifier: MIT
// The captions of the search windows in all three languages: none is cut. Longer ones get a field that
// scrolls.
#include "support/CutCaptions.h"
#include "support/LanguageRows.h"
#include "support/OpenedSearch.h"
#include "support/TestMain.h"

#include <QPlainTextEdit>

using namespace torvane;
using namespace Qt::StringLiterals;

class SearchCaptionsTest : public OpenedSearch {
    Q_OBJECT

    void openIn(const QByteArray& language) const {
        opened->world.useLanguage(language.constData());
        opened->games(1);
        opened->open();
    }

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    void every_caption_of_the_search_in_the_list_fits_data() { languageRows(); }
    void every_caption_of_the_search_in_the_list_fits() {
        QFETCH(QByteArray, language);
        openIn(language);
        CutCaptions cut;
        QCOMPARE(cut.check(openList()), 10);
        QCOMPARE(cut.found.join(u'\n'), QString());
    }
    void every_caption_of_the_search_in_the_web_fits_data() { languageRows(); }
    void every_caption_of_the_search_in_the_web_fits() {
        QFETCH(QByteArray, language);
        openIn(language);
        CutCaptions cut;
        QCOMPARE(cut.check(openWeb()), 6);
        QCOMPARE(cut.found.join(u'\n'), QString());
    }
    void longer_explanations_of_a_users_language_can_be_read_whole() {
        openIn("eng");
        SearchROM& window = openWeb();
        const QString text = QString(60, u'm') + u" end"_s;
        for (Label* label : {&window.Label2, &window.Label3}) {
            label->setCaption(QStringList(6, text).join(u' '));
            QVERIFY(!label->isVisible());
        }
        int fields = 0;
        for (const auto* field : window.findChildren<QPlainTextEdit*>()) {
            if (field->isVisible() && field->toPlainText().endsWith(u"end"_s)) ++fields;
        }
        QCOMPARE(fields, 2);
    }
};

TORVANE_TEST(SearchCaptionsTest)
#include "SearchCaptionsTest.moc"
