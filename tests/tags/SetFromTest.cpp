// SPDX-License-Identifier: MIT
// set --from: many games at once from a table, and the way from a list back into the games.
#include "TagsProgram.h"
#include "support/FolderTree.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class SetFromTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TagsProgram> program;

    void write(const char* name, const QByteArray& bytes) const { program->folder.writeNative(name, bytes); }
    QByteArray read(const char* name) const {
        return bytesOfFile(program->folder.native(name).toStdString());
    }
    FolderTree tree() const { return treeOf(program->folder.path().toStdString()); }
    ProgramRun setFrom(const QByteArray& table, const QByteArrayList& options = {}) const {
        write("t.tsv", table);
        return program->runHere(QByteArrayList{"set", "--from", "t.tsv"} + options);
    }

private slots:
    void init() {
        program = std::make_unique<TagsProgram>();
        write("a.gb", taggedGame("A"));
        write("home/roms/b.gb", taggedGame("B"));
        write("home/roms/c.gb", QByteArray(3000, 'c'));
    }

    void games_of_the_folder_and_the_library_get_their_texts() {
        const ProgramRun run = setFrom("date\tinfo\tfile\ttitle\tcompany\r\n"
                                       "D\tnew \"info\"\ta.gb\t\t\r\n"
                                       "\t\tb.gb\tNew \xC3\xA9\t\r\n"
                                       "D\tI\tc.gb\tT\tC\r\n");
        QCOMPARE(run.errors, QByteArray());
        QCOMPARE(run.status, 0);
        QVERIFY(read("a.gb").contains("Acme\xA7"
                                      "A\xA7"
                                      "D\xA7new \"info\"\xA7"));
        QVERIFY(read("home/roms/b.gb").contains("Acme\xA7New \xE9\xA7"));
        QVERIFY(read("home/roms/c.gb")
                    .endsWith("\xA7"
                              "T\xA7"
                              "D\xA7I\xA7"
                              "3000\xA7\r\n"));
    }
    void bad_rows_are_reported_with_their_line_and_the_others_are_done() {
        const ProgramRun run = setFrom("file\ttitle\n"
                                       "a.gb\tT\tx\n"
                                       "a.gb\t\xE2\x86\x92\n"
                                       "no.gb\tT\n"
                                       "c.gb\tT\n"
                                       "a\\b.gb\tT\n"
                                       "b.gb\tDone\n");
        QCOMPARE(run.status, 1);
        QCOMPARE(run.errors,
                 QByteArray(
                     "torvane-tags: t.tsv: line 2: there are more fields than columns\n"
                     "torvane-tags: t.tsv: line 3: a.gb: title: character 1 (\xE2\x86\x92) is not in code "
                     "page 1252\n"
                     "torvane-tags: no.gb: it doesn’t exist\n"
                     "torvane-tags: t.tsv: line 5: c.gb: a tag needs a title, a company and an info; "
                     "missing: company, info\n"
                     "torvane-tags: t.tsv: line 6: a backslash stands before something else than t, n, r, 0 "
                     "or a backslash\n"));
        QVERIFY(read("home/roms/b.gb")
                    .contains("\xA7"
                              "Done\xA7"));
        QCOMPARE(read("a.gb"), taggedGame("A"));
    }
    void a_table_that_can_not_be_read_is_reported_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QByteArray>("message");
        QTest::newRow("empty") << QByteArray("") << QByteArray("t.tsv: line 1: unknown column ''");
        QTest::newRow("zeros") << QByteArray(5, '\0')
                               << QByteArray("t.tsv: line 1: unknown column '") + QByteArray(5, '?') + '\'';
        QTest::newRow("a game") << taggedGame("T")
                                << "t.tsv: line 1: unknown column '" + QByteArray(40, 'r') + "'";
    }
    void a_table_that_can_not_be_read_is_reported() {
        QFETCH(QByteArray, content);
        QFETCH(QByteArray, message);
        const ProgramRun run = setFrom(content);
        QCOMPARE(run.status, 1);
        QCOMPARE(run.errors, "torvane-tags: " + message + '\n');
    }
    void a_table_that_is_not_there_or_too_large_is_reported() {
        QCOMPARE(program->runHere({"set", "--from", "no.tsv"}).errors,
                 QByteArray("torvane-tags: no.tsv: it doesn’t exist\n"));
        QCOMPARE(
            program->runHere({"set", "--from", "home"}).errors,
            QByteArray("torvane-tags: home: it is no ordinary file, or it is on a disk that can’t be written "
                       "to\n"));
        write("t.tsv", "file\ttitle\n");
        QCOMPARE(truncate(program->folder.native("t.tsv").constData(), off_t{1} << 30), 0);
        QCOMPARE(program->runHere({"set", "--from", "t.tsv"}).errors,
                 QByteArray("torvane-tags: t.tsv: it is too large\n"));
    }
    void a_rehearsal_shows_all_changes_and_makes_none() {
        write("t.tsv", "file\ttitle\tdate\na.gb\tX\tD\nb.gb\tB\t\n");
        const FolderTree before = tree();
        const ProgramRun run = program->runHere({"set", "--from", "t.tsv", "--dry-run", "--tsv"});
        QCOMPARE(run.output, QByteArray("file\tfield\tbefore\tafter\n"
                                        "a.gb\ttitle\tA\tX\n"
                                        "a.gb\tdate\t1/2/03\tD\n"));
        QCOMPARE(tree(), before);
    }
    void the_second_row_of_a_game_goes_on_from_the_first() {
        QCOMPARE(setFrom("file\ttitle\tinfo\na.gb\tX\t\na.gb\t\tY\n").status, 0);
        QVERIFY(read("a.gb").contains("\xA7X\xA7"));
        QVERIFY(read("a.gb").contains("\xA7Y\xA7"));
    }
    void a_list_written_back_changes_nothing() {
        QByteArray all;
        for (int byte = 1; byte < 256; ++byte) {
            if (byte != '/' && byte != 0xA7) all += static_cast<char>(byte);
        }
        write(("home/roms/" + all.first(200) + ".gb").constData(), taggedGame(all, "V\xF6\xA7R\xE4N"));
        write("home/roms/d.gb", taggedGame("D", "C", "I", ""));
        const ProgramRun list = program->runHere({"list", "--tsv"});
        QCOMPARE(list.output.count('\n'), 5);
        const FolderTree before = treeOf(program->folder.native("home").toStdString());
        const ProgramRun run = setFrom(list.output);
        QCOMPARE(run.errors, QByteArray());
        QCOMPARE(run.status, 0);
        QCOMPARE(treeOf(program->folder.native("home").toStdString()), before);
    }
    void a_list_edited_and_written_back_changes_what_was_edited() {
        write("home/roms/\xFF.gb", taggedGame("Old"));
        QByteArray list = program->runHere({"list", "--tsv"}).output;
        QCOMPARE(setFrom(list.replace("Old", "N\xC3\xBC")).status, 0);
        QVERIFY(read("home/roms/\xFF.gb")
                    .contains("Acme\xA7N\xFC\xA7"
                              "1/2/03\xA7Info\xA7"));
        QCOMPARE(read("home/roms/b.gb"), taggedGame("B"));
    }
};

TORVANE_APPLESS_TEST(SetFromTest)
#include "SetFromTest.moc"
