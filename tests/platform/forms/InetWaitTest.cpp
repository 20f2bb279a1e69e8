// SPDX-License-Identifier: MIT
// What goes on while a handler waits for a download, what is held back, and what ends the wait early.
#include "platform/forms/Label.h"
#include "support/InetFixture.h"
#include "support/TestMain.h"

#include <QMessageBox>
#include <QMimeData>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QToolTip>

using namespace torvane;
using namespace Qt::StringLiterals;

namespace {
constexpr auto cancelled = RuntimeFailure::Reason::cancelled;

struct WaitingForm : InetForm {
    using InetForm::InetForm;
    Label link{*this, "link", {10, 10, 100, 20}, {"Link"}};
    QStringList input;
    int paints = 0;
    int closeRequests = 0;

protected:
    void queryUnload() override {
        ++closeRequests;
        Unload();
    }
    void paintEvent(QPaintEvent* event) override {
        ++paints;
        Form::paintEvent(event);
    }
    void mousePressEvent(QMouseEvent*) override { input += u"press"_s; }
    void mouseReleaseEvent(QMouseEvent*) override { input += u"release"_s; }
    void wheelEvent(QWheelEvent*) override { input += u"wheel"_s; }
    void keyPressEvent(QKeyEvent* event) override { input += event->text(); }
};
} // namespace

class InetWaitTest : public QObject {
    Q_OBJECT

    FakeDesktop world;
    std::unique_ptr<WaitingForm> form;

    // A download during which something happens, after which the server answers.
    Fetched during(const std::function<void()>& event) {
        const WebServer server([&](QTcpSocket& client, const QByteArray&) {
            event();
            client.write(answerOf("body"));
            client.disconnectFromHost();
        });
        return fetched(form->down, server.address());
    }
    QWindow* window() const { return form->windowHandle(); }

private slots:
    void init() {
        form = std::make_unique<WaitingForm>(world.runtime);
        QVERIFY(form->appear());
    }
    void cleanup() { form.reset(); }

    void it_is_executing_while_it_waits_and_not_afterwards() {
        QVERIFY(!form->down.StillExecuting());
        bool isExecuting = false;
        during([&] { isExecuting = form->down.StillExecuting(); });
        QVERIFY(isExecuting);
        QVERIFY(!form->down.StillExecuting());
        fetched(form->down, u"http://127.0.0.1:1/"_s);
        QVERIFY(!form->down.StillExecuting());
    }
    void timers_and_painting_go_on() {
        int ticks = 0;
        QTimer timer;
        connect(&timer, &QTimer::timeout, &timer, [&] {
            ++ticks;
            form->update();
        });
        timer.start(5);
        const int paintsBefore = form->paints;
        const WebServer server([](QTcpSocket& client, const QByteArray&) {
            QTimer::singleShot(150, &client, [&client] { client.write(answerOf("body")); });
        });
        QCOMPARE(fetched(form->down, server.address()).body, "body");
        QVERIFY(ticks >= 3);
        QVERIFY(form->paints > paintsBefore);
    }

    void clicks_and_keys_arrive_after_the_end_in_their_order() {
        QStringList meanwhile;
        const Fetched result = during([&] {
            QTest::mouseClick(window(), Qt::LeftButton, {}, {200, 100});
            QTest::keyClick(window(), Qt::Key_A);
            QTest::mouseClick(form.get(), Qt::LeftButton, {}, {200, 100});
            meanwhile = form->input;
        });
        QCOMPARE(result.body, "body");
        QCOMPARE(meanwhile, QStringList());
        QCOMPARE(form->input, QStringList());
        QCoreApplication::processEvents();
        QCOMPARE(form->input, QStringList({u"press"_s, u"release"_s, u"a"_s, u"press"_s, u"release"_s}));
    }
    void a_press_by_an_assistive_tool_arrives_after_the_end() {
        const QSignalSpy clicks(&form->link, &Label::Click);
        during([&] {
            QAccessible::queryAccessibleInterface(&form->link)
                ->actionInterface()
                ->doAction(QAccessibleActionInterface::pressAction());
            QCoreApplication::processEvents();
        });
        QCOMPARE(clicks.size(), 0);
        QCoreApplication::processEvents();
        QCOMPARE(clicks.size(), 1);
    }
    void a_file_that_is_dropped_meanwhile_is_refused() {
        form->takeDrops();
        const QSignalSpy drops(form.get(), &Form::pathDropped);
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(world.folder.write(u"a.gb"_s, "x"))});
        bool isAccepted = true;
        during([&] {
            QDragEnterEvent enter({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, {});
            QCoreApplication::sendEvent(form.get(), &enter);
            QDropEvent drop({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, {});
            QCoreApplication::sendEvent(form.get(), &drop);
            isAccepted = enter.isAccepted() || drop.isAccepted();
        });
        QVERIFY(!isAccepted);
        QCoreApplication::processEvents();
        QCOMPARE(drops.size(), 0);
    }
    void a_box_that_opens_meanwhile_can_be_answered() {
        int answer = 0;
        const Fetched result = during([&] {
            QMessageBox box(QMessageBox::Question, u"?"_s, u"?"_s, QMessageBox::Yes | QMessageBox::No);
            QTimer::singleShot(0, &box, [&] {
                QVERIFY(QTest::qWaitForWindowExposed(&box));
                QWidget* no = box.button(QMessageBox::No);
                QTest::mouseClick(no, Qt::LeftButton);
            });
            answer = box.exec();
        });
        QCOMPARE(answer, int(QMessageBox::No));
        QCOMPARE(result.body, "body");
    }
    void focus_and_look_stay_as_they_are() {
        QWidget field(form.get());
        field.setFocusPolicy(Qt::StrongFocus);
        field.show();
        field.setFocus();
        const QImage before = imageOf(*form);
        QImage meanwhile;
        during([&] { meanwhile = imageOf(*form); });
        QCOMPARE(meanwhile, before);
        QVERIFY(field.hasFocus());
        QVERIFY(form->isEnabled());
    }

    void a_request_to_close_the_window_ends_the_download_and_is_asked_afterwards() {
        const Fetched result = during([&] {
            form->close();
            form->close();
        });
        QVERIFY(result.reason == cancelled);
        QVERIFY(form->isVisible());
        QCOMPARE(form->closeRequests, 0);
        QCoreApplication::processEvents();
        QCOMPARE(form->closeRequests, 1);
        QVERIFY(form->isUnloaded());
    }
    void so_does_a_request_to_close_another_window() {
        WaitingForm other(world.runtime);
        QVERIFY(other.appear());
        QVERIFY(during([&] { other.close(); }).reason == cancelled);
        QVERIFY(!other.isUnloaded());
        QCoreApplication::processEvents();
        QVERIFY(other.isUnloaded());
        QVERIFY(!form->isUnloaded());
    }
    void escape_ends_the_download_of_a_window_with_a_close_button_and_closes_it() {
        form->down.isClosedBy(form->link);
        const auto escape = [this] { QTest::keyClick(window(), Qt::Key_Escape); };
        QVERIFY(during(escape).reason == cancelled);
        QCoreApplication::processEvents();
        QCOMPARE(form->closeRequests, 1);
        QVERIFY(form->isUnloaded());
    }
    void escape_waits_like_any_key_without_a_close_button_or_in_another_window_data() {
        QTest::addColumn<bool>("hasCloser");
        QTest::newRow("without a close button") << false;
        QTest::newRow("in another window") << true;
    }
    void escape_waits_like_any_key_without_a_close_button_or_in_another_window() {
        QFETCH(bool, hasCloser);
        WaitingForm other(world.runtime);
        if (hasCloser) {
            form->down.isClosedBy(form->link);
            QVERIFY(other.appear());
            QVERIFY(QTest::qWaitForWindowActive(&other));
        }
        WaitingForm& active = hasCloser ? other : *form;
        QCOMPARE(during([&] { QTest::keyClick(active.windowHandle(), Qt::Key_Escape); }).body, "body");
        QCoreApplication::processEvents();
        QCOMPARE(active.input, QStringList{u"\x1b"_s});
        QCOMPARE(form->closeRequests + other.closeRequests, 0);
    }
    void a_tool_tip_may_close_meanwhile() {
        const Fetched result = during([&] {
            QToolTip::showText({5, 5}, u"tip"_s, form.get());
            for (QWidget* top : QApplication::topLevelWidgets()) {
                if (top->windowType() == Qt::ToolTip) top->close();
            }
        });
        QCOMPARE(result.body, "body");
    }
    void a_window_that_unloads_ends_the_download_and_stays_in_memory_until_then() {
        QPointer<WaitingForm> going = form.release();
        bool wasThere = false;
        const WebServer server([&](QTcpSocket&, const QByteArray&) {
            going->Unload();
            going->goWhenUnused();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            wasThere = !going.isNull();
        });
        QVERIFY(fetched(going->down, server.address()).reason == cancelled);
        QVERIFY(wasThere);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(going.isNull());
    }
    void the_end_of_the_program_ends_the_download() {
        Fetched result;
        QTimer::singleShot(0, form.get(), [&] { result = during([] { QCoreApplication::exit(); }); });
        QCoreApplication::exec();
        QCOMPARE(result.failure, int(RuntimeFailure::deviceError));
        QVERIFY(result.reason == cancelled);
    }
    void a_cancelled_download_does_not_spoil_the_next() {
        form->down.Cancel(); // without a download it does nothing
        const Fetched result = during([&] { form->down.Cancel(); });
        QCOMPARE(result.failure, int(RuntimeFailure::deviceError));
        QVERIFY(result.reason == cancelled);
        QCOMPARE(during([] {}).body, "body");
    }
    void nobody_is_bothered_with_a_cancelled_download() {
        const WebServer server([&](QTcpSocket&, const QByteArray&) { form->down.Cancel(); });
        bool hasGoneOn = false;
        const auto handler = [&] {
            form->down.OpenURL(server.address());
            hasGoneOn = true;
        };
        world.runtime.guarded(handler);
        world.runtime.reporting(handler);
        QCOMPARE(server.requests.size(), 2);
        QVERIFY(!hasGoneOn);
        QCOMPARE(world.messages.boxes.size(), 0);
        QCOMPARE(world.ends, 0);
    }
};

TORVANE_TEST(InetWaitTest)
#include "InetWaitTest.moc"
