// SPDX-License-Identifier: MIT
// The focus after an owned window or a dialog has closed: its owner takes it, and no window takes it from
// another one.
#include "platform/forms/DesktopDialogs.h"
#include "support/FakeDesktop.h"
#include "support/TestForm.h"
#include "support/TestMain.h"

#include <QMessageBox>
#include <QTimer>
#include <QWindow>

using namespace torvane;
using namespace Qt::StringLiterals;

class FormFocusTest : public QObject {
    Q_OBJECT

    // A window, its owner, what it owns itself, and one of somebody else.
    struct World : FakeDesktop {
        TestForm top{runtime};
        TestForm opener{runtime};
        TestForm closed{runtime};
        TestForm other{runtime};
    };
    std::unique_ptr<World> world;

    static bool hasFocus(const Form& form) { return QGuiApplication::focusWindow() == form.windowHandle(); }
    static void serveEvents() {
        for (int round = 0; round < 5; ++round) QCoreApplication::processEvents();
    }
    // The window manager needs a moment to move the focus of a closed window: until then this one has it.
    void closeOwned() const {
        QTRY_VERIFY(hasFocus(world->closed));
        world->closed.Hide();
        world->opener.takeFocusOfClosed();
        serveEvents();
        QVERIFY(hasFocus(world->closed));
    }

private slots:
    void init() {
        world = std::make_unique<World>();
        world->top.Show();
        world->opener.Show(&world->top);
        world->closed.Show(&world->opener);
        QTRY_VERIFY(hasFocus(world->closed));
    }
    void cleanup() { world.reset(); }

    void a_window_takes_the_focus_at_once_if_the_closed_one_has_lost_it() {
        world->closed.Hide();
        world->other.Show();
        QTRY_VERIFY(hasFocus(world->other));
        world->opener.takeFocusOfClosed();
        QTRY_VERIFY(hasFocus(world->opener));
    }
    void as_long_as_the_closed_one_seems_to_have_it_the_window_waits() { closeOwned(); }
    void it_takes_the_focus_if_nobody_or_its_owner_has_got_it_data() {
        QTest::addColumn<bool>("isOwner");
        QTest::newRow("nobody") << false;
        QTest::newRow("owner") << true;
    }
    void it_takes_the_focus_if_nobody_or_its_owner_has_got_it() {
        QFETCH(bool, isOwner);
        closeOwned();
        emit qGuiApp->focusWindowChanged(isOwner ? world->top.windowHandle() : nullptr);
        QTRY_VERIFY(hasFocus(world->opener));
    }
    void it_leaves_the_focus_to_any_other_window_that_has_got_it() {
        closeOwned();
        world->other.Show();
        QTRY_VERIFY(hasFocus(world->other));
        serveEvents();
        QVERIFY(hasFocus(world->other));
    }
    void it_waits_for_the_next_change_of_the_focus_and_no_other() {
        closeOwned();
        world->other.Show();
        QTRY_VERIFY(hasFocus(world->other));
        emit qGuiApp->focusWindowChanged(nullptr);
        serveEvents();
        QVERIFY(hasFocus(world->other));
    }
    void a_hidden_window_takes_no_focus() {
        world->closed.Hide();
        world->opener.Hide();
        world->other.Show();
        QTRY_VERIFY(hasFocus(world->other));
        world->opener.takeFocusOfClosed();
        serveEvents();
        QVERIFY(hasFocus(world->other));
    }
    void a_window_of_the_task_bar_leaves_the_focus_to_the_window_manager() {
        FormDesign design = TestForm::plain;
        design.inTaskBar = true;
        TestForm inTaskBar(world->runtime, design);
        inTaskBar.Show();
        world->other.Show();
        QTRY_VERIFY(hasFocus(world->other));
        inTaskBar.takeFocusOfClosed();
        serveEvents();
        QVERIFY(hasFocus(world->other));
    }
    void a_box_belongs_to_the_window_that_asks_which_has_the_focus_after_it() {
        QTRY_COMPARE(QApplication::activeWindow(), &world->closed);
        const QWindow* owner = nullptr;
        QTimer::singleShot(0, this, [&] {
            owner = QApplication::activeModalWidget()->windowHandle()->transientParent();
            qobject_cast<QMessageBox*>(QApplication::activeModalWidget())->accept();
        });
        DesktopMessageBoxes().MsgBox(u"text"_s);
        QCOMPARE(owner, world->closed.windowHandle());
        QTRY_VERIFY(hasFocus(world->closed));
    }
    void a_file_dialog_belongs_to_the_window_that_asks_which_has_the_focus_after_it() {
        QTRY_COMPARE(QApplication::activeWindow(), &world->closed);
        const QWindow* owner = nullptr;
        QTimer::singleShot(0, this, [&] {
            owner = QApplication::activeModalWidget()->windowHandle()->transientParent();
            qobject_cast<QDialog*>(QApplication::activeModalWidget())->reject();
        });
        DesktopFileDialogs().showSave({.title = u"text"_s, .filter = {}, .fileName = {}});
        QCOMPARE(owner, world->closed.windowHandle());
        QTRY_VERIFY(hasFocus(world->closed));
    }
};

TORVANE_TEST(FormFocusTest)
#include "FormFocusTest.moc"
