// SPDX-License-Identifier: MIT
// Saves and strips while a second program works on the same game. What that wrote last must be in the file,
// or under the name that it gave the file, or our save must have read it and preserve it.
#pragma once

#include "Tally.h"
#include "Workshop.h"

namespace torvane::faults {

/// Lets the other program act before every call of every operation, and at `rounds` random instants of each,
/// with one deed and with two. With `brief` the two deeds are close together.
void meetOtherProgram(Workshop& workshop, Tally& tally, int rounds, bool brief);

} // namespace torvane::faults
