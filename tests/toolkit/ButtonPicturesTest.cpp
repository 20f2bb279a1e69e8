// SPDX-License-Identifier: MIT
// Which picture a skinned button shows, where, and with which passes. The picture is a single dot that
// falls on (10, 10).
#include "PaintedFace.h"
#include "support/TestMain.h"

using namespace torvane;

namespace {
constexpr OleColour dark = 0x0000C0;   // prints through a stencil
constexpr OleColour bright = 0x80FFFF; // does not: 255 + 255 + 128

ButtonFace pictured(int type, OleColour back = Indigo::face, OleColour dot = dark) {
    ButtonFace face = faceOf(type, back);
    setPicture(face, dotPicture(dot));
    return face;
}

// A caption over a black picture that fills the whole button.
ButtonFace overPictureBlock(int type) {
    ButtonFace face = faceOf(type, Indigo::face, {60, 30});
    face.normalPicture = QImage(60, 30, QImage::Format_RGB32);
    face.normalPicture.fill(Qt::black);
    face.layout.picture = QRect(0, 0, 60, 30);
    face.place = PicturePlace::behind;
    face.caption = QStringLiteral("MMM");
    face.layout.caption = QRect(10, 8, 40, 14);
    face.layout.captionMoved = QRect(11, 9, 40, 14);
    return face;
}

} // namespace

class ButtonPicturesTest : public QObject {
    Q_OBJECT

private slots:
    void picture_shows_without_its_mask_colour() {
        const QImage image = paintedFace(pictured(7));
        COMPARE_PIXEL(image, 10, 10, dark);
        COMPARE_PIXEL(image, 9, 10, Indigo::face);
    }

    void without_mask_colour_the_whole_picture_rectangle_shows() {
        ButtonFace face = pictured(7);
        face.useMaskColor = false;
        const QImage image = paintedFace(face);
        COMPARE_PIXEL(image, 8, 8, pictureMask);
        COMPARE_PIXEL(image, 12, 12, pictureMask);
        COMPARE_PIXEL(image, 13, 12, Indigo::face);
    }

    void normal_picture_is_grey_until_the_mouse_is_over() {
        ButtonFace face = pictured(7);
        face.useGreyscale = true;
        COMPARE_PIXEL(paintedFace(face), 10, 10, 0x3A3A3AU); // 0.3 x 192 = 57.6
        face.over = true;
        COMPARE_PIXEL(paintedFace(face), 10, 10, dark);
    }

    void pressed_picture_is_never_grey() {
        ButtonFace face = pictured(7);
        face.useGreyscale = face.pressed = true;
        COMPARE_PIXEL(paintedFace(face), 11, 11, dark);
    }

    void over_picture_shows_under_the_mouse_and_pressed() {
        ButtonFace face = pictured(6);
        face.overPicture = dotPicture(0x00FF00);
        COMPARE_PIXEL(paintedFace(face), 10, 10, dark);
        face.over = true;
        COMPARE_PIXEL(paintedFace(face), 10, 10, 0x00FF00U);
        face.over = false;
        face.pressed = true;
        COMPARE_PIXEL(paintedFace(face), 11, 11, 0x00FF00U);
    }

    void over_picture_alone_shows_nothing() {
        ButtonFace face = faceOf(6, Indigo::face);
        face.overPicture = dotPicture(dark);
        face.layout.picture = QRect(8, 8, 5, 5);
        face.over = true;
        COMPARE_PIXEL(paintedFace(face), 10, 10, Indigo::face);
    }

    void pressed_picture_moves_by_one_pixel() {
        ButtonFace face = pictured(6);
        face.pressed = true;
        const QImage image = paintedFace(face);
        COMPARE_PIXEL(image, 11, 11, dark);
        COMPARE_PIXEL(image, 10, 10, Indigo::face);
    }

    void pressed_picture_of_types_5_and_9_stays() {
        for (const int type : {5, 9}) {
            ButtonFace face = pictured(type);
            face.pressed = true;
            COMPARE_PIXEL(paintedFace(face), 10, 10, dark);
        }
    }

    void engraved_effect_is_light_below_and_dark_above() {
        ButtonFace face = pictured(7);
        face.specialEffect = 2;
        const QImage image = paintedFace(face);
        COMPARE_PIXEL(image, 11, 11, Indigo::raised);
        COMPARE_PIXEL(image, 9, 9, Indigo::sunken);
        COMPARE_PIXEL(image, 10, 10, dark);
    }

    void picture_lies_over_its_effect() {
        ButtonFace face = pictured(7);
        face.normalPicture.setPixelColor(3, 3, Colours::toQColor(bright));
        face.specialEffect = 2;
        COMPARE_PIXEL(paintedFace(face), 11, 11, bright);
    }

    void raised_effect_is_dark_below_and_light_above() {
        ButtonFace face = pictured(7);
        face.specialEffect = 1;
        const QImage image = paintedFace(face);
        COMPARE_PIXEL(image, 11, 11, Indigo::sunken);
        COMPARE_PIXEL(image, 9, 9, Indigo::raised);
    }

    void shadow_effect_is_dark_below_only() {
        ButtonFace face = pictured(6);
        face.specialEffect = 3;
        const QImage image = paintedFace(face);
        COMPARE_PIXEL(image, 11, 11, Indigo::sunken);
        COMPARE_PIXEL(image, 9, 9, Indigo::face);
    }

    void pressed_effect_moves_along() {
        ButtonFace face = pictured(6);
        face.specialEffect = 2;
        face.pressed = true;
        const QImage image = paintedFace(face);
        COMPARE_PIXEL(image, 12, 12, Indigo::raised);
        COMPARE_PIXEL(image, 10, 10, Indigo::sunken);
        COMPARE_PIXEL(image, 11, 11, dark);
    }

    void effect_of_a_bright_picture_does_not_print() {
        ButtonFace face = pictured(6, Indigo::face, bright);
        face.specialEffect = 3;
        const QImage image = paintedFace(face);
        COMPARE_PIXEL(image, 10, 10, bright);
        COMPARE_PIXEL(image, 11, 11, Indigo::face);
    }

    void effects_of_type_14_are_shades_of_its_deep_face() {
        ButtonFace face = pictured(14, 0xA0A0A0);
        face.specialEffect = 2;
        face.over = true;
        const QImage image = paintedFace(face);
        COMPARE_PIXEL(image, 11, 11, 0xF8F8F8U); // 160 + 48 + 40
        COMPARE_PIXEL(image, 9, 9, 0xA8A8A8U);   // 160 + 48 - 40
    }

    void effects_of_types_3_and_4_are_shades_of_their_deep_faces() {
        const auto shades = [](int type) {
            ButtonFace face = pictured(type, 0xA0A0A0);
            face.specialEffect = 2;
            const QImage image = paintedFace(face);
            return hex(colourAt(image, 11, 11)) + ' ' + hex(colourAt(image, 9, 9));
        };
        QCOMPARE(shades(4), QByteArray("f8f8f8 a8a8a8"));
        // Blue has got 160 x 48 / 192 = 40: 200 + 40 and 200 - 40.
        QCOMPARE(shades(3), QByteArray("f0f8f8 a0a8a8"));
    }

    void effect_with_soft_bevel_takes_half_of_its_shift() {
        ButtonFace face = faceOf(7, 0x808080, {20, 20}, true);
        setPicture(face, dotPicture(dark));
        face.specialEffect = 2;
        const QImage image = paintedFace(face);
        COMPARE_PIXEL(image, 11, 11, 0x949494U); // 128 + 20
        COMPARE_PIXEL(image, 9, 9, 0x6C6C6CU);   // 128 - 20
    }

    void effect_under_the_mouse_is_that_of_the_over_picture() {
        ButtonFace face = pictured(7);
        face.specialEffect = 3;
        face.over = true;
        face.overPicture = dotPicture(bright);
        COMPARE_PIXEL(paintedFace(face), 10, 10, bright);
        COMPARE_PIXEL(paintedFace(face), 11, 11, Indigo::face);
    }

    void without_mask_colour_a_dark_picture_prints_all_of_its_rectangle() {
        ButtonFace face = pictured(7);
        face.colours.mask = dark;
        face.normalPicture.fill(Colours::toQColor(dark));
        face.specialEffect = 3;
        COMPARE_PIXEL(paintedFace(face), 13, 13, Indigo::face);
        face.useMaskColor = false;
        COMPARE_PIXEL(paintedFace(face), 13, 13, Indigo::sunken);
        COMPARE_PIXEL(paintedFace(face), 8, 8, dark);
    }

    void effect_shades_stop_at_white_and_black() {
        ButtonFace face = pictured(7, 0x10F010);
        face.specialEffect = 2;
        const QImage image = paintedFace(face);
        COMPARE_PIXEL(image, 11, 11, 0x38FF38U);
        COMPARE_PIXEL(image, 9, 9, 0x00C800U);
    }

    void disabled_picture_is_printed_twice() {
        ButtonFace face = pictured(7);
        face.enabled = false;
        const QImage image = paintedFace(face);
        COMPARE_PIXEL(image, 10, 10, Indigo::shadow);
        COMPARE_PIXEL(image, 11, 11, Indigo::highlight);
    }

    void disabled_picture_of_types_5_6_and_9_is_printed_once_in_shadow() {
        for (const int type : {5, 6, 9}) {
            ButtonFace face = pictured(type);
            face.enabled = false;
            const QImage image = paintedFace(face);
            COMPARE_PIXEL(image, 10, 10, Indigo::shadow);
            COMPARE_PIXEL(image, 11, 11, Indigo::face);
        }
    }

    void disabled_picture_of_type_3_is_printed_once_in_deep_face_and_moved() {
        ButtonFace face = pictured(3);
        face.enabled = false;
        COMPARE_PIXEL(paintedFace(face), 11, 11, 0x7D7D7EU);
    }

    void disabled_bright_pixels_do_not_print() {
        ButtonFace face = pictured(6, Indigo::face, bright);
        face.enabled = false;
        COMPARE_PIXEL(paintedFace(face), 10, 10, Indigo::face);
    }

    void disabled_picture_is_always_the_normal_one() {
        ButtonFace face = pictured(6);
        face.enabled = false;
        face.over = true;
        face.overPicture = dotPicture(bright);
        COMPARE_PIXEL(paintedFace(face), 10, 10, Indigo::shadow);
    }

    void disabled_picture_has_no_effect_pass() {
        ButtonFace face = pictured(6);
        face.enabled = false;
        face.specialEffect = 2;
        const QImage image = paintedFace(face);
        COMPARE_PIXEL(image, 11, 11, Indigo::face);
        COMPARE_PIXEL(image, 9, 9, Indigo::face);
    }

    void caption_is_painted_over_a_picture_behind_it() {
        ButtonFace face = overPictureBlock(7);
        face.place = PicturePlace::left;
        const QImage covered = paintedFace(face);
        face.place = PicturePlace::behind;
        const QImage shown = paintedFace(face);
        QCOMPARE(pixelsIn(covered, 0x00FFFF), 0);
        QVERIFY(pixelsIn(shown, 0x00FFFF) > 20);
    }

    void caption_over_a_picture_has_the_look_of_the_state() {
        ButtonFace face = overPictureBlock(7);
        face.over = true;
        QVERIFY(pixelsIn(paintedFace(face), 0x00C000) > 20);
        QCOMPARE(pixelsIn(paintedFace(face), 0x00FFFF), 0);
        face.over = false;
        face.pressed = true;
        QVERIFY(pixelsIn(paintedFace(face), 0x00C000) > 20);
        face.enabled = false;
        // The block is printed in shadow, and on it stands the light part of the caption.
        const QImage dead = paintedFace(face).copy(4, 4, 50, 20);
        QVERIFY(pixelsIn(dead, Indigo::highlight) > 0);
        QCOMPARE(pixelsIn(dead, 0x00FFFF), 0);
    }

    void default_mark_makes_the_caption_over_a_picture_bold_as_well() {
        ButtonFace face = overPictureBlock(14);
        face.font = Fonts::of(Fonts::M8);
        const int plain = pixelsIn(paintedFace(face), 0x00FFFF);
        face.isDefault = true;
        QVERIFY(pixelsIn(paintedFace(face), 0x00FFFF) > plain + 5);
    }

    void picture_on_a_dense_surface_takes_its_place_in_dots() {
        ButtonFace face = faceOf(7, Indigo::face);
        face.layout.picture = QRect(8, 8, 5, 5);
        face.normalPicture = pictureAt(dotPicture(dark), 2.0, pictureMask);
        const QImage image = paintedFace(face, 2.0);
        COMPARE_PIXEL(image, 20, 20, dark);
        COMPARE_PIXEL(image, 21, 21, dark);
        COMPARE_PIXEL(image, 22, 21, Indigo::face);
        COMPARE_PIXEL(image, 19, 20, Indigo::face);
    }
};

TORVANE_TEST(ButtonPicturesTest)
#include "ButtonPicturesTest.moc"
