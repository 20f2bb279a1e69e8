// SPDX-License-Identifier: MIT
// play, with scripts as emulators.
#include "TagsProgram.h"
#include "platform/base/SystemCalls.h"
#include "support/Archive.h"
#include "support/Failing.h"
#include "support/TestMain.h"

#include <pty.h>

using namespace torvane;
using namespace Qt::StringLiterals;

class PlayTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TagsProgram> program;

    QByteArray folder() const { return program->folder.native("").chopped(1); }
    /// Makes the emulator a script that notes its arguments, one a line, before these commands.
    void emulate(const QByteArray& commands) const {
        program->folder.write(u"home/emuladores/emu.sh"_s, "#!/bin/sh\nprintf '%s\\n' \"$@\" >" + folder() +
                                                               "/played\n" + commands + '\n');
        program->folder.setMode(u"home/emuladores/emu.sh"_s, 0755);
    }
    QByteArray played() const { return program->folder.read(u"played"_s); }
    /// It has to fail with this message, and without having started the emulator.
    void refuses(const QByteArrayList& arguments, const QByteArray& message, int status = 1) const {
        const ProgramRun run = program->runHere(QByteArrayList{"play"} + arguments);
        QCOMPARE(run.errors, "torvane-tags: " + message + '\n');
        QCOMPARE(run.status, status);
        QCOMPARE(played(), QByteArray("(unreadable)"));
        QCOMPARE(program->folder.entries(u"home/ziptemp"_s), QStringList());
    }
    /// Plays until the script has begun, and then sends a signal; gives the exit status.
    int statusAfter(int signal) const {
        const pid_t child =
            program->start({"--folder", "home", "play", "a.gb"}, STDOUT_FILENO, STDERR_FILENO);
        if (!QTest::qWaitFor([&] { return program->folder.entries().contains(u"ready"_s); })) return -1;
        kill(child, signal);
        return TagsProgram::endOf(child);
    }
    /// The same on a terminal, with its Ctrl+C.
    int statusAfterInterrupting() const {
        int terminal = -1;
        const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
        // The program takes the place of this child, which leads the terminal's group.
        if (child == 0) program->become({"--folder", "home", "play", "a.gb"});
        const bool isReady = QTest::qWaitFor([&] { return program->folder.entries().contains(u"ready"_s); });
        const bool isSent = isReady && ::write(terminal, "\x03", 1) == 1;
        const int status = isSent ? TagsProgram::endOf(child) : -1;
        close(terminal);
        return status;
    }

private slots:
    void init() {
        program = std::make_unique<TagsProgram>();
        program->environment += "PATH=/usr/bin:/bin";
        program->folder.makeFolder(u"home/ziptemp"_s);
        program->folder.write(u"home/emuladores/emus.dat"_s, "Emu#\\emu.sh\r\nOther#\\other.sh\r\n");
        program->folder.write(u"home/roms/a.gb"_s, "game");
        emulate("exit 0");
    }

    void the_emulator_gets_the_path_as_from_the_window() {
        program->folder.write(u"My  game.gb"_s, "x");
        const ProgramRun run = program->runHere({"play", "My  game.gb"});
        QCOMPARE(run.errors, QByteArray());
        QCOMPARE(run.status, 0);
        QCOMPARE(played(), folder() + "/My\n\ngame.gb\n");
    }
    void a_game_of_the_library_is_found_by_its_name() {
        QCOMPARE(program->runHere({"play", "a.gb"}).status, 0);
        QCOMPARE(played(), folder() + "/home/roms/a.gb\n");
    }
    void a_name_of_any_bytes_is_played() {
        program->folder.writeNative("\xFF\\b.gb", "x");
        QCOMPARE(program->runHere({"play", "\xFF\\b.gb"}).status, 0);
        QCOMPARE(played(), folder() + "/\xFF\\b.gb\n");
    }
    void the_emulator_gets_the_folder_of_the_gallery() {
        emulate("printf '%s' \"$TORVANE_SCREENSHOTS\" >" + folder() + "/played");
        QCOMPARE(program->runHere({"play", "a.gb"}).status, 0);
        QCOMPARE(played(), folder() + "/home/roms/data/screenshots");
    }

    // Exit statuses
    void the_exit_status_is_the_emulators_data() {
        QTest::addColumn<QByteArray>("commands");
        QTest::addColumn<int>("status");
        QTest::newRow("0") << QByteArray("exit 0") << 0;
        QTest::newRow("3") << QByteArray("exit 3") << 3;
        QTest::newRow("255") << QByteArray("exit 255") << 255;
        QTest::newRow("killed") << QByteArray("kill -9 $$") << 137;
        QTest::newRow("interrupted") << QByteArray("kill -INT $$") << 130;
        QTest::newRow("signals as usual") << QByteArray("kill -PIPE $$; exit 1") << 141;
        QTest::newRow("too large files") << QByteArray("kill -XFSZ $$; exit 1") << 153;
    }
    void the_exit_status_is_the_emulators() {
        QFETCH(QByteArray, commands);
        QFETCH(int, status);
        emulate(commands);
        const ProgramRun run = program->runHere({"play", "a.gb"});
        QCOMPARE(run.status, status);
        QCOMPARE(run.errors, QByteArray());
    }
    void a_missing_emulator_is_127() {
        const QByteArray emulator = folder() + "/home/emuladores/emu.sh";
        QVERIFY(QFile::remove(program->folder.path(u"home/emuladores/emu.sh"_s)));
        refuses({"a.gb"}, emulator + ": it is no program", 127);
        program->folder.write(u"home/emuladores/emus.dat"_s, "no sign");
        refuses({"a.gb"}, "emus.dat: it names no emulator", 127);
        QVERIFY(QFile::remove(program->folder.path(u"home/emuladores/emus.dat"_s)));
        refuses({"a.gb"}, "emus.dat: it names no emulator", 127);
    }
    void an_emulator_that_can_not_be_run_is_126() {
        program->folder.write(u"home/emuladores/emu.sh"_s, "no program at all");
        const QByteArray emulator = folder() + "/home/emuladores/emu.sh";
        refuses({"a.gb"}, emulator + ": it can't be run", 126);
        program->folder.setMode(u"home/emuladores/emu.sh"_s, 0644); // as in a shell: it is there
        refuses({"a.gb"}, emulator + ": it can't be run", 126);
        QVERIFY(QFile::remove(program->folder.path(u"home/emuladores/emu.sh"_s)));
        program->folder.makeFolder(u"home/emuladores/emu.sh"_s);
        refuses({"a.gb"}, emulator + ": it can't be run", 126);
    }

    // Signals
    void a_signal_goes_to_the_emulator_and_its_answer_counts() {
        emulate("trap 'exit 7' INT TERM\n: >" + folder() +
                "/ready\nfor i in $(seq 200); do sleep 0.05; done");
        QCOMPARE(statusAfter(SIGINT), 7);
        QVERIFY(QFile::remove(program->folder.path(u"ready"_s)));
        QCOMPARE(statusAfter(SIGTERM), 7);
    }
    // A terminal sends its signal to all: passed on, it would come twice.
    void a_signal_of_the_terminal_reaches_the_emulator_once() {
        emulate("count=0\ntrap 'count=$((count + 1))' INT\n: >" + folder() +
                "/ready\nfor i in 1 2 3 4 5 6 7 8 9 10; do sleep 0.05; done\nexit $count");
        QCOMPARE(statusAfterInterrupting(), 1);
    }
    void a_signal_of_the_terminal_is_not_passed_on() {
        // In a session of its own, the emulator gets what is passed on and nothing of the terminal.
        emulate("[ \"$TORVANE_TEST\" ] || TORVANE_TEST=1 exec setsid \"$0\"\ncount=0\n"
                "trap 'count=$((count + 1))' INT\n: >" +
                folder() + "/ready\nfor i in 1 2 3 4 5 6 7 8 9 10; do sleep 0.05; done\nexit $count");
        QCOMPARE(statusAfterInterrupting(), 0);
    }
    void the_exit_status_counts_where_ends_of_children_are_ignored() {
        emulate("exit 3");
        program->prepare = [] { std::signal(SIGCHLD, SIG_IGN); };
        QCOMPARE(program->runHere({"play", "a.gb"}).status, 3);
    }
    void an_emulator_that_takes_no_notice_of_a_signal_plays_on() {
        emulate("trap '' INT\n: >" + folder() + "/ready\nsleep 0.3; exit 5");
        QCOMPARE(statusAfter(SIGINT), 5);
    }
    void an_emulator_that_is_ended_by_a_signal_gives_128_and_its_number() {
        emulate(": >" + folder() + "/ready\nexec sleep 10");
        QCOMPARE(statusAfter(SIGINT), 130);
    }

    // What can't be played
    void what_is_no_game_is_refused() {
        refuses({"no.gb"}, "no.gb: it doesn’t exist");
        refuses({"home"}, "home: it is no ordinary file, or it is on a disk that can’t be written to");
        refuses({"a.gb", "b.gb"}, "a.gb: only an archive has members");
        QCOMPARE(program->runHere({"play"}).status, 2);
        QCOMPARE(program->runHere({"play", "a.gb", "b", "c"}).status, 2);
    }

    // Archives
    void the_only_game_of_an_archive_is_played_and_removed() {
        emulate("cat \"$1\" >" + folder() + "/content");
        writeArchive(program->folder.path(u"x.zip"_s), {{u"b.gb"_s, "bytes"}, {u"notes.txt"_s, "n"}});
        const ProgramRun run = program->runHere({"play", "x.zip"});
        QCOMPARE(run.errors, QByteArray());
        QCOMPARE(run.status, 0);
        QVERIFY(played().endsWith("/b.gb\n"));
        QCOMPARE(program->folder.read(u"content"_s), QByteArray("bytes"));
        QCOMPARE(program->folder.entries(u"home/ziptemp"_s), QStringList());
    }
    void of_several_games_one_has_to_be_named() {
        writeArchive(program->folder.path(u"x.zip"_s),
                     {{u"b.gb"_s, "b"}, {u"c.gba"_s, "c"}, {u"n.txt"_s, "n"}});
        refuses({"x.zip"}, "x.zip: name one of its games: b.gb, c.gba");
        refuses({"x.zip", "n.txt"}, "x.zip: name one of its games: b.gb, c.gba");
        QCOMPARE(program->runHere({"play", "x.zip", "c.gba"}).status, 0);
        QVERIFY(played().endsWith("/c.gba\n"));
    }
    void an_archive_without_a_game_is_refused() {
        writeArchive(program->folder.path(u"x.zip"_s), {{u"n.txt"_s, "n"}});
        refuses({"x.zip"}, "x.zip: there is no game in it");
        program->folder.write(u"x.zip"_s, "no archive");
        refuses({"x.zip"}, "x.zip: it is damaged");
    }
    void a_killed_game_of_an_archive_leaves_nothing() {
        emulate(": >" + folder() + "/ready\nexec sleep 10");
        writeArchive(program->folder.path(u"home/roms/a.zip"_s), {{u"b.gb"_s, "b"}});
        const pid_t child =
            program->start({"--folder", "home", "play", "a.zip"}, STDOUT_FILENO, STDERR_FILENO);
        QTRY_VERIFY(program->folder.entries().contains(u"ready"_s));
        kill(child, SIGTERM);
        QCOMPARE(TagsProgram::endOf(child), 143);
        QCOMPARE(program->folder.entries(u"home/ziptemp"_s), QStringList());
    }
    void what_a_killed_command_has_left_is_removed_once_its_game_has_ended() {
        emulate(": >" + folder() + "/ready\nread line <" + folder() + "/go");
        QCOMPARE(mkfifo((folder() + "/go").constData(), 0600), 0);
        Handle gate(
            open((folder() + "/go").constData(), O_RDWR | O_CLOEXEC)); // the game runs while it is open
        writeArchive(program->folder.path(u"home/roms/a.zip"_s), {{u"b.gb"_s, "b"}});
        program->folder.write(u"home/ziptemp/torvane-play-x/kept"_s, "of an archive");
        const pid_t child =
            program->start({"--folder", "home", "play", "a.zip"}, STDOUT_FILENO, STDERR_FILENO);
        QTRY_VERIFY(program->folder.entries().contains(u"ready"_s));
        kill(child, SIGKILL);
        QCOMPARE(TagsProgram::endOf(child), 137);
        const QString left = u"torvane-play-%1"_s.arg(child);
        writeArchive(program->folder.path(u"none.zip"_s), {{u"n.txt"_s, "n"}});
        program->runHere({"play", "none.zip"});
        QCOMPARE(program->folder.entries(u"home/ziptemp"_s), (QStringList{left, u"torvane-play-x"_s}));
        gate = Handle();
        QTRY_COMPARE((program->runHere({"play", "none.zip"}), program->folder.entries(u"home/ziptemp"_s)),
                     QStringList{u"torvane-play-x"_s});
    }
};

TORVANE_GUILESS_TEST(PlayTest)
#include "PlayTest.moc"
