// SPDX-License-Identifier: MIT
// File leases (see fcntl(2)): they show whether another program is writing a file, and delay such writers for
// a moment. A lease break sends a signal whose default action is to be ignored.
#pragma once

#include "SystemCalls.h"

namespace torvane {

/// Takes a lease on a file that is open for reading: until the handle is closed, the system delays and
/// reports any open for writing. Fails with permissionDenied if a program already has the file open for
/// writing. False where leases are unavailable: not every file system has them, and not every user may take
/// them.
bool takeLease(const Handle& file);

/// The same for a file that is open for writing: until the handle is closed, any open is delayed, this
/// process's own included. False if another program has the file open or leases are unavailable.
bool holdUpOthers(const Handle& file);

} // namespace torvane
