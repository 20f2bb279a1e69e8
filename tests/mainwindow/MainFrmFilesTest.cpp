// SPDX-License-Identifier: MIT
// Copying games out of the library and deleting them, with the buttons of the main window.
#include "support/Failing.h"
#include "support/OpenedProgram.h"
#include "support/TestMain.h"

using namespace torvane;

class MainFrmFilesTest : public QObject {
    Q_OBJECT

    std::unique_ptr<OpenedProgram> opened;
    MainFrm& window() const { return opened->main(); }
    FakeMessages& messages() const { return opened->world.messages; }
    FakeDialogs& dialogs() const { return opened->world.dialogs; }
    void expectReported(const char* number) {
        QCOMPARE(messages().boxes.size(), 1);
        QVERIFY2(messages().last().endsWith(QStringLiteral(" (%1)").arg(QLatin1String(number))),
                 qPrintable(messages().last()));
        QCOMPARE(opened->world.ends, 0);
    }
    /// Clicks the copy button on the edit face.
    void copy() {
        if (!isSeen(window().Picture1_1)) click(window().Edit_Menu);
        click(window().chameleonButton10);
    }
    void deleteRom() {
        if (!isSeen(window().Picture1_1)) click(window().Edit_Menu);
        click(window().chameleonButton9);
    }
    bool exists(const char* name) const {
        return QFile::exists(opened->world.folder.path(QStringLiteral("roms/") + QString::fromLatin1(name)));
    }

private slots:
    void init() { opened = std::make_unique<OpenedProgram>(); }
    void cleanup() { opened.reset(); }

    // Copy
    void the_copy_dialog_has_title_filter_kind_and_a_proposed_name_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("filterIndex");
        QTest::newRow("gb") << QStringLiteral("a.gb") << 4;
        QTest::newRow("gba") << QStringLiteral("a.gba") << 2;
        QTest::newRow("gbc") << QStringLiteral("a.gbc") << 3;
        QTest::newRow("second piece") << QStringLiteral("a.cgb.gb") << 3;
        QTest::newRow("unknown") << QStringLiteral("a.b.gb") << 1;
        QTest::newRow("upper case") << QStringLiteral("A.GB") << 1;
    }
    void the_copy_dialog_has_title_filter_kind_and_a_proposed_name() {
        QFETCH(QString, name);
        QFETCH(int, filterIndex);
        opened->game(name);
        opened->open();
        copy();
        QCOMPARE(dialogs().questions.size(), 1);
        const FileQuestion& question = dialogs().questions.last();
        QCOMPARE(question.title, QStringLiteral("Copy the ROM…") + name);
        QCOMPARE(question.fileName, name);
        QCOMPARE(question.filterIndex, filterIndex);
        QCOMPARE(question.filter,
                 QStringLiteral("Todos los formatos|*.gb;*.gba;*.gbc;*.cgb;*.agb;*.bin;*.zip|GameBoy "
                                "Advance|*.gba;*.agb;*.bin|GameBoy Color|*.gbc;*.cgb|GameBoy "
                                "Classic|*.gb|ROMs en ZIP|*.zip"));
    }
    void an_archive_is_copied_by_the_button_on_its_own_face() {
        opened->game(QStringLiteral("pack.zip"), "archive");
        dialogs().answer = opened->world.folder.path(QStringLiteral("copy.zip"));
        opened->open();
        click(window().ChameleonButton18);
        QCOMPARE(dialogs().questions.last().filterIndex, 5);
        QCOMPARE(opened->world.folder.read(QStringLiteral("copy.zip")), QByteArray("archive"));
    }
    void a_copy_has_the_bytes_of_the_game() {
        opened->game(QStringLiteral("a.gb"), QByteArray("\0\r\n\x1A\xFF", 5));
        dialogs().answer = opened->world.folder.path(QStringLiteral("copy.gb"));
        opened->open();
        copy();
        QCOMPARE(opened->world.folder.read(QStringLiteral("copy.gb")), QByteArray("\0\r\n\x1A\xFF", 5));
        QCOMPARE(opened->bytesOf(QStringLiteral("a.gb")), QByteArray("\0\r\n\x1A\xFF", 5));
        QCOMPARE(messages().boxes.size(), 0);
    }
    void a_copy_replaces_a_file_of_its_name_even_a_longer_one() {
        opened->game(QStringLiteral("a.gb"), "new");
        dialogs().answer = opened->world.folder.write(QStringLiteral("copy.gb"), "much longer than that");
        opened->open();
        copy();
        QCOMPARE(opened->world.folder.read(QStringLiteral("copy.gb")), QByteArray("new"));
    }
    void an_empty_or_blank_name_copies_nothing_data() {
        QTest::addColumn<QString>("answer");
        QTest::newRow("cancelled") << QString();
        QTest::newRow("a blank") << QStringLiteral(" ");
    }
    void an_empty_or_blank_name_copies_nothing() {
        QFETCH(QString, answer);
        opened->game(QStringLiteral("a.gb"));
        opened->open();
        dialogs().answer = answer;
        const QStringList before = opened->world.folder.entries();
        copy();
        QCOMPARE(dialogs().questions.size(), 1);
        QCOMPARE(opened->world.folder.entries(), before);
        QCOMPARE(opened->world.folder.entries(QStringLiteral("roms")), QStringList{QStringLiteral("a.gb")});
        QCOMPARE(messages().boxes.size(), 0);
    }
    void a_copy_to_a_missing_folder_is_reported() {
        opened->game(QStringLiteral("a.gb"));
        dialogs().answer = opened->world.folder.path(QStringLiteral("nowhere/copy.gb"));
        opened->open();
        copy();
        expectReported("53");
        QVERIFY(window().isVisible());
    }
    void a_copy_without_room_is_reported_and_the_old_target_stays_whole() {
        opened->game(QStringLiteral("a.gb"), QByteArray(20000, 'r'));
        dialogs().answer = opened->world.folder.write(QStringLiteral("copy.gb"), "former");
        opened->open();
        {
            const FullDisk full(10000);
            copy();
        }
        expectReported("61");
        QCOMPARE(opened->world.folder.read(QStringLiteral("copy.gb")), QByteArray("former"));
        for (const QString& name : opened->world.folder.entries())
            QVERIFY(!name.startsWith(QStringLiteral(".")));
    }
    void a_copy_of_a_vanished_game_is_reported() {
        const QString path = opened->game(QStringLiteral("a.gb"));
        dialogs().answer = opened->world.folder.write(QStringLiteral("copy.gb"), "former");
        opened->open();
        QVERIFY(QFile::remove(path));
        copy();
        expectReported("53");
        QCOMPARE(opened->world.folder.read(QStringLiteral("copy.gb")), QByteArray("former"));
    }
    void a_copy_onto_the_game_itself_is_reported_and_does_no_harm() {
        dialogs().answer = opened->game(QStringLiteral("a.gb"), "content");
        opened->open();
        copy();
        expectReported("70");
        QCOMPARE(opened->bytesOf(QStringLiteral("a.gb")), QByteArray("content"));
    }
    void without_a_selection_nothing_is_copied_and_nothing_is_asked() {
        opened->open();
        copy();
        QCOMPARE(dialogs().questions.size(), 0);
        QCOMPARE(messages().boxes.size(), 0);
    }

    // Delete
    void delete_asks_first_and_no_keeps_the_game() {
        opened->games(2);
        MainFrm& main = opened->open();
        messages().answer = MsgBoxFlags::answerNo;
        deleteRom();
        QCOMPARE(messages().boxes.size(), 1);
        QCOMPARE(messages().last(), QStringLiteral("Are you sure you want to delete this file?"));
        QCOMPARE(messages().boxes.last().flags, 36);
        QCOMPARE(messages().boxes.last().title, QStringLiteral("Torvane..."));
        QVERIFY(exists("g001.gb"));
        QCOMPARE(opened->program->loaded<MainFrm>(), &main);
        QVERIFY(isSeen(main.Picture1_1));
    }
    void an_answer_that_is_not_yes_keeps_the_game() {
        opened->games(1);
        opened->open();
        messages().answer = MsgBoxFlags::answerOk;
        deleteRom();
        QVERIFY(exists("g001.gb"));
    }
    void yes_deletes_the_game_and_the_main_window_is_a_new_one_on_its_first_game() {
        opened->games(3);
        QPointer<MainFrm> old = &opened->open();
        opened->chooseRow(1);
        messages().answer = MsgBoxFlags::answerYes;
        deleteRom();
        QVERIFY(!exists("g002.gb"));
        QVERIFY(exists("g001.gb") && exists("g003.gb"));
        MainFrm& fresh = window();
        collectGone();
        QVERIFY(old.isNull());
        QVERIFY(fresh.isVisible());
        QCOMPARE(fresh.Games.ListIndex(), 0);
        QCOMPARE(fresh.Label41.Caption(), QStringLiteral("#1/2"));
        QCOMPARE(fresh.TotalRom.Caption(), QStringLiteral("0002"));
        QVERIFY(isSeen(fresh.Picture1_0));
        opened->chooseRow(1);
        QCOMPARE(fresh.Games.FileName(), QStringLiteral("g003.gb"));
    }
    void an_archive_is_deleted_by_the_button_on_its_own_face() {
        opened->game(QStringLiteral("pack.zip"));
        opened->open();
        messages().answer = MsgBoxFlags::answerYes;
        click(window().ChameleonButton17);
        QVERIFY(!exists("pack.zip"));
        QCOMPARE(messages().boxes.last().flags, 36);
        QCOMPARE(window().Label41.Caption(), QStringLiteral("#1/0"));
        QVERIFY(!isSeen(window().Picture1_2));
    }
    void the_last_game_can_be_deleted_too() {
        opened->games(1);
        opened->open();
        messages().answer = MsgBoxFlags::answerYes;
        deleteRom();
        QCOMPARE(window().TotalRom.Caption(), QStringLiteral("0000"));
        QVERIFY(window().isVisible());
        QCOMPARE(opened->world.ends, 0);
    }
    void a_game_that_cannot_be_deleted_is_reported_and_the_window_stays() {
        opened->games(2);
        MainFrm& main = opened->open();
        opened->world.folder.setMode(QStringLiteral("roms"), 0555);
        messages().answer = MsgBoxFlags::answerYes;
        {
            const OrdinaryUser user;
            deleteRom();
        }
        opened->world.folder.setMode(QStringLiteral("roms"), 0755);
        QCOMPARE(messages().boxes.size(), 2);
        QVERIFY(messages().last().endsWith(QStringLiteral(" (70)")));
        QCOMPARE(opened->world.ends, 0);
        QVERIFY(exists("g001.gb"));
        QCOMPARE(opened->program->loaded<MainFrm>(), &main);
        QVERIFY(isSeen(main.Picture1_1));
    }
    void a_game_that_vanished_before_the_deletion_is_reported() {
        const QString path = opened->game(QStringLiteral("a.gb"));
        opened->open();
        QVERIFY(QFile::remove(path));
        messages().answer = MsgBoxFlags::answerYes;
        deleteRom();
        QCOMPARE(messages().boxes.size(), 2);
        QVERIFY(messages().last().endsWith(QStringLiteral(" (53)")));
        QCOMPARE(opened->world.ends, 0);
    }
    void without_a_selection_nothing_is_deleted_and_nothing_is_asked() {
        opened->open();
        messages().answer = MsgBoxFlags::answerYes;
        deleteRom();
        QCOMPARE(messages().boxes.size(), 0);
        QVERIFY(QDir(opened->world.folder.path(QStringLiteral("roms"))).exists());
    }
};

TORVANE_TEST(MainFrmFilesTest)
#include "MainFrmFilesTest.moc"
