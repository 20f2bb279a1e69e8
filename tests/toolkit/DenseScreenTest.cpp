// SPDX-License-Identifier: MIT
// The skinned button on a screen with two dots to the pixel: sharp lines and letters, the same places.
#include "OneButtonForm.h"
#include "support/TestMain.h"

#include <QApplication>

using namespace torvane;

namespace {
QImage pictureOf(chameleonButton& button) {
    QImage image = button.grab().toImage();
    image.setDevicePixelRatio(1.0);
    return image;
}

// Whether some 2 x 2 block of dots has more than one colour: magnified pixels never have.
bool hasFineDots(const QImage& image) {
    for (int x = 0; x + 1 < image.width(); x += 2) {
        for (int y = 0; y + 1 < image.height(); y += 2) {
            if (image.pixel(x, y) != image.pixel(x + 1, y) || image.pixel(x, y) != image.pixel(x, y + 1))
                return true;
        }
    }
    return false;
}
} // namespace

class DenseScreenTest : public QObject {
    Q_OBJECT

public:
    static void initMain() { qputenv("QT_SCALE_FACTOR", "2"); }

private slots:
    void lines_are_two_dots_wide() {
        PanelForm form;
        chameleonButton button(form, "button", {20, 20, 100, 30}, {.type = 7, .back = face});
        const QImage image = pictureOf(button);
        QCOMPARE(image.size(), QSize(200, 60));
        COMPARE_PIXEL(image, 1, 1, faceHighlight);
        COMPARE_PIXEL(image, 2, 2, face);
        QVERIFY(!hasFineDots(image));
    }

    void letters_are_drawn_in_single_dots() {
        PanelForm form;
        chameleonButton button(form, "button", {20, 20, 100, 30},
                               {.type = 7, .back = face, .caption = "Salir"});
        QVERIFY(hasFineDots(pictureOf(button)));
    }

    void dense_pictures_are_shown_dot_for_dot() {
        PanelForm form;
        chameleonButton button(form, "button", {20, 20, 100, 30},
                               {.type = 7, .back = face, .useGreyscale = false});
        QImage dense(32, 32, QImage::Format_RGB32);
        dense.fill(Qt::red);
        dense.setPixelColor(31, 31, Qt::blue);
        dense.setDevicePixelRatio(2.0);
        button.setPictureNormal(QPixmap::fromImage(dense));
        // 16 pixels wide, centred at (42, 7).
        const QImage image = pictureOf(button);
        COMPARE_PIXEL(image, 84, 14, 0x0000FFU);
        COMPARE_PIXEL(image, 115, 45, 0xFF0000U);
        COMPARE_PIXEL(image, 114, 45, 0x0000FFU);
        COMPARE_PIXEL(image, 116, 45, face);
    }

    void a_caption_that_fits_stays_on_one_line_data() {
        QTest::addColumn<QString>("caption");
        for (const char* caption :
             {"Eliminar ROM.TAG", "Copiar la ROM", "Cargar esta ROM!", "i l i l i l i"}) {
            QTest::newRow(caption) << QString::fromUtf8(caption);
        }
    }

    void a_caption_that_fits_stays_on_one_line() {
        QFETCH(QString, caption);
        PanelForm form;
        chameleonButton button(form, "button", {20, 20, 204, 42},
                               {.type = 10, .back = face, .fore = Colours::white});
        button.setCaption(caption);
        const QImage image = pictureOf(button);
        const int height = QFontMetrics(button.font()).height();
        QImage ground = image.copy(0, 0, 408, 42 - height - 2);
        ground.fill(Colours::toQColor(face));
        QCOMPARE(image.copy(0, 0, 408, ground.height()), ground);
        QVERIFY(image.copy(0, 42 - height, 408, 2 * height) != ground.scaled(408, 2 * height));
    }
};

TORVANE_TEST(DenseScreenTest)
#include "DenseScreenTest.moc"
