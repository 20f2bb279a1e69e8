// SPDX-License-Identifier: MIT
// Which picture a skinned button shows, where, and with which passes. The picture is a single dot that
// falls on (10, 10).
#include "PaintedFace.h"

using namespace torvane;

namespace {
constexpr OleColour dark = 0x0000C0;   // prints through a stencil
constexpr OleColour bright = 0x80FFFF; // does not: 255 + 255 + 128

ButtonFace pictured(int type, OleColour back = Indigo::face, OleColour dot = dark) {
    ButtonFace face = faceOf(type, back);
    setPicture(face, dotPicture(dot));
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

    void disabled_picture_has_no_effect_pass() {
        ButtonFace face = pictured(6);
        face.enabled = false;
        face.specialEffect = 2;
        const QImage image = paintedFace(face);
        COMPARE_PIXEL(image, 11, 11, Indigo::face);
        COMPARE_PIXEL(image, 9, 9, Indigo::face);
    }

    void caption_is_painted_over_a_picture_behind_it() {
        ButtonFace face = faceOf(7, Indigo::face, {60, 30});
        QImage block(60, 30, QImage::Format_RGB32);
        block.fill(Qt::black);
        face.normalPicture = block;
        face.layout.picture = QRect(0, 0, 60, 30);
        face.caption = QStringLiteral("MMM");
        face.layout.caption = QRect(10, 8, 40, 14);
        const QImage covered = paintedFace(face);
        face.place = PicturePlace::behind;
        const QImage shown = paintedFace(face);
        const auto textPixels = [](const QImage& image) {
            int count = 0;
            for (int x = 0; x < image.width(); ++x) {
                for (int y = 0; y < image.height(); ++y) count += colourAt(image, x, y) == 0x00FFFF;
            }
            return count;
        };
        QCOMPARE(textPixels(covered), 0);
        QVERIFY(textPixels(shown) > 20);
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

QTEST_MAIN(ButtonPicturesTest)
#include "ButtonPicturesTest.moc"
