// SPDX-License-Identifier: MIT
// The gallery from the entry of the menu: it replaces the window that is on screen, and that one comes back.
#include "support/OpenedGallery.h"
#include "support/TestMain.h"

#include <QAction>
#include <QMenu>

using namespace torvane;
using namespace Qt::StringLiterals;

class GalleryFromMenuTest : public OpenedGallery {
    Q_OBJECT

    Torvette& compact() const { return *loaded<Torvette>(); }
    void openFromMenu(bool isCompact) {
        picture(u"a.bmp"_s);
        picture(u"b.bmp"_s);
        opened->open();
        if (isCompact) opened->program->desk.go(Window::MainFrm, Window::Torvette);
        Menuing& menuing = *loaded<Menuing>();
        menuing.popup.popUp({});
        menuing.popup.shown().close();
        menuing.popup.shown().findChild<QAction*>(menuing.capturesgallery.objectName())->trigger();
        QTRY_VERIFY(loaded<Compartir>() != nullptr);
        QVERIFY(QTest::qWaitForWindowActive(loaded<Compartir>()));
        QVERIFY(!main().isVisible() && (!isCompact || !compact().isVisible()));
    }
    void deleteCurrent() {
        messages().answer = MsgBoxFlags::answerYes;
        click(window().ChameleonButton10);
    }

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    void the_main_window_comes_back() {
        openFromMenu(false);
        click(window().chameleonButton1);
        QVERIFY(loaded<Compartir>() == nullptr);
        QVERIFY(main().isVisible());
    }
    void the_compact_window_comes_back() {
        openFromMenu(true);
        click(window().chameleonButton1);
        QVERIFY(loaded<Compartir>() == nullptr);
        QVERIFY(compact().isVisible() && !main().isVisible());
    }
    void the_compact_window_comes_back_after_a_picture_was_deleted() {
        openFromMenu(true);
        deleteCurrent();
        QVERIFY(window().isVisible() && !compact().isVisible() && !main().isVisible());
        click(window().chameleonButton1);
        QVERIFY(compact().isVisible() && !main().isVisible());
    }
};

TORVANE_TEST(GalleryFromMenuTest)
#include "GalleryFromMenuTest.moc"
