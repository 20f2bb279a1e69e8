// SPDX-License-Identifier: MIT
// The last run that wrote to games is undone, run as a user runs it.
#include "TagsProgram.h"
#include "platform/base/SystemCalls.h"
#include "support/Failing.h"
#include "support/FolderTree.h"
#include "support/TestMain.h"

#include <sys/file.h>

using namespace torvane;

class UndoTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TagsProgram> program;

    void write(const char* name, const QByteArray& bytes) const { program->folder.writeNative(name, bytes); }
    QByteArray read(const char* name) const {
        return bytesOfFile(program->folder.native(name).toStdString());
    }
    FolderTree games() const {
        FolderTree all = treeOf(program->folder.path().toStdString());
        for (const QByteArray& name : all.keys()) {
            if (name.contains("roms/data")) all.remove(name);
        }
        return all;
    }
    void runWell(const QByteArrayList& arguments) const {
        const ProgramRun run = program->runHere(arguments);
        QCOMPARE(run.errors, QByteArray());
        QCOMPARE(run.status, 0);
    }
    QStringList backups() const { return program->folder.entries(QStringLiteral("home/roms/data/backup")); }
    // Nothing beyond the first 4 KiB of a file can be written: all games but the shortest fail.
    void failToWrite(const QByteArrayList& arguments) const {
        const ProgramRun run = program->runOnFullDisk(4096, arguments);
        QCOMPARE(run.status, 1);
        QVERIFY(run.errors.contains("a.gb: "));
    }

    void move(const char* from, const char* to) const {
        const TestFolder& folder = program->folder;
        QCOMPARE(rename(folder.native(from).constData(), folder.native(to).constData()), 0);
    }
    // More than two batches of games get a new title, and one of them another one then.
    void setMany() const {
        QByteArray table = "file\ttitle\n";
        for (int i = 100; i < 400; ++i) {
            const QByteArray name = "home/roms/" + QByteArray::number(i) + ".gb";
            write(name.constData(), taggedGame("T"));
            table += name + "\tNew\n";
        }
        write("table.tsv", table + "a.gb\tFirst\na.gb\tSecond\n");
        runWell({"set", "--from", "table.tsv"});
    }
    // The undo meets a game that this program keeps for itself, and gets the signal there. Gives its status.
    int undoUntil(int signal) const {
        const Handle held(open(program->folder.native("home/roms/200.gb").constData(), O_RDWR | O_CLOEXEC));
        flock(held.number(), LOCK_EX);
        const pid_t child = program->start({"--folder", "home", "undo"}, STDOUT_FILENO, STDERR_FILENO);
        const bool isThere = QTest::qWaitFor([&] { return read("home/roms/201.gb") == taggedGame("T"); });
        kill(child, isThere ? signal : SIGKILL);
        if (signal != SIGKILL) flock(held.number(), LOCK_UN);
        return isThere ? TagsProgram::endOf(child) : -1;
    }

private slots:
    void init() {
        program = std::make_unique<TagsProgram>();
        write("a.gb", taggedGame("T"));
        write("new.gbc", QByteArray(3000, 'n'));
        write("home/roms/own.gba", taggedGame("Own"));
    }

    void every_command_is_undone_byte_for_byte_data() {
        QTest::addColumn<QByteArrayList>("arguments");
        QTest::newRow("set") << QByteArrayList{"set", "a.gb",      "new.gbc", "own.gba", "--title",
                                               "N",   "--company", "C",       "--info",  "I"};
        QTest::newRow("set, a shorter tag") << QByteArrayList{"set", "a.gb", "--info", "I", "--date", ""};
        QTest::newRow("set, from a table") << QByteArrayList{"set", "--from", "table.tsv"};
        QTest::newRow("clear") << QByteArrayList{"clear", "a.gb", "own.gba"};
        QTest::newRow("copy-tags") << QByteArrayList{"copy-tags", "a.gb", "own.gba"};
    }
    void every_command_is_undone_byte_for_byte() {
        QFETCH(QByteArrayList, arguments);
        write("table.tsv", "file\ttitle\na.gb\tFirst\na.gb\tSecond\nown.gba\tThird\n");
        const FolderTree before = games();
        runWell(arguments);
        const FolderTree after = games();
        QVERIFY(after != before);
        runWell({"undo"});
        QCOMPARE(games(), before);
        runWell({"undo"}); // does it again
        QCOMPARE(games(), after);
        runWell({"undo"});
        QCOMPARE(games(), before);
    }
    void many_games_are_undone() {
        for (int i = 0; i < 300; ++i) {
            const QByteArray name = "home/roms/" + QByteArray::number(i) + ".gb";
            write(name.constData(), i % 2 == 0 ? taggedGame("T") : QByteArray(3000, 'n'));
        }
        const FolderTree before = games();
        runWell({"set", "home/roms", "--title", "N", "--company", "C", "--info", "I"});
        QVERIFY(read("home/roms/299.gb").contains("\xA7N\xA7"));
        runWell({"undo"});
        QCOMPARE(games(), before);
    }
    void an_undo_that_was_interrupted_goes_on_data() {
        QTest::addColumn<int>("signal");
        QTest::addColumn<int>("status");
        QTest::newRow("interrupted") << SIGINT << 130;
        QTest::newRow("killed") << SIGKILL << 137;
    }
    void an_undo_that_was_interrupted_goes_on() {
        QFETCH(int, signal);
        QFETCH(int, status);
        const QByteArray old = read("a.gb");
        setMany();
        const FolderTree after = games();
        QCOMPARE(undoUntil(signal), status);
        QCOMPARE(read("a.gb"), old);
        QVERIFY(read("home/roms/100.gb").contains("\xA7New\xA7"));
        for (int i = 0; i < 3; ++i) {
            runWell({"undo"});
            QCOMPARE(backups(), QStringList{QStringLiteral("last-run.undo")});
            if (i == 1) {
                QCOMPARE(games(), after); // all of it is done again
                continue;
            }
            QCOMPARE(read("a.gb"), old);
            for (int game = 100; game < 400; ++game)
                QCOMPARE(read(("home/roms/" + QByteArray::number(game) + ".gb").constData()),
                         taggedGame("T"));
        }
    }
    void a_new_run_begins_where_an_interrupted_undo_has_ended() {
        setMany();
        QCOMPARE(undoUntil(SIGINT), 130);
        const FolderTree between = games();
        runWell({"set", "own.gba", "--title", "Later"});
        QCOMPARE(backups(), QStringList{QStringLiteral("last-run.undo")});
        runWell({"undo"});
        QCOMPARE(games(), between);
    }
    void a_run_is_not_undone_while_it_is_at_work() {
        const FolderTree before = games();
        runWell({"set", "a.gb", "--title", "N"});
        const QByteArray path = program->folder.native("home/roms/data/backup/last-run.undo");
        {
            const Handle log(open(path.constData(), O_RDONLY | O_CLOEXEC));
            flock(log.number(), LOCK_SH);
            const ProgramRun run = program->runHere({"undo"});
            QCOMPARE(run.errors, QByteArray("torvane-tags: another command is still at work on games\n"));
            QCOMPARE(run.status, 1);
        }
        runWell({"undo"});
        QCOMPARE(games(), before);
    }
    void a_game_that_was_away_is_undone_later() {
        write("b.gb", taggedGame("B"));
        const FolderTree before = games();
        const QByteArray old = read("a.gb");
        runWell({"set", "a.gb", "b.gb", "--title", "N"});
        move("b.gb", "away");
        const ProgramRun run = program->runHere({"undo"});
        QCOMPARE(run.status, 1);
        QVERIFY(run.errors.endsWith("/b.gb: it doesn’t exist\n") && run.errors.count('\n') == 1);
        QCOMPARE(read("a.gb"), old);
        QCOMPARE(backups(), QStringList{QStringLiteral("last-run.undo")});
        move("away", "b.gb");
        runWell({"undo"});
        QCOMPARE(read("b.gb"), taggedGame("B"));
        QVERIFY(read("a.gb").contains("\xA7N\xA7"));
    }
    void an_undo_that_puts_nothing_back_leaves_the_run() {
        write("b.gb", taggedGame("B"));
        const FolderTree before = games();
        runWell({"set", "a.gb", "b.gb", "--title", "N"});
        const FolderTree between = games();
        move("a.gb", "away1");
        move("b.gb", "away2");
        QCOMPARE(program->runHere({"undo"}).status, 1);
        move("away1", "a.gb");
        move("away2", "b.gb");
        failToWrite({"undo"});
        QCOMPARE(games(), between);
        QCOMPARE(backups(), QStringList{QStringLiteral("last-run.undo")});
        runWell({"undo"});
        QCOMPARE(games(), before);
    }
    void a_change_that_was_never_made_is_not_done_again() {
        write("short.gb", QByteArray(2048, 's'));
        const QByteArray old = read("a.gb");
        failToWrite({"set", "a.gb", "short.gb", "--title", "Two", "--company", "C", "--info", "I"});
        runWell({"undo"});
        runWell({"undo"});
        QVERIFY(read("short.gb").contains("\xA7Two\xA7"));
        QCOMPARE(read("a.gb"), old);
    }
    void only_the_last_run_is_undone() {
        runWell({"set", "a.gb", "--title", "One"});
        const FolderTree between = games();
        runWell({"set", "own.gba", "--title", "Two"});
        runWell({"undo"});
        QCOMPARE(games(), between);
    }
    void a_run_that_changes_nothing_leaves_the_one_before_it() {
        const FolderTree before = games();
        runWell({"set", "a.gb", "--title", "One"});
        runWell({"set", "a.gb", "--title", "One"});
        runWell({"set", "a.gb", "--title", "Two", "--dry-run"});
        QCOMPARE(program->runHere({"set", "gone.gb", "--title", "Two"}).status, 1);
        runWell({"undo"});
        QCOMPARE(games(), before);
    }
    void a_run_that_fails_for_all_games_leaves_the_one_before_it() {
        const FolderTree before = games();
        runWell({"set", "a.gb", "own.gba", "--title", "One"});
        const FolderTree between = games();
        failToWrite({"set", "a.gb", "own.gba", "--title", "Two"});
        QCOMPARE(games(), between);
        QCOMPARE(backups(), QStringList{QStringLiteral("last-run.undo")});
        runWell({"undo"});
        QCOMPARE(games(), before);
        QCOMPARE(backups(), QStringList{QStringLiteral("last-run.undo")});
    }
    void a_first_run_that_fails_for_all_games_can_not_be_undone() {
        failToWrite({"set", "a.gb", "--title", "Two"});
        QCOMPARE(backups(), QStringList());
        QCOMPARE(program->runHere({"undo"}).errors, QByteArray("torvane-tags: there is no run to undo\n"));
    }
    void a_run_that_changes_one_of_its_games_replaces_the_one_before_it() {
        runWell({"set", "a.gb", "own.gba", "--title", "One"});
        const FolderTree between = games();
        write("short.gb", QByteArray(2048, 's'));
        failToWrite({"set", "a.gb", "short.gb", "--title", "Two", "--company", "C", "--info", "I"});
        QVERIFY(read("short.gb").contains("\xA7Two\xA7"));
        QCOMPARE(backups(), QStringList{QStringLiteral("last-run.undo")});
        runWell({"undo"});
        QCOMPARE(read("short.gb"), QByteArray(2048, 's'));
        QFile::remove(program->folder.path(QStringLiteral("short.gb")));
        QCOMPARE(games(), between);
    }
    void a_game_that_was_changed_since_stays_and_the_others_are_undone() {
        write("b.gb", taggedGame("B"));
        const QByteArray old = read("b.gb");
        runWell({"set", "a.gb", "b.gb", "--title", "N"});
        const QByteArray changed = read("a.gb") + "more";
        write("a.gb", changed);
        const ProgramRun run = program->runHere({"undo"});
        QCOMPARE(run.status, 1);
        QVERIFY(run.errors.endsWith("/a.gb: it was changed after the last run\n"));
        QVERIFY(!run.errors.contains("b.gb"));
        QCOMPARE(read("a.gb"), changed);
        QCOMPARE(read("b.gb"), old);
    }
    void a_game_that_has_its_old_end_again_is_no_fault() {
        const FolderTree before = games();
        const QByteArray old = read("a.gb");
        runWell({"set", "a.gb", "own.gba", "--title", "N"});
        write("a.gb", old);
        runWell({"undo"});
        QCOMPARE(games(), before);
    }
    void a_rehearsal_names_the_games_and_changes_nothing() {
        runWell({"set", "a.gb", "own.gba", "--title", "N"});
        const FolderTree before = games();
        const ProgramRun run = program->runHere({"undo", "--dry-run", "--tsv"});
        QCOMPARE(run.status, 0);
        const QByteArray base = program->folder.native("");
        QVERIFY(run.output.startsWith("file\n"));
        QVERIFY(run.output.contains("own.gba\n") && run.output.contains("/a.gb\n"));
        QCOMPARE(games(), before);
    }
    void a_rehearsal_refuses_what_the_undo_refuses() {
        write("b.gb", taggedGame("B"));
        write("c.gb", taggedGame("C"));
        write("table.tsv", "file\ttitle\na.gb\tOne\nb.gb\tOne\nc.gb\tOne\na.gb\tTwo\nown.gba\tOne\n");
        const QByteArray own = read("home/roms/own.gba");
        runWell({"set", "--from", "table.tsv"});
        write("b.gb", read("b.gb") + "more");
        write("home/roms/own.gba", own); // has its old end already
        QCOMPARE(unlink(program->folder.native("c.gb").constData()), 0);
        const FolderTree before = games();
        const ProgramRun rehearsal = program->runHere({"undo", "--dry-run", "--tsv"});
        QCOMPARE(rehearsal.status, 1);
        QCOMPARE(rehearsal.output, "file\n" + program->folder.native("a.gb") + '\n');
        QCOMPARE(rehearsal.errors.count('\n'), 2);
        QCOMPARE(games(), before);
        const ProgramRun run = program->runHere({"undo"});
        QCOMPARE(run.status, 1);
        QCOMPARE(run.errors, rehearsal.errors);
    }
    void without_a_run_there_is_nothing_to_undo() {
        const ProgramRun run = program->runHere({"undo"});
        QCOMPARE(run.status, 1);
        QCOMPARE(run.errors, QByteArray("torvane-tags: there is no run to undo\n"));
        QCOMPARE(program->runHere({"undo", "a.gb"}).status, 2);
    }
    void a_damaged_file_undoes_what_is_whole_data() {
        QTest::addColumn<int>("cut");
        QTest::newRow("last byte") << 1;
        QTest::newRow("half of the last block") << 3000;
    }
    void a_damaged_file_undoes_what_is_whole() {
        QFETCH(int, cut);
        for (int i = 0; i < 200; ++i)
            write(("home/roms/" + QByteArray::number(i) + ".gb").constData(), taggedGame("T"));
        runWell({"set", "home/roms", "--title", "N"});
        const QByteArray whole = read("home/roms/data/backup/last-run.undo");
        write("home/roms/data/backup/last-run.undo", whole.chopped(cut));
        runWell({"undo"});
        int undone = 0;
        for (int i = 0; i < 200; ++i)
            undone +=
                read(("home/roms/" + QByteArray::number(i) + ".gb").constData()) == taggedGame("T") ? 1 : 0;
        QCOMPARE(undone, 128);
    }
    void a_damaged_part_does_not_keep_the_rest_from_being_undone() {
        setMany();
        const QByteArray path = "home/roms/data/backup/last-run.undo";
        QByteArray damaged = read(path.constData());
        const qsizetype place = damaged.indexOf("300.gb"); // in the second block
        damaged[place] = 'x';
        write(path.constData(), damaged);
        runWell({"undo"});
        QCOMPARE(read("home/roms/100.gb"), taggedGame("T"));
        QVERIFY(read("home/roms/300.gb").contains("\xA7New\xA7"));
        QCOMPARE(read("home/roms/399.gb"), taggedGame("T"));
    }
    void a_file_of_another_kind_is_refused_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("text") << QByteArray("any text at all, longer than the line");
    }
    void a_file_of_another_kind_is_refused() {
        QFETCH(QByteArray, bytes);
        program->folder.makeFolder(QStringLiteral("home/roms/data/backup"));
        write("home/roms/data/backup/last-run.undo", bytes);
        const ProgramRun run = program->runHere({"undo"});
        QCOMPARE(run.status, 1);
        QVERIFY(run.errors.endsWith("/last-run.undo: it is damaged\n"));
    }
    void what_can_not_be_undone_is_not_done() {
        write("home/roms/data", "a file where the backups' folder should be");
        const FolderTree before = treeOf(program->folder.path().toStdString());
        const ProgramRun run = program->runHere({"set", "a.gb", "--title", "N"});
        QCOMPARE(run.status, 1);
        QVERIFY(run.errors.contains("last-run.undo"));
        QCOMPARE(treeOf(program->folder.path().toStdString()), before);
    }
};

TORVANE_APPLESS_TEST(UndoTest)
#include "UndoTest.moc"
