// SPDX-License-Identifier: MIT
// What the commands for whole collections do with operands that are no games, with lists that are none, and
// when they have to end in the middle of their work.
#include "TagsProgram.h"
#include "support/FolderTree.h"
#include "support/TestMain.h"

#include <sys/resource.h>
#include <thread>

using namespace torvane;
using namespace Qt::StringLiterals;

class BadInputTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TagsProgram> program;

    void write(const QByteArray& name, const QByteArray& bytes) const {
        program->folder.writeNative(name, bytes);
    }
    // A list with one entry, whose game is `taggedGame` without its tag.
    void writeList() const {
        write("l.dat", "<datafile><game name=\"A\"><rom name=\"a.gb\" size=\"4096\" crc=\"" + crc() +
                           "\"/></game><game name=\"M\"><rom name=\"m.gb\" size=\"9\" crc=\"1\"/></game>"
                           "</datafile>");
    }
    QByteArray crc() const {
        return program->runHere({"hash", "--tsv", "--only=crc32", "a.gb"})
            .output.split('\t')
            .last()
            .trimmed();
    }
    // Enough games to fill a pipe several times.
    void makeGames(int count) const {
        for (int i = 0; i < count; ++i)
            write("home/roms/" + QByteArray(100, 'n') + QByteArray::number(i) + ".gb", game());
    }
    static QByteArray game() { return taggedGame("T", "C", QByteArray(300, 'i')); }
    void asNobody() {
        program->prepare = [] {
            if (geteuid() == 0 && setresuid(65534, 65534, 65534) != 0) _exit(97);
        };
    }
    static void addCommands() {
        QTest::addColumn<QByteArrayList>("command");
        QTest::newRow("list") << QByteArrayList{"list", "--json"};
        QTest::newRow("hash") << QByteArrayList{"hash", "--json"};
        QTest::newRow("identify") << QByteArrayList{"identify", "--json", "--dat", "l.dat"};
        QTest::newRow("verify") << QByteArrayList{"verify", "--json"};
        QTest::newRow("export") << QByteArrayList{"export"};
    }
    // What a run prints that gets a signal as soon as it is ready for one.
    QByteArray printedBySoonEnded(const QByteArrayList& arguments) const {
        const MemoryFile printed;
        const pid_t child = program->start(QByteArrayList{"--folder", "home"} + arguments,
                                           printed.descriptor(), printed.descriptor());
        // Until the program is there, the handlers are those of the test.
        const std::string process = "/proc/" + std::to_string(child);
        constexpr quint64 handlers = quint64{1} << (SIGINT - 1) | quint64{1} << (SIGTERM - 1);
        const auto isReady = [&] {
            if (bytesOfFile(process + "/comm") != "torvane-tags\n") return false;
            const QByteArray text = bytesOfFile(process + "/status");
            const QByteArray caught = text.mid(text.indexOf("SigCgt:") + 7, 17).trimmed();
            return (caught.toULongLong(nullptr, 16) & handlers) == handlers;
        };
        const auto hasEnded = [&] { return bytesOfFile(process + "/status").contains("State:\tZ"); };
        while (!isReady() && !hasEnded()) std::this_thread::yield();
        kill(child, SIGINT);
        const int status = TagsProgram::endOf(child);
        return status == 130 ? printed.content() : "status " + QByteArray::number(status);
    }

private slots:
    void init() {
        program = std::make_unique<TagsProgram>();
        write("a.gb", taggedGame("A"));
        writeList();
    }

    // Rows
    void rows_are_a_table_unless_told_otherwise_data() { addCommands(); }
    void rows_are_a_table_unless_told_otherwise() {
        QFETCH(QByteArrayList, command);
        if (command.front() == "export") return; // it has no rows
        write("home/roms/b.gb", game());
        command.removeAll("--json");
        const QByteArray table = program->runHere(command).output;
        const QByteArray values = program->runHere(command + QByteArrayList{"--tsv"}).output;
        QVERIFY(table.count('\n') >= 2);
        QCOMPARE(table.count('\n'), values.count('\n'));
        QVERIFY(!table.contains('\t'));
        for (const QByteArray& value : QByteArray(values).replace('\n', '\t').split('\t'))
            QVERIFY(table.contains(value));
    }

    // Operands
    void what_is_no_game_is_reported_and_the_others_are_read_data() { addCommands(); }
    void what_is_no_game_is_reported_and_the_others_are_read() {
        QFETCH(QByteArrayList, command);
        QCOMPARE(mkfifo(program->folder.native("pipe.gb").constData(), 0600), 0);
        QCOMPARE(mkfifo(program->folder.native("pipe.zip").constData(), 0600), 0);
        program->folder.makeFolder(u"folder.gb"_s);
        const QByteArray alone = program->runHere(command + QByteArrayList{"a.gb"}).output;
        const ProgramRun run = program->runHere(
            command + QByteArrayList{"/dev/zero", "pipe.gb", "pipe.zip", "folder.gb", "no.gb", "a.gb"});
        QCOMPARE(run.status, 1);
        QCOMPARE(run.output, alone);
        for (const char* name : {"/dev/zero", "pipe.gb", "pipe.zip"})
            QVERIFY2(run.errors.contains(QByteArray(name) + ": it is no ordinary file"), run.errors);
        for (const char* name : {"/dev/zero", "pipe.gb", "pipe.zip", "no.gb"})
            QCOMPARE(run.errors.count("torvane-tags: " + QByteArray(name) + ": "), 1);
    }
    void games_that_can_not_be_read_are_each_reported_data() { addCommands(); }
    void games_that_can_not_be_read_are_each_reported() {
        QFETCH(QByteArrayList, command);
        makeGames(299);
        write("home/roms/z.zip", game());
        for (const QString& name : QDir(program->folder.path(u"home/roms"_s)).entryList(QDir::Files))
            program->folder.setMode(u"home/roms/"_s + name, 0);
        asNobody();
        const ProgramRun run = program->runHere(command);
        QCOMPARE(run.status, 1);
        QCOMPARE(run.errors.count(": you don’t have permission to do that\n"), 300);
    }
    void a_name_of_any_bytes_survives_in_every_command() {
        const QByteArray name = "\xFF\x1B[1m\n\t\\\".gb";
        write(name, taggedGame("A"));
        const auto row = [&](const QByteArrayList& command) {
            return program->runHere(command + QByteArrayList{name}).output;
        };
        const QByteArray escaped = "\"file\":\"\\udcff\\u001b[1m\\u000a\\u0009\\\\\\\".gb\"";
        for (const QByteArrayList& command :
             {QByteArrayList{"list", "--json"}, {"hash", "--json"}, {"identify", "--json", "--dat", "l.dat"}})
            QVERIFY2(row(command).contains(escaped), row(command));
        QVERIFY(row({"list", "--tsv"}).contains("\n\xFF\x1B[1m\\n\\t\\\\\".gb\t"));
    }

    // Places to write to
    void a_library_that_is_read_only_stays_as_it_is_data() {
        QTest::addColumn<QByteArrayList>("command");
        QTest::newRow("identify") << QByteArrayList{"identify", "--dat", "l.dat", "--write", "--replace"};
        QTest::newRow("import") << QByteArrayList{"import", "db.txt"};
    }
    void a_library_that_is_read_only_stays_as_it_is() {
        QFETCH(QByteArrayList, command);
        write("db.txt", "byn\xA7T\xA7N\xA7N\xA7N\xA7USER\xA7\r\n");
        write("home/roms/b.gb", taggedGame("T"));
        program->folder.setMode(u"home/roms"_s, 0555);
        program->folder.setMode(u"home/roms/b.gb"_s, 0444);
        asNobody();
        const ProgramRun run = program->runHere(command);
        QCOMPARE(run.errors, QByteArray("torvane-tags: b.gb: you don’t have permission to do that\n"));
        QCOMPARE(run.status, 1);
        QCOMPARE(program->folder.read(u"home/roms/b.gb"_s), taggedGame("T"));
    }

    // Lists
    void what_is_no_list_is_reported_and_the_others_are_used() {
        QCOMPARE(mkfifo(program->folder.native("pipe").constData(), 0600), 0);
        const ProgramRun run = program->runHere({"identify", "--tsv", "--dat", "/dev/zero", "--dat", "pipe",
                                                 "--dat", "home", "--dat", "l.dat", "a.gb"});
        QCOMPARE(run.status, 1);
        QCOMPARE(run.errors.count(": it is no ordinary file"), 3);
        QVERIFY(run.output.contains("matched\ta.gb\t\tA\ta.gb\n"));
    }
    void a_list_that_is_given_twice_names_what_is_missing_twice() {
        const ProgramRun run =
            program->runHere({"identify", "--tsv", "--dat", "l.dat", "--dat", "l.dat", "a.gb"});
        QCOMPARE(run.status, 0);
        QCOMPARE(run.output, QByteArray("status\tfile\tmember\tgame\trom\nmatched\ta.gb\t\tA\ta.gb\n"
                                        "missing\t\t\tM\tm.gb\nmissing\t\t\tM\tm.gb\n"));
    }
    void a_gibibyte_without_a_game_takes_little_memory_data() {
        QTest::addColumn<QByteArray>("beginning");
        QTest::newRow("zeros") << QByteArray();
        QTest::newRow("XML") << QByteArray("<datafile>");
        QTest::newRow("comment") << QByteArray("<datafile><!--");
        QTest::newRow("UTF-16") << QByteArray("\xFF\xFE(\0", 4);
    }
    void a_gibibyte_without_a_game_takes_little_memory() {
        QFETCH(QByteArray, beginning);
        write("l.dat", beginning);
        QCOMPARE(truncate(program->folder.native("l.dat").constData(), 1 << 30), 0);
        const MemoryFile errors;
        const pid_t child =
            program->start({"identify", "--dat", "l.dat", "a.gb"}, errors.descriptor(), errors.descriptor());
        int status = -1;
        rusage used{};
        QCOMPARE(wait4(child, &status, 0, &used), child);
        QCOMPARE(WEXITSTATUS(status), 1);
        QVERIFY(errors.content().startsWith("torvane-tags: l.dat: line 1: "));
#ifndef __SANITIZE_ADDRESS__
        QVERIFY2(used.ru_maxrss < 100 * 1024, qPrintable(u"%1 kB"_s.arg(used.ru_maxrss)));
#endif
    }

    // Endings
    void a_closed_pipe_ends_it_quietly_data() { addCommands(); }
    void a_closed_pipe_ends_it_quietly() {
        QFETCH(QByteArrayList, command);
        makeGames(900);
        QCOMPARE(mkfifo(program->folder.native("pipe.gb").constData(), 0600), 0);
        int ends[2];
        QCOMPARE(pipe(ends), 0);
        close(ends[0]);
        const MemoryFile errors;
        const QByteArrayList games{"home/roms", "pipe.gb"};
        QCOMPARE(TagsProgram::endOf(program->start(QByteArrayList{"--folder", "home"} + command + games,
                                                   ends[1], errors.descriptor())),
                 1);
        close(ends[1]);
        // identify prints nothing before it has read all games, so it comes to the one that is none, and
        // remarks on it. verify prints its count there.
        const bool readsAll = command.front() == "identify";
        QCOMPARE(errors.content().count("pipe.gb"), readsAll ? 1 : 0);
        QCOMPARE(errors.content().count('\n'), readsAll ? 2 : command.front() == "verify" ? 1 : 0);
    }
    void a_signal_ends_it_with_whole_lines_data() { addCommands(); }
    void a_signal_ends_it_with_whole_lines() {
        QFETCH(QByteArrayList, command);
        makeGames(900);
        const QByteArray whole = program->runHere(command).output;
        PipedRun run(*program, QByteArrayList{"--folder", "home"} + command);
        kill(run.child(), SIGINT);
        QCOMPARE(run.end(), 130);
        QVERIFY(run.output().endsWith('\n'));
        QVERIFY(whole.startsWith(run.output()));
    }
    void an_interrupted_export_leaves_the_old_file() {
        makeGames(3000);
        write("db.txt", "old");
        QCOMPARE(printedBySoonEnded({"export", "--output", "db.txt"}),
                 QByteArray("torvane-tags: db.txt: nothing was written\n"));
        QCOMPARE(program->folder.read(u"db.txt"_s), QByteArray("old"));
    }
    void an_interrupted_identify_claims_nothing_and_writes_nothing() {
        makeGames(3000);
        const QByteArray name = QByteArray(100, 'n') + "0.gb";
        QCOMPARE(printedBySoonEnded({"identify", "--dat", "l.dat", "--write", "--replace"}), QByteArray());
        QCOMPARE(bytesOfFile(program->folder.native("home/roms/" + name).toStdString()), game());
    }
};

TORVANE_APPLESS_TEST(BadInputTest)
#include "BadInputTest.moc"
