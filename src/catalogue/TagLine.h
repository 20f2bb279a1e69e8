// SPDX-License-Identifier: MIT
// Parses and builds the bytes of a tag line. Pure functions; ID3 reads and writes the files.
#pragma once

#include "platform/base/RuntimeFailure.h"

#include <QByteArray>
#include <QByteArrayView>

namespace torvane::TagLine {

/// "ID3TAG§" in code page 1252. A tag is found by this alone.
inline const QByteArray marker = QByteArrayLiteral("ID3TAG\xA7");
/// "Vö§RäN": the company of the shifted form. Its own separator shifts all later fields by one place.
inline const QByteArray shiftedCompany = QByteArrayLiteral("V\xF6\xA7R\xE4N");
constexpr char separator = '\xA7';
inline const QByteArray lineEnd = QByteArrayLiteral("\r\n");

/// The fields of a tag, in code page 1252. Size is the text as stored.
struct Fields {
    QByteArray company, title, date, info, size;
};

/// The failure to understand a tag. All that follow here are such.
inline RuntimeFailure unreadable(RuntimeFailure::Number number) {
    return RuntimeFailure(number, RuntimeFailure::Reason::tag);
}

/// The offset of the first marker; -1 if there is none.
qsizetype markerIn(QByteArrayView bytes);
/// The bytes between the first marker and the second one, or the end. Fails with "subscript" if there is no
/// marker.
QByteArrayView tagPart(QByteArrayView bytes);
/// The fields of a tag part. Fails with "subscript" if there are too few pieces.
Fields fields(QByteArrayView tagPart);
/// The Size piece of a tag part, as stored. Fails with "subscript" if there are too few pieces.
QByteArray storedSizeText(QByteArrayView tagPart);
/// The index of the Size piece in a tag part, counted from 0. The first six bytes of the part decide.
int sizePiece(QByteArrayView tagPart);
/// How many bytes of an image remain when its tag is removed: at most the number in the Size piece, rounded
/// to nearest with half to even. Fails with "type mismatch" if the piece is no number, and with "invalid
/// call" if it is below 0.
qint64 keptLength(qint64 image, const QByteArray& size);
/// The image that remains of a tagged file when its tag is removed: the bytes before the first marker, at
/// most as many as the tag's Size. Fails with "subscript" or "type mismatch" if there is no tag or an invalid
/// one, and with "invalid call" for a Size below 0.
QByteArrayView keptImage(QByteArrayView bytes);
/// The whole tag line with its line end.
QByteArray build(const Fields& fields);

} // namespace torvane::TagLine
