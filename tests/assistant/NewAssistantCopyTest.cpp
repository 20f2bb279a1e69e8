// SPDX-License-Identifier: MIT
// What the assistant does to files, and what the user can do meanwhile.
#include "support/Failing.h"
#include "support/OpenedAssistant.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QTimer>

using namespace torvane;
using namespace Qt::StringLiterals;

class NewAssistantCopyTest : public QObject {
    Q_OBJECT

    std::unique_ptr<OpenedAssistant> opened;
    NewAssistant& window() const { return opened->assistant(); }
    void originals(int count, qsizetype bytes = 1000) const {
        for (int i = 0; i < count; ++i) {
            opened->original(u"g%1.gb"_s.arg(i, 4, 10, QLatin1Char('0')), QByteArray(bytes, 'g'));
        }
    }
    /// The library holds no partial and no hidden file; every game has this size.
    void expectOnlyWholeGames(qsizetype bytes) {
        for (const QString& name : opened->library()) {
            QVERIFY2(!name.startsWith(u'.'), qPrintable(name));
            QCOMPARE(opened->bytesOf(name).size(), bytes);
        }
    }

private slots:
    void init() { opened = std::make_unique<OpenedAssistant>(); }
    void cleanup() { opened.reset(); }

    // Files
    void games_of_the_library_are_replaced_without_a_question() {
        opened->game(u"a.txt"_s);
        opened->openAssistant();
        opened->game(u"a.gb"_s, "former, and longer");
        opened->game(u"b.gb"_s, "former, and longer");
        opened->original(u"a.gb"_s, "new a");
        opened->original(u"b.gb"_s, "new b");
        opened->copyFolder(opened->from());
        QCOMPARE(opened->bytesOf(u"a.gb"_s), QByteArray("new a"));
        QCOMPARE(opened->bytesOf(u"b.gb"_s), QByteArray("new b"));
        click(window().ChameleonButton6);
        click(window().chameleonButton3);
        QVERIFY(isSeen(window().AddFile));
        click(window().AddFile);
        opened->browse(opened->world.folder.write(u"else/a.gb"_s, "newest"));
        click(window().chameleonButton1);
        QCOMPARE(opened->bytesOf(u"a.gb"_s), QByteArray("newest"));
        QCOMPARE(opened->world.messages.boxes.size(), 0);
    }
    void a_read_only_original_can_be_written_by_its_owner_afterwards() {
        const QString path = opened->original(u"a.gb"_s);
        opened->world.folder.setMode(u"from/a.gb"_s, 0444);
        opened->openAssistant();
        opened->copyFile(path);
        QVERIFY(QFileInfo(path).permissions() & QFile::WriteOwner);
    }
    void a_path_typed_by_hand_changes_what_is_deleted_and_not_what_is_copied() {
        const QString chosen = opened->original(u"a.gb"_s, "chosen");
        const QString named = opened->original(u"b.gb"_s, "named");
        opened->openAssistant();
        opened->goToFile();
        opened->browse(chosen);
        window().FilePath.setText(named);
        click(window().chameleonButton1);
        QCOMPARE(opened->library(), QStringList{u"a.gb"_s});
        click(window().ChameleonButton5);
        QVERIFY(opened->exists(u"from/a.gb"_s));
        QVERIFY(!opened->exists(u"from/b.gb"_s));
        QCOMPARE(opened->typed(), opened->said("f9"));
    }
    void a_folder_ends_where_its_path_holds_the_dialogs_text() {
        const QString mark = u"Choose this folder"_s;
        opened->world.folder.write(u"outer/"_s + mark + u"/inner.gb"_s, "inner");
        opened->world.folder.write(u"outer/outer.gb"_s, "outer");
        opened->openAssistant();
        opened->copyFolder(opened->world.folder.path(u"outer/"_s + mark));
        QCOMPARE(opened->library(), QStringList{u"outer.gb"_s});
    }
    void importing_the_library_folder_itself_loses_nothing() {
        opened->openAssistant();
        opened->games(3);
        opened->copyFolder(opened->world.folder.path(u"roms"_s));
        QCOMPARE(opened->library().size(), 3);
        click(window().ChameleonButton5);
        QCOMPARE(opened->library().size(), 3);
        QCOMPARE(opened->bytesOf(u"g001.gb"_s), QByteArray(3000, 'r'));
        QCOMPARE(opened->typed(), opened->said("f11"));
        QCOMPARE(opened->world.ends, 0);
    }
    void a_game_of_the_library_is_not_added_to_itself() {
        opened->openAssistant();
        opened->copyFile(opened->game(u"a.gb"_s, "content"));
        QCOMPARE(opened->typed(), opened->said("f8"));
        QCOMPARE(opened->bytesOf(u"a.gb"_s), QByteArray("content"));
    }
    void a_single_copy_without_room_fails_and_the_old_game_stays_whole() {
        opened->game(u"a.txt"_s);
        const QString path = opened->original(u"a.gb"_s, QByteArray(20'000, 'a'));
        opened->openAssistant();
        opened->game(u"a.gb"_s, "former");
        {
            const FullDisk full(10'000);
            opened->copyFile(path);
        }
        QCOMPARE(opened->typed(), opened->said("f8"));
        QCOMPARE(opened->bytesOf(u"a.gb"_s), QByteArray("former"));
        QCOMPARE(opened->world.ends, 0);
    }
    void a_folder_copy_that_fails_is_reported_and_the_program_goes_on() {
        originals(2);
        opened->original(u"h.gb"_s, QByteArray(20'000, 'h'));
        opened->openAssistant();
        {
            const FullDisk full(10'000);
            opened->copyFolder(opened->from());
        }
        QCOMPARE(opened->world.ends, 0);
        QVERIFY(opened->world.messages.last().contains(u"61"_s));
        QVERIFY(opened->isThere() && opened->assistant().isVisible());
        QCOMPARE(opened->library(), (QStringList{u"g0000.gb"_s, u"g0001.gb"_s}));
        expectOnlyWholeGames(1000);
    }
    void an_original_that_cannot_be_deleted_is_reported_and_the_question_stays() {
        const QString path = opened->original(u"a.gb"_s);
        opened->openAssistant();
        opened->copyFile(path);
        opened->world.folder.setMode(u"from"_s, 0555);
        {
            const OrdinaryUser user;
            click(window().ChameleonButton5);
        }
        opened->world.folder.setMode(u"from"_s, 0755);
        QVERIFY(opened->world.messages.last().endsWith(u" (70)"_s));
        QCOMPARE(opened->world.ends, 0);
        QVERIFY(isSeen(window().ChameleonButton6));
        click(window().ChameleonButton5);
        QVERIFY(!QFile::exists(path));
        QCOMPARE(opened->typed(), opened->said("f9"));
    }

    void kept_originals_are_named_with_the_reason() {
        originals(3);
        opened->openAssistant();
        opened->copyFolder(opened->from());
        opened->original(u"g0001.gb"_s, "changed meanwhile");
        click(window().ChameleonButton5);
        QCOMPARE(opened->world.folder.entries(u"from"_s), QStringList{u"g0001.gb"_s});
        QCOMPARE(opened->world.messages.boxes.size(), 1);
        QCOMPARE(opened->world.messages.last(),
                 opened->said("kept") + u"\r\ng0001.gb: "_s + opened->said("keptchanged"));
        QCOMPARE(opened->world.messages.boxes.last().flags, 48);
        QCOMPARE(opened->typed(), opened->said("f15"));
    }
    void a_single_original_that_has_changed_is_named_and_not_reported_as_deleted() {
        const QString path = opened->original(u"a.gb"_s);
        opened->openAssistant();
        opened->copyFile(path);
        opened->original(u"a.gb"_s, "changed meanwhile");
        click(window().ChameleonButton5);
        QCOMPARE(opened->world.folder.entries(u"from"_s), QStringList{u"a.gb"_s});
        QCOMPARE(opened->world.messages.last(),
                 opened->said("kept") + u"\r\na.gb: "_s + opened->said("keptchanged"));
        QCOMPARE(opened->typed(), opened->said("f11"));
    }
    void originals_that_the_system_keeps_are_named_with_its_reason_and_none_is_reported_as_deleted() {
        originals(20);
        opened->openAssistant();
        opened->copyFolder(opened->from());
        opened->world.folder.setMode(u"from"_s, 0555);
        {
            const OrdinaryUser user;
            click(window().ChameleonButton5);
        }
        opened->world.folder.setMode(u"from"_s, 0755);
        QCOMPARE(opened->world.folder.entries(u"from"_s).size(), 20);
        const QStringList lines = opened->world.messages.last().split(u"\r\n"_s);
        QCOMPARE(lines.size(), 17);
        QVERIFY(lines[1].startsWith(u"g0000.gb: "_s) && lines[1].size() > 12);
        QCOMPARE(lines.last(), u"... +5"_s);
        QCOMPARE(opened->typed(), opened->said("f11"));
    }
    void games_of_the_library_itself_are_named_as_such() {
        opened->games(1);
        opened->open();
        opened->program->desk.go(Window::MainFrm, Window::NewAssistant);
        QVERIFY(QTest::qWaitForWindowExposed(&window()));
        opened->copyFolder(opened->world.folder.path(u"roms"_s));
        click(window().ChameleonButton5);
        QCOMPARE(opened->library(), QStringList{u"g001.gb"_s});
        QVERIFY(opened->world.messages.last().endsWith(u"g001.gb: "_s + opened->said("keptsame")));
    }

    // The progress bar
    void the_progress_bar_starts_empty_and_ends_one_step_short_of_full() {
        originals(5);
        opened->openAssistant();
        QList<int> widths;
        connect(&window().File1, &FileList::Click, this, [&] { widths << window().barra.width(); });
        opened->copyFolder(opened->from());
        QCOMPARE(widths, (QList<int>{0, 49, 98, 147, 196}));
        QCOMPARE(window().Pista.width(), 245);
    }

    // Meanwhile
    void the_window_paints_at_least_every_50_milliseconds_or_as_often_as_the_machine_can() {
        originals(300, 100'000);
        opened->openAssistant();
        int ticks = 0;
        QTimer ticking;
        connect(&ticking, &QTimer::timeout, this, [&] { ++ticks; });
        ticking.start(10);
        QElapsedTimer clock;
        clock.start();
        opened->copyFolder(opened->from());
        const qint64 due = clock.elapsed() / 50;
        QVERIFY2(ticks >= due / 2, qPrintable(u"%1 of %2"_s.arg(ticks).arg(due)));
        QCOMPARE(opened->library().size(), 300);
    }
    void clicks_while_games_are_copied_do_nothing() {
        originals(200, 50'000);
        opened->openAssistant();
        int tries = 0;
        QTimer trying;
        connect(&trying, &QTimer::timeout, this, [&] {
            const bool isCopying = !opened->dialogs().questions.isEmpty() && opened->library().size() < 200;
            if (!isCopying || ++tries > 5) return;
            emit window().AddDir.Click();
            emit window().AddFile.Click();
            emit window().Browse.Click();
            emit window().chameleonButton1.Click();
            emit window().chameleonButton3.Click();
            emit window().ChameleonButton5.Click();
            emit window().ChameleonButton6.Click();
            window().take({opened->from()});
        });
        connect(&window().File1, &FileList::Click, this, [&] {
            if (window().File1.ListIndex() == 0) trying.start(0);
        });
        opened->copyFolder(opened->from());
        trying.stop();
        QVERIFY(tries > 0);
        QCOMPARE(opened->dialogs().questions.size(), 1);
        QCOMPARE(opened->library().size(), 200);
        QCOMPARE(opened->world.folder.entries(u"from"_s).size(), 200);
        QCOMPARE(opened->typed(), opened->page("f5b", "f6", "f7"));
    }
    void the_window_may_be_closed_while_games_are_copied_data() {
        QTest::addColumn<bool>("byWindowManager");
        QTest::newRow("exit button") << false;
        QTest::newRow("window manager") << true;
    }
    void the_window_may_be_closed_while_games_are_copied() {
        QFETCH(bool, byWindowManager);
        originals(400, 200'000);
        opened->openAssistant();
        const QPointer<NewAssistant> old = &window();
        bool wasHidden = false;
        connect(&window().File1, &FileList::Click, this, [&] {
            if (window().File1.ListIndex() != 150) return;
            byWindowManager ? static_cast<void>(window().close()) : emit window().ChameleonButton2.Click();
            wasHidden = !window().isVisible();
        });
        opened->copyFolder(opened->from());
        QVERIFY(wasHidden);
        QVERIFY(!opened->isThere());
        collectGone();
        QVERIFY(old.isNull());
        // The file that was being copied is the last one.
        QCOMPARE(opened->library().size(), 151);
        expectOnlyWholeGames(200'000);
        QCOMPARE(opened->world.folder.entries(u"from"_s).size(), 400);
        QCOMPARE(opened->main().ListView1.rowCount(), 151);
    }
    void the_window_may_be_closed_while_one_game_is_copied() {
        const QString path = opened->original(u"a.gba"_s, QByteArray(32 << 20, 'a'));
        opened->openAssistant();
        opened->goToFile();
        opened->browse(path);
        bool wasBusy = false;
        QTimer::singleShot(0, this, [&] {
            wasBusy = isSeen(window().FilePath);
            emit window().ChameleonButton2.Click();
        });
        emit window().chameleonButton1.Click();
        QVERIFY(wasBusy);
        QVERIFY(!opened->isThere());
        expectOnlyWholeGames(32 << 20);
    }
};

TORVANE_TEST(NewAssistantCopyTest)
#include "NewAssistantCopyTest.moc"
