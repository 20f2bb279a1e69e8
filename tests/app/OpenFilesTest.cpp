// SPDX-License-Identifier: MIT
// Files that are named at a start: games of the library are selected, others go to the assistant, and all
// wait until the user can see it.
#include "core/CompactTexts.h"
#include "platform/forms/HeldInput.h"
#include "support/OpenedAssistant.h"
#include "support/TestMain.h"

#include <QDialog>

using namespace torvane;
using namespace Qt::StringLiterals;

class OpenFilesTest : public QObject {
    Q_OBJECT

    std::unique_ptr<OpenedAssistant> opened;

    Program& program() const { return *opened->program; }
    MainFrm& main() const { return opened->main(); }
    NewAssistant& assistant() const { return opened->assistant(); }
    QByteArray library(const QByteArray& name) const { return opened->world.folder.native("roms/" + name); }
    static QByteArray real(const QString& path) { return QFile::encodeName(path); }
    QString selected() const { return main().Games.FileName(); }
    void open(int games) const {
        opened->games(games);
        opened->open();
    }
    // Time in which waiting files would be opened if they could.
    static void look() { QTest::qWait(250); }
    bool isWaiting() const {
        look();
        return selected() == u"g001.gb"_s;
    }
    void expectWaits() const {
        program().openFiles({library("g002.gb")});
        QVERIFY(isWaiting());
    }
    void expectOpened() const { QTRY_COMPARE(selected(), u"g002.gb"_s); }

private slots:
    void init() { opened = std::make_unique<OpenedAssistant>(); }
    void cleanup() { opened.reset(); }

    // Games of the library

    void a_game_of_the_library_is_selected_and_its_tag_shown() {
        opened->games(1);
        const QByteArray tag =
            QByteArray("ID3TAG|Acme|The Title|1/1/2026|Info|3000|\r\n").replace('|', '\xA7');
        opened->game(u"tagged.gb"_s, QByteArray(3000, 'r') + tag);
        opened->open();
        program().openFiles({library("tagged.gb")});
        QTRY_COMPARE(selected(), u"tagged.gb"_s);
        QCOMPARE(main().GameTitle.Caption(), u"The Title"_s);
        QCOMPARE(main().Label41.Caption(), u"#2/2"_s);
        QVERIFY(!opened->isThere());
    }
    void the_list_scrolls_to_it_even_if_it_was_selected_before() {
        open(100);
        program().openFiles({library("g100.gb")});
        QTRY_COMPARE(selected(), u"g100.gb"_s);
        const auto isInSight = [this] {
            const MainFrm& window = main();
            const QPoint place = window.ListView1.mapTo(&window.Picture2, opened->rowPlace(99));
            return window.Picture2.rect().contains(place);
        };
        QVERIFY(isInSight());
        main().ListView1.setTop(2);
        QVERIFY(!isInSight());
        program().openFiles({library("g100.gb")});
        QTRY_VERIFY(isInSight());
    }
    void it_is_found_through_links_and_in_any_spelling_data() {
        QTest::addColumn<QByteArray>("path");
        QTest::newRow("dots") << QByteArray("FOLDER/data/../roms/./g002.gb");
        QTest::newRow("link to the library") << QByteArray("FOLDER/link/g002.gb");
        QTest::newRow("link to the game") << QByteArray("FOLDER/other.gb");
        QTest::newRow("the file that a game of the library is a link to") << QByteArray("FOLDER/out/h.gb");
        QTest::newRow("a game that is a link to a file of another name") << QByteArray("FOLDER/roms/i.gb");
    }
    void it_is_found_through_links_and_in_any_spelling() {
        QFETCH(QByteArray, path);
        opened->games(2);
        const TestFolder& folder = opened->world.folder;
        QCOMPARE(symlink("roms", folder.native("link").constData()), 0);
        QCOMPARE(symlink("link/g002.gb", folder.native("other.gb").constData()), 0);
        folder.write(u"out/h.gb"_s, "h");
        QCOMPARE(symlink("../out/h.gb", library("h.gb").constData()), 0);
        QCOMPARE(symlink("../out/h.gb", library("i.gb").constData()), 0);
        opened->open();
        program().openFiles({path.replace("FOLDER", folder.native("."))});
        const QString expected = path.endsWith("h.gb")   ? u"h.gb"_s
                                 : path.endsWith("i.gb") ? u"i.gb"_s
                                                         : u"g002.gb"_s;
        QTRY_COMPARE(selected(), expected);
        QVERIFY(!opened->isThere());
    }
    void names_of_any_bytes_are_found() {
        opened->games(1);
        opened->world.folder.writeNative("roms/z\xFF\\ b.gb", "x");
        opened->open();
        program().openFiles({library("z\xFF\\ b.gb")});
        QTRY_COMPARE(main().Games.ListIndex(), 1);
        QVERIFY(!opened->isThere());
    }
    void a_game_that_has_come_into_the_library_since_is_listed_and_selected() {
        open(1);
        opened->game(u"later.gb"_s);
        program().openFiles({library("later.gb")});
        QTRY_COMPARE(selected(), u"later.gb"_s);
        opened->game(u"last.gb"_s);
        program().openFiles({library("last.gb")});
        QTRY_COMPARE(selected(), u"last.gb"_s);
    }
    void the_compact_window_shows_the_game() {
        open(2);
        program().desk.go(Window::MainFrm, Window::Torvette);
        program().openFiles({library("g002.gb")});
        expectOpened();
        const Torvette& compact = *program().loaded<Torvette>();
        QVERIFY(compact.isVisible() && !main().isVisible());
        QCOMPARE(compact.Label3.Caption(), CompactTexts::number(2));
    }

    // All else

    void another_file_goes_to_the_assistant_as_if_dropped() {
        open(1);
        const QString path = opened->original(u"a game.gb"_s);
        program().openFiles({real(path)});
        QTRY_VERIFY(opened->isThere());
        QCOMPARE(assistant().FilePath.Text(), path);
        QVERIFY(assistant().chameleonButton1.Enabled());
        QCOMPARE(assistant().windowHandle()->transientParent(), main().windowHandle());
    }
    void a_file_of_the_same_name_elsewhere_is_another_file() {
        open(2);
        program().openFiles({real(opened->original(u"g002.gb"_s))});
        QTRY_VERIFY(opened->isThere());
        QCOMPARE(selected(), u"g001.gb"_s);
    }
    void a_folder_is_copied_and_asked_about() {
        open(1);
        opened->original(u"a.gb"_s);
        opened->original(u"b.gb"_s);
        program().openFiles({real(opened->from())});
        QTRY_COMPARE(opened->library().size(), 3);
        QCOMPARE(opened->typed(), opened->page("f5b", "f6", "f7"));
    }
    void in_the_compact_window_the_assistant_belongs_to_it() {
        open(1);
        program().desk.go(Window::MainFrm, Window::Torvette);
        program().openFiles({real(opened->original(u"a.gb"_s))});
        QTRY_VERIFY(opened->isThere());
        QCOMPARE(assistant().windowHandle()->transientParent(), program().loaded<Torvette>()->windowHandle());
    }
    void several_are_taken_in_their_order() {
        open(3);
        const QString first = opened->original(u"a.gb"_s);
        const QString second = opened->original(u"b.gb"_s);
        program().openFiles({library("g002.gb"), real(first), library("g003.gb"), real(second)});
        QTRY_VERIFY(opened->isThere());
        QCOMPARE(selected(), u"g003.gb"_s);
        QCOMPARE(assistant().FilePath.Text(), first);
        click(assistant().chameleonButton1);
        click(assistant().ChameleonButton6);
        QCOMPARE(assistant().FilePath.Text(), second);
        click(assistant().chameleonButton1);
        QCOMPARE(opened->library().size(), 5);
    }
    void a_thousand_files_can_be_left_with_one_press() {
        open(1);
        QByteArrayList paths;
        for (int i = 0; i < 1000; ++i) paths.append(real(opened->original(u"o%1.gb"_s.arg(i))));
        program().openFiles(paths);
        QTRY_VERIFY(opened->isThere());
        QVERIFY(QTest::qWaitForWindowExposed(&assistant()));
        click(assistant().ChameleonButton2);
        QVERIFY(!opened->isThere());
        QCOMPARE(opened->library().size(), 1);
    }
    void a_copy_that_fails_is_reported_before_the_next_file() {
        open(1);
        const QString first = opened->original(u"a.gb"_s);
        const QString second = opened->original(u"b.gb"_s);
        program().openFiles({real(first), real(second)});
        QTRY_VERIFY(opened->isThere());
        QVERIFY(QFile::remove(first));
        click(assistant().chameleonButton1);
        QCOMPARE(opened->world.messages.boxes.size(), 1);
        QVERIFY(opened->world.messages.last().contains(u"a.gb"_s));
        QCOMPARE(assistant().FilePath.Text(), second);
    }
    void a_later_file_waits_with_those_that_wait() {
        open(1);
        const QString first = opened->original(u"a.gb"_s);
        const QString later = opened->original(u"c.gb"_s);
        program().openFiles({real(first), real(opened->original(u"b.gb"_s))});
        QTRY_VERIFY(opened->isThere());
        program().openFiles({real(later)});
        look();
        QCOMPARE(assistant().FilePath.Text(), first);
    }

    void what_has_been_opened_is_not_opened_again_by_a_later_start() {
        open(2);
        program().openFiles({real(opened->original(u"a.gb"_s))});
        QTRY_VERIFY(opened->isThere());
        QVERIFY(QTest::qWaitForWindowExposed(&assistant()));
        click(assistant().ChameleonButton2);
        QVERIFY(!opened->isThere());
        program().openFiles({library("g002.gb")});
        expectOpened();
        QVERIFY(!opened->isThere());
    }
    void files_of_several_starts_wait_together() {
        open(3);
        const QString outside = opened->original(u"a.gb"_s);
        click(main().chameleonButton1);
        program().openFiles({real(outside)});
        program().openFiles({library("g003.gb")});
        look();
        QVERIFY(!opened->isThere());
        click(program().loaded<TorvMsg>()->chameleonButton3);
        QTRY_VERIFY(opened->isThere());
        QCOMPARE(assistant().FilePath.Text(), outside);
        QCOMPARE(selected(), u"g003.gb"_s);
    }

    // What they wait for

    void files_of_the_first_start_wait_for_the_end_of_the_intro() {
        opened->world.setSetting("Intro", u"1"_s);
        opened->games(2);
        opened->start();
        expectWaits();
        QVERIFY(program().loaded<Splash>()->isVisible());
        program().desk.introEnded();
        expectOpened();
    }
    void files_of_the_first_start_wait_for_the_choice_of_the_language() {
        opened->world.setSetting("Language", u"none"_s);
        opened->games(2);
        opened->start();
        program().openFiles({library("g002.gb")});
        look();
        QVERIFY(program().loaded<MainFrm>() == nullptr);
        program().loaded<SelLangStartUp>()->Unload();
        program().desk.startApplication();
        expectOpened();
    }
    void files_wait_for_the_answer_to_a_question() {
        open(2);
        click(main().chameleonButton1);
        expectWaits();
        click(program().loaded<TorvMsg>()->chameleonButton3);
        expectOpened();
    }
    void files_wait_for_the_end_of_a_message_box() {
        open(2);
        QDialog box;
        box.setModal(true);
        box.show();
        expectWaits();
        box.close();
        expectOpened();
    }
    void files_wait_for_the_end_of_a_download() {
        open(2);
        {
            const HeldInput held;
            expectWaits();
        }
        expectOpened();
    }
    void files_wait_while_another_window_replaces_the_main_one() {
        open(2);
        program().desk.go(Window::MainFrm, Window::EditDB);
        expectWaits();
        program().loaded<EditDB>()->Unload();
        expectOpened();
    }
    void files_that_come_just_before_a_game_begins_do_not_change_which_one_is_played() {
        open(2);
        // Arrives when the window is minimised, and the handler serves events.
        connect(&main(), &Form::resized, this, [this] { program().openFiles({library("g002.gb")}); });
        opened->world.processes.whileRunning = [] { look(); };
        emit main().Label15.Click();
        QCOMPARE(opened->world.processes.starts.size(), 1);
        QVERIFY(opened->world.processes.starts[0].arguments.join().contains("g001.gb"));
        expectOpened();
    }
    void a_file_that_is_gone_by_then_is_left_to_the_assistant() {
        open(1);
        program().openFiles({library("gone.gb")});
        QTRY_VERIFY(opened->isThere());
        QCOMPARE(opened->world.ends, 0);
    }
};

TORVANE_TEST(OpenFilesTest)
#include "OpenFilesTest.moc"
