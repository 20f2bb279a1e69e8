// SPDX-License-Identifier: MIT
// Entries of the menu that are chosen while the assistant copies: they work, and the copying goes on to its
// end.
#include "support/OpenedAssistant.h"
#include "support/TestMain.h"

#include <QAction>
#include <QMenu>

using namespace torvane;
using namespace Qt::StringLiterals;

class MenuWhileCopyingTest : public QObject {
    Q_OBJECT

    static constexpr int originals = 200;

    std::unique_ptr<OpenedAssistant> opened;
    template <typename W>
    bool isShown() const {
        const W* window = opened->program->loaded<W>();
        return window != nullptr && window->isVisible();
    }
    // Copies a folder of games and chooses an entry on the way. Looks around when the last game is reached.
    void chooseWhileCopying(
        const MenuEntry& entry, const std::function<void()>& look = [] {}) const {
        QAction* action =
            opened->program->load<Menuing>()->popup.shown().findChild<QAction*>(entry.objectName());
        const FileList& copied = opened->assistant().File1;
        connect(&copied, &FileList::Click, this, [&copied, action, look] {
            if (copied.ListIndex() == 2) action->trigger();
            if (copied.ListIndex() == originals - 1) look();
        });
        opened->copyFolder(opened->from());
    }
    void expectAllCopied() const {
        QCOMPARE(opened->library().size(), originals + 1);
        QCOMPARE(opened->bytesOf(u"g%1.gb"_s.arg(originals - 1)).size(), 50'000);
        QVERIFY(opened->assistant().isVisible());
        QCOMPARE(opened->typed(), opened->page("f5b", "f6", "f7"));
    }
    Menuing& menuing() const { return *opened->program->loaded<Menuing>(); }

private slots:
    void init() {
        opened = std::make_unique<OpenedAssistant>();
        opened->game(u"a.gb"_s);
        for (int i = 0; i < originals; ++i) opened->original(u"g%1.gb"_s.arg(i), QByteArray(50'000, 'g'));
        opened->open();
        opened->program->desk.go(Window::MainFrm, Window::NewAssistant);
        QVERIFY(QTest::qWaitForWindowExposed(&opened->assistant()));
    }
    void cleanup() { opened.reset(); }

    void a_game_is_played() {
        qsizetype copied = 0;
        opened->world.processes.whileRunning = [&] { copied = opened->library().size() - 1; };
        chooseWhileCopying(menuing().loadrom);
        QCOMPARE(opened->world.processes.starts.size(), 1);
        QVERIFY(opened->world.processes.starts[0].arguments.last().endsWith("/a.gb"));
        QVERIFY2(copied < originals, qPrintable(QString::number(copied)));
        QCOMPARE(opened->world.messages.boxes.size(), 0);
        expectAllCopied();
    }
    void the_compact_window_replaces_the_main_one() {
        bool isCompact = false;
        chooseWhileCopying(menuing().changetomini,
                           [&] { isCompact = isShown<Torvette>() && !opened->main().isVisible(); });
        QVERIFY(isCompact);
        expectAllCopied();
        click(opened->assistant().ChameleonButton6);
        click(opened->assistant().chameleonButton1);
        QVERIFY(isShown<Torvette>() && !opened->main().isVisible());
        QCOMPARE(opened->main().ListView1.rowCount(), originals + 1);
    }
    void the_database_replaces_the_main_window_and_leads_back_to_it() {
        bool isDatabase = false;
        chooseWhileCopying(menuing().editid3,
                           [&] { isDatabase = isShown<EditDB>() && !opened->main().isVisible(); });
        QVERIFY(isDatabase);
        expectAllCopied();
        opened->program->loaded<EditDB>()->Unload();
        QVERIFY(opened->main().isVisible());
    }
    void exit_asks_and_no_changes_nothing() {
        bool isAsked = false;
        chooseWhileCopying(menuing().end, [&] { isAsked = isShown<TorvMsg>(); });
        QVERIFY(isAsked);
        expectAllCopied();
        click(opened->program->loaded<TorvMsg>()->chameleonButton3);
        QCOMPARE(opened->world.ends, 0);
        QVERIFY(opened->main().isEnabled());
    }
    void the_settings_entry_reports_and_brings_the_main_window_back() {
        chooseWhileCopying(menuing().configmn);
        QCOMPARE(opened->world.messages.boxes.size(), 1);
        QVERIFY(opened->main().isVisible());
        expectAllCopied();
    }
};

TORVANE_TEST(MenuWhileCopyingTest)
#include "MenuWhileCopyingTest.moc"
