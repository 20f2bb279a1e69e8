// SPDX-License-Identifier: MIT
// The texts of the gallery: kinds of files, dimensions, weights, numbers.
#include "gallery/PictureTexts.h"
#include "gallery/PictureKind.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class PictureTextsTest : public QObject {
    Q_OBJECT

private slots:
    void the_second_piece_of_a_name_is_its_kind_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("kind");
        const auto row = [](const char* name, PictureKind kind) {
            QTest::newRow(name) << QString::fromLatin1(name) << static_cast<int>(kind);
        };
        row("a.jpg", PictureKind::jpg);
        row("a.BMP", PictureKind::bmp);
        row("a.gIf", PictureKind::gif);
        row("a.png", PictureKind::png);
        row("a.png.jpg", PictureKind::png);
        row("scan.001.jpg", PictureKind::other);
        row("a..jpg", PictureKind::other);
        row("a. jpg", PictureKind::other);
        row("a.jpeg", PictureKind::other);
        row("jpg", PictureKind::other);
        row("", PictureKind::other);
    }
    void the_second_piece_of_a_name_is_its_kind() {
        QFETCH(QString, name);
        QTEST(static_cast<int>(pictureKindOf(name, {})), "kind");
    }
    void the_end_of_a_whole_name_is_its_kind() {
        const NameCut whole = NameCut::chosen(u"whole"_s);
        QCOMPARE(pictureKindOf(u"scan.001.JPG"_s, whole), PictureKind::jpg);
        QCOMPARE(pictureKindOf(u"a.png.txt"_s, whole), PictureKind::other);
    }
    void each_known_kind_has_the_name_of_its_format() {
        QCOMPARE(formatName(PictureKind::jpg), u"JPEG BitMap"_s);
        QCOMPARE(formatName(PictureKind::gif), u"Graphic Interchange Format"_s);
        QCOMPARE(formatName(PictureKind::bmp), u"BitMaP"_s);
        QCOMPARE(formatName(PictureKind::png), u"Portable Network Graphics"_s);
        QCOMPARE(formatName(PictureKind::other), QString());
    }
    void dimensions_are_in_whole_pixels() {
        QCOMPARE(PictureTexts::dimensions({160, 144}), u"160x144 píxels"_s);
        QCOMPARE(PictureTexts::dimensions({65535, 1}), u"65535x1 píxels"_s);
        QCOMPARE(PictureTexts::dimensions({0, 0}), u"0x0 píxels"_s);
    }
    void a_weight_is_rounded_down() {
        QCOMPARE(PictureTexts::weight(0), u"0KB"_s);
        QCOMPARE(PictureTexts::weight(999), u"0KB"_s);
        QCOMPARE(PictureTexts::weight(1999), u"1KB"_s);
        QCOMPARE(PictureTexts::weight(qint64{5} << 30), u"5368709KB"_s);
    }
    void a_number_has_up_to_seven_digits() {
        QCOMPARE(PictureTexts::single(160), u"160"_s);
        QCOMPARE(PictureTexts::single(22.5F), u"22.5"_s);
        QCOMPARE(PictureTexts::single(1.0F / 3), u"0.3333333"_s);
        QCOMPARE(PictureTexts::single(9999999), u"9999999"_s);
        QCOMPARE(PictureTexts::single(15000000), u"1.5E+07"_s);
        QCOMPARE(PictureTexts::single(-0.5F), u"-0.5"_s);
    }
    void a_number_is_read_back() {
        for (const float number : {0.0F, 22.5F, 3600.0F, 1126.875F, 15000000.0F}) {
            QCOMPARE(PictureTexts::number(PictureTexts::single(number)), number);
        }
    }
};

TORVANE_APPLESS_TEST(PictureTextsTest)
#include "PictureTextsTest.moc"
