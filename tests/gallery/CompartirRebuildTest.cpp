// SPDX-License-Identifier: MIT
// Deleting in the gallery asks, and then rebuilds the window in steps: what the user sees between them, and
// what becomes of a window that is closed meanwhile.
#include "support/OpenedGallery.h"
#include "support/TestMain.h"

#include <QPointer>

using namespace torvane;
using namespace Qt::StringLiterals;

class CompartirRebuildTest : public OpenedGallery {
    Q_OBJECT

    // A user who does something else before the answer.
    struct BusyUser : FakeMessages {
        std::function<void()> beforeAnswer;

        int MsgBox(const QString& text, int flags, const QString& title) override {
            if (const auto act = std::exchange(beforeAnswer, nullptr)) act();
            return FakeMessages::MsgBox(text, flags, title);
        }
    };
    std::unique_ptr<BusyUser> user;
    std::unique_ptr<Runtime> runtime;

    // Three pictures, of which the second is chosen. Gives the window.
    Compartir* openThree() {
        for (const char* name : {"a.bmp", "b.bmp", "c.bmp"}) picture(QLatin1String(name));
        opened->program = std::make_unique<Program>(*runtime, opened->world.appPath());
        opened->program->start();
        if (!QTest::qWaitForWindowExposed(&main())) qFatal("no main window");
        clickGallery();
        chooseRow(1);
        return &window();
    }
    void deleteCurrent() {
        user->answer = MsgBoxFlags::answerYes;
        click(window().ChameleonButton10);
    }
    // Has the program do something the next time that it serves events after the question.
    void onceServed(const std::function<void()>& act) {
        user->beforeAnswer = [act] { QTimer::singleShot(0, qApp, act); };
    }
    void expectClosedForGood() {
        collectGone();
        QCoreApplication::processEvents();
        QVERIFY(loaded<Compartir>() == nullptr);
        QVERIFY(main().isVisible());
        QCOMPARE(user->boxes.size(), 1);
        QCOMPARE(opened->world.ends, 0);
    }

private slots:
    void init() {
        start();
        user = std::make_unique<BusyUser>();
        auto& world = opened->world;
        runtime.reset(new Runtime{*user, world.dialogs, world.browser, world.processes, world.printer,
                                  world.settings, [&world] { ++world.ends; }});
    }
    void cleanup() {
        end();
        runtime.reset();
        user.reset();
    }

    void a_window_that_is_closed_while_it_asks_deletes_nothing() {
        Compartir* gallery = openThree();
        user->beforeAnswer = [gallery] { gallery->Unload(); };
        deleteCurrent();
        QCOMPARE(files(), QStringList({u"a.bmp"_s, u"b.bmp"_s, u"c.bmp"_s}));
        expectClosedForGood();
    }
    void the_list_is_cleared_and_then_shows_what_is_left() {
        const QPointer<Compartir> gallery = openThree();
        QList<int> counts;
        onceServed([&] {
            counts += gallery->Snap.rowCount();
            QTimer::singleShot(0, gallery.data(), [&] { counts += gallery->Snap.rowCount(); });
        });
        deleteCurrent();
        QCOMPARE(counts, QList<int>({0, 2}));
        QVERIFY(&window() != gallery);
    }
    void a_window_that_is_closed_while_the_list_is_clear_stays_closed() {
        const QPointer<Compartir> gallery = openThree();
        onceServed([&] {
            gallery->Unload();
            // Nobody reads the folder any more: nothing is reported about it.
            opened->world.setSetting("Capturas", opened->world.appPath() + u"\\nowhere"_s);
        });
        deleteCurrent();
        QCOMPARE(files(), QStringList({u"a.bmp"_s, u"c.bmp"_s}));
        expectClosedForGood();
    }
    void a_window_that_is_closed_when_it_is_filled_again_stays_closed() {
        const QPointer<Compartir> gallery = openThree();
        onceServed([&] { QTimer::singleShot(0, gallery.data(), [&] { gallery->Unload(); }); });
        deleteCurrent();
        expectClosedForGood();
    }
};

TORVANE_TEST(CompartirRebuildTest)
#include "CompartirRebuildTest.moc"
