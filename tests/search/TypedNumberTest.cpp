// SPDX-License-Identifier: MIT
// What the number box takes for a number.
#include "search/TypedNumber.h"
#include "SearchModel.h"
#include "support/Failing.h"
#include "support/TestMain.h"

#include <QRandomGenerator>

using namespace torvane;
using namespace Qt::StringLiterals;

namespace {
std::optional<int> failureOfReading(const QString& text) {
    return failureOf([&] { (void)TypedNumber::read(text); });
}
} // namespace

class TypedNumberTest : public QObject {
    Q_OBJECT

private slots:
    void a_number_has_value_row_and_length_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("value");
        QTest::addColumn<int>("row");
        const auto row = [](const QString& text, double value, int number) {
            QTest::addRow("%s", qPrintable(text.left(50))) << text << value << number;
        };
        row(u"7"_s, 7, 7);
        row(u"0"_s, 0, 0);
        row(u"-0"_s, 0, 0);
        row(u"09"_s, 9, 9);
        row(QString(39, u'0') + u'8', 8, 8);
        row(u"+12"_s, 12, 12);
        row(u"-12"_s, -12, -12);
        row(u" 12\t"_s, 12, 12);
        row(u"1e3"_s, 1000, 1000);
        row(u".6"_s, .6, 1);
        row(u"9.5"_s, 9.5, 10);
        row(u"10.5"_s, 10.5, 10);
        row(u"32767"_s, 32767, 32767);
        row(u"32767.4"_s, 32767.4, 32767);
        row(u"-32768"_s, -32768, -32768);
    }
    void a_number_has_value_row_and_length() {
        QFETCH(QString, text);
        QFETCH(double, value);
        QFETCH(int, row);
        const TypedNumber typed = TypedNumber::read(text);
        QCOMPARE(typed.value, value);
        QCOMPARE(typed.row, row);
        QCOMPARE(typed.length, text.size());
    }
    void what_does_not_fit_16_bits_is_an_overflow() {
        for (const QString& text : {u"32768"_s, u"32767.5"_s, u"-32769"_s, u"65536"_s, u"2147483648"_s,
                                    QString(40, u'9'), u'-' + QString(40, u'9')}) {
            QCOMPARE(failureOfReading(text), number(RuntimeFailure::overflow));
        }
    }
    void every_other_text_is_no_number() {
        for (const QString& text :
             {u""_s, u" "_s, u"abc"_s, u"12x"_s, u"x12"_s, u"1 2"_s, u"1,5"_s, u"0x10"_s, u"&H10"_s, u"--1"_s,
              u"inf"_s, u"nan"_s, u"١٢"_s, u"１２"_s, u"12\u00A0"_s, u"½"_s, QString(QChar(0)) + u'1',
              u'1' + QString(400, u'0')}) {
            QVERIFY2(failureOfReading(text) == number(RuntimeFailure::typeMismatch), qPrintable(text));
        }
    }
    void texts_of_up_to_40_characters_are_read_as_by_the_model() {
        QRandomGenerator random(8);
        const QString letters = u"0123456789012345678901234567890123456789+- .e"_s;
        int numbers = 0;
        for (int i = 0; i < 5000; ++i) {
            QString text;
            for (int length = random.bounded(i % 2 == 0 ? 6 : 41); length > 0; --length) {
                text += letters[random.bounded(int(letters.size()))];
            }
            const std::optional<double> expected = SearchModel::valueOf(text.toStdString());
            const bool isRead = !failureOfReading(text).has_value();
            QVERIFY2(isRead == expected.has_value(), qPrintable(text));
            if (!isRead) continue;
            QCOMPARE(TypedNumber::read(text).value, *expected);
            QCOMPARE(TypedNumber::read(text).row, static_cast<int>(std::rint(*expected)));
            ++numbers;
        }
        QVERIFY(numbers > 500);
    }
};

TORVANE_APPLESS_TEST(TypedNumberTest)
#include "TypedNumberTest.moc"
