// SPDX-License-Identifier: MIT
// Imports of games into the library, and which originals may be deleted afterwards.
#include "catalogue/AddNewROM.h"
#include "support/Failing.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <sys/stat.h>

using namespace torvane;
using namespace Qt::StringLiterals;

class AddNewROMTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestFolder> folder;
    Globals globals;
    std::unique_ptr<AddNewROM> adding;

    QString source(const QString& name, const QByteArray& bytes = "game") const {
        return folder->write(u"from/"_s + name, bytes);
    }
    QByteArray inLibrary(const QString& name) const { return folder->read(u"roms/"_s + name); }
    QStringList library() const { return folder->entries(u"roms"_s); }
    mode_t modeOf(const QString& path) const {
        struct stat info {};
        return lstat(QFile::encodeName(path).constData(), &info) == 0 ? info.st_mode & 07777 : 0;
    }
    /// Imports one file, as the assistant does with a chosen one.
    bool import(const QString& path, const QString& name) {
        adding->begin([] {});
        const bool isOther = adding->AddRomToLibrary(path, name);
        adding->finish();
        return isOther;
    }
    void importAll(const QStringList& names) {
        adding->begin([] {});
        for (const QString& name : names) adding->AddRomToLibrary(folder->path(u"from/"_s + name), name);
        adding->finish();
    }

private slots:
    void init() {
        folder = std::make_unique<TestFolder>();
        folder->makeFolder(u"roms"_s);
        globals.AppPath = folder->path();
        adding = std::make_unique<AddNewROM>(globals);
    }

    // SetFileAttributes
    void the_owner_may_write_a_read_only_file_and_nobody_else_gets_more_rights() {
        const QString path = source(u"a.gb"_s);
        folder->setMode(u"from/a.gb"_s, 0444);
        SetFileAttributes(path);
        QCOMPARE(modeOf(path), 0644);
    }
    void the_attributes_of_a_link_target_stay() {
        const QString path = source(u"a.gb"_s);
        folder->setMode(u"from/a.gb"_s, 0444);
        QVERIFY(QFile::link(path, folder->path(u"link.gb"_s)));
        SetFileAttributes(folder->path(u"link.gb"_s));
        QCOMPARE(modeOf(path), 0444);
    }
    void a_missing_file_and_a_folder_are_ignored() {
        SetFileAttributes(folder->path(u"nowhere"_s));
        SetFileAttributes(QString());
        folder->makeFolder(u"sub"_s);
        folder->setMode(u"sub"_s, 0555);
        SetFileAttributes(folder->path(u"sub"_s));
        QCOMPARE(modeOf(folder->path(u"sub"_s)), 0555);
    }

    // The folder before the text of the dialog
    void a_folder_ends_before_the_first_mark_data() {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("mark");
        QTest::addColumn<QString>("expected");
        QTest::newRow("after the folder") << u"/home/me/games\\Pick"_s << u"Pick"_s << u"/home/me/games\\"_s;
        QTest::newRow("in the folder's own name")
            << u"/home/Pick me/games\\Pick"_s << u"Pick"_s << u"/home/"_s;
        QTest::newRow("in another case") << u"/home/pick\\Pick"_s << u"Pick"_s << u"/home/pick\\"_s;
        QTest::newRow("no mark") << u"/home/games\\"_s << QString() << u"/home/games\\"_s;
        QTest::newRow("an absent mark") << u"/home"_s << u"Pick"_s << u"/home"_s;
    }
    void a_folder_ends_before_the_first_mark() {
        QFETCH(QString, path);
        QFETCH(QString, mark);
        QFETCH(QString, expected);
        QCOMPARE(folderInFront(path, mark), expected);
    }

    // Copies
    void a_copy_has_the_bytes_and_the_time_of_its_source() {
        const QString path = source(u"a.gb"_s, QByteArray("\0\r\n\x1A\xFF", 5));
        const timespec times[2] = {{1000, 0}, {2000, 5}};
        QCOMPARE(utimensat(AT_FDCWD, QFile::encodeName(path).constData(), times, 0), 0);
        QVERIFY(import(path, u"a.gb"_s));
        QCOMPARE(inLibrary(u"a.gb"_s), QByteArray("\0\r\n\x1A\xFF", 5));
        struct stat info {};
        QCOMPARE(stat(QFile::encodeName(folder->path(u"roms/a.gb"_s)).constData(), &info), 0);
        QCOMPARE(info.st_mtim.tv_sec, 2000);
        QCOMPARE(library(), QStringList{u"a.gb"_s});
    }
    void a_file_of_that_name_is_replaced_without_a_question() {
        folder->write(u"roms/a.gb"_s, "a former one that is longer");
        QVERIFY(import(source(u"a.gb"_s, "new"), u"a.gb"_s));
        QCOMPARE(inLibrary(u"a.gb"_s), QByteArray("new"));
    }
    void a_replaced_file_keeps_its_rights() {
        folder->write(u"roms/a.gb"_s, "former");
        folder->setMode(u"roms/a.gb"_s, 0600);
        import(source(u"a.gb"_s, "new"), u"a.gb"_s);
        QCOMPARE(modeOf(folder->path(u"roms/a.gb"_s)), 0600);
    }
    void a_name_in_another_case_is_another_game() {
        folder->write(u"roms/a.gb"_s, "small");
        import(source(u"A.GB"_s, "large"), u"A.GB"_s);
        QCOMPARE(inLibrary(u"a.gb"_s), QByteArray("small"));
        QCOMPARE(inLibrary(u"A.GB"_s), QByteArray("large"));
    }
    void the_library_is_found_in_any_case() {
        QVERIFY(QDir(folder->path()).rename(u"roms"_s, u"ROMs"_s));
        import(source(u"a.gb"_s, "x"), u"a.gb"_s);
        QCOMPARE(folder->read(u"ROMs/a.gb"_s), QByteArray("x"));
    }
    void a_name_that_is_not_utf_8_is_kept() {
        folder->makeFolder(u"from"_s);
        const QString path = folder->writeNative("from/a\xFF\\b.gb", "bytes");
        import(path, NativeText::fromNative("a\xFF\\b.gb"));
        QCOMPARE(access(folder->native("roms/a\xFF\\b.gb").constData(), R_OK), 0);
    }
    void hundreds_of_games_are_copied_in_several_batches() {
        QStringList names;
        for (int i = 0; i < 300; ++i) {
            names << u"g%1.gb"_s.arg(i);
            source(names.last(), QByteArray::number(i));
        }
        importAll(names);
        QCOMPARE(library().size(), 300);
        for (int i = 0; i < 300; ++i) QCOMPARE(inLibrary(names[i]), QByteArray::number(i));
    }
    void no_partial_file_has_a_name_before_the_end() {
        adding->begin([] {});
        adding->AddRomToLibrary(source(u"a.gb"_s, QByteArray(100'000, 'a')), u"a.gb"_s);
        QVERIFY(!QFile::exists(folder->path(u"roms/a.gb"_s)));
        adding->finish();
        QCOMPARE(inLibrary(u"a.gb"_s).size(), 100'000);
    }
    void an_abandoned_import_leaves_nothing() {
        adding->begin([] {});
        adding->AddRomToLibrary(source(u"a.gb"_s), u"a.gb"_s);
        adding.reset();
        QCOMPARE(library(), QStringList());
    }
    void a_failure_keeps_the_earlier_copies_and_no_partial_one() {
        const QString good = source(u"a.gb"_s, "whole");
        const QString large = source(u"b.gb"_s, QByteArray(20'000, 'b'));
        adding->begin([] {});
        {
            const FullDisk full(10'000);
            adding->AddRomToLibrary(good, u"a.gb"_s);
            QCOMPARE(failureOf([&] { adding->AddRomToLibrary(large, u"b.gb"_s); }), 61);
        }
        QCOMPARE(library(), QStringList{u"a.gb"_s});
        QCOMPARE(inLibrary(u"a.gb"_s), QByteArray("whole"));
    }
    void a_missing_source_fails() {
        QCOMPARE(failureOf([&] { import(folder->path(u"none.gb"_s), u"none.gb"_s); }), 53);
        QCOMPARE(failureOf([&] { import(QString(), QString()); }), 53);
        QCOMPARE(library(), QStringList());
    }
    void a_missing_library_fails() {
        QVERIFY(QDir(folder->path()).rmdir(u"roms"_s));
        QVERIFY(failureOf([&] { import(source(u"a.gb"_s), u"a.gb"_s); }).has_value());
    }
    void a_game_of_the_library_is_not_copied_onto_itself() {
        const QString path = folder->write(u"roms/a.gb"_s, "content");
        QVERIFY(!import(path, u"a.gb"_s));
        QCOMPARE(inLibrary(u"a.gb"_s), QByteArray("content"));
        QVERIFY(QFile::link(path, folder->path(u"link.gb"_s)));
        QVERIFY(!import(folder->path(u"link.gb"_s), u"a.gb"_s));
        QCOMPARE(inLibrary(u"a.gb"_s), QByteArray("content"));
    }
    void events_are_served_during_a_long_copy() {
        const QString path = source(u"a.gba"_s, QByteArray(64 << 20, 'a'));
        QElapsedTimer since;
        qint64 longest = 0;
        int served = 0;
        adding->begin([&] {
            if (served++ > 0) longest = std::max(longest, since.elapsed());
            since.start();
        });
        adding->AddRomToLibrary(path, u"a.gba"_s);
        adding->finish();
        QVERIFY(served >= 2);
        // Far above what a good machine needs, and still far below a copy without events in between.
        QVERIFY2(longest < 500, qPrintable(QString::number(longest)));
        QCOMPARE(QFileInfo(folder->path(u"roms/a.gba"_s)).size(), 64 << 20);
    }

    // The originals
    void originals_of_complete_copies_are_deleted() {
        const QStringList names{u"a.gb"_s, u"b.gb"_s};
        for (const QString& name : names) source(name, name.toUtf8());
        source(u"notes.txt"_s);
        importAll(names);
        QCOMPARE(adding->deleteSources().gone, 2);
        QCOMPARE(folder->entries(u"from"_s), QStringList{u"notes.txt"_s});
        QCOMPARE(inLibrary(u"b.gb"_s), QByteArray("b.gb"));
        QCOMPARE(adding->deleteSources().gone, 0);
    }
    void an_original_stays_if_it_or_its_copy_has_changed_data() {
        QTest::addColumn<int>("harm");
        QTest::newRow("the copy is gone") << 0;
        QTest::newRow("the copy is shorter") << 1;
        QTest::newRow("another file has replaced it") << 2;
        QTest::newRow("the original has changed") << 3;
        QTest::newRow("the original was replaced") << 4;
    }
    void an_original_stays_if_it_or_its_copy_has_changed() {
        QFETCH(int, harm);
        const QString original = source(u"a.gb"_s, "content");
        importAll({u"a.gb"_s});
        if (harm == 0) QVERIFY(QFile::remove(folder->path(u"roms/a.gb"_s)));
        if (harm == 1) QVERIFY(QFile::resize(folder->path(u"roms/a.gb"_s), 3));
        if (harm == 2) {
            QVERIFY(QFile::remove(folder->path(u"roms/a.gb"_s)));
            folder->write(u"roms/a.gb"_s, "content");
        }
        if (harm == 3) folder->write(u"from/a.gb"_s, "longer content");
        if (harm == 4) {
            QVERIFY(QFile::rename(original, original + u".old"_s));
            folder->write(u"from/a.gb"_s, "content");
        }
        QCOMPARE(adding->deleteSources().gone, 0);
        QVERIFY(!adding->deleteSource(original));
        QVERIFY(QFile::exists(original));
    }
    void games_of_the_library_are_never_deleted_as_their_own_originals() {
        folder->write(u"roms/a.gb"_s, "content");
        adding->begin([] {});
        QVERIFY(!adding->AddRomToLibrary(folder->path(u"roms/a.gb"_s), u"a.gb"_s));
        adding->finish();
        QCOMPARE(adding->deleteSources().gone, 0);
        QVERIFY(!adding->deleteSource(folder->path(u"roms/a.gb"_s)));
        QCOMPARE(inLibrary(u"a.gb"_s), QByteArray("content"));
    }
    void the_copy_itself_is_never_deleted_under_any_name() {
        const QString original = source(u"a.gb"_s, "content");
        import(original, u"a.gb"_s);
        QVERIFY(QFile::link(folder->path(u"roms/a.gb"_s), folder->path(u"link.gb"_s)));
        QVERIFY(!adding->deleteSource(folder->path(u"roms/a.gb"_s)));
        QVERIFY(!adding->deleteSource(folder->path(u"link.gb"_s)));
        QCOMPARE(inLibrary(u"a.gb"_s), QByteArray("content"));
    }
    void another_file_named_by_the_user_is_deleted_instead_of_the_original() {
        const QString original = source(u"a.gb"_s);
        const QString other = folder->write(u"other.gb"_s, "other");
        import(original, u"a.gb"_s);
        QVERIFY(adding->deleteSource(other));
        QVERIFY(!QFile::exists(other));
        QVERIFY(QFile::exists(original));
    }
    void nothing_is_deleted_without_an_import() {
        const QString other = folder->write(u"other.gb"_s, "other");
        QVERIFY(!adding->deleteSource(other));
        QCOMPARE(adding->deleteSources().gone, 0);
        QVERIFY(QFile::exists(other));
    }
    void an_original_that_cannot_be_deleted_fails() {
        const QString original = source(u"a.gb"_s);
        import(original, u"a.gb"_s);
        folder->setMode(u"from"_s, 0555);
        {
            const OrdinaryUser user;
            const Deletion deletion = adding->deleteSources();
            QCOMPARE(deletion.gone, 0);
            QCOMPARE(deletion.kept.size(), size_t{1});
            QCOMPARE(deletion.kept[0].path, original);
            QCOMPARE(deletion.kept[0].reason, KeptSource::failed);
            QCOMPARE(deletion.kept[0].failure.value().number(), RuntimeFailure::permissionDenied);
            QCOMPARE(failureOf([&] { adding->deleteSource(original); }), 70);
        }
        folder->setMode(u"from"_s, 0755);
        QVERIFY(QFile::exists(original));
        QCOMPARE(failureOf([&] { adding->deleteSource(folder->path(u"none"_s)); }), 53);
    }
};

TORVANE_GUILESS_TEST(AddNewROMTest)
#include "AddNewROMTest.moc"
