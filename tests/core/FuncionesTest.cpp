// SPDX-License-Identifier: MIT
// The procedures that several windows share: what they ask, copy, delete and open.
#include "core/Funciones.h"
#include "core/GameFilter.h"
#include "support/Failing.h"
#include "support/FakeWorld.h"
#include "support/OtherProgram.h"
#include "support/TestMain.h"

using namespace torvane;

namespace {
struct MainWindowRecord : MainWindowReach {
    QStringList calls;
    void followLink(const QString& url) override { calls.append(QStringLiteral("link ") + url); }
    void pointGamesAtLibrary() override { calls.append(QStringLiteral("library")); }
};
} // namespace

class FuncionesTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestFolder> folder;
    std::unique_ptr<TestFolder> configuration;
    Globals globals;
    LanguageTables language{globals};
    Hosts hosts{globals};
    FakeMessages messages;
    FakeDialogs dialogs;
    MainWindowRecord mainWindow;
    std::unique_ptr<Settings> settings;
    std::unique_ptr<Funciones> funciones;

    QByteArray read(const char* name) const { return folder->read(QString::fromLatin1(name)); }
    QString game(const QByteArray& name = "game.gb") const { return folder->writeNative(name, "rom"); }
    QString unfinished() const {
        return settings->GetSetting(Config::application, Config::section, QStringLiteral("Unfinished"),
                                    QStringLiteral("(absent)"));
    }
    // Runs a process that the system kills in the middle of a copy, since its file size limit is too small.
    void copyKilled(const QString& target) {
        dialogs.answer = target;
        const QString source = folder->write(QStringLiteral("source.gb"), QByteArray(100000, 's'));
        const int status = inOtherProgram([&] {
            const rlimit limit{50000, RLIM_INFINITY};
            setrlimit(RLIMIT_FSIZE, &limit);
            funciones->CopyRom(source, QStringLiteral("source.gb"));
        });
        QVERIFY(WIFSIGNALED(status) && WTERMSIG(status) == SIGXFSZ);
    }

private slots:
    void init() {
        folder = std::make_unique<TestFolder>();
        globals.AppPath = folder->path(QStringLiteral("program"));
        // Separate from the games, whose folder must hold nothing else.
        configuration = std::make_unique<TestFolder>();
        globals.LanguageFile =
            configuration->write(QStringLiteral("lang.tvl"), "[MainMenu]\r\ncopyrom=Copy \xBB\r\n");
        settings = std::make_unique<Settings>(configuration->path());
        funciones = std::make_unique<Funciones>(
            Funciones::Parts{globals, language, hosts, messages, dialogs, *settings}, mainWindow);
        messages.boxes.clear();
        dialogs = {};
        mainWindow.calls.clear();
    }

    void copying_asks_with_title_filter_index_and_name() {
        funciones->CopyRom(game("Two words.gba"), QStringLiteral("Two words.gba"));
        QCOMPARE(dialogs.questions.size(), 1);
        const FileQuestion question = dialogs.questions.first();
        QCOMPARE(question.title, QStringLiteral("Copy »Two words.gba"));
        QCOMPARE(question.filter, gameFileFilter);
        QCOMPARE(question.filterIndex, 2);
        QCOMPARE(question.fileName, QStringLiteral("Two words.gba"));
    }
    void a_copy_has_the_name_given_by_the_user() {
        dialogs.answer = folder->path(QStringLiteral("copy of it"));
        funciones->CopyRom(game(), QStringLiteral("game.gb"));
        QCOMPARE(read("copy of it"), QByteArray("rom"));
        QCOMPARE(read("game.gb"), QByteArray("rom"));
        QVERIFY(messages.boxes.isEmpty());
        QVERIFY(mainWindow.calls.isEmpty());
    }
    void an_existing_target_is_replaced() {
        dialogs.answer = folder->write(QStringLiteral("target.gb"), "a longer former content");
        funciones->CopyRom(game(), QStringLiteral("game.gb"));
        QCOMPARE(read("target.gb"), QByteArray("rom"));
    }
    void an_empty_or_blank_name_copies_nothing_data() {
        QTest::addColumn<QString>("answer");
        QTest::newRow("none") << QString();
        QTest::newRow("empty") << QStringLiteral("");
        QTest::newRow("one blank") << QStringLiteral(" ");
    }
    void an_empty_or_blank_name_copies_nothing() {
        QFETCH(QString, answer);
        dialogs.answer = answer;
        // An attempt to copy would fail, since the source is missing.
        funciones->CopyRom(folder->path(QStringLiteral("gone.gb")), QStringLiteral("gone.gb"));
        QVERIFY(folder->entries().isEmpty());
        QVERIFY(!QFile::exists(QStringLiteral(" ")));
    }
    void a_failed_copy_is_reported_and_leaves_the_target() {
        const QString target = folder->write(QStringLiteral("target.gb"), "former");
        const QString big = folder->write(QStringLiteral("big.gb"), QByteArray(5000, 'b'));
        dialogs.answer = target;
        std::optional<int> failure;
        {
            const FullDisk full(100);
            failure = failureOf([&] { funciones->CopyRom(big, QStringLiteral("big.gb")); });
        }
        QCOMPARE(failure, number(RuntimeFailure::diskFull));
        QCOMPARE(failureOf([&] {
                     funciones->CopyRom(folder->path(QStringLiteral("gone.gb")), QStringLiteral("gone.gb"));
                 }),
                 number(RuntimeFailure::fileNotFound));
        QCOMPARE(read("target.gb"), QByteArray("former"));
        QCOMPARE(folder->entries(), (QStringList{QStringLiteral("big.gb"), QStringLiteral("target.gb")}));
    }
    void a_file_whose_name_differs_in_case_is_not_replaced() {
        folder->write(QStringLiteral("Out/PLAIN.GB"), "other");
        dialogs.answer = folder->path(QStringLiteral("out")) + QStringLiteral("\\plain.gb");
        funciones->CopyRom(game("plain.gb"), QStringLiteral("plain.gb"));
        QCOMPARE(read("Out/PLAIN.GB"), QByteArray("other"));
        QCOMPARE(read("Out/plain.gb"), QByteArray("rom"));
    }
    void a_copy_onto_the_game_itself_is_refused_and_the_game_stays() {
        dialogs.answer = game();
        QCOMPARE(failureOf([&] { funciones->CopyRom(game(), QStringLiteral("game.gb")); }),
                 number(RuntimeFailure::permissionDenied));
        QCOMPARE(read("game.gb"), QByteArray("rom"));
    }
    void a_game_of_any_name_is_copied_data() {
        QTest::addColumn<QByteArray>("name");
        for (const char* name : {"a  b.gb", "a.b.gb", "%s%n.gb", "q\"'$(x).gb", "back\\slash.gb",
                                 "no utf8 \xF1.gb", "line\nbreak.gb"})
            QTest::newRow(name) << QByteArray(name);
    }
    void a_game_of_any_name_is_copied() {
        QFETCH(QByteArray, name);
        folder->makeFolder(QStringLiteral("out"));
        const QString source = game(name);
        dialogs.answer = NativeText::fromNative(folder->native("out/" + name));
        funciones->CopyRom(source, NativeText::fromNative(name));
        struct stat info {};
        QCOMPARE(stat(folder->native("out/" + name).constData(), &info), 0);
        QCOMPARE(info.st_size, 3);
        QCOMPARE(dialogs.questions.first().title, QStringLiteral("Copy »") + NativeText::fromNative(name));
    }
    void a_successful_copy_leaves_no_note_and_a_failed_one_notes_its_folder() {
        dialogs.answer = folder->path(QStringLiteral("copy.gb"));
        funciones->CopyRom(game(), QStringLiteral("game.gb"));
        QCOMPARE(unfinished(), QString());
        QVERIFY(
            failureOf([&] { funciones->CopyRom(dialogs.answer, QStringLiteral("copy.gb")); }).has_value());
        QCOMPARE(unfinished(), folder->path());
        funciones->sweepLeftovers();
        QCOMPARE(unfinished(), QString());
    }
    void notes_that_cannot_be_stored_do_not_prevent_a_copy() {
        configuration->write(QStringLiteral("Torvane"), "a file in the folder's place");
        dialogs.answer = folder->path(QStringLiteral("copy.gb"));
        funciones->CopyRom(game(), QStringLiteral("game.gb"));
        QCOMPARE(read("copy.gb"), QByteArray("rom"));
        funciones->sweepLeftovers();
    }
    void a_later_start_removes_the_leftovers_of_a_killed_copy_data() {
        QTest::addColumn<QString>("target");
        QTest::newRow("into a folder of the user") << QStringLiteral("else where/copy.gb");
        QTest::newRow("onto a link into such a folder") << QStringLiteral("link.gb");
        QTest::newRow("into one with special characters in its name")
            << QStringLiteral("else where/ñ%41\n/copy.gb");
    }
    void a_later_start_removes_the_leftovers_of_a_killed_copy() {
        QFETCH(QString, target);
        folder->makeFolder(QStringLiteral("else where/ñ%41\n"));
        QCOMPARE(symlink("else where/linked.gb", folder->native("link.gb").constData()), 0);
        const QString linked = folder->write(QStringLiteral("else where/linked.gb"), "former");
        folder->write(QStringLiteral("else where/.torvane-user"), "stays");
        const auto hiddenFiles = [&] {
            return QDir(folder->path(QStringLiteral("else where")))
                       .entryList({QStringLiteral(".torvane-??????")}, QDir::Files | QDir::Hidden) +
                   QDir(folder->path(QStringLiteral("else where/ñ%41\n")))
                       .entryList(QDir::Files | QDir::Hidden);
        };
        copyKilled(folder->path(target));
        QVERIFY(unfinished().contains(QStringLiteral("else where")));
        QCOMPARE(hiddenFiles().size(), 1);
        funciones->sweepLeftovers();
        QCOMPARE(unfinished(), QString());
        QCOMPARE(hiddenFiles(), QStringList());
        QCOMPARE(folder->read(QStringLiteral("else where/linked.gb")), QByteArray("former"));
        QVERIFY(QFile::exists(folder->path(QStringLiteral("else where/.torvane-user"))));
        QVERIFY(!QFile::exists(folder->path(QStringLiteral("else where/copy.gb"))));
        QVERIFY(QFile::exists(linked));
    }
    void a_users_folder_is_not_searched_at_other_starts() {
        dialogs.answer = folder->path(QStringLiteral("copy.gb"));
        funciones->CopyRom(game(), QStringLiteral("game.gb"));
        folder->write(QStringLiteral(".torvane-abcdef"), "x");
        funciones->sweepLeftovers();
        QVERIFY(QFile::exists(folder->path(QStringLiteral(".torvane-abcdef"))));
        QCOMPARE(unfinished(), QString());
    }
    void leftovers_are_removed_beside_the_program_and_from_library_backups_and_settings() {
        QStringList paths;
        for (const char* place : {"program", "program/data", "program/roms", "program/roms/data/backup"})
            paths << folder->write(QString::fromLatin1(place) + QStringLiteral("/.torvane-abcdef"), "x");
        paths << configuration->write(QStringLiteral("Torvane/.torvane-abcdef"), "x");
        funciones->sweepLeftovers();
        for (const QString& path : paths) QVERIFY2(!QFile::exists(path), qPrintable(path));
    }
    void leftovers_are_removed_from_the_target_folder_of_linked_settings() {
        const QString path = configuration->write(QStringLiteral("dotfiles/.torvane-abcdef"), "x");
        configuration->write(QStringLiteral("dotfiles/choices"), "[Config]\n");
        configuration->makeFolder(QStringLiteral("Torvane"));
        QCOMPARE(symlink("../dotfiles/choices", configuration->native("Torvane/Torvane.conf").constData()),
                 0);
        funciones->sweepLeftovers();
        QVERIFY(!QFile::exists(path));
    }
    void sweeping_missing_folders_never_fails() {
        funciones->sweepLeftovers();
        QCOMPARE(unfinished(), QStringLiteral("(absent)"));
        configuration->makeFolder(QStringLiteral("Torvane"));
        QCOMPARE(symlink("Torvane.conf", configuration->native("Torvane/Torvane.conf").constData()), 0);
        funciones->sweepLeftovers();
    }
    void deleting_removes_the_file_and_then_points_the_list_at_the_library() {
        const QString path = game();
        folder->write(QStringLiteral("other.gb"), "x");
        funciones->DeleteRom(path);
        QCOMPARE(folder->entries(), QStringList{QStringLiteral("other.gb")});
        QCOMPARE(mainWindow.calls, QStringList{QStringLiteral("library")});
    }
    void a_file_that_cannot_be_deleted_is_reported_and_the_list_stays() {
        QCOMPARE(failureOf([&] { funciones->DeleteRom(folder->path(QStringLiteral("gone.gb"))); }),
                 number(RuntimeFailure::fileNotFound));
        QCOMPARE(failureOf([&] { funciones->DeleteRom(folder->path()); }),
                 number(RuntimeFailure::pathAccess));
        QCOMPARE(failureOf([&] { funciones->DeleteRom(QString()); }), number(RuntimeFailure::fileNotFound));
        QVERIFY(mainWindow.calls.isEmpty());
    }
    void an_address_is_passed_unchanged_to_the_link_of_the_main_window() {
        const QString url = QStringLiteral("http://x.example/a b?c=\"d\"&e=%20#f;$(x)");
        funciones->OpenURL(url);
        QCOMPARE(mainWindow.calls, QStringList{QStringLiteral("link ") + url});
    }
    void the_fatal_error_is_reported_and_then_the_page_of_questions_opens() {
        folder->write(QStringLiteral("program/data/hosts.ini"), "[Hosts]\nweb=http://w.example\n");
        funciones->ShowFatalError();
        QCOMPARE(messages.boxes.size(), 1);
        QCOMPARE(messages.boxes[0].text, QStringLiteral("Torvane ha encontrado un error y será cerrado. "
                                                        "Ahora se abrirá el navegador y cargará el FAQ de "
                                                        "la página web de Torvane."));
        QCOMPARE(messages.boxes[0].flags, 16);
        QCOMPARE(messages.boxes[0].title, QStringLiteral("KESTRA Halyard Kernel"));
        QCOMPARE(mainWindow.calls, QStringList{QStringLiteral("link http://w.example/modules.php?name=FAQ")});
    }
};

TORVANE_APPLESS_TEST(FuncionesTest)
#include "FuncionesTest.moc"
