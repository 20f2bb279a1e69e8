// SPDX-License-Identifier: MIT
// Going back over line ends.
#include "ImageLength.h"
#include "catalogue/TagLine.h"

#include <algorithm>
#include <bit>

namespace torvane {

qint64 imageLength(const Handle& file, qint64 body) {
    constexpr qint64 most = 64 << 10; // 32,768 saves
    if (body <= 0) return body;
    const auto chip = static_cast<qint64>(std::bit_floor(static_cast<quint64>(body)));
    if (body - chip > most || (body - chip) % TagLine::lineEnd.size() != 0) return body;
    const QByteArray bytes = bytesOf(file, chip, body - chip);
    QByteArrayView after = bytes;
    while (after.startsWith(TagLine::lineEnd)) after = after.sliced(TagLine::lineEnd.size());
    return after.isEmpty() ? chip : body;
}

} // namespace torvane
