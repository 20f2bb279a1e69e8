// SPDX-License-Identifier: MIT
// The text of an entry: how it is built, cut, and turned back into its line.
#include "weblinks/WebEntry.h"
#include "support/Failing.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class WebEntryTest : public QObject {
    Q_OBJECT

    static WebEntry entry(const QString& name, const QString& address, const QString& kind = u"perso"_s) {
        return WebEntry(WebEntry::textOf(name, address, kind));
    }

private slots:
    void the_text_is_the_name_200_blanks_the_address_and_the_kind() {
        QCOMPARE(WebEntry::textOf(u"N"_s, u"A"_s, u"K"_s), u"N"_s + QString(200, u' ') + u"$A$K"_s);
    }
    void the_pieces_are_cut_at_each_dollar_sign_and_the_name_keeps_its_blanks() {
        const WebEntry page = entry(u"N"_s, u"A"_s, u"system"_s);
        QCOMPARE(page.name(), u"N"_s + QString(200, u' '));
        QCOMPARE(page.address(), u"A"_s);
        QCOMPARE(page.kind(), u"system"_s);
    }
    void a_dollar_sign_in_the_address_cuts_it_short() {
        const WebEntry page = entry(u"N"_s, u"http://a/?x=$y&z"_s);
        QCOMPARE(page.address(), u"http://a/?x="_s);
        QCOMPARE(page.kind(), u"y&z"_s);
    }
    void a_dollar_sign_in_the_name_shifts_the_pieces() {
        const WebEntry page = entry(u"a$b"_s, u"http://c"_s);
        QCOMPARE(page.name(), u"a"_s);
        QCOMPARE(page.kind(), u"http://c"_s);
    }
    void a_missing_piece_is_a_failure() {
        const WebEntry none{QString()};
        QCOMPARE(none.name(), QString());
        QCOMPARE(failureOf([&] { none.address(); }), int{RuntimeFailure::subscript});
        QCOMPARE(failureOf([&] { (void)none.isShared(); }), int{RuntimeFailure::subscript});
        QCOMPARE(failureOf([&] { none.line(); }), int{RuntimeFailure::subscript});
    }
    void three_stars_are_inert_and_nothing_else_is() {
        QVERIFY(WebEntry(u"***"_s).isInert());
        QVERIFY(!WebEntry(u"****"_s).isInert());
        QVERIFY(!entry(u"***"_s, QString()).isInert());
    }
    void only_the_exact_word_is_of_the_shared_list() {
        QVERIFY(entry(u"n"_s, u"a"_s, u"system"_s).isShared());
        for (const char* kind : {"System", "SYSTEM", "system ", "perso", ""})
            QVERIFY(!entry(u"n"_s, u"a"_s, QLatin1String(kind)).isShared());
    }
    void a_page_begins_with_http_https_or_file_data() {
        QTest::addColumn<bool>("isPage");
        for (const char* page :
             {"http://a", "https://a", "file:///tmp/a.html", "HTTP://A", "HtTpS://a", "http:a"})
            QTest::newRow(page) << true;
        for (const char* other : {"",
                                  "a",
                                  "www.example.org",
                                  "ftp://a",
                                  "javascript:alert(1)",
                                  "mailto:a@b",
                                  " http://a",
                                  "\"http://a\"",
                                  "data:text/html,x",
                                  "https",
                                  "httpx://a",
                                  "files:///a",
                                  "/etc/passwd",
                                  "file",
                                  "vbscript:x",
                                  "-http://a",
                                  "\thttp://a",
                                  "\nhttp://a",
                                  "$(http://a)",
                                  "`http:`"})
            QTest::newRow(qPrintable(u"'"_s + QLatin1String(other) + u'\'')) << false;
    }
    void a_page_begins_with_http_https_or_file() {
        const QString tag = QString::fromLatin1(QTest::currentDataTag());
        const QString address = tag.startsWith(u'\'') ? tag.sliced(1).chopped(1) : tag;
        QTEST(entry(u"n"_s, address).isPage(), "isPage");
    }
    void the_line_is_that_of_the_file() {
        QCOMPARE(entry(u"N"_s, u"A"_s, u"perso"_s).line(), "N;A;perso");
        QCOMPARE(entry(u""_s, u""_s, u""_s).line(), ";;");
        QCOMPARE(entry(u"  <b>ñ€</b>"_s, u"A"_s, u"x"_s).line(), "  <b>\xF1\x80</b>;A;x");
    }
    void the_line_of_any_bytes_is_rebuilt() {
        QString all;
        for (char16_t c = 0; c < 128; ++c)
            if (c != u'$' && c != u';' && c != u' ') all += QChar(c);
        QCOMPARE(entry(all, all, u"perso"_s).line(), all.toLatin1() + ';' + all.toLatin1() + ";perso");
    }
    void the_line_has_a_name_with_a_dollar_sign_whole() {
        QVERIFY(entry(u"a$b"_s, u"A"_s).line().startsWith("a$b;b "));
    }
    void the_blanks_at_the_end_of_a_name_are_not_in_the_line() {
        QCOMPARE(entry(u"N   "_s, u"A"_s).line(), "N;A;perso");
        QCOMPARE(entry(u"a"_s + QString(200, u' ') + u"b"_s, u"A"_s).line(), "a;A;perso");
        QCOMPARE(entry(u"a"_s + QString(199, u' ') + u"b"_s, u"A"_s).line().size(), 201 + 8);
    }
};

TORVANE_APPLESS_TEST(WebEntryTest)
#include "WebEntryTest.moc"
