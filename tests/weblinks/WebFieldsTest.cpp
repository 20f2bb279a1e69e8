// SPDX-License-Identifier: MIT
// Lines of the web lists: cut into fields, built, and cut out of a file.
#include "weblinks/WebFields.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class WebFieldsTest : public QObject {
    Q_OBJECT

    static QByteArrayList parts(const QByteArray& file, const QByteArray& line) {
        const WebFields::Remains rest = WebFields::without(file, line);
        if (!rest.isFound) return {};
        return {rest.before.toByteArray(), rest.after.toByteArray()};
    }

private slots:
    void fields_are_cut_at_each_semicolon() {
        QCOMPARE(WebFields::fieldOf("a;b;c;d", 0), "a");
        QCOMPARE(WebFields::fieldOf("a;b;c;d", 2), "c");
        QCOMPARE(WebFields::fieldOf("a;b;c;d", 3), "d");
        QVERIFY(WebFields::fieldOf("a;b;c;d", 4).isNull());
    }
    void empty_fields_are_fields_and_an_empty_line_has_none() {
        QVERIFY(!WebFields::fieldOf(";;", 2).isNull());
        QVERIFY(WebFields::fieldOf(";;", 2).isEmpty());
        QVERIFY(WebFields::fieldOf("a", 1).isNull());
        QVERIFY(WebFields::fieldOf("", 0).isNull());
    }
    void a_line_is_built_in_code_page_1252() {
        QCOMPARE(WebFields::lineOf(u"ñ"_s, u"€"_s, u"日"_s), "\xF1;\x80;?");
    }

    void a_line_is_cut_out_where_its_bytes_are() {
        QCOMPARE(parts("1\r\nx\r\n2\r\n", "x"), (QByteArrayList{"1\r\n", "\r\n2\r\n"}));
        QCOMPARE(parts("1xx2", "x"), (QByteArrayList{"1", ""}));
        QCOMPARE(parts("prefix;a;persons", "x;a;perso"), (QByteArrayList{"prefi", "ns"}));
        QCOMPARE(parts("x", "x"), (QByteArrayList{"", ""}));
    }
    void what_follows_a_second_copy_is_lost() {
        QCOMPARE(parts("1 x 2 x 3 x 4", "x"), (QByteArrayList{"1 ", " 2 "}));
    }
    void copies_that_share_bytes_are_one() { QCOMPARE(parts("aaab", "aa"), (QByteArrayList{"", "ab"})); }
    void a_line_that_does_not_occur_is_not_found() {
        QVERIFY(parts("a;b;c", "a;b;d").isEmpty());
        QVERIFY(parts("", "x").isEmpty());
    }

    void an_entered_address_becomes_one_line_and_foreign_letters_are_percent_encoded() {
        QCOMPARE(WebFields::storableAddress(u"http://a/ñ€;$\"' "_s), u"http://a/ñ€;$\"' "_s);
        QCOMPARE(WebFields::storableAddress(u"a\r\nb\tc\u2028d"_s), u"a  b c d"_s);
        QCOMPARE(WebFields::storableAddress(u"http://a/Игра"_s), u"http://a/%D0%98%D0%B3%D1%80%D0%B0"_s);
        QCOMPARE(WebFields::storableAddress(u"\U0001F3AE"_s), u"%F0%9F%8E%AE"_s);
    }
};

TORVANE_APPLESS_TEST(WebFieldsTest)
#include "WebFieldsTest.moc"
