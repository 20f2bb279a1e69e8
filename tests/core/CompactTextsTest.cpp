// SPDX-License-Identifier: MIT
// The texts of the compact window: capitals, the scrolling line, consoles and numbers.
#include "core/CompactTexts.h"
#include "platform/base/CodePage1252.h"
#include "platform/base/NativeText.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class CompactTextsTest : public QObject {
    Q_OBJECT

    static QString named(int length) { return QString(length, u'a'); }
    static QString advanced(QString line, int times) {
        for (int i = 0; i < times; ++i) line = CompactTexts::advanced(line);
        return line;
    }

private slots:
    void the_line_is_the_name_and_three_dots_in_upper_case() {
        QCOMPARE(CompactTexts::line(u"Amber ñandú"_s), u"AMBER ÑANDÚ ··· "_s);
        QCOMPARE(CompactTexts::line(QString()), u" ··· "_s);
    }
    void the_dots_are_the_ones_of_the_code_page() {
        QCOMPARE(CodePage1252::toBytes(CompactTexts::line(QString())), QByteArray(" \xB7\xB7\xB7 "));
    }
    void capitals_are_those_of_the_code_page() {
        QCOMPARE(CompactTexts::shown(u"aß µ ƒ ÿ œ ÷ 5"_s), u"Aß µ ƒ Ÿ Œ ÷ 5"_s);
    }
    void letters_outside_of_the_code_page_have_their_own_capitals() {
        QCOMPARE(CompactTexts::shown(u"игра łódź"_s), u"ИГРА ŁÓDŹ"_s);
    }
    void a_capital_never_makes_the_name_longer_data() {
        QTest::addColumn<int>("first");
        for (int block = 0; block < 0x10000; block += 0x1000) {
            QTest::newRow(qPrintable(QString::number(block, 16))) << block;
        }
    }
    void a_capital_never_makes_the_name_longer() {
        QFETCH(int, first);
        for (int code = first; code < first + 0x1000; ++code) {
            QCOMPARE(CompactTexts::shown(QString(QChar(code))).size(), 1);
        }
    }

    void a_line_of_22_characters_scrolls_and_one_of_21_does_not_data() {
        QTest::addColumn<int>("length");
        QTest::addColumn<bool>("scrolls");
        for (const int length : {0, 1, 15, 16}) QTest::addRow("%d", length) << length << false;
        for (const int length : {17, 21, 22, 255}) QTest::addRow("%d", length) << length << true;
    }
    void a_line_of_22_characters_scrolls_and_one_of_21_does_not() {
        QFETCH(int, length);
        QFETCH(bool, scrolls);
        QCOMPARE(CompactTexts::scrolls(CompactTexts::line(named(length))), scrolls);
    }
    void a_step_takes_the_first_character_to_the_end() {
        QCOMPARE(CompactTexts::advanced(u"ABC"_s), u"BCA"_s);
        QCOMPARE(CompactTexts::advanced(QString()), QString());
    }
    void after_as_many_steps_as_it_has_characters_the_line_is_the_same() {
        const QString line = CompactTexts::line(u"The Extraordinarily Long Voyage"_s);
        QVERIFY(advanced(line, 1) != line);
        QCOMPARE(advanced(line, static_cast<int>(line.size())), line);
    }
    void the_first_21_characters_are_seen() {
        QCOMPARE(CompactTexts::seen(u"123456789012345678901234"_s), u"123456789012345678901"_s);
        QCOMPARE(CompactTexts::seen(u"short"_s), u"short"_s);
    }
    void what_a_reader_takes_for_one_character_is_never_cut() {
        const QString smile = QString::fromUtf8("\U0001F600");
        const QString accented = QString::fromUtf8("n\u0303");
        QCOMPARE(CompactTexts::advanced(smile + u'A'), u'A' + smile);
        QCOMPARE(CompactTexts::advanced(accented + u'A'), u'A' + accented);
        QVERIFY(!CompactTexts::scrolls(smile.repeated(21)));
        QVERIFY(CompactTexts::scrolls(smile.repeated(22)));
        QCOMPARE(CompactTexts::seen(smile.repeated(30)), smile.repeated(21));
    }
    void bytes_that_are_no_utf_8_keep_their_identity() {
        const QString name = NativeText::fromNative("a\xFF\xE9.gb");
        QCOMPARE(NativeText::toNative(CompactTexts::shown(name)), QByteArray("A\xFF\xE9.GB"));
        const QString line = CompactTexts::line(name.repeated(5));
        QCOMPARE(advanced(line, static_cast<int>(line.size())), line);
    }
    void a_right_to_left_name_scrolls_through_all_its_letters() {
        const QString line = CompactTexts::line(u"משחק הרפתקאות ארוך מאוד"_s);
        QVERIFY(CompactTexts::scrolls(line));
        QCOMPARE(advanced(line, static_cast<int>(line.size())), line);
        QCOMPARE(advanced(line, 1).size(), line.size());
    }

    void the_second_piece_of_the_name_gives_the_console_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("console");
        QTest::newRow("gb") << u"a.gb"_s << u"GB Classic"_s;
        QTest::newRow("gba") << u"a.gba"_s << u"GB Advance"_s;
        QTest::newRow("gbc") << u"a.gbc"_s << u"GB Color"_s;
        QTest::newRow("agb") << u"a.agb"_s << u"GB Advance"_s;
        QTest::newRow("cgb") << u"a.cgb"_s << u"GB Color"_s;
        QTest::newRow("zip") << u"a.zip"_s << u"ZIP File"_s;
        QTest::newRow("bin") << u"a.bin"_s << u"GB Advance"_s;
        QTest::newRow("upper case") << u"a.GB"_s << QString();
        QTest::newRow("mixed case") << u"a.Gb"_s << QString();
        QTest::newRow("third piece") << u"a.rev.gb"_s << QString();
        QTest::newRow("second of three") << u"a.gb.old"_s << u"GB Classic"_s;
        QTest::newRow("blank") << u"a.gb "_s << QString();
        QTest::newRow("none") << u"a"_s << QString();
        QTest::newRow("empty") << QString() << QString();
    }
    void the_second_piece_of_the_name_gives_the_console() {
        QFETCH(QString, name);
        QFETCH(QString, console);
        QCOMPARE(CompactTexts::console(name, {}), console);
    }
    void the_end_of_a_whole_name_gives_the_console() {
        const NameCut whole = NameCut::chosen(u"whole"_s);
        QCOMPARE(CompactTexts::console(u"Dr. Mario (V1.1).gb"_s, whole), u"GB Classic"_s);
        QVERIFY(CompactTexts::console(u"a.gb.old"_s, whole).isNull());
    }
    void the_number_has_a_sign_and_zeros_up_to_four_digits_data() {
        QTest::addColumn<int>("place");
        QTest::addColumn<QString>("number");
        QTest::newRow("none") << 0 << u"#0000"_s;
        QTest::newRow("1") << 7 << u"#0007"_s;
        QTest::newRow("2") << 42 << u"#0042"_s;
        QTest::newRow("3") << 123 << u"#0123"_s;
        QTest::newRow("4") << 1234 << u"#1234"_s;
        QTest::newRow("5") << 12345 << u"12345"_s;
        QTest::newRow("first of 6") << 100000 << u"#W0W!"_s;
        QTest::newRow("last of 6") << 999999 << u"#W0W!"_s;
        QTest::newRow("7") << 1234567 << u"1234567"_s;
    }
    void the_number_has_a_sign_and_zeros_up_to_four_digits() {
        QFETCH(int, place);
        QFETCH(QString, number);
        QCOMPARE(CompactTexts::number(place), number);
    }
};

TORVANE_APPLESS_TEST(CompactTextsTest)
#include "CompactTextsTest.moc"
