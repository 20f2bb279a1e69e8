// SPDX-License-Identifier: MIT
// What the bytes of picture files say: their format and size, and whether they are whole.
#include "platform/base/PictureFile.h"
#include "support/FileFixture.h"
#include "support/PictureBytes.h"
#include "support/TestMain.h"

using namespace torvane;

namespace {
QByteArray word(int value) {
    QByteArray bytes(2, '\0');
    qToLittleEndian(static_cast<quint16>(value), bytes.data());
    return bytes;
}
QByteArray longWord(qint32 value) {
    QByteArray bytes(4, '\0');
    qToLittleEndian(value, bytes.data());
    return bytes;
}
// A BMP of 256 colours in the way of packing that the number names.
QByteArray packedBmp(int packing, int depth, const QByteArray& pixels) {
    const QByteArray colours(4 * 256, 'c');
    return "BM" + longWord(0) + longWord(0) + longWord(54 + 1024) + longWord(40) + longWord(4) + longWord(2) +
           word(1) + word(depth) + longWord(packing) + QByteArray(20, '\0') + colours + pixels;
}
// The header of the first BMPs, with numbers of two bytes.
QByteArray oldBmp() {
    return "BM" + longWord(0) + longWord(0) + longWord(26) + longWord(12) + word(3) + word(2) + word(1) +
           word(24) + QByteArray(24, 'p');
}
QByteArray gifWithScreen(int width, int height) { return gifHead(width, height) + gifFrame(0) + ';'; }
} // namespace

class PictureFileTest : public FileFixture {
    Q_OBJECT

    static std::optional<int> loadFailure(const QString& path) {
        return failureOf([&] { PictureFile::load(path); });
    }
    void expectNoPicture(const QByteArray& bytes) {
        QCOMPARE(loadFailure(write("p.jpg", bytes)), number(RuntimeFailure::invalidPicture));
        QCOMPARE(failureOf([&] { PictureFile{bytes}; }), number(RuntimeFailure::invalidPicture));
        QVERIFY(!PictureShape::of(bytes).isPicture());
    }

private slots:
    void init() { renewFolder(); }

    void a_picture_has_its_format_and_size_whatever_its_name_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QByteArray>("format");
        QTest::addColumn<QSize>("size");
        QTest::newRow("JPEG") << jpegBytes({37, 21}) << QByteArray("jpg") << QSize(37, 21);
        QTest::newRow("GIF") << gifBytes({37, 21}) << QByteArray("gif") << QSize(37, 21);
        QTest::newRow("BMP") << bmpBytes({37, 21}) << QByteArray("bmp") << QSize(37, 21);
        QTest::newRow("BMP from top to bottom") << bmpClaiming(4, -4) << QByteArray("bmp") << QSize(4, 4);
        QTest::newRow("first kind of BMP") << oldBmp() << QByteArray("bmp") << QSize(3, 2);
        const QByteArray rest = QByteArray::fromHex("0401"
                                                    "0000"
                                                    "0400"
                                                    "0001");
        QTest::newRow("packed BMP") << packedBmp(1, 8, rest) << QByteArray("bmp") << QSize(4, 2);
        QTest::newRow("BMP packed by halves") << packedBmp(2, 4, rest) << QByteArray("bmp") << QSize(4, 2);
    }
    void a_picture_has_its_format_and_size_whatever_its_name() {
        QFETCH(QByteArray, bytes);
        const PictureFile picture = PictureFile::load(write("p.txt", bytes));
        QTEST(QByteArray(picture.format()), "format");
        QTEST(picture.size(), "size");
        QCOMPARE(picture.bytes(), bytes);
        QVERIFY(!picture.isNull());
    }
    void no_picture_has_no_size() {
        QVERIFY(PictureFile().isNull());
        QCOMPARE(PictureFile().size(), QSize(0, 0));
    }
    void a_png_is_no_picture_here() { expectNoPicture(pngBytes()); }
    void other_content_is_no_picture_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("a byte") << QByteArray("B");
        QTest::newRow("text") << QByteArray("This is no picture.");
        QTest::newRow("WebP") << QByteArray("RIFF\x20\0\0\0WEBPVP8 ", 16);
        QTest::newRow("signature of a JPEG") << QByteArray("\xFF\xD8\xFF");
        QTest::newRow("signature of a GIF") << QByteArray("GIF89a");
        QTest::newRow("signature of a BMP") << QByteArray("BM");
        QTest::newRow("JPEG without a scan") << QByteArray("\xFF\xD8\xFF\xD9");
        QTest::newRow("JPEG with a length of 1") << QByteArray("\xFF\xD8\xFF\xE0\0\x01\xFF\xD9", 8);
        QTest::newRow("GIF without a frame") << gifHead(4, 4) + ';';
        QTest::newRow("unknown packing") << packedBmp(4, 8, QByteArray(100, '\0'));
        QTest::newRow("packed without end") << packedBmp(1, 8, QByteArray::fromHex("04010000"));
        QTest::newRow("packed text cut") << packedBmp(1, 8, QByteArray::fromHex("000901"));
    }
    void other_content_is_no_picture() {
        QFETCH(QByteArray, bytes);
        expectNoPicture(bytes);
    }
    void a_picture_that_is_cut_anywhere_is_none_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("JPEG") << jpegBytes({16, 16});
        QTest::newRow("GIF") << gifHead(16, 16) + gifFrame(0);
        QTest::newRow("BMP") << bmpBytes({7, 5});
        QTest::newRow("packed BMP") << packedBmp(1, 8,
                                                 QByteArray::fromHex("0401"
                                                                     "0002"
                                                                     "0101"
                                                                     "0401"
                                                                     "0001"));
    }
    void a_picture_that_is_cut_anywhere_is_none() {
        QFETCH(QByteArray, bytes);
        QVERIFY(PictureShape::of(bytes).isPicture());
        for (qsizetype length = 0; length < bytes.size(); ++length) {
            QVERIFY2(!PictureShape::of(bytes.first(length)).isPicture(), qPrintable(QString::number(length)));
        }
    }
    void what_follows_a_picture_does_not_count() {
        for (const QByteArray& bytes : {jpegBytes({9, 9}), gifBytes({9, 9}), bmpBytes({9, 9})}) {
            QCOMPARE(PictureShape::of(bytes + QByteArray(1000, '\xFF')), PictureShape::of(bytes));
        }
    }
    void a_gif_needs_its_first_frame_only() {
        const QByteArray bytes = gifHead(16, 16) + gifFrame(0) + gifFrame(1).first(5);
        QCOMPARE(PictureShape::of(bytes).size, QSize(16, 16));
    }
    void a_gif_without_or_with_a_ridiculous_screen_is_as_large_as_its_frame_reaches() {
        QCOMPARE(PictureShape::of(gifWithScreen(0, 0)).size, QSize(1, 1));
        QCOMPARE(PictureShape::of(gifWithScreen(60000, 60000)).size, QSize(1, 1));
        QCOMPARE(PictureShape::of(gifWithScreen(2000, 2000)).size, QSize(2000, 2000));
    }
    void a_preview_inside_a_jpeg_is_not_its_end() {
        const QByteArray whole = jpegBytes({16, 16});
        const QByteArray preview = jpegBytes({8, 8});
        QByteArray length(2, '\0');
        qToBigEndian(static_cast<quint16>(preview.size() + 2), length.data());
        const QByteArray bytes = whole.first(2) + "\xFF\xE1" + length + preview + whole.sliced(2);
        QCOMPARE(PictureShape::of(bytes).size, QSize(16, 16));
        QVERIFY(!PictureShape::of(bytes.chopped(1)).isPicture());
    }
    void sizes_that_nobody_could_decode_are_refused_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("JPEG") << jpegClaiming(60000, 60000);
        QTest::newRow("BMP") << bmpClaiming(60000, 60000);
        QTest::newRow("BMP of the largest numbers") << bmpClaiming(2147483647, -2147483647 - 1);
        QTest::newRow("BMP of negative width") << bmpClaiming(-4, 4);
        QTest::newRow("BMP of no height") << bmpClaiming(4, 0);
        const QByteArray frame = QByteArray::fromHex("2c0000000060ea60ea0002024401"
                                                     "00");
        QTest::newRow("GIF") << gifHead(60000, 60000) + frame + ';';
        QTest::newRow("GIF with a larger frame than screen") << gifHead(10, 10) + frame + ';';
        QTest::newRow("a pixel too many") << jpegClaiming(5001, 4000);
    }
    void sizes_that_nobody_could_decode_are_refused() {
        QFETCH(QByteArray, bytes);
        expectNoPicture(bytes);
    }
    void twenty_megapixels_are_not_too_many() {
        QCOMPARE(PictureShape::of(jpegClaiming(5000, 4000)).size, QSize(5000, 4000));
    }
    void a_jpeg_of_very_many_scans_is_refused() {
        const QByteArray bytes = jpegBytes({16, 16});
        const qsizetype scan = bytes.indexOf("\xFF\xDA");
        const auto withScans = [&](int count) {
            return bytes.first(scan) + bytes.sliced(scan).chopped(2).repeated(count) + "\xFF\xD9";
        };
        QVERIFY(PictureShape::of(withScans(20)).isPicture());
        QVERIFY(!PictureShape::of(withScans(21)).isPicture());
    }
    void a_jpeg_of_which_its_reader_would_keep_too_much_is_refused_data() {
        QTest::addColumn<int>("frame");
        QTest::addColumn<QByteArray>("factors"); // of each component, across and down
        QTest::addColumn<int>("scans");
        QTest::addColumn<int>("height");
        QTest::addColumn<bool>("isPicture");
        const QByteArray colours("\x11\x11\x11");
        const QByteArray inks("\x11\x11\x11\x11");
        QTest::newRow("two screens of 4K, refined") << 0xC2 << colours << 9 << 3318 << true;
        QTest::newRow("three components, refined") << 0xC2 << colours << 9 << 4000 << false;
        QTest::newRow("three components in one scan") << 0xC0 << colours << 1 << 4000 << true;
        QTest::newRow("three components in scans of their own") << 0xC0 << colours << 3 << 4000 << false;
        QTest::newRow("colours in less detail, refined")
            << 0xC2 << QByteArray("\x22\x11\x11") << 9 << 4000 << true;
        QTest::newRow("four components in one scan") << 0xC0 << inks << 1 << 4000 << true;
        QTest::newRow("four components in scans of their own") << 0xC0 << inks << 4 << 4000 << false;
        QTest::newRow("four components, refined") << 0xC2 << inks << 9 << 4000 << false;
        QTest::newRow("four components, refined in one scan") << 0xC2 << inks << 1 << 4000 << false;
        QTest::newRow("four components of fewer pixels") << 0xC2 << inks << 9 << 2500 << true;
        QTest::newRow("two of four components in less detail")
            << 0xC2 << QByteArray("\x22\x11\x11\x22") << 9 << 4000 << true;
    }
    void a_jpeg_of_which_its_reader_would_keep_too_much_is_refused() {
        QFETCH(int, frame);
        QFETCH(QByteArray, factors);
        QFETCH(int, scans);
        QFETCH(int, height);
        QByteArray bytes = QByteArray::fromHex("ffd8ff") + static_cast<char>(frame) + '\0' +
                           static_cast<char>(8 + 3 * factors.size()) + '\x08' +
                           static_cast<char>(height / 256) + static_cast<char>(height % 256) +
                           QByteArray::fromHex("1388") + static_cast<char>(factors.size());
        for (const char factor : factors) bytes += QByteArray("\x01") + factor + '\0';
        bytes += QByteArray::fromHex("ffda0002").repeated(scans) + QByteArray::fromHex("ffd9");
        QTEST(PictureShape::of(bytes).isPicture(), "isPicture");
    }
    void a_file_of_two_gibibytes_is_not_read() {
        const QString path = write("large.jpg", jpegBytes());
        QVERIFY(QFile::resize(path, qint64{2} << 30));
        QElapsedTimer clock;
        clock.start();
        QCOMPARE(loadFailure(path), number(RuntimeFailure::outOfMemory));
        QVERIFY(clock.elapsed() < 1000);
    }
    void of_a_large_file_that_is_no_picture_only_the_beginning_is_read() {
        const QString path = write("large.jpg", "no picture");
        QVERIFY(QFile::resize(path, qint64{2} << 30));
        QCOMPARE(loadFailure(path), number(RuntimeFailure::invalidPicture));
    }
    void a_file_may_have_28_mebibytes_and_no_byte_more() {
        constexpr qint64 most = 28 << 20;
        const QString path = write("large.bmp", bmpBytes({8, 8}));
        QVERIFY(QFile::resize(path, most));
        QCOMPARE(PictureFile::load(path).size(), QSize(8, 8));
        QVERIFY(QFile::resize(path, most + 1));
        QCOMPARE(loadFailure(path), number(RuntimeFailure::outOfMemory));
    }
    void a_missing_file_is_reported_by_its_name() {
        try {
            PictureFile::load(at("gone.jpg"));
            QFAIL("no failure");
        } catch (const RuntimeFailure& failure) {
            QCOMPARE(failure.number(), RuntimeFailure::fileNotFound);
            QCOMPARE(failure.file(), at("gone.jpg"));
        }
    }
    void a_picture_stays_what_it_is_when_its_file_changes() {
        const QString path = write("p.bmp", bmpBytes({8, 8}));
        const PictureFile picture = PictureFile::load(path);
        const PictureFile copy = picture;
        write("p.bmp", "something else");
        QCOMPARE(copy.bytes(), bmpBytes({8, 8}));
        QCOMPARE(copy.bytes().constData(), picture.bytes().constData());
    }
};

TORVANE_TEST(PictureFileTest)
#include "PictureFileTest.moc"
