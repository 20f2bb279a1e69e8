// SPDX-License-Identifier: MIT
// Small animated pictures, built by hand since Qt can't write GIF files.
#pragma once

#include <QByteArray>

namespace torvane {

/// The head of a GIF with the colours 0 (red) and 1 (blue), for frames and a final ';'. Size in pixels.
inline QByteArray gifHead(int width = 1, int height = 1) {
    const auto word = [](int value) {
        return QByteArray(1, static_cast<char>(value & 0xFF)) + static_cast<char>(value >> 8);
    };
    return "GIF89a" + word(width) + word(height) + QByteArray::fromHex("800000ff00000000ff");
}

/// One frame with one pixel in the top left corner, shown for a time in hundredths of a second (255 at most).
inline QByteArray gifFrame(int colour, int hundredths = 5) {
    const QByteArray time = QByteArray(1, static_cast<char>(hundredths)) + '\0';
    const QByteArray control = QByteArray::fromHex("21f904") + '\0' + time + QByteArray(2, '\0');
    const QByteArray place = QByteArray::fromHex("2c000000000100010000");
    return control + place + QByteArray::fromHex(colour == 0 ? "0202440100" : "02024c0100");
}

/// Two frames without a loop.
inline QByteArray twoColours() { return gifHead() + gifFrame(0) + gifFrame(1) + ';'; }

} // namespace torvane
