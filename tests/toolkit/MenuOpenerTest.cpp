// SPDX-License-Identifier: MIT
// The gestures that ask for a window's menu.
#include "toolkit/MenuOpener.h"
#include "platform/forms/Panel.h"
#include "platform/forms/TextBox.h"
#include "support/FakeDesktop.h"
#include "support/TestForm.h"
#include "support/TestMain.h"
#include "toolkit/DragStrip.h"

#include <QContextMenuEvent>
#include <QMenu>

using namespace torvane;

namespace {
struct OpenerForm : TestForm {
    using TestForm::TestForm;

    Label strip{*this, "strip", {10, 5, 200, 20}, {"strip"}};
    Label other{*this, "other", {10, 60, 200, 20}, {"other"}};
    TextBox field{*this, "field", {10, 100, 200, 20}, {}};
    Panel panel{*this, "panel", {10, 130, 200, 20}, {}};
    DragStrip drag{*this, strip};
    MenuOpener opener{*this, strip};
};
} // namespace

class MenuOpenerTest : public QObject {
    Q_OBJECT

    std::unique_ptr<FakeDesktop> desktop;
    std::unique_ptr<OpenerForm> form;
    std::unique_ptr<QSignalSpy> wanted;
    QPoint lastPlace() const { return wanted->last()[0].toPoint(); }
    QPoint placeForKeys() const { return form->mapToGlobal(QPoint(10, 25)); }
    void press(Qt::MouseButton button, QPoint place) const {
        QTest::mousePress(form->windowHandle(), button, {}, place);
    }
    void release(Qt::MouseButton button, QPoint place) const {
        QTest::mouseRelease(form->windowHandle(), button, {}, place);
    }
    void keyboardRequest() const {
        QWidget* focus = QApplication::focusWidget();
        QContextMenuEvent request(QContextMenuEvent::Keyboard, {}, {});
        QCoreApplication::sendEvent(focus != nullptr ? focus : form.get(), &request);
    }

private slots:
    void init() {
        desktop = std::make_unique<FakeDesktop>();
        form = std::make_unique<OpenerForm>(desktop->runtime);
        wanted = std::make_unique<QSignalSpy>(&form->opener, &MenuOpener::wanted);
        QVERIFY(form->appear());
        if (QWidget* focus = QApplication::focusWidget()) focus->clearFocus();
    }
    void cleanup() {
        form.reset();
        desktop.reset();
    }

    void the_right_button_on_the_strip_asks_for_the_menu_at_the_pointer() {
        press(Qt::RightButton, {50, 12});
        QCOMPARE(wanted->size(), 1);
        QCOMPARE(lastPlace(), form->mapToGlobal(QPoint(50, 12)));
    }
    void the_right_button_elsewhere_and_the_other_buttons_do_not() {
        press(Qt::RightButton, {50, 70});
        release(Qt::RightButton, {50, 70});
        for (const Qt::MouseButton button : {Qt::LeftButton, Qt::MiddleButton}) {
            press(button, {50, 12});
            release(button, {50, 12});
        }
        QCOMPARE(wanted->size(), 0);
    }
    void the_right_button_moves_no_window() {
        const QPoint before = form->pos();
        press(Qt::RightButton, {50, 12});
        QTest::mouseMove(form->windowHandle(), {90, 40});
        release(Qt::RightButton, {90, 40});
        QCOMPARE(form->pos(), before);
    }
    void in_the_middle_of_a_drag_the_right_button_does_nothing() {
        QSignalSpy dropped(&form->drag, &DragStrip::dropped);
        press(Qt::LeftButton, {50, 12});
        press(Qt::RightButton, {50, 12});
        release(Qt::RightButton, {50, 12});
        QCOMPARE(wanted->size(), 0);
        release(Qt::LeftButton, {50, 12});
        QCOMPARE(dropped.size(), 1);
    }
    void the_menu_key_asks_for_the_menu_below_the_strip() {
        keyboardRequest();
        QCOMPARE(wanted->size(), 1);
        QCOMPARE(lastPlace(), placeForKeys());
    }
    void shift_and_f10_are_the_menu_key() {
        QTest::keyClick(form.get(), Qt::Key_F10);
        QTest::keyClick(form.get(), Qt::Key_F10, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(wanted->size(), 0);
        QTest::keyClick(form->windowHandle(), Qt::Key_F10, Qt::ShiftModifier);
        QCOMPARE(wanted->size(), 1);
        QCOMPARE(lastPlace(), placeForKeys());
    }
    void both_keys_come_through_a_panel_which_keeps_all_other_keys_data() {
        QTest::addColumn<bool>("isShiftF10");
        QTest::newRow("menu key") << false;
        QTest::newRow("Shift+F10") << true;
    }
    void both_keys_come_through_a_panel_which_keeps_all_other_keys() {
        QFETCH(bool, isShiftF10);
        form->panel.setFocusPolicy(Qt::StrongFocus);
        form->panel.setFocus();
        QVERIFY(form->panel.hasFocus());
        if (isShiftF10) {
            QTest::keyClick(form->windowHandle(), Qt::Key_F10, Qt::ShiftModifier);
        } else {
            keyboardRequest();
        }
        QCOMPARE(wanted->size(), 1);
    }
    void the_right_button_anywhere_in_the_window_is_no_menu_key() {
        QContextMenuEvent request(QContextMenuEvent::Mouse, {50, 70}, {});
        QCoreApplication::sendEvent(form.get(), &request);
        QCOMPARE(wanted->size(), 0);
    }
    void a_field_being_edited_keeps_the_keys_for_its_own_menu_data() {
        QTest::addColumn<bool>("isShiftF10");
        QTest::newRow("menu key") << false;
        QTest::newRow("Shift+F10") << true;
    }
    void a_field_being_edited_keeps_the_keys_for_its_own_menu() {
        QFETCH(bool, isShiftF10);
        form->field.setFocus();
        QVERIFY(QTest::qWaitForWindowActive(form.get()));
        if (isShiftF10) {
            QTest::keyClick(form->windowHandle(), Qt::Key_F10, Qt::ShiftModifier);
        } else {
            keyboardRequest();
        }
        QCOMPARE(wanted->size(), 0);
        auto* own = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QVERIFY(own != nullptr);
        own->close();
    }
    void a_window_that_takes_no_input_asks_for_no_menu() {
        form->setEnabled(false);
        press(Qt::RightButton, {50, 12});
        keyboardRequest();
        QTest::keyClick(form->windowHandle(), Qt::Key_F10, Qt::ShiftModifier);
        QCOMPARE(wanted->size(), 0);
    }
};

TORVANE_TEST(MenuOpenerTest)
#include "MenuOpenerTest.moc"
