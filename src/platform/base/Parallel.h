// SPDX-License-Identifier: MIT
// Independent pieces of work on all processors.
#pragma once

#include <cstddef>
#include <functional>

namespace torvane {

/// Calls `work` once for each index below `count`, on as many threads as there are processors; returns when
/// all calls have. The calls must not fail and may share nothing that they change.
void inParallel(std::size_t count, const std::function<void(std::size_t)>& work);

} // namespace torvane
