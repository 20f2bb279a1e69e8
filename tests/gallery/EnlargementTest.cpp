// SPDX-License-Identifier: MIT
// The arithmetic of the enlarged view, in twips.
#include "gallery/Enlargement.h"
#include "support/TestMain.h"

using namespace torvane;

class EnlargementTest : public QObject {
    Q_OBJECT

    static constexpr Enlargement::Room room{7500, 6000, 315};
    Enlargement enlargement{room};

    bool isAt(float left, float top, float width, float height) const {
        return enlargement.place() == Enlargement::Bounds{left, top, width, height};
    }

private slots:
    void init() { enlargement = Enlargement(room); }

    void a_small_picture_keeps_its_size_in_the_middle() {
        enlargement.show(2400, 2160);
        QVERIFY(isAt(2550, 2077.5F, 2400, 2160));
    }
    void each_direction_has_its_own_limit() {
        enlargement.show(7201, 100);
        QVERIFY(isAt(150, 3107.5F, 7200, 100));
        enlargement.show(100, 5501);
        QVERIFY(isAt(3700, 407.5F, 100, 5500));
        enlargement.show(7200, 5500);
        QVERIFY(isAt(150, 407.5F, 7200, 5500));
    }
    void a_size_is_doubled_up_to_200_twips_less_than_the_window() {
        enlargement.show(3650, 2900);
        enlargement.zoomIn();
        QVERIFY(isAt(100, 257.5F, 7300, 5800));
        enlargement.show(3651, 2900);
        enlargement.zoomIn();
        QCOMPARE(enlargement.place().width, 3651.0F);
        enlargement.show(3650, 2901);
        enlargement.zoomIn();
        QCOMPARE(enlargement.place().width, 3650.0F);
    }
    void a_size_is_halved_once() {
        enlargement.show(45, 15);
        enlargement.zoomOut();
        QVERIFY(isAt(3738.75F, 3153.75F, 22.5F, 7.5F));
        enlargement.zoomOut();
        QCOMPARE(enlargement.place().width, 22.5F);
    }
    void after_doubling_a_size_can_be_halved_twice() {
        enlargement.show(1000, 800);
        enlargement.zoomIn();
        enlargement.zoomOut();
        enlargement.zoomOut();
        enlargement.zoomOut();
        QCOMPARE(enlargement.place().width, 500.0F);
        QCOMPARE(enlargement.place().height, 400.0F);
    }
    void another_picture_has_limits_of_its_own() {
        enlargement.show(4000, 4000);
        enlargement.show(400, 400);
        enlargement.zoomOut();
        QCOMPARE(enlargement.place().width, 200.0F);
    }
    void without_a_picture_nothing_happens() {
        enlargement.show(0, 0);
        enlargement.zoomIn();
        enlargement.zoomOut();
        QVERIFY(isAt(3750, 3157.5F, 0, 0));
    }
    void the_lowest_width_has_seven_digits_only() {
        enlargement.show(7199.9995F, 100); // half of it is 3600 in seven digits
        enlargement.zoomOut();
        QCOMPARE(enlargement.place().height, 100.0F);
        enlargement.show(7199, 100);
        enlargement.zoomOut();
        QCOMPARE(enlargement.place().height, 50.0F);
    }
};

TORVANE_APPLESS_TEST(EnlargementTest)
#include "EnlargementTest.moc"
