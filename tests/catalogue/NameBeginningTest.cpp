// SPDX-License-Identifier: MIT
// Beginnings of file names, in any case.
#include "catalogue/NameBeginning.h"
#include "platform/base/CodePage1252.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class NameBeginningTest : public QObject {
    Q_OBJECT

    static bool fits(const QString& beginning, const QByteArray& name) {
        return NameBeginning(beginning).fits(name);
    }

private slots:
    void only_the_beginning_counts() {
        QVERIFY(fits(u"tet"_s, "tetris.gb"));
        QVERIFY(!fits(u"tet"_s, "super tetris.gb"));
        QVERIFY(!fits(u"tet"_s, "te"));
        QVERIFY(fits(u"tetris.gb"_s, "tetris.gb"));
        QVERIFY(!fits(u"tetris.gbc"_s, "tetris.gb"));
        QVERIFY(fits(QString(), "anything"));
        QVERIFY(!fits(u"x"_s, ""));
    }
    void every_letter_of_the_code_page_fits_both_its_cases() {
        for (int code = 1; code < 256; ++code) {
            const auto byte = static_cast<char>(code);
            const char capital = CodePage1252::upper(byte);
            const QString letter = CodePage1252::fromBytes({&byte, 1});
            const QString upper = CodePage1252::fromBytes({&capital, 1});
            QVERIFY2(fits(letter, upper.toUtf8()), qPrintable(letter));
            QVERIFY2(fits(upper, letter.toUtf8()), qPrintable(letter));
            QVERIFY2(fits(letter, letter.toUtf8()), qPrintable(letter));
        }
    }
    void letters_without_a_capital_in_the_code_page_fit_themselves_alone() {
        QVERIFY(!fits(u"ss"_s, "ß"));
        QVERIFY(!fits(u"ß"_s, "SS"));
        QVERIFY(!fits(u"ß"_s, "ẞ"));
        QVERIFY(!fits(u"µ"_s, "Μ"));
        QVERIFY(!fits(u"÷"_s, "×"));
        QVERIFY(!fits(u"e"_s, "é"));
    }
    void letters_outside_the_code_page_have_their_cases_too() {
        QVERIFY(fits(u"тет"_s, "Тетрис.gb"));
        QVERIFY(fits(u"ΤΕΤ"_s, "τετρις.gb"));
        QVERIFY(fits(u"ポケ"_s, "ポケモン.gb"));
        QVERIFY(!fits(u"ポケ"_s, "ボケモン.gb"));
        QVERIFY(!fits(u"ı"_s, "I.gb"));
        QVERIFY(!fits(u"\u212A"_s, "k.gb"));
    }
    void cases_of_different_lengths_are_compared_to_their_ends() {
        // U+2C65 takes three bytes, its capital U+023A two.
        QVERIFY(fits(u"\u2C65b"_s, "\u023AB.gb"));
        QVERIFY(fits(u"\u023Ab"_s, "\u2C65B.gb"));
        QVERIFY(!fits(u"\u023Ac"_s, "\u2C65B.gb"));
    }
    void pairs_and_foreign_bytes_are_compared_as_they_are() {
        QVERIFY(fits(u"🎮x"_s, "🎮X.gb"));
        QVERIFY(!fits(u"🎮"_s, "🎯.gb"));
        QVERIFY(fits(u"ab"_s, "aB\xF1.gb"));
        QVERIFY(!fits(u"abñ"_s, "ab\xF1.gb"));
        QVERIFY(fits(u"a\\b"_s, "a\\b.gb"));
        QVERIFY(!fits(u"a*"_s, "abc"));
        QVERIFY(!fits(u"?"_s, "abc"));
    }
};

TORVANE_APPLESS_TEST(NameBeginningTest)
#include "NameBeginningTest.moc"
