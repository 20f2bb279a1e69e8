// SPDX-License-Identifier: MIT
// Windows on a desktop of two screens: each opens where the user is at work, and stays on the screen that it
// is dragged to.
#include "art/ArtResources.h"
#include "platform/forms/Pictures.h"
#include "support/FakeDesktop.h"
#include "support/FakeScreens.h"
#include "support/TestForm.h"
#include "support/TestMain.h"
#include "toolkit/DragStrip.h"
#include "toolkit/chameleonButton.h"

using namespace torvane;

class SecondScreenTest : public QObject {
    Q_OBJECT

    FakeDesktop desktop;
    std::unique_ptr<TestForm> form;

    static constexpr QPoint centre{(1000 - 300) / 2, (800 - 200) / 2};
    static constexpr QPoint secondScreen{1000, 0};

    bool workAt(QPoint place) const {
        form->moveTo(place.x() * twipsPerPixel, place.y() * twipsPerPixel);
        form->Show();
        return QTest::qWaitForWindowActive(form.get());
    }
    QPoint placeOfNext() {
        TestForm next(desktop.runtime);
        next.Show();
        return next.pos();
    }

public:
    static void initMain() { useScreens({1.0, 2.0}); }

private slots:
    void initTestCase() { initArtResources(); }
    void init() {
        desktop.runtime.lastActive = nullptr;
        form = std::make_unique<TestForm>(desktop.runtime);
    }
    void cleanup() { form.reset(); }

    void the_first_window_opens_on_the_primary_screen() { QCOMPARE(placeOfNext(), centre); }
    void a_window_opens_on_the_screen_of_the_one_that_was_active_last() {
        QVERIFY(workAt({1100, 100}));
        QCOMPARE(placeOfNext(), secondScreen + centre);
        QVERIFY(workAt({100, 100}));
        QCOMPARE(placeOfNext(), centre);
    }
    void so_does_one_that_replaces_it() {
        QVERIFY(workAt({1100, 100}));
        form->Hide();
        QCOMPARE(placeOfNext(), secondScreen + centre);
    }
    void after_a_window_that_is_gone_the_primary_screen_is_taken() {
        QVERIFY(workAt({1100, 100}));
        form.reset();
        QCOMPARE(placeOfNext(), centre);
    }
    void the_pictures_of_a_button_are_those_for_the_screen() {
        const chameleonButton button(*form, "button", {20, 20, 100, 30},
                                     {.type = 7, .picture = "close-16.png"});
        QVERIFY(workAt({100, 100}));
        QCOMPARE(button.PictureNormal().size(), QSize(16, 16));
        bringToScreen(*form, 1);
        imageOf(*form);
        QCOMPARE(button.PictureNormal().size(), QSize(32, 32));
        bringToScreen(*form, 0);
        imageOf(*form);
        QCOMPARE(button.PictureNormal().size(), QSize(16, 16));
    }
    void a_button_of_type_11_shows_the_ground_as_it_is_on_the_screen() {
        chameleonButton button(*form, "button", {20, 20, 100, 30}, {.type = 11, .caption = ""});
        form->setPicture(Pictures::Deferred("SelLangStartUp-second.jpg"));
        QVERIFY(workAt({100, 100}));
        imageOf(*form);
        bringToScreen(*form, 1);
        const QImage with = imageOf(*form);
        button.hide();
        QVERIFY(with == imageOf(*form));
    }
    void a_window_is_put_back_inside_the_screen_that_its_middle_is_on_data() {
        QTest::addColumn<QPoint>("letGo");
        QTest::addColumn<QPoint>("lands");
        QTest::newRow("inside the second") << QPoint(1100, 100) << QPoint(1100, 100);
        QTest::newRow("beyond its right edge") << QPoint(1800, 100) << QPoint(1700, 100);
        QTest::newRow("beyond its lower edge") << QPoint(1100, 700) << QPoint(1100, 600);
        QTest::newRow("above it") << QPoint(1100, -50) << QPoint(1100, 0);
        QTest::newRow("astride, more on the first") << QPoint(840, 100) << QPoint(700, 100);
        QTest::newRow("astride, more on the second") << QPoint(860, 100) << QPoint(1000, 100);
    }
    void a_window_is_put_back_inside_the_screen_that_its_middle_is_on() {
        QFETCH(QPoint, letGo);
        QFETCH(QPoint, lands);
        QVERIFY(workAt(letGo));
        putInsideScreen(*form);
        QCOMPARE(form->pos(), lands);
    }
};

TORVANE_TEST(SecondScreenTest)
#include "SecondScreenTest.moc"
