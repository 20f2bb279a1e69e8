// SPDX-License-Identifier: MIT
// Numbers in texts: what counts as one, what does not, and how they are rounded.
#include "platform/base/NumberText.h"
#include "support/Failing.h"
#include "support/TestMain.h"

#include <limits>

using namespace torvane;

class NumberTextTest : public QObject {
    Q_OBJECT

private slots:
    void a_decimal_number_has_a_value_data() {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<double>("value");
        const auto row = [](const char* text, double value) {
            QTest::newRow(text) << QByteArray(text) << value;
        };
        row("0", 0);
        row("3000", 3000);
        row("0003000", 3000);
        row(" 3000 ", 3000);
        row("3000\r\n", 3000);
        row("\t7", 7);
        row("-5", -5);
        row("+5", 5);
        row("1.5", 1.5);
        row("1e3", 1000);
        row("99999999999999", 99999999999999.0);
    }
    void a_decimal_number_has_a_value() {
        QFETCH(QByteArray, text);
        QFETCH(double, value);
        QCOMPARE(NumberText::toReal(text), value);
    }
    void other_texts_are_not_numbers_data() {
        QTest::addColumn<QByteArray>("text");
        for (const char* text : {"", " ", "abc", "12x", "x12", "1 2", "inf", "-inf", "nan", "0x10", "1e999",
                                 "--1", "1,5", "\xB2", "%d", "True", "false"})
            QTest::newRow(text) << QByteArray(text);
        QTest::newRow("trailing zero byte") << QByteArray("12\0", 3);
        QTest::newRow("zero byte inside") << QByteArray("1\0"
                                                        "2",
                                                        3);
        QTest::newRow("no-break space in UTF-8") << QByteArray("1\xC2\xA0");
        QTest::newRow("ten thousand letters") << QByteArray(10000, 'x');
    }
    void other_texts_are_not_numbers() {
        QFETCH(QByteArray, text);
        QCOMPARE(failureOf([&] { (void)NumberText::toReal(text); }), number(RuntimeFailure::typeMismatch));
        QCOMPARE(failureOf([&] { (void)NumberText::toInteger(text); }), number(RuntimeFailure::typeMismatch));
    }
    void halves_are_rounded_to_even_data() {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<int>("value");
        const auto row = [](const char* text, int value) {
            QTest::newRow(text) << QByteArray(text) << value;
        };
        row("0.5", 0);
        row("1.5", 2);
        row("2.5", 2);
        row("-0.5", 0);
        row("-1.5", -2);
        row("2.50001", 3);
        row("2147483647.4", std::numeric_limits<int>::max());
        row("-2147483648.5", std::numeric_limits<int>::min());
    }
    void halves_are_rounded_to_even() {
        QFETCH(QByteArray, text);
        QFETCH(int, value);
        QCOMPARE(NumberText::toInteger(text), value);
    }
    void a_whole_number_outside_32_bits_is_an_overflow() {
        for (const char* text : {"2147483648", "2147483647.5", "-2147483649", "1e300"})
            QCOMPARE(failureOf([&] { (void)NumberText::toInteger(text); }), number(RuntimeFailure::overflow));
    }
    void a_whole_number_outside_16_bits_is_an_overflow() {
        QCOMPARE(NumberText::toShort("32767.4"), 32767);
        QCOMPARE(NumberText::toShort("-32768.5"), -32768);
        for (const char* text : {"32768", "32767.5", "-32769", "1e300"})
            QCOMPARE(failureOf([&] { (void)NumberText::toShort(text); }), number(RuntimeFailure::overflow));
        QCOMPARE(failureOf([&] { (void)NumberText::toShort("x"); }), number(RuntimeFailure::typeMismatch));
    }
};

TORVANE_APPLESS_TEST(NumberTextTest)
#include "NumberTextTest.moc"
