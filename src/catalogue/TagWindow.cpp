// SPDX-License-Identifier: MIT
// Reading the window and the tag in it.
#include "TagWindow.h"
#include "platform/base/NumberText.h"

#include <cmath>
#include <limits>

namespace torvane::TagWindow {

namespace {
qint32 toSizeKB(double bytes) {
    const double rounded = std::nearbyint(bytes / 1000.0); // half to even, the default rounding mode
    if (std::fabs(rounded) > std::numeric_limits<qint32>::max()) {
        throw RuntimeFailure(RuntimeFailure::overflow);
    }
    return static_cast<qint32>(rounded);
}

// A selection does not mind a Size below 0, which no image can be cut to.
qint64 imageBefore(qint64 marker, const QByteArray& size) {
    qint64 kept = marker;
    ignoring([&] { kept = TagLine::keptLength(marker, size); });
    return kept;
}
} // namespace

bool isTooShort(qint64 length) { return length - size < size; }

QByteArray bytes(const Handle& file, qint64 length) { return bytesOf(file, length - size - 1, size); }

std::optional<Tag> tag(const Handle& file, qint64 length) {
    if (isTooShort(length)) return std::nullopt;
    const QByteArray window = bytes(file, length);
    const qsizetype marker = TagLine::markerIn(window);
    if (marker < 0) return std::nullopt;
    Tag found;
    const bool isReadable = ignoring([&] {
        found.fields = TagLine::fields(TagLine::tagPart(window));
        found.sizeKB = toSizeKB(NumberText::toReal(found.fields.size));
        found.imageSize = imageBefore(length - size - 1 + marker, found.fields.size);
    });
    if (!isReadable) return std::nullopt;
    return found;
}

} // namespace torvane::TagWindow
