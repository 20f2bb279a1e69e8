// SPDX-License-Identifier: MIT
// Lines with tabs, as they come from a list of ours, a spreadsheet or an editor.
#include "tags/edits/TagTable.h"
#include "support/TestMain.h"
#include "tags/rows/Field.h"
#include "tags/rows/TsvRows.h"

#include "MemoryFile.h"

using namespace torvane;

class TagTableTest : public QObject {
    Q_OBJECT

    // All rows, one a line: the number of the line, and what was given, or the fault.
    static QByteArrayList rowsOf(const QByteArray& bytes) {
        TagTable table(bytes);
        if (!table.fault().isEmpty()) return {"table: " + table.fault()};
        QByteArrayList rows;
        while (const auto row = table.next()) {
            QByteArray line = QByteArray::number(row->line) + ' ';
            const auto add = [&](const char* name, const std::optional<QByteArray>& text) {
                if (text) line += QByteArray(" ") + name + '=' + *text;
            };
            if (row->fault.isEmpty()) {
                line += row->file;
                add("title", row->tag.title);
                add("company", row->tag.company);
                add("info", row->tag.info);
                add("date", row->tag.date);
            } else {
                line += row->fault;
            }
            rows += line;
        }
        return rows;
    }

private slots:
    void columns_may_come_in_any_order() {
        QCOMPARE(rowsOf("info\tfile\ttitle\nI\ta.gb\tT\n"), QByteArrayList{"2 a.gb title=T info=I"});
        QCOMPARE(rowsOf("file\tdate\tcompany\na.gb\tD\tC"), QByteArrayList{"2 a.gb company=C date=D"});
    }
    void columns_of_a_list_are_skipped() {
        QCOMPARE(rowsOf("file\tconsole\ttagged\ttitle\timage\tsize\na.gb\tGB\tno\tT\t5\t6\n"),
                 QByteArrayList{"2 a.gb title=T"});
    }
    void line_ends_of_both_kinds_are_taken() {
        QCOMPARE(rowsOf("file\ttitle\r\na.gb\tT\r\nb.gb\tU\n"),
                 (QByteArrayList{"2 a.gb title=T", "3 b.gb title=U"}));
        QCOMPARE(rowsOf("title\tfile\r\nT\ta.gb\r"), QByteArrayList{"2 a.gb title=T"});
    }
    void a_byte_order_mark_is_skipped() {
        QCOMPARE(rowsOf("\xEF\xBB\xBF"
                        "file\ttitle\na.gb\tT\n"),
                 QByteArrayList{"2 a.gb title=T"});
    }
    void quotes_are_characters_like_any_other() {
        QCOMPARE(rowsOf("file\ttitle\n\"a.gb\"\t\"T \"\"x\"\"\n"),
                 QByteArrayList{"2 \"a.gb\" title=\"T \"\"x\"\""});
    }
    void escapes_stand_for_what_a_field_can_not_hold() {
        QCOMPARE(rowsOf("file\ttitle\na\\tb\\\\.gb\t\\n\\r\\0x\n"),
                 QByteArrayList{QByteArray("2 a\tb\\.gb title=\n\r\0x", 20)});
    }
    void a_backslash_before_anything_else_spoils_its_row_alone() {
        const QByteArray fault = "2 a backslash stands before something else than t, n, r, 0 or a backslash";
        QCOMPARE(rowsOf("file\ttitle\nC:\\games\tT\nb.gb\tU\n"), (QByteArrayList{fault, "3 b.gb title=U"}));
        QCOMPARE(rowsOf("file\ttitle\na.gb\tT\\\n"), QByteArrayList{fault});
    }
    void fields_that_are_empty_or_not_there_are_not_given() {
        QCOMPARE(rowsOf("file\ttitle\tinfo\na.gb\t\tI\nb.gb\tT\nc.gb\n"),
                 (QByteArrayList{"2 a.gb info=I", "3 b.gb title=T", "4 c.gb"}));
    }
    void empty_lines_are_skipped_and_counted() {
        QCOMPARE(rowsOf("file\ttitle\n\n\r\na.gb\tT\n\n"), QByteArrayList{"4 a.gb title=T"});
    }
    void bad_rows_say_what_is_wrong() {
        QCOMPARE(rowsOf("file\ttitle\na.gb\tT\tx\n\tT\nb\\0.gb\tT\n"),
                 (QByteArrayList{"2 there are more fields than columns", "3 the name of the file is missing",
                                 "4 the name of the file has a zero byte"}));
    }
    void any_byte_may_be_in_a_name() {
        QByteArray name;
        for (int byte = 255; byte > ' '; --byte) name += static_cast<char>(byte);
        name.replace("\\", "\\\\");
        TagTable table("file\ttitle\n" + name + "\tT\n");
        QCOMPARE(table.next()->file, QByteArray(name).replace("\\\\", "\\"));
    }
    void a_bad_header_spoils_the_table_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QByteArray>("fault");
        const auto add = [](const char* name, const QByteArray& bytes, const char* fault) {
            QTest::newRow(name) << bytes << QByteArray(fault);
        };
        add("nothing", "", "unknown column ''");
        add("no line end", "titel\tfile", "unknown column 'titel'");
        add("capital", "File\ttitle\n", "unknown column 'File'");
        add("no file", "title\tinfo\na\tb\n", "there is no column 'file'");
        add("twice", "file\ttitle\tfile\n", "column 'file' is there twice");
        add("skipped twice", "file\tsize\tsize\n", "column 'size' is there twice");
        add("control", "\x1B[2J", "unknown column '?[2J'");
        add("long", QByteArray(100, 'x'), "unknown column 'xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx'");
        add("UTF-16",
            QByteArray("\xFF\xFE"
                       "f\0i\0l\0e\0\n\0",
                       12),
            "unknown column '\xFF\xFE"
            "f?i?l?e?'");
    }
    void a_bad_header_spoils_the_table() {
        QFETCH(QByteArray, bytes);
        QFETCH(QByteArray, fault);
        QCOMPARE(rowsOf(bytes), QByteArrayList{"table: " + fault});
        QVERIFY(!TagTable(bytes).next());
    }
    void what_a_list_prints_is_read_again() {
        QByteArray all;
        for (int byte = 1; byte < 256; ++byte) all += static_cast<char>(byte);
        const MemoryFile file;
        Output output(file.descriptor());
        TsvRows writer({{"file"}, {"size", true}, {"title"}}, output);
        writer.add({Field::ofName(all), Field::ofNumber(5), Field::ofTagText(all)});
        output.flush();
        TagTable table(file.content());
        const auto row = table.next();
        QCOMPARE(row->file, all);
        QCOMPARE(row->tag.title.value(), Field::ofTagText(all).bytes);
        QVERIFY(!table.next());
    }
};

TORVANE_APPLESS_TEST(TagTableTest)
#include "TagTableTest.moc"
