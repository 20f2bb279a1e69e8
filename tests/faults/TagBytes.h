// SPDX-License-Identifier: MIT
// What the tag operations must make of a file's bytes, worked out independently of the program's code.
#pragma once

#include "catalogue/TagLine.h"

#include <QByteArray>
#include <optional>

namespace torvane::faults::TagBytes {

/// An image of random bytes. The same seed and size give the same image.
QByteArray image(qsizetype size, quint64 seed);
/// A tag line for a size and a company; its information is padded to make the line `length` bytes long.
QByteArray line(qsizetype size, const QByteArray& company, qsizetype length);
/// The line that the operations append to a file or an image of this size.
QByteArray newLine(qsizetype size);
/// The fields of that line, without its size.
TagLine::Fields newFields();
/// The length of a new line for this size.
qsizetype newLength(qsizetype size);

/// The file after each operation; nothing if the operation must fail.
std::optional<QByteArray> stripped(const QByteArray& file);
std::optional<QByteArray> replaced(const QByteArray& file);
QByteArray appended(const QByteArray& file);
QByteArray saved(const QByteArray& file);

/// The fields of the new line.
inline const QByteArray company = "Acme";
inline const QByteArray title = "A new title";
inline const QByteArray date = "21/11/26";
inline const QByteArray info = QByteArray(600, 'i'); // more than one block of a disk

} // namespace torvane::faults::TagBytes
