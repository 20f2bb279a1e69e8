// SPDX-License-Identifier: MIT
// The masked copy, pixel by pixel.
#include "toolkit/TransparentBlit.h"
#include "PanelForm.h"
#include "support/TestMain.h"

using namespace torvane;

namespace {
constexpr OleColour ground = 0x302010;
constexpr OleColour clearColour = 0xC0C0C0;

QImage groundImage() {
    QImage image(6, 4, QImage::Format_RGB32);
    image.fill(Colours::toQColor(ground));
    return image;
}

// Two pixels wide: the mask colour, then the given colour.
QImage pictureWith(OleColour colour) {
    QImage picture(2, 1, QImage::Format_RGB32);
    picture.setPixelColor(0, 0, Colours::toQColor(clearColour));
    picture.setPixelColor(1, 0, Colours::toQColor(colour));
    return picture;
}

QImage blitted(OleColour colour, const BlitRule& rule) {
    QImage target = groundImage();
    TransparentBlit(target, {2, 1, 2, 1}, pictureWith(colour), rule);
    return target;
}
} // namespace

class TransparentBlitTest : public QObject {
    Q_OBJECT

private slots:
    void pixels_of_the_mask_colour_leave_the_surface() {
        const QImage target = blitted(0x0000FF, {.mask = clearColour});
        COMPARE_PIXEL(target, 2, 1, ground);
        COMPARE_PIXEL(target, 3, 1, 0x0000FFU);
        COMPARE_PIXEL(target, 4, 1, ground);
        COMPARE_PIXEL(target, 3, 0, ground);
    }

    void a_colour_next_to_the_mask_is_copied() {
        COMPARE_PIXEL(blitted(0xC0C0C1, {.mask = clearColour}), 3, 1, 0xC0C0C1U);
    }

    void without_a_mask_the_whole_picture_shows() {
        COMPARE_PIXEL(blitted(0x0000FF, {}), 2, 1, clearColour);
        COMPARE_PIXEL(blitted(0xFFFFFF, {}), 3, 1, 0xFFFFFFU);
        COMPARE_PIXEL(blitted(0x000000, {}), 3, 1, 0x000000U);
    }

    void brush_colours_every_pixel_but_the_mask() {
        const QImage target = blitted(0xFFFFFF, {.mask = clearColour, .brush = 0x00FF00});
        COMPARE_PIXEL(target, 2, 1, ground);
        COMPARE_PIXEL(target, 3, 1, 0x00FF00U);
    }

    void a_black_brush_is_a_brush() {
        COMPARE_PIXEL(blitted(0xFFFFFF, {.mask = clearColour, .brush = 0x000000}), 3, 1, 0x000000U);
    }

    void stencil_prints_pixels_up_to_a_sum_of_384() {
        const BlitRule rule{.mask = clearColour, .brush = 0x00FF00, .stencil = true};
        COMPARE_PIXEL(blitted(0x808080, rule), 3, 1, 0x00FF00U); // 384
        COMPARE_PIXEL(blitted(0x808081, rule), 3, 1, ground);    // 385
        COMPARE_PIXEL(blitted(0xFF8100, rule), 3, 1, 0x00FF00U); // 384
    }

    void grey_is_the_rounded_luminance() {
        // 0.3 x 10 + 0.59 x 20 + 0.11 x 200 = 36.8
        COMPARE_PIXEL(blitted(0xC8140A, {.mask = clearColour, .grey = true}), 3, 1, 0x252525U);
        // 0.3 x 255 = 76.5 and 0.11 x 255 = 28.05
        QCOMPARE(luminance(qRgb(0, 0, 255)), 28);
        QCOMPARE(luminance(qRgb(255, 255, 255)), 255);
    }

    void grey_rounds_an_exact_half_to_even() {
        QCOMPARE(luminance(qRgb(255, 0, 0)), 76); // 76.5
        QCOMPARE(luminance(qRgb(5, 0, 0)), 2);    // 1.5
        QCOMPARE(luminance(qRgb(0, 50, 0)), 30);  // 29.5
    }

    void blend_takes_two_parts_of_the_picture_and_one_of_the_surface() {
        // Red (2 x 100 + 16) / 3 = 72, green (2 x 0 + 32) / 3 = 10, blue (2 x 255 + 48) / 3 = 186.
        COMPARE_PIXEL(blitted(0xFF0064, {.mask = clearColour, .blend = true}), 3, 1, 0xBA0A48U);
    }

    void brush_goes_before_grey_and_grey_before_blend() {
        COMPARE_PIXEL(blitted(0xC8140A, {.mask = clearColour, .brush = 0x00FF00, .grey = true}), 3, 1,
                      0x00FF00U);
        COMPARE_PIXEL(blitted(0xC8140A, {.mask = clearColour, .grey = true, .blend = true}), 3, 1, 0x252525U);
    }

    void a_size_of_nothing_copies_nothing() {
        QImage target = groundImage();
        TransparentBlit(target, {2, 1, 0, 1}, pictureWith(0x0000FF), {});
        TransparentBlit(target, {2, 1, 2, 0}, pictureWith(0x0000FF), {});
        QCOMPARE(target, groundImage());
    }

    void a_negative_size_is_the_pictures_own() {
        QImage target = groundImage();
        TransparentBlit(target, QRect(QPoint(2, 1), QSize(-1, -1)), pictureWith(0x0000FF), {});
        COMPARE_PIXEL(target, 3, 1, 0x0000FFU);
        COMPARE_PIXEL(target, 4, 1, ground);
    }

    void a_smaller_size_cuts_the_picture() {
        QImage target = groundImage();
        TransparentBlit(target, {2, 1, 1, 1}, pictureWith(0x0000FF), {});
        COMPARE_PIXEL(target, 2, 1, clearColour);
        COMPARE_PIXEL(target, 3, 1, ground);
    }

    void what_lies_outside_the_surface_is_left_out() {
        QImage target = groundImage();
        TransparentBlit(target, {-1, 0, 2, 1}, pictureWith(0x0000FF), {});
        COMPARE_PIXEL(target, 0, 0, 0x0000FFU);
        TransparentBlit(target, {5, 3, 2, 1}, pictureWith(0x0000FF), {});
        COMPARE_PIXEL(target, 5, 3, clearColour);
        TransparentBlit(target, {100, 100, 2, 1}, pictureWith(0x0000FF), {});
        COMPARE_PIXEL(target, 4, 3, ground);
        QImage column(1, 2, QImage::Format_RGB32);
        column.setPixelColor(0, 0, Qt::red);
        column.setPixelColor(0, 1, Qt::green);
        TransparentBlit(target, {3, -1, 1, 2}, column, {});
        COMPARE_PIXEL(target, 3, 0, 0x00FF00U);
        COMPARE_PIXEL(target, 3, 1, ground);
    }

    void transparent_parts_of_an_icon_become_the_mask() {
        QImage icon(2, 1, QImage::Format_ARGB32);
        icon.fill(Qt::transparent);
        icon.setPixelColor(1, 0, Qt::red);
        const QImage ready = pictureAt(icon, 1.0, clearColour);
        COMPARE_PIXEL(ready, 0, 0, clearColour);
        COMPARE_PIXEL(ready, 1, 0, 0x0000FFU);
    }

    void a_picture_on_a_dense_surface_keeps_its_exact_colours() {
        const QImage ready = pictureAt(pictureWith(0x0000FF), 2.0, clearColour);
        QCOMPARE(ready.size(), QSize(4, 2));
        for (const int y : {0, 1}) {
            COMPARE_PIXEL(ready, 0, y, clearColour);
            COMPARE_PIXEL(ready, 1, y, clearColour);
            COMPARE_PIXEL(ready, 2, y, 0x0000FFU);
            COMPARE_PIXEL(ready, 3, y, 0x0000FFU);
        }
    }

    void a_dense_picture_on_a_dense_surface_is_copied_dot_for_dot() {
        QImage dense = pictureWith(0x0000FF).scaled(4, 2);
        dense.setPixelColor(3, 1, Qt::green);
        dense.setDevicePixelRatio(2.0);
        const QImage ready = pictureAt(dense, 2.0, clearColour);
        QCOMPARE(ready.size(), QSize(4, 2));
        COMPARE_PIXEL(ready, 3, 1, 0x00FF00U);
        COMPARE_PIXEL(ready, 3, 0, 0x0000FFU);
    }

    void no_picture_stays_none() { QVERIFY(pictureAt({}, 1.0, clearColour).isNull()); }
};

TORVANE_GUILESS_TEST(TransparentBlitTest)
#include "TransparentBlitTest.moc"
