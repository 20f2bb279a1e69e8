// SPDX-License-Identifier: MIT
// What becomes of input that is held back.
#include "platform/forms/HeldInput.h"
#include "platform/forms/Label.h"
#include "support/FakeDesktop.h"
#include "support/TestForm.h"
#include "support/TestMain.h"

#include <QDialog>
#include <QLineEdit>

using namespace torvane;

namespace {
struct ClickForm : TestForm {
    using TestForm::TestForm;
    Label target{*this, "target", {0, 0, 100, 100}, {"target"}};
    int closes = 0;

protected:
    void queryUnload() override { ++closes; }
};
} // namespace

class HeldInputTest : public QObject {
    Q_OBJECT

    std::unique_ptr<FakeDesktop> desktop;
    std::unique_ptr<ClickForm> form;
    std::unique_ptr<QSignalSpy> clicks;
    void click() const { QTest::mouseClick(form->windowHandle(), Qt::LeftButton, {}, {50, 50}); }

private slots:
    void init() {
        desktop = std::make_unique<FakeDesktop>();
        form = std::make_unique<ClickForm>(desktop->runtime);
        clicks = std::make_unique<QSignalSpy>(&form->target, &Label::Click);
        QVERIFY(form->appear());
    }
    void cleanup() {
        form.reset();
        desktop.reset();
    }

    void it_is_on_as_long_as_there_is_one() {
        QVERIFY(!HeldInput::isOn());
        {
            HeldInput outer;
            {
                HeldInput inner;
                QVERIFY(HeldInput::isOn());
            }
            QVERIFY(HeldInput::isOn());
        }
        QVERIFY(!HeldInput::isOn());
    }
    void clicks_come_when_it_goes() {
        {
            HeldInput held;
            click();
            QCOMPARE(clicks->size(), 0);
        }
        QCoreApplication::processEvents();
        QCOMPARE(clicks->size(), 1);
    }
    void forgotten_clicks_never_come_and_a_request_to_close_does() {
        {
            HeldInput held;
            click();
            QTest::keyClick(form->windowHandle(), Qt::Key_Return);
            form->windowHandle()->close();
            held.forget();
        }
        QCoreApplication::processEvents();
        QCOMPARE(clicks->size(), 0);
        QCOMPARE(form->closes, 1);
    }
    void the_first_request_to_close_is_the_only_one() {
        HeldInput held(&form->target);
        const QSignalSpy requests(&held, &HeldInput::closeRequested);
        QTest::keyClick(form->windowHandle(), Qt::Key_Escape);
        QTest::keyClick(form->windowHandle(), Qt::Key_Escape);
        form->close();
        QCOMPARE(requests.size(), 1);
    }
    void a_closer_that_is_hidden_closes_nothing() {
        form->target.hide();
        HeldInput held(&form->target);
        const QSignalSpy requests(&held, &HeldInput::closeRequested);
        QTest::keyClick(form->windowHandle(), Qt::Key_Escape);
        click();
        QCOMPARE(requests.size(), 0);
    }
    void a_press_on_the_closer_that_ends_elsewhere_is_over() {
        HeldInput held(&form->target);
        const QSignalSpy requests(&held, &HeldInput::closeRequested);
        const QPoint on(50, 50);
        const QPoint off(200, 150);
        QTest::mousePress(form->windowHandle(), Qt::LeftButton, {}, on);
        QTest::mouseRelease(form->windowHandle(), Qt::LeftButton, {}, off);
        QTest::mousePress(form->windowHandle(), Qt::LeftButton, {}, off);
        QTest::mouseRelease(form->windowHandle(), Qt::LeftButton, {}, on);
        QCOMPARE(requests.size(), 0);
        click();
        QCOMPARE(requests.size(), 1);
    }
    void a_box_that_was_open_before_gets_no_input_and_a_later_one_does() {
        QDialog before;
        before.setModal(true);
        QLineEdit field(&before);
        before.show();
        QVERIFY(QTest::qWaitForWindowActive(&before));
        {
            const HeldInput held;
            QTest::keyClick(before.windowHandle(), Qt::Key_A);
            QCOMPARE(field.text(), QString());
            QDialog later;
            later.setModal(true);
            QLineEdit laterField(&later);
            later.show();
            QVERIFY(QTest::qWaitForWindowActive(&later));
            QTest::keyClick(later.windowHandle(), Qt::Key_B);
            QCOMPARE(laterField.text(), QStringLiteral("b"));
        }
        QTRY_COMPARE(field.text(), QStringLiteral("a"));
    }
    void clicks_after_the_forgetting_come() {
        {
            HeldInput held;
            held.forget();
            click();
        }
        QCoreApplication::processEvents();
        QCOMPARE(clicks->size(), 1);
    }
};

TORVANE_TEST(HeldInputTest)
#include "HeldInputTest.moc"
