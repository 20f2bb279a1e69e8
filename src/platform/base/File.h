// SPDX-License-Identifier: MIT
// One file that is open for reading, in bytes. Owned by the handler that opened it, closed at the end of its
// scope. Changing files is SafeFile's work.
#pragma once

#include "SystemCalls.h"

#include <QString>

namespace torvane {

/// An open file. Every failure is a RuntimeFailure with the number of the system's reason; those to open or
/// delete a file name it.
class File {
public:
    /// Opens the file of a spelled path (see Paths). A folder, a pipe or a device is refused as a path access
    /// error.
    explicit File(const QString& path);

    const Handle& handle() const { return m_handle; }
    /// The length in bytes.
    qint64 length() const;
    /// At most `count` bytes from a position counted from 0; fewer at the end of the file.
    QByteArray readAt(qint64 position, qint64 count) const;
    /// All bytes of the file; one of 2 GiB or more is refused as too much for the memory.
    QByteArray readAll() const;

    /// Length of a file that is opened for it and closed again.
    static qint64 lengthOf(const QString& path) { return File(path).length(); }
    /// All bytes of a file that is opened for it and closed again.
    static QByteArray contentOf(const QString& path) { return File(path).readAll(); }
    /// Deletes a file.
    static void remove(const QString& path);
    /// Whether a file or folder of that path exists; never fails.
    static bool exists(const QString& path);
    /// Whether the path is that of a folder or of a link to one; never fails.
    static bool isFolder(const QString& path);

private:
    Handle m_handle;
};

} // namespace torvane
