// SPDX-License-Identifier: MIT
// Picture files that few programs write, byte by byte: what belongs to a format, and what is cut off.
#include "platform/base/PictureFile.h"
#include "support/FileFixture.h"
#include "support/PictureBytes.h"
#include "support/TestMain.h"

#include <QImageWriter>

using namespace torvane;

namespace {
// A JPEG with some bytes before its scan, or within the data of it.
QByteArray beforeScan(const QByteArray& inserted) {
    QByteArray bytes = jpegBytes({16, 12});
    return bytes.insert(bytes.indexOf("\xFF\xDA"), inserted);
}
QByteArray withinScan(const QByteArray& inserted) {
    constexpr int header = 14; // bytes, of a scan of three colours
    QByteArray bytes = jpegBytes({16, 12});
    return bytes.insert(bytes.indexOf("\xFF\xDA") + header, inserted);
}
QByteArray progressiveJpeg() {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImageWriter writer(&buffer, "jpg");
    writer.setProgressiveScanWrite(true);
    writer.write(QImage::fromData(bmpBytes({16, 12})));
    return bytes;
}
// A GIF with a screen, and one frame at a place; neither has colours.
QByteArray gifWith(QSize screen, QRect frame) {
    QByteArray sizes(12, '\0');
    const int numbers[] = {screen.width(), screen.height(), frame.x(),
                           frame.y(),      frame.width(),   frame.height()};
    for (int i = 0; i < 6; ++i) qToLittleEndian(static_cast<quint16>(numbers[i]), sizes.data() + 2 * i);
    return "GIF89a" + sizes.first(4) + QByteArray(3, '\0') + ',' + sizes.sliced(4) +
           QByteArray::fromHex("000202440100") + ';';
}
QByteArray bmpWith(int packing, int depth, const QByteArray& rest) {
    QByteArray head = bmpBytes({4, 2}).first(54);
    qToLittleEndian(static_cast<quint16>(depth), head.data() + 28);
    qToLittleEndian(packing, head.data() + 30);
    return head + rest;
}
QByteArray bytesOfHex(const char* digits) { return QByteArray::fromHex(digits); }
} // namespace

class PictureFormatsTest : public FileFixture {
    Q_OBJECT

private slots:
    void init() { renewFolder(); }

    void marks_of_a_jpeg_do_not_change_its_size_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("progressive") << progressiveJpeg();
        QTest::newRow("mark for private use") << beforeScan(bytesOfHex("FF01"));
        QTest::newRow("fill bytes") << beforeScan(bytesOfHex("FFFF"));
        QTest::newRow("restart in the scan") << withinScan(bytesOfHex("FFD3FF00"));
        QTest::newRow("stuffed byte in the scan") << withinScan(bytesOfHex("FF00FF00"));
        QTest::newRow("arithmetic tables") << beforeScan(bytesOfHex("FFCC000601020304"));
        QTest::newRow("reserved mark") << beforeScan(bytesOfHex("FFC8000601020304"));
    }
    void marks_of_a_jpeg_do_not_change_its_size() {
        QFETCH(QByteArray, bytes);
        QCOMPARE(PictureShape::of(bytes).size, QSize(16, 12));
    }
    void a_jpeg_with_several_headers_of_a_frame_is_refused() {
        const QByteArray whole = jpegBytes({16, 12});
        const QByteArray frame = whole.sliced(whole.indexOf("\xFF\xC0"), 19);
        QVERIFY(!PictureShape::of(beforeScan(frame)).isPicture());
        QVERIFY(!PictureShape::of(beforeScan(frame + frame)).isPicture());
    }
    void a_jpeg_with_tables_and_no_scan_is_refused() {
        const QByteArray whole = jpegBytes({16, 12});
        QVERIFY(!PictureShape::of(whole.first(whole.indexOf("\xFF\xDA")) + "\xFF\xD9").isPicture());
    }

    void the_size_of_a_gif_is_that_of_the_screen_or_of_the_frame_with_its_place_data() {
        QTest::addColumn<QSize>("screen");
        QTest::addColumn<QRect>("frame");
        QTest::addColumn<QSize>("size");
        QTest::newRow("no screen") << QSize(0, 0) << QRect(7, 3, 20, 10) << QSize(27, 13);
        QTest::newRow("screen") << QSize(90, 80) << QRect(7, 3, 20, 10) << QSize(90, 80);
        QTest::newRow("wide screen") << QSize(2009, 50) << QRect(0, 0, 1, 1) << QSize(2009, 50);
        QTest::newRow("ridiculous") << QSize(2010, 2010) << QRect(2, 5, 1, 1) << QSize(3, 6);
        QTest::newRow("ridiculous only for small frames")
            << QSize(2900, 50) << QRect(0, 0, 300, 1) << QSize(2900, 50);
    }
    void the_size_of_a_gif_is_that_of_the_screen_or_of_the_frame_with_its_place() {
        QFETCH(QSize, screen);
        QFETCH(QRect, frame);
        QTEST(PictureShape::of(gifWith(screen, frame)).size, "size");
    }
    void a_gif_whose_frame_has_no_pixels_is_refused() {
        QVERIFY(!PictureShape::of(gifWith({9, 9}, {0, 0, 0, 4})).isPicture());
        QVERIFY(!PictureShape::of(gifWith({9, 9}, {0, 0, 4, 0})).isPicture());
    }
    void a_gif_of_the_first_version_is_a_picture() {
        const QByteArray bytes = gifBytes({16, 12}).replace(0, 6, "GIF87a");
        QCOMPARE(PictureShape::of(bytes).size, QSize(16, 12));
    }
    void tables_and_extensions_before_the_pixels_of_a_gif_are_passed() {
        const QByteArray screen = "GIF89a" +
                                  bytesOfHex("0500030081" // 5 x 3, 4 colours
                                             "0000") +
                                  QByteArray(12, ',');
        const QByteArray comment = bytesOfHex("21FE") + "\x03one\x05three" + '\0';
        const QByteArray frame = bytesOfHex("2C00000000050003008202440100").chopped(4) + QByteArray(24, '\0');
        const QByteArray bytes = screen + comment + comment + frame + bytesOfHex("0202440100");
        QCOMPARE(PictureShape::of(bytes).size, QSize(5, 3));
        QVERIFY(!PictureShape::of(bytes.chopped(1)).isPicture());
    }

    void a_bmp_of_bit_masks_is_a_picture_if_it_is_whole() {
        const QByteArray bytes = bmpWith(3, 16, QByteArray(16, 'p'));
        QCOMPARE(PictureShape::of(bytes).size, QSize(4, 2));
        QVERIFY(!PictureShape::of(bytes.chopped(1)).isPicture());
    }
    void packed_pixels_count_up_to_the_mark_of_their_end_data() {
        QTest::addColumn<int>("packing");
        QTest::addColumn<QByteArray>("pixels");
        QTest::addColumn<bool>("isWhole");
        QTest::newRow("run") << 1 << bytesOfHex("0401 0001") << true;
        QTest::newRow("run of colour 1") << 1 << bytesOfHex("0101 0401") << false;
        QTest::newRow("move") << 1 << bytesOfHex("0002 0101 0001") << true;
        QTest::newRow("move that looks like the end") << 1 << bytesOfHex("0002 0001") << false;
        QTest::newRow("literal bytes") << 1 << bytesOfHex("0003 010203 00 0001") << true;
        QTest::newRow("literal halves") << 2 << bytesOfHex("0005 123450 00 0001") << true;
        QTest::newRow("literal that looks like the end") << 1 << bytesOfHex("0004 00010001") << false;
    }
    void packed_pixels_count_up_to_the_mark_of_their_end() {
        QFETCH(int, packing);
        QFETCH(QByteArray, pixels);
        QTEST(PictureShape::of(bmpWith(packing, packing == 1 ? 8 : 4, pixels)).isPicture(), "isWhole");
    }

    void content_that_is_no_picture_is_reported_by_the_name_of_its_file() {
        try {
            PictureFile::load(write("bad.jpg", "no picture"));
            QFAIL("no failure");
        } catch (const RuntimeFailure& failure) {
            QCOMPARE(failure.file(), at("bad.jpg"));
        }
    }
};

TORVANE_TEST(PictureFormatsTest)
#include "PictureFormatsTest.moc"
