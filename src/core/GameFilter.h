// SPDX-License-Identifier: MIT
// The kinds of game files as the file dialogs offer them.
#pragma once

#include "Pieces.h"

namespace torvane {

/// The filter of the program's file dialogs for games: pairs "text|patterns", joined by "|".
extern const QString gameFileFilter;

/// The pair of that filter that holds a file's kind, counted from 1; 1 for any other kind.
int gameFilterIndex(const QString& fileName, const NameCut& cut);

} // namespace torvane
