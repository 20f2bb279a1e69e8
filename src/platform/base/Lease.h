// SPDX-License-Identifier: MIT
// The system's way to learn whether another program is writing a file, and to keep it from that for a moment.
// See fcntl(2). The signal that comes with a lease is one that a process may ignore, and does.
#pragma once

#include "SystemCalls.h"

namespace torvane {

/// Takes a lease on a file that is open for reading: until the handle is closed the system holds up whoever
/// opens the file for writing, and tells of it. Fails with a permission failure if a program holds the file
/// open for writing already. False where there are no leases: not every file system has them, nor every user.
bool takeLease(const Handle& file);

/// The same for a file that is open for writing: until the handle is closed whoever opens the file at all is
/// held up, this process too. False where a program holds it open already or there are no leases.
bool holdUpOthers(const Handle& file);

} // namespace torvane
