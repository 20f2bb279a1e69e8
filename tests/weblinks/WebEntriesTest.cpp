// SPDX-License-Identifier: MIT
// The two series that the lines of the web lists become.
#include "support/TestMain.h"
#include "weblinks/WebEntry.h"
#include "weblinks/WebRows.h"
#include "weblinks/WebTexts.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class WebEntriesTest : public QObject {
    Q_OBJECT

    static std::shared_ptr<WebEntries> read(const QByteArrayList& files) {
        auto entries = std::make_shared<WebEntries>();
        for (const QByteArray& file : files) entries->append(file);
        return entries;
    }
    // Key, name and icon of each row.
    static QString rows(const QByteArrayList& files) {
        const WebRows source(read(files));
        QStringList all;
        for (int row = 0; row < source.count(); ++row)
            all += u"%1 %2 %3"_s.arg(source.key(row), source.text(row, 0), QString::number(source.icon(row)));
        return all.join(u'|');
    }
    // Name, address and kind of each entry.
    static QString entries(const QByteArrayList& files) {
        const WebTexts source(read(files));
        QStringList all;
        for (int i = 0; i < source.count(); ++i) {
            const WebEntry entry(source.text(i, 0));
            all += entry.name().trimmed() + u' ' + entry.address() + u' ' + entry.kind();
        }
        return all.join(u'|');
    }

private slots:
    void a_line_of_three_fields_is_a_row_and_an_entry() {
        QCOMPARE(rows({"A;b;system\r\n"}), u"wolas0 A 1"_s);
        QCOMPARE(entries({"A;b;system\r\n"}), u"A b system"_s);
    }
    void further_fields_are_ignored() {
        QCOMPARE(rows({"A;b;perso;d;e"}), u"wolas0 A 2"_s);
        QCOMPARE(entries({"A;b;perso;d;e"}), u"A b perso"_s);
    }
    void the_second_file_goes_on_after_the_first_and_so_do_the_keys() {
        const QByteArrayList files{"A;a;system\r\nB;b;system\r\n", "C;c;perso\r\n"};
        QCOMPARE(rows(files), u"wolas0 A 1|wolas1 B 1|wolas2 C 2"_s);
        QCOMPARE(entries(files), u"A a system|B b system|C c perso"_s);
    }
    void a_first_file_without_a_line_end_keeps_its_last_line() {
        QCOMPARE(rows({"A;a;system", "C;c;perso"}), u"wolas0 A 1|wolas1 C 2"_s);
        QCOMPARE(entries({"A;a;system", "C;c;perso"}), u"A a system|C c perso"_s);
        QCOMPARE(rows({"A", "C;c;perso"}), u"wolas0 A 0|wolas1 C 2"_s);
        QCOMPARE(rows({"A;a;system\r", "\nC;c;perso"}), u"wolas0 A 1|wolas2 C 2"_s);
    }
    void an_empty_line_gives_nothing_and_is_counted() {
        QCOMPARE(rows({"A;a;system\r\n\r\n", "\r\n\r\nC;c;perso\r\n"}), u"wolas0 A 1|wolas4 C 2"_s);
        QCOMPARE(entries({"\r\n\r\nA;a;system\r\n\r\n"}), u"A a system"_s);
    }
    void a_line_of_one_or_two_fields_is_a_row_with_the_icon_of_the_line_before_and_no_entry() {
        const QByteArrayList files{"A;a;system\r\nB\r\nC;c;perso\r\nD;d\r\n"};
        QCOMPARE(rows(files), u"wolas0 A 1|wolas1 B 1|wolas2 C 2|wolas3 D 2"_s);
        QCOMPARE(entries(files), u"A a system|C c perso"_s);
    }
    void the_icon_of_the_line_before_runs_on_from_the_first_file_into_the_second() {
        QCOMPARE(rows({"A;a;system\r\n", "\r\nB\r\n"}), u"wolas0 A 1|wolas2 B 1"_s);
    }
    void without_a_line_before_there_is_no_icon() { QCOMPARE(rows({"A;b\r\n"}), u"wolas0 A 0"_s); }
    void a_kind_that_has_no_icon_gets_a_row_without_one() {
        QCOMPARE(rows({"A;a;SYSTEM\nB;b;Perso\nC;c;\nD;d;system \nE"}),
                 u"wolas0 A 0|wolas1 B 0|wolas2 C 0|wolas3 D 0|wolas4 E 0"_s);
        QCOMPARE(rows({"A;a;perso\nB;b;other\nC"}), u"wolas0 A 2|wolas1 B 0|wolas2 C 0"_s);
    }
    void empty_fields_are_fields() {
        QCOMPARE(rows({";;\n;a;perso"}), u"wolas0  0|wolas1  2"_s);
        QCOMPARE(entries({";;"}), u"  "_s);
    }
    void blanks_are_no_empty_line_and_stay_in_names() {
        QCOMPARE(rows({"A;a;system\n \n B ;b;perso"}), u"wolas0 A 1|wolas1   1|wolas2  B  2"_s);
    }
    void lines_end_with_cr_lf_or_both_data() {
        QTest::addColumn<QByteArray>("end");
        QTest::newRow("CR LF") << QByteArray("\r\n");
        QTest::newRow("LF") << QByteArray("\n");
        QTest::newRow("CR") << QByteArray("\r");
    }
    void lines_end_with_cr_lf_or_both() {
        QFETCH(QByteArray, end);
        QCOMPARE(rows({"A;a;system" + end + end + "B;b;perso" + end}), u"wolas0 A 1|wolas2 B 2"_s);
    }
    void no_bytes_are_no_line() {
        QCOMPARE(rows({"", ""}), QString());
        QCOMPARE(rows({"", "A;a;perso"}), u"wolas0 A 2"_s);
    }
    void every_other_byte_is_kept() {
        QByteArray bytes;
        for (int byte = 0; byte < 256; ++byte)
            if (byte != ';' && byte != '\r' && byte != '\n') bytes += static_cast<char>(byte);
        const WebRows source(read({bytes + ";a;system"}));
        QCOMPARE(CodePage1252::toBytes(source.text(0, 0)), bytes);
        QCOMPARE(source.count(), 1);
        bytes.replace("$", "");
        const WebTexts texts(read({bytes + ';' + bytes + ";perso"}));
        QCOMPARE(WebEntry(texts.text(0, 0)).line(), bytes + ';' + bytes + ";perso");
    }
    void a_line_of_a_mebibyte_is_cut_in_the_row_and_whole_in_the_entry() {
        const QByteArray name(1 << 20, 'n');
        const auto both = read({name + ";a;perso"});
        QCOMPARE(WebRows(both).text(0, 0).size(), 1000);
        QCOMPARE(WebEntry(WebTexts(both).text(0, 0)).line().size(), name.size() + 8);
    }
    void a_million_lines_are_read_at_once() {
        const auto all = read({"\n"_ba.repeated(500'000), "a;b;perso\n"_ba.repeated(500'000)});
        QCOMPARE(all->rowCount(), 500'000);
        QCOMPARE(all->lineNumber(499'999), 999'999U);
    }
};

TORVANE_APPLESS_TEST(WebEntriesTest)
#include "WebEntriesTest.moc"
