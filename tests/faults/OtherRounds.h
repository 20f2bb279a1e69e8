// SPDX-License-Identifier: MIT
// Saves and strips while a second program is at work on the same game. Whatever that has written last is in
// the file, or under the name that it has given it, or our save has read it and holds it.
#pragma once

#include "Tally.h"
#include "Workshop.h"

namespace torvane::faults {

/// Lets the other program act in front of every call of every operation, and at `rounds` random instants of
/// each; with one deed and with two. With `brief` the two come close together.
void meetOtherProgram(Workshop& workshop, Tally& tally, int rounds, bool brief);

} // namespace torvane::faults
