// SPDX-License-Identifier: MIT
// The backgrounds against the catalogue: lists and fields are in wells of their colour, controls with an
// opaque back don't show as patches, and words have calm ground.
#include "ArtFiles.h"
#include "art/ArtResources.h"
#include "support/CatalogueTable.h"
#include "support/TestMain.h"

#include <QTest>
#include <algorithm>

using namespace torvane;

namespace {

using Row = QMap<QString, QString>;

const QStringList windows = {"EditDB",   "DB_Info",   "Form2",        "SearchROM", "AdvSearch",
                             "Torvette", "Compartir", "AmpliCaptura", "URL",       "AddPersonalWeb",
                             "ConfGen",  "SelLang",   "Aboutfrm"};
// What is no list or text box, but has a well as well.
const QStringList moreFields = {"Torvette/Label1", "Compartir/Image1", "ConfGen/Picture1",
                                "Aboutfrm/ShockwaveFlash1"};
const QString withoutTitleBand = "Torvette";
constexpr int stripHeight = 23;
// Labels whose upper edge is above a hairline, and the row below it where their letters begin.
const QHash<QString, int> lettersBegin = {{"Torvette/Label3", 25}, {"Aboutfrm/Label23", 23}};
constexpr int edgeNoise = 10; // the accuracy of a JPEG beside a sharp edge

// In whole pixels, as a window rounds it.
QRect rectOf(const Row& row) {
    const auto pixels = [&](const char* column) { return qRound(row[column].toDouble()); };
    return {pixels("left"), pixels("top"), pixels("width"), pixels("height")};
}

// The widest distance of one channel of a pixel in `part` from a colour.
int distanceFrom(QRgb colour, const QImage& image, const QRect& part) {
    int widest = 0;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            widest = std::max({widest, qAbs(qRed(pixel) - qRed(colour)), qAbs(qGreen(pixel) - qGreen(colour)),
                               qAbs(qBlue(pixel) - qBlue(colour))});
        }
    }
    return widest;
}

QString keyOf(const Row& row) { return row["window"] + '/' + row["control"]; }

// The colour in the notes, or that of the well if none is noted.
QRgb backOf(const Row& row) {
    if (keyOf(row) == "EditDB/ListView1") return 0xff939ab0U;
    if (!row["notes"].contains("back 0x")) return 0xff292e3bU;
    // The table's words are 0xBBGGRR.
    const uint word = row["notes"].section("back 0x", 1).left(6).toUInt(nullptr, 16);
    return qRgb(int(word & 0xff), int(word >> 8 & 0xff), int(word >> 16));
}

} // namespace

class WindowsTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void the_compact_window_is_a_strip_with_a_fold_out();
    void the_enlarged_picture_has_a_dark_stage();
    void a_window_has_its_frame_and_its_title_band_data();
    void a_window_has_its_frame_and_its_title_band();
    void every_list_and_field_is_in_a_well_of_its_colour_data();
    void every_list_and_field_is_in_a_well_of_its_colour();
    void an_opaque_back_is_no_patch_on_the_panel_data();
    void an_opaque_back_is_no_patch_on_the_panel();
    void white_words_are_on_calm_dark_ground_data();
    void white_words_are_on_calm_dark_ground();
    void black_words_are_on_light_ground();

private:
    // Test rows for the visible controls that a condition picks.
    template <typename Condition>
    void eachControl(Condition isWanted) const;
    // What is left of a caption's rectangle above the rim of a text box that begins right below it.
    QRect aboveFields(QRect caption, const QString& window) const;
    QList<Row> controls;
};

void WindowsTest::initTestCase() {
    initArtResources();
    const auto rows = [](const char* file) {
        return tableRows(QString(TORVANE_TESTS_DIR "/catalogue/%1.tsv").arg(file));
    };
    QMap<QString, QRect> areas; // those of the pictures: the compact window is smaller until it is unfolded
    for (const Row& row : rows("windows")) {
        const QStringList size = row["background picture"].section(' ', 1).split('x');
        areas[row["window"]] = QRect(0, 0, size[0].toInt(), size.value(1).toInt());
    }
    for (const Row& row : rows("controls")) {
        const QString window = row["window"];
        if (windows.contains(window) && areas[window].contains(rectOf(row))) controls << row;
    }
}

template <typename Condition>
void WindowsTest::eachControl(Condition isWanted) const {
    QTest::addColumn<Row>("row");
    for (const Row& row : controls) {
        if (isWanted(row)) QTest::addRow("%s", qPrintable(keyOf(row))) << row;
    }
}

QRect WindowsTest::aboveFields(QRect caption, const QString& window) const {
    constexpr int rim = 2;
    for (const Row& row : controls) {
        const QRect field = rectOf(row).adjusted(-rim, -rim, rim, rim);
        if (row["window"] == window && row["kind"] == "text box" && field.top() > caption.top() &&
            field.intersects(caption))
            caption.setBottom(field.top() - 1);
    }
    return caption;
}

void WindowsTest::the_compact_window_is_a_strip_with_a_fold_out() {
    constexpr int nearly = 15; // the light falls from above, so only a part has exactly this colour
    const QRect ground(201, 6, 3, 12);
    const QRect column(274, 50, 2, 56);
    for (int scale : {1, 2}) {
        const QImage window = picture("Torvette", scale);
        const auto row = [&](int y) { return brightnessOf(window, device(QRect(30, y, 165, 1), scale)); };
        QVERIFY(distanceFrom(0xff4e4d64U, window, device(ground, scale)) <= nearly);
        QVERIFY(distanceFrom(0xff7477a3U, window, device(column, scale)) <= nearly);
        QVERIFY2(row(0) < 20, "the frame");
        QVERIFY2(row(stripHeight - 1) < 40, "the edge of the folded window");
        QVERIFY2(row(stripHeight) > row(stripHeight - 1) + 4 * edgeNoise, "the hairline under the strip");
        QVERIFY2(row(window.height() / scale - 1) < 20, "the edge of the unfolded window");
    }
}

void WindowsTest::the_enlarged_picture_has_a_dark_stage() {
    const QRect largest(7, 24, 486, 373); // the most that a picture takes, below the title band
    for (int scale : {1, 2}) {
        const QImage window = picture("AmpliCaptura", scale);
        const auto part = [&](int x, int y, int width, int height) {
            return brightnessOf(window, device(QRect(x, y, width, height), scale));
        };
        QVERIFY(brightnessOf(window, device(largest, scale)) < 60);
        QVERIFY2(part(200, 160, 100, 100) > part(40, 340, 60, 40) + edgeNoise,
                 "the light falls on the picture");
        QVERIFY2(part(20, 24, 460, 1) < part(20, 60, 460, 1) - 8, "the cut around the stage");
    }
}

void WindowsTest::a_window_has_its_frame_and_its_title_band_data() {
    QTest::addColumn<QString>("name");
    for (const QString& name : windows) {
        if (name != withoutTitleBand) QTest::addRow("%s", qPrintable(name)) << name;
    }
}

void WindowsTest::a_window_has_its_frame_and_its_title_band() {
    QFETCH(QString, name);
    for (int scale : {1, 2}) {
        const QImage window = picture(name, scale);
        const QSize size = window.size() / scale;
        const auto part = [&](int x, int y, int width, int height) {
            return brightnessOf(window, device(QRect(x, y, width, height), scale));
        };
        const int free = size.height() - 60; // below the title band and above the lower corners
        QVERIFY(part(0, 30, 1, free) < 20);
        QVERIFY(part(size.width() - 1, 30, 1, free) < 20);
        QVERIFY(part(0, size.height() - 1, size.width(), 1) < 20);
        QVERIFY2(part(1, 30, 1, free) > part(0, 30, 1, free) + 2 * edgeNoise, "the light line inside");
        QVERIFY2(part(20, 4, size.width() - 40, 15) < 45, "the title band");
        QVERIFY2(part(20, 21, 100, 1) > part(20, 18, 100, 1) + 2 * edgeNoise, "its hairline");
    }
}

void WindowsTest::every_list_and_field_is_in_a_well_of_its_colour_data() {
    const QStringList kinds = {"list view", "file list", "text box"};
    eachControl(
        [&](const Row& row) { return kinds.contains(row["kind"]) || moreFields.contains(keyOf(row)); });
}

void WindowsTest::every_list_and_field_is_in_a_well_of_its_colour() {
    QFETCH(Row, row);
    const QRect rect = rectOf(row);
    for (int scale : {1, 2}) {
        const QImage window = picture(row["window"], scale);
        const auto across = [&](int y) {
            return brightnessOf(window, device(QRect(rect.left() + 8, y, rect.width() - 16, 1), scale));
        };
        const auto down = [&](int x) {
            return brightnessOf(window, device(QRect(x, rect.top() + 4, 1, rect.height() - 8), scale));
        };
        QVERIFY2(across(rect.top() - 1) < 40 && down(rect.left() - 1) < 40, "the cut around it");
        QVERIFY2(across(rect.top()) < across(rect.bottom()) - edgeNoise, "the shadow of the upper edge");
        QVERIFY2(down(rect.left()) < down(rect.right()) - edgeNoise, "the shadow of the left edge");
        QVERIFY2(across(rect.bottom() + 2) > across(rect.bottom() + 1) + 2 * edgeNoise, "the lit lower lip");
        QVERIFY2(down(rect.right() + 2) > down(rect.right() + 1) + 2 * edgeNoise, "the lit right lip");
        const QRect floor = rect.adjusted(8, 8, -4, -4);
        const int off = distanceFrom(backOf(row), window, device(floor, scale));
        QVERIFY2(off <= 4, qPrintable(QString::number(off)));
    }
}

void WindowsTest::an_opaque_back_is_no_patch_on_the_panel_data() {
    eachControl([](const Row& row) { return row["kind"] == "check box" || row["kind"] == "skin label"; });
}

void WindowsTest::an_opaque_back_is_no_patch_on_the_panel() {
    QFETCH(Row, row);
    const bool isHeading = row["kind"] == "skin label";
    const QRgb back = isHeading ? 0xff33394aU : backOf(row);
    for (int scale : {1, 2}) {
        // The panel has the colour a little beyond the control, too.
        const QRect around = device(aboveFields(rectOf(row).adjusted(0, 0, 1, 1), row["window"]), scale);
        const int off = distanceFrom(back, picture(row["window"], scale), around);
        QVERIFY2(off <= edgeNoise, qPrintable(QString::number(off)));
    }
}

void WindowsTest::white_words_are_on_calm_dark_ground_data() {
    eachControl([](const Row& row) {
        return row["kind"] == "label" && row["notes"].contains("fore 0xFFFFFF, transparent");
    });
}

void WindowsTest::white_words_are_on_calm_dark_ground() {
    QFETCH(Row, row);
    for (int scale : {1, 2}) {
        const QImage window = picture(row["window"], scale);
        QRect label = rectOf(row).adjusted(1, 1, -1, -1);
        label.setTop(std::max(label.top(), lettersBegin.value(keyOf(row))));
        const QRect words = device(label, scale);
        int brightest = 0;
        for (int y = words.top(); y <= words.bottom(); ++y) {
            for (int x = words.left(); x <= words.right(); ++x)
                brightest = std::max(brightest, qGray(window.pixel(x, y)));
        }
        QVERIFY2(brightest < 100, qPrintable(QString::number(brightest)));
    }
}

void WindowsTest::black_words_are_on_light_ground() {
    const QRect words(368, 120, 130, 13);
    for (int scale : {1, 2})
        QVERIFY(distanceFrom(0xff808080U, picture("ConfGen", scale), device(words, scale)) <= edgeNoise);
}

TORVANE_TEST(WindowsTest)
#include "WindowsTest.moc"
