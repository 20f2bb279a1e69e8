// SPDX-License-Identifier: MIT
// Searches a file for a tag; only the Size piece is kept in memory.
#include "TagInFile.h"
#include "TagLine.h"
#include "platform/base/FileBlocks.h"
#include "platform/base/FileMark.h"

#include <algorithm>

namespace torvane::TagInFile {

namespace {
constexpr qint64 longestSize = 16 << 20;
constexpr const char* remembered = "marker";

// The offset of the first hit of `locate`, which looks for `length` bytes; -1 if there is none.
template <typename Locate>
qint64 find(const Handle& file, qint64 from, qint64 to, qint64 length, Locate locate) {
    FileBlocks blocks(file, from, to, length - 1);
    for (QByteArrayView block = blocks.next(); !block.isEmpty(); block = blocks.next()) {
        const qsizetype at = locate(block);
        if (at >= 0) return blocks.position() + at;
    }
    return -1;
}

qint64 markerAt(const Handle& file, qint64 from, qint64 to) {
    return find(file, from, to, TagLine::marker.size(), TagLine::markerIn);
}

qint64 separatorAt(const Handle& file, qint64 from, qint64 to) {
    return find(file, from, to, 1, [](QByteArrayView block) { return block.indexOf(TagLine::separator); });
}

qint64 firstMarker(const Handle& file, qint64 length) {
    const auto known = FileMark::read(file, remembered);
    const bool isThere =
        known && *known >= 0 && bytesOf(file, *known, TagLine::marker.size()) == TagLine::marker;
    return isThere ? *known : markerAt(file, 0, length);
}

QByteArray sizeText(const Handle& file, qint64 tag, qint64 end) {
    const QByteArray beginning =
        bytesOf(file, tag, std::min<qint64>(end - tag, TagLine::shiftedCompany.size()));
    qint64 piece = tag;
    for (int i = TagLine::sizePiece(beginning); i > 0; --i) {
        const qint64 separator = separatorAt(file, piece, end);
        if (separator < 0) throw TagLine::unreadable(RuntimeFailure::subscript);
        piece = separator + 1;
    }
    const qint64 separator = separatorAt(file, piece, end);
    const qint64 length = (separator < 0 ? end : separator) - piece;
    if (length > longestSize) throw TagLine::unreadable(RuntimeFailure::typeMismatch);
    return bytesOf(file, piece, length);
}
} // namespace

bool hasMarker(const Handle& file) { return markerAt(file, 0, infoOf(file).st_size) >= 0; }

std::optional<qint64> keptLength(const Handle& file) {
    const qint64 length = infoOf(file).st_size;
    const qint64 image = firstMarker(file, length);
    if (image < 0) return std::nullopt;
    const qint64 tag = image + TagLine::marker.size();
    const qint64 next = markerAt(file, tag, length);
    return TagLine::keptLength(image, sizeText(file, tag, next < 0 ? length : next));
}

void rememberMarker(const Handle& file, qint64 marker) { FileMark::write(file, remembered, marker); }

} // namespace torvane::TagInFile
