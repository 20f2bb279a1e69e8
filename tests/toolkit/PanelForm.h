// SPDX-License-Identifier: MIT
// A window for the controls under test, with a desktop of its own, and looks at single pixels.
#pragma once

#include "support/FakeDesktop.h"
#include "support/TestForm.h"

namespace torvane {

/// A frameless window of 400 x 300 pixels in the colour of the dark panels.
struct PanelForm : FakeDesktop, TestForm {
    static constexpr OleColour back = 0x4A3933;

    PanelForm()
        : TestForm(FakeDesktop::runtime, {.name = "PanelForm",
                                          .title = "Test",
                                          .clientSize = {400, 300},
                                          .start = FormDesign::systemDefault,
                                          .backColour = back}) {}

    void showAndWait() {
        Show();
        QVERIFY(QTest::qWaitForWindowActive(this));
    }
};

/// The colour of an image's pixel as a word 0xBBGGRR.
inline OleColour colourAt(const QImage& image, int x, int y) {
    const QRgb pixel = image.pixel(x, y);
    return static_cast<OleColour>(qRed(pixel) | qGreen(pixel) << 8 | qBlue(pixel) << 16);
}

/// How many pixels of a colour an image has.
inline int pixelsIn(const QImage& image, OleColour colour) {
    int count = 0;
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y) count += colourAt(image, x, y) == colour;
    }
    return count;
}

/// Colours as six hexadecimal digits, so that a failed comparison shows them.
inline QByteArray hex(OleColour colour) { return QByteArray::number(colour, 16).rightJustified(6, '0'); }

} // namespace torvane

#define COMPARE_PIXEL(image, x, y, expected)                                                                 \
    QCOMPARE(torvane::hex(torvane::colourAt(image, x, y)), torvane::hex(expected))
