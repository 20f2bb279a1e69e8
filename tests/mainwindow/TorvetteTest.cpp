// SPDX-License-Identifier: MIT
// What the compact window shows: its line, its data, its look at load.
#include "support/CutCaptions.h"
#include "support/LanguageRows.h"
#include "support/OpenedCompact.h"
#include "support/TestMain.h"

#include <QAccessible>

using namespace torvane;
using namespace Qt::StringLiterals;

class TorvetteTest : public QObject {
    Q_OBJECT

    std::unique_ptr<OpenedCompact> opened;
    Torvette& window() const { return opened->compact(); }
    FakeMessages& messages() const { return opened->world.messages; }
    void openWith(const QString& title) {
        opened->tagged(u"a.gb"_s, title);
        opened->openCompact();
    }

private slots:
    void init() { opened = std::make_unique<OpenedCompact>(); }
    void cleanup() { opened.reset(); }

    void it_takes_the_place_of_the_main_window() {
        opened->games(1);
        opened->openCompact();
        QVERIFY(opened->isCompact());
        QVERIFY(opened->program->loaded<MainFrm>() != nullptr);
    }
    void the_line_at_load_is_that_of_the_selected_game() {
        opened->tagged(u"a.gb"_s, u"One"_s);
        opened->tagged(u"b.gb"_s, u"Two more"_s);
        opened->open();
        opened->chooseRow(1);
        click(opened->main().ChameleonButton12);
        QCOMPARE(opened->line(), u"TWO MORE ··· "_s);
    }
    // The load knows the words for a missing title in one language alone; a step asks the language.
    void without_a_title_load_and_step_differ_outside_of_spanish_data() {
        QTest::addColumn<QString>("atLoad");
        QTest::addColumn<QString>("afterStep");
        QTest::newRow("eng") << u"NOT AVAILABLE ··· "_s << u"G002.GB ··· "_s;
        QTest::newRow("esp") << u"G001.GB ··· "_s << u"G002.GB ··· "_s;
        QTest::newRow("cat") << u"G001.GB ··· "_s << u"G002.GB ··· "_s;
    }
    void without_a_title_load_and_step_differ_outside_of_spanish() {
        QFETCH(QString, atLoad);
        QFETCH(QString, afterStep);
        opened->world.useLanguage(QTest::currentDataTag());
        opened->games(2);
        opened->openCompact();
        QCOMPARE(opened->line(), atLoad);
        opened->next();
        QCOMPARE(opened->line(), afterStep);
    }
    void a_refresh_compares_with_the_same_words_as_the_load() {
        opened->games(2);
        opened->openCompact();
        opened->next();
        QCOMPARE(opened->line(), u"G002.GB ··· "_s);
        window().RefreshMyList();
        QCOMPARE(opened->line(), u"NOT AVAILABLE ··· "_s);
    }
    void a_title_in_those_very_words_counts_as_none() {
        openWith(u"No disponible"_s);
        QCOMPARE(opened->line(), u"A.GB ··· "_s);
        opened->tick();
        QCOMPARE(opened->shown(), u"NO DISPONIBLE"_s);
    }

    // The timer
    void the_line_appears_at_the_first_tick() {
        openWith(u"Two more"_s);
        QCOMPARE(opened->shown(), QString());
        opened->tick();
        QCOMPARE(opened->shown(), u"TWO MORE"_s);
    }
    void a_long_line_moves_by_one_character_each_tick() {
        openWith(u"A name of 17 char"_s);
        opened->tick();
        QCOMPARE(opened->line(), u" NAME OF 17 CHAR ··· A"_s);
        QCOMPARE(opened->shown(), u" NAME OF 17 CHAR ··· "_s);
        opened->tick();
        QCOMPARE(opened->shown(), u"NAME OF 17 CHAR ··· A"_s);
        for (int i = 2; i < 22; ++i) opened->tick();
        QCOMPARE(opened->line(), u"A NAME OF 17 CHAR ··· "_s);
    }
    void a_name_of_16_characters_does_not_scroll_and_has_no_dots() {
        openWith(u"A name of 16 cha"_s);
        QCOMPARE(opened->line().size(), 21);
        for (int i = 0; i < 3; ++i) opened->tick();
        QCOMPARE(opened->shown(), u"A NAME OF 16 CHA"_s);
        QCOMPARE(opened->line(), u"A NAME OF 16 CHA ··· "_s);
    }
    void a_short_line_follows_the_main_window_and_not_its_own_text() {
        opened->tagged(u"a.gb"_s, u"One"_s);
        opened->tagged(u"b.gb"_s, u"A name that is much longer than the line"_s);
        opened->openCompact();
        opened->program->shelf.select(1);
        opened->tick();
        // The whole name is there; the label cuts it.
        QCOMPARE(opened->shown(), u"A NAME THAT IS MUCH LONGER THAN THE LINE"_s);
        QCOMPARE(opened->line(), u"ONE ··· "_s);
    }
    void a_scrolling_line_does_not_follow_the_main_window() {
        opened->tagged(u"a.gb"_s, u"A name of 17 char"_s);
        opened->tagged(u"b.gb"_s, u"Two"_s);
        opened->openCompact();
        opened->program->shelf.select(1);
        opened->tick();
        QCOMPARE(opened->shown(), u" NAME OF 17 CHAR ··· "_s);
    }
    void a_short_line_without_a_title_is_the_file_name_in_every_language_data() { languageRows(); }
    void a_short_line_without_a_title_is_the_file_name_in_every_language() {
        QFETCH(QByteArray, language);
        opened->world.useLanguage(language.constData());
        opened->games(1);
        opened->openCompact();
        opened->tick();
        QCOMPARE(opened->shown(), u"G001.GB"_s);
    }
    void the_timer_ticks_every_half_second_while_the_window_is_seen() {
        opened->games(1);
        opened->open();
        click(opened->main().ChameleonButton12);
        QCOMPARE(window().Timer1.Interval(), 500);
        QVERIFY(window().Timer1.Enabled());
        QTRY_COMPARE(opened->shown(), u"G001.GB"_s);
    }
    void the_timer_rests_while_the_window_is_hidden_or_minimised() {
        opened->games(1);
        opened->openCompact();
        window().setWindowStateWord(Form::minimised);
        QVERIFY(!window().Timer1.Enabled());
        window().setWindowStateWord(Form::normal);
        QVERIFY(window().Timer1.Enabled());
        window().Hide();
        QVERIFY(!window().Timer1.Enabled());
        window().Show();
        QVERIFY(window().Timer1.Enabled());
    }
    void a_window_that_was_never_shown_has_no_running_timer() {
        opened->games(1);
        opened->open();
        QVERIFY(!opened->program->load<Torvette>()->Timer1.Enabled());
    }

    // The data
    void the_data_are_those_of_the_selected_game() {
        opened->tagged(u"a.gbc"_s, u"One"_s, u"Tin & Fern"_s, u"Four seasons"_s);
        opened->openCompact();
        const qint64 size = QFileInfo(opened->world.folder.path(u"roms/a.gbc"_s)).size();
        QCOMPARE(opened->data(), QStringList({u"#0001"_s, u"GB Color"_s, u"%1 KB"_s.arg(size / 1024),
                                              u"Tin & Fern"_s, u"Four seasons"_s}));
    }
    void the_size_is_cut_to_whole_kilobytes_data() {
        QTest::addColumn<int>("bytes");
        QTest::addColumn<QString>("size");
        QTest::newRow("empty") << 0 << u"0 KB"_s;
        QTest::newRow("1023") << 1023 << u"0 KB"_s;
        QTest::newRow("1024") << 1024 << u"1 KB"_s;
        QTest::newRow("2047") << 2047 << u"1 KB"_s;
        QTest::newRow("a megabyte") << 1048576 << u"1024 KB"_s;
    }
    void the_size_is_cut_to_whole_kilobytes() {
        QFETCH(int, bytes);
        QFETCH(QString, size);
        opened->game(u"a.gb"_s, QByteArray(bytes, 'r'));
        opened->openCompact();
        QCOMPARE(window().Label5.Caption(), size);
    }
    void an_archive_has_neither_company_nor_information_but_its_own_size() {
        opened->tagged(u"a.gb"_s, u"One"_s);
        opened->game(u"b.zip"_s, QByteArray(5000, 'z'));
        opened->openCompact();
        opened->next();
        QCOMPARE(opened->data(), QStringList({u"#0002"_s, u"ZIP File"_s, u"4 KB"_s, QString(), QString()}));
    }
    void a_name_in_upper_case_keeps_the_console_of_the_game_before() {
        opened->game(u"a.gba"_s);
        opened->game(u"b.GB"_s);
        opened->game(u"c.gb"_s);
        opened->openCompact();
        opened->next();
        QCOMPARE(window().Label4.Caption(), u"GB Advance"_s);
        opened->next();
        QCOMPARE(window().Label4.Caption(), u"GB Classic"_s);
    }
    void a_game_without_a_tag_has_no_company_and_no_information() {
        opened->games(1);
        opened->openCompact();
        QCOMPARE(window().Label6.Caption(), QString());
        QCOMPARE(window().Label7.Caption(), QString());
    }
    void an_empty_library_shows_no_data_and_reports_nothing() {
        opened->openCompact();
        QCOMPARE(opened->data(), QStringList({u"#0000"_s, QString(), QString(), QString(), QString()}));
        QCOMPARE(messages().boxes.size(), 0);
    }
    void the_game_with_six_digits_has_the_authors_joke_for_a_number_and_all_are_seen_whole() {
        for (int i = 0; i < 100000; ++i) {
            QFile(opened->world.folder.path(u"roms/%1.gb"_s.arg(i, 6, 10, QLatin1Char('0'))))
                .open(QFile::WriteOnly);
        }
        opened->openCompact();
        click(window().ChameleonButton4);
        const auto cutNumbers = [&] {
            CutCaptions cut;
            cut.check(window(), {u"Label1"_s, u"Label4"_s, u"Label5"_s, u"Label6"_s, u"Label7"_s});
            return cut.found;
        };
        for (const auto& [index, number] :
             {std::pair(8887, u"#8888"_s), {88887, u"88888"_s}, {99998, u"99999"_s}}) {
            opened->program->shelf.select(index - 1);
            opened->next();
            QCOMPARE(window().Label3.Caption(), number);
            QCOMPARE(window().Label3.fontSpec().points, 24.0);
            QCOMPARE(cutNumbers(), QStringList());
        }
        opened->next();
        QCOMPARE(window().Label3.Caption(), u"#W0W!"_s);
        QCOMPARE(cutNumbers(), QStringList());
        opened->previous();
        QCOMPARE(window().Label3.fontSpec().points, 24.0);
    }

    void an_ampersand_in_a_name_is_shown_and_is_no_access_key() {
        opened->tagged(u"a.gb"_s, u"Dust & Compass"_s, u"A&B && C"_s);
        opened->openCompact();
        opened->tick();
        QCOMPARE(opened->shown(), u"DUST & COMPASS"_s);
        QCOMPARE(window().Label6.Caption(), u"A&B && C"_s);
        click(window().ChameleonButton4);
        const QImage shown = window().Label6.grab().toImage();
        window().Label6.setCaption(u"AB  C"_s);
        QVERIFY(window().Label6.grab().toImage() != shown);
    }
    void a_name_that_is_not_utf_8_is_shown_and_steps_on() {
        opened->world.folder.writeNative("roms/a\xFF\xE9 with more than 17.gb", QByteArray(2000, 'r'));
        opened->games(1);
        opened->world.useLanguage("esp");
        opened->openCompact();
        QCOMPARE(opened->line().size(), 24 + 5);
        for (int i = 0; i < 100; ++i) opened->tick();
        opened->next();
        QCOMPARE(window().Label3.Caption(), u"#0002"_s);
        QCOMPARE(messages().boxes.size(), 0);
    }
    void a_name_as_long_as_the_disk_allows_scrolls() {
        const QString name = QString(252, u'n') + u".gb"_s;
        opened->game(name);
        opened->world.useLanguage("esp");
        opened->openCompact();
        QCOMPARE(opened->line(), name.toUpper() + u" ··· "_s);
        opened->tick();
        QCOMPARE(opened->shown(), QString(21, u'N'));
    }

    // Look and names
    void at_load_the_strip_is_folded() {
        opened->games(1);
        opened->openCompact();
        QCOMPARE(window().size(), QSize(300, 23));
        QVERIFY(isSeen(window().ChameleonButton4));
        QVERIFY(!isSeen(window().ChameleonButton10));
        QVERIFY(!isSeen(window().Text1));
    }
    void all_21_characters_of_the_line_fit() {
        openWith(u"WWWWWWWWWWWWWWWWWWWWWWWWWWWWWW"_s);
        opened->tick();
        CutCaptions cut;
        QVERIFY(cut.check(window(), {u"Label3"_s}) >= 1);
        QVERIFY2(cut.found.isEmpty(), qPrintable(cut.found.join(u'\n')));
    }
    void buttons_have_tips_in_the_language_data() {
        QTest::addColumn<QString>("tips");
        QTest::newRow("esp")
            << u"Juego anterior|Juego siguiente|Cargar esta ROM|Volver a la ventana principal|"
               u"Mostrar los datos del juego|Búsqueda Avanzada|No mantener siempre encima|"
               u"Mantener siempre encima|Ocultar los datos del juego"_s;
        QTest::newRow("cat") << u"Joc anterior|Joc següent|Carrega aquesta ROM|Torna a la finestra principal|"
                                u"Mostra les dades del joc|Cerca avançada|No mantinguis sempre al damunt|"
                                u"Mantén sempre al damunt|Amaga les dades del joc"_s;
        QTest::newRow("eng") << u"Previous game|Next game|Load this ROM|Back to the main window|"
                                u"Show the game’s details|Advanced search|Don’t keep on top|Keep on top|"
                                u"Hide the game’s details"_s;
    }
    void buttons_have_tips_in_the_language() {
        QFETCH(QString, tips);
        opened->world.useLanguage(QTest::currentDataTag());
        opened->games(1);
        QStringList seen;
        for (const chameleonButton* button : opened->openCompact().findChildren<chameleonButton*>()) {
            seen += button->toolTip();
        }
        QCOMPARE(seen.join(u'|'), tips);
    }
    void assistive_tools_hear_the_whole_name_and_not_each_step_of_the_line() {
        openWith(u"A name of more than 21 characters"_s);
        opened->tick();
        const auto* label = QAccessible::queryAccessibleInterface(&window().Label1);
        QCOMPARE(label->text(QAccessible::Name), u"A name of more than 21 characters"_s);
        opened->tick();
        QCOMPARE(label->text(QAccessible::Name), u"A name of more than 21 characters"_s);
    }
    void settings_that_are_no_numbers_take_the_default_failure_path_data() {
        QTest::addColumn<QByteArray>("key");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("number");
        QTest::newRow("Mini, a word") << QByteArray("Mini") << u"left"_s << u"'13'"_s;
        QTest::newRow("Mini, too large") << QByteArray("Mini") << u"256"_s << u"'6'"_s;
        QTest::newRow("Mini, negative") << QByteArray("Mini") << u"-1"_s << u"'6'"_s;
        QTest::newRow("OnTop, a word") << QByteArray("OnTop") << u"yes"_s << u"'13'"_s;
        QTest::newRow("OnTop, empty") << QByteArray("OnTop") << u""_s << u"'13'"_s;
    }
    void settings_that_are_no_numbers_take_the_default_failure_path() {
        QFETCH(QByteArray, key);
        QFETCH(QString, value);
        QFETCH(QString, number);
        opened->world.setSetting(key.constData(), value);
        opened->games(1);
        opened->open();
        click(opened->main().ChameleonButton12);
        QCOMPARE(messages().boxes.size(), 1);
        QVERIFY2(messages().last().contains(number), qPrintable(messages().last()));
        QCOMPARE(opened->world.ends, 1);
    }
};

TORVANE_TEST(TorvetteTest)
#include "TorvetteTest.moc"
