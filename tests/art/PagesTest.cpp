// SPDX-License-Identifier: MIT
// The pictures of the assistant and of the ZIP window: words have a calm ground, marks are beside the hot
// areas, fields are in wells, and turning a page moves nothing but the helper.
#include "ArtFiles.h"
#include "art/ArtResources.h"
#include "support/TestMain.h"

#include <QTest>
#include <algorithm>

using namespace torvane;

namespace {

const QStringList pages = {"One", "Two", "Three", "Four"};
constexpr QRect typedText(260, 18, 199, 181);
constexpr QRect firstAnswer(262, 86, 195, 17);
constexpr QRect secondAnswer(262, 106, 195, 17);
constexpr QRect pathField(4, 272, 364, 19);
constexpr QRect list(4, 26, 543, 395);

constexpr int greyNoise = 10; // the accuracy of brightness in a JPEG
constexpr int bright = 160;

QImage page(const QString& name, int scale) { return picture("NewAssistant-" + name, scale); }

QList<int> greysOf(const QImage& image, const QRect& part) {
    QList<int> greys;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x) greys << qGray(image.pixel(x, y));
    }
    return greys;
}

int brightPixels(const QImage& image, const QRect& part) {
    const QList<int> greys = greysOf(image, part);
    return int(std::ranges::count_if(greys, [](int grey) { return grey > bright; }));
}

// The mean difference between two pictures in one part of them, 0 to 255.
qreal difference(const QImage& one, const QImage& other, const QRect& part) {
    const QList<int> left = greysOf(one, part);
    const QList<int> right = greysOf(other, part);
    qint64 sum = 0;
    for (qsizetype at = 0; at < left.size(); ++at) sum += qAbs(left[at] - right[at]);
    return qreal(sum) / qreal(left.size());
}

int widestDifference(const QImage& one, const QImage& other, const QRect& part) {
    const QList<int> left = greysOf(one, part);
    const QList<int> right = greysOf(other, part);
    int widest = 0;
    for (qsizetype at = 0; at < left.size(); ++at) widest = std::max(widest, qAbs(left[at] - right[at]));
    return widest;
}

// The place of a mark: left of its hot area, in the margin of the sheet.
QRect marginOf(const QRect& answer) { return {answer.left() - 26, answer.top(), 24, answer.height()}; }

} // namespace

class PagesTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { initArtResources(); }
    void typed_text_is_on_calm_dark_ground_data() { eachPage(); }
    void typed_text_is_on_calm_dark_ground();
    void a_mark_is_beside_each_answer_and_nowhere_else_data() { eachPage(); }
    void a_mark_is_beside_each_answer_and_nowhere_else();
    void no_two_marks_look_alike();
    void the_path_field_is_in_a_well_where_it_is_shown_data() { eachPage(); }
    void the_path_field_is_in_a_well_where_it_is_shown();
    void the_helper_has_another_mood_on_each_page();
    void turning_a_page_moves_neither_the_tor_nor_the_strip();
    void the_list_of_the_zip_window_is_in_a_well();
    void the_wait_panel_is_raised_over_the_list();

private:
    static void eachPage();
};

void PagesTest::eachPage() {
    QTest::addColumn<QString>("name");
    for (const QString& name : pages) QTest::newRow(qPrintable(name)) << name;
}

void PagesTest::typed_text_is_on_calm_dark_ground() {
    QFETCH(QString, name);
    for (int scale : {1, 2}) {
        const QList<int> greys = greysOf(page(name, scale), device(typedText, scale));
        const auto [darkest, brightest] = std::ranges::minmax(greys);
        QVERIFY2(brightest < 90, "white letters with a black shadow need dark ground");
        QVERIFY2(darkest > 10, "the black shadow would vanish");
    }
}

void PagesTest::a_mark_is_beside_each_answer_and_nowhere_else() {
    QFETCH(QString, name);
    const bool hasMarks = name == "Two" || name == "Three";
    for (int scale : {1, 2}) {
        const QImage image = page(name, scale);
        int marks = 0;
        for (const QRect& answer : {firstAnswer, secondAnswer}) {
            const int drawn = brightPixels(image, device(marginOf(answer), scale));
            QCOMPARE(drawn > 25 * scale * scale, hasMarks);
            marks += drawn;
        }
        const QRect margin(marginOf(firstAnswer).left(), typedText.top(), 24, typedText.height());
        QCOMPARE(brightPixels(image, device(margin, scale)), marks);
    }
}

void PagesTest::no_two_marks_look_alike() {
    for (int scale : {1, 2}) {
        QList<QImage> marks;
        for (const char* name : {"Two", "Three"}) {
            for (const QRect& answer : {firstAnswer, secondAnswer})
                marks << page(name, scale).copy(device(marginOf(answer), scale));
        }
        for (int one = 0; one < marks.size(); ++one) {
            for (int other = 0; other < one; ++other)
                QVERIFY(difference(marks[one], marks[other], marks[one].rect()) > 8);
        }
    }
}

void PagesTest::the_path_field_is_in_a_well_where_it_is_shown() {
    QFETCH(QString, name);
    const bool isShown = name == "Two" || name == "Four";
    for (int scale : {1, 2}) {
        const QImage image = page(name, scale);
        const auto row = [&](int y) {
            return brightnessOf(image, device(QRect(pathField.left() + 20, y, 300, 1), scale));
        };
        const qreal floor = row(pathField.bottom() - 4);
        // The upper edge casts a shadow into a well, but shines on a cover plate.
        QCOMPARE(row(pathField.top() + 1) < floor - 5, isShown);
        QVERIFY2(row(pathField.top() - 1) < floor - greyNoise, "the cut around it");
        if (isShown) QVERIFY2(row(pathField.bottom() + 2) > floor + greyNoise, "the lit lower lip");
    }
}

void PagesTest::the_helper_has_another_mood_on_each_page() {
    const QRect helper(20, 20, 200, 170);
    for (int one = 0; one < pages.size(); ++one) {
        for (int other = 0; other < one; ++other) {
            QVERIFY2(difference(page(pages[one], 1), page(pages[other], 1), helper) > 3,
                     qPrintable(pages[one] + " and " + pages[other]));
        }
    }
}

void PagesTest::turning_a_page_moves_neither_the_tor_nor_the_strip() {
    const QRect tor(60, 222, 110, 38);
    const QRect voiceAndTrack(2, 297, 476, 22);
    const QRect browse(372, 268, 106, 26);
    for (int scale : {1, 2}) {
        for (const QRect& part : {tor, voiceAndTrack, browse}) {
            for (const QString& name : pages) {
                QVERIFY(widestDifference(page(name, scale), page("One", scale), device(part, scale)) <=
                        2 * greyNoise);
            }
        }
    }
}

void PagesTest::the_list_of_the_zip_window_is_in_a_well() {
    for (int scale : {1, 2}) {
        const QImage window = picture("ZIP_Viewer", scale);
        const auto line = [&](int x, int y, int width, int height) {
            return brightnessOf(window, device(QRect(x, y, width, height), scale));
        };
        const qreal floor = line(200, 200, 100, 100);
        QVERIFY(line(20, list.top() - 1, 500, 1) < floor - greyNoise);
        QVERIFY(line(list.left() - 1, 40, 1, 360) < floor - greyNoise);
        QVERIFY(line(20, list.bottom() + 2, 500, 1) > floor + greyNoise);
        QVERIFY(line(list.right() + 2, 40, 1, 360) > floor + greyNoise);
        QVERIFY2(line(0, 100, 1, 200) < 20, "the frame's dark line");
        QVERIFY2(line(20, 4, 480, 15) < 45, "the title band");
    }
}

void PagesTest::the_wait_panel_is_raised_over_the_list() {
    constexpr int listGround = 57;
    for (int scale : {1, 2}) {
        const QImage panel = picture("ZIP_Viewer-Mensaje", scale);
        const auto part = [&](int x, int y, int width, int height) {
            return brightnessOf(panel, device(QRect(x, y, width, height), scale));
        };
        const qreal face = part(8, 6, 220, 22);
        QVERIFY(face > listGround + greyNoise);
        QVERIFY2(face < 110, "white words need darker ground");
        QVERIFY2(part(4, 1, 180, 1) > face + 2 * greyNoise, "light from above");
        QVERIFY2(part(60, 49, 180, 1) < face - greyNoise, "shade below");
        QVERIFY2(part(0, 0, 243, 1) < face / 2, "the dark line around it");
        for (const QRect& words : {QRect(2, 3, 238, 28), QRect(4, 35, 211, 13)})
            QVERIFY(std::ranges::max(greysOf(panel, device(words, scale))) < 125);
        QVERIFY2(brightPixels(panel, device(QRect(217, 36, 22, 12), scale)) > 0, "the lamp");
    }
}

TORVANE_TEST(PagesTest)
#include "PagesTest.moc"
