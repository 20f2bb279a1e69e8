// SPDX-License-Identifier: MIT
// File names as text. Linux names are bytes, mostly UTF-8, but any byte may occur. Bytes that are not UTF-8
// become lone low surrogates (U+DC80 to U+DCFF, the scheme of Python's PEP 383), and a backslash inside a
// name becomes U+DC5C, since the program separates folders by backslashes.
#pragma once

#include <QByteArray>
#include <QString>

namespace torvane::NativeText {

/// The text of one file name; toNative restores the same bytes, whatever they are.
QString fromNative(QByteArrayView name);
/// The bytes of a text that came from fromNative or from the user; a stray surrogate becomes "?".
QByteArray toNative(QStringView text);
/// The text for comparison without regard to case. Escaped bytes stay as they are.
QString folded(QStringView text);

} // namespace torvane::NativeText
