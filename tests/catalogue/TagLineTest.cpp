// SPDX-License-Identifier: MIT
// The bytes of a tag line: how they are found, parsed and built.
#include "catalogue/TagLine.h"
#include "support/Failing.h"
#include "support/TestMain.h"

#include <QtTest>

using namespace torvane;

namespace {
// A line given as plain text in which "$" means the separator.
QByteArray bytes(const char* text) { return QByteArray(text).replace('$', TagLine::separator); }

QByteArrayList listOf(const TagLine::Fields& f) { return {f.company, f.title, f.date, f.info, f.size}; }
} // namespace

class TagLineTest : public QObject {
    Q_OBJECT

private slots:
    void the_fixed_texts_have_exactly_these_bytes() {
        QCOMPARE(TagLine::marker.toHex(), QByteArray("494433544147a7"));
        QCOMPARE(TagLine::shiftedCompany.toHex(), QByteArray("56f6a752e44e"));
        QCOMPARE(TagLine::separator, '\xA7');
        QCOMPARE(TagLine::lineEnd.toHex(), QByteArray("0d0a"));
    }
    void a_line_is_built_byte_by_byte() {
        QCOMPARE(TagLine::build({"Acme", "Title", "1/2/03", "Info", "3000"}),
                 bytes("ID3TAG$Acme$Title$1/2/03$Info$3000$\r\n"));
        QCOMPARE(TagLine::build({}), bytes("ID3TAG$$$$$$\r\n"));
        QCOMPARE(TagLine::build({" ", " ", "", " ", "0"}), bytes("ID3TAG$ $ $$ $0$\r\n"));
    }
    void the_first_marker_is_found() {
        QCOMPARE(TagLine::markerIn(bytes("romID3TAG$a$ID3TAG$b")), 3);
        QCOMPARE(TagLine::markerIn(bytes("ID3TAG$")), 0);
        QCOMPARE(TagLine::markerIn(bytes("IDID3TAG$")), 2);
        QCOMPARE(TagLine::markerIn(QByteArray(9, '\0') + TagLine::marker), 9);
        QCOMPARE(TagLine::markerIn(bytes("ID3TAG")), -1);
        QCOMPARE(TagLine::markerIn(QByteArray()), -1);
        QCOMPARE(TagLine::markerIn(QByteArrayView()), -1);
    }
    void a_tag_begins_after_the_first_marker_and_ends_at_the_second_data() {
        QTest::addColumn<QByteArray>("all");
        QTest::addColumn<QByteArray>("tag");
        const auto row = [](const char* name, const char* all, const char* tag) {
            QTest::newRow(name) << bytes(all) << bytes(tag);
        };
        row("one tag", "romID3TAG$a$b", "a$b");
        row("no image", "ID3TAG$a", "a");
        row("nothing after it", "romID3TAG$", "");
        row("two tags", "romID3TAG$a$ID3TAG$b$ID3TAG$c", "a$");
        row("two markers in a row", "ID3TAG$ID3TAG$a", "");
        row("a marker that begins twice", "ID3ID3TAG$a", "a");
        row("nearly a marker before it", "id3tag$ID3TAGID3TAG$a", "a");
    }
    void a_tag_begins_after_the_first_marker_and_ends_at_the_second() {
        QFETCH(QByteArray, all);
        QFETCH(QByteArray, tag);
        QCOMPARE(TagLine::tagPart(all).toByteArray(), tag);
    }
    void without_a_marker_there_is_no_tag_and_no_image_before_it_data() {
        QTest::addColumn<QByteArray>("all");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("lower case") << bytes("id3tag$a$b$c$d$1$");
        QTest::newRow("without the separator") << QByteArray("ID3TAG");
        QTest::newRow("separator in UTF-8") << QByteArray("ID3TAG\xC2\xA7"
                                                          "a");
        QTest::newRow("zero byte inside") << QByteArray("ID3\0TAG\xA7", 8);
    }
    void without_a_marker_there_is_no_tag_and_no_image_before_it() {
        QFETCH(QByteArray, all);
        QCOMPARE(failureOf([&] { (void)TagLine::tagPart(all); }), number(RuntimeFailure::subscript));
        QCOMPARE(failureOf([&] { (void)TagLine::keptImage(all); }), number(RuntimeFailure::subscript));
    }
    void zero_bytes_in_the_image_are_ordinary_bytes() {
        const QByteArray rom("a\0\0b", 4);
        QCOMPARE(TagLine::tagPart(rom + TagLine::marker + rom).toByteArray(), rom);
        QCOMPARE(TagLine::keptImage(rom + bytes("ID3TAG$c$t$d$i$9$")).toByteArray(), rom);
    }
    void the_kept_image_ends_at_the_marker_and_is_at_most_as_long_as_the_size_says_data() {
        QTest::addColumn<QByteArray>("all");
        QTest::addColumn<QByteArray>("image");
        const auto row = [](const char* name, const char* all, const char* image) {
            QTest::newRow(name) << bytes(all) << bytes(image);
        };
        row("as long", "romID3TAG$c$t$d$i$3$", "rom");
        row("longer than the size", "romID3TAG$c$t$d$i$2$", "ro");
        row("shorter than the size", "romID3TAG$c$t$d$i$4$", "rom");
        row("far shorter than the size", "romID3TAG$c$t$d$i$99999999999999999999$", "rom");
        row("size 0", "romID3TAG$c$t$d$i$0$", "");
        row("size below 0 that rounds to 0", "romID3TAG$c$t$d$i$-0.4$", "");
        row("no image", "ID3TAG$c$t$d$i$3$", "");
        row("a half, to even", "romID3TAG$c$t$d$i$1.5$", "ro");
        row("another half, to even", "romID3TAG$c$t$d$i$2.5$", "ro");
        row("shifted form", "romID3TAG$V\xF6$R\xE4N$t$d$i$2$", "ro");
        row("marker inside the image", "roID3TAG$c$t$d$i$9$mID3TAG$c$t$d$i$3$", "ro");
        row("separators in the image", "r$o$m$ID3TAG$c$t$d$i$5$", "r$o$m");
    }
    void the_kept_image_ends_at_the_marker_and_is_at_most_as_long_as_the_size_says() {
        QFETCH(QByteArray, all);
        QFETCH(QByteArray, image);
        QCOMPARE(TagLine::keptImage(all).toByteArray(), image);
    }
    void an_invalid_tag_leaves_no_image_data() {
        QTest::addColumn<QByteArray>("tag");
        QTest::addColumn<int>("expected");
        const auto row = [](const char* name, const char* tag, RuntimeFailure::Number expected) {
            QTest::newRow(name) << bytes(tag) << int(expected);
        };
        row("too few pieces", "c$t$d$i", RuntimeFailure::subscript);
        row("too few pieces of the shifted form", "V\xF6$R\xE4N$t$d$i", RuntimeFailure::subscript);
        row("no number", "c$t$d$i$big$", RuntimeFailure::typeMismatch);
        row("empty size", "c$t$d$i$$", RuntimeFailure::typeMismatch);
        row("below 0", "c$t$d$i$-1$", RuntimeFailure::invalidCall);
        row("far below 0", "c$t$d$i$-1e300$", RuntimeFailure::invalidCall);
    }
    void an_invalid_tag_leaves_no_image() {
        QFETCH(QByteArray, tag);
        QFETCH(int, expected);
        QCOMPARE(failureOf([&] { (void)TagLine::keptImage("rom" + TagLine::marker + tag); }),
                 std::optional<int>(expected));
    }
    void a_tag_part_of_many_megabytes_is_cut_no_further_than_needed() {
        const QByteArray rest(8 << 20, TagLine::separator);
        QCOMPARE(TagLine::fields(bytes("c$t$d$i$42$") + rest).size, QByteArray("42"));
    }
    void fields_are_the_pieces_between_separators_data() {
        QTest::addColumn<QByteArray>("tag");
        QTest::addColumn<QByteArrayList>("fields");
        const auto row = [](const char* name, const char* tag, const QByteArrayList& fields) {
            QTest::newRow(name) << bytes(tag) << fields;
        };
        row("plain form", "c$t$d$i$42$\r\n", {"c", "t", "d", "i", "42"});
        row("without the last separator", "c$t$d$i$42", {"c", "t", "d", "i", "42"});
        row("without the last separator but with the line end", "c$t$d$i$42\r\n",
            {"c", "t", "d", "i", "42\r\n"});
        row("all empty", "$$$$", {"", "", "", "", ""});
        row("more pieces than needed", "c$t$d$i$42$x$y", {"c", "t", "d", "i", "42"});
        row("a separator in the title shifts the rest", "c$t1$t2$d$i$42$", {"c", "t1", "t2", "d", "i"});
        row("shifted form", "V\xF6$R\xE4N$t$d$i$42$", {"V\xF6\xA7R\xE4N", "t", "d", "i", "42"});
        row("shifted form is only the start of the company", "V\xF6$R\xE4Nx$t$d$i$42$",
            {"V\xF6\xA7R\xE4N", "t", "d", "i", "42"});
        row("shifted form not at the start", " V\xF6$R\xE4N$t$d$i$42$", {" V\xF6", "R\xE4N", "t", "d", "i"});
        row("shifted form in another case", "v\xF6$R\xE4N$t$d$i$", {"v\xF6", "R\xE4N", "t", "d", "i"});
        row("markup and format characters", "%s$\"'$\\$<b>$7$", {"%s", "\"'", "\\", "<b>", "7"});
    }
    void fields_are_the_pieces_between_separators() {
        QFETCH(QByteArray, tag);
        QFETCH(QByteArrayList, fields);
        QCOMPARE(listOf(TagLine::fields(tag)), fields);
        QCOMPARE(TagLine::storedSizeText(tag), fields.last());
    }
    void too_few_pieces_fail_data() {
        QTest::addColumn<QByteArray>("tag");
        for (const char* tag : {"", "c", "c$t$d$i", "$$$", "V\xF6$R\xE4N", "V\xF6$R\xE4N$t$d$i"})
            QTest::newRow(tag) << bytes(tag);
    }
    void too_few_pieces_fail() {
        QFETCH(QByteArray, tag);
        QCOMPARE(failureOf([&] { (void)TagLine::fields(tag); }), number(RuntimeFailure::subscript));
        QCOMPARE(failureOf([&] { (void)TagLine::storedSizeText(tag); }), number(RuntimeFailure::subscript));
    }
    void a_built_line_parses_into_its_fields() {
        std::srand(41);
        for (int round = 0; round < 2000; ++round) {
            QByteArrayList values;
            for (int i = 0; i < 5; ++i) {
                QByteArray value(std::rand() % 20, '\0');
                for (char& c : value) {
                    do {
                        c = static_cast<char>(std::rand());
                    } while (c == TagLine::separator);
                }
                values.append(value);
            }
            const QByteArray line = TagLine::build({values[0], values[1], values[2], values[3], values[4]});
            QVERIFY(line.endsWith("\xA7\r\n"));
            QCOMPARE(listOf(TagLine::fields(TagLine::tagPart("rom" + line))), values);
        }
    }
};

TORVANE_APPLESS_TEST(TagLineTest)
#include "TagLineTest.moc"
