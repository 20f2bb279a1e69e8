// SPDX-License-Identifier: MIT
// export and import, run as a user runs them: from a library to a file, to the window's reader, and into
// another library.
#include "TagsProgram.h"
#include "support/Failing.h"
#include "support/FolderTree.h"
#include "support/TestMain.h"
#include "tagdb/OnlineDb.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class DatabaseTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TagsProgram> program;

    void write(const QByteArray& name, const QByteArray& bytes) const {
        program->folder.writeNative(name, bytes);
    }
    QByteArray read(const char* name) const {
        return bytesOfFile(program->folder.native(name).toStdString());
    }
    /// What it prints; it has to succeed without a message.
    QByteArray output(const QByteArrayList& arguments) const {
        const ProgramRun run = program->runHere(arguments);
        return run.status == 0 && run.errors.isEmpty() ? run.output : "failed: " + run.errors;
    }
    /// What it reports; it has to fail.
    QByteArray errors(const QByteArrayList& arguments) const {
        const ProgramRun run = program->runHere(arguments);
        return run.status == 1 ? run.errors : "status " + QByteArray::number(run.status);
    }
    static QByteArray line(QByteArrayList fields) { return fields.join('\xA7') + "\r\n"; }
    /// A line that gives a title a company.
    static QByteArray entry(const QByteArray& title, const QByteArray& company,
                            const QByteArray& system = "byn") {
        return line({system, title, company, "2/3/04", "Info", "USER", ""});
    }
    static QByteArray untagged() { return QByteArray(4096, 'r'); }
    QByteArray companyOf(const char* name) const { return read(name).mid(4096).split('\xA7').value(1); }

private slots:
    void init() { program = std::make_unique<TagsProgram>(); }

    // export
    void each_tag_of_the_library_is_a_line() {
        write("home/roms/a.gb", taggedGame("Caf\xE9", "C\x81", "I", "1/2/03"));
        write("home/roms/b.cgb", taggedGame("B"));
        write("home/roms/c.gba", taggedGame("Dr. C"));
        write("home/roms/d.gb", untagged());
        write("home/roms/e.zip", "x");
        QCOMPARE(output({"export"}), line({"byn", "Caf\xE9", "C\x81", "1/2/03", "I", "USER", ""}) +
                                         line({"color", "B", "Acme", "1/2/03", "Info", "USER", ""}) +
                                         line({"advance", "Dr. C", "Acme", "1/2/03", "Info", "USER", ""}));
    }
    void the_author_is_given_in_utf_8() {
        write("a.gb", taggedGame("T"));
        QCOMPARE(output({"export", "--author=Ren\xC3\xA9", "a.gb"}),
                 line({"byn", "T", "Acme", "1/2/03", "Info", "USER", "Ren\xE9"}));
        for (const char* author : {"\xE2\x86\x92", "\xC2\xA7", "a\nb", "\xFF"})
            QCOMPARE(program->runHere({"export", "a.gb", QByteArray("--author=") + author}).status, 2);
    }
    void what_can_not_be_a_line_is_reported_and_left_out() {
        write("a.gb", taggedGame("T", "V\xF6\xA7R\xE4N"));
        write("b.gb", taggedGame("T\rT"));
        write("c.bin", taggedGame("T"));
        write("d.gb", taggedGame("T"));
        const ProgramRun run = program->runHere({"export", "a.gb", "b.gb", "c.bin", "d.gb"});
        QCOMPARE(run.status, 1);
        QCOMPARE(run.errors,
                 QByteArray("torvane-tags: a.gb: company: a line of a database can't hold its characters\n"
                            "torvane-tags: b.gb: title: a line of a database can't hold its characters\n"
                            "torvane-tags: c.bin: its name does not tell its console\n"));
        QCOMPARE(run.output, line({"byn", "T", "Acme", "1/2/03", "Info", "USER", ""}));
    }
    void a_file_is_replaced_as_a_whole() {
        write("a.gb", taggedGame("T"));
        write("db.txt", "old");
        write("DB.txt", "another");
        QCOMPARE(output({"export", "a.gb", "--output", "db.txt"}), QByteArray());
        QCOMPARE(read("db.txt"), line({"byn", "T", "Acme", "1/2/03", "Info", "USER", ""}));
        QCOMPARE(read("DB.txt"), QByteArray("another"));
        QCOMPARE(output({"export", "a.gb", "--output", "Db.txt"}), QByteArray());
        QCOMPARE(program->folder.entries().size(), 5);
    }
    void a_file_that_can_not_be_written_stays_as_it_was() {
        write("a.gb", taggedGame("T", "C", QByteArray(400, 'i')));
        write("db.txt", "old");
        QCOMPARE(errors({"export", "a.gb", "--output", "no/db.txt"}),
                 QByteArray("torvane-tags: no/db.txt: its folder doesn’t exist\n"));
        QVERIFY(errors({"export", "a.gb", "--output", "home"}).startsWith("torvane-tags: home: "));
        const ProgramRun run = program->runOnFullDisk(200, {"export", "a.gb", "--output", "db.txt"});
        QCOMPARE(run.errors, QByteArray("torvane-tags: db.txt: the disk is full\n"));
        QCOMPARE(run.status, 1);
        QCOMPARE(read("db.txt"), QByteArray("old"));
        QCOMPARE(program->folder.entries().size(), 3);
    }
    void a_file_that_is_read_only_stays_as_it_was() {
        write("a.gb", taggedGame("T"));
        write("db.txt", "old");
        program->folder.setMode(u"db.txt"_s, 0444);
        program->folder.setMode(QString(), 0777);
        program->prepare = [] {
            if (geteuid() == 0 && setresuid(65534, 65534, 65534) != 0) _exit(97);
        };
        QCOMPARE(errors({"export", "a.gb", "--output", "db.txt"}),
                 QByteArray("torvane-tags: db.txt: you don’t have permission to do that\n"));
        QCOMPARE(read("db.txt"), QByteArray("old"));
    }

    // There and back
    void a_second_library_gets_the_same_tags() {
        QByteArray all;
        for (int code = ' '; code < 256; ++code) {
            const bool isControl =
                code == 0x7F || code == 0x81 || code == 0x8D || code == 0x8F || code == 0x90 || code == 0x9D;
            if (code != 0xA7 && !isControl) all += static_cast<char>(code);
        }
        write("home/roms/a.gb", taggedGame("A", all, "I", ""));
        write("home/roms/b.gbc", taggedGame("Other name", " ", all.mid(100), "D"));
        program->folder.makeFolder(u"other"_s);
        write("other/A.gb", untagged());
        write("other/x.gbc", taggedGame("OTHER NAME"));
        write("other/c.gb", untagged());
        QCOMPARE(output({"export", "--output", "db.txt"}), QByteArray());
        QCOMPARE(output({"import", "db.txt", "other"}), QByteArray());
        const auto tagsOf = [&](const QByteArrayList& names) {
            return output(QByteArrayList{"export"} + names);
        };
        QCOMPARE(tagsOf({"other/A.gb", "other/x.gbc"}), read("db.txt"));
        QCOMPARE(tagsOf({"home/roms"}), read("db.txt"));
        QCOMPARE(read("other/c.gb"), untagged());
    }
    void the_window_reads_what_was_written() {
        write("home/roms/a.gb", taggedGame("A\xE9", "C", "I", "D"));
        write("home/roms/b.gba", taggedGame("B"));
        QCOMPARE(output({"export", "--author=me", "--output", "home/online_db.dat"}), QByteArray());
        Globals globals;
        globals.AppPath = program->folder.path(u"home"_s);
        const auto rows = OnlineDb(globals).filtered({}, QDate(), {});
        QCOMPARE(rows->count(), 2);
        QCOMPARE(rows->entry(0), (OnlineDbEntry{"byn", "A\xE9", "C", "D", "I", "USER", "me"}));
        QCOMPARE(rows->entry(1), (OnlineDbEntry{"advance", "B", "Acme", "1/2/03", "Info", "USER", "me"}));
    }

    // import
    void a_game_is_matched_by_its_tag_or_else_by_its_name() {
        write("home/roms/X.gb", untagged());
        write("home/roms/Caf\xC3\x89.gb", untagged());
        write("home/roms/named.gb", taggedGame("x"));
        write("home/roms/Z.gb", taggedGame("named"));
        write("home/roms/X.zip", "x");
        write("db", entry("x", "X") + entry("caf\xE9", "E"));
        QCOMPARE(output({"import", "db"}), QByteArray());
        QCOMPARE(companyOf("home/roms/X.gb"), QByteArray("X"));
        QCOMPARE(companyOf("home/roms/Caf\xC3\x89.gb"), QByteArray("E"));
        QVERIFY(read("home/roms/named.gb")
                    .contains("ID3TAG\xA7X\xA7"
                              "x\xA7"
                              "2/3/04\xA7"));
        QCOMPARE(read("home/roms/Z.gb"), taggedGame("named"));
        program->folder.makeFolder(u"one/two"_s);
        write("one/two/X.gb", untagged());
        QCOMPARE(output({"import", "db", "one/two"}), QByteArray());
        QCOMPARE(companyOf("one/two/X.gb"), QByteArray("X"));
    }
    void a_database_is_as_large_as_the_window_permits() {
        write("db", entry("a", "C"));
        QCOMPARE(truncate(program->folder.native("db").constData(), (512 << 20) + 1), 0);
        QCOMPARE(errors({"import", "db"}), QByteArray("torvane-tags: db: it is too large\n"));
    }
    void the_console_has_to_match_where_it_is_known() {
        write("a.gb", untagged());
        write("a.gbc", untagged());
        write("a.bin", untagged());
        write("db", entry("a", "GB") + entry("a", "GBC", "color"));
        QCOMPARE(errors({"import", "db", "a.gb", "a.gbc", "a.bin"}),
                 QByteArray("torvane-tags: a.bin: several entries have its title, and they differ\n"));
        QCOMPARE(companyOf("a.gb"), QByteArray("GB"));
        QCOMPARE(companyOf("a.gbc"), QByteArray("GBC"));
        QCOMPARE(read("a.bin"), untagged());
    }
    void doubled_titles_are_reported_unless_the_texts_are_equal() {
        write("a.gb", untagged());
        write("b.gb", untagged());
        write("db", entry("a", "1") + entry("b", "1") + entry("A", "2") + entry("b", "1") + entry("a", "1"));
        QCOMPARE(errors({"import", "db", "a.gb", "b.gb"}),
                 QByteArray("torvane-tags: a.gb: several entries have its title, and they differ\n"));
        QCOMPARE(read("a.gb"), untagged());
        QCOMPARE(companyOf("b.gb"), QByteArray("1"));
    }
    void a_rehearsal_prints_what_would_change_and_changes_nothing() {
        write("a.gb", taggedGame("a"));
        write("db", entry("a", "New"));
        const FolderTree before = treeOf(program->folder.path().toStdString());
        QCOMPARE(output({"import", "--dry-run", "--tsv", "db", "a.gb"}),
                 QByteArray("file\tfield\tbefore\tafter\n"
                            "a.gb\tcompany\tAcme\tNew\n"
                            "a.gb\tdate\t1/2/03\t2/3/04\n"));
        QCOMPARE(treeOf(program->folder.path().toStdString()), before);
    }
    void a_second_import_changes_nothing() {
        write("a.gb", untagged());
        write("db", entry("a", "C"));
        QCOMPARE(output({"import", "db", "a.gb"}), QByteArray());
        const QByteArray once = read("a.gb");
        QCOMPARE(output({"import", "db", "a.gb"}), QByteArray());
        QCOMPARE(read("a.gb"), once);
    }
    void a_file_without_entries_is_refused() {
        for (const QByteArray& bytes : {QByteArray(), QByteArray("\r\n \r\n"), QByteArray("<html>no</html>"),
                                        entry("a", "C", "BYN"), QByteArray(3 << 20, '\xA7')}) {
            write("db", bytes);
            QCOMPARE(errors({"import", "db"}), QByteArray("torvane-tags: db: it has no entries\n"));
        }
        QCOMPARE(errors({"import", "no"}), QByteArray("torvane-tags: no: it doesn’t exist\n"));
        QVERIFY(errors({"import", "home"}).startsWith("torvane-tags: home: "));
        QCOMPARE(program->runHere({"import"}).status, 2);
    }
    void entries_that_no_tag_can_hold_are_refused_and_the_others_are_written() {
        write("db", line({"byn", "a", "", "D", "I"}) + entry("b", QByteArray("C\0C", 3)) +
                        entry("c", QByteArray(1 << 20, 'c')) + entry("d", "C") +
                        "byn\xA7"
                        "e");
        for (const char* name : {"a.gb", "b.gb", "c.gb", "d.gb", "e.gb"}) write(name, untagged());
        const QByteArrayList messages =
            errors({"import", "db", "a.gb", "b.gb", "c.gb", "d.gb", "e.gb"}).split('\n');
        QCOMPARE(messages.size(), 4);
        QCOMPARE(messages[0], QByteArray("torvane-tags: a.gb: a tag needs a title, a company and an info; "
                                         "missing: company"));
        QCOMPARE(messages[1], QByteArray("torvane-tags: b.gb: company: character 2 is a control character"));
        QVERIFY(messages[2].startsWith("torvane-tags: c.gb: company: character "));
        for (const char* name : {"a.gb", "b.gb", "c.gb"}) QCOMPARE(read(name), untagged());
        // A short line takes over what it lacks, as in the window.
        for (const char* name : {"d.gb", "e.gb"}) QCOMPARE(companyOf(name), QByteArray("C"));
    }
};

TORVANE_GUILESS_TEST(DatabaseTest)
#include "DatabaseTest.moc"
