// SPDX-License-Identifier: MIT
// The outline that a window takes from its picture.
#include "toolkit/Shaper.h"
#include "PanelForm.h"
#include "support/TestMain.h"

#include <QPainter>

using namespace torvane;

namespace {
constexpr QRgb mask = qRgb(0, 255, 0);
constexpr QRgb end = qRgb(255, 0, 0);
constexpr QRgb paint = qRgb(10, 20, 30);

// An image of rows: "." the mask, "E" the end of the image, anything else a colour of its own.
QImage imageOf(const QList<const char*>& rows) {
    QImage image(static_cast<int>(qstrlen(rows.first())), static_cast<int>(rows.size()),
                 QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const char sign = rows[y][x];
            image.setPixel(x, y, sign == '.' ? mask : sign == 'E' ? end : paint + static_cast<QRgb>(sign));
        }
    }
    return image;
}

// The shape as rows again: "#" inside, "." outside.
QByteArray drawn(const QRegion& shape, QSize size) {
    QByteArray rows;
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) rows += shape.contains(QPoint(x, y)) ? '#' : '.';
        rows += ' ';
    }
    return rows.trimmed();
}

QByteArray shapeOfRows(const QList<const char*>& rows, QRgb endOfImage = end) {
    const QImage image = imageOf(rows);
    return drawn(shapeOf(image, endOfImage), image.size());
}

// Whether two regions have the same pixels, in whatever rectangles.
bool covers(const QRegion& region, const QRegion& expected) { return (region ^ expected).isEmpty(); }

QPixmap boxPicture(QColor ground, QColor box) {
    QPixmap picture(400, 300);
    picture.fill(ground);
    QPainter painter(&picture);
    painter.fillRect(100, 100, 50, 40, box);
    return picture;
}
} // namespace

class ShaperTest : public QObject {
    Q_OBJECT

private slots:
    void runs_between_mask_pixels_are_inside() {
        QCOMPARE(shapeOfRows({".ab.", "a..b", "...."}), QByteArray(".##. #..# ...."));
    }

    void a_run_that_reaches_the_right_edge_takes_the_last_column_in() {
        QCOMPARE(shapeOfRows({"...a", "..ab"}), QByteArray("...# ..##"));
    }

    void a_picture_of_the_corner_colour_alone_has_an_empty_shape() {
        QVERIFY(shapeOf(imageOf({"...", "..."}), end).isEmpty());
    }

    void a_row_ends_at_the_first_end_of_image_pixel() {
        QCOMPARE(shapeOfRows({".abEab", "..ab.a"}), QByteArray(".##... ..##.#"));
    }

    void a_row_that_begins_with_the_end_of_image_is_outside() {
        QCOMPARE(shapeOfRows({"....", "Eabc"}), QByteArray(".... ...."));
    }

    void an_end_of_image_equal_to_the_corner_keeps_what_lies_left_of_the_first_mask_pixel() {
        QCOMPARE(shapeOfRows({".ab.", "ab.a", "abcd"}, mask), QByteArray(".... ##.. ####"));
    }

    void colours_are_compared_without_tolerance() {
        QImage image = imageOf({"..."});
        image.setPixel(1, 0, mask + 1);
        QCOMPARE(drawn(shapeOf(image, end), image.size()), QByteArray(".#."));
    }

    void the_alpha_channel_does_not_count() {
        QCOMPARE(shapeOfRows({".aEb"}, end & 0x00FFFFFF), QByteArray(".#.."));
    }

    void no_image_has_no_shape() { QVERIFY(shapeOf({}, end).isEmpty()); }

    void a_window_without_a_picture_keeps_its_rectangle() {
        PanelForm form;
        ShapeForm(form);
        QVERIFY(form.mask().isEmpty());
    }

    void a_window_takes_the_shape_of_its_picture() {
        PanelForm form;
        form.setPicture(boxPicture(Qt::green, Qt::blue));
        ShapeForm(form);
        QVERIFY(covers(form.mask(), QRegion(100, 100, 50, 40)));
    }

    void the_back_colour_beside_a_small_picture_ends_the_rows() {
        PanelForm form;
        QPixmap picture(60, 20);
        picture.fill(Qt::green);
        QPainter(&picture).fillRect(50, 0, 10, 20, Qt::blue);
        form.setPicture(picture);
        ShapeForm(form);
        QVERIFY(covers(form.mask(), QRegion(50, 0, 10, 20)));
    }

    void a_system_back_colour_is_compared_after_translation() {
        FakeDesktop world;
        Form form(world.runtime,
                  {.name = "F", .title = "", .clientSize = {4, 1}, .backColour = Colours::system(15)});
        QImage image = imageOf({".abc"});
        image.setPixel(2, 0, Colours::toQColor(Colours::system(15)).rgb());
        form.setPicture(QPixmap::fromImage(image));
        ShapeForm(form);
        QCOMPARE(form.mask(), QRegion(1, 0, 1, 1));
    }

    void a_window_without_a_visible_pixel_vanishes() {
        PanelForm form;
        form.setPicture(boxPicture(Qt::green, Qt::green));
        ShapeForm(form);
        QVERIFY(!form.mask().isEmpty()); // an empty mask would show the whole window
        QVERIFY(!form.mask().intersects(form.rect()));
    }

    void a_drag_without_a_mouse_button_leaves_the_window_alone() {
        PanelForm form;
        DragForm(form);
        form.showAndWait();
        const QPoint place = form.pos();
        DragForm(form);
        QTest::qWait(50);
        QCOMPARE(form.pos(), place);
    }
};

TORVANE_TEST(ShaperTest)
#include "ShaperTest.moc"
