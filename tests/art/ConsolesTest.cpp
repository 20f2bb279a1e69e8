// SPDX-License-Identifier: MIT
// The icons of consoles and files in the lists: each can be told from the others by its shape and by its
// colour, at 32 and at 16 pixels.
#include "ArtFiles.h"
#include "art/ArtResources.h"
#include "support/TestMain.h"

#include <QTest>

using namespace torvane;

class ConsolesTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { initArtResources(); }
    void two_consoles_differ_in_shape_and_in_colour_data();
    void two_consoles_differ_in_shape_and_in_colour();
    void an_unknown_file_differs_from_a_console_in_shape_and_in_colour_data();
    void an_unknown_file_differs_from_a_console_in_shape_and_in_colour();
};

void ConsolesTest::two_consoles_differ_in_shape_and_in_colour_data() {
    QTest::addColumn<QString>("one");
    QTest::addColumn<QString>("other");
    QTest::newRow("1") << "gameboy"
                       << "color";
    QTest::newRow("2") << "gameboy"
                       << "advance";
    QTest::newRow("3") << "color"
                       << "advance";
}

void ConsolesTest::two_consoles_differ_in_shape_and_in_colour() {
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

void ConsolesTest::an_unknown_file_differs_from_a_console_in_shape_and_in_colour_data() {
    QTest::addColumn<QString>("name");
    for (const char* name : {"gameboy", "color", "advance", "archive"}) QTest::newRow(name) << name;
}

void ConsolesTest::an_unknown_file_differs_from_a_console_in_shape_and_in_colour() {
    QFETCH(QString, name);
    for (int scale : {1, 2}) {
        const QImage unknown = pixelsOf(scaled(":/art/console-unknown-32.png", scale));
        const QImage console = pixelsOf(scaled(":/art/console-" + name + "-32.png", scale));
        int otherShape = 0;
        int otherColour = 0;
        for (int y = 0; y < unknown.height(); ++y) {
            for (int x = 0; x < unknown.width(); ++x) {
                const QRgb one = unknown.pixel(x, y);
                const QRgb other = console.pixel(x, y);
                otherShape += qAlpha(one) != qAlpha(other) ? 1 : 0;
                const int apart = qAbs((qRed(one) - qBlue(one)) - (qRed(other) - qBlue(other)));
                otherColour += qAlpha(one) == 255 && qAlpha(other) == 255 && apart > 60 ? 1 : 0;
            }
        }
        const int all = unknown.width() * unknown.height();
        QVERIFY2(otherShape > all / 12, qPrintable(QString::number(otherShape)));
        QVERIFY2(otherColour > all / 12, qPrintable(QString::number(otherColour)));
    }
}

TORVANE_TEST(ConsolesTest)
#include "ConsolesTest.moc"
