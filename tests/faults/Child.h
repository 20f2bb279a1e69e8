// SPDX-License-Identifier: MIT
// Runs an operation in a process of its own and gets its outcome from how that ends.
#pragma once

#include "Inspection.h"

#include <sys/types.h>

namespace torvane::faults {

/// For the child: runs `begin` and the operation, and ends the process with a code that outcomeOf() reads.
[[noreturn]] void runAndEnd(const Situation& situation, const std::function<void()>& begin);
/// Starts a child; fails with std::runtime_error.
pid_t startChild(const std::function<void()>& run);
/// Waits for the end of a child. No signal but SIGKILL may have killed it.
Outcome outcomeOf(pid_t child);

} // namespace torvane::faults
