// SPDX-License-Identifier: MIT
// Open folders, and the folder and name that a path leads to.
#pragma once

#include "SystemCalls.h"

namespace torvane {

/// An open folder: names in it mean the same files even if the folder itself is renamed meanwhile.
class Folder {
public:
    /// Opens the folder of a real path; a failure names it. One that may be written but not read can be used,
    /// not synced.
    explicit Folder(const QByteArray& path);
    /// Makes a folder and its missing parents, each on the disk before anything is put into it. An existing
    /// folder stays as it is.
    static void make(const QByteArray& path);

    int number() const { return m_handle.number(); }
    /// Brings all changes of names to the disk. File systems without such a call count as synced; every
    /// other error is a failure.
    void sync() const;
    /// The state of a name, links not followed; false if there is none.
    bool stat(const QByteArray& name, struct stat& info) const;
    void unlink(const QByteArray& name) const { unlinkat(number(), name.constData(), 0); }

private:
    Handle m_handle;
    bool m_canSync = true;
};

/// A folder and the name in it.
struct Place {
    QByteArray folder;
    QByteArray name;
};
/// The place of a real path once all symbolic links are followed: where a rename has to hit. A link may lead
/// to a file that does not exist yet. Links in a circle are a failure.
Place placeOf(const QByteArray& path);

} // namespace torvane
