// SPDX-License-Identifier: MIT
// The size of a JPEG: its segments one after the other, up to the mark of its end.
#include "PictureBytes.h"
#include "PictureShape.h"

namespace torvane {

namespace {
enum Mark {
    startOfFrame = 0xC0, // and all up to 0xCF, with three exceptions
    huffmanTables = 0xC4,
    extensions = 0xC8,
    arithmeticTables = 0xCC,
    firstRestart = 0xD0,
    lastRestart = 0xD7,
    startOfPicture = 0xD8,
    endOfPicture = 0xD9,
    startOfScan = 0xDA,
    temporary = 0x01,
    fill = 0xFF,
};

// No encoder makes more than a dozen. Each of them costs a pass over the whole picture, and so a file of a
// few kilobytes could keep a reader busy for minutes.
constexpr int mostScans = 20;

bool isFrame(int mark) {
    return mark >= startOfFrame && mark <= 0xCF && mark != huffmanTables && mark != extensions &&
           mark != arithmeticTables;
}

bool isWithoutLength(int mark) {
    return mark == temporary || (mark >= firstRestart && mark <= startOfPicture);
}

// The next mark. Within a scan there may be any bytes before it.
int nextMark(PictureBytes& bytes) {
    while (!bytes.isCut()) {
        bytes.find('\xFF');
        int mark = bytes.byte();
        while (mark == fill) mark = bytes.byte();
        if (mark != 0) return mark;
    }
    return 0;
}

QSize frameSize(PictureBytes& bytes) {
    bytes.skip(1); // the depth
    const int height = bytes.highFirst();
    return {bytes.highFirst(), height};
}
} // namespace

QSize jpegSize(QByteArrayView all) {
    PictureBytes bytes(all);
    QSize size;
    int scans = 0;
    for (int mark = nextMark(bytes); mark != endOfPicture; mark = nextMark(bytes)) {
        if (bytes.isCut()) return {};
        if (isWithoutLength(mark)) continue;
        const qsizetype start = bytes.place();
        const int length = bytes.highFirst();
        if (isFrame(mark)) size = size.isValid() ? QSize() : frameSize(bytes);
        if (mark == startOfScan && ++scans > mostScans) return {};
        bytes.skip(start + length - bytes.place());
    }
    return scans > 0 ? size : QSize();
}

} // namespace torvane
