// SPDX-License-Identifier: MIT
// Paths as the program spells them, with "\" between folders, and as the system does. Only this file converts
// between the two.
#pragma once

#include <QByteArray>
#include <QString>

namespace torvane::Paths {

/// The spelled folder of the running executable, without trailing separator (from /proc/self/exe, see
/// proc(5)); "." if that can't be read.
QString applicationFolder();

/// The real path of a spelled one, as bytes for system calls. Both "\" and "/" separate. A path that exists
/// as spelled is used as it is; otherwise each piece is looked up without regard to case. Pieces that are not
/// found stay as spelled, so that the path can be used to create them. A zero character becomes "?".
QByteArray real(const QString& spelled);

/// The real path of a file that is to be made or replaced under just this name: its folder is looked up as
/// `real` does, the name stays as spelled.
QByteArray realToCreate(const QString& spelled);

/// The last piece of a spelled path, after any separator.
QString bareName(const QString& spelled);

/// The spelled form of a real path (such as a file dialog returns).
QString spelled(QByteArrayView real);

} // namespace torvane::Paths
