// SPDX-License-Identifier: MIT
// A new file that will get a given name in a folder, replacing what has that name. It is written, gets its
// permissions, is synced and renamed: all at once, or step by step where many files share a sync.
#pragma once

#include "HiddenFile.h"

#include <functional>
#include <memory>

namespace torvane {

class Arrival {
public:
    /// How many to keep at a time: two open files each, and a process may usually have 1024.
    static constexpr size_t largestBatch = 128;
    /// Up to here, syncing each file is cheaper than syncing the whole file system.
    static constexpr size_t fewFiles = 8;

    explicit Arrival(const Place& place)
        : m_place(place), m_folder(place.folder), m_fresh(m_folder, HiddenFile::replacement) {}

    /// Copies the content and the modification time of a file, to be renamed to `target` (both real paths);
    /// not synced. Null, with nothing written, if both are the same file. `source` receives the state of the
    /// copied file. `betweenBlocks` is called after each block of at most 1 MiB. Fails if the source changes
    /// meanwhile, and like SafeFile for targets that may not be replaced.
    static std::unique_ptr<Arrival> ofCopy(const QByteArray& from, const QByteArray& target,
                                           struct stat& source,
                                           const std::function<void()>& betweenBlocks = {});

    const HiddenFile& fresh() const { return m_fresh; }
    /// The final folder and name.
    const Place& place() const { return m_place; }
    const Folder& folder() const { return m_folder; }

    /// Gives the file the owner and mode of the file that it replaces, or the mode of any new file.
    void applyPermissions() const;
    /// Renames the synced file to its final name. The caller must sync the folder.
    void rename();
    /// The same, but never over anything: false if the name is taken. A file system that can't do that in one
    /// step is asked just before.
    bool renameIfFree();
    /// Applies permissions, syncs, renames, and syncs the folder.
    void commit();

private:
    Place m_place;
    Folder m_folder;
    HiddenFile m_fresh;
};

} // namespace torvane
