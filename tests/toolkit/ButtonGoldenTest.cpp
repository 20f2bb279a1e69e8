// SPDX-License-Identifier: MIT
// The skinned button against golden images, pixel by pixel: one data row a cell. What differs is written
// into the tests' build folder.
#include "sheet/GoldenImages.h"
#include "sheet/SheetForm.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QDir>
#include <QtTest>
#include <map>

using namespace torvane;

namespace {
const QString goldenFolder = QStringLiteral(TORVANE_SHEET_DIR "/golden/");
const QString resultFolder = QStringLiteral(TORVANE_GOLDEN_RESULTS "/");

QString fileOf(const SheetGroup& group) { return group.name + QStringLiteral(".png"); }

struct GroupPictures {
    QImage golden;
    QImage painted;
};

// The pictures of a group, painted when first asked for. What differs is written at once.
const GroupPictures& picturesOf(const SheetGroup& group) {
    static std::map<QString, GroupPictures> known;
    const auto found = known.find(group.name);
    if (found != known.end()) return found->second;
    GroupPictures pictures{QImage(goldenFolder + fileOf(group)).convertToFormat(QImage::Format_RGB32),
                           paintedGroup(group)};
    if (pictures.golden != pictures.painted && !pictures.painted.isNull()) {
        pictures.painted.save(resultFolder + group.name + QStringLiteral(".actual.png"));
        differencePicture(pictures.golden, pictures.painted)
            .save(resultFolder + group.name + QStringLiteral(".difference.png"));
    }
    return known[group.name] = pictures;
}

QString inWords(const PixelDifference& difference) {
    const QString colours = QStringLiteral("%1 instead of %2")
                                .arg(QColor(difference.painted).name(), QColor(difference.wanted).name());
    return QStringLiteral("%1 pixels differ, the first at (%2, %3): %4")
        .arg(difference.count)
        .arg(difference.first.x())
        .arg(difference.first.y())
        .arg(colours);
}

QString whereToLook(const SheetGroup& group) {
    return QStringLiteral("\nSee %1%2.actual.png and %2.difference.png there; the golden image is %3")
        .arg(resultFolder, group.name, goldenFolder + fileOf(group));
}
} // namespace

class ButtonGoldenTest : public QObject {
    Q_OBJECT

public:
    static void initMain() { useFixedPlatform("1"); }

private slots:
    void initTestCase() {
        const QString missing = missingFonts();
        QVERIFY2(missing.isEmpty(), qPrintable(missing));
        QDir(resultFolder).removeRecursively();
        QVERIFY(QDir().mkpath(resultFolder));
    }

    void every_golden_image_has_its_group() {
        QStringList wanted;
        for (const SheetGroup& group : buttonSheet()) wanted.append(fileOf(group));
        wanted.sort();
        QCOMPARE(QDir(goldenFolder).entryList(QDir::Files, QDir::Name), wanted);
    }

    void cell_data() {
        QTest::addColumn<int>("group");
        QTest::addColumn<QRect>("area");
        const auto& groups = buttonSheet();
        for (std::size_t i = 0; i < groups.size(); ++i) {
            for (int row = 0; row < static_cast<int>(groups[i].rows.size()); ++row) {
                for (int column = 0; column < stateCount; ++column) {
                    const QString label = groups[i].rows[static_cast<std::size_t>(row)].label;
                    const QString name =
                        QStringLiteral("%1: %2, %3")
                            .arg(groups[i].name, label, nameOf(static_cast<ButtonState>(column)));
                    QTest::newRow(qPrintable(name)) << static_cast<int>(i) << groups[i].cellAt(row, column);
                }
            }
        }
    }

    void cell() {
        QFETCH(int, group);
        QFETCH(QRect, area);
        const SheetGroup& shown = buttonSheet()[static_cast<std::size_t>(group)];
        const GroupPictures& pictures = picturesOf(shown);
        QVERIFY2(!pictures.painted.isNull(), "mouse or focus did not reach a button");
        QVERIFY2(pictures.golden.rect().contains(area),
                 qPrintable(QStringLiteral("no such cell in the golden image") + whereToLook(shown)));
        const PixelDifference difference = differenceIn(area, pictures.golden, pictures.painted);
        QVERIFY2(difference.count == 0, qPrintable(inWords(difference) + whereToLook(shown)));
    }

    // What a person sees in the sheet program is what these images hold.
    void sheet_shows_the_same_data() {
        QTest::addColumn<int>("group");
        const auto& groups = buttonSheet();
        for (std::size_t i = 0; i < groups.size(); ++i) {
            QTest::newRow(qPrintable(groups[i].name)) << static_cast<int>(i);
        }
    }

    void sheet_shows_the_same() {
        QFETCH(int, group);
        const auto index = static_cast<std::size_t>(group);
        const SheetGroup& shown = buttonSheet()[index];
        SheetForm& sheet = openSheet();
        const QRect place(sheet.plan().cells[index], shown.size());
        const QImage image = sheet.grab(place).toImage().convertToFormat(QImage::Format_RGB32);
        const QImage& golden = picturesOf(shown).golden;
        QCOMPARE(image.size(), golden.size());
        const PixelDifference difference = differenceIn(golden.rect(), golden, image);
        QVERIFY2(difference.count == 0, qPrintable(inWords(difference)));
    }

    void cleanupTestCase() { m_sheet.reset(); }

private:
    SheetForm& openSheet() {
        if (!m_sheet) {
            m_sheet = std::make_unique<SheetForm>();
            QCursor::setPos(0, 0);
            m_sheet->show();
            QCoreApplication::processEvents();
        }
        return *m_sheet;
    }

    std::unique_ptr<SheetForm> m_sheet;
};

TORVANE_TEST(ButtonGoldenTest)
#include "ButtonGoldenTest.moc"
