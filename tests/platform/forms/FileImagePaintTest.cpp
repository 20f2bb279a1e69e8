// SPDX-License-Identifier: MIT
// The image whose picture comes out of a file, on a dense screen: which pixels it has after each change.
#include "platform/forms/FileImage.h"
#include "support/FakeDesktop.h"
#include "support/PdfPage.h"
#include "support/PictureBytes.h"
#include "support/TestForm.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

namespace {
constexpr int dotsPerPixel = 2; // dots of the screen for each pixel of the design, in each direction
}

class FileImagePaintTest : public QObject {
    Q_OBJECT

    FakeDesktop world;
    std::unique_ptr<TestForm> form;

    static QByteArray bytesOf(const QImage& picture) {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        picture.save(&buffer, "BMP");
        return bytes;
    }
    // What is on the screen by now, without a request to paint it.
    QColor onScreen(int x, int y) const {
        const QImage screen = form->screen()->grabWindow(form->winId()).toImage();
        return screen.pixelColor(dotsPerPixel * x, dotsPerPixel * y);
    }
    // Whether an image shows a picture dot for dot, each of them as a square.
    bool isSharp(const FileImage& image, const QImage& picture) const {
        const QRect place = image.geometry();
        const QImage shown =
            imageOf(*form).copy(QRect(place.topLeft() * dotsPerPixel, place.size() * dotsPerPixel));
        return shown == picture.scaled(shown.size());
    }
    // The lines of a notice, by the height of its dark band on a white picture.
    static int linesOf(const QImage& image) {
        constexpr int lineHeight = 13;
        int dark = 0;
        for (int y = 0; y < image.height(); ++y) dark += image.pixelColor(1, y).lightness() < 100;
        return dark / dotsPerPixel / lineHeight;
    }

public:
    static void initMain() { qputenv("QT_SCALE_FACTOR", "2"); }

private slots:
    void init() {
        form = std::make_unique<TestForm>(world.runtime);
        QVERIFY(form->appear());
    }
    void cleanup() { form.reset(); }

    void a_dense_screen_shows_a_picture_dot_for_dot() {
        const QImage picture = motley(80, 60);
        FileImage image(*form, "image", {10, 10, 40, 30}, FileImage::stretched);
        image.show();
        image.setSource(PictureFile(bytesOf(picture)));
        QVERIFY(isSharp(image, picture));
    }
    void a_picture_that_was_shown_small_is_shown_whole_when_it_grows() {
        const QImage picture = motley(80, 60);
        FileImage image(*form, "image", {10, 10, 1, 1}, FileImage::natural);
        image.show();
        image.setSource(PictureFile(bytesOf(picture)));
        image.resize(20, 15);
        QVERIFY(!isSharp(image, picture));
        image.resize(40, 30);
        QVERIFY(isSharp(image, picture));
        image.resize(80, 60);
        QVERIFY(isSharp(image, picture));
    }
    void another_picture_of_the_same_size_replaces_the_first() {
        FileImage image(*form, "image", {10, 10, 1, 1}, FileImage::natural);
        image.show();
        for (const quint32 colour : {0xFFFF0000U, 0xFF0000FFU}) {
            QImage picture(20, 20, QImage::Format_RGB32);
            picture.fill(colour);
            image.setSource(PictureFile(bytesOf(picture)));
            QVERIFY(isSharp(image, picture));
        }
    }
    void a_picture_whose_proportions_change_is_smooth() {
        const QImage picture = motley(8, 8);
        FileImage image(*form, "image", {10, 10, 8, 16}, FileImage::stretched);
        image.show();
        image.setSource(PictureFile(bytesOf(picture)));
        QVERIFY(!isSharp(image, picture));
        image.resize(16, 16);
        QVERIFY(isSharp(image, picture));
    }
    void an_image_without_a_picture_keeps_its_size() {
        FileImage image(*form, "image", {10, 10, 90, 50}, FileImage::natural);
        image.setSource(PictureFile());
        QCOMPARE(image.size(), QSize(90, 50));
    }
    void pictures_and_notices_appear_by_themselves() {
        FileImage image(*form, "image", {10, 10, 100, 60}, FileImage::stretched);
        image.show();
        image.setNotice(u"x"_s);
        QTRY_VERIFY(onScreen(12, 40).lightness() < 50);
        image.setSource(PictureFile(bmpBytes({8, 8}, Qt::white)));
        QTRY_COMPARE(onScreen(12, 12), QColor(Qt::white));
        image.setNotice({});
        QTRY_VERIFY(onScreen(12, 40).lightness() > 100);
        image.setSource(PictureFile());
        QTRY_COMPARE(onScreen(12, 12), Colours::toQColor(TestForm::back));
    }
    void a_notice_stands_out_from_a_white_picture_and_has_as_many_lines_as_it_needs() {
        QImage picture(8, 8, QImage::Format_RGB32);
        picture.fill(Qt::white);
        FileImage image(*form, "image", {0, 0, 120, 100}, FileImage::stretched);
        image.show();
        image.setSource(PictureFile(bytesOf(picture)));
        QCOMPARE(linesOf(imageOf(image)), 0);
        image.setNotice(u"Short"_s);
        const int one = linesOf(imageOf(image));
        QVERIFY(one > 0);
        image.setNotice(u"This screenshot can't be shown on any screen"_s);
        QVERIFY(linesOf(imageOf(image)) > one);
    }
};

TORVANE_TEST(FileImagePaintTest)
#include "FileImagePaintTest.moc"
