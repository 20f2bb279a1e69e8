// SPDX-License-Identifier: MIT
// What the operations on tags have to make of a file's bytes, worked out anew and not by the program's code.
#pragma once

#include <QByteArray>
#include <optional>

namespace torvane::faults::TagBytes {

/// An image of random bytes. The same seed and size give the same.
QByteArray image(qsizetype size, quint64 seed);
/// A tag line of a size and a company; its information is as long as it takes for a whole length.
QByteArray line(qsizetype size, const QByteArray& company, qsizetype length);
/// The line that the operations write behind a file or an image of a size.
QByteArray newLine(qsizetype size);
/// The length of a new line of a size.
qsizetype newLength(qsizetype size);

/// The file after each operation; nothing if it has to fail.
std::optional<QByteArray> stripped(const QByteArray& file);
std::optional<QByteArray> replaced(const QByteArray& file);
QByteArray appended(const QByteArray& file);
QByteArray saved(const QByteArray& file);

/// The values of the new line.
inline const QByteArray company = "Acme";
inline const QByteArray title = "A new title";
inline const QByteArray date = "21/11/26";
inline const QByteArray info = QByteArray(600, 'i'); // more than one block of a disk

} // namespace torvane::faults::TagBytes
