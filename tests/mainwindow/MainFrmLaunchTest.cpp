// SPDX-License-Identifier: MIT
// Launches of games from the main window, and what the window does meanwhile.
#include "support/Archive.h"
#include "support/OpenedProgram.h"
#include "support/TestMain.h"

using namespace torvane;

class MainFrmLaunchTest : public QObject {
    Q_OBJECT

    std::unique_ptr<OpenedProgram> opened;
    MainFrm& window() const { return opened->main(); }
    FakeProcesses& processes() const { return opened->world.processes; }
    QByteArray emulator() const { return opened->world.appPath().toUtf8() + "/emuladores/mgba.sh"; }
    QByteArray roms() const { return opened->world.appPath().toUtf8() + "/roms/"; }
    /// Checks that the emulator was started once, with this file; its arguments are joined by blanks.
    void expectStarted(const QByteArray& fileName) {
        QCOMPARE(processes().starts.size(), 1);
        QCOMPARE(processes().starts[0].program, emulator());
        QCOMPARE(processes().starts[0].arguments.join(' '), roms() + fileName);
        processes().starts.clear();
    }

private slots:
    void init() { opened = std::make_unique<OpenedProgram>(); }
    void cleanup() { opened.reset(); }

    void the_launch_button_a_double_click_and_enter_start_the_selected_game() {
        opened->games(3);
        MainFrm& main = opened->open();
        click(main.ChameleonButton16);
        expectStarted("g001.gb");
        doubleClick(main.ListView1, opened->rowPlace(1));
        expectStarted("g002.gb");
        main.ListView1.setFocus();
        QTest::keyClick(&main.ListView1, Qt::Key_Down);
        QTest::keyClick(&main.ListView1, Qt::Key_Return);
        expectStarted("g003.gb");
        emit main.Label15.Click();
        expectStarted("g003.gb");
        emit main.Games.DblClick();
        expectStarted("g003.gb");
        main.Label15_Click();
        expectStarted("g003.gb");
    }
    void the_emulator_finds_the_gallerys_folder_in_its_environment() {
        QByteArray given;
        processes().whileRunning = [&] { given = qgetenv("TORVANE_SCREENSHOTS"); };
        opened->games(1);
        opened->open();
        click(window().ChameleonButton16);
        QCOMPARE(given, roms() + "data/screenshots");
        opened->world.setSetting("Capturas", opened->world.appPath() + QStringLiteral("\\my pictures"));
        click(window().ChameleonButton16);
        QCOMPARE(given, opened->world.appPath().toUtf8() + "/my pictures");
        qunsetenv("TORVANE_SCREENSHOTS");
    }
    void a_single_click_starts_nothing() {
        opened->games(2);
        opened->open();
        opened->chooseRow(1);
        QCOMPARE(processes().starts.size(), 0);
    }
    void a_path_with_blanks_reaches_the_emulator_as_several_arguments() {
        opened->game(QStringLiteral("two words  and a \"quote\".gb"));
        opened->open();
        click(window().ChameleonButton16);
        QCOMPARE(processes().starts.size(), 1);
        const QByteArrayList expected = {roms() + "two", "words", "", "and", "a", "\"quote\".gb"};
        QCOMPARE(processes().starts[0].arguments, expected);
    }
    void characters_special_to_a_shell_are_passed_unchanged() {
        opened->game(QStringLiteral("$(touch x);&|`y`<>*.gb"));
        opened->open();
        click(window().ChameleonButton16);
        expectStarted("$(touch x);&|`y`<>*.gb");
    }
    void a_name_outside_of_code_page_1252_reaches_the_emulator() {
        opened->game(QString::fromUtf8("ゲーム.gb"));
        opened->open();
        click(window().ChameleonButton16);
        expectStarted("ゲーム.gb");
    }
    void a_name_that_is_not_utf_8_reaches_the_emulator() {
        opened->world.folder.writeNative("roms/a\xFF\xE9.gb", "x");
        opened->open();
        click(window().ChameleonButton16);
        expectStarted("a\xFF\xE9.gb");
    }

    void the_window_is_minimised_while_a_game_runs_and_comes_back() {
        opened->games(1);
        MainFrm& main = opened->open();
        Form::State during = Form::normal;
        processes().whileRunning = [&] { during = main.windowStateWord(); };
        click(main.ChameleonButton16);
        QCOMPARE(during, Form::minimised);
        QCOMPARE(main.windowStateWord(), Form::normal);
        QVERIFY(main.isVisible());
    }
    // A click that the program can't answer would start the next game as soon as this one ends.
    void clicks_and_keys_that_come_while_a_game_runs_are_forgotten() {
        opened->games(2);
        MainFrm& main = opened->open();
        main.ListView1.setFocus();
        processes().whileRunning = [&] {
            if (processes().starts.size() > 1) return;
            postClick(main.ChameleonButton16);
            postKey(main, Qt::Key_Return);
        };
        click(main.ChameleonButton16);
        QCoreApplication::processEvents();
        QCOMPARE(processes().starts.size(), 1);
    }
    void a_minimised_window_is_restored_after_the_game() {
        opened->games(1);
        MainFrm& main = opened->open();
        click(main.chameleonButton2);
        main.Label15_Click();
        QCOMPARE(main.windowStateWord(), Form::normal);
    }
    void a_hidden_window_stays_hidden() {
        opened->games(1);
        MainFrm& main = opened->open();
        main.Hide();
        bool seen = false;
        processes().whileRunning = [&] { seen = main.isVisible(); };
        main.Label15_Click();
        expectStarted("g001.gb");
        QVERIFY(!seen);
        QVERIFY(!main.isVisible());
        QCOMPARE(main.windowStateWord(), Form::normal);
    }
    void a_missing_emulator_restores_the_window_at_once_without_a_message() {
        opened->world.folder.write(QStringLiteral("emuladores/emus.dat"), "None#\\none.sh\r\n");
        opened->games(1);
        opened->open();
        click(window().ChameleonButton16);
        QCOMPARE(processes().starts.size(), 0);
        QCOMPARE(window().windowStateWord(), Form::normal);
        QCOMPARE(opened->world.messages.boxes.size(), 0);
        QCOMPARE(opened->world.ends, 0);
    }
    void a_vanished_game_is_still_handed_to_the_emulator() {
        const QString path = opened->game(QStringLiteral("a.gb"));
        opened->open();
        QVERIFY(QFile::remove(path));
        click(window().ChameleonButton16);
        expectStarted("a.gb");
    }

    // Archives
    void an_archive_is_handed_to_the_emulator_and_the_window_stays() {
        opened->game(QStringLiteral("pack.zip"));
        MainFrm& main = opened->open();
        Form::State during = Form::minimised;
        processes().whileRunning = [&] { during = main.windowStateWord(); };
        doubleClick(main.ListView1, opened->rowPlace(0));
        expectStarted("pack.zip");
        QCOMPARE(during, Form::normal);
    }
    void with_zip_set_to_1_an_archive_never_starts_the_emulator() {
        writeArchive(opened->world.folder.path(QStringLiteral("roms/pack.zip")),
                     {{QStringLiteral("a.gb"), "x"}});
        opened->world.setSetting("zip", QStringLiteral("1"));
        opened->open();
        doubleClick(window().ListView1, opened->rowPlace(0));
        QVERIFY(opened->program->loaded<ZIP_Viewer>() != nullptr);
        window().Label15_Click();
        QCOMPARE(processes().starts.size(), 0);
        QVERIFY(!window().isVisible());
    }
    void with_zip_set_to_1_a_game_is_started_as_usual() {
        opened->game(QStringLiteral("a.gb"));
        opened->world.setSetting("zip", QStringLiteral("1"));
        opened->open();
        click(window().ChameleonButton16);
        expectStarted("a.gb");
    }
    void any_other_zip_setting_starts_the_emulator_data() {
        QTest::addColumn<QString>("zip");
        QTest::newRow("0") << QStringLiteral("0");
        QTest::newRow("2") << QStringLiteral("2");
    }
    void any_other_zip_setting_starts_the_emulator() {
        QFETCH(QString, zip);
        opened->game(QStringLiteral("pack.zip"));
        opened->world.setSetting("zip", zip);
        opened->open();
        doubleClick(window().ListView1, opened->rowPlace(0));
        expectStarted("pack.zip");
    }
    void a_zip_setting_that_is_no_number_takes_the_default_failure_path_data() {
        QTest::addColumn<QString>("zip");
        QTest::newRow("a word") << QStringLiteral("viewer");
        QTest::newRow("True") << QStringLiteral("True");
    }
    void a_zip_setting_that_is_no_number_takes_the_default_failure_path() {
        QFETCH(QString, zip);
        opened->game(QStringLiteral("pack.zip"));
        opened->world.setSetting("zip", zip);
        opened->open();
        doubleClick(window().ListView1, opened->rowPlace(0));
        QCOMPARE(opened->world.messages.boxes.size(), 1);
        QVERIFY(opened->world.messages.last().startsWith(QStringLiteral("Run-time error '13'")));
        QCOMPARE(opened->world.ends, 1);
        QCOMPARE(processes().starts.size(), 0);
    }
    void the_second_piece_of_the_name_decides_what_an_archive_is_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("archive");
        QTest::newRow("two dots") << QStringLiteral("game.rev.zip") << false;
        QTest::newRow("upper case") << QStringLiteral("GAME.ZIP") << true;
        QTest::newRow("zip in the middle") << QStringLiteral("game.zip.gb") << true;
    }
    void the_second_piece_of_the_name_decides_what_an_archive_is() {
        QFETCH(QString, name);
        QFETCH(bool, archive);
        opened->game(name);
        MainFrm& main = opened->open();
        Form::State during = Form::maximised;
        processes().whileRunning = [&] { during = main.windowStateWord(); };
        doubleClick(main.ListView1, opened->rowPlace(0));
        expectStarted(name.toUtf8());
        QCOMPARE(during, archive ? Form::normal : Form::minimised);
    }

    // The list of emulators
    void without_a_selection_nothing_is_started() {
        opened->open();
        click(window().ChameleonButton16);
        window().Label15_Click();
        QCOMPARE(processes().starts.size(), 0);
        QCOMPARE(window().windowStateWord(), Form::normal);
        QCOMPARE(opened->world.ends, 0);
    }
    void an_unusable_list_of_emulators_starts_nothing_and_the_games_are_listed_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("no separator") << QByteArray("mGBA \\mgba.sh\r\n");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("first line empty") << QByteArray("\r\nmGBA#\\mgba.sh\r\n");
    }
    void an_unusable_list_of_emulators_starts_nothing_and_the_games_are_listed() {
        QFETCH(QByteArray, content);
        opened->world.folder.write(QStringLiteral("emuladores/emus.dat"), content);
        opened->games(2);
        opened->open();
        click(window().ChameleonButton16);
        QCOMPARE(processes().starts.size(), 0);
        QCOMPARE(window().ListView1.rowCount(), 2);
        QCOMPARE(window().windowStateWord(), Form::normal);
        QCOMPARE(opened->world.messages.boxes.size(), 0);
    }
    void a_missing_list_of_emulators_starts_nothing_and_the_games_are_listed() {
        QVERIFY(QFile::remove(opened->world.folder.path(QStringLiteral("emuladores/emus.dat"))));
        opened->games(2);
        opened->open();
        click(window().ChameleonButton16);
        QCOMPARE(processes().starts.size(), 0);
        QCOMPARE(window().ListView1.rowCount(), 2);
        QCOMPARE(opened->world.messages.boxes.size(), 0);
    }
    void the_second_line_is_never_used_and_further_parts_are_ignored() {
        opened->world.folder.write(QStringLiteral("emuladores/emus.dat"),
                                   "First#\\mgba.sh#more#\\x\r\nSecond#\\second\\mgba.sh\r\n");
        opened->games(1);
        opened->open();
        click(window().Refresh);
        click(window().ChameleonButton16);
        expectStarted("g001.gb");
    }
    void refresh_reads_the_list_of_emulators_again_and_keeps_the_old_one_if_it_is_gone() {
        opened->games(1);
        opened->open();
        opened->world.folder.write(QStringLiteral("emuladores/emus.dat"), "Other#\\other\\mgba.sh\r\n");
        click(window().Refresh);
        click(window().ChameleonButton16);
        QCOMPARE(processes().starts.value(0).program,
                 opened->world.appPath().toUtf8() + "/emuladores/other/mgba.sh");
        processes().starts.clear();
        QVERIFY(QFile::remove(opened->world.folder.path(QStringLiteral("emuladores/emus.dat"))));
        click(window().Refresh);
        click(window().ChameleonButton16);
        QCOMPARE(processes().starts.size(), 1);
    }
};

TORVANE_TEST(MainFrmLaunchTest)
#include "MainFrmLaunchTest.moc"
