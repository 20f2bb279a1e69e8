// SPDX-License-Identifier: MIT
// The two files on the disk: read whatever they are, changed whole or not at all.
#include "weblinks/WebLists.h"
#include "support/FileFixture.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class WebListsTest : public FileFixture {
    Q_OBJECT

    static constexpr const char* sharedFile = "data/url.dat";
    static constexpr const char* ownFile = "data/url_perso.dat";
    static constexpr const char* kept = "data/url_perso.bak";
    Globals globals;

    WebLists lists() const { return WebLists(globals); }
    QStringList names() const {
        const WebLists::Reading reading = lists().read();
        QStringList all;
        for (int row = 0; row < reading.entries->rowCount(); ++row)
            all += QString::fromLatin1(reading.entries->name(row).toByteArray());
        return all;
    }
    bool isWhole() const { return lists().read().isWhole; }
    std::optional<int> removeFailure(const QByteArray& line) const {
        return failureOf([&] { lists().remove(line); });
    }
    std::optional<int> addFailure() const {
        return failureOf([&] { lists().add(u"n"_s, u"a"_s); });
    }
    // All three changes, each of which must fail and leave both files as they are.
    void checkNothingChanges(RuntimeFailure::Number expected) {
        const QByteArray before = read(sharedFile) + read(ownFile);
        const QStringList files = folder->entries(u"data"_s);
        QCOMPARE(addFailure(), number(expected));
        QCOMPARE(removeFailure("b;b;perso"), number(expected));
        QCOMPARE(failureOf([&] { lists().replaceShared(QByteArray(1000, 'x')); }), number(expected));
        QCOMPARE(read(sharedFile) + read(ownFile), before);
        QCOMPARE(folder->entries(u"data"_s), files);
    }

private slots:
    void init() {
        renewFolder();
        globals.AppPath = folder->path();
        write(sharedFile, "a;a;system\r\n");
        write(ownFile, "b;b;perso\r\nc;c;perso\r\n");
    }

    // Reading
    void the_shared_pages_come_before_the_personal_ones() {
        QCOMPARE(names(), (QStringList{u"a"_s, u"b"_s, u"c"_s}));
        QVERIFY(isWhole());
    }
    void empty_files_are_whole() {
        write(sharedFile, "");
        write(ownFile, "");
        QVERIFY(isWhole());
        QCOMPARE(names(), QStringList());
    }
    void without_the_shared_file_nothing_is_read() {
        QFile::remove(at(sharedFile));
        QVERIFY(!isWhole());
        QCOMPARE(names(), QStringList());
    }
    void without_the_personal_file_the_shared_pages_are_read() {
        QFile::remove(at(ownFile));
        QVERIFY(!isWhole());
        QCOMPARE(names(), QStringList{u"a"_s});
    }
    void a_file_of_100_mib_is_refused_at_once() {
        QFile sparse(at(ownFile));
        QVERIFY(sparse.resize(100 << 20));
        QVERIFY(!isWhole());
        QCOMPARE(names(), QStringList{u"a"_s});
        QCOMPARE(removeFailure("b;b;perso"), number(RuntimeFailure::outOfMemory));
    }
    void a_file_of_8_mib_is_read() {
        QFile sparse(at(ownFile));
        QVERIFY(sparse.resize(WebLists::mostBytes));
        QVERIFY(isWhole());
        QVERIFY(sparse.resize(WebLists::mostBytes + 1));
        QVERIFY(!isWhole());
    }
    void what_is_no_file_is_not_read_and_not_waited_for() {
        QFile::remove(at(ownFile));
        QCOMPARE(mkfifo(folder->native(ownFile).constData(), 0666), 0);
        QVERIFY(!isWhole());
        QFile::remove(at(sharedFile));
        folder->makeFolder(QString::fromLatin1(sharedFile));
        QVERIFY(!isWhole());
    }

    // The shared list
    void the_shared_list_is_what_the_file_holds() { QCOMPARE(lists().shared(), "a;a;system\r\n"_ba); }
    void a_missing_shared_list_is_empty_and_one_that_is_too_large_is_none() {
        QFile::remove(at(sharedFile));
        QCOMPARE(lists().shared(), QByteArray());
        QFile sparse(write(sharedFile, ""));
        QVERIFY(sparse.resize(WebLists::mostBytes + 1));
        QVERIFY(!lists().shared().has_value());
    }
    void an_unreadable_shared_list_is_a_failure_that_names_it() {
        setMode(sharedFile, 0);
        const OrdinaryUser user;
        try {
            (void)lists().shared();
            QFAIL("no failure");
        } catch (const RuntimeFailure& failure) {
            QCOMPARE(failure.number(), RuntimeFailure::permissionDenied);
            QVERIFY(failure.file().endsWith(u"url.dat"_s));
        }
    }
    void a_new_shared_list_is_written_as_it_came_and_a_line_end_follows() {
        QByteArray body;
        for (int byte = 0; byte < 256; ++byte) body += static_cast<char>(byte);
        lists().replaceShared(body);
        QCOMPARE(read(sharedFile), body + "\r\n");
        expectNames({u"url.dat"_s, u"url_perso.dat"_s}, "data");
    }

    // Adding
    void a_page_is_added_after_an_empty_line() {
        write(ownFile, "");
        lists().add(u"n"_s, u"a"_s);
        QCOMPARE(read(ownFile), "\r\nn;a;perso\r\n");
    }
    void two_additions_in_a_row_leave_both_entries_each_after_an_empty_line() {
        write(ownFile, "");
        lists().add(u"n"_s, u"a"_s);
        lists().add(u"m"_s, u"b"_s);
        QCOMPARE(read(ownFile), "\r\nn;a;perso\r\n\r\nm;b;perso\r\n");
    }
    void the_first_addition_makes_a_missing_file() {
        QFile::remove(at(ownFile));
        lists().add(u"n"_s, u"a"_s);
        QCOMPARE(read(ownFile), "\r\nn;a;perso\r\n");
        QVERIFY(isWhole());
    }
    void what_is_added_is_in_code_page_1252() {
        lists().add(u"Ñandú €"_s, u"http://a/á"_s);
        QVERIFY(read(ownFile).endsWith("\r\n\xD1"
                                       "and\xFA \x80;http://a/\xE1;perso\r\n"));
    }
    void an_addition_that_would_make_the_list_unreadable_is_refused() {
        QFile sparse(at(ownFile));
        QVERIFY(sparse.resize(WebLists::mostBytes - 12)); // the addition has 13 bytes
        QCOMPARE(addFailure(), number(RuntimeFailure::outOfMemory));
        QCOMPARE(infoOf(ownFile).st_size, WebLists::mostBytes - 12);
        QVERIFY(sparse.resize(WebLists::mostBytes - 13));
        QCOMPARE(addFailure(), std::nullopt);
        QVERIFY(isWhole());
    }
    void a_private_file_stays_private() {
        setMode(ownFile, 0600);
        lists().add(u"n"_s, u"a"_s);
        lists().remove("b;b;perso");
        QCOMPARE(modeOf(ownFile), 0600U);
        QCOMPARE(modeOf(kept), 0600U);
    }
    void a_link_stays_and_its_target_is_changed() {
        QFile::remove(at(ownFile));
        write("elsewhere.dat", "b;b;perso\r\n");
        softLink("../elsewhere.dat", ownFile);
        lists().add(u"n"_s, u"a"_s);
        lists().remove("b;b;perso");
        QVERIFY(S_ISLNK(infoOf(ownFile).st_mode));
        QCOMPARE(read("elsewhere.dat"), "\r\n\r\n\r\nn;a;perso\r\n\r\n");
        QCOMPARE(read(kept), "b;b;perso\r\n\r\nn;a;perso\r\n");
    }

    // Removing
    void a_line_is_removed_and_a_line_end_follows_each_part() {
        lists().remove("b;b;perso");
        QCOMPARE(read(ownFile), "\r\n\r\nc;c;perso\r\n\r\n");
    }
    void before_a_deletion_the_whole_file_is_kept() {
        const QByteArray before = read(ownFile);
        lists().remove("b;b;perso");
        QCOMPARE(read(kept), before);
        const QByteArray between = read(ownFile);
        lists().remove("c;c;perso");
        QCOMPARE(read(kept), between);
        expectNames({u"url.dat"_s, u"url_perso.bak"_s, u"url_perso.dat"_s}, "data");
    }
    void of_two_equal_entries_the_first_goes_and_the_rest_after_the_second_is_kept_in_the_backup() {
        const QByteArray all = "1;1;perso\r\nb;b;perso\r\n2;2;perso\r\nb;b;perso\r\n3;3;perso\r\n";
        write(ownFile, all);
        lists().remove("b;b;perso");
        QCOMPARE(read(ownFile), "1;1;perso\r\n\r\n\r\n2;2;perso\r\n\r\n");
        QCOMPARE(read(kept), all);
    }
    void a_line_that_is_not_there_is_a_failure_and_nothing_changes() {
        const QByteArray before = read(ownFile);
        QCOMPARE(removeFailure("z;z;perso"), number(RuntimeFailure::subscript));
        QCOMPARE(read(ownFile), before);
        expectNames({u"url.dat"_s, u"url_perso.dat"_s}, "data");
    }
    void nothing_is_removed_from_a_missing_file() {
        QFile::remove(at(ownFile));
        QCOMPARE(removeFailure("b;b;perso"), number(RuntimeFailure::fileNotFound));
        expectNames({u"url.dat"_s}, "data");
    }
    void a_line_of_any_bytes_is_removed() {
        write(ownFile, "x\0y;\xFF\x81;perso\n"_ba);
        lists().remove("x\0y;\xFF\x81;perso"_ba);
        QCOMPARE(read(ownFile), "\r\n\n\r\n");
    }

    void without_a_backup_nothing_is_removed() {
        const QByteArray before = read(ownFile);
        folder->makeFolder(QString::fromLatin1(kept));
        QCOMPARE(removeFailure("b;b;perso"), number(RuntimeFailure::pathAccess));
        QCOMPARE(read(ownFile), before);
        expectNames({u"url.dat"_s, u"url_perso.bak"_s, u"url_perso.dat"_s}, "data");
    }
    void a_full_list_can_be_made_shorter() {
        QFile sparse(at(ownFile));
        QVERIFY(sparse.resize(WebLists::mostBytes));
        lists().remove("b;b;perso");
        QCOMPARE(infoOf(ownFile).st_size, WebLists::mostBytes - 9 + 4);
    }
    void failures_of_additions_and_deletions_name_the_file() {
        setMode(ownFile, 0444);
        const OrdinaryUser user;
        for (const bool isAddition : {true, false}) {
            try {
                isAddition ? lists().add(u"n"_s, u"a"_s) : lists().remove("b;b;perso");
                QFAIL("no failure");
            } catch (const RuntimeFailure& failure) {
                QVERIFY(failure.file().endsWith(u"url_perso.dat"_s));
            }
        }
    }

    // Bad days of the disk
    void a_full_disk_changes_nothing_data() {
        QTest::addColumn<int>("room");
        for (const int room : {0, 1, 20}) QTest::addRow("%d bytes", room) << room;
    }
    void a_full_disk_changes_nothing() {
        QFETCH(int, room);
        const QByteArray before = read(sharedFile) + read(ownFile);
        {
            const FullDisk full(static_cast<rlim_t>(room));
            QCOMPARE(addFailure(), number(RuntimeFailure::diskFull));
            if (room < 15) QCOMPARE(removeFailure("b;b;perso"), number(RuntimeFailure::diskFull));
            QCOMPARE(failureOf([&] { lists().replaceShared(QByteArray(1000, 'x')); }),
                     number(RuntimeFailure::diskFull));
        }
        if (room < 15) QCOMPARE(read(sharedFile) + read(ownFile), before);
        for (const QString& name : folder->entries(u"data"_s)) QVERIFY(!name.startsWith(u'.'));
    }
    void a_folder_that_cannot_be_written_changes_nothing() {
        folder->setMode(u"data"_s, 0555);
        {
            const OrdinaryUser user;
            checkNothingChanges(RuntimeFailure::permissionDenied);
        }
        folder->setMode(u"data"_s, 0755);
    }
    void read_only_files_stay() {
        folder->setMode(u"data"_s, 0777);
        setMode(sharedFile, 0444);
        setMode(ownFile, 0444);
        const OrdinaryUser user;
        checkNothingChanges(RuntimeFailure::permissionDenied);
    }
    void without_the_folder_every_change_is_a_failure() {
        QVERIFY(QDir(at("data")).removeRecursively());
        QVERIFY(addFailure().has_value());
        QVERIFY(removeFailure("b;b;perso").has_value());
        QVERIFY(failureOf([&] { lists().replaceShared("x"); }).has_value());
        expectNames({});
    }
};

TORVANE_APPLESS_TEST(WebListsTest)
#include "WebListsTest.moc"
