// SPDX-License-Identifier: MIT
// What a killed run has left beside games is undone before any command reads them.
#include "TagsProgram.h"
#include "platform/base/TailNote.h"
#include "support/Failing.h"
#include "support/FolderTree.h"
#include "support/TestMain.h"

using namespace torvane;

class LeftBehindTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TagsProgram> program;
    QByteArray before;

    void write(const char* name, const QByteArray& bytes) const { program->folder.writeNative(name, bytes); }
    QByteArray read(const char* name) const {
        return bytesOfFile(program->folder.native(name).toStdString());
    }
    // As a power cut leaves home/roms/a.gb: the note is there, and half of the new end.
    std::unique_ptr<TailNote> halfOfAChange() {
        const QByteArray after = taggedGame("Another title");
        const TailChange change{"a.gb", 0, 4096, before.sliced(4096), after.sliced(4096)};
        m_games = std::make_unique<Folder>(program->folder.native("home/roms"));
        auto note = std::make_unique<TailNote>(*m_games, TailNote::Changes{change});
        write("home/roms/a.gb", after.first(4110) + before.sliced(4110));
        return note;
    }
    void leaveHalfOfAChange() { halfOfAChange()->leave(); }
    FolderTree tree() const { return treeOf(program->folder.path().toStdString()); }

private slots:
    void init() {
        program = std::make_unique<TagsProgram>();
        before = taggedGame("T");
        write("home/roms/a.gb", before);
        write("other.gb", taggedGame("Other"));
        write("table.tsv", "file\ttitle\na.gb\tN\n");
        write("known.dat", "clrmamepro ( name n )\ngame ( name g rom ( name r size 1 crc 00000000 ) )\n");
    }

    void every_command_undoes_it_first_data() {
        QTest::addColumn<QByteArrayList>("arguments");
        QTest::newRow("list") << QByteArrayList{"list"};
        QTest::newRow("show") << QByteArrayList{"show", "a.gb"};
        QTest::newRow("hash") << QByteArrayList{"hash"};
        QTest::newRow("identify") << QByteArrayList{"identify", "--dat", "known.dat"};
        QTest::newRow("verify") << QByteArrayList{"verify"};
        QTest::newRow("export") << QByteArrayList{"export"};
        QTest::newRow("play") << QByteArrayList{"play", "a.gb"};
        QTest::newRow("clear") << QByteArrayList{"clear", "a.gb"};
        QTest::newRow("set") << QByteArrayList{"set", "a.gb", "--title", "N"};
        QTest::newRow("set --from") << QByteArrayList{"set", "--from", "table.tsv"};
        QTest::newRow("copy-tags, from it") << QByteArrayList{"copy-tags", "a.gb", "other.gb"};
        QTest::newRow("copy-tags, to it") << QByteArrayList{"copy-tags", "other.gb", "a.gb"};
    }
    void every_command_undoes_it_first() {
        QFETCH(QByteArrayList, arguments);
        const ProgramRun expected = program->runHere(arguments);
        const FolderTree games = tree();
        write("home/roms/a.gb", before);
        write("other.gb", taggedGame("Other"));
        leaveHalfOfAChange();
        QVERIFY(tree() != games);
        const ProgramRun run = program->runHere(arguments);
        QCOMPARE(run.errors, expected.errors);
        QCOMPARE(run.output, expected.output);
        QCOMPARE(run.status, expected.status);
        QCOMPARE(tree(), games);
    }
    void an_undo_of_the_last_run_undoes_it_first() {
        QCOMPARE(program->runHere({"set", "a.gb", "--title", "N"}).status, 0);
        const QByteArray old = std::exchange(before, read("home/roms/a.gb"));
        leaveHalfOfAChange();
        const ProgramRun run = program->runHere({"undo"});
        QCOMPARE(run.errors, QByteArray());
        QCOMPARE(run.status, 0);
        QCOMPARE(read("home/roms/a.gb"), old);
    }
    void it_is_undone_where_a_link_leads() {
        leaveHalfOfAChange();
        QCOMPARE(symlink("home/roms/a.gb", program->folder.native("link.gb").constData()), 0);
        QCOMPARE(program->runHere({"list", "--tsv", "link.gb"}).output.split('\t').value(11),
                 QByteArray("T"));
        QCOMPARE(read("home/roms/a.gb"), before);
    }
    void a_rehearsal_leaves_it() {
        leaveHalfOfAChange();
        const FolderTree games = tree();
        program->runHere({"set", "home/roms", "--title", "N", "--dry-run"});
        program->runHere({"copy-tags", "home/roms", "home/roms", "--dry-run"});
        QCOMPARE(tree(), games);
    }
    void a_run_that_is_alive_is_left_alone() {
        const auto note = halfOfAChange();
        const FolderTree games = tree();
        QCOMPARE(program->runHere({"list"}).status, 0);
        QCOMPARE(tree(), games);
    }
    void a_folder_that_can_not_be_written_to_stays_as_it_is() {
        leaveHalfOfAChange();
        program->folder.setMode(QStringLiteral("home/roms/a.gb"), 0666);
        program->folder.setMode(QStringLiteral("home/roms"), 0555);
        const FolderTree games = tree();
        program->prepare = [] {
            if (geteuid() == 0 && setuid(65534) != 0) _exit(97);
        };
        program->folder.setMode(QString(), 0755);
        const ProgramRun run = program->run({"list", "home/roms"});
        QCOMPARE(run.errors, QByteArray());
        QCOMPARE(run.status, 0);
        QCOMPARE(tree(), games);
        program->folder.setMode(QStringLiteral("home/roms"), 0755);
    }

private:
    std::unique_ptr<Folder> m_games;
};

TORVANE_APPLESS_TEST(LeftBehindTest)
#include "LeftBehindTest.moc"
