// SPDX-License-Identifier: MIT
// Cutting and building tag lines.
#include "TagLine.h"
#include "platform/base/RuntimeFailure.h"

#include <cmath>

namespace torvane::TagLine {

namespace {
const QByteArray& piece(const QByteArrayList& pieces, qsizetype index) {
    if (index >= pieces.size()) throw RuntimeFailure(RuntimeFailure::subscript);
    return pieces[index];
}

// How many places the fields behind the company are moved by a company that holds a separator.
qsizetype shiftOf(const QByteArray& tagPart) { return tagPart.startsWith(shiftedCompany) ? 1 : 0; }
} // namespace

QByteArray imagePart(const QByteArray& bytes) {
    const qsizetype at = bytes.indexOf(marker);
    return at < 0 ? bytes : bytes.first(at);
}

QByteArray tagPart(const QByteArray& bytes) {
    const qsizetype at = bytes.indexOf(marker);
    if (at < 0) throw RuntimeFailure(RuntimeFailure::subscript);
    const qsizetype start = at + marker.size();
    const qsizetype next = bytes.indexOf(marker, start);
    return next < 0 ? bytes.sliced(start) : bytes.sliced(start, next - start);
}

Fields fields(const QByteArray& tagPart) {
    const QByteArrayList pieces = tagPart.split(separator);
    const qsizetype shift = shiftOf(tagPart);
    return {shift == 1 ? shiftedCompany : pieces[0], piece(pieces, 1 + shift), piece(pieces, 2 + shift),
            piece(pieces, 3 + shift), piece(pieces, 4 + shift)};
}

QByteArray storedSizeText(const QByteArray& tagPart) {
    return piece(tagPart.split(separator), 4 + shiftOf(tagPart));
}

double number(const QByteArray& text) {
    bool isNumber = false;
    const double value = text.trimmed().toDouble(&isNumber);
    // The toolkit's conversion also takes "inf" and "nan", which no size is.
    if (!isNumber || !std::isfinite(value)) throw RuntimeFailure(RuntimeFailure::typeMismatch);
    return value;
}

QByteArray build(const Fields& fields) {
    const QByteArrayList pieces = {fields.company, fields.title, fields.date, fields.info, fields.size};
    return marker + pieces.join(separator) + separator + lineEnd;
}

} // namespace torvane::TagLine
