// SPDX-License-Identifier: MIT
// All states of a disk after a power failure: every state that the model allows if these are few, and a wide
// sample if they are many.
#pragma once

#include "Disk.h"

#include <functional>

namespace torvane::faults {

/// Calls `visit` with each state; some may be equal.
void forEachState(const Disk& disk, const std::function<void(const Tree&)>& visit);

} // namespace torvane::faults
