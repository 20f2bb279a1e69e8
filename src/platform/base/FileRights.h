// SPDX-License-Identifier: MIT
// Permissions of files that are replaced.
#pragma once

#include "SystemCalls.h"

namespace torvane::FileRights {

/// Gives a new file the owner, group and mode of the previous one. If the owner can't be set (only root may),
/// the file belongs to the current user and loses its set-user-ID bit; if the group can't be set either, the
/// group gets the permissions of all others. Without a previous file the mode is that of any new file.
void give(const Handle& fresh, const struct stat* previous);

/// Fails for a file that is read-only for this user, and for anything but a regular file: a rename would
/// replace a device or a pipe by a file. A missing file passes, since it may be created.
void refuseUnlessWritable(const QByteArray& path);

} // namespace torvane::FileRights
