// SPDX-License-Identifier: MIT
// Fails the power after each call of an operation, and starts the program again on each state that the disk
// may be in.
#pragma once

#include "Run.h"

namespace torvane::faults {

/// Records the operation once, and checks all disk states after each of its steps. Once success was reported,
/// every state must contain the change.
void failPower(Workshop& workshop, Tally& tally, const Situation& situation);
/// The same with one failing call, for each call of the operation.
void failPowerAfterFaults(Workshop& workshop, Tally& tally, const Situation& situation);

} // namespace torvane::faults
