// SPDX-License-Identifier: MIT
// File names as text. Linux names are bytes, mostly UTF-8, but any byte may occur: what is no UTF-8
// is carried through as lone low surrogates (U+DC80 to U+DCFF, the scheme of Python's PEP 383), and a
// backslash inside a name as U+DC5C, since the program spells the folder separator with a backslash.
#pragma once

#include <QByteArray>
#include <QString>

namespace torvane::NativeText {

/// The text of one file name; toNative gives the same bytes back, whatever they are.
QString fromNative(QByteArrayView name);
/// The bytes of a text that came from fromNative or from the user; a stray surrogate becomes "?".
QByteArray toNative(QStringView text);
/// The text for comparing without regard to case. What stands for bytes that are no text stays as it is.
QString folded(QStringView text);

} // namespace torvane::NativeText
