// SPDX-License-Identifier: MIT
// What a killed run has left in a folder: hidden files of SafeFile, and half-written lines after games.
#pragma once

#include <QString>

namespace torvane::Leftovers {

/// Removes this program's hidden files, except those of a run that is still alive, and undoes half-written
/// appends. Leaves everything else alone, as well as a folder that is missing or unreadable. Never fails.
void sweep(const QString& folder);

} // namespace torvane::Leftovers
