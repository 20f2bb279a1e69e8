// SPDX-License-Identifier: MIT
// What comes from the command line or from a folder, made fit for a message on a terminal.
#pragma once

#include <QByteArray>
#include <algorithm>

namespace torvane {

/// The bytes of a name or an argument for a message: control characters, which a terminal would obey,
/// become "?".
inline QByteArray printable(QByteArray text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return (c >= 0 && c < ' ') || c == '\x7F'; }, '?');
    return text;
}

} // namespace torvane
