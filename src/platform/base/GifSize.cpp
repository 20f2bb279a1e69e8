// SPDX-License-Identifier: MIT
// The size of a GIF: its blocks one after the other, up to the end of the first frame.
#include "PictureBytes.h"
#include "PictureShape.h"

#include <algorithm>

namespace torvane {

namespace {
constexpr int extension = 0x21;
constexpr int frame = 0x2C;
constexpr int signature = 6; // bytes

void skipColours(PictureBytes& bytes, int flags) {
    constexpr int hasTable = 0x80;
    constexpr int logOfCount = 0x07;
    if ((flags & hasTable) != 0) bytes.skip(3 * (2 << (flags & logOfCount)));
}

void skipBlocks(PictureBytes& bytes) {
    for (int length = bytes.byte(); length > 0; length = bytes.byte()) bytes.skip(length);
}

// Qt's reader makes a screen of this size. Ridiculous sizes of the screen count only if the frame is large,
// too.
int screenExtent(int claimed, int offset, int extent) {
    constexpr int usualScreen = 200;
    const bool isRidiculous = claimed / 10 > std::max(extent, usualScreen);
    return claimed == 0 || isRidiculous ? offset + extent : claimed;
}

// A frame may reach beyond the screen: its pixels are read even if nobody sees them.
bool isTooLarge(int width, int height) { return qint64{width} * height > PictureShape::mostPixels; }
} // namespace

QSize gifSize(QByteArrayView all) {
    PictureBytes bytes(all);
    bytes.skip(signature);
    const int screenWidth = bytes.lowFirst();
    const int screenHeight = bytes.lowFirst();
    const int screenFlags = bytes.byte();
    bytes.skip(2); // the background and the pixels' proportions
    skipColours(bytes, screenFlags);
    int block = bytes.byte();
    for (; block == extension; block = bytes.byte()) {
        bytes.skip(1); // its kind
        skipBlocks(bytes);
    }
    if (block != frame) return {};
    const int left = bytes.lowFirst();
    const int top = bytes.lowFirst();
    const int width = bytes.lowFirst();
    const int height = bytes.lowFirst();
    skipColours(bytes, bytes.byte());
    bytes.skip(1); // the width of the first codes
    skipBlocks(bytes);
    if (bytes.isCut() || width == 0 || height == 0 || isTooLarge(width, height)) return {};
    return {screenExtent(screenWidth, left, width), screenExtent(screenHeight, top, height)};
}

} // namespace torvane
