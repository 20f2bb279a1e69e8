// SPDX-License-Identifier: MIT
// Parses and builds tag lines.
#include "TagLine.h"
#include "platform/base/NumberText.h"

#include <QByteArrayList>
#include <cmath>
#include <cstring>

namespace torvane::TagLine {

namespace {
const QByteArray& piece(const QByteArrayList& pieces, qsizetype index) {
    if (index >= pieces.size()) throw unreadable(RuntimeFailure::subscript);
    return pieces[index];
}

// By how many places a company that contains the separator shifts the later fields.
int shiftOf(QByteArrayView tagPart) { return tagPart.startsWith(shiftedCompany) ? 1 : 0; }

// Stops after the pieces that can hold fields: a tag part may be as large as the file.
QByteArrayList piecesOf(QByteArrayView tagPart) {
    constexpr qsizetype wanted = 6;
    QByteArrayList pieces;
    while (pieces.size() < wanted) {
        const qsizetype end = tagPart.indexOf(separator);
        pieces << (end < 0 ? tagPart : tagPart.first(end)).toByteArray();
        if (end < 0) break;
        tagPart = tagPart.sliced(end + 1);
    }
    return pieces;
}
} // namespace

qsizetype markerIn(QByteArrayView bytes) {
    // Most of the time of a first tag is spent here. One byte is found several times as fast as a text, and
    // the last one is the rarest of the marker: images hold English texts.
    const auto before = static_cast<size_t>(marker.size() - 1);
    for (size_t from = before; from < static_cast<size_t>(bytes.size());) {
        const void* found =
            std::memchr(bytes.data() + from, separator, static_cast<size_t>(bytes.size()) - from);
        if (found == nullptr) break;
        const char* start = static_cast<const char*>(found) - before;
        if (std::memcmp(start, marker.constData(), before) == 0) return start - bytes.data();
        from = static_cast<size_t>(start - bytes.data()) + before + 1;
    }
    return -1;
}

QByteArrayView tagPart(QByteArrayView bytes) {
    const qsizetype at = markerIn(bytes);
    if (at < 0) throw unreadable(RuntimeFailure::subscript);
    const QByteArrayView rest = bytes.sliced(at + marker.size());
    const qsizetype next = markerIn(rest);
    return next < 0 ? rest : rest.first(next);
}

Fields fields(QByteArrayView tagPart) {
    const QByteArrayList pieces = piecesOf(tagPart);
    const qsizetype shift = shiftOf(tagPart);
    return {shift == 1 ? shiftedCompany : pieces[0], piece(pieces, 1 + shift), piece(pieces, 2 + shift),
            piece(pieces, 3 + shift), piece(pieces, 4 + shift)};
}

int sizePiece(QByteArrayView tagPart) { return 4 + shiftOf(tagPart); }

QByteArray storedSizeText(QByteArrayView tagPart) { return piece(piecesOf(tagPart), sizePiece(tagPart)); }

qint64 keptLength(qint64 image, const QByteArray& size) {
    double stored = 0;
    if (!ignoring([&] { stored = std::nearbyint(NumberText::toReal(size)); })) {
        throw unreadable(RuntimeFailure::typeMismatch);
    }
    if (stored < 0) throw unreadable(RuntimeFailure::invalidCall);
    return stored >= static_cast<double>(image) ? image : static_cast<qint64>(stored);
}

QByteArrayView keptImage(QByteArrayView bytes) {
    const QByteArrayView tag = tagPart(bytes);
    return bytes.first(keptLength(tag.data() - bytes.data() - marker.size(), storedSizeText(tag)));
}

QByteArray build(const Fields& fields) {
    const QByteArrayList pieces = {fields.company, fields.title, fields.date, fields.info, fields.size};
    return marker + pieces.join(separator) + separator + lineEnd;
}

} // namespace torvane::TagLine
