// SPDX-License-Identifier: MIT
// The pictures of the database windows against the catalogue: lists and fields are in wells of their colour,
// controls with an opaque back don't show as patches, words have calm ground, and the consoles of the list
// can be told apart at 16 pixels.
#include "ArtFiles.h"
#include "art/ArtResources.h"
#include "support/CatalogueTable.h"
#include "support/TestMain.h"

#include <QTest>
#include <algorithm>

using namespace torvane;

namespace {

using Row = QMap<QString, QString>;

const QStringList windows = {"EditDB", "DB_Info", "Form2"};
constexpr int noise = 10; // the accuracy of a JPEG beside a sharp edge

QImage picture(const QString& name, int scale) { return pixelsOf(scaled(":/art/" + name + ".jpg", scale)); }

QRect device(const QRect& rect, int scale) { return {rect.topLeft() * scale, rect.size() * scale}; }

QRect rectOf(const Row& row) {
    return {row["left"].toInt(), row["top"].toInt(), row["width"].toInt(), row["height"].toInt()};
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

QRgb backOf(const Row& row) {
    // The table's words are 0xBBGGRR.
    const uint word = row["notes"].section("back 0x", 1).left(6).toUInt(nullptr, 16);
    return qRgb(int(word & 0xff), int(word >> 8 & 0xff), int(word >> 16));
}

} // namespace

class DatabaseTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void a_window_has_its_frame_and_its_title_band_data();
    void a_window_has_its_frame_and_its_title_band();
    void every_list_and_field_is_in_a_well_of_its_colour_data();
    void every_list_and_field_is_in_a_well_of_its_colour();
    void an_opaque_back_is_no_patch_on_the_panel_data();
    void an_opaque_back_is_no_patch_on_the_panel();
    void white_words_are_on_calm_dark_ground_data();
    void white_words_are_on_calm_dark_ground();
    void two_consoles_differ_in_shape_and_in_colour_data();
    void two_consoles_differ_in_shape_and_in_colour();

private:
    // Test rows for the visible controls that a condition picks.
    template <typename Condition>
    void eachControl(Condition isWanted) const;
    QList<Row> controls;
};

void DatabaseTest::initTestCase() {
    initArtResources();
    const auto rows = [](const char* file) {
        return tableRows(QString(TORVANE_TESTS_DIR "/catalogue/%1.tsv").arg(file));
    };
    QMap<QString, QRect> areas;
    for (const Row& row : rows("windows"))
        areas[row["window"]] = QRect(0, 0, row["width"].toInt(), row["height"].toInt());
    for (const Row& row : rows("controls")) {
        const QString window = row["window"];
        if (windows.contains(window) && areas[window].contains(rectOf(row))) controls << row;
    }
}

template <typename Condition>
void DatabaseTest::eachControl(Condition isWanted) const {
    QTest::addColumn<Row>("row");
    for (const Row& row : controls) {
        if (isWanted(row)) QTest::addRow("%s", qPrintable(row["window"] + '/' + row["control"])) << row;
    }
}

void DatabaseTest::a_window_has_its_frame_and_its_title_band_data() {
    QTest::addColumn<QString>("name");
    for (const QString& name : windows) QTest::addRow("%s", qPrintable(name)) << name;
}

void DatabaseTest::a_window_has_its_frame_and_its_title_band() {
    QFETCH(QString, name);
    for (int scale : {1, 2}) {
        const QImage window = picture(name, scale);
        const QSize size = window.size() / scale;
        const auto part = [&](int x, int y, int width, int height) {
            return brightnessOf(window, device(QRect(x, y, width, height), scale));
        };
        QVERIFY(part(0, 30, 1, 200) < 20);
        QVERIFY(part(size.width() - 1, 30, 1, 200) < 20);
        QVERIFY(part(0, size.height() - 1, size.width(), 1) < 20);
        QVERIFY2(part(1, 60, 1, 180) > part(0, 60, 1, 180) + 2 * noise, "the light line inside");
        QVERIFY2(part(20, 4, size.width() - 40, 15) < 45, "the title band");
        QVERIFY2(part(20, 21, 100, 1) > part(20, 18, 100, 1) + 2 * noise, "its hairline");
    }
}

void DatabaseTest::every_list_and_field_is_in_a_well_of_its_colour_data() {
    const QStringList kinds = {"list view", "file list", "text box"};
    eachControl([&](const Row& row) { return kinds.contains(row["kind"]); });
}

void DatabaseTest::every_list_and_field_is_in_a_well_of_its_colour() {
    constexpr QRgb pale = 0xff939ab0U;
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
        QVERIFY2(across(rect.top()) < across(rect.bottom()) - noise, "the shadow of the upper edge");
        QVERIFY2(down(rect.left()) < down(rect.right()) - noise, "the shadow of the left edge");
        QVERIFY2(across(rect.bottom() + 2) > across(rect.bottom() + 1) + 2 * noise, "the lit lower lip");
        QVERIFY2(down(rect.right() + 2) > down(rect.right() + 1) + 2 * noise, "the lit right lip");
        const QRect floor = rect.adjusted(8, 8, -4, -4);
        const int off = distanceFrom(pale, window, device(floor, scale));
        QVERIFY2(off <= 4, qPrintable(QString::number(off)));
    }
}

void DatabaseTest::an_opaque_back_is_no_patch_on_the_panel_data() {
    eachControl([](const Row& row) { return row["kind"] == "check box" || row["kind"] == "skin label"; });
}

void DatabaseTest::an_opaque_back_is_no_patch_on_the_panel() {
    QFETCH(Row, row);
    const bool isHeading = row["kind"] == "skin label";
    const QRgb back = isHeading ? 0xff33394aU : backOf(row);
    for (int scale : {1, 2}) {
        // The panel has the colour a little beyond the control, too.
        const QRect around = device(rectOf(row).adjusted(0, 0, 1, 1), scale);
        const int off = distanceFrom(back, picture(row["window"], scale), around);
        QVERIFY2(off <= noise, qPrintable(QString::number(off)));
    }
}

void DatabaseTest::white_words_are_on_calm_dark_ground_data() {
    eachControl([](const Row& row) {
        return row["kind"] == "label" && row["notes"].contains("fore 0xFFFFFF, transparent");
    });
}

void DatabaseTest::white_words_are_on_calm_dark_ground() {
    QFETCH(Row, row);
    for (int scale : {1, 2}) {
        const QImage window = picture(row["window"], scale);
        const QRect words = device(rectOf(row).adjusted(1, 1, -1, -1), scale);
        int brightest = 0;
        for (int y = words.top(); y <= words.bottom(); ++y) {
            for (int x = words.left(); x <= words.right(); ++x)
                brightest = std::max(brightest, qGray(window.pixel(x, y)));
        }
        QVERIFY2(brightest < 100, qPrintable(QString::number(brightest)));
    }
}

void DatabaseTest::two_consoles_differ_in_shape_and_in_colour_data() {
    QTest::addColumn<QString>("one");
    QTest::addColumn<QString>("other");
    QTest::newRow("1") << "gameboy"
                       << "color";
    QTest::newRow("2") << "gameboy"
                       << "advance";
    QTest::newRow("3") << "color"
                       << "advance";
}

void DatabaseTest::two_consoles_differ_in_shape_and_in_colour() {
    QFETCH(QString, one);
    QFETCH(QString, other);
    for (int scale : {1, 2}) {
        const QImage left = pixelsOf(scaled(":/art/console-" + one + "-16.png", scale));
        const QImage right = pixelsOf(scaled(":/art/console-" + other + "-16.png", scale));
        int otherShape = 0;
        int otherColour = 0;
        for (int y = 0; y < left.height(); ++y) {
            for (int x = 0; x < left.width(); ++x) {
                const QRgb a = left.pixel(x, y);
                const QRgb b = right.pixel(x, y);
                otherShape += qAlpha(a) != qAlpha(b) ? 1 : 0;
                const int apart = qAbs((qRed(a) - qBlue(a)) - (qRed(b) - qBlue(b)));
                otherColour += qAlpha(a) == 255 && qAlpha(b) == 255 && apart > 50 ? 1 : 0;
            }
        }
        const int all = left.width() * left.height();
        QVERIFY2(otherShape > all / 40, qPrintable(QString::number(otherShape)));
        QVERIFY2(otherColour > all / 12, qPrintable(QString::number(otherColour)));
    }
}

TORVANE_TEST(DatabaseTest)
#include "DatabaseTest.moc"
