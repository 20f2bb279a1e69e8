// SPDX-License-Identifier: MIT
// Replaces files so that at any moment the old or the new one is there whole: a temporary file in the
// same folder under a hidden name, written, synced, given the former owner and mode, renamed over the
// old one, and the folder synced. A failure at any step leaves the old file as it was.
#pragma once

#include <QByteArray>
#include <QString>

namespace torvane::SafeFile {

/// Makes the bytes the whole content of the file; a file that is not there is created. A symbolic link
/// stays, and the file that it names is replaced. Fails with the number of the system's reason.
void replace(const QString& path, const QByteArray& bytes);

/// Copies a file; a file of the target's name is replaced. Copying a file onto itself is refused with
/// a permission failure, as the content would be at risk for nothing.
void copy(const QString& source, const QString& target);

/// Keeps the present state of a file within reach for as long as it lives: a second hidden name (a hard
/// link) in the same folder. A file system without links gives no such name, and nothing to go back to.
class RestorePoint {
public:
    explicit RestorePoint(const QString& path);
    ~RestorePoint();
    RestorePoint(const RestorePoint&) = delete;
    RestorePoint& operator=(const RestorePoint&) = delete;

    /// Puts the kept state back in the place of the file; does nothing if none was kept.
    void restore();

private:
    QByteArray m_path;
    QByteArray m_kept;
};

} // namespace torvane::SafeFile
