// SPDX-License-Identifier: MIT
// The rendered artwork as the program will load it: every picture is there in its kind and size, masked icons
// are hard-edged on exactly their mask colour, the intro window has a real outline, the movies move.
#include "art/ArtResources.h"

#include <QFile>
#include <QImageReader>
#include <QMovie>
#include <QSet>
#include <QTest>

using namespace torvane;

namespace {

const QString tree = QStringLiteral(TORVANE_ART_TREE_DIR);

// The file's own mark, not its name, tells its kind.
QByteArray kindOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return "missing";
    const QByteArray head = file.read(16);
    if (head.startsWith("\xff\xd8\xff")) return "JPEG";
    if (head.startsWith("\x89PNG\r\n\x1a\n")) return "PNG";
    if (head.startsWith("BM")) return "BMP";
    if (head.startsWith("RIFF") && head.mid(8, 4) == "WEBP") return "WebP";
    return "unknown";
}

QString scaled(QString path, int scale) {
    return scale == 1 ? path : path.insert(path.lastIndexOf('.'), "@2x");
}

// Without regard to the "@2x" in the name, which would make Qt report half the size.
QImage pixelsOf(const QString& path) {
    QImage image(path);
    image.setDevicePixelRatio(1);
    return image.convertToFormat(QImage::Format_ARGB32);
}

int countOf(const QImage& image, QRgb colour) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) count += image.pixel(x, y) == colour ? 1 : 0;
    }
    return count;
}

QSet<int> alphasOf(const QImage& image) {
    QSet<int> alphas;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) alphas << qAlpha(image.pixel(x, y));
    }
    return alphas;
}

constexpr QRgb silver = 0xffc0c0c0U;
constexpr QRgb black = 0xff000000U;
constexpr QRgb buttonFace = 0xfff0f0f0U;

} // namespace

class ArtworkTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void every_picture_has_its_kind_and_its_size_at_both_scales_data();
    void every_picture_has_its_kind_and_its_size_at_both_scales();
    void a_masked_icon_is_opaque_and_stands_on_its_mask_colour_data();
    void a_masked_icon_is_opaque_and_stands_on_its_mask_colour();
    void a_hover_twin_has_the_outline_of_its_icon_in_warmer_colours_data();
    void a_hover_twin_has_the_outline_of_its_icon_in_warmer_colours();
    void a_list_icon_has_hard_edges_and_a_clear_corner_data();
    void a_list_icon_has_hard_edges_and_a_clear_corner();
    void the_title_band_continues_the_main_window_without_a_seam();
    void the_intro_bitmap_has_24_bits_a_pixel();
    void the_intro_outline_is_neither_empty_nor_a_rectangle();
    void the_intro_never_shows_the_colour_that_ends_a_row();
    void the_intro_screen_lies_inside_of_the_device();
    void each_tray_colour_is_a_clear_sign_of_its_own();
    void a_movie_is_animated_and_keeps_its_size_data();
    void a_movie_is_animated_and_keeps_its_size();
};

void ArtworkTest::initTestCase() { initArtResources(); }

void ArtworkTest::every_picture_has_its_kind_and_its_size_at_both_scales_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("kind");
    QTest::addColumn<QSize>("size");
    const auto row = [](const QString& name, const QByteArray& kind, QSize size) {
        QTest::newRow(qPrintable(name)) << name << kind << size;
    };
    row("MainFrm.jpg", "JPEG", {478, 504});
    row("TitleBand.jpg", "JPEG", {478, 21});
    row("SelLangStartUp.jpg", "JPEG", {480, 320});
    row("SelLangStartUp-second.jpg", "JPEG", {480, 320});
    row("TorvMsg.jpg", "JPEG", {302, 68});
    row("Splash.bmp", "BMP", {460, 265});
    for (const char* icon : {"compact-16", "close-16", "minimise-16", "archive-16", "refresh-16", "search-16",
                             "up-16", "down-16", "delete-16", "copy-16", "tag-delete-16"}) {
        row(QString(icon) + ".png", "PNG", {16, 16});
    }
    for (const char* icon :
         {"database-24", "gallery-24", "about-24", "web-search-24", "weblist-24", "settings-24"}) {
        row(QString(icon) + ".png", "PNG", {24, 24});
        row(QString(icon) + "-over.png", "PNG", {24, 24});
    }
    for (const char* icon : {"apply-24", "yes-24", "no-24"}) row(QString(icon) + ".png", "PNG", {24, 24});
    for (const char* icon : {"launch-32", "open-zip-32", "console-advance-32", "console-gameboy-32",
                             "console-color-32", "console-archive-32", "cursor-hand", "cursor-link"}) {
        row(QString(icon) + ".png", "PNG", {32, 32});
    }
    for (int size : {16, 24, 32, 48, 64, 128, 256})
        row(QString("torvane-%1.png").arg(size), "PNG", {size, size});
}

void ArtworkTest::every_picture_has_its_kind_and_its_size_at_both_scales() {
    QFETCH(QString, name);
    QFETCH(QByteArray, kind);
    QFETCH(QSize, size);
    for (int scale : {1, 2}) {
        const QString path = scaled(":/art/" + name, scale);
        QCOMPARE(kindOf(path), kind);
        QCOMPARE(QImageReader(path).read().size(), size * scale);
    }
}

void ArtworkTest::a_masked_icon_is_opaque_and_stands_on_its_mask_colour_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QRgb>("mask");
    for (const char* icon : {"compact-16", "close-16", "minimise-16"}) QTest::newRow(icon) << icon << silver;
    for (const char* icon :
         {"archive-16",      "refresh-16",    "search-16",          "up-16",           "down-16",
          "delete-16",       "copy-16",       "tag-delete-16",      "database-24",     "gallery-24",
          "about-24",        "web-search-24", "weblist-24",         "settings-24",     "database-24-over",
          "gallery-24-over", "about-24-over", "web-search-24-over", "weblist-24-over", "settings-24-over",
          "apply-24",        "launch-32",     "open-zip-32"}) {
        QTest::newRow(icon) << icon << black;
    }
}

void ArtworkTest::a_masked_icon_is_opaque_and_stands_on_its_mask_colour() {
    QFETCH(QString, name);
    QFETCH(QRgb, mask);
    for (int scale : {1, 2}) {
        const QImage icon = pixelsOf(scaled(":/art/" + name + ".png", scale));
        QCOMPARE(alphasOf(icon), QSet<int>{255});
        const int last = icon.width() - 1;
        for (const QPoint corner : {QPoint(0, 0), QPoint(last, 0), QPoint(0, last), QPoint(last, last)}) {
            QCOMPARE(icon.pixel(corner), mask);
        }
        const int all = icon.width() * icon.height();
        const int drawn = all - countOf(icon, mask);
        QVERIFY2(drawn > all / 6, qPrintable(QString("only %1 of %2 pixels are drawn").arg(drawn).arg(all)));
        QSet<QRgb> colours;
        for (int pixel = 0; pixel < all; ++pixel)
            colours << icon.pixel(pixel % icon.width(), pixel / icon.width());
        QVERIFY2(colours.size() <= 6, "soft edges would show as many colours");
    }
}

void ArtworkTest::a_hover_twin_has_the_outline_of_its_icon_in_warmer_colours_data() {
    QTest::addColumn<QString>("name");
    for (const char* icon :
         {"database-24", "gallery-24", "about-24", "web-search-24", "weblist-24", "settings-24"}) {
        QTest::newRow(icon) << icon;
    }
}

void ArtworkTest::a_hover_twin_has_the_outline_of_its_icon_in_warmer_colours() {
    QFETCH(QString, name);
    const QImage cool = pixelsOf(":/art/" + name + ".png");
    const QImage warm = pixelsOf(":/art/" + name + "-over.png");
    qint64 coolness = 0;
    for (int y = 0; y < cool.height(); ++y) {
        for (int x = 0; x < cool.width(); ++x) {
            QCOMPARE(warm.pixel(x, y) == black, cool.pixel(x, y) == black);
            const auto warmth = [](QRgb pixel) { return qRed(pixel) - qBlue(pixel); };
            coolness += warmth(cool.pixel(x, y)) - warmth(warm.pixel(x, y));
        }
    }
    QVERIFY(coolness < -10LL * cool.width() * cool.height());
}

void ArtworkTest::a_list_icon_has_hard_edges_and_a_clear_corner_data() {
    QTest::addColumn<QString>("name");
    for (const char* icon : {"console-advance-32", "console-gameboy-32", "console-color-32",
                             "console-archive-32", "yes-24", "no-24"}) {
        QTest::newRow(icon) << icon;
    }
}

void ArtworkTest::a_list_icon_has_hard_edges_and_a_clear_corner() {
    QFETCH(QString, name);
    for (int scale : {1, 2}) {
        const QImage icon = pixelsOf(scaled(":/art/" + name + ".png", scale));
        QCOMPARE(alphasOf(icon), (QSet<int>{0, 255}));
        QCOMPARE(qAlpha(icon.pixel(0, 0)), 0);
    }
}

void ArtworkTest::the_title_band_continues_the_main_window_without_a_seam() {
    const QImage band = pixelsOf(":/art/TitleBand.jpg");
    const QImage window = pixelsOf(":/art/MainFrm.jpg");
    for (int y = 0; y < band.height(); ++y) {
        for (int x = 0; x < band.width(); ++x) {
            // Both are JPEGs, so a little noise of the coder is no seam.
            QVERIFY2(qAbs(qGray(band.pixel(x, y)) - qGray(window.pixel(x, y))) <= 16,
                     qPrintable(QString("at %1,%2").arg(x).arg(y)));
        }
    }
}

void ArtworkTest::the_intro_bitmap_has_24_bits_a_pixel() {
    for (int scale : {1, 2}) {
        QFile file(scaled(":/art/Splash.bmp", scale));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray head = file.read(30);
        QCOMPARE(int(uchar(head[28])), 24);
        QCOMPARE(int(uchar(head[29])), 0);
    }
}

void ArtworkTest::the_intro_outline_is_neither_empty_nor_a_rectangle() {
    const QImage splash = pixelsOf(":/art/Splash.bmp");
    const QRgb mask = splash.pixel(0, 0);
    QSet<int> widths;
    int inside = 0;
    for (int y = 0; y < splash.height(); ++y) {
        int width = 0;
        for (int x = 0; x < splash.width(); ++x) width += splash.pixel(x, y) != mask ? 1 : 0;
        widths << width;
        inside += width;
    }
    const int all = splash.width() * splash.height();
    QVERIFY(inside > all / 2);
    QVERIFY(inside < all * 9 / 10);
    QVERIFY2(widths.size() > 40, "rows of many widths make a shape, rows of one width a rectangle");
}

void ArtworkTest::the_intro_never_shows_the_colour_that_ends_a_row() {
    for (int scale : {1, 2}) QCOMPARE(countOf(pixelsOf(scaled(":/art/Splash.bmp", scale)), buttonFace), 0);
}

void ArtworkTest::the_intro_screen_lies_inside_of_the_device() {
    const QImage splash = pixelsOf(":/art/Splash.bmp");
    QCOMPARE(countOf(splash.copy(134, 66, 191, 121), splash.pixel(0, 0)), 0);
}

void ArtworkTest::each_tray_colour_is_a_clear_sign_of_its_own() {
    QSet<QRgb> plates;
    for (int number = 0; number < 7; ++number) {
        const QString path = QString("%1/data/tray/%2.dat").arg(tree).arg(number);
        QCOMPARE(kindOf(path), QByteArray("PNG"));
        const QImage sign = pixelsOf(path);
        QCOMPARE(sign.size(), QSize(44, 44));
        QCOMPARE(qAlpha(sign.pixel(43, 0)), 0);
        QVERIFY(countOf(sign, 0xffffffffU) > 150);
        plates << sign.pixel(8, 6);
    }
    QCOMPARE(plates.size(), 7);
}

void ArtworkTest::a_movie_is_animated_and_keeps_its_size_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<QSize>("size");
    QTest::newRow("intro") << tree + "/data/intro.dat" << QSize(192, 122);
    QTest::newRow("banner") << tree + "/data/site/banner.swf" << QSize(468, 60);
}

void ArtworkTest::a_movie_is_animated_and_keeps_its_size() {
    QFETCH(QString, path);
    QFETCH(QSize, size);
    QCOMPARE(kindOf(path), QByteArray("WebP"));
    QVERIFY(QFile(path).size() < 300LL * 1024);
    QMovie movie(path);
    QVERIFY(movie.jumpToFrame(0));
    QVERIFY(movie.frameCount() >= 10);
    const QImage first = movie.currentImage();
    QCOMPARE(first.size(), size);
    const int delay = movie.nextFrameDelay();
    QVERIFY2(delay >= 50 && delay <= 84,
             qPrintable(QString("%1 ms is not 12 to 20 frames a second").arg(delay)));
    for (int frame = 1; frame < movie.frameCount() / 2; ++frame) QVERIFY(movie.jumpToNextFrame());
    QCOMPARE(movie.currentImage().size(), size);
    QVERIFY(movie.currentImage() != first);
}

QTEST_MAIN(ArtworkTest)
#include "ArtworkTest.moc"
