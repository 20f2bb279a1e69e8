// SPDX-License-Identifier: MIT
// Looking for the tag, and counting line ends.
#include "ImageEnd.h"
#include "TagLine.h"

#include <algorithm>

namespace torvane {

namespace {
constexpr qint64 unit = 1024; // in bytes; lengths of images are multiples of it
constexpr int mostLineEnds = unit / 2 - 1;

// How many of these bytes come before the tag: all if there is none.
qint64 bytesBeforeTag(QByteArrayView tail, qint64 tailStart) {
    qsizetype from = 0;
    for (;;) {
        const qsizetype found = TagLine::markerIn(tail.sliced(from));
        if (found < 0) return tailStart + tail.size();
        const qsizetype marker = from + found;
        qint64 kept = 0;
        const bool isTag = ignoring([&] {
            const TagLine::Fields fields = TagLine::fields(TagLine::tagPart(tail.sliced(marker)));
            kept = TagLine::keptLength(tailStart + marker, fields.size);
        });
        if (isTag) return kept;
        from = marker + TagLine::marker.size();
    }
}

int lineEndsOf(QByteArrayView body) {
    int count = 0;
    while (count < mostLineEnds && body.endsWith(TagLine::lineEnd)) {
        body.chop(TagLine::lineEnd.size());
        ++count;
    }
    return count;
}
} // namespace

qint64 ImageEnd::length() const {
    const qint64 whole = body - body % unit;
    return whole > 0 && mayBe(whole) ? whole : body;
}

bool ImageEnd::mayBe(qint64 image) const {
    const qint64 added = body - image;
    return added >= 0 && added % TagLine::lineEnd.size() == 0 && added / TagLine::lineEnd.size() <= lineEnds;
}

ImageEnd ImageEnd::of(QByteArrayView tail, qint64 length) {
    const qint64 tailStart = length - tail.size();
    const qint64 body = bytesBeforeTag(tail, tailStart);
    return {body, body > tailStart ? lineEndsOf(tail.first(body - tailStart)) : 0};
}

ImageEnd ImageEnd::in(const Handle& file, qint64 length) {
    const qint64 count = std::min(length, tailSize);
    const QByteArray tail = bytesOf(file, length - count, count);
    if (tail.size() < count) failAsChanged();
    return of(tail, length);
}

} // namespace torvane
