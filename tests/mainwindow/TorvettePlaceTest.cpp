// SPDX-License-Identifier: MIT
// Where the compact window is: corner, drag and snaps, fold and pin. On one screen of 800 by 800 pixels.
#include "platform/forms/Screen.h"
#include "support/OpenedCompact.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class TorvettePlaceTest : public QObject {
    Q_OBJECT

    std::unique_ptr<OpenedCompact> opened;
    Torvette& window() const { return opened->compact(); }
    int screenWidth() const { return Screen::geometry().width() * twipsPerPixel; }
    int screenHeight() const { return Screen::geometry().height() * twipsPerPixel; }
    void openWith(const char* key, const QString& value) {
        opened->world.setSetting(key, value);
        opened->games(1);
        opened->openCompact();
    }
    bool isOnTop() const { return window().windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint); }
    // Drags the window by its strip from one place to another, in twips that are whole pixels.
    void drag(QPoint from, QPoint to) const {
        window().moveTo(from.x(), from.y());
        const QPoint hold(100, 1);
        const QPoint by = (to - from) / twipsPerPixel;
        QTest::mousePress(window().windowHandle(), Qt::LeftButton, {}, hold);
        QTest::mouseMove(window().windowHandle(), hold + by);
        QCOMPARE(QPoint(window().Left(), window().Top()), to);
        QTest::mouseRelease(window().windowHandle(), Qt::LeftButton, {}, hold);
    }

private slots:
    void init() { opened = std::make_unique<OpenedCompact>(); }
    void cleanup() { opened.reset(); }

    // The corner
    void without_a_setting_it_is_in_the_upper_right_corner() {
        opened->games(1);
        opened->openCompact();
        QCOMPARE(window().Left(), screenWidth() - 4500);
        QCOMPARE(window().Top(), 0);
    }
    void the_setting_chooses_the_corner() {
        openWith("Mini", u"0"_s);
        QCOMPARE(QPoint(window().Left(), window().Top()), QPoint(0, 0));
        click(window().chameleonButton3);
        opened->world.setSetting("Mini", u"1"_s);
        click(opened->main().ChameleonButton12);
        QCOMPARE(QPoint(window().Left(), window().Top()), QPoint(screenWidth() - 4500, 0));
    }
    void any_other_number_leaves_the_place_to_the_desktop() {
        openWith("Mini", u"2"_s);
        QVERIFY(!window().testAttribute(Qt::WA_Moved));
    }
    void the_next_load_returns_to_the_corner() {
        openWith("Mini", u"0"_s);
        drag({0, 0}, {3000, 4500});
        click(window().chameleonButton3);
        click(opened->main().ChameleonButton12);
        QCOMPARE(window().pos(), QPoint(0, 0));
        QCOMPARE(opened->world.setting("Mini"), u"0"_s);
    }

    // The drag
    void let_go_far_from_the_edges_it_stays() {
        openWith("Mini", u"0"_s);
        drag({3000, 3000}, {4500, 5250});
        QCOMPARE(QPoint(window().Left(), window().Top()), QPoint(4500, 5250));
    }
    void near_an_edge_it_snaps_data() {
        QTest::addColumn<QPoint>("letGo");
        QTest::addColumn<QPoint>("lands");
        const int right = 800 * 15 - 4500; // of a window at the right edge
        const int bottom = 800 * 15;
        QTest::newRow("left") << QPoint(150, 3000) << QPoint(0, 3000);
        QTest::newRow("left, last") << QPoint(195, 3000) << QPoint(0, 3000);
        QTest::newRow("left, not yet") << QPoint(210, 3000) << QPoint(210, 3000);
        QTest::newRow("far out to the left") << QPoint(-3000, 3000) << QPoint(0, 3000);
        QTest::newRow("right") << QPoint(right - 150, 3000) << QPoint(right, 3000);
        QTest::newRow("right, last") << QPoint(right - 195, 3000) << QPoint(right, 3000);
        QTest::newRow("right, not yet") << QPoint(right - 210, 3000) << QPoint(right - 210, 3000);
        QTest::newRow("far out to the right") << QPoint(right + 3000, 3000) << QPoint(right, 3000);
        QTest::newRow("top") << QPoint(3000, 105) << QPoint(3000, 0);
        QTest::newRow("top, last") << QPoint(3000, 195) << QPoint(3000, 0);
        QTest::newRow("top, not yet") << QPoint(3000, 210) << QPoint(3000, 210);
        QTest::newRow("above") << QPoint(3000, -3000) << QPoint(3000, 0);
        // 800 twips are 53.3 pixels.
        QTest::newRow("bottom") << QPoint(3000, bottom - 390) << QPoint(3000, bottom - 795);
        QTest::newRow("bottom, not yet") << QPoint(3000, bottom - 405) << QPoint(3000, bottom - 405);
        QTest::newRow("below") << QPoint(3000, bottom + 3000) << QPoint(3000, bottom - 795);
        QTest::newRow("upper left corner") << QPoint(150, 150) << QPoint(0, 0);
        QTest::newRow("lower right corner") << QPoint(right, bottom) << QPoint(right, bottom - 795);
    }
    void near_an_edge_it_snaps() {
        QFETCH(QPoint, letGo);
        QFETCH(QPoint, lands);
        QCOMPARE(Screen::geometry().size(), QSize(800, 800));
        openWith("Mini", u"0"_s);
        for (const bool isOpen : {false, true}) {
            if (isOpen) click(window().ChameleonButton4);
            drag({3000, 3000}, letGo);
            QCOMPARE(QPoint(window().Left(), window().Top()), lands);
        }
    }
    void the_name_and_the_data_are_part_of_the_strip_and_the_buttons_are_not() {
        openWith("Mini", u"0"_s);
        click(window().ChameleonButton4);
        for (const Label* label : {&window().Label1, &window().Label3, &window().Label4, &window().Label5,
                                   &window().Label6, &window().Label7}) {
            window().moveTo(3000, 3000);
            const QPoint hold = label->geometry().center();
            QTest::mousePress(window().windowHandle(), Qt::LeftButton, {}, hold);
            QTest::mouseMove(window().windowHandle(), hold + QPoint(20, 10));
            QTest::mouseRelease(window().windowHandle(), Qt::LeftButton, {}, hold);
            QCOMPARE(window().pos(), QPoint(220, 210));
        }
        const QPoint hold = window().chameleonButton1.geometry().center();
        QTest::mousePress(window().windowHandle(), Qt::LeftButton, {}, hold);
        QTest::mouseMove(window().windowHandle(), hold + QPoint(50, 10));
        QTest::mouseRelease(window().windowHandle(), Qt::LeftButton, {}, hold + QPoint(50, 10));
        QCOMPARE(window().pos(), QPoint(220, 210));
    }

    // Fold
    void the_fold_buttons_change_the_height_and_give_way_to_each_other() {
        openWith("Mini", u"0"_s);
        QCOMPARE(window().size(), QSize(300, 345 / 15));
        click(window().ChameleonButton4);
        QCOMPARE(window().size(), QSize(300, 2010 / 15));
        QVERIFY(isSeen(window().ChameleonButton10) && !isSeen(window().ChameleonButton4));
        click(window().ChameleonButton10);
        QCOMPARE(window().size(), QSize(300, 345 / 15));
        QVERIFY(isSeen(window().ChameleonButton4) && !isSeen(window().ChameleonButton10));
        QCOMPARE(window().pos(), QPoint(0, 0));
    }
    void the_focus_goes_from_one_fold_button_to_the_other() {
        openWith("Mini", u"0"_s);
        window().ChameleonButton4.setFocus();
        opened->press(Qt::Key_Space);
        QTest::keyClick(&window().ChameleonButton4, Qt::Key_Space);
        QVERIFY(window().ChameleonButton10.hasFocus());
        QTest::keyClick(&window().ChameleonButton10, Qt::Key_Space);
        QVERIFY(window().ChameleonButton4.hasFocus());
        QCOMPARE(window().height(), 23);
    }
    void no_key_leads_to_a_button_that_is_folded_in() {
        openWith("Mini", u"0"_s);
        const auto visited = [this] {
            QSet<QString> names;
            for (int i = 0; i < 20; ++i) {
                opened->press(Qt::Key_Tab);
                if (window().focusWidget() != nullptr) names += window().focusWidget()->objectName();
            }
            return names;
        };
        const QSet<QString> strip{u"Edit_Menu"_s, u"chameleonButton1"_s, u"chameleonButton2"_s,
                                  u"chameleonButton3"_s, u"ChameleonButton4"_s};
        QCOMPARE(visited(), strip);
        click(window().ChameleonButton4);
        const QSet<QString> panel = visited() - strip;
        QVERIFY(panel.contains(u"ChameleonButton9"_s) && panel.contains(u"ChameleonButton10"_s));
    }

    // Pin
    void one_of_the_setting_pins_it() {
        openWith("OnTop", u"1"_s);
        QVERIFY(isOnTop());
        click(window().ChameleonButton4);
        QVERIFY(isSeen(window().ChameleonButton7) && !isSeen(window().ChameleonButton9));
    }
    void anything_else_does_not_data() {
        QTest::addColumn<QString>("value");
        for (const char* value : {"0", "2", "-1"}) QTest::newRow(value) << QString::fromLatin1(value);
    }
    void anything_else_does_not() {
        QFETCH(QString, value);
        openWith("OnTop", value);
        QVERIFY(!isOnTop());
        click(window().ChameleonButton4);
        QVERIFY(isSeen(window().ChameleonButton9) && !isSeen(window().ChameleonButton7));
    }
    void the_pin_buttons_pin_until_the_next_load_and_change_no_setting() {
        openWith("OnTop", u"0"_s);
        click(window().ChameleonButton4);
        const QRect place = window().geometry();
        click(window().ChameleonButton9);
        QVERIFY(isOnTop() && isSeen(window().ChameleonButton7) && !isSeen(window().ChameleonButton9));
        QCOMPARE(window().geometry(), place);
        click(window().ChameleonButton7);
        QVERIFY(!isOnTop() && isSeen(window().ChameleonButton9) && !isSeen(window().ChameleonButton7));
        click(window().ChameleonButton9);
        click(window().chameleonButton3);
        QCOMPARE(opened->world.setting("OnTop"), u"0"_s);
        click(opened->main().ChameleonButton12);
        QVERIFY(!isOnTop());
    }
};

TORVANE_TEST(TorvettePlaceTest)
#include "TorvettePlaceTest.moc"
