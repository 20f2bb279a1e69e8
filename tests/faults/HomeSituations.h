// SPDX-License-Identifier: MIT
// A start of the installed program lays out the user's folder, or brings it up to date.
#pragma once

#include "Situation.h"

namespace torvane::faults {

/// With nothing there: the first lay-out; there is one without a home, too. Otherwise an update, where the
/// old files are shorter than the new ones, as long or longer; one that the user has changed, and one that he
/// has deleted, must stay that way. `isLarge` uses so many files that they share one sync of the whole file
/// system. The next start completes what was cut off.
std::vector<Situation> homes(Workshop& workshop, const Standings& standings, bool isLarge);

} // namespace torvane::faults
