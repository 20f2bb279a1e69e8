// SPDX-License-Identifier: MIT
// A game as a row: its names and sizes, and its tag as a selection in the window shows it.
#pragma once

#include "GameFiles.h"
#include "core/Pieces.h"
#include "tags/rows/Field.h"

namespace torvane::GameRow {

/// file, console, tagged, title, company, date, image, size, info. The sizes are bytes: of the image without
/// its tag, and of the whole file.
Columns columns();
/// The row of a game; the fields of a tag are missing if it has none. `cut`: where its name is cut. Fails if
/// the file can't be read.
Row of(const GameFile& game, const NameCut& cut);

/// "GB", "GBC", "GBA" or "ZIP" by the kind in a file's name, in capital or small letters; for "bin" by the
/// size in bytes. Empty if neither decides.
QByteArray consoleOf(const QByteArray& name, qint64 size, const NameCut& cut);

} // namespace torvane::GameRow
