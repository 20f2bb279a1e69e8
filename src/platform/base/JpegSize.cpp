// SPDX-License-Identifier: MIT
// The size of a JPEG: its segments one after the other, up to the mark of its end.
#include "PictureBytes.h"
#include "PictureShape.h"

#include <algorithm>

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

// Of a picture in several scans, or in one that is to be refined, the reader keeps all samples, of two bytes
// each, whatever the size at which it is shown. Two screens of 4K in three components have fewer.
constexpr qint64 mostKeptSamples = 50'000'000;

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

struct Frame {
    QSize size;
    qint64 samples = 0; // of all components
    bool isRefined = false;
};

Frame readFrame(PictureBytes& bytes, int mark) {
    bytes.skip(1); // the depth
    const int height = bytes.highFirst();
    const QSize size(bytes.highFirst(), height);
    qint64 all = 0; // samples in the smallest part of the picture that has whole samples of each component
    int widest = 1;
    int highest = 1;
    for (int components = bytes.byte(); components > 0; --components) {
        bytes.skip(1); // the name
        const int factors = bytes.byte();
        bytes.skip(1); // the table
        widest = std::max(widest, factors >> 4);
        highest = std::max(highest, factors & 0xF);
        all += qint64{factors >> 4} * (factors & 0xF);
    }
    return {size, qint64{size.width()} * size.height() * all / (widest * highest), (mark & 3) == 2};
}
} // namespace

QSize jpegSize(QByteArrayView all) {
    PictureBytes bytes(all);
    Frame frame;
    int frames = 0;
    int scans = 0;
    for (int mark = nextMark(bytes); mark != endOfPicture; mark = nextMark(bytes)) {
        if (bytes.isCut()) return {};
        if (isWithoutLength(mark)) continue;
        const qsizetype start = bytes.place();
        const int length = bytes.highFirst();
        if (isFrame(mark) && ++frames == 1) frame = readFrame(bytes, mark);
        if (mark == startOfScan && ++scans > mostScans) return {};
        bytes.skip(start + length - bytes.place());
    }
    const bool isKept = scans > 1 || frame.isRefined;
    return frames != 1 || scans == 0 || (isKept && frame.samples > mostKeptSamples) ? QSize() : frame.size;
}

} // namespace torvane
