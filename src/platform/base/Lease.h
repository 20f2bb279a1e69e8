// SPDX-License-Identifier: MIT
// File leases (see fcntl(2)): they show whether another program is writing a file, and delay such writers for
// a moment. A lease break sends a signal whose default action is to be ignored.
#pragma once

#include "SystemCalls.h"

#include <chrono>
#include <functional>

namespace torvane {

/// Takes a lease on a file that is open for reading: until the handle is closed, the system delays and
/// reports any open for writing. Fails with permissionDenied if a program already has the file open for
/// writing. False where leases are unavailable: not every file system has them, and not every user may take
/// them.
bool takeLease(const Handle& file);

/// The same for a file that is open for writing: until the handle is closed, any open is delayed, this
/// process's own included. False if another program has the file open or leases are unavailable.
bool holdUpOthers(const Handle& file);

/// How long an attempt to open a file waits for programs that keep others from opening it: most of them hold
/// it for milliseconds. Waiting in the kernel could take 45 seconds.
constexpr std::chrono::milliseconds usualPatience(5000);

/// Repeats an attempt, with short pauses, until it returns true. Fails with permissionDenied, because the
/// file is in use, if that takes longer than `patience`.
void untilReleased(const std::function<bool()>& attempt, std::chrono::milliseconds patience = usualPatience);

/// Opens a file by a system call with O_NONBLOCK, once no program keeps others from opening it. Fails with
/// errno, or as untilReleased does.
Handle openedOnceReleased(const std::function<int()>& open);

} // namespace torvane
