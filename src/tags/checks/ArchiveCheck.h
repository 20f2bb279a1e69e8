// SPDX-License-Identifier: MIT
// What an archive's directory says: whether it can be read, and which games the program would not unpack.
#pragma once

#include "Finding.h"
#include "core/Pieces.h"

#include <functional>

namespace torvane::ArchiveCheck {

/// What is wrong with the archive at a real path. `cut`: where names of members are cut. Nothing is unpacked.
/// Never fails; what can't be opened as an archive is a finding. `goesOn` ends it early.
Findings check(const QByteArray& path, const NameCut& cut, const std::function<bool()>& goesOn);

} // namespace torvane::ArchiveCheck
