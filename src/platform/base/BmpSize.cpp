// SPDX-License-Identifier: MIT
// The size of a BMP, whose pixels must all be there: counted if they are plain, walked through if they are
// packed.
#include "PictureBytes.h"
#include "PictureShape.h"

#include <cstdlib>

namespace torvane {

namespace {
enum Packing { plain = 0, packedBytes = 1, packedNibbles = 2, maskedBits = 3 };

struct Header {
    qint64 pixelPlace = 0;
    qint64 width = 0;
    qint64 height = 0; // upwards if positive, downwards if negative
    int depth = 0;     // bits of a pixel
    qint32 packing = plain;
};

Header readHeader(PictureBytes& bytes) {
    constexpr int oldHeader = 12; // its size in bytes: it has short numbers and is never packed
    Header header;
    bytes.skip(10); // signature, size of the file, and what is reserved
    header.pixelPlace = bytes.signedLowFirst();
    const bool isOld = bytes.signedLowFirst() == oldHeader;
    header.width = isOld ? bytes.lowFirst() : bytes.signedLowFirst();
    header.height = isOld ? bytes.lowFirst() : bytes.signedLowFirst();
    bytes.skip(2); // planes
    header.depth = bytes.lowFirst();
    if (!isOld) header.packing = bytes.signedLowFirst();
    return header;
}

bool isTooLarge(const Header& header) {
    return header.width <= 0 || header.height == 0 ||
           header.width > PictureShape::mostPixels / std::abs(header.height);
}

// Each line takes whole groups of four bytes.
qint64 plainLength(const Header& header) {
    return (header.width * header.depth + 31) / 32 * 4 * std::abs(header.height);
}

// Whether packed pixels reach the mark of their end.
bool reachesEnd(PictureBytes& bytes, bool areNibbles) {
    enum Code { endOfLine = 0, endOfPicture = 1, move = 2 };
    while (!bytes.isCut()) {
        const int count = bytes.byte();
        const int code = bytes.byte();
        if (count != 0 || code == endOfLine) continue;
        if (code == endOfPicture) return true;
        if (code == move) {
            bytes.skip(2);
        } else {
            const int length = areNibbles ? (code + 1) / 2 : code;
            bytes.skip(length + length % 2);
        }
    }
    return false;
}

bool isWhole(PictureBytes& bytes, const Header& header) {
    bytes.skip(static_cast<qsizetype>(header.pixelPlace) - bytes.place());
    switch (header.packing) {
    case plain:
    case maskedBits: bytes.skip(static_cast<qsizetype>(plainLength(header))); return !bytes.isCut();
    case packedBytes: return reachesEnd(bytes, false);
    case packedNibbles: return reachesEnd(bytes, true);
    default: return false;
    }
}
} // namespace

QSize bmpSize(QByteArrayView all) {
    PictureBytes bytes(all);
    const Header header = readHeader(bytes);
    if (bytes.isCut() || isTooLarge(header) || !isWhole(bytes, header)) return {};
    return {static_cast<int>(header.width), static_cast<int>(std::abs(header.height))};
}

} // namespace torvane
