// SPDX-License-Identifier: MIT
// Patterns of file lists.
#include "platform/base/NamePattern.h"
#include "platform/base/NativeText.h"
#include "support/TestMain.h"

#include <QtTest>

using namespace torvane;

class NamePatternTest : public QObject {
    Q_OBJECT

private slots:
    void a_pattern_matches_data() {
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<bool>("expected");
        const auto row = [](const char* pattern, const char* name, bool expected) {
            QTest::addRow("%s on %s", pattern, name)
                << QString::fromUtf8(pattern) << QByteArray(name) << expected;
        };
        row("", "anything", true);
        row("", "", true);
        row("*", "no dot", true);
        row("*.*", "no dot", true);
        row("*.*", "a.b", true);
        row("*.*;*.gb", "no dot", true);
        row("*.gb", "game.gb", true);
        row("*.gb", "GAME.GB", true);
        row("*.GB", "game.gb", true);
        row("*.gb", "game.gbc", false);
        row("*.gb", "game.gb ", false);
        row("*.gb", "game.gb\n", false);
        row("*.gb", "gb", false);
        row("*.gb", ".gb", true);
        row("*.gb", "a.b.gb", true);
        row("*.gb", "game.gb.zip", false);
        row("*.gb", "Se\xF1or.gb", true);
        row("*.gb;*.gbc;*.gba;*.zip", "a.zip", true);
        row("*.gb;*.gbc;*.gba;*.zip", "a.gba", true);
        row("*.gb;*.gbc;*.gba;*.zip", "a.cgb", false);
        row("*.gb;*.gba;*.gbc;*.cgb;*.agb;*.zip", "a.agb", true);
        row("*.gb;*.gba;*.gbc;*.cgb;*.agb;*.zip", "a.bin", false);
        row(" *.gb ; *.zip ", "a.zip", true);
        row("*.gb;;*.zip;", "a.zip", true);
        row("*.gb;", "a.txt", false);
        row(";", "a.gb", false);
        row("game.gb", "GAME.gb", true);
        row("game.gb", "agame.gb", false);
        row("game.gb", "game.gbx", false);
        row("g?me.gb", "game.gb", true);
        row("g?me.gb", "gme.gb", false);
        row("?", "", false);
        row("???", "ab", false);
        row("a*b*c", "aXXbYYc", true);
        row("a*b*c", "aXXbYYcZ", false);
        row("a*b*c", "abc", true);
        row("*ab", "aab", true);
        row("*a*ab", "xaab", true);
        row("x*aab", "xaaab", true);
        row("x*aab?", "xaaaabz", true);
        row("**.gb", "x.gb", true);
        row("ab*", "ab", true);
        row("ab*", "a", false);
        row("[a].gb", "a.gb", false);
        row("[a].gb", "[A].gb", true);
        row("*.Ñ", "x.ñ", true);
        row("É?.gb", "é1.gb", true);
        row("a.gb", "a\\.gb", false);
        row("?", "\xFF", true);
        row("%s", "%S", true);
    }
    void a_pattern_matches() {
        QFETCH(QString, pattern);
        QFETCH(QByteArray, name);
        QFETCH(bool, expected);
        QCOMPARE(NamePattern(pattern).matches(name), expected);
    }
    void a_letter_that_folds_to_ascii_does_not_match_an_ascii_ending() {
        // The lower case of the kelvin sign is "k".
        QVERIFY(!NamePattern(QStringLiteral("*.k")).matches("x.\xE2\x84\xAA"));
    }
    void bytes_that_are_not_text_stay_distinct_beside_any_letters() {
        const NamePattern pattern(NativeText::fromNative("\xC3\x89\xFE.g?"));
        QVERIFY(pattern.matches("\xC3\xA9\xFE.gb"));
        QVERIFY(!pattern.matches("\xC3\xA9\xFF.gb"));
    }
    void no_pattern_hangs_on_a_long_name() {
        QString pattern;
        for (int i = 0; i < 60; ++i) pattern += QStringLiteral("*a");
        pattern += QStringLiteral("*b");
        // An exhaustive search would take longer than any test may.
        QVERIFY(!NamePattern(pattern).matches(QByteArray(255, 'a')));
    }
};

TORVANE_APPLESS_TEST(NamePatternTest)
#include "NamePatternTest.moc"
