// SPDX-License-Identifier: MIT
// A bare window for tests of controls, and functions that examine what is painted. Owned by the test.
#pragma once

#include "platform/forms/Form.h"

#include <QImage>
#include <QWidget>
#include <QtTest>

namespace torvane {

/// A window without border and picture, 300 by 200 pixels, in a colour that no control uses by default.
struct TestForm : Form {
    static constexpr OleColour back = 0x30A020;
    static constexpr FormDesign plain{
        .name = "Test", .title = "Test", .clientSize = {300, 200}, .backColour = back};

    explicit TestForm(Runtime& givenRuntime, const FormDesign& design = plain) : Form(givenRuntime, design) {}

    /// Shows the window and waits until it has been painted. False if it never appears.
    bool appear() {
        Show();
        return QTest::qWaitForWindowExposed(this);
    }
};

/// An image of a widget and its children, in 32 bits per pixel.
inline QImage imageOf(QWidget& widget) {
    return widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

/// The smallest rectangle around all pixels that differ from a colour; null if none does.
inline QRect inkOf(const QImage& image, const QColor& background) {
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) != background) ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

/// Whether a pixel of exactly that colour is in the image.
inline bool hasColour(const QImage& image, const QColor& colour) {
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == colour) return true;
        }
    }
    return false;
}

} // namespace torvane
