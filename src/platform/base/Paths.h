// SPDX-License-Identifier: MIT
// Paths as the program spells them, with "\" between folders, and their real places on the disk.
// This is the one file that turns the one into the other.
#pragma once

#include <QByteArray>
#include <QString>

namespace torvane::Paths {

/// The folder of the running executable, without trailing separator (from /proc/self/exe, see proc(5)).
QString applicationFolder();

/// The real path of a spelled one, as bytes for system calls. "\" and "/" both separate. What exists as
/// spelled is taken as it is; else each piece is looked up without regard to case; what is not found
/// stays as spelled, so that the path can be used to create it. A zero character becomes "?".
QByteArray real(const QString& spelled);

/// The last piece of a spelled path, after any separator.
QString bareName(const QString& spelled);

/// The spelled form of a path in the system's own form (as a file dialog gives it).
QString spelled(QByteArrayView real);

} // namespace torvane::Paths
