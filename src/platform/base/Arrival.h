// SPDX-License-Identifier: MIT
// A new file on its way to a name of a folder, whatever stands there. Written, given its rights, synced, put
// in its place: in one go, or step by step where many files share the sync.
#pragma once

#include "HiddenFile.h"

#include <functional>
#include <memory>

namespace torvane {

class Arrival {
public:
    explicit Arrival(const Place& place)
        : m_place(place), m_folder(place.folder), m_fresh(m_folder, HiddenFile::replacement) {}

    /// The content of one file on its way to the name of another (both real paths), with the time of its last
    /// change; not synced. Null, with nothing made, if both are one and the same file. `source` gets the
    /// state of what was copied. `betweenBlocks` is called after each piece of 1 MiB at most. Fails if the
    /// source changes meanwhile, and as SafeFile does for targets that may not be replaced.
    static std::unique_ptr<Arrival> ofCopy(const QByteArray& from, const QByteArray& target,
                                           struct stat& source,
                                           const std::function<void()>& betweenBlocks = {});

    const HiddenFile& fresh() const { return m_fresh; }
    /// Its final place.
    const Place& place() const { return m_place; }
    const Folder& folder() const { return m_folder; }

    /// Gives the file the owner and mode of the file that it replaces, or those of any new file.
    void applyPermissions() const;
    /// Renames the file, which has been synced, to its final name. The folder is still to be synced.
    void rename();
    /// Permissions, sync, rename, and the sync of the folder.
    void commit();

private:
    Place m_place;
    Folder m_folder;
    HiddenFile m_fresh;
};

} // namespace torvane
