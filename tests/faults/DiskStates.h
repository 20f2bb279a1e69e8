// SPDX-License-Identifier: MIT
// All that a disk may hold after a power failure: every state that the model allows where these are few, and
// a wide choice of them where they are many.
#pragma once

#include "Disk.h"

#include <functional>

namespace torvane::faults {

/// Calls `visit` with each of the states, of which some may be alike.
void forEachState(const Disk& disk, const std::function<void(const Tree&)>& visit);

} // namespace torvane::faults
