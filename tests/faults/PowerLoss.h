// SPDX-License-Identifier: MIT
// The power fails after each call of an operation, and the program is started again on each state that the
// disk may be in.
#pragma once

#include "Run.h"

namespace torvane::faults {

/// Records the operation once, and checks all states after each of its steps. What was told as done has to be
/// done in every state from then on.
void failPower(Workshop& workshop, Tally& tally, const Situation& situation);
/// The same for an operation of which one call fails, for each of its calls.
void failPowerAfterFaults(Workshop& workshop, Tally& tally, const Situation& situation);

} // namespace torvane::faults
