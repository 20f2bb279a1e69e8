// SPDX-License-Identifier: MIT
// Which entries of an archive count as top-level, and the reason given if no game comes out. UnZipCorpusTest
// covers hostile names in folders and has one archive for each rule.
#include "support/TestMain.h"
#include "support/UnZipFixture.h"

#include <QElapsedTimer>

using namespace torvane;

class UnZipTopTest : public UnZipFixture {
    Q_OBJECT

    using Reason = UnZip::Reason;

private slots:
    void initTestCase() { umask(022); }
    void init() { renewTarget(); }

    // The one folder
    void games_of_the_one_folder_come_out_beside_the_other_top_level_files() {
        extract(makeArchive("a.zip", {{"Games/", ""},
                                      {"Games/a.gb", "a"},
                                      {"Games/b.gba", "b"},
                                      {"Games/manual.txt", "m"},
                                      {"readme", "r"}}));
        QCOMPARE(targetTree(), files({{"a.gb", "a"}, {"b.gba", "b"}, {"readme", "r"}}));
    }
    void a_game_at_the_top_excludes_the_folder_wherever_it_is_listed_data() {
        QTest::addColumn<bool>("isLast");
        QTest::newRow("first entry") << false;
        QTest::newRow("last entry") << true;
    }
    void a_game_at_the_top_excludes_the_folder_wherever_it_is_listed() {
        QFETCH(bool, isLast);
        QList<ArchiveEntry> entries{{"Games/a.gb", "a"}};
        entries.insert(isLast ? 1 : 0, ArchiveEntry{"b.gb", "b"});
        extract(makeArchive("a.zip", entries));
        QCOMPARE(targetTree(), files({{"b.gb", "b"}}));
    }
    void a_pattern_applies_in_the_folder_too() {
        unzip(makeArchive("a.zip", {{"Games/a.gb", "a"}, {"Games/b.gba", "b"}}))
            .extract(QStringLiteral("*.gba"));
        QCOMPARE(targetTree(), files({{"b.gba", "b"}}));
    }
    void by_default_every_file_is_wanted() {
        UnZip control = unzip(makeArchive("a.zip", {{"docs/readme", "r"}, {"docs/a.txt", "a"}}));
        control.isWanted = nullptr;
        QCOMPARE(control.extract(QStringLiteral("*.*")), Reason::none);
        QCOMPARE(targetTree(), files({{"readme", "r"}, {"a.txt", "a"}}));
    }
    void limits_apply_in_the_folder_too() {
        const UnZip::Limits limits{.bytesPerEntry = 4, .bytesInAll = 9};
        extract(makeArchive("a.zip", {{"Games/large.gb", "12345"},
                                      {"Games/a.gb", "1234"},
                                      {"Games/b.gb", "1234"},
                                      {"Games/c.gb", "1234"},
                                      {"Games/d.gb", ""}}),
                limits);
        QCOMPARE(targetTree(), files({{"a.gb", "1234"}, {"b.gb", "1234"}}));
        const QString many = makeArchive("b.zip", {{"Games/e.gb", ""}, {"Games/f.gb", ""}});
        QCOMPARE(extract(many, {.entries = 1}), Reason::damaged);
        QCOMPARE(targetTree().size(), 2);
    }
    void the_question_is_asked_while_a_long_directory_is_searched_for_the_folder() {
        QList<ArchiveEntry> entries;
        for (int i = 0; i < 60'000; ++i)
            entries.append(ArchiveEntry{"Games/g" + QByteArray::number(i) + ".gb", "", ZIP_CM_STORE});
        UnZip control = unzip(makeArchive("a.zip", entries));
        QElapsedTimer sinceAnswer;
        qint64 longest = 0;
        int questions = 0;
        bool hasFile = false;
        sinceAnswer.start();
        control.goesOn = [&] {
            longest = std::max(longest, sinceAnswer.restart());
            ++questions;
            hasFile = !targetTree().isEmpty();
            sinceAnswer.start();
            return !hasFile;
        };
        control.extract(QStringLiteral("*.*"));
        QVERIFY(hasFile && questions > 2);
        QVERIFY2(longest < 1000, qPrintable(QString::number(longest)));
    }

    // Reasons
    void a_game_that_comes_out_leaves_no_reason() {
        QCOMPARE(extract(makeArchive("a.zip", {{"a.gb", "a"}, {"readme", "r"}})), Reason::none);
    }
    void an_archive_that_cannot_be_read_is_called_damaged_data() {
        QTest::addColumn<QString>("name");
        for (const char* name : {"missing.zip", "other", "out.gb"}) QTest::newRow(name) << name;
    }
    void an_archive_that_cannot_be_read_is_called_damaged() {
        QFETCH(QString, name);
        QCOMPARE(extract(folder->path(name)), Reason::damaged);
    }
    void an_entry_beyond_a_limit_gives_no_room_data() {
        QTest::addColumn<qint64>("perEntry");
        QTest::addColumn<qint64>("inAll");
        QTest::newRow("too large") << qint64{3} << qint64{100};
        QTest::newRow("too much in all") << qint64{100} << qint64{3};
    }
    void an_entry_beyond_a_limit_gives_no_room() {
        QFETCH(qint64, perEntry);
        QFETCH(qint64, inAll);
        const QString archive = makeArchive("a.zip", {{"a.gb", "game"}});
        QCOMPARE(extract(archive, {.bytesPerEntry = perEntry, .bytesInAll = inAll}), Reason::noRoom);
    }
    void a_full_disk_gives_no_room() {
        const QString archive = makeArchive("a.zip", {{"a.gb", QByteArray(1000, 'g')}});
        auto reason = Reason::none;
        {
            const FullDisk full(10);
            reason = extract(archive);
        }
        QCOMPARE(reason, Reason::noRoom);
        QCOMPARE(extract(archive, {.bytesLeftFree = qint64{1} << 60}), Reason::noRoom);
    }
    void a_folder_that_can_not_be_written_gives_no_room() {
        UnZip control = unzip(makeArchive("a.zip", {{"a.gb", "game"}}));
        folder->makeFolder(QStringLiteral("target/a.gb"));
        QCOMPARE(control.extract(QStringLiteral("*.*")), Reason::noRoom);
        control.setFolder(folder->path(QStringLiteral("missing\\")));
        QCOMPARE(control.extract(QStringLiteral("*.*")), Reason::noRoom);
    }
    void of_two_reasons_the_later_one_is_given() {
        const QList<Reason> inOrder{Reason::none,   Reason::nothingWanted, Reason::inSubfolders,
                                    Reason::noRoom, Reason::encrypted,     Reason::unknownMethod,
                                    Reason::damaged};
        QVERIFY(std::is_sorted(inOrder.begin(), inOrder.end()));
    }
    void an_encrypted_text_beside_games_in_folders_gives_encrypted() {
        // Listed, the text would have ended the wait.
        makeArchive("a.zip", {{"one/a.gb", "a"}, {"two/b.gb", "b"}, {"readme", "secret", ZIP_CM_STORE}});
        QByteArray bytes = read("a.zip");
        bytes[bytes.lastIndexOf("PK\1\2") + 8] |= 1;
        QCOMPARE(extract(write("a.zip", bytes)), Reason::encrypted);
        QCOMPARE(targetTree(), FolderTree());
    }
};

TORVANE_APPLESS_TEST(UnZipTopTest)
#include "UnZipTopTest.moc"
