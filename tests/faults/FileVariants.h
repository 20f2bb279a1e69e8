// SPDX-License-Identifier: MIT
// What a file may hold after a power failure if it was not synced.
#pragma once

#include "Disk.h"

namespace torvane::faults {

/// All combinations of the file's blocks, lengths and rights if these are few; else each run of blocks from
/// the front, each from the back, and a choice by a fixed seed. The file as it was and as it is are among
/// them.
std::vector<FileState> variantsOf(const Disk::File& file);

} // namespace torvane::faults
