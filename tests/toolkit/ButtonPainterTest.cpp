// SPDX-License-Identifier: MIT
// Frames, grounds and the focus mark of the skinned button, single pixels worked out by hand.
#include "PaintedFace.h"
#include "support/TestMain.h"

using namespace torvane;

class ButtonPainterTest : public QObject {
    Q_OBJECT

private slots:
    void type_6_has_a_bevel_of_two_pixels_in_two_tones() {
        const QImage image = paintedFace(faceOf(6, Indigo::face));
        COMPARE_PIXEL(image, 0, 0, Indigo::lit);
        COMPARE_PIXEL(image, 18, 0, Indigo::lit);
        COMPARE_PIXEL(image, 19, 0, Indigo::shadow);
        COMPARE_PIXEL(image, 0, 18, Indigo::lit);
        COMPARE_PIXEL(image, 0, 19, Indigo::shadow);
        COMPARE_PIXEL(image, 19, 19, Indigo::shadow);
        COMPARE_PIXEL(image, 1, 1, Indigo::lit);
        COMPARE_PIXEL(image, 17, 1, Indigo::lit);
        COMPARE_PIXEL(image, 18, 1, Indigo::shadow);
        COMPARE_PIXEL(image, 1, 17, Indigo::lit);
        COMPARE_PIXEL(image, 1, 18, Indigo::shadow);
        COMPARE_PIXEL(image, 18, 18, Indigo::shadow);
        COMPARE_PIXEL(image, 2, 2, Indigo::face);
        COMPARE_PIXEL(image, 17, 17, Indigo::face);
    }

    void type_6_pressed_swaps_the_two_tones() {
        ButtonFace face = faceOf(6, Indigo::face);
        face.pressed = true;
        const QImage image = paintedFace(face);
        COMPARE_PIXEL(image, 0, 0, Indigo::shadow);
        COMPARE_PIXEL(image, 1, 1, Indigo::shadow);
        COMPARE_PIXEL(image, 19, 0, Indigo::lit);
        COMPARE_PIXEL(image, 18, 18, Indigo::lit);
        COMPARE_PIXEL(image, 2, 2, Indigo::face);
    }

    void type_6_disabled_keeps_the_normal_bevel_even_if_pressed() {
        ButtonFace face = faceOf(6, Indigo::face);
        face.enabled = false;
        face.pressed = true;
        const QImage image = paintedFace(face);
        COMPARE_PIXEL(image, 0, 0, Indigo::lit);
        COMPARE_PIXEL(image, 19, 19, Indigo::shadow);
    }

    void type_6_with_soft_bevel_takes_half_of_each_shift() {
        const QImage image = paintedFace(faceOf(6, 0x808080, {20, 20}, true));
        COMPARE_PIXEL(image, 0, 0, 0x939393U);   // 128 + 15 + 4
        COMPARE_PIXEL(image, 19, 19, 0x606060U); // 128 - 32
    }

    void type_7_has_one_thin_line() {
        const QImage image = paintedFace(faceOf(7, Indigo::face));
        COMPARE_PIXEL(image, 0, 0, Indigo::highlight);
        COMPARE_PIXEL(image, 18, 0, Indigo::highlight);
        COMPARE_PIXEL(image, 19, 0, Indigo::shadow);
        COMPARE_PIXEL(image, 0, 18, Indigo::highlight);
        COMPARE_PIXEL(image, 0, 19, Indigo::shadow);
        COMPARE_PIXEL(image, 19, 19, Indigo::shadow);
        COMPARE_PIXEL(image, 1, 1, Indigo::face);
        COMPARE_PIXEL(image, 18, 18, Indigo::face);
    }

    void type_7_pressed_swaps_its_line() {
        ButtonFace face = faceOf(7, Indigo::face);
        face.pressed = true;
        const QImage image = paintedFace(face);
        COMPARE_PIXEL(image, 0, 0, Indigo::shadow);
        COMPARE_PIXEL(image, 19, 0, Indigo::highlight);
        COMPARE_PIXEL(image, 0, 19, Indigo::highlight);
        COMPARE_PIXEL(image, 1, 1, Indigo::face);
    }

    void type_14_fills_rows_that_darken_downwards() {
        const QImage image = paintedFace(faceOf(14, Grey::face));
        COMPARE_PIXEL(image, 10, 6, 0xEEEEEEU);  // 255 - 17
        COMPARE_PIXEL(image, 10, 10, 0xE2E2E2U); // 255 - 29
        COMPARE_PIXEL(image, 10, 16, 0xD1D1D1U); // 255 - 46
    }

    void type_14_has_two_frames_and_a_thick_highlight_at_top_and_left() {
        const QImage image = paintedFace(faceOf(14, Grey::face));
        COMPARE_PIXEL(image, 10, 0, Grey::edge);
        COMPARE_PIXEL(image, 0, 10, Grey::edge);
        COMPARE_PIXEL(image, 19, 10, Grey::edge);
        COMPARE_PIXEL(image, 10, 19, Grey::edge);
        COMPARE_PIXEL(image, 1, 1, Grey::inner);
        COMPARE_PIXEL(image, 18, 10, Grey::inner);
        COMPARE_PIXEL(image, 10, 18, Grey::inner);
        COMPARE_PIXEL(image, 2, 2, Grey::highlight);
        COMPARE_PIXEL(image, 17, 3, Grey::highlight);
        COMPARE_PIXEL(image, 3, 17, Grey::highlight);
        COMPARE_PIXEL(image, 4, 4, 0xF3F3F3U);  // the gradient: 255 - 12
        COMPARE_PIXEL(image, 4, 17, 0xCECECEU); // 255 - 49
    }

    void type_14_with_soft_bevel_takes_half_of_each_shift() {
        ButtonFace face = faceOf(14, 0x808080, {20, 20}, true);
        const QImage image = paintedFace(face);
        COMPARE_PIXEL(image, 2, 2, 0x979797U);   // 128 + 23
        COMPARE_PIXEL(image, 10, 10, 0x898989U); // 151 - 14
        COMPARE_PIXEL(image, 10, 0, 0x474747U);  // 128 - 32 - 25
        COMPARE_PIXEL(image, 1, 1, 0x7C7C7CU);   // 128 - 4
        face.pressed = true;
        COMPARE_PIXEL(paintedFace(face), 10, 0, 0x484848U); // 128 - 32 - 24
        COMPARE_PIXEL(paintedFace(face), 10, 10, 0x7C7C7CU);
    }

    void type_14_under_the_mouse_is_filled_with_light() {
        ButtonFace face = faceOf(14, Grey::face);
        face.over = true;
        const QImage image = paintedFace(face);
        COMPARE_PIXEL(image, 10, 6, Grey::light);
        COMPARE_PIXEL(image, 10, 17, Grey::light);
        COMPARE_PIXEL(image, 10, 0, Grey::edge);
    }

    void type_14_pressed_is_flat_with_a_highlight_at_bottom_and_right() {
        ButtonFace face = faceOf(14, Grey::face);
        face.pressed = true;
        const QImage image = paintedFace(face);
        COMPARE_PIXEL(image, 10, 10, Grey::inner);
        COMPARE_PIXEL(image, 0, 10, Grey::downEdge);
        COMPARE_PIXEL(image, 19, 19, Grey::downEdge);
        COMPARE_PIXEL(image, 1, 18, Grey::inner);
        COMPARE_PIXEL(image, 2, 18, Grey::highlight);
        COMPARE_PIXEL(image, 18, 18, Grey::highlight);
        COMPARE_PIXEL(image, 18, 2, Grey::highlight);
        COMPARE_PIXEL(image, 18, 1, Grey::inner);
    }

    void type_14_disabled_keeps_gradient_and_frames_even_under_the_mouse() {
        ButtonFace face = faceOf(14, Grey::face);
        face.enabled = false;
        face.over = true;
        const QImage image = paintedFace(face);
        COMPARE_PIXEL(image, 10, 10, 0xE2E2E2U);
        COMPARE_PIXEL(image, 10, 0, Grey::edge);
        COMPARE_PIXEL(image, 2, 2, Grey::highlight);
    }

    void other_frames_data() {
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("over");
        QTest::addColumn<bool>("pressed");
        QTest::addColumn<uint>("corner");
        QTest::addColumn<uint>("inner");
        QTest::newRow("1: dark frame, bevel inside") << 1 << false << false << 0x000000U << Indigo::highlight;
        QTest::newRow("1 pressed") << 1 << false << true << 0x000000U << Indigo::shadow;
        QTest::newRow("2: two levels") << 2 << false << false << Indigo::highlight << 0x836C6DU;
        QTest::newRow("2 pressed") << 2 << false << true << 0x000000U << Indigo::shadow;
        QTest::newRow("8: bare") << 8 << false << false << Indigo::face << Indigo::face;
        QTest::newRow("8 under the mouse: as 7") << 8 << true << false << Indigo::highlight << Indigo::face;
        QTest::newRow("9: bare") << 9 << false << false << Indigo::face << Indigo::face;
        QTest::newRow("9 under the mouse: accent") << 9 << true << false << 0x000000U << Indigo::face;
        QTest::newRow("9 pressed under the mouse") << 9 << true << true << 0x000000U << 0x442D2EU;
        QTest::newRow("10: plain face") << 10 << true << false << Indigo::face << Indigo::face;
        QTest::newRow("12: bare") << 12 << false << false << Indigo::face << Indigo::face;
        QTest::newRow("12 under the mouse: as 2") << 12 << true << false << Indigo::highlight << 0x836C6DU;
    }

    void other_frames() {
        QFETCH(int, type);
        QFETCH(bool, over);
        QFETCH(bool, pressed);
        QFETCH(uint, corner);
        QFETCH(uint, inner);
        ButtonFace face = faceOf(type, Indigo::face);
        face.over = over;
        face.pressed = pressed;
        const QImage image = paintedFace(face);
        COMPARE_PIXEL(image, 0, 0, corner);
        COMPARE_PIXEL(image, 1, 1, inner);
    }

    void types_1_and_2_have_their_shades_at_all_four_edges_data() {
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("pressed");
        QTest::addColumn<QList<uint>>("fromLeft"); // columns 0 and 1, then 18 and 19
        const uint black = 0x000000;
        const uint light = 0x836C6D; // + 31
        QTest::newRow("1") << 1 << false << QList{black, Indigo::highlight, Indigo::shadow, black};
        QTest::newRow("1 pressed") << 1 << true << QList{black, Indigo::shadow, Indigo::highlight, black};
        QTest::newRow("2") << 2 << false << QList{Indigo::highlight, light, Indigo::shadow, black};
        QTest::newRow("2 pressed") << 2 << true << QList{black, Indigo::shadow, light, Indigo::highlight};
    }

    void types_1_and_2_have_their_shades_at_all_four_edges() {
        QFETCH(int, type);
        QFETCH(bool, pressed);
        QFETCH(QList<uint>, fromLeft);
        ButtonFace face = faceOf(type, Indigo::face);
        face.pressed = pressed;
        const QImage image = paintedFace(face);
        const QList<int> places{0, 1, 18, 19};
        for (int i = 0; i < 4; ++i) {
            COMPARE_PIXEL(image, places[i], 10, fromLeft[i]);
            COMPARE_PIXEL(image, 10, places[i], fromLeft[i]);
        }
    }

    void type_2_marked_as_default_has_its_bevel_inside_the_frame() {
        ButtonFace face = faceOf(2, Indigo::face);
        face.isDefault = face.showFocusRect = true;
        const QImage image = paintedFace(face);
        COMPARE_PIXEL(image, 1, 17, Indigo::highlight);
        COMPARE_PIXEL(image, 1, 18, 0x000000U);
        COMPARE_PIXEL(image, 2, 2, 0x836C6DU); // face + 31
        COMPARE_PIXEL(image, 17, 10, Indigo::shadow);
        COMPARE_PIXEL(image, 2, 17, Indigo::shadow);
        COMPARE_PIXEL(image, 16, 16, Indigo::face);
    }

    void type_12_takes_no_default_mark() {
        ButtonFace face = faceOf(12, Indigo::face);
        face.isDefault = face.showFocusRect = face.over = true;
        COMPARE_PIXEL(paintedFace(face), 0, 0, Indigo::highlight);
    }

    void type_9_pressed_lightens_its_accent_unless_its_colours_are_its_own() {
        ButtonFace face = faceOf(9, Indigo::face);
        face.over = face.pressed = true;
        face.customScheme = false;
        face.colours.accent = 0x800000;
        const QImage image = paintedFace(face);
        COMPARE_PIXEL(image, 0, 0, 0x800000U);
        COMPARE_PIXEL(image, 10, 10, 0xBF8080U); // blue 127 x 128 / 255 + 128 = 63 + 128, the others 128
    }

    void type_2_marked_as_default_is_framed_at_rest_only_when_it_shows_the_focus() {
        ButtonFace face = faceOf(2, Indigo::face);
        face.isDefault = true;
        COMPARE_PIXEL(paintedFace(face), 0, 0, Indigo::highlight);
        face.pressed = true;
        COMPARE_PIXEL(paintedFace(face), 1, 1, Indigo::shadow);
        COMPARE_PIXEL(paintedFace(face), 18, 18, Indigo::shadow);
        face.pressed = false;
        face.showFocusRect = true;
        COMPARE_PIXEL(paintedFace(face), 0, 0, 0x000000U);
        COMPARE_PIXEL(paintedFace(face), 1, 1, Indigo::highlight);
        face.pressed = true;
        COMPARE_PIXEL(paintedFace(face), 0, 0, 0x000000U);
        COMPARE_PIXEL(paintedFace(face), 1, 1, Indigo::shadow);
        COMPARE_PIXEL(paintedFace(face), 2, 2, Indigo::face);
    }

    void type_11_shows_the_background() {
        ButtonFace face = faceOf(11, Indigo::face);
        face.background = QImage(20, 20, QImage::Format_RGB32);
        face.background.fill(Qt::green);
        COMPARE_PIXEL(paintedFace(face), 10, 10, 0x00FF00U);
    }

    void type_13_has_an_edge_only_under_the_mouse_and_pressed() {
        ButtonFace face = faceOf(13, Indigo::face);
        COMPARE_PIXEL(paintedFace(face), 10, 1, Indigo::face);
        face.over = true;
        COMPARE_PIXEL(paintedFace(face), 10, 1, Indigo::shadow);
        COMPARE_PIXEL(paintedFace(face), 10, 0, Indigo::shadow); // the edge is 2 pixels wide
        COMPARE_PIXEL(paintedFace(face), 10, 2, Indigo::face);
        face.pressed = true;
        COMPARE_PIXEL(paintedFace(face), 10, 1, 0x000000U);
        COMPARE_PIXEL(paintedFace(face), 10, 10, 0x442D2EU); // face - 32
    }

    void hand_drawn_types_tell_their_states_apart() {
        for (const int type : {3, 4, 5}) {
            ButtonFace face = faceOf(type, Indigo::face);
            const QImage normal = paintedFace(face);
            face.over = true;
            const QImage over = paintedFace(face);
            face.pressed = true;
            const QImage pressed = paintedFace(face);
            QVERIFY(normal != over && over != pressed && normal != pressed);
        }
    }

    void type_3_is_edged_in_its_fixed_blue() {
        const QImage image = paintedFace(faceOf(3, Indigo::face));
        COMPARE_PIXEL(image, 10, 0, 0x733C00U);
        COMPARE_PIXEL(image, 1, 1, 0x7B4D10U);
    }

    void focus_mark_is_a_dotted_rectangle() {
        ButtonFace face = faceOf(7, Indigo::face);
        face.focusMark = true;
        const QImage image = paintedFace(face);
        COMPARE_PIXEL(image, 3, 3, 0x9BB2B1U); // the inverted face
        COMPARE_PIXEL(image, 4, 3, Indigo::face);
        COMPARE_PIXEL(image, 5, 3, 0x9BB2B1U);
        COMPARE_PIXEL(image, 16, 16, 0x9BB2B1U);
        COMPARE_PIXEL(image, 4, 4, Indigo::face);
    }

    void focus_mark_lies_over_the_frame() {
        const auto corner = [](int type, OleColour back) {
            ButtonFace face = faceOf(type, back);
            face.focusMark = true;
            face.layout.focus = QRect(0, 0, 20, 20);
            return colourAt(paintedFace(face), 0, 0);
        };
        // Each the inverted colour of its frame.
        QCOMPARE(hex(corner(6, Indigo::face)), hex(0x748B8A));
        QCOMPARE(hex(corner(7, Indigo::face)), hex(0x6C8382));
        QCOMPARE(hex(corner(14, Grey::face)), hex(0xA1A1A1));
    }

    void focus_mark_shows_in_no_disabled_look_nor_on_a_pressed_type_14() {
        for (const int type : {6, 7, 14}) {
            ButtonFace face = faceOf(type, Grey::face, {40, 30});
            face.enabled = false;
            const QImage without = paintedFace(face);
            face.focusMark = true;
            QCOMPARE(paintedFace(face), without);
        }
        ButtonFace face = faceOf(14, Grey::face);
        face.pressed = face.focusMark = true;
        COMPARE_PIXEL(paintedFace(face), 6, 6, Grey::inner);
    }

    void thin_types_pressed_show_no_focus_mark_and_others_do_data() {
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("shows");
        for (const int type : {7, 8, 12}) QTest::addRow("%d", type) << type << false;
        for (const int type : {1, 2, 6, 9, 10, 13}) QTest::addRow("%d", type) << type << true;
    }
    void thin_types_pressed_show_no_focus_mark_and_others_do() {
        QFETCH(int, type);
        QFETCH(bool, shows);
        ButtonFace face = faceOf(type, Indigo::face);
        face.pressed = face.over = true;
        const QImage plain = paintedFace(face);
        face.focusMark = true;
        QCOMPARE(paintedFace(face) != plain, shows);
    }

    void dense_surface_has_the_same_lines_in_more_dots() {
        const QImage image = paintedFace(faceOf(7, Indigo::face), 2.0);
        COMPARE_PIXEL(image, 1, 1, Indigo::highlight);
        COMPARE_PIXEL(image, 2, 2, Indigo::face);
        COMPARE_PIXEL(image, 37, 1, Indigo::highlight);
        COMPARE_PIXEL(image, 38, 1, Indigo::shadow);
        COMPARE_PIXEL(image, 1, 38, Indigo::shadow);
        COMPARE_PIXEL(image, 37, 37, Indigo::face);
    }

    void button_of_one_pixel_is_painted_without_harm() {
        for (int type = 1; type <= 14; ++type) {
            const QImage image = paintedFace(faceOf(type, Indigo::face, {1, 1}));
            QVERIFY(colourAt(image, 0, 0) != 0xFF00FF);
        }
    }
};

TORVANE_TEST(ButtonPainterTest)
#include "ButtonPainterTest.moc"
