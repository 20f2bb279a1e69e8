// SPDX-License-Identifier: MIT
// Places of caption, picture and focus mark, and the outlines of the skinned button.
#include "toolkit/ButtonLayout.h"
#include "support/TestMain.h"

#include <QtTest>

using namespace torvane;

namespace {
// A text that always takes the same room.
TextMeasure fixedText(QSize size) {
    return [size](int) { return size; };
}

ButtonLayout laidOut(PicturePlace place, QSize picture, QSize text, bool blank = false) {
    ButtonLayout layout;
    LayoutCaption(layout, {{204, 26}, picture, place, blank}, fixedText(text));
    return layout;
}
} // namespace

class ButtonLayoutTest : public QObject {
    Q_OBJECT

private slots:
    void focus_mark_is_inset_by_type_data() {
        QTest::addColumn<int>("type");
        QTest::addColumn<QRect>("expected");
        for (const int type : {1, 2, 3, 4, 5, 6}) QTest::addRow("%d", type) << type << QRect(4, 4, 32, 12);
        for (const int type : {7, 8, 9, 10, 11, 12, 13}) {
            QTest::addRow("%d", type) << type << QRect(3, 3, 34, 14);
        }
        QTest::addRow("14, moved") << 14 << QRect(6, 6, 30, 10);
    }

    void focus_mark_is_inset_by_type() {
        QFETCH(int, type);
        QFETCH(QRect, expected);
        QCOMPARE(focusRect(type, {40, 20}), expected);
    }

    void caption_alone_is_centred() {
        // Measured from 1 to 61 and 1 to 14: moved by (204 - 61) / 2 = 71 and (26 - 14) / 2 = 6.
        const ButtonLayout layout = laidOut(PicturePlace::left, {0, 0}, {60, 13});
        QCOMPARE(layout.caption, QRect(72, 7, 60, 13));
        QCOMPARE(layout.captionMoved, QRect(73, 8, 60, 13));
    }

    void picture_on_the_left_stands_4_pixels_before_the_text() {
        // Text from 17 to 77: moved by (204 - 77) / 2 = 63. The picture's left: 80 - 16 - 4.
        const ButtonLayout layout = laidOut(PicturePlace::left, {16, 16}, {60, 13});
        QCOMPARE(layout.caption, QRect(80, 7, 60, 13));
        QCOMPARE(layout.picture, QRect(60, 5, 16, 16));
    }

    void picture_on_the_right_is_4_pixels_after_the_text() {
        // Text from 1 to 61: moved by (204 - 61 - 16 - 4) / 2 = 61.
        const ButtonLayout layout = laidOut(PicturePlace::right, {16, 16}, {60, 13});
        QCOMPARE(layout.caption, QRect(62, 7, 60, 13));
        QCOMPARE(layout.picture, QRect(126, 5, 16, 16));
    }

    void picture_above_stands_2_pixels_over_the_text() {
        // Text from 9 to 22: moved by (26 - 22) / 2 = 2, and the picture at 11 - 8 - 2.
        const ButtonLayout layout = laidOut(PicturePlace::above, {8, 8}, {60, 13});
        QCOMPARE(layout.caption, QRect(72, 11, 60, 13));
        QCOMPARE(layout.picture, QRect(98, 1, 8, 8));
    }

    void picture_below_stands_2_pixels_under_the_text() {
        // Text from 1 to 11: moved by (26 - 11 - 8 - 4) / 2 = 1.
        const ButtonLayout layout = laidOut(PicturePlace::below, {8, 8}, {60, 10});
        QCOMPARE(layout.caption, QRect(72, 2, 60, 10));
        QCOMPARE(layout.picture, QRect(98, 14, 8, 8));
    }

    void picture_behind_the_text_is_centred_both_ways() {
        const ButtonLayout layout = laidOut(PicturePlace::behind, {16, 16}, {60, 13});
        QCOMPARE(layout.caption, QRect(72, 7, 60, 13));
        QCOMPARE(layout.picture, QRect(94, 5, 16, 16));
    }

    void picture_without_a_caption_is_centred_at_every_place() {
        for (const auto place :
             {PicturePlace::left, PicturePlace::right, PicturePlace::above, PicturePlace::below}) {
            QCOMPARE(laidOut(place, {16, 16}, {0, 0}, true).picture, QRect(94, 5, 16, 16));
        }
    }

    void text_is_measured_in_the_room_beside_the_picture() {
        QList<int> widths;
        const auto measure = [&widths](int width) {
            widths.append(width);
            return QSize(10, 10);
        };
        ButtonLayout layout;
        for (const auto place : {PicturePlace::left, PicturePlace::right, PicturePlace::above}) {
            LayoutCaption(layout, {{100, 40}, {16, 16}, place, false}, measure);
        }
        // 17 to 98, 1 to 82, 1 to 98.
        QCOMPARE(widths, (QList<int>{81, 81, 97}));
    }

    void types_1_and_14_lack_the_four_corner_pixels() {
        for (const int type : {1, 14}) {
            QRegion expected(0, 0, 40, 20);
            for (const QPoint corner : {QPoint(0, 0), QPoint(39, 0), QPoint(0, 19), QPoint(39, 19)}) {
                expected -= QRegion(corner.x(), corner.y(), 1, 1);
            }
            QCOMPARE(BuildRegion(type, {40, 20}), expected);
        }
    }

    void type_5_lacks_only_bottom_left_and_top_right() {
        const QRegion expected = QRegion(0, 0, 40, 20) - QRegion(0, 19, 1, 1) - QRegion(39, 0, 1, 1);
        QCOMPARE(BuildRegion(5, {40, 20}), expected);
    }

    void types_3_and_4_are_rounded_by_two_pixels_and_one() {
        for (const int type : {3, 4}) {
            const QRegion region = BuildRegion(type, {40, 20});
            for (const QPoint cut : {QPoint(0, 0), QPoint(1, 0), QPoint(0, 1), QPoint(38, 0), QPoint(39, 0),
                                     QPoint(39, 1), QPoint(0, 19), QPoint(1, 19), QPoint(0, 18),
                                     QPoint(38, 19), QPoint(39, 19), QPoint(39, 18)}) {
                QVERIFY2(!region.contains(cut),
                         qPrintable(QStringLiteral("%1,%2").arg(cut.x()).arg(cut.y())));
            }
            QVERIFY(region.contains(QPoint(2, 0)) && region.contains(QPoint(0, 2)) &&
                    region.contains(QPoint(1, 1)));
            QVERIFY(region.contains(QPoint(37, 19)) && region.contains(QPoint(39, 17)));
        }
    }

    void type_13_is_an_ellipse() {
        const QRegion region = BuildRegion(13, {40, 20});
        QVERIFY(!region.contains(QPoint(0, 0)));
        QVERIFY(!region.contains(QPoint(39, 19)));
        QVERIFY(region.contains(QPoint(20, 1)));
        QVERIFY(region.contains(QPoint(1, 10)));
    }

    void all_other_types_are_plain_rectangles() {
        for (const int type : {2, 6, 7, 8, 9, 10, 11, 12}) {
            QCOMPARE(BuildRegion(type, {40, 20}), QRegion(0, 0, 40, 20));
        }
    }
};

TORVANE_APPLESS_TEST(ButtonLayoutTest)
#include "ButtonLayoutTest.moc"
