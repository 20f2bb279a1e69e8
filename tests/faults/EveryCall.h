// SPDX-License-Identifier: MIT
// Every call of an operation struck by every kind of fault, one after the other.
#pragma once

#include "Run.h"

namespace torvane::faults {

/// Strikes the first call, then the second, until the operation ends without being struck; for all kinds of
/// faults, or with `brief` for those that the program treats in different ways.
void strikeEveryCall(Runner& runner, const Situation& situation, bool brief);
/// Strikes two calls of one run, all pairs; with `brief` both fail, else all kinds of faults follow each
/// other.
void strikeEveryTwoCalls(Runner& runner, const Situation& situation, bool brief);

} // namespace torvane::faults
