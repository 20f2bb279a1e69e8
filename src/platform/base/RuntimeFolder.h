// SPDX-License-Identifier: MIT
// The user's folder for sockets and locks, which lasts as long as he is logged in.
#pragma once

#include "SystemCalls.h"

#include <optional>

namespace torvane {

/// Where to look for that folder: real paths.
struct RuntimePlaces {
    QByteArray runtime;   ///< the folder that the desktop names; empty if it names none
    QByteArray temporary; ///< the folder in which one is made if the other one is unusable
    QByteArray name;      ///< of the program: the folder made is called NAME-UID

    /// As the environment says: $XDG_RUNTIME_DIR, and $TMPDIR or else /tmp. Where the first one is unset or
    /// empty, as after su and in jobs of cron, it is the folder that a session of this user has on most
    /// systems: both kinds of start should find each other.
    static RuntimePlaces ofEnvironment(const QByteArray& programName);
};

/// Opens the user's runtime folder. It must be named by an absolute path, be the user's own and be closed to
/// all others; the made one must not be a link either. Nothing if there is no such folder and none can be
/// made.
std::optional<Handle> openRuntimeFolder(const RuntimePlaces& places);

} // namespace torvane
