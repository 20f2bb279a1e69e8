// SPDX-License-Identifier: MIT
// The control that unpacks a whole archive into a folder. Archives come from strangers, so these rules apply:
//   - Only top-level entries are unpacked, under the names that EntryName allows.
//   - Many archivers pack a folder with its content. So if there is no wanted file at the top and exactly one
//     folder, the wanted files directly in it count as top-level: they are unpacked without the folder, by
//     the same rules. The archive's directory decides that before anything is unpacked. Folders whose names
//     EntryName rejects don't count, nor does "__MACOSX", which macOS adds.
//   - Folders, links, pipes, devices, encrypted entries and rare packing methods are left out.
//   - Of several entries whose names differ only in case the first intact one is unpacked.
//   - An entry appears under its name only when it is complete, with the claimed size and checksum; otherwise
//     it is left out. It is an ordinary file with the permissions of any new one: the archive can't make it
//     executable.
//   - An existing file of that name is replaced; an existing link, folder, pipe or device stays, and the
//     entry is left out. Nothing else in the folder is touched, except that leftovers of a killed run are
//     removed.
//   - Claimed sizes are not trusted: the bytes that come are counted. An entry beyond its limit is left out,
//     and beyond the limit of all entries the work ends. Entries that would leave too little free space on
//     the disk are left out. An archive with more entries than the limit is left alone.
//   - An archive that is not a regular file, is damaged as a whole or is split over several disks is left
//     alone; one that changes while it is read loses the entries that no longer match their checksums.
#pragma once

#include <QString>
#include <functional>

namespace torvane {

class UnZip {
public:
    /// Limits that no real game reaches, but a bomb does.
    struct Limits {
        qint64 bytesPerEntry = qint64{64} << 20;
        qint64 bytesInAll = qint64{1} << 30; ///< entries that were read but left out count, too
        qint64 entries = 100'000;
        qint64 bytesLeftFree = qint64{64} << 20; ///< free space to leave on the disk
    };

    /// Why no wanted file was unpacked. If several reasons apply, the last of them in this list is given: in
    /// a damaged archive, nothing else that it says is reliable.
    enum class Reason {
        none,          ///< at least one was unpacked
        nothingWanted, ///< the archive has none
        inSubfolders,  ///< all are in folders that don't count as top-level
        noRoom,        ///< beyond a limit, no space on the disk, or the folder can't be written
        encrypted,
        unknownMethod, ///< packed neither by deflate nor by bzip2
        damaged,       ///< or unreadable
    };

    UnZip() = default;
    explicit UnZip(const Limits& limits) : m_limits(limits) {}

    /// Called about every 10 ms during the work. False ends the work: nothing more is touched, and an
    /// incomplete entry is removed. It may destroy this object, but must not fail.
    std::function<bool()> goesOn;

    /// Whether the caller wants a file of this name, given as bytes; if unset, every file is wanted. Must not
    /// fail. It decides whether a folder counts as the top, and the reason; at the top itself other files are
    /// unpacked, too.
    std::function<bool(QByteArrayView fileName)> isWanted;

    /// The existing folder to unpack into: a spelled path with a trailing "\".
    void setFolder(const QString& folder) { m_folder = folder; }
    /// The full spelled path of the archive.
    void setArchive(const QString& path) { m_archive = path; }
    /// Unpacks the entries that match the pattern; "*.*" is everything. Never fails: what can't be unpacked
    /// is left out. The result is meaningless if `goesOn` has ended the work.
    Reason extract(const QString& pattern);

private:
    Limits m_limits;
    QString m_folder;
    QString m_archive;
};

} // namespace torvane
