// SPDX-License-Identifier: MIT
// The skinned button on a screen with two dots to the pixel, against the golden images of one dot: what is
// painted by hand is the same, each pixel four dots of one colour; letters and dense pictures are finer.
#include "sheet/GoldenImages.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QtTest>
#include <map>

using namespace torvane;

namespace {
enum Row { nothing, picture, caption };
constexpr int ellipse = 13;

const SheetGroup& groupOf(int type) { return buttonSheet()[static_cast<std::size_t>(type) - 1]; }

const QImage& denseGroup(int type) {
    static std::map<int, QImage> known;
    const auto found = known.find(type);
    return found != known.end() ? found->second : known[type] = paintedGroup(groupOf(type));
}

QImage goldenGroup(int type) {
    return QImage(QStringLiteral(TORVANE_SHEET_DIR "/golden/%1.png").arg(groupOf(type).name))
        .convertToFormat(QImage::Format_RGB32);
}

// Whether the four dots of a pixel have one colour.
bool isWhole(const QImage& dots, QPoint pixel) {
    const QRgb first = dots.pixel(2 * pixel);
    return dots.pixel(2 * pixel + QPoint(1, 0)) == first && dots.pixel(2 * pixel + QPoint(0, 1)) == first &&
           dots.pixel(2 * pixel + QPoint(1, 1)) == first;
}

// Whether a pixel and all its neighbours have one colour.
bool isInside(const QImage& image, QPoint pixel) {
    for (int x = pixel.x() - 1; x <= pixel.x() + 1; ++x) {
        for (int y = pixel.y() - 1; y <= pixel.y() + 1; ++y) {
            if (image.valid(x, y) && image.pixel(x, y) != image.pixel(pixel)) return false;
        }
    }
    return true;
}

int brokenPixels(const QImage& dots, const QRect& area) {
    int count = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) count += isWhole(dots, {x, y}) ? 0 : 1;
    }
    return count;
}

void addTypesAndStates() {
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("state");
    for (int type = 1; type <= 14; ++type) {
        for (int state = 0; state < stateCount; ++state) {
            QTest::addRow("type %d, %s", type, qPrintable(nameOf(static_cast<ButtonState>(state))))
                << type << state;
        }
    }
}
} // namespace

class ButtonSharpnessTest : public QObject {
    Q_OBJECT

public:
    static void initMain() { useFixedPlatform("2"); }

private slots:
    void initTestCase() {
        const QString missing = missingFonts();
        QVERIFY2(missing.isEmpty(), qPrintable(missing));
    }

    void painted_parts_are_the_same_in_whole_pixels_data() { addTypesAndStates(); }

    void painted_parts_are_the_same_in_whole_pixels() {
        QFETCH(int, type);
        QFETCH(int, state);
        const QImage& dots = denseGroup(type);
        const QImage pixels = goldenGroup(type);
        QCOMPARE(dots.size(), 2 * pixels.size());
        const QRect area = groupOf(type).cellAt(nothing, state);
        for (int y = area.top(); y <= area.bottom(); ++y) {
            for (int x = area.left(); x <= area.right(); ++x) {
                // A curve is drawn finer: there, and there alone, a pixel may be broken.
                if (type == ellipse && !isInside(pixels, {x, y})) continue;
                const bool isSame = isWhole(dots, {x, y}) && dots.pixel(2 * x, 2 * y) == pixels.pixel(x, y);
                QVERIFY2(isSame,
                         qPrintable(QStringLiteral("pixel (%1, %2)").arg(x - area.x()).arg(y - area.y())));
            }
        }
    }

    void curve_of_the_ellipse_is_drawn_in_single_dots() {
        const QRect area = groupOf(ellipse).cellAt(nothing, static_cast<int>(ButtonState::over));
        QVERIFY(brokenPixels(denseGroup(ellipse), area) > 0);
    }

    void letters_are_drawn_in_single_dots_data() { addTypesAndStates(); }

    void letters_are_drawn_in_single_dots() {
        QFETCH(int, type);
        QFETCH(int, state);
        // Away from the edge, where only the caption is.
        const QRect area = groupOf(type).cellAt(caption, state).adjusted(18, 8, -18, -8);
        QVERIFY(brokenPixels(denseGroup(type), area) > 40);
    }

    void dense_pictures_are_shown_dot_for_dot_data() { addTypesAndStates(); }

    // Their thin line is one dot wide. Disabled buttons print it, too, in one or two colours.
    void dense_pictures_are_shown_dot_for_dot() {
        QFETCH(int, type);
        QFETCH(int, state);
        const QRect area = groupOf(type).cellAt(picture, state).adjusted(30, 8, -30, -8);
        const int broken = brokenPixels(denseGroup(type), area);
        QVERIFY2(broken >= 4, qPrintable(QString::number(broken)));
    }
};

TORVANE_TEST(ButtonSharpnessTest)
#include "ButtonSharpnessTest.moc"
