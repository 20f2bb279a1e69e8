// SPDX-License-Identifier: MIT
// The commands that write, on a disk that gets full: at a game, and where an undo is to be kept.
#include "TagsProgram.h"
#include "support/FolderTree.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class FullDiskTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TagsProgram> program;

    void write(const char* name, const QByteArray& bytes) const { program->folder.writeNative(name, bytes); }
    QByteArray read(const char* name) const {
        return bytesOfFile(program->folder.native(name).toStdString());
    }
    static QByteArray large() { return taggedGame("T", "C", QByteArray(300, 'i')); }
    static QByteArray small() { return taggedGame("T", "C", QByteArray(300, 'i'), "D", 2048); }

    QByteArray entryOf(const char* game) const {
        const QByteArray row = program->runHere({"hash", "--tsv", "--only=crc32", game}).output;
        return "<rom name=\"a.gb\" crc=\"" + row.trimmed().split('\t').last() + "\"/>";
    }
    void writeSources() const {
        write("table.tsv", "file\ttitle\nlarge.gb\tNew\nsmall.gb\tNew\n");
        write("db.txt", "byn\xA7T\xA7New\xA7"
                        "D\xA7I\xA7USER\xA7\r\n");
        write("l.dat", "<datafile><game name=\"New\">" + entryOf("large.gb") + entryOf("small.gb") +
                           "</game></datafile>");
        program->folder.makeFolder(u"from"_s);
        write("from/large.gb", taggedGame("New"));
        write("from/small.gb", taggedGame("New"));
    }
    static void addWriters() {
        QTest::addColumn<QByteArrayList>("command");
        QTest::addColumn<int>("room"); // for a game, in bytes
        const auto add = [](const char* name, const QByteArrayList& command) {
            QTest::newRow(name) << command << 4000;
        };
        add("set", {"set", "home/roms", "--title=New"});
        add("set --from", {"set", "--from", "table.tsv"});
        add("clear", {"clear", "home/roms"});
        add("copy-tags", {"copy-tags", "from", "home/roms"});
        add("import", {"import", "db.txt"});
        add("identify --write", {"identify", "--dat=l.dat", "--write", "--replace"});
    }

private slots:
    void init() {
        program = std::make_unique<TagsProgram>();
        write("home/roms/large.gb", large());
        write("home/roms/small.gb", small());
        writeSources();
    }

    void the_game_that_has_no_room_stays_and_the_others_are_written_data() {
        addWriters();
        QTest::newRow("set, half of the tag fits")
            << QByteArrayList{"set", "home/roms", "--title=New"} << 4200;
    }
    void the_game_that_has_no_room_stays_and_the_others_are_written() {
        QFETCH(QByteArrayList, command);
        QFETCH(int, room);
        const ProgramRun run = program->runOnFullDisk(room, command);
        QCOMPARE(run.errors.count('\n'), 1);
        QVERIFY2(run.errors.startsWith("torvane-tags: ") &&
                     run.errors.endsWith("large.gb: the disk is full\n"),
                 run.errors);
        QCOMPARE(run.status, 1);
        QCOMPARE(read("home/roms/large.gb"), large());
        QVERIFY(read("home/roms/small.gb") != small());
        QCOMPARE(program->folder.entries(u"home/roms"_s),
                 (QStringList{u"data"_s, u"large.gb"_s, u"small.gb"_s}));
        QCOMPARE(program->runHere({"undo"}).status, 0);
        QCOMPARE(read("home/roms/small.gb"), small());
    }
    void without_room_to_keep_an_undo_nothing_is_written_data() { addWriters(); }
    void without_room_to_keep_an_undo_nothing_is_written() {
        QFETCH(QByteArrayList, command);
        const ProgramRun run = program->runOnFullDisk(500, command);
        QCOMPARE(run.errors.count("/last-run.undo: the disk is full\n"), 2);
        QCOMPARE(run.errors.count('\n'), 2);
        QCOMPARE(run.status, 1);
        QCOMPARE(read("home/roms/large.gb"), large());
        QCOMPARE(read("home/roms/small.gb"), small());
        QCOMPARE(program->folder.entries(u"home/roms/data/backup"_s), QStringList());
        QCOMPARE(program->runHere({"undo"}).errors, QByteArray("torvane-tags: there is no run to undo\n"));
    }
};

TORVANE_APPLESS_TEST(FullDiskTest)
#include "FullDiskTest.moc"
