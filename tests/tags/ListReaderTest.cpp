// SPDX-License-Identifier: MIT
// Lists of known games in both forms, in all encodings, whole and broken, in pieces of any size.
#include "tags/lists/ListReader.h"
#include "support/TestMain.h"

#include <QStringEncoder>

using namespace torvane;

class ListReaderTest : public QObject {
    Q_OBJECT

    // Each entry as a line, then flaws, then the fault.
    static QByteArrayList read(const QByteArray& list, qsizetype step) {
        QByteArrayList lines;
        QByteArrayList flaws;
        const auto entry = [&](const ListEntry& e) {
            lines += e.title + '|' + e.rom + '|' + e.company + '|' + e.year + '|' +
                     QByteArray::number(e.size) + '|' + e.sums[0].toHex() + '|' + e.sums[1].toHex() + '|' +
                     e.sums[2].toHex();
        };
        const auto flaw = [&](qint64 line, const QByteArray& reason) {
            flaws += QByteArray::number(line) + ": " + reason;
        };
        const auto reader = ListReader::of(list, {entry, flaw});
        for (qsizetype at = 0; at < list.size(); at += step) reader->add(list.mid(at, step));
        reader->finish();
        lines += flaws;
        if (!reader->fault().isEmpty()) lines += reader->fault();
        return lines;
    }
    // The same for all sizes of pieces.
    static QByteArrayList readAll(const QByteArray& list) {
        const QByteArrayList lines = read(list, std::max<qsizetype>(list.size(), 1));
        for (const qsizetype step : {1, 2, 3, 7, 64}) {
            if (read(list, step) != lines) return {"pieces matter", read(list, step).join(';')};
        }
        return lines;
    }
    static QByteArray xml(const QByteArray& games) {
        return "<?xml version=\"1.0\"?>\n<!DOCTYPE datafile PUBLIC \"-//Logiqx//DTD ROM Management "
               "Datafile//EN\" \"http://www.logiqx.com/Dats/datafile.dtd\">\n<datafile><header><name>L</name>"
               "<description>D</description></header>\n" +
               games + "</datafile>\n";
    }
    static QByteArray sha1() { return QByteArray(40, 'a'); }

private slots:
    void games_of_xml_are_read() {
        QCOMPARE(
            readAll(xml("<game name=\"A\"><description>The  A\n&amp; B</description><year>1990</year>"
                        "<manufacturer>M</manufacturer><publisher>P</publisher>"
                        "<rom name=\"a.gb\" size=\"32768\" crc=\"0123ABCD\" md5=\"" +
                        QByteArray(32, 'b') + "\" sha1=\"" + sha1() + "\" status=\"verified\"/></game>\n" +
                        "<machine name=\"B\"><rom name=\"b.gb\" crc=\"1\"/><publisher>P</publisher>"
                        "<disk name=\"d\" sha1=\"" +
                        sha1() + "\"/></machine>")),
            (QByteArrayList{"The A & B|a.gb|M|1990|32768|0123abcd|" + QByteArray(32, 'b') + '|' + sha1(),
                            "B|b.gb|P||-1|00000001||"}));
    }
    void games_of_text_are_read() {
        QCOMPARE(
            readAll(
                "clrmamepro (\n\tname \"L\"\n\theader no.xml\n)\n\ngame (\n\tname \"A (World)\"\n"
                "\tdescription \"The  A\"\n\tyear 1990\n\tmanufacturer \"M\"\n"
                "\trom ( name \"a (x).gb\" size 32768 crc 0123ABCD md5 " +
                QByteArray(32, 'b') + " sha1 " + sha1() +
                " flags verified )\n)\n"
                "game ( name B publisher P rom ( name b.gb baddump crc 1 ) release ( name x region y ) )\n"),
            (QByteArrayList{"The A|a (x).gb|M|1990|32768|0123abcd|" + QByteArray(32, 'b') + '|' + sha1(),
                            "B|b.gb|P||-1|00000001||"}));
    }
    void files_that_nobody_can_find_are_left_out() {
        QCOMPARE(
            readAll(xml("<game name=\"A\"><rom name=\"a\" size=\"1\"/><rom name=\"b\" size=\"1\" crc=\"\"/>"
                        "<rom name=\"c\" crc=\"12345678\" status=\"nodump\"/></game>")),
            QByteArrayList());
        QCOMPARE(readAll("game ( name A rom ( name a size 1 ) rom ( name b crc 12345678 nodump ) "
                         "rom ( name c crc 12345678 flags nodump ) )"),
                 QByteArrayList());
    }
    void a_game_may_have_very_many_files() {
        QByteArray roms;
        for (int i = 0; i < 2500; ++i) roms += "<rom name=\"x\" crc=\"1\"/>";
        QCOMPARE(read(xml("<game name=\"A\">" + roms + "</game>"), 65536).size(), 2500);
    }

    // Encodings
    void every_encoding_gives_the_same_texts_data() {
        QTest::addColumn<QByteArray>("list");
        const QString text = QStringLiteral("game ( name \"Caf\u00e9\" rom ( name a crc 1 ) )");
        const QString games = QStringLiteral(
            "<datafile><game name=\"Caf\u00e9\"><rom name=\"a\" crc=\"1\"/></game></datafile>");
        const QString head = QStringLiteral("<?xml version=\"1.0\" encoding=\"%1\"?>\n");
        const auto encoded = [](QStringEncoder::Encoding encoding, const QString& list, bool hasMark = true) {
            QStringEncoder encoder(encoding,
                                   hasMark ? QStringEncoder::Flag::WriteBom : QStringEncoder::Flag());
            return QByteArray(encoder(list));
        };
        QTest::newRow("xml, UTF-8") << games.toUtf8();
        QTest::newRow("xml, UTF-8 with mark") << encoded(QStringEncoder::Utf8, games);
        QTest::newRow("xml, UTF-16LE")
            << encoded(QStringEncoder::Utf16LE, head.arg(QStringLiteral("UTF-16")) + games);
        QTest::newRow("xml, UTF-16BE")
            << encoded(QStringEncoder::Utf16BE, head.arg(QStringLiteral("UTF-16")) + games);
        QTest::newRow("xml, Latin-1") << (head.arg(QStringLiteral("ISO-8859-1")) + games).toLatin1();
        QTest::newRow("text, UTF-8") << text.toUtf8();
        QTest::newRow("text, UTF-8 with mark") << encoded(QStringEncoder::Utf8, text);
        QTest::newRow("text, UTF-16LE") << encoded(QStringEncoder::Utf16LE, text);
        QTest::newRow("text, UTF-16BE") << encoded(QStringEncoder::Utf16BE, text);
        QTest::newRow("text, code page 1252") << text.toLatin1();
    }
    void every_encoding_gives_the_same_texts() {
        QFETCH(QByteArray, list);
        QCOMPARE(readAll(list), QByteArrayList{"Caf\xC3\xA9|a|||-1|00000001||"});
    }

    // Flaws and faults
    void flawed_entries_are_left_out_with_their_lines() {
        QCOMPARE(readAll(xml("<game name=\"A\">\n<rom name=\"a\" size=\"x\" crc=\"1\"/>\n"
                             "<rom name=\"b\" crc=\"123456789\"/>\n<rom name=\"c\" md5=\"1\"/>\n"
                             "<rom name=\"d\" sha1=\"" +
                             QByteArray(40, 'g') +
                             "\"/>\n"
                             "<rom name=\"e\" size=\"99999999999999999999\"/>"
                             "<rom name=\"f\" crc=\"1\"/></game>")),
                 (QByteArrayList{"A|f|||-1|00000001||", "5: the size is no number of bytes",
                                 "6: the crc32 is none", "7: the md5 is none", "8: the sha1 is none",
                                 "9: the size is no number of bytes"}));
        QCOMPARE(readAll("game (\nname A\nrom ( name a\nsize -1 crc 1 ) )"),
                 QByteArrayList{"4: the size is no number of bytes"});
    }
    void a_value_that_the_list_does_not_know_counts_as_absent_data() {
        QTest::addColumn<QByteArray>("value");
        QTest::newRow("dash") << QByteArray("-");
        QTest::newRow("empty") << QByteArray();
    }
    void a_value_that_the_list_does_not_know_counts_as_absent() {
        QFETCH(QByteArray, value);
        const QByteArray quoted = '"' + value + '"';
        const QByteArrayList expected{"A|-|||-1|00000001||" + sha1()};
        QCOMPARE(readAll(xml("<game name=\"A\"><rom name=\"-\" size=" + quoted + " crc=\"1\" md5=" + quoted +
                             " sha1=\"" + sha1() + "\" sha256=" + quoted +
                             "/>\n<rom name=\"b\" crc=" + quoted + "/></game>")),
                 expected);
        QCOMPARE(readAll("game ( name A rom ( name - size " + quoted + " crc 1 md5 " + quoted + " sha1 " +
                         sha1() + " sha256 " + quoted + " ) rom ( name b crc " + quoted + " ) )"),
                 expected);
    }
    void backslashes_put_quotation_marks_into_texts() {
        QCOMPARE(readAll("game ( name \"The \\\"A\\\" \\\\ (B)\" rom ( name \"C:\\x\\\\\" crc 1 ) )"),
                 QByteArrayList{"The \"A\" \\ (B)|C:\\x\\|||-1|00000001||"});
    }
    void a_backslash_in_a_bare_word_is_one() {
        QCOMPARE(readAll("game ( name A\\ rom ( name a\\\\b crc 1 ) )"),
                 QByteArrayList{"A\\|a\\\\b|||-1|00000001||"});
    }
    void a_broken_list_is_reported_with_its_line_data() {
        QTest::addColumn<QByteArray>("list");
        QTest::addColumn<QByteArray>("fault");
        const auto add = [](const char* name, const QByteArray& list, const QByteArray& fault) {
            QTest::newRow(name) << list << fault;
        };
        add("other xml", "<html>\n</html>", "line 1: it is no list of games");
        add("cut", "<datafile>\n<game name=\"a\">\n", "line 3: it ends before its last element does");
        add("wrong end", "<datafile>\n<game name=\"a\">\n</datafile>",
            "line 3: Opening and ending tag mismatch.");
        add("entity bomb",
            "<!DOCTYPE datafile [\n<!ENTITY a \"aaaaaaaaaa\">\n<!ENTITY b "
            "\"&a;&a;&a;\">\n]>\n<datafile>&b;</datafile>",
            "line 4: it declares entities");
        add("unknown entity", "<datafile>\n&x;</datafile>", "line 2: Entity 'x' not declared.");
        add("depth", "<datafile>\n" + QByteArray("<a>").repeated(50), "line 2: elements are nested too deep");
        add("plain text", "\nThis is no list.", "line 2: a bracket is missing");
        add("cut text", "game (\nname \"A\"\n", "line 3: it ends before its last block does");
        add("quotation mark", "game (\nname \"A\nrom ( name a )", "line 2: a quotation mark is missing");
        add("too many brackets", "game ( name A )\n)", "line 2: a bracket is closed that was not opened");
        add("no value", "game (\nname )", "line 2: a value is missing");
        add("no name", "game ( (", "line 1: a block has no name");
        add("text without a name", "game ( name A\n\"B\" )",
            "line 2: a text stands where a name is expected");
        add("depth of text", QByteArray("a ( ").repeated(50), "line 1: blocks are nested too deep");
        add("long word", "game ( name \n" + QByteArray(5000, 'x'), "line 2: a word is too long");
        add("quotation mark after a backslash", "game (\nname \"A\\\"\nrom ( name a )",
            "line 2: a quotation mark is missing");
        add("long text", "game ( name \n\"" + QByteArray(5000, 'x'), "line 2: a text is too long");
        add("binary",
            QByteArray("\x7F"
                       "ELF\2\1\1\0\0\0 x",
                       13),
            "line 1: a bracket is missing");
    }
    void a_broken_list_is_reported_with_its_line() {
        QFETCH(QByteArray, list);
        QFETCH(QByteArray, fault);
        QCOMPARE(readAll(list), QByteArrayList{fault});
    }
    void bytes_that_are_not_utf_8_are_reported_with_their_line_data() {
        QTest::addColumn<QByteArray>("declaration");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("game");
        const QByteArray declared = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
        QTest::newRow("not declared, first piece") << QByteArray() << QByteArray("Caf\xE9") << 2;
        QTest::newRow("declared, first piece") << declared << QByteArray("Caf\xE9") << 2;
        QTest::newRow("marked") << QByteArray("\xEF\xBB\xBF") << QByteArray("Caf\xE9") << 2;
        QTest::newRow("beginning of a character") << declared << QByteArray("\xF0\x9F\x98") << 3;
        QTest::newRow("rest of a character") << declared << QByteArray("\xC3\xA9\xA9") << 4;
        QTest::newRow("half of a surrogate pair") << declared << QByteArray("\xED\xA0\xBD") << 5;
        QTest::newRow("a later piece") << declared << QByteArray("Caf\xE9") << 3000;
        QTest::newRow("near the end") << declared << QByteArray("Caf\xE9") << 3999;
    }
    void bytes_that_are_not_utf_8_are_reported_with_their_line() {
        QFETCH(QByteArray, declaration);
        QFETCH(QByteArray, bytes);
        QFETCH(int, game);
        QByteArray list = declaration + "<datafile>\n";
        for (int i = 0; i < 4000; ++i) {
            list += "<game name=\"Pok\xC3\xA9 " + (i == game ? bytes : QByteArray()) +
                    "\"><rom crc=\"1\"/></game>\n";
        }
        list += "</datafile>\n";
        const int line = game + (declaration.endsWith('\n') ? 3 : 2);
        for (const qsizetype step : {qsizetype{7}, qsizetype{64 << 10}, list.size()}) {
            const QByteArrayList lines = read(list, step);
            QCOMPARE(lines.size(), game + 1); // the games before it
            QCOMPARE(lines.back(), "line " + QByteArray::number(line) + ": the text is not UTF-8");
        }
    }
    void a_character_that_the_end_of_the_list_cuts_is_reported() {
        QCOMPARE(readAll("<datafile/>\n\xC3"), QByteArrayList{"line 2: the text is not UTF-8"});
    }
    void other_encodings_are_not_taken_for_utf_8() {
        for (const char* encoding : {"ISO-8859-1", "windows-1252"}) {
            const QByteArray list =
                QByteArray("<?xml version=\"1.0\" encoding=\"") + encoding +
                "\"?>\n<datafile><game name=\"Caf\xE9\"><rom crc=\"1\"/></game></datafile>";
            QCOMPARE(readAll(list), QByteArrayList{"Caf\xC3\xA9||||-1|00000001||"});
        }
    }
    void an_endless_element_is_given_up() {
        QCOMPARE(read("<datafile>\n<game name=\"" + QByteArray(3 << 20, 'x'), 65536),
                 QByteArrayList{"line 2: a text or an element is too long"});
    }
    void long_names_are_cut() {
        const QByteArrayList lines = readAll(
            xml("<game name=\"" + QByteArray(70000, 'n') + "\"><description>" + QByteArray(70000, 'd') +
                "</description><rom crc=\"1\" name=\"" + QByteArray(70000, 'r') + "\"/></game>"));
        QCOMPARE(lines,
                 QByteArrayList{QByteArray(4096, 'd') + '|' + QByteArray(4096, 'r') + "|||-1|00000001||"});
    }
};

TORVANE_APPLESS_TEST(ListReaderTest)
#include "ListReaderTest.moc"
