// SPDX-License-Identifier: MIT
// Searching a file for markers, and cutting the tag at its separators.
#include "TagCheck.h"
#include "catalogue/TagWindow.h"
#include "platform/base/FileBlocks.h"

#include <QByteArrayList>
#include <algorithm>

namespace torvane::TagCheck {

namespace {
enum Piece { company, title, date, info, size, lineEnd, pieceCount };

struct Markers {
    qint64 count = 0;
    qint64 first = -1;
    qint64 seen = -1;  // the first one in the window of a selection
    qint64 other = -1; // the first one that is not the tag's

    qint64 tag() const { return seen >= 0 ? seen : first; }
};

Markers markersIn(const Handle& file, qint64 length) {
    Markers markers;
    const qint64 windowEnd = TagWindow::isTooShort(length) ? 0 : length - 1;
    const qint64 windowStart = windowEnd - TagWindow::size;
    const auto note = [&](qint64 at) {
        const bool isSeen = at >= windowStart && at + TagLine::marker.size() <= windowEnd;
        if (isSeen && markers.seen < 0) markers.seen = at;
        if (markers.count == 1) markers.other = at;
        if (markers.count++ == 0) markers.first = at;
    };
    FileBlocks blocks(file, 0, length, TagLine::marker.size() - 1);
    for (QByteArrayView block = blocks.next(); !block.isEmpty(); block = blocks.next()) {
        qsizetype from = 0;
        for (qsizetype at = TagLine::markerIn(block); at >= 0; at = TagLine::markerIn(block.sliced(from))) {
            note(blocks.position() + from + at);
            from += at + TagLine::marker.size();
        }
    }
    if (markers.tag() != markers.first) markers.other = markers.first;
    return markers;
}

QByteArrayList piecesOf(QByteArrayView part) {
    QByteArrayList pieces = part.toByteArray().split(TagLine::separator);
    // The company of the shifted form is two pieces.
    if (part.startsWith(TagLine::shiftedCompany)) pieces[0] += TagLine::separator + pieces.takeAt(1);
    return pieces;
}

Finding sizeFinding(const QByteArray& stored, qint64 marker) {
    return {"size in the tag", FindingText::place(marker), Field::ofNumber(marker), Field::ofTagText(stored)};
}

void checkTexts(const QByteArrayList& pieces, const Field& place, Findings& findings) {
    for (const Piece piece : {company, title, info}) {
        if (pieces[piece].isEmpty()) findings.push_back({"empty text in the tag", place, {}, {}});
    }
    for (qsizetype piece = company; piece < size; ++piece) {
        const QByteArray& text = pieces[piece];
        const bool hasControl =
            std::any_of(text.begin(), text.end(), [](char c) { return c >= 0 && c < ' '; });
        if (hasControl) {
            findings.push_back({"control character in the tag", place, {}, Field::ofTagText(text)});
        }
    }
}

// The part ends before the next marker, which is reported for itself.
QByteArrayView partAfter(const QByteArray& bytes) {
    const qsizetype next = TagLine::markerIn(bytes);
    return next < 0 ? QByteArrayView(bytes) : QByteArrayView(bytes).first(next);
}
} // namespace

Findings ofTagPart(QByteArrayView part, qint64 marker) {
    Findings findings;
    const Field place = FindingText::place(marker);
    const QByteArrayList pieces = piecesOf(part);
    if (part.startsWith(TagLine::shiftedCompany)) {
        findings.push_back({"shifted form of tag", place, {}, Field::ofTagText(TagLine::shiftedCompany)});
    }
    if (pieces.size() != pieceCount) {
        findings.push_back({"pieces of the tag", place, Field::ofNumber(pieceCount),
                            Field::ofNumber(static_cast<qint64>(pieces.size()))});
    }
    if (pieces.size() <= size) return findings;
    checkTexts(pieces, place, findings);
    if (pieces[size] != QByteArray::number(marker)) findings.push_back(sizeFinding(pieces[size], marker));
    if (pieces.size() == pieceCount && pieces[lineEnd] != TagLine::lineEnd) {
        constexpr qsizetype shown = 16;
        const QByteArray& end = pieces[lineEnd];
        findings.push_back({"line end of the tag", place, FindingText::bytes(TagLine::lineEnd),
                            FindingText::bytes(end.first(std::min(end.size(), shown)))});
    }
    return findings;
}

Findings of(const Handle& file, qint64 length) {
    const Markers markers = markersIn(file, length);
    const qint64 tag = markers.tag();
    if (tag < 0) return {};
    Findings findings;
    if (markers.count > 1) {
        findings.push_back({"more than one tag", FindingText::place(markers.other), Field::ofNumber(1),
                            Field::ofNumber(markers.count)});
    }
    if (markers.seen < 0) {
        // A selection shows the game as one without a tag.
        findings.push_back({"tag that is not seen", FindingText::place(tag), {}, {}});
        return findings;
    }
    const qint64 start = tag + TagLine::marker.size();
    const QByteArray bytes = bytesOf(file, start, length - start);
    for (Finding& finding : ofTagPart(partAfter(bytes), tag)) findings.push_back(std::move(finding));
    return findings;
}

} // namespace torvane::TagCheck
