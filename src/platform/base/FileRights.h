// SPDX-License-Identifier: MIT
// Who may do what with a file that is replaced.
#pragma once

#include "SystemCalls.h"

namespace torvane::FileRights {

/// Gives a new file the owner, group and mode of the former one. Where the owner may not be given away (only
/// root may do that) the file stays its maker's, and runs as nobody else; where the group may not be given
/// either, its rights become those of all others. Without a former file the mode is that of any new file.
void give(const Handle& fresh, const struct stat* former);

/// Fails for a file that is read-only for this user, and for what is no regular file: a rename would put a
/// file in the place of a device or a pipe. A file that is not there may be made.
void refuseUnlessWritable(const QByteArray& path);

} // namespace torvane::FileRights
