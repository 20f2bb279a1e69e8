// SPDX-License-Identifier: MIT
// Kills that come at any instant, also in the middle of a call.
#pragma once

#include "Situation.h"
#include "Tally.h"

namespace torvane::faults {

/// Runs the situations in turns and kills each run at a random instant of its duration, `kills` times in all.
void killAtRandom(Workshop& workshop, Tally& tally, const std::vector<Situation>& situations, int kills);

} // namespace torvane::faults
