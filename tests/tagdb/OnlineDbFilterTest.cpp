// SPDX-License-Identifier: MIT
// The tests of the filter: system, title, company, author and kind. EntryAgeTest has that of the date.
#include "FilteredRows.h"
#include "support/TestMain.h"

#include <vector>

using namespace torvane;
using namespace Qt::StringLiterals;

class OnlineDbFilterTest : public QObject {
    Q_OBJECT

    static OnlineDbFilter gameFilter(const QString& text) {
        OnlineDbFilter filter;
        filter.game = text;
        return filter;
    }
    static bool passes(const QByteArray& title, const QString& text) {
        return filtered(lineOf("byn", title) + "\r\n", gameFilter(text))->count() == 1;
    }

private slots:
    // System
    void each_box_shows_the_entries_of_its_console_data() {
        QTest::addColumn<int>("boxes");
        for (int boxes = 0; boxes < 8; ++boxes) QTest::addRow("boxes %d", boxes) << boxes;
    }
    void each_box_shows_the_entries_of_its_console() {
        QFETCH(int, boxes);
        OnlineDbFilter filter;
        filter.GB_CL = (boxes & 1) != 0;
        filter.GB_CO = (boxes & 2) != 0;
        filter.GB_AD = (boxes & 4) != 0;
        QStringList expected;
        if (filter.GB_CL) expected << u"classic"_s;
        if (filter.GB_CO) expected << u"colour"_s;
        if (filter.GB_AD) expected << u"advance"_s;
        QCOMPARE(titles(lineOf("byn", "classic") + "\r\n" + lineOf("color", "colour") + "\r\n" +
                            lineOf("advance", "advance") + "\r\n",
                        filter),
                 expected);
    }
    void an_entry_of_the_system_no_passes_whenever_a_box_is_unticked() {
        const QByteArray file = lineOf("no", "none") + "\r\n";
        QCOMPARE(titles(file), QStringList());
        for (bool OnlineDbFilter::*box :
             {&OnlineDbFilter::GB_CL, &OnlineDbFilter::GB_CO, &OnlineDbFilter::GB_AD}) {
            OnlineDbFilter filter;
            filter.*box = false;
            QCOMPARE(titles(file, filter), QStringList{u"none"_s});
            QCOMPARE(filtered(file, filter)->icon(0), 0);
        }
        OnlineDbFilter none;
        none.GB_CL = none.GB_CO = none.GB_AD = false;
        QCOMPARE(titles(lineOf("byn", "a") + "\r\n" + file, none), QStringList{u"none"_s});
    }
    void only_the_exact_system_word_passes_data() {
        QTest::addColumn<QByteArray>("word");
        for (const char* word : {"ADVANCE", "Byn", "COLOR", "by", "bynn", "byn ", " byn", "b", "colo",
                                 "colors", "advanc", "advance2", "NO", "n", "noo", "bynno", "color\t"})
            QTest::newRow(word) << QByteArray(word);
        QTest::newRow("with a zero byte") << QByteArray("byn\0", 4);
        QTest::newRow("empty") << QByteArray();
    }
    void only_the_exact_system_word_passes() {
        QFETCH(QByteArray, word);
        OnlineDbFilter someUnticked;
        someUnticked.GB_AD = false;
        for (const OnlineDbFilter& filter : {OnlineDbFilter(), someUnticked}) {
            QCOMPARE(titles(lineOf(word, "a") + "\r\n", filter), QStringList());
            QCOMPARE(titles(word + "\r\n", filter), QStringList());
            QCOMPARE(titles(word, filter), QStringList());
        }
    }

    // Texts
    void an_empty_box_filters_nothing() { QCOMPARE(titles(lineOf("byn", "")), QStringList{QString()}); }
    void a_title_matches_as_a_whole_without_regard_to_case() {
        QVERIFY(passes("TETRIS", u"tetris"_s));
        QVERIFY(passes("tetris", u"TETRIS"_s));
        QVERIFY(passes("Tetris", u"tETRIS"_s));
        QVERIFY(!passes("Tetris DX", u"tetris"_s));
        QVERIFY(!passes("Tetri", u"tetris"_s));
        QVERIFY(!passes("My Tetris", u"tetris"_s));
        QVERIFY(!passes("", u"tetris"_s));
    }
    void nothing_is_trimmed() {
        QVERIFY(!passes("Tetris ", u"tetris"_s));
        QVERIFY(!passes(" Tetris", u"tetris"_s));
        QVERIFY(!passes("Tetris", u"tetris "_s));
        QVERIFY(passes(" Tetris ", u" tetris "_s));
        QVERIFY(!passes("", u" "_s));
        QVERIFY(passes(" ", u" "_s));
    }
    void signs_of_patterns_mean_themselves() {
        QVERIFY(passes("*", u"*"_s));
        QVERIFY(!passes("Tetris", u"*"_s));
        QVERIFY(!passes("Tetris", u"T?tris"_s));
        QVERIFY(passes("100% [a] \\ .", u"100% [A] \\ ."_s));
    }
    void letters_with_a_capital_in_the_code_page_match_it_data() {
        QTest::addColumn<QByteArray>("title");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("passes");
        const auto row = [](const char* name, const char* title, const char* text, bool passes) {
            QTest::newRow(name) << QByteArray(title) << QString::fromUtf8(text) << passes;
        };
        row("n tilde",
            "Espa\xD1"
            "a",
            "españa", true);
        row("e acute", "Pok\xE9mon", "POKÉMON", true);
        row("y diaeresis", "\x9F", "ÿ", true);
        row("s caron", "\x9A", "Š", true);
        row("z caron", "\x8E", "ž", true);
        row("oe", "\x9C", "Œ", true);
        row("thorn", "\xFE", "Þ", true);
        row("not without its accent", "Pok\xE9mon", "pokemon", false);
        row("sharp s", "\xDF", "ß", true);
        row("sharp s is not ss", "\xDF", "SS", false);
        row("sharp s is not y diaeresis", "\xDF", "ÿ", false);
        row("micro", "\xB5", "µ", true);
        row("hooked f", "\x83", "ƒ", true);
        row("hooked f is not f", "\x83", "F", false);
        row("division is not multiplication", "\xF7", "×", false);
    }
    void letters_with_a_capital_in_the_code_page_match_it() {
        QFETCH(QByteArray, title);
        QFETCH(QString, text);
        QTEST(passes(title, text), "passes");
    }
    void a_text_that_the_code_page_cannot_hold_equals_nothing() {
        QVERIFY(!passes("?", u"\u4E2D"_s));
        QVERIFY(!passes("Tetris?", u"tetris\u4E2D"_s));
        QVERIFY(passes("?", u"?"_s));
    }
    void a_text_with_a_separator_or_a_line_end_equals_nothing() {
        QVERIFY(!passes("Tetris", u"Tetris§Acme"_s));
        QVERIFY(!passes("", u"§"_s));
        QVERIFY(!filtered("byn\xA7Tetris\nbyn", gameFilter(u"Tetris\nbyn"_s))->count());
        QVERIFY(!filtered("byn\xA7Tetris\rx", gameFilter(u"Tetris\rx"_s))->count());
    }
    void company_and_author_match_like_the_title() {
        const QByteArray file = line({"byn", "a", "Acme", "d", "i", "USER", "Jos\xE9"}) + "\r\n" +
                                line({"byn", "b", "Acme Soft", "d", "i", "USER", "Jos"}) + "\r\n";
        OnlineDbFilter company;
        company.company = u"ACME"_s;
        QCOMPARE(titles(file, company), QStringList{u"a"_s});
        OnlineDbFilter author;
        author.author = u"josÉ"_s;
        QCOMPARE(titles(file, author), QStringList{u"a"_s});
        author.author = u"a"_s;
        QCOMPARE(titles(file, author), QStringList());
    }
    void all_tests_have_to_pass() {
        OnlineDbFilter filter;
        filter.game = u"a"_s;
        filter.company = u"acme"_s;
        filter.author = u"somebody"_s;
        filter.kind = OnlineDbFilter::Kind::system;
        filter.date = u"8695"_s;
        const QByteArray file = lineOf("byn", "A") + "\r\n";
        QCOMPARE(titles(file, filter), QStringList{u"A"_s});
        for (QString OnlineDbFilter::*box : {&OnlineDbFilter::game, &OnlineDbFilter::company,
                                             &OnlineDbFilter::author, &OnlineDbFilter::date}) {
            OnlineDbFilter other = filter;
            other.*box = u"8"_s;
            QCOMPARE(titles(file, other), QStringList());
        }
    }
    void inherited_values_are_tested_like_own_ones() {
        const QByteArray file = lineOf("unknown", "Tetris") + "\r\nbyn\r\nbyn\xA7Other\r\nbyn\r\n";
        QCOMPARE(titles(file, gameFilter(u"tetris"_s)), QStringList{u"Tetris"_s});
        QCOMPARE(titles(file, gameFilter(u"other"_s)), (QStringList{u"Other"_s, u"Other"_s}));
        OnlineDbFilter author;
        author.author = u"SOMEBODY"_s;
        QCOMPARE(filtered(file, author)->count(), 3);
    }

    // Kind
    void a_kind_in_any_case_is_shown_in_capitals() {
        const auto rows = filtered(line({"byn", "t", "c", "d", "i", "user\xE9", "a"}) + "\r\nbyn\r\n");
        QCOMPARE(column(*rows, 3), (QStringList{u"USERÉ"_s, u"USERÉ"_s}));
        QCOMPARE(rows->entry(1).Kind, QByteArray("USER\xC9"));
    }
    void a_kind_passes_under_its_own_option_and_under_all_data() {
        QTest::addColumn<QByteArray>("kind");
        QTest::addColumn<bool>("isSystem");
        QTest::addColumn<bool>("isUser");
        QTest::newRow("SYSTEM") << QByteArray("SYSTEM") << true << false;
        QTest::newRow("System") << QByteArray("System") << true << false;
        QTest::newRow("USER") << QByteArray("USER") << false << true;
        QTest::newRow("user") << QByteArray("user") << false << true;
        QTest::newRow("unknown") << QByteArray("robot") << false << false;
        QTest::newRow("ALL") << QByteArray("ALL") << false << false;
        QTest::newRow("empty") << QByteArray() << false << false;
        QTest::newRow("blank behind") << QByteArray("USER ") << false << false;
    }
    void a_kind_passes_under_its_own_option_and_under_all() {
        QFETCH(QByteArray, kind);
        const QByteArray file = line({"byn", "t", "c", "d", "i", kind, "a"}) + "\r\n";
        OnlineDbFilter filter;
        QCOMPARE(filtered(file, filter)->count(), 1);
        filter.kind = OnlineDbFilter::Kind::system;
        QTEST(filtered(file, filter)->count() == 1, "isSystem");
        filter.kind = OnlineDbFilter::Kind::user;
        QTEST(filtered(file, filter)->count() == 1, "isUser");
    }
};

TORVANE_APPLESS_TEST(OnlineDbFilterTest)
#include "OnlineDbFilterTest.moc"
