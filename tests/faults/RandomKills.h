// SPDX-License-Identifier: MIT
// Kills at any instant, even in the middle of a call.
#pragma once

#include "Situation.h"
#include "Tally.h"

namespace torvane::faults {

/// Runs the situations in turn and kills each run at a random instant, until `kills` runs were killed.
void killAtRandom(Workshop& workshop, Tally& tally, const std::vector<Situation>& situations, int kills);

} // namespace torvane::faults
