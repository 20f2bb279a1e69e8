// SPDX-License-Identifier: MIT
// File lists: which names they hold, which one is current, and how a visible one is used.
#include "platform/forms/FileList.h"
#include "platform/base/NativeText.h"
#include "platform/base/Paths.h"
#include "support/Failing.h"
#include "support/FakeWorld.h"
#include "support/NotedRows.h"
#include "support/TestForm.h"
#include "support/TestMain.h"

#include <QSignalSpy>

using namespace torvane;
using namespace Qt::StringLiterals;

class FileListTest : public QObject {
    Q_OBJECT

    static constexpr DesignRect place{10, 10, 120, 100};

    std::unique_ptr<FakeWorld> world;
    std::unique_ptr<TestForm> form;
    std::unique_ptr<FileList> list;

    void makeGames(int count) const {
        for (int i = 0; i < count; ++i)
            world->folder.write(u"roms/g%1.gb"_s.arg(i, 3, 10, QLatin1Char('0')), "x");
    }
    QString roms() const { return world->folder.path() + u"\\roms"_s; }
    QStringList listed(const FileList& files) const {
        QStringList names;
        for (int i = 0; i < files.ListCount(); ++i) names.append(files.List(i));
        return names;
    }
    std::unique_ptr<FileList> makeList(const char* pattern) const {
        return std::make_unique<FileList>(*form, "files", place, FileList::Look{.pattern = pattern});
    }
    void click(int row) const { clickAt(*list, {20, row * list->rowHeight() + 3}); }
    void key(Qt::Key which) const {
        list->setFocus();
        pressKey(*list, which);
    }

private slots:
    void init() {
        world = std::make_unique<FakeWorld>();
        form = std::make_unique<TestForm>(world->runtime);
        list = makeList("*.gb;*.gbc;*.zip");
    }
    void cleanup() {
        list.reset();
        form.reset();
    }

    void the_names_that_match_the_pattern_are_listed_in_order() {
        for (const char* name : {"b.gbc", "A.GB", "c.zip", "readme.txt", "d.gba", "x.gb.sav"}) {
            world->folder.write(u"roms/"_s + QString::fromLatin1(name), "x");
        }
        list->setPath(roms());
        QCOMPARE(listed(*list), (QStringList{u"A.GB"_s, u"b.gbc"_s, u"c.zip"_s}));
        QCOMPARE(list->Pattern(), u"*.gb;*.gbc;*.zip"_s);
    }
    void the_usual_pattern_lists_every_file() {
        world->folder.write(u"roms/noending"_s, "x");
        world->folder.write(u"roms/a.b.c"_s, "x");
        const auto all = makeList("*.*");
        all->setPath(roms());
        QCOMPARE(listed(*all), (QStringList{u"a.b.c"_s, u"noending"_s}));
    }
    void hidden_files_and_folders_are_left_out() {
        world->folder.write(u"roms/.hidden.gb"_s, "x");
        world->folder.makeFolder(u"roms/folder.gb"_s);
        world->folder.write(u"roms/seen.gb"_s, "x");
        list->setPath(roms());
        QCOMPARE(listed(*list), QStringList{u"seen.gb"_s});
    }
    void a_missing_folder_gives_an_empty_list() {
        makeGames(1);
        list->setPath(roms());
        QCOMPARE(list->ListCount(), 1);
        list->setPath(world->folder.path() + u"\\gone"_s);
        QCOMPARE(list->ListCount(), 0);
        QCOMPARE(list->ListIndex(), -1);
        list->setPath(QString());
        QCOMPARE(list->ListCount(), 0);
    }
    void opening_a_folder_that_cannot_be_listed_fails_and_keeps_the_list() {
        makeGames(2);
        list->openPath(roms());
        const auto refusal = [&](const QString& path) { return failureOf([&] { list->openPath(path); }); };
        QCOMPARE(refusal(roms() + u"\\gone"_s), int{RuntimeFailure::fileNotFound});
        QCOMPARE(refusal(roms() + u"\\g001.gb"_s), int{RuntimeFailure::pathNotFound});
        QCOMPARE(refusal({}), int{RuntimeFailure::fileNotFound});
        world->folder.makeFolder(u"secret"_s);
        world->folder.setMode(u"secret"_s, 0300);
        {
            const OrdinaryUser user;
            QCOMPARE(refusal(world->folder.path() + u"\\secret"_s), int{RuntimeFailure::permissionDenied});
        }
        QCOMPARE(list->Path(), roms());
        QCOMPARE(list->ListCount(), 2);
    }
    void names_of_any_bytes_lead_back_to_their_files_data() {
        QTest::addColumn<QByteArray>("name");
        for (const char* name : {"back\\slash.gb", "no utf8 \xF1\xFF\x80.gb", "two  blanks .gb",
                                 "line\nbreak.gb", "quote\"'.gb", "%1%s.gb", "<b>x.gb", "Pok\xC3\xA9.gb"}) {
            QTest::newRow(QByteArray(name).toPercentEncoding().constData()) << QByteArray(name);
        }
    }
    void names_of_any_bytes_lead_back_to_their_files() {
        QFETCH(QByteArray, name);
        world->folder.writeNative("roms/" + name, "x");
        list->setPath(roms());
        QCOMPARE(list->ListCount(), 1);
        QCOMPARE(NativeText::toNative(list->List(0)), name);
        list->selectQuietly(0);
        QCOMPARE(Paths::real(list->filePath()), world->folder.native("roms/" + name));
    }

    // The path
    void separators_at_the_end_of_a_path_are_left_out() {
        list->setPath(roms() + u"\\"_s);
        QCOMPARE(list->Path(), roms());
        list->setPath(roms() + u"\\\\"_s);
        QCOMPARE(list->Path(), roms());
    }
    void a_folder_in_other_letters_is_found_and_its_path_is_as_on_the_disk() {
        QVERIFY(QDir(world->folder.path()).rename(u"roms"_s, u"ROMs"_s));
        world->folder.write(u"ROMs/a.gb"_s, "x");
        list->setPath(roms());
        QCOMPARE(listed(*list), QStringList{u"a.gb"_s});
        QCOMPARE(list->Path(), world->folder.path() + u"/ROMs"_s);
        list->selectQuietly(0);
        // Without any search by case: this is what another program is given.
        QVERIFY(QFile::exists(list->filePath().replace(u'\\', u'/')));
    }
    void the_path_of_the_current_file_is_folder_separator_and_name() {
        makeGames(2);
        list->setPath(roms());
        list->selectQuietly(1);
        QCOMPARE(list->FileName(), u"g001.gb"_s);
        QCOMPARE(list->filePath(), roms() + u"\\g001.gb"_s);
    }

    // Reading again
    void the_folder_is_read_again_on_refresh_and_not_before() {
        makeGames(1);
        list->setPath(roms());
        QCOMPARE(list->ListCount(), 1);
        makeGames(3);
        QCOMPARE(list->ListCount(), 1);
        list->Refresh();
        QCOMPARE(list->ListCount(), 3);
    }
    void the_folder_is_read_again_when_the_path_is_set_even_to_the_same() {
        makeGames(1);
        list->setPath(roms());
        QCOMPARE(list->ListCount(), 1);
        makeGames(2);
        list->setPath(roms());
        QCOMPARE(list->ListCount(), 2);
    }
    void after_reading_again_no_file_is_the_current_one() {
        makeGames(2);
        list->setPath(roms());
        list->setListIndex(1);
        QSignalSpy clicks(list.get(), &FileList::Click);
        list->Refresh();
        QCOMPARE(list->ListIndex(), -1);
        QCOMPARE(list->FileName(), QString());
        QCOMPARE(clicks.size(), 0);
    }
    void names_that_were_handed_out_stay_as_they_were() {
        makeGames(1);
        list->setPath(roms());
        const auto names = list->names();
        makeGames(2);
        list->Refresh();
        QCOMPARE(names->count(), 1);
        QCOMPARE(list->names()->count(), 2);
    }

    void two_lists_of_one_folder_can_be_read_together_each_by_its_pattern() {
        for (const char* name : {"a.gb", "b.zip", "c.agb"}) {
            world->folder.write(u"roms/"_s + QString::fromLatin1(name), "x");
        }
        const auto other = makeList("*.agb;*.zip");
        list->setPath(roms());
        other->setPath(roms());
        list->readWith(*other);
        // Both are read now, not at the first question.
        world->folder.write(u"roms/d.zip"_s, "x");
        QCOMPARE(listed(*list), (QStringList{u"a.gb"_s, u"b.zip"_s}));
        QCOMPARE(listed(*other), (QStringList{u"b.zip"_s, u"c.agb"_s}));
    }
    void lists_of_different_folders_are_not_read_together() {
        makeGames(1);
        const auto other = makeList("*.*");
        list->setPath(roms());
        other->setPath(world->folder.path() + u"\\emuladores"_s);
        list->readWith(*other);
        QCOMPARE(listed(*list), QStringList{u"g000.gb"_s});
        QCOMPARE(listed(*other), QStringList{u"emus.dat"_s});
    }

    // The current file
    void setting_the_index_fires_click_each_time() {
        makeGames(3);
        list->setPath(roms());
        QSignalSpy clicks(list.get(), &FileList::Click);
        list->setListIndex(2);
        list->setListIndex(2);
        QCOMPARE(clicks.size(), 2);
        QCOMPARE(list->ListIndex(), 2);
        QCOMPARE(list->FileName(), u"g002.gb"_s);
    }
    void the_index_for_none_fires_nothing() {
        makeGames(3);
        list->setPath(roms());
        list->setListIndex(0);
        QSignalSpy clicks(list.get(), &FileList::Click);
        list->setListIndex(-1);
        QCOMPARE(clicks.size(), 0);
        QCOMPARE(list->ListIndex(), -1);
        QCOMPARE(list->FileName(), QString());
    }
    void a_quiet_selection_fires_nothing() {
        makeGames(3);
        list->setPath(roms());
        QSignalSpy clicks(list.get(), &FileList::Click);
        list->selectQuietly(1);
        QCOMPARE(list->FileName(), u"g001.gb"_s);
        QCOMPARE(clicks.size(), 0);
    }
    void an_index_outside_of_the_list_fails_as_an_invalid_property_value_data() {
        QTest::addColumn<int>("files");
        QTest::addColumn<int>("index");
        QTest::newRow("after the last") << 3 << 3;
        QTest::newRow("far after it") << 3 << 2000000000;
        QTest::newRow("before none") << 3 << -2;
        QTest::newRow("first of an empty list") << 0 << 0;
    }
    void an_index_outside_of_the_list_fails_as_an_invalid_property_value() {
        QFETCH(int, files);
        QFETCH(int, index);
        makeGames(files);
        list->setPath(roms());
        list->selectQuietly(files - 1);
        QSignalSpy clicks(list.get(), &FileList::Click);
        QCOMPARE(failureOf([&] { list->setListIndex(index); }), 380);
        QCOMPARE(failureOf([&] { list->selectQuietly(index); }), 380);
        QCOMPARE(failureOf([&] { list->List(index); }), 380);
        QCOMPARE(failureOf([&] { list->List(-1); }), 380);
        QCOMPARE(list->ListIndex(), files - 1);
        QCOMPARE(clicks.size(), 0);
    }

    // A visible list
    void a_click_on_a_row_makes_its_file_the_current_one() {
        makeGames(3);
        list->setPath(roms());
        QVERIFY(form->appear());
        QSignalSpy clicks(list.get(), &FileList::Click);
        click(1);
        QCOMPARE(list->FileName(), u"g001.gb"_s);
        QCOMPARE(clicks.size(), 1);
        click(3);
        QCOMPARE(clicks.size(), 1);
        QCOMPARE(list->ListIndex(), 1);
    }
    void a_double_click_is_reported_after_the_click() {
        makeGames(3);
        list->setPath(roms());
        QVERIFY(form->appear());
        QSignalSpy clicks(list.get(), &FileList::Click);
        QSignalSpy doubles(list.get(), &FileList::DblClick);
        doubleClickAt(*list, {20, 2 * list->rowHeight() + 3});
        QCOMPARE(doubles.size(), 1);
        QCOMPARE(list->FileName(), u"g002.gb"_s);
        QCOMPARE(clicks.size(), 1);
    }
    void keys_move_through_the_list_and_keep_the_current_row_in_sight() {
        makeGames(40);
        list->setPath(roms());
        QVERIFY(form->appear());
        key(Qt::Key_Down);
        QCOMPARE(list->ListIndex(), 0);
        key(Qt::Key_Down);
        QCOMPARE(list->ListIndex(), 1);
        key(Qt::Key_End);
        QCOMPARE(list->FileName(), u"g039.gb"_s);
        QCOMPARE(list->rowRect(39).bottom(), list->height() - 1);
        clickRow(*list, 36);
        QCOMPARE(list->ListIndex(), 36);
        key(Qt::Key_Home);
        QCOMPARE(list->ListIndex(), 0);
        click(1);
        QCOMPARE(list->ListIndex(), 1);
        QTest::keyClicks(&viewOf(*list), u"g02"_s);
        QCOMPARE(list->FileName(), u"g020.gb"_s);
    }
    void after_a_refresh_the_first_key_and_the_first_click_go_by_the_new_names() {
        makeGames(3);
        list->setPath(roms());
        QVERIFY(form->appear());
        click(2);
        QVERIFY(QFile::remove(world->folder.path(u"roms/g000.gb"_s)));
        list->Refresh();
        click(0);
        QCOMPARE(list->FileName(), u"g001.gb"_s);
        list->Refresh();
        key(Qt::Key_End);
        QCOMPARE(list->FileName(), u"g002.gb"_s);
        QCOMPARE(list->ListIndex(), 1);
    }
    void a_list_in_sight_shows_the_new_names_after_a_refresh() {
        makeGames(1);
        list->setPath(roms());
        QVERIFY(form->appear());
        const QImage one = imageOf(*list);
        makeGames(3);
        list->Refresh();
        QVERIFY(imageOf(*list) != one);
    }
    void a_list_that_nobody_sees_is_a_store_without_a_view() {
        const FileList hidden(*form, "hidden", place, {.visible = false});
        const FileList outside(*form, "outside", {300, 10, 120, 100}, {});
        QVERIFY(form->appear());
        QVERIFY(hidden.children().isEmpty());
        QVERIFY(outside.children().isEmpty());
        QVERIFY(!list->children().isEmpty());
    }
    void keys_and_clicks_on_an_empty_list_do_nothing() {
        list->setPath(roms());
        QVERIFY(form->appear());
        QSignalSpy clicks(list.get(), &FileList::Click);
        for (const Qt::Key key :
             {Qt::Key_Down, Qt::Key_Up, Qt::Key_End, Qt::Key_PageDown, Qt::Key_Return, Qt::Key_A}) {
            this->key(key);
        }
        click(0);
        QCOMPARE(clicks.size(), 0);
        QCOMPARE(list->ListIndex(), -1);
    }
    void the_current_row_is_seen_in_the_colour_of_selections() {
        makeGames(2);
        list->setPath(roms());
        QVERIFY(form->appear());
        QVERIFY(!hasColour(imageOf(*list), QColor(0x00, 0x78, 0xD7)));
        list->selectQuietly(1);
        const QImage image = imageOf(*list);
        QCOMPARE(image.pixelColor(118, list->rowHeight() + 2), QColor(0x00, 0x78, 0xD7));
        QCOMPARE(image.pixelColor(118, 2), QColor(Qt::white));
    }
};

TORVANE_TEST(FileListTest)
#include "FileListTest.moc"
