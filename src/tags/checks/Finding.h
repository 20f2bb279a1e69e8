// SPDX-License-Identifier: MIT
// What is wrong with a game, and how places and bytes are written in it.
#pragma once

#include "tags/rows/Field.h"

#include <QByteArrayView>

namespace torvane {

struct Finding {
    const char* what;
    Field place;    ///< an offset in the file, or the name of a member; missing if it is the whole file
    Field expected; ///< missing if there is no one value
    Field found;
};
using Findings = std::vector<Finding>;

namespace FindingText {
/// An offset: "0x14D".
inline Field place(qint64 offset) { return Field::ofName("0x" + QByteArray::number(offset, 16).toUpper()); }
/// Bytes: "CE ED".
inline Field bytes(QByteArrayView bytes) { return Field::ofName(bytes.toByteArray().toHex(' ').toUpper()); }
/// A number that takes so many bytes, the high one first: "0A0B".
inline Field number(quint32 number, int bytes) {
    return Field::ofName(QByteArray::number(number, 16).toUpper().rightJustified(qsizetype{2} * bytes, '0'));
}
/// A checksum, by its first digits.
inline Field sum(const QByteArray& digits) { return Field::ofName(digits.first(16)); }
} // namespace FindingText

} // namespace torvane
