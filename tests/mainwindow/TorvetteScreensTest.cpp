// SPDX-License-Identifier: MIT
// The compact window on a desktop of three screens: one at the origin, one to the right of it and lower, and
// a third to the left that is smaller than the window.
#include "platform/forms/Screen.h"
#include "support/OpenedCompact.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class TorvetteScreensTest : public QObject {
    Q_OBJECT

    std::unique_ptr<OpenedCompact> opened;
    Torvette& window() const { return opened->compact(); }
    void openOn(QPoint mainWindow, const char* corner) {
        opened->world.setSetting("Mini", QString::fromLatin1(corner));
        opened->games(1);
        opened->open();
        opened->main().moveTo(mainWindow.x() * twipsPerPixel, mainWindow.y() * twipsPerPixel);
        click(opened->main().ChameleonButton12);
        opened->awaitCompact();
    }
    void letGoAt(QPoint place) const {
        window().moveTo(place.x() * twipsPerPixel, place.y() * twipsPerPixel);
        const QPoint hold(100, 1);
        QTest::mousePress(window().windowHandle(), Qt::LeftButton, {}, hold);
        QTest::mouseRelease(window().windowHandle(), Qt::LeftButton, {}, hold);
    }

public:
    static void initMain() {
        static QTemporaryFile screens;
        if (!screens.open()) qFatal("no file");
        screens.write(R"({"screens": [
            {"name": "first", "x": 0, "y": 0, "width": 1000, "height": 800, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1},
            {"name": "right", "x": 1000, "y": 200, "width": 1200, "height": 900, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1},
            {"name": "small", "x": -200, "y": 0, "width": 200, "height": 100, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}
        ]})");
        screens.close();
        qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screens.fileName().toUtf8());
    }

private slots:
    void initTestCase() { QCOMPARE(QGuiApplication::screens().size(), 3); }
    void init() { opened = std::make_unique<OpenedCompact>(); }
    void cleanup() { opened.reset(); }

    void a_window_without_a_place_belongs_to_the_primary_screen() {
        const QWidget fresh;
        QCOMPARE(Screen::geometryOf(fresh), QRect(0, 0, 1000, 800));
    }
    void the_middle_of_a_window_decides_and_that_of_a_hidden_one_too() {
        QWidget moved;
        moved.setGeometry(800, 300, 300, 100);
        QCOMPARE(Screen::geometryOf(moved), QRect(0, 0, 1000, 800));
        moved.move(900, 300);
        QCOMPARE(Screen::geometryOf(moved), QRect(1000, 200, 1200, 900));
        moved.show();
        QCOMPARE(Screen::geometryOf(moved), QRect(1000, 200, 1200, 900));
        moved.hide();
        QCOMPARE(Screen::geometryOf(moved), QRect(1000, 200, 1200, 900));
    }
    void its_corner_is_one_of_the_main_windows_screen() {
        openOn({1300, 400}, "1");
        QCOMPARE(window().pos(), QPoint(2200 - 300, 200));
        click(window().chameleonButton3);
        opened->world.setSetting("Mini", u"0"_s);
        click(opened->main().ChameleonButton12);
        QCOMPARE(window().pos(), QPoint(1000, 200));
    }
    void it_snaps_to_the_edges_of_the_screen_that_it_is_on_data() {
        QTest::addColumn<QPoint>("letGo");
        QTest::addColumn<QPoint>("lands");
        QTest::newRow("right screen, left") << QPoint(1010, 500) << QPoint(1000, 500);
        QTest::newRow("right screen, right") << QPoint(1895, 500) << QPoint(1900, 500);
        QTest::newRow("right screen, top") << QPoint(1400, 210) << QPoint(1400, 200);
        QTest::newRow("right screen, bottom") << QPoint(1400, 1080) << QPoint(1400, 1100 - 53);
        QTest::newRow("right screen, inside") << QPoint(1400, 800) << QPoint(1400, 800);
        QTest::newRow("first screen, right") << QPoint(695, 500) << QPoint(700, 500);
        QTest::newRow("astride, more on the first") << QPoint(840, 500) << QPoint(700, 500);
        QTest::newRow("astride, more on the right") << QPoint(860, 500) << QPoint(1000, 500);
        // Left and right are looked at in this order, so that the right edge counts.
        QTest::newRow("smaller screen") << QPoint(-290, 30) << QPoint(-300, 30);
    }
    void it_snaps_to_the_edges_of_the_screen_that_it_is_on() {
        QFETCH(QPoint, letGo);
        QFETCH(QPoint, lands);
        openOn({100, 100}, "0");
        letGoAt(letGo);
        QCOMPARE(window().pos(), lands);
    }
    void on_a_screen_smaller_than_the_window_its_buttons_at_the_right_stay_in_reach() {
        openOn({-180, -200}, "1");
        QCOMPARE(Screen::geometryOf(opened->main()), QRect(0, 0, 1000, 800));
        letGoAt({-250, 5});
        QCOMPARE(window().geometry().right(), -1);
        QCOMPARE(window().y(), 0);
        click(window().ChameleonButton4);
        QCOMPARE(window().height(), 134);
        click(window().chameleonButton3);
        QVERIFY(opened->main().isVisible());
    }
};

TORVANE_TEST(TorvetteScreensTest)
#include "TorvetteScreensTest.moc"
