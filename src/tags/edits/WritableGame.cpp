// SPDX-License-Identifier: MIT
// By the end of the name and by the kind that the list shows.
#include "WritableGame.h"
#include "platform/base/NamePattern.h"
#include "tags/images/GameContent.h"
#include "tags/session/GameFiles.h"
#include "tags/session/GameRow.h"

namespace torvane {

QByteArray faultOfWriting(const QByteArray& name, const NameCut& cut) {
    const bool isArchive = GameContent::isArchive(name) || GameRow::consoleOf(name, 0, cut) == "ZIP";
    if (isArchive) return "an archive gets no tag";
    const QByteArray bareName = name.sliced(name.lastIndexOf('/') + 1);
    return NamePattern(gamePatterns).matches(bareName) ? QByteArray() : "its name is not that of a game";
}

} // namespace torvane
