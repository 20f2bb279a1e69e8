// SPDX-License-Identifier: MIT
// The image whose picture comes out of a file: its size, what it paints, and what it says.
#include "platform/forms/FileImage.h"
#include "support/AccessibleTree.h"
#include "support/FakeDesktop.h"
#include "support/PictureBytes.h"
#include "support/TestForm.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class FileImageTest : public QObject {
    Q_OBJECT

    FakeDesktop world;
    std::unique_ptr<TestForm> form;

    // A JPEG that is whole and that the reader refuses.
    static QByteArray undecodable() {
        const QByteArray bytes = jpegBytes({16, 16});
        return overwritten(bytes, bytes.indexOf("\xFF\xDB"), "\xFF\xFE");
    }
    QColor pixel(int x, int y) const { return imageOf(*form).pixelColor(x, y); }
    static bool isRed(const QColor& colour) { return colour.red() > 200 && colour.green() < 40; }

private slots:
    void init() {
        form = std::make_unique<TestForm>(world.runtime);
        QVERIFY(form->appear());
    }
    void cleanup() { form.reset(); }

    void a_stretched_image_keeps_its_size_and_fills_it() {
        FileImage image(*form, "image", {10, 10, 90, 50}, FileImage::stretched);
        image.show();
        image.setSource(PictureFile(bmpBytes({8, 8})));
        QCOMPARE(image.geometry(), QRect(10, 10, 90, 50));
        QVERIFY(isRed(pixel(12, 12)));
        QVERIFY(pixel(97, 57).red() < 150);
        QVERIFY(pixel(97, 57).green() < 40);
    }
    void a_natural_image_takes_the_size_of_its_picture() {
        FileImage image(*form, "image", {10, 10, 90, 50}, FileImage::natural);
        image.show();
        image.setSource(PictureFile(gifBytes({33, 22})));
        QCOMPARE(image.geometry(), QRect(10, 10, 33, 22));
        QVERIFY(isRed(pixel(10, 10)));
    }
    void a_size_that_is_set_afterwards_is_filled() {
        FileImage image(*form, "image", {10, 10, 90, 50}, FileImage::natural);
        image.show();
        image.setSource(PictureFile(bmpBytes({8, 8})));
        image.resize(64, 64);
        QVERIFY(isRed(pixel(40, 40)));
        QVERIFY(pixel(72, 72).red() < 150);
    }
    void whole_multiples_stay_sharp_and_other_sizes_are_smooth() {
        FileImage image(*form, "image", {0, 0, 8, 8}, FileImage::natural);
        image.show();
        image.setSource(PictureFile(bmpBytes({8, 8})));
        image.resize(64, 64);
        QVERIFY(isRed(pixel(31, 31)));
        QCOMPARE(pixel(31, 31), pixel(0, 0));
        image.resize(60, 60);
        QVERIFY(pixel(29, 29) != pixel(0, 0));
    }
    void no_picture_paints_nothing() {
        FileImage image(*form, "image", {10, 10, 90, 50}, FileImage::stretched);
        image.show();
        QCOMPARE(pixel(30, 30), Colours::toQColor(TestForm::back));
        image.setSource(PictureFile(bmpBytes()));
        image.setSource(PictureFile());
        QCOMPARE(pixel(30, 30), Colours::toQColor(TestForm::back));
    }
    void what_cannot_be_decoded_leaves_the_picture_that_is_there() {
        FileImage image(*form, "image", {10, 10, 90, 50}, FileImage::stretched);
        image.show();
        image.setSource(PictureFile(bmpBytes({8, 8})));
        bool failed = false;
        try {
            image.setSource(PictureFile(undecodable()));
        } catch (const RuntimeFailure& failure) {
            failed = failure.number() == RuntimeFailure::invalidPicture;
        }
        QVERIFY(failed);
        QCOMPARE(image.source().bytes(), bmpBytes({8, 8}));
        QVERIFY(isRed(pixel(12, 12)));
    }
    void an_image_out_of_sight_measures_without_decoding() {
        FileImage beside(*form, "beside", {400, 10, 90, 50}, FileImage::stretched);
        beside.show();
        beside.setSource(PictureFile(undecodable()));
        QCOMPARE(beside.source().size(), QSize(16, 16));
        FileImage hidden(*form, "hidden", {10, 10, 90, 50}, FileImage::stretched);
        hidden.hide();
        hidden.setSource(PictureFile(undecodable()));
        QCOMPARE(hidden.source().size(), QSize(16, 16));
    }
    void an_image_that_cannot_be_decoded_when_it_is_painted_stays_clear() {
        FileImage image(*form, "image", {10, 10, 90, 50}, FileImage::natural);
        image.show();
        image.setSource(PictureFile(undecodable()));
        QCOMPARE(pixel(14, 14), Colours::toQColor(TestForm::back));
    }
    void a_notice_is_painted_over_the_picture_and_spoken() {
        FileImage image(*form, "image", {10, 10, 200, 100}, FileImage::stretched);
        image.show();
        image.setSource(PictureFile(bmpBytes({8, 8})));
        QVERIFY(!image.isExposed());
        image.setNotice(u"No picture"_s);
        QVERIFY(hasColour(imageOf(*form), Qt::white));
        QVERIFY(isRed(pixel(12, 12)));
        QVERIFY(image.isExposed());
        QCOMPARE(nameOf(image), u"No picture"_s);
        image.setNotice({});
        QVERIFY(!hasColour(imageOf(*form), Qt::white));
        QVERIFY(!image.isExposed());
    }
    void a_notice_keeps_its_words_whatever_they_look_like() {
        FileImage image(*form, "image", {10, 10, 200, 100}, FileImage::stretched);
        image.show();
        image.setNotice(u"<b>not</b> bold"_s);
        QCOMPARE(nameOf(image), u"<b>not</b> bold"_s);
    }
};

TORVANE_TEST(FileImageTest)
#include "FileImageTest.moc"
