// SPDX-License-Identifier: MIT
// Windows that belong to others: who stays above whom when an opener is loaded anew, comes back or closes.
#include "support/OpenedProgram.h"
#include "support/TestMain.h"

#include <QSignalSpy>

using namespace torvane;
using namespace Qt::StringLiterals;

class DeskOwnersTest : public QObject {
    Q_OBJECT

    std::unique_ptr<OpenedProgram> opened;

    Form& form(Window window) const { return *opened->program->windows.ifLoaded(window); }
    void go(Window from, Window to, const QStringList& subject = {}) const {
        opened->program->desk.go(from, to, subject);
        QVERIFY(opened->program->windows.ifLoaded(to) != nullptr);
    }
    const QWindow* ownerOf(Window window) const { return form(window).windowHandle()->transientParent(); }
    void openPanelAnd(Window window) const {
        go(Window::MainFrm, Window::ConfigNew);
        go(Window::ConfigNew, window);
        QTRY_COMPARE(QApplication::activeWindow(), &form(window));
    }
    void loadMainWindowAnew() const {
        go(Window::MainFrm, Window::MainFrm);
        collectGone();
    }

private slots:
    void init() {
        opened = std::make_unique<OpenedProgram>();
        opened->games(1);
        opened->open();
    }
    void cleanup() { opened.reset(); }

    // A window manager takes notice of an owner only when an owned window appears.
    void all_windows_of_a_chain_appear_anew_when_the_main_window_is_loaded_anew() {
        openPanelAnd(Window::ConfGen);
        const QSignalSpy appearances(form(Window::ConfGen).windowHandle(), &QWindow::visibleChanged);
        loadMainWindowAnew();
        QCOMPARE(appearances, (QList<QVariantList>{{false}, {true}}));
        QCOMPARE(ownerOf(Window::ConfGen), form(Window::ConfigNew).windowHandle());
        QCOMPARE(ownerOf(Window::ConfigNew), form(Window::MainFrm).windowHandle());
    }
    void what_the_panel_has_opened_stays_with_the_panel_when_the_main_window_is_loaded_anew() {
        openPanelAnd(Window::NewAssistant);
        loadMainWindowAnew();
        QCOMPARE(ownerOf(Window::NewAssistant), form(Window::ConfigNew).windowHandle());
    }
    void what_the_panel_has_opened_stays_with_the_panel_when_the_compact_window_comes_back() {
        openPanelAnd(Window::NewAssistant);
        go(Window::MainFrm, Window::Torvette);
        go(Window::Menuing, Window::EditDB);
        form(Window::EditDB).Unload();
        QVERIFY(form(Window::Torvette).isVisible());
        QCOMPARE(ownerOf(Window::NewAssistant), form(Window::ConfigNew).windowHandle());
    }
    void a_hidden_window_stays_hidden_when_its_opener_is_loaded_anew() {
        go(Window::MainFrm, Window::AdvSearch);
        form(Window::AdvSearch).Hide();
        loadMainWindowAnew();
        QVERIFY(!form(Window::AdvSearch).isVisible());
    }
    void what_belongs_to_a_window_that_comes_back_appears_anew() {
        go(Window::MainFrm, Window::AdvSearch);
        go(Window::MainFrm, Window::EditDB);
        const QSignalSpy appearances(form(Window::AdvSearch).windowHandle(), &QWindow::visibleChanged);
        form(Window::EditDB).Unload();
        QCOMPARE(appearances, (QList<QVariantList>{{false}, {true}}));
    }
    void the_opener_of_a_closed_window_takes_its_focus() {
        openPanelAnd(Window::ConfGen);
        form(Window::ConfGen).Unload();
        emit qGuiApp->focusWindowChanged(nullptr); // what the window manager reports a moment later
        QTRY_COMPARE(QApplication::activeWindow(), &form(Window::ConfigNew));
    }
    void the_exit_question_stays_above_its_window_when_another_one_closes() {
        openPanelAnd(Window::ConfGen);
        go(Window::Menuing, Window::TorvMsg, {u"?"_s, u"exit"_s, QString()});
        QCOMPARE(ownerOf(Window::TorvMsg), form(Window::MainFrm).windowHandle());
        form(Window::ConfGen).Unload();
        QCOMPARE(ownerOf(Window::TorvMsg), form(Window::MainFrm).windowHandle());
    }
};

TORVANE_TEST(DeskOwnersTest)
#include "DeskOwnersTest.moc"
