// SPDX-License-Identifier: MIT
// The console of a game where its name has more dots than the game list minds.
#pragma once

#include <QByteArray>

namespace torvane::GameConsole {

/// "GB", "GBC", "GBA" or "ZIP" as GameRow::consoleOf tells it or, where that is empty, by what follows the
/// last dot of the name. Empty if neither decides. `size`: of the file, in bytes.
QByteArray of(const QByteArray& name, qint64 size);

} // namespace torvane::GameConsole
