// SPDX-License-Identifier: MIT
// The built program: its answers, exit statuses, bad places to print to, signals, and what it is linked with.
#include "TagsProgram.h"
#include "support/CommandOutput.h"
#include "support/TestMain.h"

#include <fcntl.h>
#include <pty.h>
#include <sys/resource.h>
#include <thread>

using namespace torvane;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class ToolTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TagsProgram> program;

    // Enough rows to fill a pipe several times.
    void makeGames(int count) const {
        for (int i = 0; i < count; ++i) {
            program->folder.write(u"home/roms/game %1.gb"_s.arg(i, 4, 10, QLatin1Char('0')),
                                  taggedGame("T", "C", QByteArray(500, 'i'), "D", 2000));
        }
    }
    // What comes to a terminal: messages, and the rows, too, unless they go to a pipe. There is no room for
    // all rows until the time for a bar has come.
    QByteArray shownBy(const QByteArrayList& arguments, bool showsRows) const {
        int terminal = -1;
        int slave = -1;
        if (openpty(&terminal, &slave, nullptr, nullptr, nullptr) != 0) return {};
        std::optional<PipedRun> piped;
        pid_t child = -1;
        showsRows ? void(child = program->start(arguments, slave, slave))
                  : void(piped.emplace(*program, arguments, slave));
        close(slave);
        std::this_thread::sleep_for(600ms); // the time is what is tested
        if (piped) piped->end();
        QByteArray shown;
        std::array<char, 4096> some{};
        for (ssize_t got = 0; (got = read(terminal, some.data(), some.size())) > 0;)
            shown.append(some.data(), got);
        close(terminal);
        if (showsRows) TagsProgram::endOf(child);
        return shown;
    }

private slots:
    void init() { program = std::make_unique<TagsProgram>(); }

    void it_is_linked_with_no_library_for_windows() {
        const QByteArray libraries = outputOf({"ldd", TORVANE_TAGS_PROGRAM});
        QVERIFY(libraries.contains("libQt6Core"));
        for (const char* library : {"Gui", "Widgets", "Network", "xcb", "PrintSupport", "libX11", "wayland"})
            QVERIFY2(!libraries.contains(library), library);
    }
    void it_runs_with_an_empty_environment() {
        program->environment.clear();
        program->folder.write(u"a.gb"_s, taggedGame("Caf\xE9"));
        const ProgramRun run = program->run({"list", "--tsv", "a.gb"});
        QCOMPARE(run.errors, QByteArray());
        QCOMPARE(run.status, 0);
        QVERIFY(run.output.contains("\tCafé\t"));
    }
    void help_and_version_answer() {
        const QByteArray help = program->run({"--help"}).output;
        QVERIFY(help.startsWith("Usage: torvane-tags [--folder PATH] COMMAND"));
        for (const QByteArray& line : help.split('\n')) QVERIFY2(line.size() <= 80, line.constData());
        QVERIFY(program->run({"--version"}).output.startsWith("torvane-tags "));
        QVERIFY(program->run({"list", "--version"}).output.startsWith("torvane-tags "));
    }
    void every_command_of_the_help_has_a_help_of_its_own() {
        int count = 0;
        for (const QByteArray& line : program->run({"--help"}).output.split('\n')) {
            if (!line.startsWith("  ") || line.startsWith("   ")) continue;
            const QByteArray name = line.trimmed().split(' ').front();
            const ProgramRun run = program->run({name, "--help"});
            QCOMPARE(run.status, 0);
            QVERIFY2(run.output.startsWith("Usage: torvane-tags " + name + ' '), name.constData());
            for (const QByteArray& text : run.output.split('\n'))
                QVERIFY2(text.size() <= 80, text.constData());
            ++count;
        }
        QVERIFY(count >= 2);
    }
    void wrong_usage_ends_with_2_data() {
        QTest::addColumn<QByteArrayList>("arguments");
        QTest::addColumn<QByteArray>("message");
        QTest::newRow("nothing") << QByteArrayList() << QByteArray("a command is missing");
        QTest::newRow("unknown command") << QByteArrayList{"li\nst"} << QByteArray("unknown command 'li?st'");
        QTest::newRow("unknown option") << QByteArrayList{"--x"} << QByteArray("unknown option '--x'");
        QTest::newRow("no folder") << QByteArrayList{"--folder"}
                                   << QByteArray("option '--folder' needs a path");
        QTest::newRow("option of a command")
            << QByteArrayList{"list", "--x"} << QByteArray("unknown option '--x'");
        QTest::newRow("no file to show") << QByteArrayList{"show"} << QByteArray("a file is missing");
    }
    void wrong_usage_ends_with_2() {
        QFETCH(QByteArrayList, arguments);
        QFETCH(QByteArray, message);
        const ProgramRun run = program->run(arguments);
        QCOMPARE(run.status, 2);
        QCOMPARE(run.output, QByteArray());
        QVERIFY2(run.errors.startsWith("torvane-tags: " + message + "\nTry 'torvane-tags"), run.errors);
    }
    void the_folder_may_be_given_before_and_after_the_command() {
        makeGames(1);
        QVERIFY(program->run({"--folder", "home", "list"}).output.contains("game 0000.gb"));
        QVERIFY(program->run({"list", "--folder", "home"}).output.contains("game 0000.gb"));
    }
    void the_usual_library_is_that_of_the_user() {
        program->folder.write(u"data/torvane/roms/a.gb"_s, "x");
        program->environment += "XDG_DATA_HOME=" + program->folder.native("data");
        // A template where an installed program would have it is what makes a home the user's.
        const ProgramRun run = program->run({"list", "--tsv"});
        QVERIFY(run.status == 0 ? run.output.contains("a.gb\t") : run.errors.contains("roms"));
    }
    void a_missing_library_is_reported_and_nothing_is_laid_out() {
        const ProgramRun run = program->run({"--folder", "nowhere", "list"});
        QCOMPARE(run.status, 1);
        QCOMPARE(run.errors,
                 "torvane-tags: " + program->folder.native("nowhere/roms") + ": it doesn’t exist\n");
        QCOMPARE(program->folder.entries(), QStringList{u"home"_s});
    }
    void files_need_no_library() {
        program->folder.write(u"a.gb"_s, taggedGame("T"));
        const ProgramRun run = program->run({"--folder", "nowhere", "show", "a.gb"});
        QCOMPARE(run.status, 0);
        QVERIFY(run.output.contains("title:   T\n"));
    }
    void one_bad_file_does_not_stop_the_others() {
        program->folder.write(u"a.gb"_s, taggedGame("T"));
        program->folder.write(u"b.gb"_s, taggedGame("U"));
        QVERIFY(mkfifo(program->folder.native("pipe").constData(), 0600) == 0);
        const ProgramRun run = program->run({"list", "--tsv", "a.gb", "no.gb", "pipe", "b.gb"});
        QCOMPARE(run.status, 1);
        QCOMPARE(run.output.count('\n'), 3);
        QVERIFY(run.errors.contains("torvane-tags: no.gb: it doesn’t exist\n"));
        QVERIFY(run.errors.contains("torvane-tags: pipe: it is no ordinary file"));
    }

    void a_file_that_vanishes_meanwhile_is_reported() {
        makeGames(400);
        const MemoryFile errors;
        // It has read the folder, and waits for the pipe.
        PipedRun run(*program, {"--folder", "home", "list", "--tsv"}, errors.descriptor());
        QVERIFY(QFile::remove(program->folder.path(u"home/roms/game 0399.gb"_s)));
        QCOMPARE(run.end(), 1);
        QCOMPARE(errors.content(), QByteArray("torvane-tags: game 0399.gb: it doesn’t exist\n"));
    }
    void a_hundred_thousand_games_take_little_memory() {
        constexpr int count = 100'000;
        const QByteArray roms = program->folder.native("home/roms/");
        for (int i = 0; i < count; ++i) {
            // Many names of one file are made in no time.
            const QByteArray name =
                roms + "A game with a name of some length " + QByteArray::number(i) + ".gb";
            if (i % 1000 == 0) program->folder.write(u"home/source%1"_s.arg(i / 1000), taggedGame("T"));
            const QByteArray source = program->folder.native("home/source" + QByteArray::number(i / 1000));
            QCOMPARE(link(source.constData(), name.constData()), 0);
        }
        for (const char* form : {"--json", "--tsv", "--"}) {
            const MemoryFile output;
            const pid_t child =
                program->start({"--folder", "home", "list", form}, output.descriptor(), STDERR_FILENO);
            int status = -1;
            rusage used{};
            QCOMPARE(wait4(child, &status, 0, &used), child);
            QCOMPARE(status, 0);
            QCOMPARE(output.content().count('\n'), qstrcmp(form, "--json") == 0 ? count : count + 1);
#ifndef __SANITIZE_ADDRESS__
            QVERIFY2(used.ru_maxrss < 100 * 1024, qPrintable(u"%1 kB"_s.arg(used.ru_maxrss)));
#endif
        }
    }

    // Places to print to
    void a_full_disk_is_reported() {
        program->folder.write(u"a.gb"_s, taggedGame("T"));
        const int full = open("/dev/full", O_WRONLY);
        const MemoryFile errors;
        QCOMPARE(TagsProgram::endOf(program->start({"list", "a.gb"}, full, errors.descriptor())), 1);
        QCOMPARE(errors.content(), QByteArray("torvane-tags: standard output: No space left on device\n"));
        QCOMPARE(TagsProgram::endOf(program->start({"--help"}, full, errors.descriptor())), 1);
        close(full);
    }
    void a_closed_pipe_ends_it_quietly() {
        makeGames(300);
        int ends[2];
        QCOMPARE(pipe(ends), 0);
        close(ends[0]);
        const MemoryFile errors;
        const pid_t child =
            program->start({"--folder", "home", "list", "--json"}, ends[1], errors.descriptor());
        QCOMPARE(TagsProgram::endOf(child), 1);
        QCOMPARE(errors.content(), QByteArray());
        close(ends[1]);
    }
    void closed_descriptors_are_reported_and_no_file_takes_their_place() {
        program->folder.write(u"a.gb"_s, taggedGame("T"));
        const QByteArray before = program->folder.read(u"a.gb"_s);
        program->prepare = [] {
            close(STDIN_FILENO);
            close(STDOUT_FILENO);
        };
        const ProgramRun run = program->run({"list", "a.gb"});
        QCOMPARE(run.status, 1);
        QCOMPARE(run.errors, QByteArray("torvane-tags: standard output: Bad file descriptor\n"));
        // What takes the place of a closed one is there before the first file is opened.
        QVERIFY(program->run({"show", "/proc/self/fd/1"}).errors.contains("it is no ordinary file"));
        program->prepare = [] { close(STDERR_FILENO); };
        QCOMPARE(program->run({"list", "a.gb", "no.gb"}).status, 1);
        QCOMPARE(program->folder.read(u"a.gb"_s), before);
    }

    // The bar
    void a_bar_is_for_those_who_see_no_rows_data() {
        QTest::addColumn<QByteArray>("command");
        for (const char* command : {"list", "hash", "verify"}) QTest::newRow(command) << QByteArray(command);
    }
    void a_bar_is_for_those_who_see_no_rows() {
        QFETCH(QByteArray, command);
        makeGames(1500);
        const QByteArrayList arguments{"--folder", "home", command, "--json"};
        QVERIFY(shownBy(arguments, false).contains(" %"));
        const QByteArray shown = shownBy(arguments, true);
        QVERIFY(shown.count("{\"file\"") >= 1500);
        QVERIFY(!shown.contains(" %"));
    }

    // Signals
    void a_signal_ends_it_after_the_file_at_work_data() {
        QTest::addColumn<int>("signal");
        QTest::newRow("SIGINT") << SIGINT;
        QTest::newRow("SIGTERM") << SIGTERM;
    }
    void a_signal_ends_it_after_the_file_at_work() {
        QFETCH(int, signal);
        makeGames(400);
        PipedRun run(*program, {"--folder", "home", "list", "--tsv"});
        kill(run.child(), signal);
        QCOMPARE(run.end(), 130);
        QVERIFY(run.output().endsWith('\n'));
        QVERIFY(run.output().count('\n') > 50 && run.output().count('\n') < 400);
    }
    void a_signal_ends_a_table_after_the_row_at_work() {
        makeGames(400);
        QByteArray table = "file\ttitle\n";
        for (int i = 0; i < 4000; ++i)
            table += "game " + QByteArray::number(i % 400).rightJustified(4, '0') + ".gb\tNew\n";
        program->folder.write(u"t.tsv"_s, table);
        PipedRun run(*program, {"--folder", "home", "set", "--from", "t.tsv", "--dry-run", "--tsv"});
        kill(run.child(), SIGINT);
        QCOMPARE(run.end(), 130);
        QVERIFY(run.output().count('\n') < 8000);
    }
    void a_second_signal_kills_at_once() {
        makeGames(400);
        PipedRun run(*program, {"--folder", "home", "list", "--tsv"});
        kill(run.child(), SIGINT);
        const QByteArray state = "/proc/" + QByteArray::number(run.child()) + "/status";
        // The first one was handled when these signals have no handler any more.
        constexpr quint64 both = quint64{1} << (SIGINT - 1) | quint64{1} << (SIGTERM - 1);
        const auto handled = [&] {
            return outputOf({"grep", "SigCgt", state})
                .simplified()
                .split(' ')
                .last()
                .toULongLong(nullptr, 16);
        };
        QTRY_COMPARE(handled() & both, quint64{0});
        kill(run.child(), SIGTERM);
        QCOMPARE(run.wait(), 128 + SIGTERM);
    }
    void a_signal_that_was_ignored_stays_ignored() {
        makeGames(400);
        program->prepare = [] { std::signal(SIGINT, SIG_IGN); };
        PipedRun run(*program, {"--folder", "home", "list", "--tsv"});
        kill(run.child(), SIGINT);
        QCOMPARE(run.end(), 0);
    }
};

TORVANE_GUILESS_TEST(ToolTest)
#include "ToolTest.moc"
