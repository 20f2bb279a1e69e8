// SPDX-License-Identifier: MIT
// The window that asks for a game and writes an entry of the database into it.
#include "support/LanguageRows.h"
#include "support/OpenedDatabase.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class Form2Test : public OpenedDatabase {
    Q_OBJECT

    // The tag of the entry `tetris`, as it is written today into an image of so many bytes.
    QByteArray tag(const QByteArray& size) const {
        return "ID3TAG\xA7Nintendo\xA7TETRIS\xA7" + today() +
               "\xA7"
               "Falling blocks\xA7" +
               size + "\xA7\r\n";
    }
    // Opens the window with the entry, over a library of these games as they are.
    void openChooser() {
        openDatabase(tetris);
        useRow(0);
    }
    bool isClosed() const { return loaded<Form2>() == nullptr; }

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    void it_lists_the_games_of_the_library_without_archives() {
        for (const char* name : {"a.gba", "b.gbc", "c.cgb", "d.agb", "e.bin", "f.zip", "g.txt"}) {
            opened->game(QString::fromLatin1(name));
        }
        openChooser();
        QStringList names;
        for (int row = 0; row < chooser().File1.ListCount(); ++row) names += chooser().File1.List(row);
        QCOMPARE(names, QStringList({u"a.gba"_s, u"b.gbc"_s, u"c.cgb"_s, u"d.agb"_s, u"e.bin"_s, u"g001.gb"_s,
                                     u"g002.gb"_s}));
        QCOMPARE(chooser().File1.ListIndex(), -1);
    }
    void the_texts_come_from_the_language_file() {
        openChooser();
        QCOMPARE(chooser().Label1.Caption(), u"Torvane 1.1 » Use ROM.TAG"_s);
        QCOMPARE(chooser().Label2.Caption(),
                 u"Choose the ROM you want to apply the selected ROM.TAG to: the details of that OnLine "
                 "DataBase entry will be copied into the game and will be what you see from now on. Careful! "
                 "Any ROM.TAG details it already has will be lost."_s);
        QCOMPARE(chooser().Command1.Caption(), u"OK"_s);
        QCOMPARE(chooser().Command2.Caption(), u"Cancel"_s);
    }
    void an_untagged_game_gets_the_tag_appended_with_the_date_of_today() {
        openChooser();
        writeInto(u"g002.gb"_s);
        QCOMPARE(opened->bytesOf(u"g002.gb"_s), QByteArray(3000, 'r') + tag("3000"));
        QCOMPARE(opened->bytesOf(u"g001.gb"_s), QByteArray(3000, 'r'));
    }
    void a_plain_box_reports_the_end_and_the_window_closes_data() { languageRows(); }
    void a_plain_box_reports_the_end_and_the_window_closes() {
        QFETCH(QByteArray, language);
        opened->world.useLanguage(language.constData());
        openChooser();
        writeInto(u"g001.gb"_s);
        QCOMPARE(messages().boxes.size(), 1);
        QCOMPARE(messages().last(), u"TAG Completado"_s);
        QCOMPARE(messages().boxes.first().flags, MsgBoxFlags::okOnly);
        QCOMPARE(messages().boxes.first().title, QString());
        QVERIFY(isClosed());
        QVERIFY(window().isVisible());
    }
    void the_window_stands_until_the_box_is_answered() {
        struct Watched : FakeMessages {
            std::function<bool()> isOpen;
            QList<bool> seen;
            int MsgBox(const QString&, int, const QString&) override {
                seen += isOpen();
                return MsgBoxFlags::answerOk;
            }
        } watched;
        watched.isOpen = [this] { return !isClosed() && chooser().isVisible(); };
        FakeWorld& world = opened->world;
        Runtime runtime = world.runtimeAsking(watched);
        publish(tetris);
        opened->program = std::make_unique<Program>(runtime, world.appPath());
        opened->program->start();
        QVERIFY(QTest::qWaitForWindowExposed(&main()));
        clickDatabase();
        useRow(0);
        writeInto(u"g001.gb"_s);
        QCOMPARE(watched.seen, QList<bool>{true});
        QVERIFY(isClosed());
        opened->close();
    }
    void a_tagged_game_keeps_the_stored_size_and_gets_the_new_values() {
        const QByteArray image = QByteArray(3000, 'r');
        opened->game(u"tagged.gb"_s, image + "\r\n" + oldTag("3000"));
        openChooser();
        writeInto(u"tagged.gb"_s);
        const QByteArray written = opened->bytesOf(u"tagged.gb"_s);
        QVERIFY2(written.endsWith("\r\n" + tag("3000")), written.constData());
        QVERIFY(!written.contains("Old"));
        QCOMPARE(opened->world.folder.read(u"roms/data/backup/tagged.gb"_s), image + "\r\n" + oldTag("3000"));
        QCOMPARE(messages().last(), u"TAG Completado"_s);
    }
    void a_tag_in_the_middle_of_the_data_counts_as_one() {
        const QByteArray bytes = QByteArray(500, 'r') + oldTag("500") + QByteArray(1200, 'r');
        opened->game(u"short.gb"_s, bytes);
        openChooser();
        writeInto(u"short.gb"_s);
        // It is replaced, which a file this short does not allow; nothing is appended.
        QCOMPARE(opened->bytesOf(u"short.gb"_s), bytes);
        QCOMPARE(messages().boxes.size(), 2);
        QVERIFY2(messages().boxes.first().text.startsWith(u"0: "_s),
                 qPrintable(messages().boxes.first().text));
        QCOMPARE(messages().last(), u"TAG Completado"_s);
        QVERIFY(isClosed());
    }

    // What can go wrong
    void without_a_selected_game_the_failure_is_reported_and_the_window_stays_usable() {
        openChooser();
        click(chooser().Command1);
        QCOMPARE(messages().boxes.size(), 1);
        QVERIFY2(messages().last().contains(u"roms"_s), qPrintable(messages().last()));
        QCOMPARE(opened->world.ends, 0);
        QVERIFY(chooser().isVisible());
        writeInto(u"g001.gb"_s);
        QCOMPARE(opened->bytesOf(u"g001.gb"_s), QByteArray(3000, 'r') + tag("3000"));
        QVERIFY(isClosed());
    }
    void a_game_that_is_gone_is_reported_and_another_one_can_be_chosen() {
        openChooser();
        chooseGame(u"g001.gb"_s);
        QVERIFY(QFile::remove(opened->world.folder.path(u"roms/g001.gb"_s)));
        click(chooser().Command1);
        QVERIFY2(messages().last().contains(u"53"_s), qPrintable(messages().last()));
        QVERIFY(!QFile::exists(opened->world.folder.path(u"roms/g001.gb"_s)));
        writeInto(u"g002.gb"_s);
        QVERIFY(isClosed());
    }
    void cancel_and_close_write_nothing() {
        openChooser();
        chooseGame(u"g001.gb"_s);
        click(chooser().Command2);
        QVERIFY(isClosed());
        collectGone();
        useRow(0);
        chooseGame(u"g001.gb"_s);
        click(chooser().chameleonButton1);
        QVERIFY(isClosed());
        QCOMPARE(opened->bytesOf(u"g001.gb"_s), QByteArray(3000, 'r'));
        QCOMPARE(messages().boxes.size(), 0);
        QVERIFY(window().isVisible());
    }

    // The main window
    void the_main_window_comes_back_with_the_new_tag_of_its_selected_game() {
        openChooser();
        QCOMPARE(main().GameTitle.Caption(), u"Not available"_s);
        writeInto(u"g001.gb"_s);
        click(window().chameleonButton1);
        QVERIFY(main().isVisible());
        QCOMPARE(main().GameTitle.Caption(), u"TETRIS"_s);
        QCOMPARE(main().GameAutor.Caption(), u"Nintendo"_s);
        QCOMPARE(main().GameDate.Caption(), TagInput::todayAsText());
        QCOMPARE(main().GameInfo.Caption(), u"Falling blocks"_s);
        QCOMPARE(main().EditID3Title.Text(), u"TETRIS"_s);
        QCOMPARE(main().Games.FileName(), u"g001.gb"_s);
    }
    void the_compact_window_comes_back_with_the_new_tag_of_its_game() {
        publish(tetris);
        opened->open();
        click(main().ChameleonButton12);
        opened->program->desk.go(Window::Menuing, Window::EditDB);
        QVERIFY(QTest::qWaitForWindowExposed(&window()));
        emit window().Timer1.Tick();
        useRow(0);
        writeInto(u"g001.gb"_s);
        click(window().chameleonButton1);
        const Torvette& compact = *loaded<Torvette>();
        QVERIFY(compact.isVisible() && !main().isVisible());
        QCOMPARE(compact.Text1.Text(), u"TETRIS ··· "_s);
        QCOMPARE(compact.Label6.Caption(), u"Nintendo"_s);
    }
    void the_tag_of_another_game_leaves_the_panel_alone() {
        openChooser();
        writeInto(u"g002.gb"_s);
        click(window().chameleonButton1);
        QCOMPARE(main().GameTitle.Caption(), u"Not available"_s);
        opened->chooseRow(1);
        QCOMPARE(main().GameTitle.Caption(), u"TETRIS"_s);
    }
    void what_was_typed_and_not_saved_stays_in_the_fields() {
        publish(tetris);
        opened->open();
        click(main().Edit_Menu);
        main().EditID3Info.setText(u"My own words"_s);
        clickDatabase();
        useRow(0);
        writeInto(u"g001.gb"_s);
        click(window().chameleonButton1);
        QCOMPARE(main().GameTitle.Caption(), u"TETRIS"_s);
        QCOMPARE(main().EditID3Info.Text(), u"My own words"_s);
        QCOMPARE(main().EditID3Title.Text(), QString());
    }
    void the_fields_of_the_selected_game_do_not_keep_the_old_tag() {
        opened->game(u"a.gb"_s, QByteArray(3000, 'r') + oldTag("3000"));
        openChooser();
        QCOMPARE(main().EditID3Title.Text(), u"Old title"_s);
        // A tag is replaced by what is left of the file: too short for the panel to find the tag.
        writeInto(u"a.gb"_s);
        QVERIFY(opened->bytesOf(u"a.gb"_s).size() < 2048);
        QCOMPARE(main().EditID3Title.Text(), QString());
        QCOMPARE(main().GameTitle.Caption(), u"Not available"_s);
    }
};

TORVANE_TEST(Form2Test)
#include "Form2Test.moc"
