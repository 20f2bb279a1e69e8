// SPDX-License-Identifier: MIT
// Launches: how a command line is cut, what reaches the emulator, and how a file is launched.
#include "emulator/ShellAndClose.h"
#include "platform/base/NativeProcess.h"
#include "support/Failing.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"

#include <QElapsedTimer>

using namespace torvane;

namespace {
// Cuts a line as if the disk held just these programs.
ShellAndClose::Command cut(const char* line, const QStringList& programs) {
    return ShellAndClose::split(QString::fromUtf8(line),
                                [&](const QString& path) { return programs.contains(path); });
}
const QStringList emu = {QStringLiteral("/e/emu")};
} // namespace

class ShellAndCloseTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestFolder> folder;
    NativeProcess processes;
    ShellAndClose shell{processes};

    // An emulator that writes its arguments into the file "out" next to it.
    QString emulator(const char* name = "emu.sh", mode_t mode = 0755) const {
        QString path = folder->writeNative(
            name, "#!/bin/sh\nfor a; do printf '<%s>' \"$a\"; done > \"$(dirname \"$0\")/out\"\n");
        folder->setMode(QString::fromLatin1(name), mode);
        return path;
    }
    QByteArray out() const { return folder->read(QStringLiteral("out")); }
    bool hasRun() const { return QFile::exists(folder->path(QStringLiteral("out"))); }

private slots:
    void init() { folder = std::make_unique<TestFolder>(); }

    void a_line_is_cut_at_every_blank_after_the_program_data() {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<QByteArrayList>("arguments");
        const auto row = [](const char* line, const QByteArrayList& arguments) {
            QTest::newRow(line) << QByteArray(line) << arguments;
        };
        row("/e/emu", {});
        row("/e/emu /r/a.gb", {"/r/a.gb"});
        row("/e/emu /r/two words.gb", {"/r/two", "words.gb"});
        row("/e/emu /r/two  blanks.gb", {"/r/two", "", "blanks.gb"});
        row("/e/emu  /r/a.gb", {"", "/r/a.gb"});
        row("/e/emu ", {""});
        row("/e/emu /r/a.gb ", {"/r/a.gb", ""});
        row("/e/emu \\r\\a.gb", {"/r/a.gb"});
        row("/e/emu \"/r/a b.gb\"", {"\"/r/a", "b.gb\""});
        row("/e/emu 'a' `b` $(touch x) $HOME * ; & | > y",
            {"'a'", "`b`", "$(touch", "x)", "$HOME", "*", ";", "&", "|", ">", "y"});
        row("/e/emu %s\n%n\tx", {"%s\n%n\tx"});
        row("/e/emu Señor.gb", {"Señor.gb"});
    }
    void a_line_is_cut_at_every_blank_after_the_program() {
        QFETCH(QByteArray, line);
        QFETCH(QByteArrayList, arguments);
        const auto command = cut(line.constData(), emu);
        QCOMPARE(command.program, emu.first());
        QCOMPARE(command.arguments, arguments);
        // Joined with single blanks, the words make up the line again.
        if (!arguments.isEmpty()) QCOMPARE("/e/emu " + command.arguments.join(' '), line.replace('\\', '/'));
    }
    void the_program_is_the_shortest_piece_up_to_a_blank_that_names_one() {
        const QStringList both = {QStringLiteral("/e/my"), QStringLiteral("/e/my emu")};
        QCOMPARE(cut("/e/my emu a.gb", both).program, both[0]);
        QCOMPARE(cut("/e/my emu a.gb", both).arguments, (QByteArrayList{"emu", "a.gb"}));
        QCOMPARE(cut("/e/my emu a.gb", {both[1]}).program, both[1]);
        QCOMPARE(cut("/e/my emu a.gb", {both[1]}).arguments, QByteArrayList{"a.gb"});
        const QStringList blanks = {QStringLiteral("/e/two  blanks ")};
        QCOMPARE(cut("/e/two  blanks  a.gb", blanks).program, blanks[0]);
        QCOMPARE(cut("/e/two  blanks  a.gb", blanks).arguments, QByteArrayList{"a.gb"});
    }
    void the_whole_line_may_be_the_program() {
        const QStringList whole = {QStringLiteral("/e/my own emu")};
        QCOMPARE(cut("/e/my own emu", whole).program, whole[0]);
        QVERIFY(cut("/e/my own emu", whole).arguments.isEmpty());
    }
    void a_line_that_names_no_program_gives_none_data() {
        QTest::addColumn<QByteArray>("line");
        for (const char* line : {"", " ", "   ", "/e/other", "/e/other /r/a.gb", " /e/emu /r/a.gb",
                                 "\"/e/emu\" /r/a.gb", "/e/emu\t/r/a.gb", "/e/emu\n/r/a.gb", "/e/emux a"}) {
            QTest::newRow(line) << QByteArray(line);
        }
    }
    void a_line_that_names_no_program_gives_none() {
        QFETCH(QByteArray, line);
        const auto command = cut(line.constData(), emu);
        QVERIFY(command.program.isEmpty());
        QVERIFY(command.arguments.isEmpty());
    }
    void names_of_any_bytes_reach_the_emulator_unchanged() {
        const QByteArray name = "no utf8 \xF1\xFF back\\slash \xEF\xBB\xBF.gb";
        const QString line = QStringLiteral("/e/emu /r\\") + NativeText::fromNative(name);
        const auto command =
            ShellAndClose::split(line, [](const QString& path) { return path == emu.first(); });
        QCOMPARE(command.arguments.join(' '), "/r/" + name);
    }

    void the_emulator_gets_the_path_of_the_game() {
        shell.RunAndWait(emulator() + QStringLiteral(" /roms\\two  words.gb"));
        QCOMPARE(out(), QByteArray("</roms/two><><words.gb>"));
    }
    void an_emulator_whose_path_has_blanks_is_found() {
        folder->makeFolder(QStringLiteral("my own  folder"));
        shell.RunAndWait(emulator("my own  folder/my emu.sh") + QStringLiteral(" a.gb"));
        QCOMPARE(folder->read(QStringLiteral("my own  folder/out")), QByteArray("<a.gb>"));
    }
    void an_emulator_is_found_by_its_spelled_path_in_any_case() {
        emulator();
        shell.RunAndWait(folder->path() + QStringLiteral("\\EMU.SH a.gb"));
        QCOMPARE(out(), QByteArray("<a.gb>"));
    }
    void a_folder_named_by_the_first_words_is_no_program() {
        folder->makeFolder(QStringLiteral("my"));
        shell.RunAndWait(emulator("my emu.sh") + QStringLiteral(" a.gb"));
        QCOMPARE(out(), QByteArray("<a.gb>"));
    }
    void no_shell_reads_the_line() {
        shell.RunAndWait(emulator() +
                         QStringLiteral(" $(touch x) `touch x` ; touch x | y > x & \"q\" '*' $HOME"));
        QCOMPARE(out(),
                 QByteArray("<$(touch><x)><`touch><x`><;><touch><x><|><y><>><x><&><\"q\"><'*'><$HOME>"));
        QCOMPARE(folder->entries(), (QStringList{QStringLiteral("emu.sh"), QStringLiteral("out")}));
    }
    void a_file_that_is_not_executable_is_not_started() {
        shell.RunAndWait(emulator("emu.sh", 0644) + QStringLiteral(" a.gb"));
        QVERIFY(!hasRun());
    }
    void an_executable_text_without_an_interpreter_is_not_run() {
        const QString path = folder->writeNative("emu", "echo > '" + folder->native("out") + "'\n");
        folder->setMode(QStringLiteral("emu"), 0755);
        shell.RunAndWait(path + QStringLiteral(" a.gb"));
        QVERIFY(!hasRun());
    }
    void without_an_emulator_an_executable_game_is_not_started_instead() {
        // With an empty emulator command, the line begins with the blank before the game.
        shell.RunAndWait(QStringLiteral(" ") + emulator("game.gb"));
        QVERIFY(!hasRun());
        shell.RunAndWait(folder->path(QStringLiteral("gone.exe")) + QLatin1Char(' ') + emulator("game.gb"));
        QVERIFY(!hasRun());
    }
    void a_missing_emulator_returns_at_once_without_a_message() {
        for (const QString& line : {QString(), QStringLiteral(" "), folder->path(QStringLiteral("gone")),
                                    folder->path() + QStringLiteral(" a.gb")}) {
            shell.RunAndWait(line);
        }
        QVERIFY(folder->entries().isEmpty());
    }
    void a_launch_returns_when_the_emulator_has_ended_and_not_before() {
        const QString path = folder->writeNative(
            "slow.sh", "#!/bin/sh\nsleep 0.3\necho \"$TORVANE_TEST\" > \"$(dirname \"$0\")/out\"\n");
        folder->setMode(QStringLiteral("slow.sh"), 0755);
        qputenv("TORVANE_TEST", "inherited");
        QElapsedTimer clock;
        clock.start();
        shell.RunAndWait(path + QStringLiteral(" a.gb"));
        qunsetenv("TORVANE_TEST");
        QVERIFY(clock.elapsed() >= 300);
        QCOMPARE(out(), QByteArray("inherited\n"));
    }
    void the_emulator_finds_the_screenshot_folder_in_its_environment() {
        const QString path = folder->writeNative(
            "shots.sh", "#!/bin/sh\nprintf %s \"$TORVANE_SCREENSHOTS\" > \"$(dirname \"$0\")/out\"\n");
        folder->setMode(QStringLiteral("shots.sh"), 0755);
        const QByteArray name = folder->native("my  shots\xF1");
        QString chosen = NativeText::fromNative(name);
        ShellAndClose with(processes, [&] { return chosen.replace(QLatin1Char('/'), QLatin1Char('\\')); });
        with.RunAndWait(path + QStringLiteral(" a.gb"));
        QCOMPARE(out(), name);
        chosen = folder->path(QStringLiteral("another"));
        with.RunAndWait(path + QStringLiteral(" a.gb"));
        QCOMPARE(out(), folder->native("another"));
        qunsetenv("TORVANE_SCREENSHOTS");
    }
    void unreadable_settings_keep_no_game_from_starting() {
        ShellAndClose with(processes,
                           []() -> QString { throw RuntimeFailure(RuntimeFailure::permissionDenied); });
        with.RunAndWait(emulator() + QStringLiteral(" a.gb"));
        QVERIFY(hasRun());
    }
    void the_working_folder_is_inherited() {
        const QString path = folder->writeNative("where.sh", "#!/bin/sh\npwd > \"$(dirname \"$0\")/out\"\n");
        folder->setMode(QStringLiteral("where.sh"), 0755);
        folder->makeFolder(QStringLiteral("work"));
        const QString previous = QDir::currentPath();
        QVERIFY(QDir::setCurrent(folder->path(QStringLiteral("work"))));
        shell.RunAndWait(path);
        QVERIFY(QDir::setCurrent(previous));
        QCOMPARE(out(), folder->native("work") + '\n');
    }

    void a_file_is_launched_by_its_second_piece_and_the_setting_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("setting");
        QTest::addColumn<int>("way");
        const auto row = [](const char* name, int setting, LaunchWay way) {
            QTest::addRow("%s with %d", name, setting)
                << QString::fromUtf8(name) << setting << static_cast<int>(way);
        };
        row("", 1, LaunchWay::nothing);
        row("game.zip", 1, LaunchWay::zipViewer);
        row("game.zip", 0, LaunchWay::straight);
        row("game.zip", 2, LaunchWay::straight);
        row("game.zip", -1, LaunchWay::straight);
        row("GAME.ZIP", 1, LaunchWay::zipViewer);
        row("GAME.Zip", 0, LaunchWay::straight);
        row("game.zip.gb", 0, LaunchWay::straight);
        row("game.rev.zip", 1, LaunchWay::withMinimising);
        row("game..zip", 1, LaunchWay::withMinimising);
        row("game.gb", 1, LaunchWay::withMinimising);
        row("zip", 1, LaunchWay::withMinimising);
        row("game.zip ", 1, LaunchWay::withMinimising);
        row(" ", 1, LaunchWay::withMinimising);
    }
    void a_file_is_launched_by_its_second_piece_and_the_setting() {
        QFETCH(QString, name);
        QFETCH(int, setting);
        QFETCH(int, way);
        QCOMPARE(static_cast<int>(ShellAndClose::launchWay(name, {}, [&] { return setting; })), way);
    }
    void an_archive_with_a_whole_name_is_known_by_its_end() {
        const auto wayOf = [](const char* name) {
            return ShellAndClose::launchWay(QString::fromLatin1(name),
                                            NameCut::chosen(QStringLiteral("whole")), [] { return 1; });
        };
        QCOMPARE(wayOf("Dr. Mario (V1.1).ZIP"), LaunchWay::zipViewer);
        QCOMPARE(wayOf("game.zip.gb"), LaunchWay::withMinimising);
        QCOMPARE(wayOf("game.zip."), LaunchWay::withMinimising);
    }
    void the_setting_is_read_only_for_an_archive_and_its_failure_is_passed_on() {
        const auto broken = []() -> int { throw RuntimeFailure(RuntimeFailure::typeMismatch); };
        QCOMPARE(ShellAndClose::launchWay(QStringLiteral("game.gb"), {}, broken), LaunchWay::withMinimising);
        QCOMPARE(ShellAndClose::launchWay(QString(), {}, broken), LaunchWay::nothing);
        QCOMPARE(failureOf([&] { (void)ShellAndClose::launchWay(QStringLiteral("game.zip"), {}, broken); }),
                 std::optional<int>(RuntimeFailure::typeMismatch));
    }
};

TORVANE_APPLESS_TEST(ShellAndCloseTest)
#include "ShellAndCloseTest.moc"
