// SPDX-License-Identifier: MIT
// One file that is open for reading, in bytes. Owned by the handler that opened it, closed at the end of its
// scope. SafeFile changes files.
#pragma once

#include "SystemCalls.h"

#include <QString>

namespace torvane {

/// An open file. Every failure is a RuntimeFailure with the number of the system's error; failures to open or
/// delete a file name it. While another program keeps the file to itself, which takes milliseconds as a rule,
/// opening waits.
class File {
public:
    /// Opens the file at a spelled path (see Paths). Folders, pipes and devices fail with pathAccess.
    explicit File(const QString& path);
    /// Opens the file at a real path under just this name; a failure does not name it.
    static File ofReal(const QByteArray& path);

    const Handle& handle() const { return m_handle; }
    /// The length in bytes.
    qint64 length() const;
    /// At most `count` bytes from a position counted from 0; fewer at the end of the file.
    QByteArray readAt(qint64 position, qint64 count) const;
    /// All bytes of the file; fails with outOfMemory at 2 GiB or more.
    QByteArray readAll() const;

    /// The length in bytes of the file at a spelled path.
    static qint64 lengthOf(const QString& path) { return File(path).length(); }
    /// All bytes of the file at a spelled path; fails with outOfMemory at 2 GiB or more.
    static QByteArray contentOf(const QString& path) { return File(path).readAll(); }
    /// The same, but fails with outOfMemory if there are more than `most`.
    static QByteArray contentOf(const QString& path, qint64 most);
    /// Deletes the file at a spelled path.
    static void remove(const QString& path);
    /// The same, but a file whose name has other letters, small or capital, is none of that path.
    static void removeExactly(const QString& path);
    /// Whether a file or folder exists at a spelled path; never fails.
    static bool exists(const QString& path);
    /// Whether a spelled path leads to a folder, perhaps via a link; never fails.
    static bool isFolder(const QString& path);

private:
    explicit File(Handle handle) : m_handle(std::move(handle)) {}

    Handle m_handle;
};

} // namespace torvane
