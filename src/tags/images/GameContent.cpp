// SPDX-License-Identifier: MIT
// By the rules of the list, under another cut.
#include "GameContent.h"
#include "tags/session/GameRow.h"

namespace torvane::GameContent {

QByteArray of(const QByteArray& name) { return GameRow::consoleOf(name, 0, NameCut::atTheLastDot()); }

} // namespace torvane::GameContent
