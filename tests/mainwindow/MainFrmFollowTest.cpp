// SPDX-License-Identifier: MIT
// The main window follows what other programs do to the library, and disturbs nothing else by that.
#include "support/FolderOpenings.h"
#include "support/OpenedCompact.h"
#include "support/OtherProgram.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>

using namespace torvane;
using namespace Qt::StringLiterals;

class MainFrmFollowTest : public QObject {
    Q_OBJECT

    static constexpr int longEnough = 1200; // ms in which the list would have followed
    static constexpr int soon = 2000;       // ms; a second, on a machine with other work to do

    std::unique_ptr<OpenedCompact> opened;
    MainFrm& window() const { return opened->main(); }
    QString path(const QString& name) const { return opened->world.folder.path(u"roms/"_s + name); }
    QStringList rows() const {
        QStringList texts;
        for (int row = 0; row < window().ListView1.rowCount(); ++row) {
            texts << window().ListView1.model().index(row, 0).data().toString();
        }
        return texts;
    }
    QString selected() const { return window().Games.FileName(); }
    QString position() const { return window().Label41.Caption(); }
    void remove(const QString& name) const { QVERIFY(QFile::remove(path(name))); }
    void rename(const QString& from, const QString& to) const {
        QVERIFY(QFile::rename(path(from), path(to)));
    }
    void verifyRows(const QStringList& expected) const {
        QTRY_COMPARE(rows(), expected);
        QCOMPARE(window().TotalRom.Caption(), u"%1"_s.arg(expected.size(), 4, 10, QLatin1Char('0')));
    }
    void waitForRows(int count) const { QTRY_COMPARE(window().ListView1.rowCount(), count); }
    void typeInfo(const QString& text) const {
        click(window().Edit_Menu);
        click(window().EditID3Info);
        QTest::keyClick(window().EditID3Info.focusProxy(), Qt::Key_Home, Qt::ControlModifier);
        typeText(*window().EditID3Info.focusProxy(), text);
    }
    void setFolderTime(const timespec& time) const {
        const timespec times[] = {time, time};
        QCOMPARE(utimensat(AT_FDCWD, path(QString()).toUtf8().constData(), times, 0), 0);
    }
    // How often the library is opened to follow changes that came one by one while a handler ran.
    int openingsAfter(const QStringList& changes) const {
        const int before = window().ListView1.rowCount();
        std::optional<FolderOpenings> openings;
        window().runtime().reporting([&] {
            for (const QString& name : changes) {
                opened->game(name);
                QTest::qWait(longEnough);
            }
            openings.emplace(opened->world.folder.native("roms"));
        });
        waitForRows(before + static_cast<int>(changes.size()));
        QTest::qWait(50);
        return openings->count();
    }
    MainFrm& openOnTagged() const {
        for (const char* name : {"a", "b", "c"}) {
            opened->tagged(QLatin1String(name) + u".gb"_s, QString::fromLatin1(name).toUpper(), u"Acme"_s,
                           u"Info"_s);
        }
        MainFrm& main = opened->open();
        opened->chooseRow(1);
        return main;
    }

private slots:
    void init() { opened = std::make_unique<OpenedCompact>(); }
    void cleanup() { opened.reset(); }

    void games_that_come_and_go_appear_and_disappear() {
        opened->games(3);
        opened->open();
        opened->game(u"a.gb"_s);
        verifyRows({u"a"_s, u"g001"_s, u"g002"_s, u"g003"_s});
        remove(u"g003.gb"_s);
        verifyRows({u"a"_s, u"g001"_s, u"g002"_s});
        rename(u"g002.gb"_s, u"z.gbc"_s);
        verifyRows({u"a"_s, u"g001"_s, u"z"_s});
    }
    void the_selected_game_stays_selected_at_its_new_place() {
        MainFrm& main = openOnTagged();
        const QSignalSpy clicks(&main.Games, &FileList::Click);
        opened->game(u"aa.gb"_s);
        waitForRows(4);
        QCOMPARE(selected(), u"b.gb"_s);
        QCOMPARE(main.ListView1.currentRow(), 2);
        QCOMPARE(position(), u"#3/4"_s);
        QCOMPARE(main.GameTitle.Caption(), u"B"_s);
        QCOMPARE(clicks.size(), 0);
    }
    void a_selected_game_that_changes_while_others_come_stays_selected() {
        const MainFrm& main = openOnTagged();
        opened->tagged(u"b.gb"_s, u"New"_s);
        opened->game(u"aa.gb"_s);
        waitForRows(4);
        QCOMPARE(selected(), u"b.gb"_s);
        QCOMPARE(main.GameTitle.Caption(), u"New"_s);
    }
    void a_renamed_selected_game_stays_selected() {
        openOnTagged();
        rename(u"b.gb"_s, u"z.gb"_s);
        verifyRows({u"a"_s, u"c"_s, u"z"_s});
        QCOMPARE(selected(), u"z.gb"_s);
        QCOMPARE(position(), u"#3/3"_s);
    }
    void the_next_game_follows_a_deleted_one() {
        MainFrm& main = openOnTagged();
        remove(u"b.gb"_s);
        waitForRows(2);
        QCOMPARE(selected(), u"c.gb"_s);
        QCOMPARE(main.ListView1.currentRow(), 1);
        QCOMPARE(main.GameTitle.Caption(), u"C"_s);
        remove(u"c.gb"_s);
        waitForRows(1);
        QCOMPARE(main.GameTitle.Caption(), u"A"_s);
    }
    void a_changed_tag_of_the_selected_game_is_shown() {
        MainFrm& main = openOnTagged();
        opened->tagged(u"b.gb"_s, u"New"_s, u"Tin Fern"_s, u"More"_s);
        QTRY_COMPARE(main.GameTitle.Caption(), u"New"_s);
        QCOMPARE(main.GameAutor.Caption(), u"Tin Fern"_s);
        QCOMPARE(main.EditID3Info.Text(), u"More"_s);
    }
    void an_edit_in_progress_stays_whatever_happens_data() {
        QTest::addColumn<QString>("deed");
        for (const char* deed : {"come", "tag", "go", "rename"})
            QTest::newRow(deed) << QString::fromLatin1(deed);
    }
    void an_edit_in_progress_stays_whatever_happens() {
        QFETCH(QString, deed);
        MainFrm& main = openOnTagged();
        typeInfo(u"typed "_s);
        if (deed == u"come") opened->game(u"aa.gb"_s);
        if (deed == u"tag") opened->tagged(u"b.gb"_s, u"New"_s);
        if (deed == u"go") remove(u"b.gb"_s);
        if (deed == u"rename") rename(u"b.gb"_s, u"z.gb"_s);
        QTest::qWait(longEnough);
        QCOMPARE(main.EditID3Info.Text(), u"typed Info"_s);
        QCOMPARE(main.EditID3Title.Text(), u"B"_s);
        QVERIFY(main.EditID3Info.focusProxy()->hasFocus());
        typeText(*main.EditID3Info.focusProxy(), u"on "_s);
        QCOMPARE(main.EditID3Info.Text(), u"typed on Info"_s);
        QCOMPARE(main.GameTitle.Caption(), deed == u"tag" ? u"New"_s : u"B"_s);
    }
    void what_was_typed_for_a_vanished_game_gets_into_no_other() {
        MainFrm& main = openOnTagged();
        typeInfo(u"typed "_s);
        const QByteArray bytes = opened->bytesOf(u"b.gb"_s);
        remove(u"b.gb"_s);
        waitForRows(2);
        QCOMPARE(selected(), QString());
        QCOMPARE(position(), u"#0/2"_s);
        opened->game(u"b.gb"_s, bytes);
        waitForRows(3);
        QCOMPARE(selected(), u"b.gb"_s);
        QCOMPARE(main.EditID3Info.Text(), u"typed Info"_s);
    }
    void the_rows_in_sight_stay_in_sight() {
        opened->games(40);
        MainFrm& main = opened->open();
        click(main.chameleonButton15);
        const int top = main.ListView1.seenTop();
        const QRect place = main.ListView1.rowRect(12);
        opened->game(u"a.gb"_s);
        waitForRows(41);
        QCOMPARE(main.ListView1.rowRect(13), place);
        remove(u"a.gb"_s);
        waitForRows(40);
        QCOMPARE(main.ListView1.seenTop(), top);
        QCOMPARE(main.ListView1.rowRect(12), place);
        QCOMPARE(main.Games.ListIndex(), 0);
    }
    void at_its_top_the_list_shows_what_comes_above() {
        opened->games(40);
        MainFrm& main = opened->open();
        opened->game(u"a.gb"_s);
        waitForRows(41);
        QCOMPARE(main.ListView1.seenTop(), 1);
    }
    void a_marked_row_that_is_not_selected_stays_marked() {
        opened->games(5);
        MainFrm& main = opened->open();
        main.ListView1.markRow(3);
        opened->game(u"a.gb"_s);
        waitForRows(6);
        QCOMPARE(main.ListView1.currentRow(), 4);
        QCOMPARE(main.Games.ListIndex(), 1);
    }
    void a_game_that_is_being_copied_appears_when_it_is_whole() {
        opened->games(1);
        opened->open();
        QFile copy(path(u"slow.gb"_s));
        QVERIFY(copy.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        copy.write("half");
        QTest::qWait(longEnough);
        QCOMPARE(rows(), QStringList{u"g001"_s});
        copy.write("rest");
        copy.close();
        verifyRows({u"g001"_s, u"slow"_s});
    }
    void a_change_is_shown_soon_after_the_folder_is_quiet() {
        opened->games(1);
        opened->open();
        opened->game(u"new.gb"_s, "x");
        QElapsedTimer clock;
        clock.start();
        waitForRows(2);
        QVERIFY2(clock.elapsed() < soon, QByteArray::number(clock.elapsed()));
    }
    void ten_thousand_games_are_one_refresh_and_shown_soon() {
        opened->games(1);
        MainFrm& main = opened->open();
        const QSignalSpy totals(&main.TotalRom, &Label::Change);
        for (int i = 0; i < 10000; ++i) {
            opened->game(u"n%1.gb"_s.arg(i), "x");
            if (i % 20 == 0) QCoreApplication::processEvents();
        }
        QElapsedTimer clock;
        clock.start();
        waitForRows(10001);
        QVERIFY2(clock.elapsed() < soon, QByteArray::number(clock.elapsed()));
        QTest::qWait(longEnough);
        QCOMPARE(totals.size(), 1);
    }
    void a_library_that_vanishes_comes_back_with_its_selection_and_place() {
        opened->games(40);
        MainFrm& main = opened->open();
        click(main.chameleonButton15);
        opened->chooseRow(14);
        const int top = main.ListView1.seenTop();
        QDir home(opened->world.appPath());
        QVERIFY(home.rename(u"roms"_s, u"away"_s));
        verifyRows({});
        QCOMPARE(position(), u"#1/0"_s);
        QCOMPARE(main.GameTitle.Caption(), opened->text("globals", "nodisp"));
        QVERIFY(home.rename(u"away"_s, u"roms"_s));
        waitForRows(40);
        QCOMPARE(selected(), u"g015.gb"_s);
        QCOMPARE(main.ListView1.currentRow(), 14);
        QCOMPARE(main.ListView1.seenTop(), top);
        QCOMPARE(main.GameFormat.Caption().contains(u"[3KB]"_s), true);
        QCOMPARE(opened->world.messages.boxes.size(), 0);
    }
    void the_first_game_of_an_empty_library_is_selected() {
        opened->games(1);
        MainFrm& main = opened->open();
        remove(u"g001.gb"_s);
        verifyRows({});
        opened->tagged(u"n.gb"_s, u"New"_s);
        verifyRows({u"n"_s});
        QCOMPARE(selected(), u"n.gb"_s);
        QCOMPARE(main.GameTitle.Caption(), u"New"_s);
    }
    void while_a_game_runs_nothing_changes_and_afterwards_the_list_follows() {
        opened->games(2);
        MainFrm& main = opened->open();
        opened->world.processes.whileRunning = [&] {
            opened->game(u"a.gb"_s);
            QTest::qWait(longEnough); // a real game serves no events: this is the harder case
            QCOMPARE(main.ListView1.rowCount(), 2);
        };
        click(main.ChameleonButton16);
        QCOMPARE(opened->world.processes.starts.size(), 1);
        verifyRows({u"a"_s, u"g001"_s, u"g002"_s});
        QCOMPARE(selected(), u"g001.gb"_s);
    }
    void a_question_is_about_the_list_that_the_user_sees() {
        opened->games(2);
        MainFrm& main = opened->open();
        const QSignalSpy totals(&main.TotalRom, &Label::Change);
        main.runtime().reporting([&] {
            opened->game(u"a.gb"_s);
            QTest::qWait(longEnough);
            QCOMPARE(totals.size(), 0);
        });
        waitForRows(3);
    }
    void after_a_handler_the_library_is_read_once_however_often_it_has_changed() {
        opened->games(1);
        opened->open();
        const int once = openingsAfter({u"a.gb"_s});
        QVERIFY(once > 0);
        QCOMPARE(openingsAfter({u"b.gb"_s, u"c.gb"_s, u"d.gb"_s}), once);
    }
    void a_save_of_our_own_leaves_selection_and_fields_alone() {
        MainFrm& main = openOnTagged();
        typeInfo(u"typed "_s);
        click(main.chameleonButton19);
        typeText(*main.EditID3Info.focusProxy(), u"x"_s);
        const QString text = main.EditID3Info.Text();
        const QSignalSpy changes(&main.EditID3Info, &TextBox::Change);
        QTest::qWait(longEnough);
        QCOMPARE(main.EditID3Info.Text(), text);
        QCOMPARE(changes.size(), 0);
        QCOMPARE(selected(), u"b.gb"_s);
    }
    void what_happens_before_the_watch_begins_is_caught_up_with_data() {
        QTest::addColumn<qint64>("age"); // of the folder's last change before the start, in seconds
        QTest::newRow("old folder") << qint64{1000};
        QTest::newRow("same step of a file system's clock") << qint64{0};
    }
    void what_happens_before_the_watch_begins_is_caught_up_with() {
        QFETCH(qint64, age);
        opened->games(2);
        const timespec time{::time(nullptr) - age, 0};
        setFolderTime(time);
        opened->open();
        opened->game(u"a.gb"_s);
        if (age == 0) setFolderTime(time);
        verifyRows({u"a"_s, u"g001"_s, u"g002"_s});
    }
    void a_tag_written_before_the_watch_begins_is_shown() {
        opened->tagged(u"a.gb"_s, u"Old"_s);
        setFolderTime({::time(nullptr) - 1000, 0});
        MainFrm& main = opened->open();
        QFile game(path(u"a.gb"_s));
        QVERIFY(game.open(QIODevice::ReadWrite));
        const QByteArray bytes = game.readAll().replace("Old", "New");
        game.seek(0);
        game.write(bytes);
        game.close();
        QTRY_COMPARE(main.GameTitle.Caption(), u"New"_s);
    }
    void files_that_are_no_games_change_nothing() {
        MainFrm& main = openOnTagged();
        const QSignalSpy totals(&main.TotalRom, &Label::Change);
        const auto before = main.Games.names();
        opened->game(u"notes.txt"_s);
        opened->game(u".torvane-abcdef"_s);
        QTest::qWait(longEnough);
        QVERIFY(main.Games.names() == before);
        QCOMPARE(totals.size(), 0);
    }
    void the_compact_window_follows() {
        opened->tagged(u"b.gb"_s, u"A name of 17 char"_s);
        Torvette& compact = opened->openCompact();
        opened->tick();
        const QString line = opened->line();
        opened->tagged(u"a.gb"_s, u"Other"_s);
        QTRY_COMPARE(compact.Label3.Caption(), u"#0002"_s);
        QCOMPARE(opened->line(), line);
        opened->tagged(u"b.gb"_s, u"New"_s, u"Tin Fern"_s);
        QTRY_COMPARE(compact.Label6.Caption(), u"Tin Fern"_s);
        QCOMPARE(opened->line(), u"NEW ··· "_s);
        remove(u"b.gb"_s);
        QTRY_COMPARE(compact.Label3.Caption(), u"#0001"_s);
        QCOMPARE(opened->line(), u"OTHER ··· "_s);
        QCOMPARE(opened->world.messages.boxes.size(), 0);
    }
};

TORVANE_TEST(MainFrmFollowTest)
#include "MainFrmFollowTest.moc"
