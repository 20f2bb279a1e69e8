// SPDX-License-Identifier: MIT
// The small icons on the panels where they are used: each stands out on its ground in grey, as a button shows
// it at rest, and no two buttons of a window look alike.
#include "ArtFiles.h"
#include "art/ArtResources.h"
#include "support/TestMain.h"

#include <QTest>
#include <algorithm>

using namespace torvane;

namespace {

constexpr int strip = 80;  // the brightness of the strip of the compact window, and of the gallery's buttons
constexpr int dialog = 57; // that of the buttons of a dialog
constexpr int foldOut = 123; // and of its fold-out

// The pixels of an icon that are neither the mask nor the outline, in grey.
QList<int> facesOf(const QImage& icon) {
    QList<int> greys;
    const QRgb mask = icon.pixel(0, 0);
    for (int y = 0; y < icon.height(); ++y) {
        for (int x = 0; x < icon.width(); ++x) {
            const QRgb pixel = icon.pixel(x, y);
            if (pixel != mask && qGray(pixel) > 40) greys << qGray(pixel);
        }
    }
    return greys;
}

// The number of pixels that are clearly brighter or darker in one icon than in the other.
int apart(const QImage& one, const QImage& other) {
    int count = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x)
            count += qAbs(qGray(one.pixel(x, y)) - qGray(other.pixel(x, y))) > 60 ? 1 : 0;
    }
    return count;
}

} // namespace

class IconGroundsTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { initArtResources(); }
    void a_small_icon_is_bright_against_its_ground_data();
    void a_small_icon_is_bright_against_its_ground();
    void no_two_buttons_of_a_window_look_alike_data();
    void no_two_buttons_of_a_window_look_alike();
};

void IconGroundsTest::a_small_icon_is_bright_against_its_ground_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("ground");
    for (const char* icon : {"previous-16", "next-16", "launch-16", "unfold-16", "fold-16", "back-16",
                             "zoom-in-16", "print-16", "delete-16"})
        QTest::newRow(icon) << icon << strip;
    for (const char* icon : {"add-16", "download-16", "bug-16"}) QTest::newRow(icon) << icon << dialog;
    for (const char* icon : {"search-16", "pinned-16", "unpinned-16"}) QTest::newRow(icon) << icon << foldOut;
}

void IconGroundsTest::a_small_icon_is_bright_against_its_ground() {
    QFETCH(QString, name);
    QFETCH(int, ground);
    for (int scale : {1, 2}) {
        const QImage icon = pixelsOf(scaled(":/art/" + name + ".png", scale));
        const QList<int> faces = facesOf(icon);
        const auto bright = std::ranges::count_if(faces, [&](int grey) { return grey > ground + 60; });
        const int all = icon.width() * icon.height();
        QVERIFY2(bright > all / 10, qPrintable(QString("%1 of %2 pixels").arg(bright).arg(all)));
        QVERIFY2(bright > faces.size() / 3, "most of it fades into the panel");
    }
}

void IconGroundsTest::no_two_buttons_of_a_window_look_alike_data() {
    QTest::addColumn<QStringList>("names");
    QTest::newRow("Torvette") << QStringList{"previous-16", "next-16",   "launch-16", "unfold-16",  "fold-16",
                                             "back-16",     "search-16", "pinned-16", "unpinned-16"};
    QTest::newRow("Compartir") << QStringList{"previous-16", "next-16", "zoom-in-16", "print-16",
                                              "delete-16"};
    QTest::newRow("URL") << QStringList{"delete-16", "add-16", "download-16"};
    QTest::newRow("ConfigNew") << QStringList{"add-games-32", "options-32", "languages-32", "internet-32",
                                              "update-32"};
    QTest::newRow("message boxes") << QStringList{"box-information-32", "box-question-32", "box-warning-32",
                                                  "box-critical-32"};
    QTest::newRow("kinds of pages") << QStringList{"web-system-32", "web-perso-32"};
    QTest::newRow("kinds of pictures")
        << QStringList{"image-jpg-32", "image-gif-32", "image-bmp-32", "image-png-32"};
}

void IconGroundsTest::no_two_buttons_of_a_window_look_alike() {
    QFETCH(QStringList, names);
    for (int scale : {1, 2}) {
        const auto icon = [&](const QString& name) {
            return pixelsOf(scaled(":/art/" + name + ".png", scale));
        };
        for (int one = 0; one < names.size(); ++one) {
            for (int other = 0; other < one; ++other) {
                const int count = apart(icon(names[one]), icon(names[other]));
                QVERIFY2(count > 40 * scale * scale, qPrintable(names[one] + " and " + names[other]));
            }
        }
    }
}

TORVANE_TEST(IconGroundsTest)
#include "IconGroundsTest.moc"
