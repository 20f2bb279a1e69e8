// SPDX-License-Identifier: MIT
// Reads a folder that other programs work on: a file that is being copied into it counts as soon as it is
// whole.
#pragma once

#include "FolderNames.h"

#include <chrono>

namespace torvane::WholeFiles {

using Tables = std::vector<std::shared_ptr<const FolderNames>>;

/// How long a file must have rested where nobody can say whether a program still writes it.
constexpr std::chrono::milliseconds restTime{700};

struct Reading {
    Tables tables;           ///< one for each pattern
    bool isComplete = false; ///< false if a file is left out that is to be looked at again after `restTime`
};

/// Reads the folder at a spelled path for lists that show `shown`, one table for each pattern. Files that
/// none of these has are left out while another program has them open for writing: closing them is a change
/// of the folder. Where the file system or the owner of a file does not let us know, the file must have
/// rested. If nothing has changed, the result is the tables that are shown.
Reading read(const QString& folder, const QStringList& patterns, const Tables& shown);

} // namespace torvane::WholeFiles
