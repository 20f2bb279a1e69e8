// SPDX-License-Identifier: MIT
// Rows in their four forms: any byte of a name or a tag survives in those for programs, and none disturbs the
// terminal in those for people.
#include "MemoryFile.h"
#include "support/CommandOutput.h"
#include "support/TestMain.h"
#include "tags/rows/JsonRows.h"
#include "tags/rows/SheetRows.h"
#include "tags/rows/TableRows.h"
#include "tags/rows/TsvRows.h"

#include <clocale>
#include <pty.h>

using namespace torvane;

class RowsTest : public QObject {
    Q_OBJECT

    const Columns columns{{"file"}, {"size", true}, {"text"}};

    template <typename Writer>
    QByteArray printed(const std::vector<Row>& rows) const {
        const MemoryFile file;
        Output output(file.descriptor());
        Writer writer(columns, output);
        for (const Row& row : rows) writer.add(row);
        writer.finish();
        output.flush();
        return file.content();
    }
    static Row row(const QByteArray& name, qint64 size, const QByteArray& text) {
        return {Field::ofName(name), Field::ofNumber(size), Field::ofTagText(text)};
    }
    static QByteArray allBytes(int first) {
        QByteArray bytes;
        for (int byte = first; byte < 256; ++byte) bytes += static_cast<char>(byte);
        return bytes;
    }
    // What Python makes of the first row, as hexadecimal digits: of the name its bytes, of the text its bytes
    // in code page 1252, where the five undefined ones are the control characters of the same number.
    static QByteArrayList readByPython(const QByteArray& program, const QByteArray& printed) {
        const QByteArray script = "import sys, json\n" + program +
                                  "\nname, text = row['file'], row['text']\n"
                                  "print(name.encode('utf-8', 'surrogateescape').hex())\n"
                                  "print(b''.join(c.encode('latin-1') if ord(c) in (129, 141, 143, 144, 157)"
                                  " else c.encode('cp1252') for c in text).hex())\n";
        return outputOf({"python3", "-c", script}, printed).split('\n');
    }

private slots:
    void initTestCase() { QVERIFY(std::setlocale(LC_CTYPE, "C.UTF-8") != nullptr); }

    void json_has_an_object_a_line_in_the_order_of_the_columns() {
        QCOMPARE(
            printed<JsonRows>({row("a.gb", 5, "x"), {Field(), Field::ofTruth(true), Field::ofTruth(false)}}),
            QByteArray("{\"file\":\"a.gb\",\"size\":5,\"text\":\"x\"}\n"
                       "{\"file\":null,\"size\":true,\"text\":false}\n"));
    }
    void json_escapes_what_its_strings_can_not_hold() {
        const QByteArray expected =
            "{\"file\":\"a\\\"b\\\\c\\udcffé\xF0\x9F\x8E\xAE\\udced\\udca0\\udc80\",\"size\":0,"
            "\"text\":\"\\u0000\\u0009\\u000a\x7F\"}\n";
        QCOMPARE(printed<JsonRows>({row("a\"b\\c\xFF\xC3\xA9\xF0\x9F\x8E\xAE\xED\xA0\x80", 0,
                                        QByteArray("\0\t\n\x7F", 4))}),
                 expected);
    }
    void json_escapes_a_single_sign_too() {
        QVERIFY(printed<JsonRows>({row("\"", 0, "\\")})
                    .contains("{\"file\":\"\\\"\",\"size\":0,\"text\":\"\\\\\"}"));
    }
    void any_byte_survives_in_json_as_python_reads_it() {
        const QByteArrayList read = readByPython("row = json.loads(sys.stdin.readline())",
                                                 printed<JsonRows>({row(allBytes(1), 0, allBytes(0))}));
        QCOMPARE(read.value(0), allBytes(1).toHex());
        QCOMPARE(read.value(1), allBytes(0).toHex());
    }
    void tsv_has_a_header_and_escapes_tabs_and_line_ends() {
        QCOMPARE(printed<TsvRows>({row("a\tb\\c\xFF", 5, QByteArray("\r\n\0x", 4)),
                                   {Field(), Field::ofTruth(true), Field::ofTruth(false)}}),
                 QByteArray("file\tsize\ttext\n"
                            "a\\tb\\\\c\xFF\t5\t\\r\\n\\0x\n"
                            "\tyes\tno\n"));
    }
    void any_byte_survives_in_tsv_as_python_reads_it() {
        const QByteArrayList read = readByPython(
            "lines = sys.stdin.buffer.read().split(b'\\n')\n"
            "import re\n"
            "escapes = {b't': b'\\t', b'n': b'\\n', b'r': b'\\r', b'0': b'\\0', b'\\\\': b'\\\\'}\n"
            "plain = lambda cell: re.sub(rb'\\\\(.)', lambda m: escapes[m[1]], cell, flags=re.S)\n"
            "cells = [plain(cell).decode('utf-8', 'surrogateescape') for cell in lines[1].split(b'\\t')]\n"
            "row = dict(zip(['file', 'size', 'text'], cells))",
            printed<TsvRows>({row(allBytes(1), 0, allBytes(0))}));
        QCOMPARE(read.value(0), allBytes(1).toHex());
        QCOMPARE(read.value(1), allBytes(0).toHex());
    }
    void a_table_is_aligned_by_what_a_terminal_shows() {
        // Two cells for each of the wide characters, and none for the accent of its own.
        QCOMPARE(printed<TableRows>({row("\xE3\x82\xB2\xE3\x83\xBC.gb", 5, "x"),
                                     row("e\xCC\x81.gb", 12345, "\xE9"), row("long name.gb", 7, "")}),
                 QByteArray("file           size  text\n"
                            "\xE3\x82\xB2\xE3\x83\xBC.gb           5  x\n"
                            "e\xCC\x81.gb          12345  \xC3\xA9\n"
                            "long name.gb      7\n"));
    }
    void what_a_terminal_would_obey_is_a_question_mark() {
        const Row hostile = row("\x1B[2J\n\t\x7F\xFF\xC2\x9B.gb", 0, "a\\\x81");
        QCOMPARE(printed<TableRows>({hostile}), QByteArray("file          size  text\n"
                                                           "?[2J?????.gb     0  a\\?\n"));
        QVERIFY(printed<SheetRows>({hostile}).startsWith("file: ?[2J?????.gb\n"));
    }
    void a_sheet_leaves_out_what_is_missing() {
        QCOMPARE(
            printed<SheetRows>({row("a.gb", 5, "x"), {Field::ofName("b"), Field::ofTruth(true), Field()}}),
            QByteArray("file: a.gb\nsize: 5\ntext: x\n\nfile: b\nsize: yes\n"));
    }
    void a_table_on_a_terminal_is_cut_to_its_width() {
        int terminal = -1;
        int program = -1;
        const winsize size{24, 16, 0, 0};
        QCOMPARE(openpty(&terminal, &program, nullptr, nullptr, &size), 0);
        Output output(program);
        TableRows table(columns, output);
        table.add(row("\xE3\x82\xB2.gb", 5, "abcdefghi"));
        table.add({Field::ofName("abcde"), Field::ofNumber(5), Field::ofName("\xE3\x82\xB2\xE3\x82\xB2")});
        table.finish();
        output.flush();
        QByteArray shown(1000, '\0');
        shown.resize(read(terminal, shown.data(), 1000));
        // The second wide character would need one cell more than there is.
        QCOMPARE(shown, QByteArray("file   size  tex\r\n"
                                   "\xE3\x82\xB2.gb     5  abc\r\n"
                                   "abcde     5  \xE3\x82\xB2\r\n"));
        close(terminal);
        close(program);
    }
};

TORVANE_APPLESS_TEST(RowsTest)
#include "RowsTest.moc"
