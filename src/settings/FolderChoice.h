// SPDX-License-Identifier: MIT
// The choice of a folder by a save dialog: the user goes to the folder and saves a file there, whose name is
// proposed and means nothing. This gives the proposal, and cuts the folder out of the answer.
#pragma once

#include <QString>

namespace torvane::FolderChoice {

/// The name that is proposed. A file of that name is never made.
extern const QString marker;

/// The spelled path to propose for a spelled folder, with or without its closing separator: the marker in it.
/// A folder that is not there, or has bytes in its path that the dialog can't show, gives way to `home`.
QString proposal(const QString& folder, const QString& home);

/// The folder in a spelled path that the dialog has given: what is before the first marker, with its closing
/// separator; the whole path if there is none. The user may have typed another name, which then counts as
/// part of the folder.
QString folderOf(const QString& path);

/// A spelled path in letters that a box can show, whatever bytes it has.
QString shown(const QString& path);

} // namespace torvane::FolderChoice
