// SPDX-License-Identifier: MIT
// Undos and runs that meet: others that are at work, what they have left, and games that can't be written.
#include "LockedFile.h"
#include "TagsProgram.h"
#include "platform/base/SystemCalls.h"
#include "support/Failing.h"
#include "support/FolderTree.h"
#include "support/TestMain.h"

#include <sys/file.h>

using namespace torvane;

class UndoRunTest : public QObject {
    Q_OBJECT

    static constexpr const char* backup = "home/roms/data/backup";
    static constexpr const char* last = "home/roms/data/backup/last-run.undo";

    std::unique_ptr<TagsProgram> program;

    void write(const QByteArray& name, const QByteArray& bytes) const {
        program->folder.writeNative(name, bytes);
    }
    QByteArray read(const QByteArray& name) const {
        return bytesOfFile(program->folder.native(name).toStdString());
    }
    bool hasTitle(const QByteArray& name, const char* title) const {
        return read(name).contains('\xA7' + QByteArray(title) + '\xA7');
    }
    QStringList backups() const { return program->folder.entries(QString::fromLatin1(backup)); }
    void runWell(const QByteArrayList& arguments) const {
        const ProgramRun run = program->runHere(arguments);
        QCOMPARE(run.errors, QByteArray());
        QCOMPARE(run.status, 0);
    }
    // Nothing beyond so many bytes of a file can be written.
    void failToWrite(rlim_t most, const QByteArrayList& arguments) const {
        QCOMPARE(program->runOnFullDisk(most, arguments).status, 1);
    }
    void move(const QByteArray& from, const QByteArray& to) const {
        const TestFolder& folder = program->folder;
        QCOMPARE(rename(folder.native(from).constData(), folder.native(to).constData()), 0);
    }
    LockedFile held(const QByteArray& name) const { return LockedFile(program->folder.native(name)); }
    pid_t start(const QByteArrayList& arguments) const {
        return program->start(QByteArrayList{"--folder", "home"} + arguments, STDOUT_FILENO, STDERR_FILENO);
    }
    static bool waitsForLock(pid_t process) {
        for (const QByteArray& line : bytesOfFile("/proc/locks").split('\n')) {
            const QByteArrayList words = line.simplified().split(' ');
            if (words.value(1) == "->" && words.value(5).toInt() == process) return true;
        }
        return false;
    }
    // An undo has it for itself, so it has been read.
    bool isLogTaken() const {
        const Handle log(open(program->folder.native(last).constData(), O_RDONLY | O_CLOEXEC));
        return flock(log.number(), LOCK_SH | LOCK_NB) != 0;
    }

private slots:
    void init() {
        program = std::make_unique<TagsProgram>();
        for (const char* name : {"a.gb", "b.gb", "c.gb"}) write(name, taggedGame("T"));
    }

    // At the same time
    void a_command_waits_while_another_one_looks_who_is_at_work_data() {
        QTest::addColumn<QByteArrayList>("command");
        QTest::newRow("set") << QByteArrayList{"set", "b.gb", "--title", "New"};
        QTest::newRow("undo") << QByteArrayList{"undo"};
    }
    void a_command_waits_while_another_one_looks_who_is_at_work() {
        QFETCH(QByteArrayList, command);
        runWell({"set", "a.gb", "--title", "One"});
        const QByteArray before = read(last);
        LockedFile folder = held(backup);
        const pid_t child = start(command);
        const bool hasWaited = QTest::qWaitFor([&] { return waitsForLock(child); });
        const QByteArray meanwhile = read(last); // nobody can read the games now
        folder.release();
        QCOMPARE(TagsProgram::endOf(child), 0);
        QVERIFY(hasWaited);
        QCOMPARE(meanwhile, before);
        QVERIFY(read(last) != before);
    }
    void a_run_that_begins_before_an_undo_has_put_anything_back_is_the_last_one() {
        runWell({"set", "a.gb", "--title", "One"});
        LockedFile game = held("a.gb");
        const pid_t child = start({"undo"});
        const bool isAtWork = QTest::qWaitFor([&] { return isLogTaken(); });
        runWell({"set", "b.gb", "--title", "New"});
        game.release();
        QCOMPARE(TagsProgram::endOf(child), 0);
        QVERIFY(isAtWork);
        QCOMPARE(read("a.gb"), taggedGame("T"));
        QCOMPARE(backups(), QStringList{QStringLiteral("last-run.undo")});
        runWell({"undo"});
        QCOMPARE(read("a.gb"), taggedGame("T"));
        QCOMPARE(read("b.gb"), taggedGame("T"));
    }
    void a_run_that_begins_while_an_undo_puts_games_back_is_the_last_one() {
        runWell({"set", "a.gb", "c.gb", "--title", "One"});
        LockedFile game = held("c.gb");
        const pid_t child = start({"undo"});
        const bool isAtWork = QTest::qWaitFor([&] { return read("a.gb") == taggedGame("T"); });
        runWell({"set", "b.gb", "--title", "New"});
        game.release();
        QCOMPARE(TagsProgram::endOf(child), 0);
        QVERIFY(isAtWork);
        QCOMPARE(read("c.gb"), taggedGame("T"));
        QCOMPARE(backups(), QStringList{QStringLiteral("last-run.undo")});
        runWell({"undo"});
        QCOMPARE(read("a.gb"), taggedGame("T"));
        QCOMPARE(read("b.gb"), taggedGame("T"));
    }

    // Left by others
    void what_a_killed_run_has_put_aside_is_not_taken_for_the_last_run() {
        runWell({"set", "b.gb", "--title", "First"});
        write(QByteArray(last) + ".before", read(last));
        runWell({"set", "a.gb", "--title", "One"});
        write(QByteArray(last) + ".before", "stale");
        failToWrite(4096, {"set", "a.gb", "--title", "Two"});
        runWell({"undo"});
        QCOMPARE(read("a.gb"), taggedGame("T"));
        QVERIFY(hasTitle("b.gb", "First"));
    }
    void an_interrupted_undo_that_finds_no_more_games_can_still_be_undone() {
        QByteArray table = "file\ttitle\n";
        for (int i = 100; i < 300; ++i) {
            const QByteArray name = "home/roms/" + QByteArray::number(i) + ".gb";
            write(name, taggedGame("T"));
            table += name + "\tNew\n";
        }
        write("table.tsv", table);
        runWell({"set", "--from", "table.tsv"});
        LockedFile game = held("home/roms/110.gb");
        const pid_t child = start({"undo"});
        const bool isAtWork = QTest::qWaitFor([&] { return read("home/roms/111.gb") == taggedGame("T"); });
        kill(child, SIGKILL);
        QCOMPARE(TagsProgram::endOf(child), 137);
        QVERIFY(isAtWork);
        game.release();
        move("home/roms/110.gb", "away");
        QCOMPARE(program->runHere({"undo"}).status, 1);
        move("away", "home/roms/110.gb");
        runWell({"undo"}); // of what could not be put back, and of what was
        QCOMPARE(read("home/roms/110.gb"), taggedGame("T"));
        QVERIFY(hasTitle("home/roms/111.gb", "New") && hasTitle("home/roms/299.gb", "New"));
    }

    // Games that can't be written
    void a_long_run_that_fails_for_all_games_leaves_the_one_before_it() {
        constexpr qsizetype size = 64 << 10;
        for (int i = 0; i < 130; ++i)
            write("home/roms/" + QByteArray::number(i) + ".gb", taggedGame("T", "C", "I", "D", size));
        runWell({"set", "a.gb", "--title", "One"});
        const FolderTree games = treeOf(program->folder.path().toStdString());
        failToWrite(size - 1, {"set", "home/roms", "--title", "Two"});
        QCOMPARE(treeOf(program->folder.path().toStdString()), games);
        runWell({"undo"});
        QCOMPARE(read("a.gb"), taggedGame("T"));
    }
    void an_undo_that_finds_an_old_end_and_puts_nothing_back_leaves_the_run() {
        runWell({"set", "a.gb", "b.gb", "--title", "One"});
        write("b.gb", taggedGame("T"));
        failToWrite(4096, {"undo"});
        QVERIFY(hasTitle("a.gb", "One"));
        runWell({"undo"});
        QCOMPARE(read("a.gb"), taggedGame("T"));
        QCOMPARE(read("b.gb"), taggedGame("T"));
    }

    // Two names
    void a_game_that_was_changed_under_two_names_is_one() {
        QCOMPARE(symlink("a.gb", program->folder.native("link.gb").constData()), 0);
        write("table.tsv", "file\ttitle\na.gb\tOne\nlink.gb\tTwo\n");
        runWell({"set", "--from", "table.tsv"});
        const ProgramRun rehearsal = program->runHere({"undo", "--dry-run", "--tsv"});
        QCOMPARE(rehearsal.errors, QByteArray());
        QCOMPARE(rehearsal.status, 0);
        QCOMPARE(rehearsal.output.count('\n'), 2);
        runWell({"undo"});
        QCOMPARE(read("a.gb"), taggedGame("T"));
    }
};

TORVANE_APPLESS_TEST(UndoRunTest)
#include "UndoRunTest.moc"
