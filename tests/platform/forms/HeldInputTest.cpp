// SPDX-License-Identifier: MIT
// What becomes of input that is held back.
#include "platform/forms/HeldInput.h"
#include "platform/forms/Label.h"
#include "support/FakeDesktop.h"
#include "support/TestForm.h"
#include "support/TestMain.h"

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
