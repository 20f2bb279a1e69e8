// SPDX-License-Identifier: MIT
// Which console a game is for, derived from its size rather than its name.
#pragma once

#include <QString>

namespace torvane {

/// A format's text on the screen and the extension that goes with it.
struct GameFormat {
    QString text;
    QString extension;

    bool isKnown() const { return !text.isEmpty(); }
};

/// The format of a size in KB of 1000 bytes; unknown up to 1024 and for exactly 2048 and 4096. The limits
/// are powers of two while the unit is not: that mix is meant.
GameFormat formatOfSize(qint32 sizeKB);
/// The format of an archive if the extension is "zip", in lower case; else unknown.
GameFormat formatOfExtension(const QString& extension);

} // namespace torvane
