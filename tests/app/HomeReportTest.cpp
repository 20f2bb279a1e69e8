// SPDX-License-Identifier: MIT
// What the user hears about folders that can't be written to, and a program that is opened for looking.
#include "app/HomeReport.h"
#include "platform/base/Paths.h"
#include "support/Failing.h"
#include "support/OpenedProgram.h"
#include "support/TestMain.h"

#include <QLocale>
#include <QProcess>

using namespace torvane;
using namespace Qt::StringLiterals;

class HomeReportTest : public QObject {
    Q_OBJECT

    std::unique_ptr<OpenedProgram> opened;
    FakeWorld& world() const { return opened->world; }

    OpenedHome home(RuntimeFailure::Number problem, bool isForLooking) const {
        OpenedHome home{world().appPath(), isForLooking, {}};
        home.problem.emplace(RuntimeFailure(problem).about(u"/home/ana/torvane"_s));
        return home;
    }
    QString reported(const OpenedHome& home) const {
        opened->program = std::make_unique<Program>(world().runtime, world().appPath());
        reportHome(*opened->program, home);
        return world().messages.last();
    }
    // A file where the settings' folder has to be.
    void refuseSettings() const {
        QVERIFY(QDir(world().folder.path(u"config"_s)).removeRecursively());
        world().folder.write(u"config"_s, "");
    }
    /// As on the first start. The choice has to be taken, and the program has to go on.
    void startAndChooseEnglish() const {
        opened->program->start();
        auto* window = opened->program->loaded<SelLangStartUp>();
        QVERIFY(window != nullptr && QTest::qWaitForWindowExposed(window));
        click(window->Label6);
        click(window->ok);
        emit window->Timer2.Tick();
        QCOMPARE(opened->program->globals.LanguageName, u"English"_s);
        QCOMPARE(world().ends, 0);
    }

private slots:
    void init() { opened = std::make_unique<OpenedProgram>(); }
    void cleanup() { opened.reset(); }

    void nothing_is_said_if_all_is_well() {
        reported({world().appPath(), false, {}});
        QVERIFY(world().messages.boxes.isEmpty());
    }
    void a_home_for_looking_is_reported_with_its_folder_and_the_reason() {
        QCOMPARE(reported(home(RuntimeFailure::permissionDenied, true)),
                 u"You can’t change anything in Torvane’s folder. You can look around and play, but nothing "
                 u"will be saved there.\n\n/home/ana/torvane: you don’t have permission to do that (70)"_s);
        QCOMPARE(world().messages.boxes.last().flags, MsgBoxFlags::exclamation);
    }
    void an_update_that_failed_is_reported_with_the_file_and_the_reason() {
        QCOMPARE(reported(home(RuntimeFailure::diskFull, false)),
                 u"Torvane’s folder could not be brought up to date.\n\n/home/ana/torvane: the disk is full "
                 u"(61)"_s);
    }
    void it_is_said_in_the_users_language() {
        world().useLanguage("cat");
        QVERIFY(reported(home(RuntimeFailure::diskFull, false)).startsWith(u"No s’ha pogut posar al dia"_s));
    }
    void a_language_file_without_these_texts_gets_spanish_ones() {
        const QString old =
            world().folder.write(u"data/lang/lang_old.tvl"_s, "[FileInfo]\r\nlangname=Old\r\n");
        world().setSetting("Language", old);
        QVERIFY(
            reported(home(RuntimeFailure::diskFull, false)).startsWith(u"No se ha podido poner al día"_s));
    }
    // The desktop's language is known from the start of a process: this one is for the processes of the next
    // test.
    void before_any_choice_it_is_said_in_the_language_of_this_process() {
        world().setSetting("Language", QString());
        const QString said = reported(home(RuntimeFailure::diskFull, false));
        const QLocale::Language language = QLocale::system().language();
        QVERIFY(said.startsWith(language == QLocale::Spanish   ? u"No se ha podido poner al día"_s
                                : language == QLocale::Catalan ? u"No s’ha pogut posar al dia"_s
                                                               : u"Torvane’s folder could"_s));
    }
    void before_any_choice_it_is_said_in_the_desktops_language_data() {
        QTest::addColumn<QString>("locale");
        for (const char* locale : {"es_MX.UTF-8", "ca_ES.UTF-8", "de_DE.UTF-8"}) {
            QTest::newRow(locale) << QString::fromUtf8(locale);
        }
    }
    void before_any_choice_it_is_said_in_the_desktops_language() {
        QFETCH(QString, locale);
        QProcess other;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"LC_ALL"_s, locale);
        environment.remove(u"LANGUAGE"_s);
        other.setProcessEnvironment(environment);
        other.start(QCoreApplication::applicationFilePath(),
                    {u"HomeReportTest"_s, u"before_any_choice_it_is_said_in_the_language_of_this_process"_s});
        QVERIFY(other.waitForFinished());
        QVERIFY2(other.exitStatus() == QProcess::NormalExit && other.exitCode() == 0,
                 other.readAllStandardOutput().constData());
    }
    void a_folder_of_any_bytes_is_shown() {
        OpenedHome odd = home(RuntimeFailure::diskFull, true);
        odd.problem.emplace(
            RuntimeFailure(RuntimeFailure::diskFull).about(Paths::spelled(QByteArray("/a\\b<b>/\xFF"))));
        QVERIFY(reported(odd).contains(u"/a\\b<b>/\uFFFD: the disk"_s));
    }

    void settings_that_cannot_be_stored_are_reported_and_last_until_the_end() {
        refuseSettings();
        const QString said = reported({world().appPath(), false, {}});
        QVERIFY2(said.startsWith(u"Your settings can’t be saved."_s) ||
                     said.startsWith(u"No se puede guardar la configuración."_s),
                 qPrintable(said));
        world().setSetting("Icon", u"5"_s);
        QCOMPARE(world().setting("Icon"), u"5"_s);
    }
    void on_a_full_disk_whoever_may_only_look_can_still_set_what_lasts_until_the_end() {
        reported(home(RuntimeFailure::diskFull, true));
        const FullDisk full(0);
        world().setSetting("Icon", u"5"_s);
        QCOMPARE(world().setting("Icon"), u"5"_s);
    }
    void whoever_may_only_look_can_still_set_what_lasts_until_the_end() {
        reported(home(RuntimeFailure::permissionDenied, true));
        const FullDisk full(0);
        world().setSetting("Icon", u"5"_s);
        QCOMPARE(world().setting("Icon"), u"5"_s);
    }
    void a_language_can_be_chosen_where_the_disk_was_too_full_for_the_whole_home() {
        world().setSetting("Language", QString());
        reported(home(RuntimeFailure::diskFull, false));
        const FullDisk full(0);
        startAndChooseEnglish();
    }
    void settings_that_fail_later_are_no_secret_where_the_home_only_lacks_a_file() {
        reported(home(RuntimeFailure::permissionDenied, false));
        const FullDisk full(0);
        QCOMPARE(failureOf([&] { world().setSetting("Icon", u"5"_s); }), number(RuntimeFailure::diskFull));
    }
    void who_has_no_home_hears_so() {
        OpenedHome none{world().appPath(), true, RuntimeFailure::ofNoHome()};
        QVERIFY(reported(none).endsWith(u"\n\n$HOME: you have no home folder (76)"_s));
    }
    void of_a_closed_home_nothing_else_is_said_and_no_settings_are_made() {
        OpenedHome closed = home(RuntimeFailure::permissionDenied, true);
        closed.isClosed = true;
        refuseSettings();
        const QString said = reported(closed);
        QVERIFY2(said.endsWith(u"\n\n/home/ana/torvane: you don’t have permission to do that (70)"_s),
                 qPrintable(said));
        QCOMPARE(said.count(u"\n\n"_s), 1);
        QCOMPARE(world().messages.boxes.size(), 1);
    }
    void a_closed_home_is_reported_as_that() {
        OpenedHome closed = home(RuntimeFailure::permissionDenied, true);
        closed.isClosed = true;
        QVERIFY(reported(closed).startsWith(u"Torvane can’t open its folder.\n\n"_s));
    }
    void both_are_reported_in_one_box() {
        refuseSettings();
        reported(home(RuntimeFailure::diskFull, true));
        QCOMPARE(world().messages.boxes.size(), 1);
        QCOMPARE(world().messages.last().count(u"\n\n"_s), 3);
    }
    void a_language_can_be_chosen_where_nothing_can_be_stored() {
        refuseSettings();
        reported(home(RuntimeFailure::permissionDenied, true));
        startAndChooseEnglish();
    }

    void a_home_for_looking_lists_and_shows_its_games() {
        opened->games(3);
        for (const char* folder : {"data/lang", "data", "roms", "config/Torvane", "config", "."}) {
            world().folder.setMode(QString::fromUtf8(folder), 0555);
        }
        {
            const OrdinaryUser ordinary;
            reported(openHome({Home::Kind::readOnly, Paths::real(world().appPath()), {}}));
            opened->program->start();
            QTRY_VERIFY(opened->program->loaded<MainFrm>() != nullptr);
            QVERIFY(QTest::qWaitForWindowExposed(&opened->main()));
            QCOMPARE(opened->main().Games.ListCount(), 3);
            opened->chooseRow(1);
            QCOMPARE(opened->main().Games.FileName(), u"g002.gb"_s);
            QCOMPARE(world().ends, 0);
        }
        world().folder.setMode(u"."_s, 0755);
    }
};

TORVANE_TEST(HomeReportTest)
#include "HomeReportTest.moc"
