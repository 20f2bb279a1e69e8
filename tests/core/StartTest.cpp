// SPDX-License-Identifier: MIT
// The start with a stored language: the texts, which window appears first, and failures.
#include "support/Failing.h"
#include "support/OpenedProgram.h"
#include "support/TestMain.h"

using namespace torvane;

class StartTest : public QObject {
    Q_OBJECT

    std::unique_ptr<OpenedProgram> opened;
    FakeWorld& world() const { return opened->world; }

private slots:
    void init() { opened = std::make_unique<OpenedProgram>(); }
    void cleanup() { opened.reset(); }

    void with_a_stored_language_the_start_goes_on_and_the_language_window_is_gone() {
        Program& program = opened->start();
        QVERIFY(program.loaded<SelLangStartUp>() == nullptr);
        QVERIFY(program.loaded<MainFrm>()->isVisible());
    }
    void the_texts_of_every_window_are_set() {
        const Globals& globals = opened->start().globals;
        QCOMPARE(globals.VersionText, QStringLiteral("1.1"));
        QCOMPARE(globals.TitlePrefix, QStringLiteral("Torvane 1.1 » "));
        QCOMPARE(globals.LanguageFile, world().appPath() + QStringLiteral("\\data\\lang\\lang_eng.tvl"));
        QCOMPARE(globals.LanguageName, QStringLiteral("English"));
    }
    void each_language_names_itself_data() {
        QTest::addColumn<QByteArray>("code");
        QTest::addColumn<QString>("name");
        QTest::newRow("esp") << QByteArray("esp") << QStringLiteral("Español");
        QTest::newRow("cat") << QByteArray("cat") << QStringLiteral("Català");
        QTest::newRow("eng") << QByteArray("eng") << QStringLiteral("English");
    }
    void each_language_names_itself() {
        QFETCH(QByteArray, code);
        QFETCH(QString, name);
        world().useLanguage(code.constData());
        QCOMPARE(opened->start().globals.LanguageName, name);
    }

    void intro_decides_between_the_intro_and_the_main_window_data() {
        QTest::addColumn<QString>("intro");
        QTest::addColumn<bool>("shown");
        QTest::newRow("0") << QStringLiteral("0") << false;
        QTest::newRow("1") << QStringLiteral("1") << true;
        QTest::newRow("2") << QStringLiteral("2") << true;
        QTest::newRow("-1") << QStringLiteral("-1") << true;
    }
    void intro_decides_between_the_intro_and_the_main_window() {
        QFETCH(QString, intro);
        QFETCH(bool, shown);
        world().setSetting("Intro", intro);
        Program& program = opened->start();
        QCOMPARE(program.loaded<Splash>() != nullptr, shown);
        QCOMPARE(program.loaded<MainFrm>() != nullptr, !shown);
    }
    void without_an_intro_setting_the_intro_is_shown() {
        QVERIFY(QFile::remove(world().settings.fileOf(QStringLiteral("Torvane"))));
        world().useLanguage("eng");
        Program& program = opened->start();
        QVERIFY(program.loaded<Splash>() != nullptr);
        QVERIFY(program.loaded<Splash>()->isVisible());
    }
    void an_intro_setting_that_is_no_number_takes_the_default_failure_path() {
        world().setSetting("Intro", QStringLiteral("yes"));
        Program& program = opened->start();
        QCOMPARE(world().messages.boxes.size(), 1);
        QCOMPARE(world().messages.last(), QStringLiteral("Run-time error '13':\n\nType mismatch"));
        QCOMPARE(world().messages.boxes.last().flags, 16);
        QCOMPARE(world().ends, 1);
        QVERIFY(!program.loaded<Splash>());
        QVERIFY(!program.loaded<MainFrm>());
    }
    void a_start_setting_that_is_no_number_takes_the_default_failure_path() {
        world().setSetting("Start", QStringLiteral("1x"));
        opened->start();
        QCOMPARE(world().messages.last(), QStringLiteral("Run-time error '13':\n\nType mismatch"));
        QCOMPARE(world().ends, 1);
    }
    void any_other_start_setting_opens_the_main_window_data() {
        QTest::addColumn<QString>("start");
        QTest::newRow("0") << QStringLiteral("0");
        QTest::newRow("2") << QStringLiteral("2");
        QTest::newRow("-1") << QStringLiteral("-1");
    }
    void any_other_start_setting_opens_the_main_window() {
        QFETCH(QString, start);
        world().setSetting("Start", start);
        QVERIFY(opened->start().loaded<MainFrm>()->isVisible());
    }
    void the_main_window_has_its_first_game_selected() {
        opened->games(3);
        opened->start();
        QCOMPARE(opened->main().Games.ListIndex(), 0);
        QCOMPARE(opened->main().ListView1.currentRow(), 0);
    }
    void an_empty_library_does_not_prevent_the_start() {
        opened->start();
        QVERIFY(opened->main().isVisible());
        QCOMPARE(opened->main().Games.ListIndex(), -1);
        QCOMPARE(world().messages.boxes.size(), 0);
        QCOMPARE(world().ends, 0);
    }
    void failures_of_the_first_selection_are_ignored_at_the_start() {
        opened->game(QStringLiteral("a.zip"));
        world().folder.setMode(QStringLiteral("roms/a.zip"), 0);
        const OrdinaryUser user;
        opened->start();
        QCOMPARE(opened->main().Games.ListCount(), 1);
        QVERIFY(opened->main().isVisible());
        QCOMPARE(world().messages.boxes.size(), 0);
        QCOMPARE(world().ends, 0);
    }

    void a_missing_language_file_is_replaced_by_the_one_of_its_name_in_this_tree_data() {
        QTest::addColumn<QString>("stored");
        QTest::newRow("moved folder") << QStringLiteral("/nowhere\\data\\lang\\lang_eng.tvl");
        QTest::newRow("another spelling") << QStringLiteral("C:\\old/LANG_ENG.TVL");
        QTest::newRow("bare name") << QStringLiteral("lang_eng.tvl");
    }
    void a_missing_language_file_is_replaced_by_the_one_of_its_name_in_this_tree() {
        QFETCH(QString, stored);
        world().setSetting("Language", stored);
        opened->games(1);
        QCOMPARE(opened->open().Lbl_ID3Title.Caption(), QStringLiteral("Game title"));
        QCOMPARE(opened->program->globals.LanguageName, QStringLiteral("English"));
        QCOMPARE(world().setting("Language"), stored);
    }
    void a_readable_language_file_elsewhere_is_used() {
        const QString own =
            world().folder.write(QStringLiteral("elsewhere/lang_eng.tvl"), "[FileInfo]\r\nlangname=Mine\r\n");
        world().setSetting("Language", own);
        opened->open();
        QCOMPARE(opened->program->globals.LanguageName, QStringLiteral("Mine"));
    }
    void a_language_found_nowhere_is_asked_for_again_data() {
        QTest::addColumn<QString>("stored");
        QTest::newRow("no such file") << QStringLiteral("\\data\\lang\\lang_gone.tvl");
        QTest::newRow("a folder") << QStringLiteral("\\data\\lang");
        QTest::newRow("unreadable") << QStringLiteral("\\data\\lang\\own.tvl");
    }
    void a_language_found_nowhere_is_asked_for_again() {
        QFETCH(QString, stored);
        stored.prepend(world().appPath());
        world().folder.write(QStringLiteral("data/lang/own.tvl"), "[FileInfo]\r\n");
        world().folder.setMode(QStringLiteral("data/lang/own.tvl"), 0);
        world().setSetting("Language", stored);
        {
            const OrdinaryUser user;
            opened->start();
        }
        Program& program = *opened->program;
        SelLangStartUp* question = program.loaded<SelLangStartUp>();
        QVERIFY(question != nullptr && question->isVisible());
        QVERIFY(program.loaded<MainFrm>() == nullptr);
        QCOMPARE(world().setting("Language"), stored);
        emit question->Label6.Click();
        emit question->ok.Click();
        emit question->Timer2.Tick();
        QCOMPARE(program.globals.LanguageName, QStringLiteral("English"));
        QCOMPARE(world().setting("Language"),
                 world().appPath() + QStringLiteral("\\data\\lang\\lang_eng.tvl"));
    }
    void without_any_language_file_captions_are_empty_and_the_program_runs() {
        QVERIFY(QDir(world().folder.path(QStringLiteral("data/lang"))).removeRecursively());
        opened->games(1);
        Program& program = opened->start();
        SelLangStartUp* question = program.loaded<SelLangStartUp>();
        emit question->Label6.Click();
        emit question->ok.Click();
        emit question->Timer2.Tick();
        MainFrm& window = opened->main();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QCOMPARE(program.globals.LanguageName, QString());
        QCOMPARE(window.Label13.Caption(), QStringLiteral("» "));
        QCOMPARE(window.Lbl_ID3Title.Caption(), QString());
        QCOMPARE(window.Label16.Caption(), QString());
        QCOMPARE(window.ChameleonButton16.Caption(), QString());
        QCOMPARE(window.Label1.Caption(), QStringLiteral("Torvane 1.1 » "));
        click(window.Edit_Menu);
        QCOMPARE(window.Label17.Caption(), QStringLiteral("» "));
        click(window.chameleonButton1);
        QCOMPARE(program.loaded<TorvMsg>()->Label2.Caption(), QString());
        QCOMPARE(world().messages.boxes.size(), 0);
        QCOMPARE(world().ends, 0);
    }
    void without_a_stored_language_the_spanish_file_is_the_default() {
        // As if the key disappeared between two reads: the desk has a default of its own.
        opened->start();
        QVERIFY(QFile::remove(world().settings.fileOf(QStringLiteral("Torvane"))));
        world().setSetting("Intro", QStringLiteral("0"));
        opened->program->desk.startApplication();
        QCOMPARE(opened->program->globals.LanguageFile,
                 world().appPath() + QStringLiteral("\\data\\lang\\lang_esp.tvl"));
        QCOMPARE(opened->program->globals.LanguageName, QStringLiteral("Español"));
    }
    void a_lookup_needs_no_window() {
        Program program(world().runtime, world().appPath());
        program.globals.LanguageFile = world().appPath() + QStringLiteral("\\data\\lang\\lang_eng.tvl");
        QCOMPARE(program.language.LangText(QStringLiteral("FileInfo"), QStringLiteral("langname")),
                 QStringLiteral("English"));
        QVERIFY(!program.loaded<Menuing>());
        QVERIFY(!program.loaded<MainFrm>());
    }
    void the_menu_window_exists_from_the_start_and_is_never_shown() {
        Program& program = opened->start();
        QVERIFY(program.loaded<Menuing>() != nullptr);
        QVERIFY(!program.loaded<Menuing>()->isVisible());
        QCOMPARE(program.loaded<Menuing>()->INITool1.Read(
                     QStringLiteral("FileInfo"), QStringLiteral("langname"), program.globals.LanguageFile),
                 QStringLiteral("English"));
    }
    void lookups_are_not_cached_and_ignore_the_case_of_sections_and_keys() {
        opened->start();
        LanguageTables& tables = opened->program->language;
        QCOMPARE(tables.LangText(QStringLiteral("Globals"), QStringLiteral("na")), QStringLiteral("No data"));
        QCOMPARE(tables.LangTextCopy(QStringLiteral("globals"), QStringLiteral("na")),
                 QStringLiteral("No data"));
        opened->program->globals.LanguageFile =
            world().folder.write(QStringLiteral("data/lang/own.tvl"), "[gLobals]\r\nna=N\xF6 data\r\n");
        QCOMPARE(tables.LangText(QStringLiteral("Globals"), QStringLiteral("na")), QStringLiteral("Nö data"));
    }

    void open_url_uses_the_link_of_the_main_window_which_is_created_for_it() {
        Program program(world().runtime, world().appPath());
        program.funciones.OpenURL(QStringLiteral("http://one.example/?a=<b>&c=%20"));
        QCOMPARE(world().browser.urls, QStringList{QStringLiteral("http://one.example/?a=<b>&c=%20")});
        QVERIFY(program.loaded<MainFrm>() != nullptr);
        QVERIFY(!program.loaded<MainFrm>()->isVisible());
        QCOMPARE(program.loaded<MainFrm>()->URL_Linker.URL(),
                 QStringLiteral("http://one.example/?a=<b>&c=%20"));
    }
    void the_fatal_error_is_reported_in_fixed_spanish_and_opens_the_page_of_questions() {
        world().folder.write(QStringLiteral("data/hosts.ini"), "[Hosts]\nweb=https://web.example/\n");
        opened->start();
        opened->program->funciones.ShowFatalError();
        QCOMPARE(world().messages.boxes.size(), 1);
        const FakeMessages::Box& box = world().messages.boxes.last();
        QCOMPARE(box.text, QStringLiteral("Torvane ha encontrado un error y será cerrado. Ahora se abrirá el "
                                          "navegador y cargará el FAQ de la página web de Torvane."));
        QCOMPARE(box.title, QStringLiteral("KESTRA Halyard Kernel"));
        QCOMPARE(box.flags, 16);
        QCOMPARE(world().browser.urls,
                 QStringList{QStringLiteral("https://web.example/modules.php?name=FAQ")});
        QCOMPARE(world().ends, 0);
        QVERIFY(opened->main().isVisible());
    }
};

TORVANE_TEST(StartTest)
#include "StartTest.moc"
