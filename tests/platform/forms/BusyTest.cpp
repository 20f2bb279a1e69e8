// SPDX-License-Identifier: MIT
// Work that serves events: once at a time, and ended early by whoever closes the window.
#include "platform/forms/Busy.h"
#include "support/FakeWorld.h"
#include "support/TestForm.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QTimer>

using namespace torvane;

class BusyTest : public QObject {
    Q_OBJECT

    FakeWorld world;

private slots:
    void work_is_on_while_it_runs_and_not_afterwards() {
        TestForm form(world.runtime);
        Busy busy(form);
        QVERIFY(!busy.isOn());
        QVERIFY(busy.run([&] { QVERIFY(busy.isOn()); }));
        QVERIFY(!busy.isOn());
    }
    void a_second_piece_of_work_is_refused_while_one_runs() {
        TestForm form(world.runtime);
        Busy busy(form);
        bool hasSecondRun = false;
        busy.run([&] { QVERIFY(!busy.run([&] { hasSecondRun = true; })); });
        QVERIFY(!hasSecondRun);
        QVERIFY(busy.run([] {}));
    }
    void a_failure_ends_the_work_and_is_handed_on() {
        TestForm form(world.runtime);
        Busy busy(form);
        QVERIFY_THROWS_EXCEPTION(RuntimeFailure,
                                 busy.run([] { throw RuntimeFailure(RuntimeFailure::diskFull); }));
        QVERIFY(!busy.isOn());
    }
    void the_window_lives_to_the_end_of_the_work() {
        QPointer<TestForm> form = new TestForm(world.runtime);
        Busy busy(*form);
        busy.run([&] {
            form->goWhenUnused();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QVERIFY(!form.isNull());
        });
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(form.isNull());
    }
    void work_is_asked_to_end_by_who_closes_the_window_meanwhile() {
        TestForm form(world.runtime);
        Busy busy(form);
        QVERIFY(busy.goesOn());
        QTimer::singleShot(0, &form, [&] { busy.askToClose(); });
        QVERIFY(!busy.goesOn());
        QVERIFY(busy.isAskedToClose());
        busy.stayOpen();
        QVERIFY(busy.goesOn());
    }
    void a_pause_ends_at_once_when_the_window_is_to_close() {
        TestForm form(world.runtime);
        Busy busy(form);
        QElapsedTimer clock;
        clock.start();
        QTimer::singleShot(0, &form, [&] { busy.askToClose(); });
        busy.pause(60000);
        busy.pause(60000);
        QVERIFY(clock.elapsed() < 30000);
    }
    void a_pause_serves_events_for_its_time() {
        TestForm form(world.runtime);
        Busy busy(form);
        int served = 0;
        QTimer::singleShot(0, &form, [&] { ++served; });
        QElapsedTimer clock;
        clock.start();
        busy.pause(20);
        QCOMPARE(served, 1);
        QVERIFY(clock.elapsed() >= 19);
    }
};

TORVANE_TEST(BusyTest)
#include "BusyTest.moc"
