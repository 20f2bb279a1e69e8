// SPDX-License-Identifier: MIT
// Names such as "Dr. Game (V1.1).gb".
#include "GameConsole.h"
#include "GameRow.h"

namespace torvane::GameConsole {

QByteArray of(const QByteArray& name, qint64 size) {
    const QByteArray console = GameRow::consoleOf(name, size);
    const qsizetype dot = name.lastIndexOf('.');
    return console.isEmpty() && dot >= 0 ? GameRow::consoleOf(name.sliced(dot), size) : console;
}

} // namespace torvane::GameConsole
