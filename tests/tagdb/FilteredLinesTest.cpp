// SPDX-License-Identifier: MIT
// Reading the database file: what is a line, what is a field, and what a line without all its fields shows.
#include "FilteredRows.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class FilteredLinesTest : public QObject {
    Q_OBJECT

private slots:
    void a_record_fills_the_columns_in_their_own_order() {
        const auto rows = filtered("byn\xA7Some Game\xA7Some Company\xA7"
                                   "12/03/2002\xA7"
                                   "A short note\xA7SYSTEM\xA7somebody\r\n");
        QCOMPARE(rows->count(), 1);
        QCOMPARE(rowTexts(*rows, 0), (QStringList{u"Some Game"_s, u"Some Company"_s, u"12/03/2002"_s,
                                                  u"SYSTEM"_s, u"somebody"_s, u"A short note"_s}));
        QCOMPARE(rows->key(0), QString());
        QCOMPARE(rows->entry(0), (OnlineDbEntry{"byn", "Some Game", "Some Company", "12/03/2002",
                                                "A short note", "SYSTEM", "somebody"}));
    }
    void the_icon_shows_the_system() {
        const auto rows =
            filtered(lineOf("byn", "a") + '\n' + lineOf("color", "b") + '\n' + lineOf("advance", "c") + '\n');
        QCOMPARE(rows->icon(0), 1);
        QCOMPARE(rows->icon(1), 2);
        QCOMPARE(rows->icon(2), 3);
    }
    void rows_stay_in_file_order_and_duplicates_stay() {
        QCOMPARE(titles(lineOf("byn", "b") + '\n' + lineOf("color", "a") + '\n' + lineOf("byn", "b")),
                 (QStringList{u"b"_s, u"a"_s, u"b"_s}));
    }
    void filtering_twice_gives_the_same_list() {
        const QByteArray file = lineOf("byn", "a") + "\r\ncolor\r\n" + lineOf("color", "b") + "\r\n";
        QCOMPARE(titles(file), (QStringList{u"a"_s, u"a"_s, u"b"_s}));
        QCOMPARE(titles(file), (QStringList{u"a"_s, u"a"_s, u"b"_s}));
    }

    // Lines
    void a_file_without_records_gives_an_empty_list_data() {
        QTest::addColumn<QByteArray>("file");
        QTest::newRow("no bytes") << QByteArray();
        QTest::newRow("the line end of an empty answer") << QByteArray("\r\n");
        QTest::newRow("line ends") << QByteArray("\r\n\r\r\n\n\n\r");
        QTest::newRow("one blank") << QByteArray(" ");
        QTest::newRow("blanks") << QByteArray(" \r\n \r\n");
        QTest::newRow("separators") << QByteArray("\xA7\xA7\xA7\xA7\xA7\xA7\r\n\xA7");
    }
    void a_file_without_records_gives_an_empty_list() {
        QFETCH(QByteArray, file);
        QCOMPARE(titles(file), QStringList());
    }
    void a_line_ends_with_cr_lf_or_lf_or_cr_alone_data() {
        QTest::addColumn<QByteArray>("end");
        QTest::newRow("CR LF") << QByteArray("\r\n");
        QTest::newRow("LF") << QByteArray("\n");
        QTest::newRow("CR") << QByteArray("\r");
        QTest::newRow("LF CR") << QByteArray("\n\r");
        QTest::newRow("blank lines between") << QByteArray("\r\n\r\n \r\n");
    }
    void a_line_ends_with_cr_lf_or_lf_or_cr_alone() {
        QFETCH(QByteArray, end);
        const auto rows = filtered(lineOf("byn", "a") + end + lineOf("color", "b") + end);
        QCOMPARE(column(*rows, 0), (QStringList{u"a"_s, u"b"_s}));
        QCOMPARE(column(*rows, 4), (QStringList{u"somebody"_s, u"somebody"_s}));
    }
    void the_last_line_needs_no_end() {
        QCOMPARE(titles(lineOf("byn", "a") + "\r\n" + lineOf("byn", "b")), (QStringList{u"a"_s, u"b"_s}));
        QCOMPARE(filtered("byn\xA7only")->text(0, 0), u"only"_s);
        QCOMPARE(filtered("byn")->count(), 1);
        QCOMPARE(filtered("byn\xA7")->count(), 1);
    }
    void zero_bytes_and_control_z_belong_to_a_line() {
        const QByteArray title("a\0b\x1A"
                               "c",
                               5);
        const auto rows = filtered(lineOf("byn", title) + "\r\n\x1A\r\n" + lineOf("byn", "after") + "\r\n");
        QCOMPARE(rows->count(), 2);
        QCOMPARE(rows->entry(0).Title, title);
        QCOMPARE(rows->text(0, 0).size(), 5);
        QCOMPARE(rows->text(1, 0), u"after"_s);
    }
    void every_byte_but_separator_and_line_ends_is_data_in_every_field() {
        for (int byte = 0; byte < 256; ++byte) {
            const QByteArray sign(1, static_cast<char>(byte));
            if (sign == "\xA7" || sign == "\r" || sign == "\n") continue;
            const auto rows = filtered(line({"byn", sign, sign, sign, sign, sign, sign}) + "\r\n");
            QCOMPARE(rows->count(), 1);
            const OnlineDbEntry entry = rows->entry(0);
            for (const QByteArray& field : {entry.Title, entry.Company, entry.Date, entry.Info, entry.Author})
                QCOMPARE(field, sign);
        }
    }
    void values_are_found_wherever_they_lie_in_the_file() {
        for (qsizetype before = 0; before < 200; ++before) {
            const QByteArray file = QByteArray(before, 'x') + '\n' +
                                    lineOf("color", QByteArray(before, 't')) + '\r' + lineOf("byn", "last");
            const auto rows = filtered(file);
            QCOMPARE(rows->count(), 2);
            QCOMPARE(rows->entry(0), (OnlineDbEntry{"color", QByteArray(before, 't'), "Acme", "1/2/2003",
                                                    "Good.", "SYSTEM", "somebody"}));
            QCOMPARE(rows->text(1, 4), u"somebody"_s);
        }
    }
    void a_line_of_10_mib_is_a_record_data() {
        QTest::addColumn<int>("field");
        for (int field = 1; field < 7; ++field) QTest::addRow("field %d", field) << field;
    }
    void a_line_of_10_mib_is_a_record() {
        QFETCH(int, field);
        QByteArrayList fields(7, "x");
        fields[0] = "byn";
        fields[field] = QByteArray(10 << 20, 'L');
        const auto rows = filtered(line(fields) + "\r\n" + lineOf("byn", "next") + "\r\n");
        QCOMPARE(rows->count(), 2);
        const OnlineDbEntry entry = rows->entry(0);
        const QByteArrayList found = {entry.System, entry.Title, entry.Company, entry.Date,
                                      entry.Info,   entry.Kind,  entry.Author};
        QCOMPARE(found[field].size(), 10 << 20);
        QCOMPARE(rows->text(1, 0), u"next"_s);
        for (const QString& text : rowTexts(*rows, 0)) QVERIFY(text.size() == 1 || text.size() == 1000);
    }
    void a_line_of_10_mib_without_any_field_is_none() {
        QCOMPARE(titles(QByteArray(10 << 20, 'x') + '\n' + lineOf("byn", "next")), QStringList{u"next"_s});
    }

    // Fields
    void a_field_after_the_seventh_is_lost() {
        const auto rows = filtered(lineOf("byn", "a") + "\xA7lost\r\n" + lineOf("byn", "b") + "\r\n");
        QCOMPARE(rows->count(), 2);
        QCOMPARE(rows->text(0, 4), u"somebody"_s);
    }
    void a_line_of_10000_fields_is_a_record() {
        QByteArrayList fields(10'000, "f");
        fields[0] = "advance";
        const auto rows = filtered(line(fields) + "\r\n" + lineOf("byn", "next") + "\r\n");
        QCOMPARE(rows->entry(0), (OnlineDbEntry{"advance", "f", "f", "f", "f", "F", "f"}));
        QCOMPARE(rows->text(1, 0), u"next"_s);
    }
    void fields_may_be_empty() {
        const auto rows = filtered(lineOf("byn", "a") + "\r\n" + line({"color", "", "", "", "", "", ""}));
        QCOMPARE(rows->entry(1), (OnlineDbEntry{"color", {}, {}, {}, {}, {}, {}}));
    }
    void a_missing_field_keeps_the_value_of_the_line_before_data() {
        QTest::addColumn<int>("count");
        for (int count = 1; count <= 7; ++count) QTest::addRow("%d fields", count) << count;
    }
    void a_missing_field_keeps_the_value_of_the_line_before() {
        QFETCH(int, count);
        const QByteArrayList first = {"byn", "t", "c", "d", "i", "K", "a"};
        const QByteArrayList second = {"color", "t2", "c2", "d2", "i2", "K2", "a2"};
        const QByteArrayList expected = second.first(count) + first.sliced(count);
        const auto rows = filtered(line(first) + "\r\n" + line(second.first(count)) + "\r\n");
        QCOMPARE(rows->count(), 2);
        QCOMPARE(rows->entry(1), (OnlineDbEntry{expected[0], expected[1], expected[2], expected[3],
                                                expected[4], expected[5], expected[6]}));
        QCOMPARE(rows->icon(1), 2);
    }
    void before_the_first_line_all_values_are_empty() {
        QCOMPARE(filtered("byn\r\n")->entry(0), (OnlineDbEntry{"byn", {}, {}, {}, {}, {}, {}}));
        QCOMPARE(filtered("byn\xA7t\r\n")->entry(0), (OnlineDbEntry{"byn", "t", {}, {}, {}, {}, {}}));
    }
    void values_also_stay_from_a_line_that_is_dropped() {
        const auto rows =
            filtered(lineOf("byn", "shown") + "\n" + lineOf("unknown", "dropped") + "\ncolor\n");
        QCOMPARE(column(*rows, 0), (QStringList{u"shown"_s, u"dropped"_s}));
    }
    void values_stay_over_skipped_lines() {
        QCOMPARE(titles(lineOf("byn", "a") + "\r\n\r\n \r\nbyn\r\n"), (QStringList{u"a"_s, u"a"_s}));
    }
    void each_value_stays_from_the_last_line_that_had_it() {
        const auto rows = filtered("byn\xA7t1\xA7"
                                   "c1\xA7"
                                   "d1\xA7i1\xA7k1\xA7"
                                   "a1\n"
                                   "byn\xA7t2\xA7"
                                   "c2\n"
                                   "x\xA7t3\n"
                                   "color\n"
                                   "byn\xA7t4\n"
                                   "byn\n");
        QCOMPARE(rows->count(), 5);
        QCOMPARE(rows->entry(1), (OnlineDbEntry{"byn", "t2", "c2", "d1", "i1", "K1", "a1"}));
        QCOMPARE(rows->entry(2), (OnlineDbEntry{"color", "t3", "c2", "d1", "i1", "K1", "a1"}));
        QCOMPARE(rows->entry(3), (OnlineDbEntry{"byn", "t4", "c2", "d1", "i1", "K1", "a1"}));
        QCOMPARE(rows->entry(4), (OnlineDbEntry{"byn", "t4", "c2", "d1", "i1", "K1", "a1"}));
    }
    void a_line_that_is_just_a_system_word_shows_the_line_before_once_more() {
        const auto rows = filtered(lineOf("byn", "a") + "\r\ncolor\r\n");
        QCOMPARE(rows->count(), 2);
        QCOMPARE(rowTexts(*rows, 1), rowTexts(*rows, 0));
        QCOMPARE(rows->icon(1), 2);
    }
    void no_line_of_an_error_page_is_shown() {
        QCOMPARE(titles("<!DOCTYPE html>\r\n<html><head><title>404</title></head>\n<body>no color\n"
                        " byn\nbyn \n</body></html>\r\n"),
                 QStringList());
    }
    void any_bytes_give_no_failure_data() {
        QTest::addColumn<QByteArray>("bytes");
        QByteArray all;
        for (int byte = 0; byte < 256; ++byte) all.append(static_cast<char>(byte));
        QTest::newRow("every byte") << all;
        QTest::newRow("zeros") << QByteArray(1 << 16, '\0');
        QTest::newRow("FF") << QByteArray(1 << 16, '\xFF');
        QTest::newRow("separators") << QByteArray(1 << 16, '\xA7');
    }
    void any_bytes_give_no_failure() {
        QFETCH(QByteArray, bytes);
        QCOMPARE(titles(bytes), QStringList());
        QCOMPARE(titles(bytes + '\n' + lineOf("byn", "after")), QStringList{u"after"_s});
    }
};

TORVANE_APPLESS_TEST(FilteredLinesTest)
#include "FilteredLinesTest.moc"
