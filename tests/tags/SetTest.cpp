// SPDX-License-Identifier: MIT
// The commands that write, run as a user runs them: what becomes of the bytes of games, and what is refused.
#include "TagsProgram.h"
#include "catalogue/TagInput.h"
#include "platform/base/CodePage1252.h"
#include "support/Failing.h"
#include "support/FolderTree.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class SetTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TagsProgram> program;

    static QByteArray today() { return CodePage1252::toBytes(TagInput::todayAsText()); }
    void write(const char* name, const QByteArray& bytes) const { program->folder.writeNative(name, bytes); }
    QByteArray read(const char* name) const {
        return bytesOfFile(program->folder.native(name).toStdString());
    }
    FolderTree tree() const { return treeOf(program->folder.path().toStdString()); }
    /// Runs it and checks that it has nothing to say.
    void runWell(const QByteArrayList& arguments) const {
        const ProgramRun run = program->runHere(arguments);
        QCOMPARE(run.errors, QByteArray());
        QCOMPARE(run.output, QByteArray());
        QCOMPARE(run.status, 0);
    }
    /// Runs it and checks that it says this, fails, and changes nothing.
    void refuses(const QByteArrayList& arguments, const QByteArray& message) const {
        const FolderTree before = tree();
        const ProgramRun run = program->runHere(arguments);
        QCOMPARE(run.errors, "torvane-tags: " + message + '\n');
        QCOMPARE(run.status, 1);
        QCOMPARE(tree(), before);
    }
    static QByteArray line(const QByteArray& company, const QByteArray& title, const QByteArray& date,
                           const QByteArray& info, int size) {
        return "ID3TAG\xA7" + company + '\xA7' + title + '\xA7' + date + '\xA7' + info + '\xA7' +
               QByteArray::number(size) + "\xA7\r\n";
    }

private slots:
    void init() {
        program = std::make_unique<TagsProgram>();
        write("a.gb", taggedGame("T"));
        write("new.gbc", QByteArray(3000, 'n'));
    }

    // set
    void a_first_tag_is_appended_and_the_image_stays() {
        runWell({"set", "new.gbc", "--title", "Caf\xC3\xA9", "--company=C", "--info", "I"});
        QCOMPARE(read("new.gbc"), QByteArray(3000, 'n') + line("C", "Caf\xE9", today(), "I", 3000));
    }
    void a_tag_is_replaced_as_the_window_does() {
        runWell({"set", "--info=New", "a.gb"});
        QCOMPARE(read("a.gb"), QByteArray(4096, 'r') + "\r\n" + line("Acme", "T", today(), "New", 4098));
    }
    void the_date_is_any_text() {
        runWell({"set", "a.gb", "--date",
                 "spring of \xE2\x80\x99"
                 "98"});
        QVERIFY(read("a.gb").contains("\xA7spring of \x92"
                                      "98\xA7"));
    }
    void the_same_texts_leave_the_file_untouched() {
        const FolderTree before = tree();
        const auto time = std::filesystem::last_write_time(program->folder.native("a.gb").toStdString());
        runWell({"set", "a.gb", "--title", "T", "--info", "Info", "--company", "Acme"});
        QCOMPARE(tree(), before);
        QVERIFY(std::filesystem::last_write_time(program->folder.native("a.gb").toStdString()) == time);
    }
    void all_games_of_a_folder_get_it_but_archives() {
        write("home/roms/a.gb", taggedGame("T"));
        write("home/roms/b.bin", taggedGame("U"));
        write("home/roms/c.zip", QByteArray(3000, 'z'));
        const ProgramRun run = program->runHere({"set", "--company", "New", "home/roms"});
        QCOMPARE(run.status, 1);
        QCOMPARE(run.errors, QByteArray("torvane-tags: home/roms/c.zip: an archive gets no tag\n"));
        QVERIFY(read("home/roms/a.gb").contains("ID3TAG\xA7New\xA7T\xA7"));
        QVERIFY(read("home/roms/b.bin").contains("ID3TAG\xA7New\xA7U\xA7"));
        QCOMPARE(read("home/roms/c.zip"), QByteArray(3000, 'z'));
    }
    void what_does_not_fit_is_refused_once_with_its_place() {
        refuses({"set", "a.gb", "new.gbc", "--title", "\xE2\x86\x92"},
                "title: character 1 (\xE2\x86\x92) is not in code page 1252");
        refuses({"set", "a.gb", "--info", "a\xA7"}, "info: character 2 is not UTF-8");
        refuses({"set", "a.gb", "--company", "\xC2\xA7"},
                "company: character 1 (\xC2\xA7) separates the fields of a tag");
    }
    void an_incomplete_tag_is_refused() {
        refuses({"set", "new.gbc", "--title", "T"},
                "new.gbc: a tag needs a title, a company and an info; missing: company, info");
    }
    void a_tag_that_is_too_long_is_refused() {
        refuses({"set", "a.gb", "--info", QByteArray(1100, 'i')},
                "a.gb: info: character " +
                    QByteArray::number(1025 - 7 - 5 - 2 - today().size() - 1 - 1 - 5 - 2 + 1) +
                    " and what follows make the tag too long to be read");
    }
    void what_is_no_game_is_refused_data() {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QByteArray>("reason");
        for (const char* name : {"x.zip", "x.ZIP", "x.y.zip", "x.zip.gb"})
            QTest::newRow(name) << QByteArray(name) << QByteArray("an archive gets no tag");
        for (const char* name : {"x.txt", "gb", "x.gb.bak"})
            QTest::newRow(name) << QByteArray(name) << QByteArray("its name is not that of a game");
    }
    void what_is_no_game_is_refused() {
        QFETCH(QByteArray, name);
        QFETCH(QByteArray, reason);
        write(name.constData(), taggedGame("T"));
        refuses({"set", "--title=N", name}, name + ": " + reason);
        refuses({"clear", name}, name + ": " + reason);
        refuses({"copy-tags", "a.gb", name}, name + ": " + reason);
    }
    void a_name_of_any_bytes_is_written_to() {
        write("caf\xE9 \\ \n.gb", taggedGame("T"));
        runWell({"set", "--title=N", "caf\xE9 \\ \n.gb"});
        QVERIFY(read("caf\xE9 \\ \n.gb").contains("\xA7N\xA7"));
    }
    void a_folder_that_is_read_only_is_reported_and_left_alone() {
        write("home/roms/a.gb", taggedGame("T"));
        program->folder.setMode(u"home/roms"_s, 0555);
        program->folder.setMode(u"home/roms/a.gb"_s, 0444);
        program->prepare = [] {
            if (geteuid() == 0 && setresuid(65534, 65534, 65534) != 0) _exit(97);
        };
        refuses({"set", "--title=N", "home/roms/a.gb"},
                "home/roms/a.gb: you don’t have permission to do that");
        refuses({"clear", "home/roms/a.gb"}, "home/roms/a.gb: you don’t have permission to do that");
    }
    void one_bad_file_does_not_stop_the_others() {
        const ProgramRun run = program->runHere({"set", "--title=N", "no.gb", "a.gb"});
        QCOMPARE(run.status, 1);
        QCOMPARE(run.errors, QByteArray("torvane-tags: no.gb: it doesn’t exist\n"));
        QVERIFY(read("a.gb").contains("\xA7N\xA7"));
    }
    void a_full_disk_leaves_the_game_as_it_was() {
        const QStringList names = program->folder.entries();
        const ProgramRun run = program->runOnFullDisk(2000, {"set", "--title=N", "a.gb"});
        QCOMPARE(run.errors, QByteArray("torvane-tags: a.gb: the disk is full\n"));
        QCOMPARE(run.status, 1);
        QCOMPARE(read("a.gb"), taggedGame("T"));
        QCOMPARE(program->folder.entries(), names);
    }
    void what_a_killed_run_has_left_is_swept_before() {
        write(".torvane-abcdef", "half a copy");
        runWell({"set", "--title=N", "a.gb"});
        QVERIFY(!program->folder.entries().contains(u".torvane-abcdef"_s));
    }

    void the_folder_that_a_link_leads_to_is_swept() {
        write("home/real.gb", taggedGame("T"));
        write("home/.torvane-abcdef", "half a copy");
        QVERIFY(symlink("home/real.gb", program->folder.native("link.gb").constData()) == 0);
        runWell({"set", "--title=N", "link.gb"});
        QVERIFY(read("home/real.gb").contains("\xA7N\xA7"));
        QVERIFY(!program->folder.entries(u"home"_s).contains(u".torvane-abcdef"_s));
    }

    // --dry-run
    void a_rehearsal_prints_what_would_change_and_changes_nothing() {
        write(".torvane-abcdef", "half a copy");
        const FolderTree before = tree();
        const ProgramRun run =
            program->runHere({"set", "--dry-run", "--tsv", "--title=N\\", "--date=D", "a.gb"});
        QCOMPARE(run.status, 0);
        QCOMPARE(run.output, QByteArray("file\tfield\tbefore\tafter\n"
                                        "a.gb\ttitle\tT\tN\\\\\n"
                                        "a.gb\tdate\t1/2/03\tD\n"));
        QCOMPARE(tree(), before);
    }
    void a_rehearsal_refuses_what_the_work_refuses() {
        refuses({"set", "--dry-run", "--json", "--title=T", "new.gbc"},
                "new.gbc: a tag needs a title, a company and an info; missing: company, info");
    }
    void a_rehearsal_of_a_removal_has_nothing_after() {
        const ProgramRun run = program->runHere({"clear", "--dry-run", "--json", "a.gb", "new.gbc"});
        QCOMPARE(run.output.count('\n'), 4);
        QVERIFY(run.output.startsWith(
            "{\"file\":\"a.gb\",\"field\":\"title\",\"before\":\"T\",\"after\":null}\n"));
        QCOMPARE(read("a.gb"), taggedGame("T"));
    }

    // clear
    void a_removed_tag_leaves_the_image_and_a_line_end() {
        runWell({"clear", "a.gb", "new.gbc"});
        QCOMPARE(read("a.gb"), QByteArray(4096, 'r') + "\r\n");
        QCOMPARE(read("new.gbc"), QByteArray(3000, 'n'));
    }
    void a_tag_that_can_not_be_understood_is_left() {
        write("b.gb", QByteArray(3000, 'x') + "ID3TAG\xA7nothing else");
        refuses({"clear", "b.gb"}, "b.gb: its ROM.TAG can’t be understood, so it stays as it was");
    }
    void a_tag_that_a_selection_does_not_see_is_removed() {
        const QByteArray small = taggedGame("T", "C", "I", "D", 500);
        write("small.gb", small);
        const ProgramRun rehearsal = program->runHere({"clear", "--dry-run", "--tsv", "small.gb"});
        QCOMPARE(rehearsal.output, QByteArray("file\tfield\tbefore\tafter\nsmall.gb\ttag\t\t\n"));
        runWell({"clear", "small.gb"});
        QCOMPARE(read("small.gb"), QByteArray(500, 'r') + "\r\n");
    }

    // copy-tags
    void a_tag_is_copied_with_its_date() {
        runWell({"copy-tags", "a.gb", "new.gbc"});
        QCOMPARE(read("new.gbc"), QByteArray(3000, 'n') + line("Acme", "T", "1/2/03", "Info", 3000));
        const QByteArray once = read("new.gbc");
        runWell({"copy-tags", "a.gb", "new.gbc"});
        QCOMPARE(read("new.gbc"), once);
    }
    void into_a_folder_it_goes_to_the_game_of_the_same_name() {
        write("home/roms/a.gb", QByteArray(2500, 'x'));
        runWell({"copy-tags", "a.gb", "home/roms"});
        QVERIFY(read("home/roms/a.gb").endsWith(line("Acme", "T", "1/2/03", "Info", 2500)));
    }
    void between_folders_the_games_that_both_have_are_meant() {
        for (const char* name : {"from/a.gb", "from/b.gb", "from/c.gb"})
            program->folder.write(QString::fromUtf8(name), taggedGame(name));
        program->folder.write(u"from/d.gb"_s, QByteArray(3000, 'd'));
        for (const char* name : {"to/b.gb", "to/c.gb", "to/d.gb", "to/e.gb"})
            program->folder.write(QString::fromUtf8(name), QByteArray(3000, 'x'));
        runWell({"copy-tags", "from/", "to"});
        QVERIFY(read("to/b.gb").contains("\xA7"
                                         "from/b.gb\xA7"));
        QVERIFY(read("to/c.gb").contains("\xA7"
                                         "from/c.gb\xA7"));
        QCOMPARE(read("to/d.gb"), QByteArray(3000, 'x'));
        QCOMPARE(program->folder.entries(u"to"_s).size(), 4);
    }
    void a_copy_without_a_tag_or_a_target_is_refused() {
        refuses({"copy-tags", "new.gbc", "a.gb"}, "new.gbc: it has no tag");
        refuses({"copy-tags", "a.gb", "no.gb"}, "no.gb: it doesn’t exist");
        refuses({"copy-tags", "no.gb", "a.gb"}, "no.gb: it doesn’t exist");
        refuses({"copy-tags", "home/roms", "a.gb"}, "a.gb: it is no folder");
        refuses({"copy-tags", "a.gb", "home/roms"}, "home/roms/a.gb: it doesn’t exist");
    }
    void what_set_refuses_is_not_copied_either() {
        write("from.gb", taggedGame("a\nb"));
        refuses({"copy-tags", "from.gb", "a.gb"}, "from.gb: a.gb: title: character 2 is a control character");
        write("from.gb", taggedGame("T", ""));
        refuses({"copy-tags", "from.gb", "a.gb"},
                "from.gb: a.gb: a tag needs a title, a company and an info; missing: company");
    }

    // Games in which no tag is read
    void a_game_that_stays_below_2048_bytes_gets_no_tag_data() {
        QTest::addColumn<QByteArrayList>("arguments");
        QTest::addColumn<QByteArray>("place");
        QTest::newRow("set") << QByteArrayList{"set",         "small.gb", "--title=T",
                                               "--company=C", "--info=I", "--date=d"}
                             << QByteArray("small.gb: ");
        QTest::newRow("copy-tags") << QByteArrayList{"copy-tags", "a.gb", "small.gb"}
                                   << QByteArray("a.gb: small.gb: ");
        QTest::newRow("import") << QByteArrayList{"import", "base.dat", "small.gb"}
                                << QByteArray("small.gb: ");
    }
    void a_game_that_stays_below_2048_bytes_gets_no_tag() {
        QFETCH(QByteArrayList, arguments);
        QFETCH(QByteArray, place);
        write("small.gb", QByteArray(2000, 's'));
        write("base.dat", "byn\xA7small\xA7"
                          "C\xA7"
                          "d\xA7I\xA7USER\xA7\r\n");
        refuses(arguments, place + "no tag is read in a file below 2048 bytes");
        runWell({"clear", "small.gb"});
    }
    void a_game_that_has_2048_bytes_with_its_tag_gets_one() {
        const QByteArray tag = line("C", "T", "d", "I", 2048);
        write("small.gb", QByteArray(2048 - tag.size(), 's'));
        runWell({"set", "small.gb", "--title=T", "--company=C", "--info=I", "--date=d"});
        QCOMPARE(read("small.gb").size(), 2048);
        QVERIFY(program->runHere({"list", "--tsv", "small.gb"}).output.contains("\tT\tC\t"));
    }

    // Without a library
    void a_run_that_can_not_be_undone_is_announced_once() {
        program->folder.makeFolder(u"none"_s);
        program->folder.makeFolder(u"many"_s); // more than are changed at once
        for (int i = 0; i < 130; ++i)
            write(("many/" + QByteArray::number(i) + ".gb").constData(), QByteArray(3000, 'm'));
        const ProgramRun run = program->run(
            {"--folder", "none", "set", "a.gb", "new.gbc", "many", "--title=N", "--company=C", "--info=I"});
        QCOMPARE(run.errors, "torvane-tags: this run can't be undone: there is no library to keep it in\n");
        QCOMPARE(run.status, 0);
        QVERIFY(read("a.gb").contains("\xA7N\xA7") && read("new.gbc").contains("\xA7N\xA7"));
    }

    // Wrong usage
    void wrong_usage_changes_nothing_data() {
        QTest::addColumn<QByteArrayList>("arguments");
        const auto add = [](const QByteArrayList& arguments) {
            QTest::newRow(arguments.join(' ').constData()) << arguments;
        };
        add({"set", "a.gb"});
        add({"set", "--title=T"});
        add({"set", "--title"});
        add({"set", "--from=t.tsv", "a.gb"});
        add({"set", "--from=t.tsv", "--title=T"});
        add({"set", "--from="});
        add({"clear"});
        add({"clear", "--title=T", "a.gb"});
        add({"copy-tags", "a.gb"});
        add({"copy-tags", "a.gb", "b.gb", "c.gb"});
    }
    void wrong_usage_changes_nothing() {
        QFETCH(QByteArrayList, arguments);
        const FolderTree before = tree();
        QCOMPARE(program->runHere(arguments).status, 2);
        QCOMPARE(tree(), before);
    }
};

TORVANE_APPLESS_TEST(SetTest)
#include "SetTest.moc"
