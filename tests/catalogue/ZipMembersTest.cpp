// SPDX-License-Identifier: MIT
// The members of an unpacked archive: their folder, kinds and rows, and which files are deleted.
#include "catalogue/ZipMembers.h"
#include "support/Archive.h"
#include "support/Failing.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"

#include <QElapsedTimer>

using namespace torvane;
using namespace Qt::StringLiterals;

class ZipMembersTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestFolder> folder;
    Globals globals;
    std::unique_ptr<ZipTemp> temp;

    QString member(const QString& name, const QByteArray& bytes = "x") const {
        return folder->write(u"ziptemp/game/"_s + name, bytes);
    }
    std::shared_ptr<const FolderNames> names() const {
        return FolderNames::read(temp->folderOf(u"game.zip"_s), u"*.*"_s);
    }
    bool exists(const QString& relative) const { return QFileInfo(folder->path(relative)).exists(); }

private slots:
    void init() {
        folder = std::make_unique<TestFolder>();
        globals.AppPath = folder->path();
        temp = std::make_unique<ZipTemp>(globals);
    }

    // The folder of an archive
    void the_folder_has_the_name_of_the_archive_up_to_its_first_dot_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("expected");
        QTest::newRow("plain") << u"game.zip"_s << u"\\ziptemp\\game\\"_s;
        QTest::newRow("two dots") << u"Super.Game.zip"_s << u"\\ziptemp\\Super\\"_s;
        QTest::newRow("x.one shares") << u"x.one.zip"_s << u"\\ziptemp\\x\\"_s;
        QTest::newRow("x.two shares") << u"x.two.zip"_s << u"\\ziptemp\\x\\"_s;
        QTest::newRow("blanks") << u"A Game .zip"_s << u"\\ziptemp\\A Game \\"_s;
    }
    void the_folder_has_the_name_of_the_archive_up_to_its_first_dot() {
        QFETCH(QString, name);
        QFETCH(QString, expected);
        QCOMPARE(temp->folderOf(name), folder->path() + expected);
    }
    void an_archive_is_unpacked_although_ziptemp_is_missing() {
        writeArchive(folder->path(u"game.zip"_s), {{u"game.gba"_s, "one"}, {u"readme.txt"_s, "two"}});
        UnZip engine;
        temp->ExtractZipToTemp(engine, folder->path(u"game.zip"_s), u"game.zip"_s);
        QCOMPARE(folder->read(u"ziptemp/game/game.gba"_s), QByteArray("one"));
        QCOMPARE(folder->read(u"ziptemp/game/readme.txt"_s), QByteArray("two"));
    }
    void an_archive_is_unpacked_over_leftovers_of_an_earlier_run() {
        member(u"game.gba"_s, "former");
        writeArchive(folder->path(u"game.zip"_s), {{u"game.gba"_s, "new"}});
        UnZip engine;
        temp->ExtractZipToTemp(engine, folder->path(u"game.zip"_s), u"game.zip"_s);
        QCOMPARE(folder->read(u"ziptemp/game/game.gba"_s), QByteArray("new"));
    }
    void nothing_is_unpacked_through_a_link() {
        folder->makeFolder(u"mine"_s);
        folder->makeFolder(u"ziptemp"_s);
        QVERIFY(QFile::link(folder->path(u"mine"_s), folder->path(u"ziptemp/game"_s)));
        writeArchive(folder->path(u"game.zip"_s), {{u"game.gba"_s, "one"}});
        UnZip engine;
        QCOMPARE(temp->ExtractZipToTemp(engine, folder->path(u"game.zip"_s), u"game.zip"_s),
                 UnZip::Reason::noRoom);
        QVERIFY(!temp->isOurs(u"game.zip"_s));
        QCOMPARE(folder->entries(u"mine"_s), QStringList());
    }
    void a_file_that_is_no_archive_gives_an_empty_folder_and_the_reason() {
        UnZip engine;
        const QString path = folder->write(u"game.zip"_s, "no archive");
        QCOMPARE(temp->ExtractZipToTemp(engine, path, u"game.zip"_s), UnZip::Reason::damaged);
        QVERIFY(temp->isOurs(u"game.zip"_s));
        QCOMPARE(folder->entries(u"ziptemp/game"_s), QStringList());
    }
    void playable_members_count_as_games_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("isGame");
        for (const char* name : {"a.gb", "A.GBC", "a.gba", "a.agb", "a.cgb", "a.bin", "a.gb.txt"}) {
            QTest::newRow(name) << QString::fromLatin1(name) << true;
        }
        for (const char* name : {"a.txt", "a.b.gb", "gb", "a.zip"}) {
            QTest::newRow(name) << QString::fromLatin1(name) << false;
        }
    }
    void playable_members_count_as_games() {
        QFETCH(QString, name);
        QFETCH(bool, isGame);
        // In the single folder of an archive: only games are unpacked from there.
        writeArchive(folder->path(u"game.zip"_s), {{u"folder/"_s + name, "x"}});
        UnZip engine;
        const UnZip::Reason reason =
            temp->ExtractZipToTemp(engine, folder->path(u"game.zip"_s), u"game.zip"_s);
        QCOMPARE(reason, isGame ? UnZip::Reason::none : UnZip::Reason::nothingWanted);
        QCOMPARE(folder->entries(u"ziptemp/game"_s), isGame ? QStringList{name} : QStringList());
    }

    // Kinds
    void each_kind_has_an_icon_and_is_playable_or_not_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("icon");
        QTest::addColumn<bool>("playable");
        QTest::newRow("gb") << u"a.gb"_s << 1 << true;
        QTest::newRow("gba") << u"a.gba"_s << 2 << true;
        QTest::newRow("gbc") << u"a.gbc"_s << 3 << true;
        QTest::newRow("upper case") << u"A.GBC"_s << 3 << true;
        QTest::newRow("agb") << u"demo.agb"_s << 4 << true;
        QTest::newRow("cgb") << u"a.cgb"_s << 4 << true;
        QTest::newRow("bin") << u"a.bin"_s << 4 << true;
        QTest::newRow("text") << u"readme.txt"_s << 4 << false;
        QTest::newRow("the second piece is b") << u"a.b.gba"_s << 4 << false;
        QTest::newRow("the second piece is gba") << u"a.gba.txt"_s << 2 << true;
        QTest::newRow("an empty piece") << u"a."_s << 4 << false;
    }
    void each_kind_has_an_icon_and_is_playable_or_not() {
        QFETCH(QString, name);
        QFETCH(int, icon);
        QFETCH(bool, playable);
        QCOMPARE(static_cast<int>(memberIcon(memberExtension(name, {}))), icon);
        QCOMPARE(isPlayable(name.toUtf8(), {}), playable);
        member(name);
        const ZipMembers members(names(), {});
        QCOMPARE(members.icon(0), icon);
        QCOMPARE(members.hasPlayable(), playable);
    }
    void a_name_without_a_dot_has_no_kind_and_is_not_playable() {
        QCOMPARE(failureOf([] { memberExtension(u"readme"_s, {}); }), 9);
        QVERIFY(!isPlayable("gb", {}));
        QVERIFY(!isPlayable("", {}));
    }

    void whole_names_have_the_kind_after_their_last_dot() {
        const NameCut whole = NameCut::chosen(u"whole"_s);
        QCOMPARE(memberExtension(u"Dr. Mario (V1.1).GB"_s, whole), u"gb"_s);
        QCOMPARE(memberExtension(u"a."_s, whole), QString());
        QVERIFY(isPlayable("a.b.gba", whole));
        QVERIFY(!isPlayable("a.gba.txt", whole));
        QVERIFY(!isPlayable("a.gba.", whole));
        QCOMPARE(failureOf([&] { memberExtension(u"readme"_s, whole); }), 9);
        member(u"a.b.gba"_s);
        QCOMPARE(ZipMembers(names(), whole).icon(0), 2);
    }
    void the_folder_of_a_whole_name_is_always_one_below_ziptemp_data() {
        QTest::addColumn<QString>("archive");
        QTest::addColumn<QString>("name");
        QTest::newRow("dots") << u"Dr. Mario (V1.1).zip"_s << u"Dr. Mario (V1.1)"_s;
        QTest::newRow("no dot") << u"game"_s << u"game"_s;
        QTest::newRow("this folder") << u"..zip"_s << u"_"_s;
        QTest::newRow("the folder above") << u"...zip"_s << u"_."_s;
        QTest::newRow("hidden") << u".a.zip"_s << u"_a"_s;
    }
    void the_folder_of_a_whole_name_is_always_one_below_ziptemp() {
        QFETCH(QString, archive);
        globals.names = NameCut::chosen(u"whole"_s);
        QTEST(temp->folderOf(archive).section(u'\\', -2, -2), "name");
        folder->write(u"precious"_s, "mine");
        folder->write(u"ziptemp/precious"_s, "mine");
        temp->DeleteTemp(archive);
        QVERIFY(exists(u"precious"_s));
        QVERIFY(exists(u"ziptemp/precious"_s));
    }

    // Rows
    void rows_have_names_and_numbered_keys() {
        member(u"b.txt"_s);
        member(u"a.b.gba"_s);
        const ZipMembers members(names(), {});
        QCOMPARE(members.count(), 2);
        QCOMPARE(members.text(0, 0), u"a.b.gba"_s);
        QCOMPARE(members.text(1, 0), u"b.txt"_s);
        QCOMPARE(members.key(0), u"1file"_s);
        QCOMPARE(members.key(1), u"2file"_s);
        members.requireAllListed();
    }
    void members_without_a_dot_have_no_row_but_count_in_the_keys() {
        for (const QString& name : {u"1ST"_s, u"b.gb"_s, u"COPYING"_s, u"d.txt"_s}) member(name);
        const ZipMembers members(names(), {});
        QCOMPARE(members.count(), 2);
        QCOMPARE(members.text(0, 0), u"b.gb"_s);
        QCOMPARE(members.icon(0), 1);
        QCOMPARE(members.key(0), u"2file"_s);
        QCOMPARE(members.position(0), 1);
        QCOMPARE(members.text(1, 0), u"d.txt"_s);
        QCOMPARE(members.key(1), u"4file"_s);
        QCOMPARE(members.position(1), 3);
        QCOMPARE(members.position(2), -1);
        QCOMPARE(members.position(-1), -1);
        QCOMPARE(failureOf([&] { members.requireAllListed(); }), 9);
    }
    void there_are_no_rows_if_no_name_has_a_dot() {
        member(u"README"_s);
        QCOMPARE(ZipMembers(names(), {}).count(), 0);
    }
    void subfolders_are_not_members() {
        member(u"sub/a.gb"_s);
        member(u"b.gb"_s);
        QCOMPARE(ZipMembers(names(), {}).count(), 1);
    }
    void ten_thousand_members_are_listed_in_less_than_two_seconds() {
        for (int i = 0; i < 10'000; ++i) member(u"m%1.gb"_s.arg(i), {});
        QElapsedTimer clock;
        clock.start();
        const ZipMembers members(names(), {});
        QCOMPARE(members.count(), 10'000);
        QVERIFY2(clock.elapsed() < 2000, qPrintable(QString::number(clock.elapsed())));
    }

    // Deletion
    void all_listed_files_and_the_folder_are_deleted_even_if_read_only() {
        member(u"a.gb"_s);
        member(u"readme"_s);
        member(u"c.txt"_s);
        folder->setMode(u"ziptemp/game/a.gb"_s, 0444);
        temp->DeleteTemp(u"game.zip"_s);
        QVERIFY(!exists(u"ziptemp/game"_s));
        QVERIFY(exists(u"ziptemp"_s));
    }
    void an_empty_folder_is_deleted_too() {
        folder->makeFolder(u"ziptemp/game"_s);
        temp->DeleteTemp(u"game.zip"_s);
        QVERIFY(!exists(u"ziptemp/game"_s));
    }
    void a_subfolder_stays_and_keeps_its_folder() {
        member(u"sub/a.gb"_s);
        member(u"b.gb"_s);
        temp->DeleteTemp(u"game.zip"_s);
        QVERIFY(exists(u"ziptemp/game/sub/a.gb"_s));
        QVERIFY(!exists(u"ziptemp/game/b.gb"_s));
    }
    void a_hidden_file_stays() {
        member(u".mine"_s);
        member(u"b.gb"_s);
        temp->DeleteTemp(u"game.zip"_s);
        QCOMPARE(folder->entries(u"ziptemp/game"_s), QStringList{u".mine"_s});
    }
    void a_folder_that_is_a_link_stays_with_the_content_of_its_target() {
        folder->write(u"mine/a.gb"_s, "mine");
        folder->makeFolder(u"ziptemp"_s);
        QVERIFY(QFile::link(folder->path(u"mine"_s), folder->path(u"ziptemp/game"_s)));
        temp->DeleteTemp(u"game.zip"_s);
        QCOMPARE(folder->read(u"mine/a.gb"_s), QByteArray("mine"));
        QVERIFY(exists(u"ziptemp/game"_s));
    }
    void a_link_to_a_file_is_deleted_and_the_file_stays_unchanged() {
        const QString mine = folder->write(u"mine.gb"_s, "mine");
        folder->setMode(u"mine.gb"_s, 0444);
        folder->makeFolder(u"ziptemp/game"_s);
        QVERIFY(QFile::link(mine, folder->path(u"ziptemp/game/a.gb"_s)));
        temp->DeleteTemp(u"game.zip"_s);
        QVERIFY(!exists(u"ziptemp/game"_s));
        QCOMPARE(folder->read(u"mine.gb"_s), QByteArray("mine"));
        struct stat info {};
        QCOMPARE(stat(QFile::encodeName(mine).constData(), &info), 0);
        QCOMPARE(info.st_mode & 0777, 0444);
    }
    void a_file_that_cannot_be_deleted_stays_without_a_message() {
        member(u"a.gb"_s);
        folder->setMode(u"ziptemp/game"_s, 0555);
        {
            const OrdinaryUser user;
            temp->DeleteTemp(u"game.zip"_s);
        }
        folder->setMode(u"ziptemp/game"_s, 0755);
        QVERIFY(exists(u"ziptemp/game/a.gb"_s));
    }
    void a_missing_folder_is_no_failure() {
        member(u"a.gb"_s);
        QVERIFY(!failureOf([this] { temp->DeleteTemp(u"none.zip"_s); }).has_value());
        QCOMPARE(folder->entries(u"ziptemp"_s), QStringList{u"game"_s});
        QVERIFY(exists(u"ziptemp/game/a.gb"_s));
    }
};

TORVANE_GUILESS_TEST(ZipMembersTest)
#include "ZipMembersTest.moc"
