// SPDX-License-Identifier: MIT
// The fonts of the designs on a system that has none of them, but a wide one.
#include "platform/forms/Fonts.h"
#include "support/OnlyFonts.h"
#include "support/TestMain.h"

#include <QFontInfo>
#include <QFontMetricsF>

using namespace torvane;

class FontsTest : public QObject {
    Q_OBJECT

    // What "Mano" takes in the font of the table, in hundredths of its type size.
    static double widthInTable(FontSpec::Face face) {
        switch (face) {
        case FontSpec::Verdana: return 270;
        case FontSpec::MSSansSerif: return 250;
        case FontSpec::Tahoma: return 243;
        case FontSpec::TrebuchetMS: return 246;
        case FontSpec::CourierNew: return 240;
        }
        return 0;
    }

public:
    static void initMain() { useOnlyFonts({"DejaVuSansMono*"}); }

private slots:
    void initTestCase() {
        QCOMPARE(QFontInfo(QFont(QStringLiteral("DejaVu Sans"))).family(),
                 QStringLiteral("DejaVu Sans Mono"));
    }
    void a_wider_font_gets_a_smaller_type_data() {
        QTest::addColumn<int>("face");
        QTest::addColumn<double>("points");
        QTest::addColumn<bool>("bold");
        for (const int face : {FontSpec::Verdana, FontSpec::MSSansSerif, FontSpec::Tahoma,
                               FontSpec::TrebuchetMS, FontSpec::CourierNew}) {
            for (const double points : {8.25, 9.75, 18.0}) {
                for (const bool bold : {false, true}) {
                    QTest::addRow("%s %g%s", Fonts::standIn(static_cast<FontSpec::Face>(face)).designFace,
                                  points, bold ? " bold" : "")
                        << face << points << bold;
                }
            }
        }
    }
    void a_wider_font_gets_a_smaller_type() {
        QFETCH(int, face);
        QFETCH(double, points);
        QFETCH(bool, bold);
        const FontSpec named{static_cast<FontSpec::Face>(face), points, bold};
        const QFont font = Fonts::of(named);
        const double pixels = points * 96 / 72;
        QVERIFY2(font.pixelSize() < qRound(pixels), qPrintable(QString::number(font.pixelSize())));
        QVERIFY2(font.pixelSize() > pixels / 2, qPrintable(QString::number(font.pixelSize())));
        const double width = QFontMetricsF(font).horizontalAdvance(QStringLiteral("Mano"));
        QVERIFY2(width <= widthInTable(named.face) * pixels / 100, qPrintable(QString::number(width)));
    }
    void the_smallest_type_has_one_pixel() {
        QCOMPARE(Fonts::of({FontSpec::TrebuchetMS, 0.75}).pixelSize(), 1);
    }
    void the_look_stays() {
        const QFont font = Fonts::of({FontSpec::Tahoma, 9.75, true, true, true});
        QVERIFY(font.bold() && font.underline() && font.italic());
    }
};

TORVANE_TEST(FontsTest)
#include "FontsTest.moc"
