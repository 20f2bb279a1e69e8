// SPDX-License-Identifier: MIT
// Open folders, and the folder and name that a path leads to.
#pragma once

#include "SystemCalls.h"

namespace torvane {

/// An open folder: names in it mean the same files even if the folder itself is renamed meanwhile.
class Folder {
public:
    /// Opens the folder of a real path; a failure names it. One that is writable but not readable can be
    /// used, but not synced.
    explicit Folder(const QByteArray& path);
    /// Makes a folder and its missing parents, each synced before anything is put into it. An existing folder
    /// is left as it is, and a new one has this mode, as far as the umask permits it.
    static void make(const QByteArray& path, mode_t mode = 0777);
    /// The mode of what is made for the folders of the user's data and settings: nobody else may enter.
    static constexpr mode_t ownMode = 0700;

    int number() const { return m_handle.number(); }
    /// Syncs all changes of names. File systems without such a call count as synced; every other error is a
    /// failure.
    void sync() const;
    /// Syncs the whole file system of this folder; false unless that certainly succeeded.
    bool syncFileSystem() const;
    /// The state of a name, without following links; false, with errno set, if stat() fails.
    bool stat(const QByteArray& name, struct stat& info) const;
    void unlink(const QByteArray& name) const { unlinkat(number(), name.constData(), 0); }

private:
    Handle m_handle;
    bool m_canSync = true;
};

/// A folder and a name in it.
struct Place {
    QByteArray folder;
    QByteArray name;
};
/// The place of a real path after following all symbolic links: the target of a rename. A link may lead to a
/// file that does not exist yet. Circular links are a failure.
Place placeOf(const QByteArray& path);

} // namespace torvane
