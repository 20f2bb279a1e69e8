// SPDX-License-Identifier: MIT
// The files of a command line, made independent of the working folder.
#pragma once

#include <QByteArrayList>

namespace torvane {

struct GivenFiles {
    /// Absolute real paths of files and folders, without a separator at the end.
    QByteArrayList paths;
    /// For each of the others its printable name and what is wrong, without a line end.
    QByteArrayList faults;
    /// The absolute real paths of those.
    QByteArrayList faulty;

    /// `names` are as given; relative ones are meant from the working folder of this process.
    static GivenFiles of(const QByteArrayList& names);
};

/// The absolute real path of a name, from the working folder of this process; nothing else is resolved. If
/// the working folder has been deleted, the name as it is.
QByteArray absolutePath(const QByteArray& name);

} // namespace torvane
