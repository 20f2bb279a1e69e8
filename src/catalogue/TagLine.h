// SPDX-License-Identifier: MIT
// The tag line in bytes: cutting it and building it. Pure functions; who reads and writes files is ID3.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace torvane::TagLine {

/// "ID3TAG§" in code page 1252: the only thing by which a tag is found.
inline const QByteArray marker = QByteArrayLiteral("ID3TAG\xA7");
/// "Vö§RäN": the company of the shifted form. It holds the separator itself, so that every later field
/// stands one place further on.
inline const QByteArray shiftedCompany = QByteArrayLiteral("V\xF6\xA7R\xE4N");
constexpr char separator = '\xA7';
inline const QByteArray lineEnd = QByteArrayLiteral("\r\n");

/// The fields of a tag. Size is text as it stands.
struct Fields {
    QByteArray company, title, date, info, size;
};

/// Where the first marker begins; -1 without one.
qsizetype markerIn(QByteArrayView bytes);
/// What stands between the first marker and the second one or the end. Fails with "subscript" if there
/// is no marker.
QByteArrayView tagPart(QByteArrayView bytes);
/// The fields of a tag part. Fails with "subscript" if there are too few pieces.
Fields fields(QByteArrayView tagPart);
/// The Size piece of a tag part alone, as it stands. Fails with "subscript".
QByteArray storedSizeText(QByteArrayView tagPart);
/// Which piece of a tag part is the Size, counted from 0. The part's first six bytes tell.
int sizePiece(QByteArrayView tagPart);
/// How many bytes remain of an image when its tag goes: at most as many as the Size piece says, rounded to
/// nearest with half to even. Fails with "type mismatch" if that is no number, and with "invalid call" if it
/// is below 0.
qint64 keptLength(qint64 image, const QByteArray& size);
/// The image that remains of a tagged file when its tag goes: what stands in front of the first marker, at
/// most as many bytes as the tag's size says. Fails with "subscript" or "type mismatch" if there is no tag or
/// none that can be understood, and with "invalid call" for a size below 0.
QByteArrayView keptImage(QByteArrayView bytes);
/// The whole line with its line end.
QByteArray build(const Fields& fields);

} // namespace torvane::TagLine
