// SPDX-License-Identifier: MIT
// Unpacking into a folder that is not empty: files of the same names are replaced; links, anything else that
// is not a file, and all other content are left alone.
#include "support/OtherProgram.h"
#include "support/TestMain.h"
#include "support/UnZipFixture.h"

#include <sys/file.h>

using namespace torvane;

class UnZipFolderTest : public UnZipFixture {
    Q_OBJECT

private slots:
    void initTestCase() { umask(022); }
    void init() { renewTarget(); }

    void other_files_stay_and_files_of_the_same_names_are_replaced() {
        write("target/foreign.gb", "foreign");
        write("target/.hidden", "foreign");
        write("target/sub/a.gb", "foreign");
        write("target/a.gb", "a longer former file");
        setMode("target/a.gb", 0400);
        extract(makeArchive("a.zip", {{"a.gb", "new"}, {"b.gb", "new"}}));
        FolderTree expected = files({{"foreign.gb", "foreign"},
                                     {".hidden", "foreign"},
                                     {"sub/a.gb", "foreign"},
                                     {"a.gb", "new"},
                                     {"b.gb", "new"}});
        expected["sub"] = "folder 755";
        QCOMPARE(targetTree(), expected);
    }
    void a_damaged_entry_replaces_nothing() {
        write("target/a.gb", "former");
        makeArchive("a.zip", {{"a.gb", "newer!", ZIP_CM_STORE}});
        QByteArray bytes = read("a.zip");
        bytes.replace("newer!", "broken");
        extract(write("a.zip", bytes));
        QCOMPARE(targetTree(), files({{"a.gb", "former"}}));
    }
    void another_link_to_a_replaced_file_keeps_the_content() {
        write("kept.gb", "former");
        hardLink("kept.gb", "target/a.gb");
        extract(makeArchive("a.zip", {{"a.gb", "new"}}));
        QCOMPARE(read("kept.gb"), QByteArray("former"));
        QCOMPARE(read("target/a.gb"), QByteArray("new"));
    }
    void anything_but_a_file_stays_and_is_not_followed() {
        softLink("../out.gb", "target/link.gb");
        softLink("../made.gb", "target/dangling.gb");
        softLink("../other", "target/folderlink.gb");
        softLink("loop.gb", "target/loop.gb");
        folder->makeFolder(QStringLiteral("target/folder.gb"));
        QCOMPARE(mkfifo(folder->native("target/pipe.gb").constData(), 0644), 0);
        const QString archive = makeArchive("a.zip", {{"link.gb", "new"},
                                                      {"dangling.gb", "new"},
                                                      {"folderlink.gb", "new"},
                                                      {"loop.gb", "new"},
                                                      {"folder.gb", "new"},
                                                      {"pipe.gb", "new"},
                                                      {"game.gb", "new"}});
        FolderTree expected = wholeTree();
        extract(archive);
        expected["target/game.gb"] = fileWith("new");
        QCOMPARE(wholeTree(), expected);
    }
    void a_link_under_the_name_of_the_one_folder_leads_nowhere() {
        softLink("../other", "target/sub");
        const QString archive = makeArchive("a.zip", {{"sub/in.gb", "new"}, {"sub/new.gb", "new"}});
        FolderTree expected = wholeTree();
        extract(archive);
        expected["target/in.gb"] = expected["target/new.gb"] = fileWith("new");
        QCOMPARE(wholeTree(), expected);
    }
    void a_folder_that_is_renamed_meanwhile_is_still_filled() {
        UnZip control = unzip(makeArchive("a.zip", {{"a.gb", QByteArray(48 << 20, 'a')}, {"b.gb", "b"}}));
        bool isFirst = true;
        control.goesOn = [&] {
            if (std::exchange(isFirst, false)) {
                QDir().rename(at("target"), at("renamed"));
                softLink("other", "target");
            }
            return true;
        };
        control.extract(QStringLiteral("*.*"));
        QVERIFY(!isFirst);
        QCOMPARE(folder->entries(QStringLiteral("renamed")),
                 (QStringList{QStringLiteral("a.gb"), QStringLiteral("b.gb")}));
        QCOMPARE(folder->entries(QStringLiteral("other")), QStringList{QStringLiteral("in.gb")});
    }
    void a_folder_that_vanishes_meanwhile_ends_quietly() {
        UnZip control = unzip(makeArchive("a.zip", {{"a.gb", QByteArray(48 << 20, 'a')}, {"b.gb", "b"}}));
        bool isFirst = true;
        control.goesOn = [&] {
            if (std::exchange(isFirst, false)) QDir(at("target")).removeRecursively();
            return true;
        };
        control.extract(QStringLiteral("*.*"));
        QVERIFY(!isFirst);
        QVERIFY(!QFile::exists(at("target")));
    }
    void without_a_folder_nothing_is_created_data() {
        QTest::addColumn<QString>("name");
        for (const char* name : {"missing\\", "out.gb\\", "missing\\sub\\"}) QTest::newRow(name) << name;
        QTest::newRow("none") << QString();
    }
    void without_a_folder_nothing_is_created() {
        QFETCH(QString, name);
        UnZip control = unzip(makeArchive("a.zip", {{"a.gb", "new"}}));
        control.setFolder(name.isEmpty() ? name : folder->path(name));
        const FolderTree before = wholeTree();
        control.extract(QStringLiteral("*.*"));
        QCOMPARE(wholeTree(), before);
    }
    void a_read_only_folder_stays_as_it_is() {
        const QString archive = makeArchive("a.zip", {{"a.gb", "new"}});
        setMode("target", 0555);
        const OrdinaryUser user;
        extract(archive);
        QCOMPARE(targetTree(), FolderTree());
    }
    void leftovers_of_a_killed_run_are_removed_and_files_of_a_living_one_stay() {
        write("target/.torvane-aaaaaa", "left");
        write("target/.torvane-bbbbbb", "at work");
        const OtherProgram other(
            [&] { flock(open(folder->native("target/.torvane-bbbbbb").constData(), O_RDWR), LOCK_EX); });
        extract(makeArchive("a.zip", {{"a.gb", "new"}}));
        expectNames({QStringLiteral(".torvane-bbbbbb"), QStringLiteral("a.gb")}, "target");
    }
    void a_killed_run_leaves_whole_files_and_the_next_one_tidies_up() {
        QList<ArchiveEntry> entries;
        const QByteArray game(200'000, 'g');
        for (int i = 0; i < 100; ++i) entries.append(ArchiveEntry{"g" + QByteArray::number(i), game});
        const QString archive = makeArchive("a.zip", entries);
        for (const useconds_t milliseconds : {2, 5, 10, 20, 40}) {
            inOtherProgram([&] {
                ualarm(milliseconds * 1000, 0); // not handled, so it kills
                extract(archive);
            });
            const FolderTree tree = targetTree();
            for (auto entry = tree.begin(); entry != tree.end(); ++entry) {
                if (!entry.key().startsWith('.')) QVERIFY2(entry.value() == fileWith(game), entry.key());
            }
        }
        extract(archive);
        QCOMPARE(targetTree().size(), 100);
        QVERIFY(!targetTree().firstKey().startsWith('.'));
    }
};

TORVANE_APPLESS_TEST(UnZipFolderTest)
#include "UnZipFolderTest.moc"
