// SPDX-License-Identifier: MIT
// Stripping, saving and replacing tags: what the file holds afterwards, even if a write fails.
#include "ID3Fixture.h"
#include "catalogue/TagLine.h"
#include "platform/base/CodePage1252.h"
#include "support/Failing.h"
#include "support/TestMain.h"

#include <sys/stat.h>
#include <sys/xattr.h>

using namespace torvane;

class ID3WritesTest : public ID3Fixture {
    Q_OBJECT

    // What this process has read so far, by all calls.
    static qint64 bytesRead() {
        QFile counters(QStringLiteral("/proc/self/io"));
        if (!counters.open(QIODevice::ReadOnly)) qFatal("can't read");
        return counters.readLine().trimmed().split(' ').last().toLongLong();
    }
    bool remembersMarkers() const {
        return getxattr(folder.native("game.gb").constData(), "user.torvane.marker", nullptr, 0) > 0;
    }

private slots:
    void stripping_keeps_the_image_and_a_line_end() {
        const QString path = file(image(3000) + tagLine("3000"));
        ID3::StripRomTag(path);
        QCOMPARE(folder.read(QStringLiteral("game.gb")), image(3000) + "\r\n");
    }
    void stripping_the_shifted_form_uses_its_own_size_piece() {
        const QString path = file(image(3000) + tagLine("2990", "V\xF6\xA7R\xE4N"));
        ID3::StripRomTag(path);
        QCOMPARE(folder.read(QStringLiteral("game.gb")), image(2990) + "\r\n");
    }
    void stripping_cuts_at_a_marker_inside_the_image() {
        const QString path = file("abcID3TAG\xA7" + image(10) + tagLine("3000"));
        QCOMPARE(failureOf([&] { ID3::StripRomTag(path); }), std::optional<int>(RuntimeFailure::subscript));
        const QString numbered = file("abcID3TAG\xA7"
                                      "1\xA7"
                                      "2\xA7"
                                      "3\xA7"
                                      "4\xA7"
                                      "2\xA7" +
                                      image(10) + tagLine("3000"));
        ID3::StripRomTag(numbered);
        QCOMPARE(folder.read(QStringLiteral("game.gb")), QByteArray("ab\r\n"));
    }
    void stripping_an_untagged_file_fails_and_leaves_it_unchanged() {
        const QString path = file(image(3000));
        QCOMPARE(failureOf([&] { ID3::StripRomTag(path); }), std::optional<int>(RuntimeFailure::subscript));
        QCOMPARE(folder.read(QStringLiteral("game.gb")), image(3000));
    }
    void stripping_keeps_all_256_byte_values() {
        QByteArray bytes;
        for (int i = 0; i < 256; ++i) bytes.append(static_cast<char>(i));
        const QString path = file(bytes + tagLine("256"));
        ID3::StripRomTag(path);
        QCOMPARE(folder.read(QStringLiteral("game.gb")), bytes + "\r\n");
    }
    void a_second_save_reads_nothing_of_the_image_data() {
        QTest::addColumn<bool>("isTagged");
        QTest::newRow("after the first tag") << false;
        QTest::newRow("after another save") << true;
    }
    void a_second_save_reads_nothing_of_the_image() {
        QFETCH(bool, isTagged);
        const QByteArray rom = image(8 << 20);
        const QString path = file(rom + (isTagged ? tagLine(QByteArray::number(rom.size())) : QByteArray()));
        fillNew();
        id3->SaveRomTag(path, [] {});
        if (!remembersMarkers()) QSKIP("this file system has no extended attributes");
        const qint64 before = bytesRead();
        id3->SaveRomTag(path, [] {});
        const qint64 count = bytesRead() - before;
        QVERIFY2(count < 100000, QByteArray::number(count).constData());
        QVERIFY(
            folder.read(QStringLiteral("game.gb")).startsWith(rom + (isTagged ? "\r\n" : "") + "\r\nID3TAG"));
    }
    void a_marker_that_another_program_puts_into_a_saved_game_is_found() {
        const QString path = file(image(9000));
        fillNew();
        id3->SaveRomTag(path, [] {});
        const QByteArray inner = "ID3TAG\xA7"
                                 "a\xA7"
                                 "b\xA7"
                                 "c\xA7"
                                 "d\xA7"
                                 "1000\xA7";
        QByteArray bytes = folder.read(QStringLiteral("game.gb"));
        bytes.replace(2000, inner.size(), inner);
        {
            QFile other(folder.path(QStringLiteral("game.gb"))); // writes in place
            QVERIFY(other.open(QIODevice::ReadWrite));
            QCOMPARE(other.write(bytes), bytes.size());
        }
        ID3::StripRomTag(path);
        QCOMPARE(folder.read(QStringLiteral("game.gb")), image(9000).first(1000) + "\r\n");
    }
    void a_rom_of_n_bytes_saved_twice_has_size_n_plus_2_and_a_line_end_after_the_image() {
        const QString path = file(image(3000));
        fillNew();
        id3->SaveRomTag(path, [] {});
        id3->SaveRomTag(path, [] {});
        QCOMPARE(folder.read(QStringLiteral("game.gb")), image(3000) + "\r\nID3TAG\xA7"
                                                                       "Acme\xA7Title\xA7"
                                                                       "21/11/26\xA7Info\xA7"
                                                                       "3002\xA7\r\n");
    }
    void saving_over_a_tag_yields_once_and_the_file_is_never_untagged() {
        const QByteArray before = image(3000) + tagLine("3000");
        const QString path = file(before);
        fillNew("Another");
        QByteArrayList seen;
        id3->SaveRomTag(path, [&] { seen.append(folder.read(QStringLiteral("game.gb"))); });
        QCOMPARE(seen, QByteArrayList{before});
        QVERIFY(
            folder.read(QStringLiteral("game.gb")).startsWith(image(3000) + "\r\nID3TAG\xA7" + "Another"));
        QCOMPARE(folder.entries(), QStringList{QStringLiteral("game.gb")});
    }
    void the_first_save_of_a_game_does_not_yield() {
        int yields = 0;
        fillNew();
        id3->SaveRomTag(file(image(3000)), [&] { ++yields; });
        QCOMPARE(yields, 0);
    }
    void values_set_during_the_yield_are_saved() {
        const QString path = file(image(3000) + tagLine("3000"));
        fillNew("First");
        id3->SaveRomTag(path, [&] { fillNew("Second"); });
        QVERIFY(folder.read(QStringLiteral("game.gb")).contains("ID3TAG\xA7Second\xA7"));
    }
    void a_save_during_the_yield_of_another_leaves_one_tag() {
        const QString path = file(image(3000) + tagLine("3000"));
        fillNew("Another");
        id3->SaveRomTag(path, [&] { id3->SaveRomTag(path, [] {}); });
        const QByteArray after = folder.read(QStringLiteral("game.gb"));
        QCOMPARE(after.count(TagLine::marker), 1);
        QVERIFY(after.startsWith(image(3000) + "\r\n"));
    }
    void a_tag_removed_during_the_yield_is_written_again() {
        const QString path = file(image(3000) + tagLine("3000"));
        fillNew();
        id3->SaveRomTag(path, [&] { ID3::StripRomTag(path); });
        QCOMPARE(folder.read(QStringLiteral("game.gb")), image(3000) + "\r\nID3TAG\xA7"
                                                                       "Acme\xA7Title\xA7"
                                                                       "21/11/26\xA7Info\xA7"
                                                                       "3002\xA7\r\n");
    }
    void a_game_removed_during_the_yield_is_reported() {
        const QString path = file(image(3000) + tagLine("3000"));
        fillNew();
        QCOMPARE(failureOf([&] { id3->SaveRomTag(path, [&] { QFile::remove(path); }); }),
                 std::optional<int>(RuntimeFailure::fileNotFound));
        QCOMPARE(folder.entries(), QStringList());
    }
    void saving_over_an_invalid_tag_fails_and_leaves_it() {
        const QByteArray before = image(3000) + tagLine("none");
        const QString path = file(before);
        fillNew();
        QCOMPARE(failureOf([&] { id3->SaveRomTag(path, [] {}); }),
                 std::optional<int>(RuntimeFailure::typeMismatch));
        QCOMPARE(folder.read(QStringLiteral("game.gb")), before);
    }
    void a_game_that_another_program_holds_open_for_writing_is_neither_saved_nor_stripped() {
        const QByteArray before = image(3000) + tagLine("3000");
        const QString path = file(before);
        QFile other(path);
        QVERIFY(other.open(QIODevice::Append));
        fillNew();
        const std::optional<int> denied = RuntimeFailure::permissionDenied;
        QCOMPARE(failureOf([&] { id3->SaveRomTag(path, [] {}); }), denied);
        QCOMPARE(failureOf([&] { ID3::StripRomTag(path); }), denied);
        QCOMPARE(failureOf([&] { id3->ReplaceRomTag(path, {}, {}, {}, {}); }), denied);
        QCOMPARE(folder.read(QStringLiteral("game.gb")), before);
        QCOMPARE(folder.entries(), QStringList{QStringLiteral("game.gb")});
    }
    void replacing_keeps_only_the_image_bytes_of_the_window() {
        const QByteArray tag = tagLine("5000");
        const QString path = file(image(5000) + tag);
        id3->ReplaceRomTag(path, QStringLiteral("T"), QStringLiteral("C"), QString(), QStringLiteral("I"));
        const qsizetype remnant = 1024 - (tag.size() - 1);
        QCOMPARE(folder.read(QStringLiteral("game.gb")), image(remnant) + "\r\nID3TAG\xA7"
                                                                          "C\xA7T\xA7\xA7I\xA7"
                                                                          "5000\xA7\r\n");
    }
    void replacing_keeps_at_most_the_stored_size_and_an_empty_argument_stays_empty() {
        const QString path = file(image(5000) + tagLine("7", "V\xF6\xA7R\xE4N"));
        id3->ReplaceRomTag(path, QString(), QString(), QString(), QString());
        QCOMPARE(folder.read(QStringLiteral("game.gb")), image(7) + "\r\nID3TAG\xA7\xA7\xA7\xA7\xA7"
                                                                    "7\xA7\r\n");
        QCOMPARE(id3->NewTitle, QStringLiteral(" "));
    }
    void replacing_keeps_the_whole_old_file_and_only_the_newest_of_its_name() {
        const QByteArray first = image(5000) + tagLine("5000");
        const QString path = file(first, QStringLiteral("roms/game.gb"));
        const auto replace = [&] {
            id3->ReplaceRomTag(path, QStringLiteral("T"), QStringLiteral("C"), QString(),
                               QStringLiteral("I"));
        };
        replace();
        QCOMPARE(folder.read(QStringLiteral("roms/data/backup/game.gb")), first);
        QVERIFY(folder.read(QStringLiteral("roms/game.gb")).size() < 1100);
        const QByteArray second = image(4000) + tagLine("4000");
        file(second, QStringLiteral("roms/game.gb"));
        replace();
        QCOMPARE(folder.read(QStringLiteral("roms/data/backup/game.gb")), second);
        QCOMPARE(folder.entries(QStringLiteral("roms/data/backup")), QStringList{QStringLiteral("game.gb")});
        QCOMPARE(folder.entries(QStringLiteral("roms")),
                 (QStringList{QStringLiteral("data"), QStringLiteral("game.gb")}));
    }
    void replacing_without_a_tag_in_the_window_fails_and_neither_changes_nor_keeps_the_file_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("expected");
        QTest::newRow("no tag") << image(5000) << int(RuntimeFailure::subscript);
        QTest::newRow("tag before the window")
            << image(2000) + tagLine("2000") + image(2000) << int(RuntimeFailure::subscript);
        QTest::newRow("no size") << image(5000) + tagLine("none") << int(RuntimeFailure::typeMismatch);
        QTest::newRow("size below 0") << image(5000) + tagLine("-1") << int(RuntimeFailure::invalidCall);
    }
    void replacing_without_a_tag_in_the_window_fails_and_neither_changes_nor_keeps_the_file() {
        QFETCH(QByteArray, bytes);
        QFETCH(int, expected);
        const QString path = file(bytes);
        QCOMPARE(failureOf([&] { id3->ReplaceRomTag(path, {}, {}, {}, {}); }), std::optional<int>(expected));
        QCOMPARE(folder.read(QStringLiteral("game.gb")), bytes);
        QCOMPARE(folder.entries(), QStringList{QStringLiteral("game.gb")});
    }
    void a_replacement_that_cannot_keep_the_old_file_is_reported_and_leaves_the_file() {
        const QByteArray before = image(5000) + tagLine("5000");
        const QString path = file(before, QStringLiteral("roms/game.gb"));
        folder.write(QStringLiteral("roms/data"), "a file in the folder's place");
        QVERIFY(failureOf([&] { id3->ReplaceRomTag(path, {}, {}, {}, {}); }).has_value());
        QCOMPARE(folder.read(QStringLiteral("roms/game.gb")), before);
    }
    void a_full_disk_during_a_replacement_is_reported_and_leaves_the_file() {
        const QByteArray before = image(5000) + tagLine("5000");
        const QString path = file(before);
        std::optional<int> failure;
        {
            const FullDisk full(500);
            failure = failureOf([&] { id3->ReplaceRomTag(path, {}, {}, {}, {}); });
        }
        QCOMPARE(failure, std::optional<int>(RuntimeFailure::diskFull));
        QCOMPARE(folder.read(QStringLiteral("game.gb")), before);
        QCOMPARE(folder.read(QStringLiteral("roms/data/backup/game.gb")), before);
    }
    void replacing_in_a_short_file_shows_the_last_error_and_leaves_the_file_data() {
        QTest::addColumn<int>("length");
        for (const int length : {0, 1, 1024, 2047}) QTest::addRow("%d bytes", length) << length;
    }
    void replacing_in_a_short_file_shows_the_last_error_and_leaves_the_file() {
        QFETCH(int, length);
        const QByteArray bytes = (tagLine("1900") + image(2047)).first(length);
        const QString path = file(bytes);
        id3->ReplaceRomTag(path, QStringLiteral("T"), QStringLiteral("C"), QStringLiteral("D"),
                           QStringLiteral("I"));
        QCOMPARE(messages.boxes.size(), 1);
        QCOMPARE(messages.last(), QStringLiteral("0: "));
        QCOMPARE(messages.boxes[0].flags, MsgBoxFlags::okOnly);
        QCOMPARE(folder.read(QStringLiteral("game.gb")), bytes);
        // An unchanged file gets no backup.
        QCOMPARE(folder.entries(), QStringList{QStringLiteral("game.gb")});
    }
    void replacing_works_in_a_file_of_2048_bytes() {
        const QByteArray tag = tagLine("1900");
        const QString path = file(image(2048 - tag.size()) + tag);
        id3->ReplaceRomTag(path, QStringLiteral("T"), QStringLiteral("C"), QStringLiteral("D"),
                           QStringLiteral("I"));
        QVERIFY(messages.boxes.isEmpty());
        QVERIFY(folder.read(QStringLiteral("game.gb"))
                    .endsWith("ID3TAG\xA7"
                              "C\xA7T\xA7"
                              "D\xA7I\xA7"
                              "1900\xA7\r\n"));
    }
    void a_full_disk_during_a_save_is_reported_and_leaves_the_file_unchanged_data() {
        QTest::addColumn<qint64>("room");
        QTest::newRow("no room for the image") << qint64(1000);
        QTest::newRow("room for the image but not for the tag") << qint64(3010);
    }
    void a_full_disk_during_a_save_is_reported_and_leaves_the_file_unchanged() {
        QFETCH(qint64, room);
        const QByteArray before = image(3000) + tagLine("3000");
        const QString path = file(before, QStringLiteral("full/game.gb"));
        fillNew("Another", "Longer title");
        std::optional<int> failure;
        {
            const FullDisk full(static_cast<rlim_t>(room));
            failure = failureOf([&] { id3->SaveRomTag(path, [] {}); });
        }
        QCOMPARE(failure, std::optional<int>(RuntimeFailure::diskFull));
        QCOMPARE(folder.read(QStringLiteral("full/game.gb")), before);
        QCOMPARE(folder.entries(QStringLiteral("full")), QStringList{QStringLiteral("game.gb")});
    }
    void a_full_disk_during_an_append_leaves_the_file_unchanged() {
        const QString path = file(image(3000));
        fillNew();
        std::optional<int> failure;
        {
            const FullDisk full(3010);
            failure = failureOf([&] { id3->AppendRomTag(path); });
        }
        QCOMPARE(failure, std::optional<int>(RuntimeFailure::diskFull));
        QCOMPARE(folder.read(QStringLiteral("game.gb")), image(3000));
    }
    void a_save_in_a_read_only_folder_is_reported_and_leaves_the_file_unchanged() {
        const QByteArray before = image(3000) + tagLine("3000");
        const QString path = file(before, QStringLiteral("locked/game.gb"));
        const QByteArray locked = QFile::encodeName(folder.path(QStringLiteral("locked")));
        chmod(QFile::encodeName(path).constData(), 0666);
        chmod(locked.constData(), 0555);
        chmod(QFile::encodeName(folder.path()).constData(), 0755);
        fillNew();
        std::optional<int> failure;
        {
            const OrdinaryUser user;
            failure = failureOf([&] { id3->SaveRomTag(path, [] {}); });
        }
        chmod(locked.constData(), 0755);
        QCOMPARE(failure, std::optional<int>(RuntimeFailure::permissionDenied));
        QCOMPARE(folder.read(QStringLiteral("locked/game.gb")), before);
    }
};

TORVANE_GUILESS_TEST(ID3WritesTest)
#include "ID3WritesTest.moc"
