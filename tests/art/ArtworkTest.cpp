// SPDX-License-Identifier: MIT
// The rendered artwork as the program will load it: every picture exists in its format and size, icons are
// hard-edged and readable in every state, the intro has a real outline.
#include "ArtFiles.h"
#include "art/ArtResources.h"
#include "support/TestMain.h"

#include <QDir>
#include <QImageReader>
#include <QTest>

using namespace torvane;

namespace {

constexpr QRgb silver = 0xffc0c0c0U;
constexpr QRgb black = 0xff000000U;
constexpr QRgb magenta = 0xffff00ffU;
constexpr QRgb buttonFace = 0xfff0f0f0U;

// The pixels that a disabled button prints: dark ones only.
bool isDark(QRgb pixel) { return qRed(pixel) + qGreen(pixel) + qBlue(pixel) <= 384; }

// The number of dark pixels within a shape, neither on the mask nor next to it.
int innerLines(const QImage& icon, QRgb mask) {
    int count = 0;
    for (int y = 1; y + 1 < icon.height(); ++y) {
        for (int x = 1; x + 1 < icon.width(); ++x) {
            const bool isInside = countOf(icon.copy(x - 1, y - 1, 3, 3), mask) == 0;
            count += isInside && isDark(icon.pixel(x, y)) ? 1 : 0;
        }
    }
    return count;
}

// How much brighter than the panel a picture is when a button shows it in grey, summed over the picture: what
// a squinting eye sees.
int glowOf(const QImage& icon, QRgb mask) {
    constexpr int panel = 80;
    int glow = 0;
    for (int y = 0; y < icon.height(); ++y) {
        for (int x = 0; x < icon.width(); ++x) {
            const QRgb pixel = icon.pixel(x, y);
            const int grey = (30 * qRed(pixel) + 59 * qGreen(pixel) + 11 * qBlue(pixel)) / 100;
            glow += pixel == mask ? 0 : grey - panel;
        }
    }
    return glow;
}

} // namespace

class ArtworkTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void every_picture_has_its_kind_and_its_size_at_both_scales_data();
    void every_picture_has_its_kind_and_its_size_at_both_scales();
    void no_picture_exists_at_one_scale_only();
    void a_masked_icon_is_opaque_on_its_mask_colour_data();
    void a_masked_icon_is_opaque_on_its_mask_colour();
    void a_disabled_icon_keeps_lines_within_its_outline_data();
    void a_disabled_icon_keeps_lines_within_its_outline();
    void launch_is_found_at_once();
    void a_hover_twin_has_the_outline_of_its_icon_in_warmer_colours_data();
    void a_hover_twin_has_the_outline_of_its_icon_in_warmer_colours();
    void a_list_icon_has_hard_edges_and_a_clear_corner_data();
    void a_list_icon_has_hard_edges_and_a_clear_corner();
    void the_title_band_continues_the_main_window_without_a_seam();
    void a_bitmap_has_24_bits_a_pixel_data();
    void a_bitmap_has_24_bits_a_pixel();
    void the_intro_outline_is_neither_empty_nor_a_rectangle();
    void the_intro_never_shows_the_colour_that_ends_a_row();
    void the_intro_screen_is_inside_the_device();
    void each_tray_colour_is_clearly_different();
    void a_tray_sign_is_recognizable_in_a_small_tray_data();
    void a_tray_sign_is_recognizable_in_a_small_tray();
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
    row("ZIP_Viewer.jpg", "JPEG", {552, 426});
    row("ZIP_Viewer-Mensaje.jpg", "JPEG", {243, 51});
    row("EditDB.jpg", "JPEG", {729, 519});
    row("DB_Info.jpg", "JPEG", {382, 314});
    row("Form2.jpg", "JPEG", {430, 264});
    row("Torvette.jpg", "JPEG", {300, 134});
    row("SearchROM.jpg", "JPEG", {373, 167});
    row("AdvSearch.jpg", "JPEG", {450, 274});
    row("Compartir.jpg", "JPEG", {494, 386});
    row("Compartir-Image16.bmp", "BMP", {460, 265});
    row("AmpliCaptura.jpg", "JPEG", {500, 400});
    row("URL.jpg", "JPEG", {506, 412});
    row("AddPersonalWeb.jpg", "JPEG", {436, 170});
    row("ConfGen.jpg", "JPEG", {556, 302});
    row("SelLang.jpg", "JPEG", {376, 260});
    row("Aboutfrm.jpg", "JPEG", {442, 458});
    for (const char* page : {"One", "Two", "Three", "Four"})
        row(QString("NewAssistant-%1.jpg").arg(page), "JPEG", {480, 320});
    for (const char* icon : {"compact-16", "close-16", "minimise-16", "archive-16", "refresh-16", "search-16",
                             "up-16", "down-16", "delete-16", "copy-16", "tag-delete-16",
                             "console-gameboy-16", "console-color-16", "console-advance-16"}) {
        row(QString(icon) + ".png", "PNG", {16, 16});
    }
    for (const char* icon :
         {"database-24", "gallery-24", "about-24", "web-search-24", "weblist-24", "settings-24"}) {
        row(QString(icon) + ".png", "PNG", {24, 24});
        row(QString(icon) + "-over.png", "PNG", {24, 24});
    }
    for (const char* icon : {"search-24", "apply-24", "yes-24", "no-24"})
        row(QString(icon) + ".png", "PNG", {24, 24});
    for (const char* icon :
         {"launch-32",          "open-zip-32",      "add-games-32",       "options-32",
          "languages-32",       "internet-32",      "update-32",          "console-advance-32",
          "console-gameboy-32", "console-color-32", "console-archive-32", "console-unknown-32",
          "image-jpg-32",       "image-gif-32",     "image-bmp-32",       "image-png-32",
          "web-system-32",      "web-perso-32",     "cursor-hand",        "cursor-link",
          "box-information-32", "box-question-32",  "box-warning-32",     "box-critical-32"}) {
        row(QString(icon) + ".png", "PNG", {32, 32});
    }
    for (int number = 0; number < 7; ++number) row(QString("tray-%1-16.png").arg(number), "PNG", {16, 16});
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

void ArtworkTest::no_picture_exists_at_one_scale_only() {
    const QStringList names = QDir(":/art").entryList();
    QVERIFY(names.size() > 80);
    for (const QString& name : names) {
        if (name.contains("@2x")) {
            QVERIFY2(names.contains(QString(name).remove("@2x")), qPrintable(name));
        } else {
            const QString twin = scaled(":/art/" + name, 2);
            QCOMPARE(pixelsOf(twin).size(), pixelsOf(":/art/" + name).size() * 2);
        }
    }
}

void ArtworkTest::a_masked_icon_is_opaque_on_its_mask_colour_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QRgb>("mask");
    for (const char* icon :
         {"compact-16", "close-16", "minimise-16", "print-band-16", "zoom-in-band-16", "zoom-out-band-16",
          "return-16", "add-games-32", "options-32", "languages-32", "internet-32", "update-32"})
        QTest::newRow(icon) << icon << silver;
    for (const char* icon :
         {"archive-16",      "refresh-16",    "search-16",          "up-16",           "down-16",
          "delete-16",       "copy-16",       "tag-delete-16",      "database-24",     "gallery-24",
          "about-24",        "web-search-24", "weblist-24",         "settings-24",     "database-24-over",
          "gallery-24-over", "about-24-over", "web-search-24-over", "weblist-24-over", "settings-24-over",
          "apply-24",        "launch-32",     "open-zip-32",        "search-24",       "previous-16",
          "next-16",         "back-16",       "unfold-16",          "fold-16",         "pinned-16",
          "unpinned-16",     "add-16",        "download-16",        "bug-16",          "add-16",
          "download-16",     "bug-16",        "zoom-in-16",         "print-16"}) {
        QTest::newRow(icon) << icon << black;
    }
    QTest::newRow("launch-16") << "launch-16" << magenta;
}

void ArtworkTest::a_masked_icon_is_opaque_on_its_mask_colour() {
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

void ArtworkTest::a_disabled_icon_keeps_lines_within_its_outline_data() {
    QTest::addColumn<QString>("name");
    for (const char* icon :
         {"archive-16", "copy-16", "delete-16", "tag-delete-16", "about-24", "apply-24", "database-24",
          "gallery-24", "settings-24", "web-search-24", "weblist-24", "launch-32", "open-zip-32"}) {
        QTest::newRow(icon) << icon;
    }
}

void ArtworkTest::a_disabled_icon_keeps_lines_within_its_outline() {
    QFETCH(QString, name);
    const QImage icon = pixelsOf(":/art/" + name + ".png");
    const int lines = innerLines(icon, black);
    QVERIFY2(lines >= icon.width(), qPrintable(QString("only %1 dark pixels").arg(lines)));
    const QImage dense = pixelsOf(":/art/" + name + "@2x.png");
    QVERIFY(innerLines(dense, black) >= 2 * dense.width());
}

void ArtworkTest::launch_is_found_at_once() {
    for (int scale : {1, 2}) {
        const int launch = glowOf(pixelsOf(scaled(":/art/launch-32.png", scale)), black);
        for (const char* icon :
             {"database-24", "web-search-24", "gallery-24", "weblist-24", "settings-24", "about-24"}) {
            const QImage other = pixelsOf(scaled(QString(":/art/%1.png").arg(icon), scale));
            QVERIFY2(launch > 2 * glowOf(other, black), icon);
        }
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
    for (const char* icon : {"console-advance-32",
                             "console-gameboy-32",
                             "console-color-32",
                             "console-archive-32",
                             "console-unknown-32",
                             "console-gameboy-16",
                             "console-color-16",
                             "console-advance-16",
                             "image-jpg-32",
                             "image-gif-32",
                             "image-bmp-32",
                             "image-png-32",
                             "web-system-32",
                             "web-perso-32",
                             "box-information-32",
                             "box-question-32",
                             "box-warning-32",
                             "box-critical-32",
                             "yes-24",
                             "no-24"}) {
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
            // Both are JPEGs, so a little compression noise is no seam.
            QVERIFY2(qAbs(qGray(band.pixel(x, y)) - qGray(window.pixel(x, y))) <= 16,
                     qPrintable(QString("at %1,%2").arg(x).arg(y)));
        }
    }
}

void ArtworkTest::a_bitmap_has_24_bits_a_pixel_data() {
    QTest::addColumn<QString>("name");
    for (const char* name : {"Splash.bmp", "Compartir-Image16.bmp"}) QTest::newRow(name) << name;
}

void ArtworkTest::a_bitmap_has_24_bits_a_pixel() {
    QFETCH(QString, name);
    for (int scale : {1, 2}) {
        QFile file(scaled(":/art/" + name, scale));
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

void ArtworkTest::the_intro_screen_is_inside_the_device() {
    const QImage splash = pixelsOf(":/art/Splash.bmp");
    QCOMPARE(countOf(splash.copy(134, 66, 191, 121), splash.pixel(0, 0)), 0);
}

void ArtworkTest::each_tray_colour_is_clearly_different() {
    QSet<QRgb> plates;
    for (int number = 0; number < 7; ++number) {
        const QString path = QString("%1/data/tray/%2.dat").arg(artTree).arg(number);
        QCOMPARE(kindOf(path), QByteArray("PNG"));
        const QImage sign = pixelsOf(path);
        QCOMPARE(sign.size(), QSize(88, 88));
        QCOMPARE(qAlpha(sign.pixel(87, 0)), 0);
        QVERIFY(countOf(sign, 0xffffffffU) > 600);
        plates << sign.pixel(36, 16);
    }
    QCOMPARE(plates.size(), 7);
}

void ArtworkTest::a_tray_sign_is_recognizable_in_a_small_tray_data() {
    QTest::addColumn<int>("number");
    for (int number = 0; number < 7; ++number) QTest::addRow("%d", number) << number;
}

void ArtworkTest::a_tray_sign_is_recognizable_in_a_small_tray() {
    QFETCH(int, number);
    const QImage sign = pixelsOf(QString("%1/data/tray/%2.dat").arg(artTree).arg(number));
    for (int size : {16, 22}) {
        const QImage seen = sign.scaled(size, size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        const QRect shaft(size * 6 / 16, size / 2, 2, 1);
        const QRect aboveShaft(size * 6 / 16, size / 4, 2, 1);
        QVERIFY2(brightnessOf(seen, shaft) - brightnessOf(seen, aboveShaft) > 70, "a faint vane");
        // On a light panel the dark rim separates it from the ground, on a dark one its plate does.
        QVERIFY(brightnessOf(seen, QRect(0, size / 2, 1, 1)) < 60);
        QVERIFY(brightnessOf(seen, QRect(2, 2, 3, 1)) > 90);
    }
}

TORVANE_TEST(ArtworkTest)
#include "ArtworkTest.moc"
