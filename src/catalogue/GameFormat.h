// SPDX-License-Identifier: MIT
// Which console a game is for, derived from its size rather than its name.
#pragma once

#include <QString>

namespace torvane {

/// The display text of a format, and its extension with the dot.
struct GameFormat {
    QString text;
    QString extension;

    bool isKnown() const { return !text.isEmpty(); }
};

/// The format of a size in KB of 1000 bytes; unknown up to 1024 and for exactly 2048 and 4096. The mix of
/// binary limits and a decimal unit is intended.
GameFormat formatOfSize(qint32 sizeKB);
/// The archive format for the extension "zip" (without dot, lower case only); unknown for any other.
GameFormat formatOfExtension(const QString& extension);

} // namespace torvane
