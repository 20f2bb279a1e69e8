// SPDX-License-Identifier: MIT
// Strikes every call of an operation with every kind of fault, in turn.
#pragma once

#include "Run.h"

namespace torvane::faults {

/// Strikes the first call, then the second, until the operation ends without being struck. Uses all kinds of
/// faults, or with `brief` only those that the program handles differently.
void strikeEveryCall(Runner& runner, const Situation& situation, bool brief);
/// Strikes two calls of one run, in all pairs. With `brief` both calls fail; otherwise all kinds of faults
/// are combined.
void strikeEveryTwoCalls(Runner& runner, const Situation& situation, bool brief);

} // namespace torvane::faults
