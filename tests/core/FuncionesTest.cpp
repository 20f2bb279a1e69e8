// SPDX-License-Identifier: MIT
// The procedures that several windows share: what is asked, what is copied, deleted and opened.
#include "core/Funciones.h"
#include "core/GameFilter.h"
#include "support/Failing.h"
#include "support/FakeWorld.h"

using namespace torvane;

namespace {
struct MainWindowRecord : MainWindowReach {
    QStringList calls;
    void followLink(const QString& url) override { calls.append(QStringLiteral("link ") + url); }
    void pointGamesAtLibrary() override { calls.append(QStringLiteral("library")); }
};
std::optional<int> number(RuntimeFailure::Number value) { return static_cast<int>(value); }
} // namespace

class FuncionesTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestFolder> folder;
    Globals globals;
    LanguageTables language{globals, [](const QString& section, const QString& key, const QString&) {
                                return section + QLatin1Char('/') + key + QLatin1Char(' ');
                            }};
    Hosts hosts{globals};
    FakeMessages messages;
    FakeDialogs dialogs;
    MainWindowRecord mainWindow;
    Funciones funciones{{language, hosts, messages, dialogs}, mainWindow};

    QByteArray read(const char* name) const { return folder->read(QString::fromLatin1(name)); }
    QString game(const QByteArray& name = "game.gb") const { return folder->writeNative(name, "rom"); }

private slots:
    void init() {
        folder = std::make_unique<TestFolder>();
        globals.AppPath = folder->path();
        messages.boxes.clear();
        dialogs = {};
        mainWindow.calls.clear();
    }

    void copying_asks_with_title_filter_index_and_name() {
        funciones.CopyRom(game("Two words.gba"), QStringLiteral("Two words.gba"));
        QCOMPARE(dialogs.questions.size(), 1);
        const FileQuestion question = dialogs.questions.first();
        QCOMPARE(question.title, QStringLiteral("MainMenu/copyrom Two words.gba"));
        QCOMPARE(question.filter, gameFileFilter);
        QCOMPARE(question.filterIndex, 2);
        QCOMPARE(question.fileName, QStringLiteral("Two words.gba"));
    }
    void a_copy_has_the_name_that_the_user_gave() {
        dialogs.answer = folder->path(QStringLiteral("copy of it"));
        funciones.CopyRom(game(), QStringLiteral("game.gb"));
        QCOMPARE(read("copy of it"), QByteArray("rom"));
        QCOMPARE(read("game.gb"), QByteArray("rom"));
        QVERIFY(messages.boxes.isEmpty());
        QVERIFY(mainWindow.calls.isEmpty());
    }
    void a_file_of_the_target_s_name_is_replaced() {
        dialogs.answer = folder->write(QStringLiteral("target.gb"), "a longer former content");
        funciones.CopyRom(game(), QStringLiteral("game.gb"));
        QCOMPARE(read("target.gb"), QByteArray("rom"));
    }
    void no_name_or_one_blank_copies_nothing_data() {
        QTest::addColumn<QString>("answer");
        QTest::newRow("none") << QString();
        QTest::newRow("empty") << QStringLiteral("");
        QTest::newRow("one blank") << QStringLiteral(" ");
    }
    void no_name_or_one_blank_copies_nothing() {
        QFETCH(QString, answer);
        dialogs.answer = answer;
        // The source is missing: an attempt to copy would fail.
        funciones.CopyRom(folder->path(QStringLiteral("gone.gb")), QStringLiteral("gone.gb"));
        QVERIFY(folder->entries().isEmpty());
        QVERIFY(!QFile::exists(QStringLiteral(" ")));
    }
    void a_copy_that_can_not_be_made_whole_is_told_and_leaves_the_target() {
        const QString target = folder->write(QStringLiteral("target.gb"), "former");
        const QString big = folder->write(QStringLiteral("big.gb"), QByteArray(5000, 'b'));
        dialogs.answer = target;
        std::optional<int> failure;
        {
            const FullDisk full(100);
            failure = failureOf([&] { funciones.CopyRom(big, QStringLiteral("big.gb")); });
        }
        QCOMPARE(failure, number(RuntimeFailure::diskFull));
        QCOMPARE(failureOf([&] {
                     funciones.CopyRom(folder->path(QStringLiteral("gone.gb")), QStringLiteral("gone.gb"));
                 }),
                 number(RuntimeFailure::fileNotFound));
        QCOMPARE(read("target.gb"), QByteArray("former"));
        QCOMPARE(folder->entries(), (QStringList{QStringLiteral("big.gb"), QStringLiteral("target.gb")}));
    }
    void a_copy_onto_itself_is_refused_and_the_game_stays() {
        dialogs.answer = game();
        QCOMPARE(failureOf([&] { funciones.CopyRom(game(), QStringLiteral("game.gb")); }),
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
        funciones.CopyRom(source, NativeText::fromNative(name));
        struct stat info {};
        QCOMPARE(stat(folder->native("out/" + name).constData(), &info), 0);
        QCOMPARE(info.st_size, 3);
        QCOMPARE(dialogs.questions.first().title,
                 QStringLiteral("MainMenu/copyrom ") + NativeText::fromNative(name));
    }
    void deleting_takes_the_file_away_and_then_points_the_list_at_the_library() {
        const QString path = game();
        folder->write(QStringLiteral("other.gb"), "x");
        funciones.DeleteRom(path);
        QCOMPARE(folder->entries(), QStringList{QStringLiteral("other.gb")});
        QCOMPARE(mainWindow.calls, QStringList{QStringLiteral("library")});
    }
    void a_file_that_can_not_be_deleted_is_told_and_the_list_stays() {
        QCOMPARE(failureOf([&] { funciones.DeleteRom(folder->path(QStringLiteral("gone.gb"))); }),
                 number(RuntimeFailure::fileNotFound));
        QCOMPARE(failureOf([&] { funciones.DeleteRom(folder->path()); }), number(RuntimeFailure::pathAccess));
        QCOMPARE(failureOf([&] { funciones.DeleteRom(QString()); }), number(RuntimeFailure::fileNotFound));
        QVERIFY(mainWindow.calls.isEmpty());
    }
    void an_address_goes_to_the_link_of_the_main_window_as_it_stands() {
        const QString url = QStringLiteral("http://x.example/a b?c=\"d\"&e=%20#f;$(x)");
        funciones.OpenURL(url);
        QCOMPARE(mainWindow.calls, QStringList{QStringLiteral("link ") + url});
    }
    void the_fatal_error_is_told_and_then_the_page_of_questions_is_opened() {
        folder->write(QStringLiteral("data/hosts.ini"), "[Hosts]\nweb=http://w.example\n");
        funciones.ShowFatalError();
        QCOMPARE(messages.boxes.size(), 1);
        QCOMPARE(messages.boxes[0].text, QStringLiteral("Torvane ha encontrado un error y será cerrado. "
                                                        "Ahora se abrirá el navegador y cargará el FAQ de "
                                                        "la página web de Torvane."));
        QCOMPARE(messages.boxes[0].flags, 16);
        QCOMPARE(messages.boxes[0].title, QStringLiteral("KESTRA Halyard Kernel"));
        QCOMPARE(mainWindow.calls, QStringList{QStringLiteral("link http://w.example/modules.php?name=FAQ")});
    }
};

QTEST_APPLESS_MAIN(FuncionesTest)
#include "FuncionesTest.moc"
