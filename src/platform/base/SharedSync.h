// SPDX-License-Identifier: MIT
// One sync for a batch of files that wait for it.
#pragma once

#include "Arrival.h"

#include <algorithm>
#include <vector>

namespace torvane {

/// Syncs a batch of files by one call. False unless that certainly succeeded: an error does not say in which
/// file it was, so each has to be synced by itself then. It is not tried for a few files, for which it costs
/// more, nor for files on several disks, of which it reaches one. `diskOf` gives the disk that a file is on,
/// `folderOf` the open folder that it is in; what they throw is passed on.
template <typename Waiting, typename DiskOf, typename FolderOf>
bool syncTogether(const std::vector<Waiting>& batch, const DiskOf& diskOf, const FolderOf& folderOf) {
    if (batch.size() <= Arrival::fewFiles) return false;
    const dev_t disk = diskOf(batch.front());
    const bool areOnOneDisk =
        std::all_of(batch.begin(), batch.end(), [&](const Waiting& one) { return diskOf(one) == disk; });
    return areOnOneDisk && folderOf(batch.front()).syncFileSystem();
}

} // namespace torvane
