// SPDX-License-Identifier: MIT
// What a game's file holds, where it has to be read or must not be written to. That is no matter of names:
// "Dr. Game (V1.1).gb" has no console in the list unless the user has names cut at the last dot, but the game
// in it is one for the Game Boy all the same.
#pragma once

#include <QByteArray>

namespace torvane::GameContent {

/// "GB", "GBC", "GBA" or "ZIP" by what follows the last dot of a file's name, in capital or small letters,
/// and whatever the settings say. Empty for any other ending; so for "bin", which says too little.
QByteArray of(const QByteArray& name);

inline bool isArchive(const QByteArray& name) { return of(name) == "ZIP"; }

} // namespace torvane::GameContent
