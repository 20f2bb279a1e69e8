// SPDX-License-Identifier: MIT
// What a run that was killed has left in a folder: hidden files of SafeFile, and half a line behind a game.
#pragma once

#include <QString>

namespace torvane::Leftovers {

/// Removes the hidden files that this program makes, those of a run that is still at work excepted, and
/// settles what was being appended. Everything else stays. A folder that is missing or can't be read is
/// left alone; never fails.
void sweep(const QString& folder);

} // namespace torvane::Leftovers
