// SPDX-License-Identifier: MIT
// Where handlers serve events while they run: what an event finds that has been waiting for that moment.
#include "support/EventRuns.h"
#include "support/Archive.h"
#include "support/OpenedAssistant.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

// On a busy machine a timer would tick between the ticks of the test.
class NoTimers : public QObject {
public:
    NoTimers() { qApp->installEventFilter(this); }
    bool eventFilter(QObject* receiver, QEvent* event) override {
        return event->type() == QEvent::Timer && qobject_cast<QTimer*>(receiver) != nullptr;
    }
};

class EventRunsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<OpenedAssistant> opened;

    MainFrm& main() const { return opened->main(); }
    NewAssistant& assistant() const { return opened->assistant(); }
    ZIP_Viewer* viewer() const { return opened->program->loaded<ZIP_Viewer>(); }
    int starts() const { return static_cast<int>(opened->world.processes.starts.size()); }
    int boxes() const { return static_cast<int>(opened->world.messages.boxes.size()); }

    void saveTag(const QString& title) const {
        main().EditID3Title.setText(title);
        main().EditID3Company.setText(u"company"_s);
        main().EditID3Info.setText(u"info"_s);
        emit main().chameleonButton19.Click();
    }
    void openArchive() const {
        writeArchive(opened->world.folder.path(u"roms/a.zip"_s), {{u"one.gb"_s, "1"}, {u"two.gb"_s, "2"}});
        opened->open();
        emit main().Zipper.Click();
        QVERIFY(viewer() != nullptr);
    }
    bool isUnpacked() const { return opened->exists(u"ziptemp/a/two.gb"_s); }

private slots:
    void init() { opened = std::make_unique<OpenedAssistant>(); }
    void cleanup() { opened.reset(); }

    // The start
    void a_start_serves_events_with_the_language_file_known_and_with_the_main_window_loaded() {
        opened->games(3);
        const EventRuns runs([&] {
            const Globals& globals = opened->program->globals;
            const MainFrm* window = opened->program->loaded<MainFrm>();
            if (window == nullptr) return globals.LanguageFile.right(8) + u" named "_s + globals.LanguageName;
            return window->Label41.Caption() + (window->isVisible() ? u" shown"_s : u" not shown"_s);
        });
        opened->start();
        const QStringList expected{u"_eng.tvl named "_s, u"#1/3 not shown"_s};
        QCOMPARE(runs.seen, expected);
    }

    // The main window
    void a_refresh_serves_events_before_it_selects_the_first_game() {
        opened->games(3);
        MainFrm& window = opened->open();
        const EventRuns runs([&] {
            return u"%1 rows, game %2"_s.arg(window.ListView1.rowCount()).arg(window.Games.ListIndex());
        });
        window.Refresh_Click();
        QCOMPARE(runs.seen, QStringList{u"3 rows, game 2"_s});
        QCOMPARE(window.Games.ListIndex(), 0);
    }
    void a_save_over_a_tag_serves_events_before_it_writes() {
        opened->game(u"a.gb"_s);
        opened->open();
        const EventRuns runs([&] {
            const bool isWritten = opened->bytesOf(u"a.gb"_s).contains("new title");
            return u"%1 boxes, %2"_s.arg(boxes()).arg(isWritten ? u"new tag"_s : u"old tag"_s);
        });
        saveTag(u"old title"_s);
        QCOMPARE(runs.seen, QStringList());
        saveTag(u"new title"_s);
        QCOMPARE(runs.seen, QStringList{u"1 boxes, old tag"_s});
        QVERIFY(opened->bytesOf(u"a.gb"_s).contains("new title"));
    }
    void a_deleted_tag_lets_events_run_before_the_game_is_selected_again() {
        opened->games(3);
        opened->open();
        opened->chooseRow(1);
        saveTag(u"title"_s);
        const EventRuns runs([&] {
            const bool isThere = opened->bytesOf(u"g002.gb"_s).contains("title");
            return u"game %1%2"_s.arg(main().Games.ListIndex()).arg(isThere ? u", tag"_s : QString());
        });
        emit main().chameleonButton11.Click();
        const QStringList expected{u"game 2"_s, u"game 0"_s}; // in the refresh, and after it
        QCOMPARE(runs.seen, expected);
        QCOMPARE(main().Games.ListIndex(), 1);
    }
    void a_launch_serves_events_when_the_window_is_minimised() {
        opened->game(u"a.gb"_s);
        MainFrm& window = opened->open();
        const EventRuns runs(
            [&] { return u"state %1, %2 started"_s.arg(window.windowStateWord()).arg(starts()); });
        emit window.ChameleonButton16.Click();
        QCOMPARE(runs.seen.value(0), u"state 1, 0 started"_s);
        QCOMPARE(starts(), 1);
    }

    // The archive window
    void an_archive_is_read_with_events_before_after_unpacking_and_after_listing() {
        writeArchive(opened->world.folder.path(u"roms/a.zip"_s), {{u"one.gb"_s, "1"}, {u"two.gb"_s, "2"}});
        opened->open();
        const EventRuns runs([&] {
            const bool waits = viewer()->Mensaje.isVisible();
            return u"%1, %2, %3 rows"_s.arg(waits ? u"waits"_s : u"does not wait"_s,
                                            isUnpacked() ? u"unpacked"_s : u"packed"_s,
                                            QString::number(viewer()->ListView1.rowCount()));
        });
        emit main().Zipper.Click();
        const QStringList first{u"waits, packed, 0 rows"_s, u"waits, packed, 0 rows"_s};
        QCOMPARE(runs.seen.mid(0, 2), first);
        QCOMPARE(runs.seen.count(u"waits, unpacked, 0 rows"_s), 1);
        QCOMPARE(runs.seen.value(runs.seen.size() - 1), u"waits, unpacked, 2 rows"_s);
        QVERIFY(!viewer()->Mensaje.isVisible());
    }
    void a_selected_member_clears_the_panel_after_events_were_served() {
        openArchive();
        viewer()->GameTitle.setCaption(u"before"_s);
        const EventRuns runs([&] { return viewer()->GameTitle.Caption(); });
        viewer()->File2.setListIndex(1);
        QCOMPARE(runs.seen, QStringList{u"before"_s});
        QCOMPARE(viewer()->GameTitle.Caption(), QString());
    }
    void a_member_is_launched_with_events_after_the_selection_and_when_minimised() {
        openArchive();
        viewer()->ListView1.setCurrentRow(1);
        const EventRuns runs([&] {
            return u"member %1, state %2, %3 started"_s.arg(viewer()->File2.ListIndex())
                .arg(viewer()->windowStateWord())
                .arg(starts());
        });
        emit viewer()->ListView1.rowDoubleClicked(1);
        // The first one belongs to the selection itself, the last one drops what came during the game.
        const QStringList expected{u"member 1, state 0, 0 started"_s, u"member 1, state 0, 0 started"_s,
                                   u"member 1, state 1, 0 started"_s, u"member 1, state 1, 1 started"_s};
        QCOMPARE(runs.seen, expected);
        QCOMPARE(starts(), 1);
    }
    void the_archive_window_serves_events_before_it_unloads() {
        openArchive();
        const EventRuns runs([&] {
            return viewer() != nullptr && viewer()->isVisible() && isUnpacked() ? u"open"_s : u"closed"_s;
        });
        emit viewer()->chameleonButton1.Click();
        QCOMPARE(runs.seen, QStringList{u"open"_s});
        QVERIFY(viewer() == nullptr);
        QVERIFY(!isUnpacked());
    }

    // The assistant
    void the_typewriter_serves_events_after_each_character() {
        opened->openAssistant();
        assistant().ShowDialog(u"ab"_s);
        const NoTimers ticks;
        const EventRuns runs([&] {
            return assistant().Label2.Caption() + (assistant().Timer1.Enabled() ? u" goes on"_s : QString());
        });
        emit assistant().Timer1.Tick();
        emit assistant().Timer1.Tick();
        const QStringList expected{u"a goes on"_s, u"ab goes on"_s};
        QCOMPARE(runs.seen, expected);
        QVERIFY(!assistant().Timer1.Enabled());
    }
    void a_copied_file_lets_events_run_before_the_question() {
        opened->openAssistant();
        opened->goToFile();
        opened->browse(opened->original(u"a.gb"_s));
        const NoTimers ticks;
        const EventRuns runs([&] {
            return opened->library().join(u' ') +
                   (assistant().ChameleonButton5.isVisible() ? u" asked"_s : u" not asked"_s);
        });
        emit assistant().chameleonButton1.Click();
        QCOMPARE(runs.seen.value(runs.seen.size() - 1), u"a.gb not asked"_s);
        QVERIFY(assistant().ChameleonButton5.isVisible());
    }
    void a_copied_folder_lets_events_run_before_and_after_the_copies() {
        opened->openAssistant();
        opened->original(u"a.gb"_s);
        opened->original(u"b.gb"_s);
        opened->goToChoice();
        opened->dialogs().answer = opened->from();
        const NoTimers ticks;
        const EventRuns runs([&] {
            return u"%1 listed, %2 copied"_s.arg(assistant().File1.ListCount()).arg(opened->library().size());
        });
        emit assistant().AddDir.Click();
        QCOMPARE(runs.seen.value(0), u"2 listed, 0 copied"_s);
        QCOMPARE(runs.seen.value(runs.seen.size() - 1), u"2 listed, 2 copied"_s);
    }
    void deleted_originals_let_events_run_before_the_assistant_says_so() {
        opened->openAssistant();
        opened->original(u"a.gb"_s);
        opened->copyFolder(opened->from());
        const NoTimers ticks;
        const EventRuns runs([&] {
            return u"%1 left, page %2"_s.arg(assistant().File1.ListCount())
                .arg(assistant().ChameleonButton5.isVisible() ? u"asks"_s : u"says"_s);
        });
        emit assistant().ChameleonButton5.Click();
        QCOMPARE(runs.seen, QStringList{u"0 left, page asks"_s});
        QVERIFY(!assistant().ChameleonButton5.isVisible());
    }
};

TORVANE_TEST(EventRunsTest)
#include "EventRunsTest.moc"
