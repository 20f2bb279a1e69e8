// SPDX-License-Identifier: MIT
// What a killed run has left in a folder: hidden files of SafeFile, and half-written ends of games.
#pragma once

#include <QString>

namespace torvane::Leftovers {

/// Removes this program's hidden files, except those of a run that is still alive, and restores the ends of
/// files that were being changed. Leaves everything else alone, as well as a folder that is missing or
/// can't be read or written. Never fails.
void sweep(const QString& folder);

} // namespace torvane::Leftovers
