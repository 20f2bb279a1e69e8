// SPDX-License-Identifier: MIT
// From files to pixels: what is decoded, at which size, and what becomes of damaged files.
#include "platform/forms/PictureDecoder.h"
#include "platform/base/RuntimeFailure.h"
#include "support/CommandOutput.h"
#include "support/Failing.h"
#include "support/PictureBytes.h"
#include "support/TestMain.h"

using namespace torvane;

namespace {
// Small pictures of each format that has ways of its own to be damaged.
QList<std::pair<const char*, QByteArray>> corpus() {
    QImage indexed = QImage::fromData(bmpBytes({9, 7})).convertToFormat(QImage::Format_Indexed8);
    QByteArray colours;
    QBuffer buffer(&colours);
    buffer.open(QIODevice::WriteOnly);
    indexed.setColorCount(4);
    indexed.save(&buffer, "BMP");
    return {{"JPEG", jpegBytes({24, 17})},
            {"GIF", gifBytes({9, 7})},
            {"BMP", bmpBytes({9, 7})},
            {"BMP with colour table", colours}};
}

// A damaged file is refused, or gives a picture of the size that it claims.
void checkFate(const QByteArray& bytes) {
    try {
        const PictureFile picture(bytes);
        QCOMPARE(decoded(picture, picture.size()).size(), picture.size());
        QCOMPARE(decoded(picture, {5, 4}).size(), picture.size().boundedTo({5, 4}));
        QCOMPARE(decodedCorner(picture, {5, 4}).size(), picture.size().boundedTo({5, 4}));
    } catch (const RuntimeFailure& failure) {
        QCOMPARE(failure.number(), RuntimeFailure::invalidPicture);
    }
}
} // namespace

class PictureDecoderTest : public QObject {
    Q_OBJECT

    static void addCorpus() {
        QTest::addColumn<QByteArray>("bytes");
        for (const auto& [name, bytes] : corpus()) QTest::newRow(name) << bytes;
    }
    // As a BMP.
    static QByteArray convertedByNetpbm(const QImage& image) {
        QByteArray pixels;
        QBuffer buffer(&pixels);
        buffer.open(QIODevice::WriteOnly);
        image.save(&buffer, "PPM");
        return outputOf({"ppmtobmp"}, pixels);
    }
    static QImage image(const QByteArray& bytes) {
        const PictureFile picture(bytes);
        return decoded(picture, picture.size());
    }

private slots:
    void a_picture_has_its_own_size_and_colours_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("JPEG") << jpegBytes({40, 20}, Qt::blue);
        QTest::newRow("BMP") << bmpBytes({40, 20}, Qt::blue);
    }
    void a_picture_has_its_own_size_and_colours() {
        QFETCH(QByteArray, bytes);
        const QImage picture = image(bytes);
        QCOMPARE(picture.size(), QSize(40, 20));
        const QColor corner = picture.pixelColor(2, 2);
        QVERIFY(corner.blue() > 240 && corner.red() < 15 && corner.green() < 15);
        QVERIFY(picture.pixelColor(38, 18).blue() < 200);
    }
    void a_gif_gives_its_first_frame() {
        const QImage picture = image(gifBytes({4, 3}));
        QCOMPARE(picture.size(), QSize(4, 3));
        QCOMPARE(picture.pixelColor(0, 0), QColor(Qt::red));
    }
    void each_direction_is_made_smaller_by_itself_and_none_larger() {
        for (const QByteArray& bytes : {jpegBytes({80, 60}), gifBytes({80, 60}), bmpBytes({80, 60})}) {
            const PictureFile picture(bytes);
            QCOMPARE(decoded(picture, {40, 30}).size(), QSize(40, 30));
            QCOMPARE(decoded(picture, {8, 600}).size(), QSize(8, 60));
            QCOMPARE(decoded(picture, {800, 600}).size(), QSize(80, 60));
        }
    }
    void a_corner_has_the_pixels_of_the_whole_picture() {
        for (const QByteArray& bytes : {jpegBytes({80, 60}), gifBytes({80, 60}), bmpBytes({80, 60})}) {
            const PictureFile picture(bytes);
            const QImage whole = image(bytes);
            for (const QSize room : {QSize(45, 35), QSize(1, 60), QSize(500, 1), QSize(500, 500)}) {
                const QSize size = room.boundedTo(whole.size());
                QCOMPARE(decodedCorner(picture, room), whole.copy({{0, 0}, size}));
            }
        }
    }
    void no_picture_and_no_room_are_failures() {
        QCOMPARE(failureOf([] { decoded(PictureFile(), {5, 5}); }), int{RuntimeFailure::invalidPicture});
        QCOMPARE(failureOf([] {
                     decoded(PictureFile(bmpBytes()), {0, 5});
                 }),
                 int{RuntimeFailure::invalidPicture});
    }
    void a_bmp_of_netpbm_has_every_pixel_data() {
        QTest::addColumn<int>("colours");
        for (const int colours : {1, 2, 5, 16, 200, 3000}) {
            QTest::addRow("%d colours", colours) << colours;
        }
    }
    // That is how emulators' screenshots become pictures that can be read here.
    void a_bmp_of_netpbm_has_every_pixel() {
        QFETCH(int, colours);
        QImage screen(61, 53, QImage::Format_RGB32);
        for (int i = 0; i < 61 * 53; ++i)
            screen.setPixel(i % 61, i / 61, qRgb(i % colours, i % colours / 9, 77));
        const QImage picture = image(convertedByNetpbm(screen));
        QCOMPARE(picture.convertToFormat(QImage::Format_RGB32), screen);
    }
    void what_the_reader_cannot_decode_is_a_failure() {
        QByteArray bytes = jpegBytes({16, 16});
        // The table of the colours' weights is gone.
        const qsizetype table = bytes.indexOf("\xFF\xDB");
        bytes = overwritten(bytes, table, "\xFF\xFE");
        QVERIFY(PictureShape::of(bytes).isPicture());
        QCOMPARE(failureOf([&] { image(bytes); }), int{RuntimeFailure::invalidPicture});
    }

    void every_byte_of_a_small_picture_may_change_data() { addCorpus(); }
    void every_byte_of_a_small_picture_may_change() {
        QFETCH(QByteArray, bytes);
        for (qsizetype at = 0; at < bytes.size(); ++at) {
            const int was = static_cast<uchar>(bytes[at]);
            for (const int now : {0, 255, was ^ 1, was ^ 2, was ^ 16, was ^ 128, was + 1, was - 1}) {
                checkFate(overwritten(bytes, at, QByteArray(1, static_cast<char>(now))));
                if (QTest::currentTestFailed()) return;
            }
        }
    }
    void a_small_picture_may_be_cut_at_every_length_data() { addCorpus(); }
    void a_small_picture_may_be_cut_at_every_length() {
        QFETCH(QByteArray, bytes);
        for (qsizetype length = 0; length <= bytes.size(); ++length) checkFate(bytes.first(length));
        checkFate(bytes + bytes);
    }
};

TORVANE_TEST(PictureDecoderTest)
#include "PictureDecoderTest.moc"
