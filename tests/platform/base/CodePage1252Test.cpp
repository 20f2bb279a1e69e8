// SPDX-License-Identifier: MIT
// The 8-bit text of data files: every byte round-trips, and characters have their bytes in the code page.
#include "platform/base/CodePage1252.h"
#include "support/TestMain.h"

#include <QSet>
#include <QtTest>

using namespace torvane;

class CodePage1252Test : public QObject {
    Q_OBJECT

private slots:
    void all_256_bytes_give_different_characters_and_round_trip() {
        QSet<QChar> seen;
        for (int i = 0; i < 256; ++i) {
            const QByteArray byte(1, static_cast<char>(i));
            const QString text = CodePage1252::fromBytes(byte);
            QCOMPARE(text.size(), 1);
            seen.insert(text.front());
            QCOMPARE(CodePage1252::toBytes(text), byte);
            QVERIFY(CodePage1252::holds(text));
        }
        QCOMPARE(seen.size(), 256);
    }
    void a_byte_is_read_as_its_character_data() {
        QTest::addColumn<int>("byte");
        QTest::addColumn<int>("character");
        const auto row = [](const char* name, int byte, int character) {
            QTest::newRow(name) << byte << character;
        };
        row("zero", 0x00, 0x0000);
        row("letter", 'A', 'A');
        row("last of ASCII", 0x7F, 0x7F);
        row("euro", 0x80, 0x20AC);
        row("undefined 81", 0x81, 0x0081);
        row("low quote", 0x82, 0x201A);
        row("florin", 0x83, 0x0192);
        row("low double quote", 0x84, 0x201E);
        row("ellipsis", 0x85, 0x2026);
        row("dagger", 0x86, 0x2020);
        row("double dagger", 0x87, 0x2021);
        row("circumflex", 0x88, 0x02C6);
        row("per mille", 0x89, 0x2030);
        row("S caron", 0x8A, 0x0160);
        row("left angle", 0x8B, 0x2039);
        row("OE", 0x8C, 0x0152);
        row("undefined 8D", 0x8D, 0x008D);
        row("Z caron", 0x8E, 0x017D);
        row("undefined 8F", 0x8F, 0x008F);
        row("undefined 90", 0x90, 0x0090);
        row("left quote", 0x91, 0x2018);
        row("right quote", 0x92, 0x2019);
        row("left double quote", 0x93, 0x201C);
        row("right double quote", 0x94, 0x201D);
        row("bullet", 0x95, 0x2022);
        row("en dash", 0x96, 0x2013);
        row("em dash", 0x97, 0x2014);
        row("tilde", 0x98, 0x02DC);
        row("trade mark", 0x99, 0x2122);
        row("s caron", 0x9A, 0x0161);
        row("right angle", 0x9B, 0x203A);
        row("oe", 0x9C, 0x0153);
        row("undefined 9D", 0x9D, 0x009D);
        row("z caron", 0x9E, 0x017E);
        row("Y diaeresis", 0x9F, 0x0178);
        row("no-break space", 0xA0, 0x00A0);
        row("section sign", 0xA7, 0x00A7);
        row("a diaeresis", 0xE4, 0x00E4);
        row("n tilde", 0xF1, 0x00F1);
        row("o diaeresis", 0xF6, 0x00F6);
        row("last", 0xFF, 0x00FF);
    }
    void a_byte_is_read_as_its_character() {
        QFETCH(int, byte);
        QFETCH(int, character);
        const QByteArray bytes(1, static_cast<char>(byte));
        const QString text(QChar(static_cast<char16_t>(character)));
        QCOMPARE(CodePage1252::fromBytes(bytes), text);
        QCOMPARE(CodePage1252::toBytes(text), bytes);
    }
    void a_character_outside_the_code_page_becomes_a_question_mark_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("Greek") << QStringLiteral("aΩb") << QByteArray("a?b");
        QTest::newRow("Japanese") << QStringLiteral("ポケ") << QByteArray("??");
        QTest::newRow("the character in front of the euro") << QStringLiteral("\u20AB") << QByteArray("?");
        QTest::newRow("the control that the euro's byte would be")
            << QStringLiteral("\u0080") << QByteArray("?");
        QTest::newRow("beyond the last byte") << QStringLiteral("\u0100") << QByteArray("?");
        QTest::newRow("outside the basic plane: one for each half")
            << QStringLiteral("😀") << QByteArray("??");
        QTest::newRow("half a pair") << QString(QChar(0xD800)) << QByteArray("?");
    }
    void a_character_outside_the_code_page_becomes_a_question_mark() {
        QFETCH(QString, text);
        QFETCH(QByteArray, bytes);
        QCOMPARE(CodePage1252::toBytes(text), bytes);
        QVERIFY(!CodePage1252::holds(text));
    }
    void one_character_outside_the_code_page_is_enough() {
        QVERIFY(CodePage1252::holds(QStringLiteral("¿Señor? – 5 €")));
        QVERIFY(!CodePage1252::holds(QStringLiteral("¿Señor? – 5 ₧")));
        QVERIFY(CodePage1252::holds(QStringLiteral("?")));
    }
    void empty_text_is_empty_in_both_directions() {
        QCOMPARE(CodePage1252::fromBytes(QByteArray()), QString());
        QCOMPARE(CodePage1252::toBytes(QString()), QByteArray());
        QVERIFY(CodePage1252::holds(QString()));
    }
    void zero_bytes_line_ends_and_utf8_bytes_are_like_other_bytes() {
        const QByteArray bytes("a\0b\r\n\xC3\xA9\xEF\xBB\xBF", 10);
        const QString text = CodePage1252::fromBytes(bytes);
        QCOMPARE(text.size(), bytes.size());
        QCOMPARE(text.right(3), QStringLiteral("ï»¿"));
        QCOMPARE(CodePage1252::toBytes(text), bytes);
    }
    void letters_become_their_capitals_in_the_code_page_and_all_else_stays() {
        for (int i = 0; i < 256; ++i) {
            const QByteArray byte(1, static_cast<char>(i));
            const QString letter = CodePage1252::fromBytes(byte);
            const QString capital = letter.toUpper();
            const bool hasCapital = capital.size() == 1 && CodePage1252::holds(capital);
            QCOMPARE(CodePage1252::fromBytes(CodePage1252::upper(byte)), hasCapital ? capital : letter);
        }
    }
    void sharp_s_micro_and_the_hooked_f_stay_in_upper_case() {
        QCOMPARE(CodePage1252::upper(QByteArrayView("\xDF\xB5\x83\xF7\xAA")),
                 QByteArray("\xDF\xB5\x83\xF7\xAA"));
        QCOMPARE(CodePage1252::upper(QByteArrayView("az\xE0\xF6\xF8\xFE\xFF\x9A\x9C\x9E")),
                 QByteArray("AZ\xC0\xD6\xD8\xDE\x9F\x8A\x8C\x8E"));
        QCOMPARE(CodePage1252::upper(QByteArrayView()), QByteArray());
    }
};

TORVANE_APPLESS_TEST(CodePage1252Test)
#include "CodePage1252Test.moc"
