// SPDX-License-Identifier: MIT
// The life of a window that is closed while its own handlers run, and windows that have owners.
#include "app/Program.h"
#include "platform/forms/Label.h"
#include "support/FakeWorld.h"
#include "support/TestForm.h"
#include "support/TestMain.h"

#include <QPointer>
#include <QTimer>
#include <QWindow>

using namespace torvane;
using namespace Qt::StringLiterals;

namespace {
// A window whose handler serves events, and then writes to a member.
class Waiting : public TestForm {
    Q_OBJECT

public:
    static constexpr Window id = Window::MainFrm;

    explicit Waiting(const Services& services) : TestForm(services.runtime) {
        wire(button, &Label::Click, &Waiting::button_Click);
    }

    Label button{*this, "button", {0, 0, 50, 20}, {"button"}};
    std::function<void()> meanwhile = [] {};

private:
    void button_Click() {
        meanwhile();
        pumpEvents();
        pumpEvents();
        button.setCaption(u"still there"_s);
    }
};

// A window that unloads itself in its load.
class Refusing : public TestForm {
public:
    static constexpr Window id = Window::TorvMsg;

    explicit Refusing(const Services& services) : TestForm(services.runtime) {}
    void Load() { Unload(); }
    void take(const QStringList&) { QFAIL("nobody is there"); }
};
} // namespace

class FormLifeTest : public QObject {
    Q_OBJECT

    FakeWorld world;
    Program program{world.runtime, world.appPath()};
    QList<Window> gone;
    SlotContext context{program.services, [this](Window window) { gone.append(window); }};
    FormSlot<Waiting> slot{context};

    static void collectGone() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

private slots:
    void an_unloaded_window_is_deleted_by_the_event_loop() {
        const QPointer<Waiting> window = slot.load();
        window->Unload();
        QVERIFY(!slot.ifLoaded());
        QVERIFY(window->isUnloaded());
        collectGone();
        QVERIFY(window.isNull());
    }
    void the_owner_is_notified_of_an_unloaded_window() {
        gone.clear();
        slot.load()->Unload();
        QCOMPARE(gone, QList<Window>{Window::MainFrm});
    }
    void a_window_that_unloads_itself_in_its_load_is_null() {
        FormSlot<Refusing> refusing(context);
        QCOMPARE(refusing.load(), nullptr);
        QCOMPARE(refusing.ifLoaded(), nullptr);
        refusing.take({u"work"_s});
        collectGone();
    }
    void a_window_closed_in_its_own_handler_lives_until_the_handler_returns() {
        const QPointer<Waiting> window = slot.load();
        bool livedOn = false;
        window->meanwhile = [&] {
            QTimer::singleShot(0, window, [&] { window->Unload(); });
            pumpEvents();
            collectGone();
            livedOn = !window.isNull();
        };
        emit window->button.Click();
        QVERIFY(livedOn);
        collectGone();
        QVERIFY(window.isNull());
    }
    void the_slot_creates_a_new_window_while_the_old_one_still_runs() {
        Waiting& old = *slot.load();
        bool isAnother = false;
        old.meanwhile = [&] {
            old.Unload();
            isAnother = slot.load() != &old;
        };
        emit old.button.Click();
        QVERIFY(isAnother);
        slot.unload();
    }
    void holds_may_be_nested() {
        const QPointer<Waiting> window = slot.load();
        {
            const Form::Hold outer(*window);
            {
                const Form::Hold inner(*window);
                window->Unload();
            }
            collectGone();
            QVERIFY(!window.isNull());
        }
        collectGone();
        QVERIFY(window.isNull());
    }
    void a_window_waits_for_its_owner_and_is_above_it() {
        TestForm owner(world.runtime);
        TestForm owned(world.runtime);
        owned.Show(&owner);
        QVERIFY(!owned.isVisible());
        owner.Show();
        QVERIFY(owned.isVisible());
        QVERIFY(owned.windowHandle()->transientParent() != nullptr);
        QCOMPARE(owned.windowHandle()->transientParent(), owner.windowHandle());
    }
    void a_window_closed_before_its_owner_is_shown_never_appears() {
        TestForm owner(world.runtime);
        const QPointer<Waiting> window = slot.load();
        window->Show(&owner);
        window->Unload();
        owner.Show();
        QVERIFY(!window->isVisible());
        collectGone();
        QVERIFY(window.isNull());
    }
    void a_window_whose_owner_stays_away_appears_without_one_and_follows_it_later() {
        TestForm owner(world.runtime);
        TestForm owned(world.runtime);
        owned.Show(&owner);
        QTRY_VERIFY(owned.isVisible());
        QCOMPARE(owned.windowHandle()->transientParent(), nullptr);
        owner.Show();
        QVERIFY(owned.isVisible());
        QCOMPARE(owned.windowHandle()->transientParent(), owner.windowHandle());
    }
    void a_window_whose_owner_is_deleted_appears_all_the_same() {
        TestForm owned(world.runtime);
        {
            TestForm owner(world.runtime);
            owned.Show(&owner);
        }
        QTRY_VERIFY(owned.isVisible());
    }
    void a_window_that_was_hidden_meanwhile_does_not_appear_with_its_owner_data() {
        QTest::addColumn<bool>("appearsBefore");
        QTest::newRow("while it waits") << false;
        QTest::newRow("when it has appeared without the owner") << true;
    }
    void a_window_that_was_hidden_meanwhile_does_not_appear_with_its_owner() {
        QFETCH(bool, appearsBefore);
        TestForm owner(world.runtime);
        TestForm owned(world.runtime);
        owned.Show(&owner);
        if (appearsBefore) QTRY_VERIFY(owned.isVisible());
        owned.Hide();
        QTest::qWait(400); // longer than it waits for its owner
        QVERIFY(!owned.isVisible());
        owner.Show();
        QVERIFY(!owned.isVisible());
    }
    void a_window_that_was_unloaded_while_it_waits_does_not_appear() {
        TestForm owner(world.runtime);
        TestForm owned(world.runtime);
        owned.Show(&owner);
        owned.Unload();
        QTest::qWait(400); // longer than it waits for its owner
        owner.Show();
        QVERIFY(!owned.isVisible());
    }
    void a_window_that_got_another_owner_meanwhile_stays_with_that() {
        TestForm awaited(world.runtime);
        TestForm owner(world.runtime);
        TestForm owned(world.runtime);
        owner.Show();
        owned.Show(&awaited);
        owned.Show(&owner);
        awaited.Show();
        QCOMPARE(owned.windowHandle()->transientParent(), owner.windowHandle());
    }
    void a_window_may_get_another_owner() {
        TestForm old(world.runtime);
        TestForm next(world.runtime);
        TestForm owned(world.runtime);
        old.Show();
        next.Show();
        owned.Show(&old);
        owned.Show(&next);
        QVERIFY(owned.isVisible());
        QCOMPARE(owned.windowHandle()->transientParent(), next.windowHandle());
    }
};

TORVANE_TEST(FormLifeTest)
#include "FormLifeTest.moc"
