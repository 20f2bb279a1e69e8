// SPDX-License-Identifier: MIT
// File names between bytes and text: all bytes round-trip.
#include "platform/base/NativeText.h"
#include "support/TestMain.h"

#include <QtTest>
#include <random>

using namespace torvane;

class NativeTextTest : public QObject {
    Q_OBJECT

private slots:
    void a_name_is_shown_as_its_text_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("text");
        QTest::newRow("plain") << QByteArray("game.gb") << QStringLiteral("game.gb");
        QTest::newRow("empty") << QByteArray() << QString();
        QTest::newRow("UTF-8 of two bytes") << QByteArray("Se\xC3\xB1or") << QStringLiteral("Señor");
        QTest::newRow("of three bytes") << QByteArray("\xE3\x83\x9D") << QStringLiteral("ポ");
        QTest::newRow("of four bytes") << QByteArray("\xF0\x9F\x98\x80") << QStringLiteral("😀");
        QTest::newRow("last character of all")
            << QByteArray("\xF4\x8F\xBF\xBF") << QStringLiteral("\U0010FFFF");
        QTest::newRow("byte order mark in front")
            << QByteArray("\xEF\xBB\xBFgame") << QStringLiteral("\uFEFFgame");
        QTest::newRow("byte order mark inside")
            << QByteArray("a\xEF\xBB\xBF.gb") << QStringLiteral("a\uFEFF.gb");
        QTest::newRow("signs of other languages than ours")
            << QByteArray("a b\n%s\"'$(x).gb") << QStringLiteral("a b\n%s\"'$(x).gb");
    }
    void a_name_is_shown_as_its_text() {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, text);
        QCOMPARE(NativeText::fromNative(bytes), text);
        QCOMPARE(NativeText::toNative(text), bytes);
    }
    void bytes_that_are_not_utf8_are_escaped_one_by_one_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("8-bit text") << QByteArray("Se\xF1or");
        QTest::newRow("lone continuation") << QByteArray("\x80");
        QTest::newRow("lead without continuation") << QByteArray("\xC3");
        QTest::newRow("lead and letter") << QByteArray("\xE3\x41");
        QTest::newRow("cut sequence of three") << QByteArray("\xE3\x83");
        QTest::newRow("cut sequence of four") << QByteArray("\xF0\x9F\x98");
        QTest::newRow("overlong slash") << QByteArray("\xC0\xAF");
        QTest::newRow("overlong of three") << QByteArray("\xE0\x9F\xBF");
        QTest::newRow("overlong of four") << QByteArray("\xF0\x8F\xBF\xBF");
        QTest::newRow("surrogate as UTF-8") << QByteArray("\xED\xA0\x80");
        QTest::newRow("the escape itself as UTF-8") << QByteArray("\xED\xB2\x80");
        QTest::newRow("beyond the last character") << QByteArray("\xF4\x90\x80\x80");
        QTest::newRow("lead that never occurs") << QByteArray("\xF5\x80\x80\x80");
        QTest::newRow("FE FF") << QByteArray("\xFE\xFF");
    }
    void bytes_that_are_not_utf8_are_escaped_one_by_one() {
        QFETCH(QByteArray, bytes);
        const QString text = NativeText::fromNative(bytes);
        QCOMPARE(text.size(), bytes.size());
        for (qsizetype i = 0; i < bytes.size(); ++i) {
            const uchar byte = static_cast<uchar>(bytes[i]);
            QCOMPARE(text[i].unicode(), byte < 0x80 ? byte : 0xDC00 + byte);
        }
        QCOMPARE(NativeText::toNative(text), bytes);
    }
    void a_backslash_inside_a_name_is_no_separator_and_round_trips() {
        const QString text = NativeText::fromNative("a\\b.gb");
        QVERIFY(!text.contains(QLatin1Char('\\')));
        QCOMPARE(text, QStringLiteral("a") + QChar(0xDC5C) + QStringLiteral("b.gb"));
        QCOMPARE(NativeText::toNative(text), QByteArray("a\\b.gb"));
    }
    void a_separator_that_the_program_wrote_stays_a_backslash() {
        QCOMPARE(NativeText::toNative(QStringLiteral("\\roms")), QByteArray("\\roms"));
    }
    void a_stray_surrogate_becomes_a_question_mark_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QByteArray>("bytes");
        const QChar high(0xD83D);
        QTest::newRow("high one at the end") << QString(high) << QByteArray("?");
        QTest::newRow("high one and a letter") << high + QStringLiteral("a") << QByteArray("?a");
        QTest::newRow("low one below the escapes") << QString(QChar(0xDC7F)) << QByteArray("?");
        QTest::newRow("low one above the escapes") << QString(QChar(0xDD00)) << QByteArray("?");
        QTest::newRow("escape of a plain letter") << QString(QChar(0xDC41)) << QByteArray("?");
        QTest::newRow("first escape") << QString(QChar(0xDC80)) << QByteArray("\x80");
        QTest::newRow("last escape") << QString(QChar(0xDCFF)) << QByteArray("\xFF");
    }
    void a_stray_surrogate_becomes_a_question_mark() {
        QFETCH(QString, text);
        QFETCH(QByteArray, bytes);
        QCOMPARE(NativeText::toNative(text), bytes);
    }
    void folding_ignores_case_and_nothing_else_data() {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QByteArray>("folded");
        QTest::newRow("plain") << QByteArray("Game.GB") << QByteArray("game.gb");
        QTest::newRow("empty") << QByteArray() << QByteArray();
        QTest::newRow("other letters") << QByteArray("ÀÑ") << QByteArray("àñ");
        QTest::newRow("a letter of two forms") << QByteArray("Σσς") << QByteArray("σσσ");
        QTest::newRow("four bytes") << QByteArray("\xF0\x90\x90\x80") << QByteArray("\xF0\x90\x90\xA8");
        QTest::newRow("not text after letters") << QByteArray("ÀB\xFE") << QByteArray("àb\xFE");
        QTest::newRow("no text between letters") << QByteArray("A\xFE\xFF\\B") << QByteArray("a\xFE\xFF\\b");
    }
    void folding_ignores_case_and_nothing_else() {
        QFETCH(QByteArray, name);
        QFETCH(QByteArray, folded);
        QCOMPARE(NativeText::toNative(NativeText::folded(NativeText::fromNative(name))), folded);
    }
    void all_names_of_two_bytes_round_trip() {
        for (int first = 1; first < 256; ++first) {
            for (int second = 1; second < 256; ++second) {
                const char pair[] = {static_cast<char>(first), static_cast<char>(second)};
                const QByteArray bytes(pair, 2);
                QCOMPARE(NativeText::toNative(NativeText::fromNative(bytes)), bytes);
            }
        }
    }
    void any_bytes_round_trip() {
        std::mt19937 random(5);
        // Bytes near the limits of UTF-8 occur far more often than by chance.
        const QByteArray limits(
            "\x7F\x80\x8F\x90\x9F\xA0\xBB\xBF\xC0\xC1\xC2\xDF\xE0\xED\xEF\xF0\xF4\xF5\xFF\\");
        for (int round = 0; round < 20000; ++round) {
            QByteArray bytes(static_cast<qsizetype>(random() % 12), '\0');
            for (char& c : bytes) {
                c = random() % 4 == 0 ? static_cast<char>(1 + random() % 255)
                                      : limits[static_cast<qsizetype>(random() % limits.size())];
            }
            QCOMPARE(NativeText::toNative(NativeText::fromNative(bytes)), bytes);
        }
    }
};

TORVANE_APPLESS_TEST(NativeTextTest)
#include "NativeTextTest.moc"
