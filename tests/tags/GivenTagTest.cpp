// SPDX-License-Identifier: MIT
// Given texts become a tag by the rules of the windows, or a fault that names the field and the character.
#include "tags/edits/GivenTag.h"
#include "platform/base/CodePage1252.h"
#include "support/TestMain.h"

using namespace torvane;

class GivenTagTest : public QObject {
    Q_OBJECT

    using Result = GivenTag::Result;
    static TagWindow::Tag present(const QByteArray& company = "C") {
        return {{company, "T", "1/2/03", "I", "3000"}, 3, 3000};
    }
    static QByteArray shown(const Result& result) {
        if (!result.fault.isEmpty()) return result.fault;
        const TagLine::Fields& tag = result.fields;
        return QByteArrayList{tag.title, tag.company, tag.date, tag.info, tag.size}.join('|') +
               (result.isNew ? " new" : " same");
    }

private slots:
    void a_first_tag_gets_the_date_of_today() {
        const GivenTag given{"T\xC3\xA9", "C", "I", std::nullopt};
        QCOMPARE(shown(given.over(std::nullopt, 5000, "today")), "T\xE9|C|today|I|5000 new");
    }
    void a_field_that_is_not_given_keeps_what_is_there() {
        GivenTag given;
        given.title = "N";
        QCOMPARE(shown(given.over(present(), 5000, "today")), "N|C|today|I|3002 new");
        given.date = "D";
        QCOMPARE(shown(given.over(present(), 5000, "today")), QByteArray("N|C|D|I|3002 new"));
    }
    void a_date_alone_is_a_change() {
        GivenTag given;
        given.date = "D";
        QCOMPARE(shown(given.over(present(), 5000, "today")), QByteArray("T|C|D|I|3002 new"));
        given.date = "";
        QCOMPARE(shown(given.over(present(), 5000, "today")), QByteArray("T|C||I|3002 new"));
    }
    void the_same_texts_change_nothing_and_leave_the_date() {
        const GivenTag given{"T", "C", "I", std::nullopt};
        QCOMPARE(shown(given.over(present(), 5000, "today")), QByteArray("T|C|1/2/03|I|3000 same"));
        const GivenTag dated{"T", "C", "I", "1/2/03"};
        QVERIFY(!dated.over(present(), 5000, "today").isNew);
    }
    void what_is_present_is_never_a_fault() {
        // The shifted form has a separator in its company; other programs wrote control characters.
        for (const char* company : {"V\xF6\xA7R\xE4N", "a\tb", "\x81"}) {
            GivenTag given;
            given.company = CodePage1252::fromBytes(company).toUtf8();
            QVERIFY(!given.over(present(company), 5000, "today").isNew);
            given.title = "N";
            QCOMPARE(given.over(present(company), 5000, "today").fields.company, QByteArray(company));
            QVERIFY(given.over(present(company), 5000, "today").fault.isEmpty());
            QVERIFY(!given.over(present(), 5000, "today").fault.isEmpty());
        }
    }
    void a_tag_needs_all_three_texts_data() {
        QTest::addColumn<QByteArray>("title");
        QTest::addColumn<QByteArray>("company");
        QTest::addColumn<QByteArray>("info");
        QTest::addColumn<QByteArray>("missing");
        QTest::newRow("title") << QByteArray() << QByteArray("C") << QByteArray("I") << QByteArray("title");
        QTest::newRow("others") << QByteArray("T") << QByteArray() << QByteArray()
                                << QByteArray("company, info");
        QTest::newRow("empty info") << QByteArray("T") << QByteArray("C") << QByteArray("")
                                    << QByteArray("info");
    }
    void a_tag_needs_all_three_texts() {
        QFETCH(QByteArray, title);
        QFETCH(QByteArray, company);
        QFETCH(QByteArray, info);
        QFETCH(QByteArray, missing);
        const auto text = [](const QByteArray& bytes) {
            return bytes.isNull() ? std::nullopt : std::optional(bytes);
        };
        const GivenTag given{text(title), text(company), text(info), std::nullopt};
        QCOMPARE(shown(given.over(std::nullopt, 5000, "today")),
                 "a tag needs a title, a company and an info; missing: " + missing);
    }
    void a_present_tag_is_not_emptied() {
        GivenTag given;
        given.info = "";
        QVERIFY(shown(given.over(present(), 5000, "today")).endsWith("missing: info"));
    }
    void what_a_tag_can_not_hold_is_named_with_its_place_data() {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QByteArray>("fault");
        const auto add = [](const QByteArray& text, const QByteArray& fault) {
            QTest::newRow(text.toPercentEncoding().constData()) << text << fault;
        };
        add("\xC3\xA9\xE2\x86\x92", "character 2 (\xE2\x86\x92) is not in code page 1252");
        add("a\xF0\x9F\x8E\xAE", "character 2 (\xF0\x9F\x8E\xAE) is not in code page 1252");
        add("ab\xC2\xA7", "character 3 (\xC2\xA7) separates the fields of a tag");
        add("a\nb", "character 2 is a control character");
        add("\x7F", "character 1 is a control character");
        add("\xC2\x81", "character 1 is a control character");
        add("e\xCC\x81", "character 2 (\xCC\x81) is not in code page 1252");
        add("ab\xE9", "character 3 is not UTF-8");
        add("\xC3\xA9\xED\xA0\x80", "character 2 is not UTF-8");
        add("\xE2\x80\xA8", "character 1 (\xE2\x80\xA8) is not in code page 1252");
    }
    void what_a_tag_can_not_hold_is_named_with_its_place() {
        QFETCH(QByteArray, text);
        QFETCH(QByteArray, fault);
        GivenTag given;
        given.info = text;
        QCOMPARE(given.fault(), "info: " + fault);
        QCOMPARE(given.over(present(), 5000, "today").fault, "info: " + fault);
    }
    void what_a_tag_can_hold_is_no_fault() {
        GivenTag given;
        given.title = "\\ \"x\" \xE2\x82\xAC \xC5\xB8 \xC2\xA0\t";
        given.title->chop(1);
        QCOMPARE(given.fault(), QByteArray());
        QCOMPARE(given.over(present(), 5000, "today").fields.title, QByteArray("\\ \"x\" \x80 \x9F \xA0"));
    }
    void a_text_that_a_separator_would_complete_is_a_fault() {
        GivenTag given{"T", "C", "I", "D"};
        given.title = "My ID3TAG";
        QCOMPARE(given.over(std::nullopt, 5000, "today").fault,
                 QByteArray("title: character 4: ID3TAG at the end of a text begins another tag"));
        given.title = "ID3TAG and more";
        QCOMPARE(given.over(std::nullopt, 5000, "today").fault, QByteArray());
        given.company = "V\xC3\xB6";
        given.title = "R\xC3\xA4N!";
        QCOMPARE(given.over(std::nullopt, 5000, "today").fault,
                 QByteArray("title: character 1: after this company it begins another form of tag"));
    }
    void a_tag_that_could_not_be_read_again_is_a_fault_with_the_place() {
        // ID3TAG§C§T§D§...§5000§ CR LF: 21 bytes besides the information, of 1025.
        GivenTag given{"T", "C", QByteArray(1025 - 21, 'i'), "D"};
        QCOMPARE(given.over(std::nullopt, 5000, "today").fault, QByteArray());
        given.info->append("jk");
        QCOMPARE(given.over(std::nullopt, 5000, "today").fault,
                 QByteArray("info: character 1005 and what follows make the tag too long to be read"));
        given = {QByteArray(600, 't'), QByteArray(500, 'c'), "I", "D"};
        QVERIFY(given.over(std::nullopt, 5000, "today").fault.startsWith("title: character "));
        given = {QByteArray(600, 't'), QByteArray(5000, 'c'), "I", "D"};
        QVERIFY(given.over(std::nullopt, 5000, "today").fault.startsWith("company: character "));
    }
};

TORVANE_APPLESS_TEST(GivenTagTest)
#include "GivenTagTest.moc"
