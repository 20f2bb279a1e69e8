// SPDX-License-Identifier: MIT
// What a file that was not synced may hold after a power failure.
#pragma once

#include "Disk.h"

namespace torvane::faults {

/// All combinations of the file's blocks, lengths and permissions if these are few; otherwise every run of
/// blocks from the front, every one from the back, and a sample with a fixed seed. The old and the new state
/// of the file are always included.
std::vector<FileState> variantsOf(const Disk::File& file);

} // namespace torvane::faults
