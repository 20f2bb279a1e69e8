// SPDX-License-Identifier: MIT
// Images with good headers. The logo of the Game Boy comes from the assembler's own tool; no tool at hand has
// that of the Game Boy Advance.
#pragma once

#include "support/CommandOutput.h"
#include "support/TestFolder.h"

namespace torvane::CartridgeImage {

/// Sets the checksums of a Game Boy image.
inline QByteArray finished(QByteArray image) {
    const auto at = [&](int offset) { return static_cast<quint8>(image[offset]); };
    quint8 header = 0;
    for (int i = 0x134; i < 0x14D; ++i) header = static_cast<quint8>(header - at(i) - 1);
    image[0x14D] = static_cast<char>(header);
    image[0x14E] = image[0x14F] = 0;
    quint16 sum = 0;
    for (const char byte : image) sum = static_cast<quint16>(sum + static_cast<quint8>(byte));
    image[0x14E] = static_cast<char>(sum >> 8);
    image[0x14F] = static_cast<char>(sum);
    return image;
}

/// A game of 32 KiB for the Game Boy. Games with other letters have other images.
inline QByteArray gameBoy(char letter = 'a') {
    static const QByteArray bare = [] {
        const TestFolder folder;
        folder.write(QStringLiteral("a.ihx"), ":0100000000FF\n:00000001FF\n");
        QProcess::execute(QStringLiteral("makebin"),
                          {QStringLiteral("-Z"), folder.path(QStringLiteral("a.ihx")),
                           folder.path(QStringLiteral("a.img"))});
        return folder.read(QStringLiteral("a.img"));
    }();
    if (bare.size() != 32768) qFatal("makebin has made no image");
    QByteArray image = bare;
    image.replace(0x100, 4, QByteArray("\x00\xC3\x50\x01", 4));
    image.replace(0x134, 25, QByteArray(25, '\0'));
    image[0x134] = letter;
    return finished(image);
}

/// A game of 64 KiB for the Game Boy Advance, without the logo.
inline QByteArray advance() {
    QByteArray image(65536, '\0');
    image.replace(0, 4, "\x2E\x01\x01\xEA");
    image.replace(0xA0, 16, QByteArray("TITLE\0\0\0\0\0\0\0ABCD", 16));
    image[0xB2] = '\x96';
    quint8 sum = 0;
    for (int i = 0xA0; i < 0xBD; ++i) sum = static_cast<quint8>(sum - static_cast<quint8>(image[i]));
    image[0xBD] = static_cast<char>(sum - 0x19);
    return image;
}

} // namespace torvane::CartridgeImage
