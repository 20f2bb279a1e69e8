// SPDX-License-Identifier: MIT
// A model of what a disk may hold when the power fails. Its rules are those of fsync(2), rename(2), open(2)
// and POSIX, at their worst:
//
//   - What was written to a file is on the disk for certain once that file is synced. Before that, any of its
//     blocks of 512 bytes may have been written, in any combination: a disk writes a block atomically, but in
//     an order of its own. A block that was not written has its old content; if the file had no such block,
//     it reads as zeros.
//   - The length is independent: until the file is synced it is the old one, the new one or, as a file grows
//     block by block, one in between. So are owner and mode.
//   - A file's name is part of its folder. Syncing the file does not sync the name. Names that were made,
//     given to another file, exchanged or removed are on the disk for certain once the folder is synced.
//     Before that, any of these changes may have happened, even a later one without an earlier one; but those
//     of one name keep their order. A rename is one change: it has happened or it has not.
//   - A new folder is such a name in its parent folder.
//   - A sync of the whole file system syncs every file and every folder.
//   - What was synced stays as it is.
#pragma once

#include "Recorder.h"
#include "Workshop.h"

namespace torvane::faults {

class Disk {
public:
    using Id = int; ///< of a file or folder; 0 for none

    struct Folder {
        std::map<std::string, Id> synced;
        std::map<std::string, Id> present; ///< as the running system sees it
        /// The changes since the last sync, in order; each maps names to files, or to none.
        std::vector<std::map<std::string, Id>> changes;
    };
    /// A file's states since its last sync: the first is on the disk, the last is what the system sees.
    using File = std::vector<FileState>;

    /// The whole content of a workshop, synced.
    explicit Disk(const Workshop& workshop);
    /// Replays a step. Fails with std::runtime_error if the model has no rule for it.
    void play(const Step& step);

    Id root() const { return m_root; }
    const std::map<Id, Folder>& folders() const { return m_folders; }
    const std::map<Id, File>& files() const { return m_files; }

private:
    Id takeIn(ino_t inode);
    Id idOf(ino_t inode) const;
    Id idAt(const Name& name) const;
    Folder& folderOf(const Name& name) { return m_folders.at(idOf(name.folder)); }
    void make(const Step& step);
    void change(const Step& step);
    void move(const Step& step);
    void sync(Id id);
    void syncAll();
    static void rename(Folder& folder, std::map<std::string, Id> names);

    Id m_last = 0; // the root is read in first
    std::map<ino_t, Id> m_ids;
    std::map<Id, Folder> m_folders;
    std::map<Id, File> m_files;
    Id m_root = 0;
};

} // namespace torvane::faults
