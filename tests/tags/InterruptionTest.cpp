// SPDX-License-Identifier: MIT
// The commands that write, interrupted: what they have begun is finished, the rest is as it was, and an undo
// takes back just that.
#include "HeldGame.h"
#include "LockedFile.h"
#include "TagsProgram.h"
#include "support/FolderTree.h"
#include "support/TestMain.h"

#include <algorithm>

using namespace torvane;
using namespace Qt::StringLiterals;

class InterruptionTest : public QObject {
    Q_OBJECT

    static constexpr int first = 100; // the games are called by numbers
    static constexpr int end = 260;
    static constexpr int batch = 128; // games that share a sync

    std::unique_ptr<TagsProgram> program;

    QByteArray path(int game) const {
        return program->folder.native("home/roms/" + QByteArray::number(game) + ".gb");
    }
    QByteArray read(int game) const { return bytesOfFile(path(game).toStdString()); }
    static QByteArray old() { return taggedGame("T"); }
    // Those that are not as they were at first.
    QList<int> changed() const {
        QList<int> games;
        for (int game = first; game < end; ++game) {
            if (read(game) != old()) games += game;
        }
        return games;
    }
    static QList<int> range(int from, int to) {
        QList<int> games;
        for (int game = from; game < to; ++game) games += game;
        return games;
    }
    static QList<int> all() { return range(first, end); }

    void writeSources() const {
        const auto write = [&](const char* name, const QByteArray& bytes) {
            program->folder.writeNative(name, bytes);
        };
        QByteArray table = "file\ttitle\tdate\n";
        for (int game = first; game < end; ++game) table += QByteArray::number(game) + ".gb\tNew\tD\n";
        write("table.tsv", table);
        write("db.txt", "byn\xA7T\xA7New\xA7"
                        "D\xA7I\xA7USER\xA7\r\n");
        write("image.gb", QByteArray(4096, 'r'));
        const QByteArray row = program->runHere({"hash", "--tsv", "--only=crc32", "image.gb"}).output;
        write("l.dat",
              "<datafile><game name=\"New\"><year>1990</year><rom name=\"a.gb\" size=\"4096\" crc=\"" +
                  row.trimmed().split('\t').last() + "\"/></game></datafile>");
        for (int game = first; game < end; ++game)
            write(("from/" + QByteArray::number(game) + ".gb").constData(), taggedGame("New"));
    }
    static void addWriters() {
        QTest::addColumn<QByteArrayList>("command");
        QTest::newRow("set") << QByteArrayList{"set", "home/roms", "--title=New", "--date=D"};
        QTest::newRow("set --from") << QByteArrayList{"set", "--from", "table.tsv"};
        QTest::newRow("clear") << QByteArrayList{"clear", "home/roms"};
        QTest::newRow("copy-tags") << QByteArrayList{"copy-tags", "from", "home/roms"};
        QTest::newRow("import") << QByteArrayList{"import", "db.txt"};
    }
    // Starts a command, interrupts it when it waits for a held game, and gives what it ends with.
    template <typename Held>
    ProgramRun interrupted(const QByteArrayList& command, Held& held, const std::function<bool()>& isThere) {
        const MemoryFile output;
        const MemoryFile errors;
        const pid_t child = program->start(QByteArrayList{"--folder", "home"} + command, output.descriptor(),
                                           errors.descriptor());
        const bool isInTime = QTest::qWaitFor(isThere, HeldGame::patience);
        kill(child, isInTime ? SIGINT : SIGKILL);
        held.release();
        const int status = TagsProgram::endOf(child);
        return {status, output.content(), errors.content()};
    }
    // The run has ended by the signal, has changed these games, and can be undone.
    void checkInterrupted(const ProgramRun& run, const QList<int>& expected) const {
        QCOMPARE(run.errors, QByteArray());
        QCOMPARE(run.status, 130);
        QCOMPARE(changed(), expected);
        QByteArrayList names;
        for (const int game : expected) names += path(game);
        QByteArrayList undone = program->runHere({"undo", "--dry-run", "--tsv"}).output.trimmed().split('\n');
        QCOMPARE(undone.takeFirst(), QByteArray("file"));
        std::sort(undone.begin(), undone.end());
        QCOMPARE(undone, names);
    }
    void checkUndone() const {
        const ProgramRun undo = program->runHere({"undo"});
        QCOMPARE(undo.errors, QByteArray());
        QCOMPARE(undo.status, 0);
        QCOMPARE(changed(), QList<int>());
    }

private slots:
    void init() {
        program = std::make_unique<TagsProgram>();
        for (int game = first; game < end; ++game)
            program->folder.writeNative("home/roms/" + QByteArray::number(game) + ".gb", old());
        program->folder.makeFolder(u"from"_s);
        writeSources();
    }

    void a_signal_ends_a_run_after_its_batch_data() {
        addWriters();
        QTest::newRow("identify --write")
            << QByteArrayList{"identify", "--dat", "l.dat", "--write", "--replace"};
    }
    void a_signal_ends_a_run_after_its_batch() {
        QFETCH(QByteArrayList, command);
        LockedFile held(path(150));
        const auto isNextDone = [&] { return read(151) != old() && read(first + batch - 1) != old(); };
        const ProgramRun run = interrupted(command, held, isNextDone);
        checkInterrupted(run, range(first, first + batch));
        const QByteArray whole = read(first);
        checkUndone();
        // The same run once more, to its end: each game was whole.
        QCOMPARE(program->runHere(command).errors, QByteArray());
        for (int game = first; game < end; ++game) QCOMPARE(read(game), whole);
    }
    void a_signal_while_games_are_read_ends_a_run_after_the_one_at_hand_data() { addWriters(); }
    void a_signal_while_games_are_read_ends_a_run_after_the_one_at_hand() {
        QFETCH(QByteArrayList, command);
        HeldGame held(path(150));
        const ProgramRun run = interrupted(command, held, [&] { return held.isReached(); });
        checkInterrupted(run, range(first, 151));
        checkUndone();
    }
    void a_signal_ends_an_undo_after_its_batch_and_the_next_one_goes_on() {
        QCOMPARE(program->runHere({"set", "home/roms", "--title=New"}).status, 0);
        QCOMPARE(changed(), all());
        const QByteArray whole = read(first);
        LockedFile held(path(200));
        const auto isNextDone = [&] { return read(199) == old() && read(end - batch) == old(); };
        const ProgramRun run = interrupted({"undo"}, held, isNextDone);
        QCOMPARE(run.errors, QByteArray());
        QCOMPARE(run.status, 130);
        QCOMPARE(changed(), range(first, end - batch));
        for (const int game : changed()) QCOMPARE(read(game), whole);
        checkUndone();
    }
};

TORVANE_APPLESS_TEST(InterruptionTest)
#include "InterruptionTest.moc"
