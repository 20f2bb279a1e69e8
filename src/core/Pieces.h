// SPDX-License-Identifier: MIT
// The program's way to cut names: at every ".", so that "the extension" is the second piece of a name
// and not the last one.
#pragma once

#include <QString>

namespace torvane {

/// The piece between the first and the second "."; empty if there is no ".".
inline QString secondPiece(const QString& text) { return text.section(QLatin1Char('.'), 1, 1); }

/// The piece in front of the first "."; the whole text if there is no ".".
inline QString firstPiece(const QString& text) { return text.section(QLatin1Char('.'), 0, 0); }

} // namespace torvane
