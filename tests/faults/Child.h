// SPDX-License-Identifier: MIT
// An operation in a process of its own, and what that tells by its end.
#pragma once

#include "Inspection.h"

#include <sys/types.h>

namespace torvane::faults {

/// Runs in a child: `begin`, the operation, and the end of the process with a code that toldBy() reads.
[[noreturn]] void runAndEnd(const Situation& situation, const std::function<void()>& begin);
/// Starts a child; fails with std::runtime_error.
pid_t startChild(const std::function<void()>& run);
/// Waits for the child's end. Only a SIGKILL may have killed it.
Told toldBy(pid_t child);

} // namespace torvane::faults
