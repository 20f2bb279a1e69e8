// SPDX-License-Identifier: MIT
// The control that unpacks a whole archive into a folder. Archives come from strangers, so these rules hold:
//   - Only what lies at the top of the archive is unpacked, under the names that EntryName lets through.
//   - Many archivers pack a folder with all that it holds. So, if no wanted file lies at the top and there is
//     exactly one folder, the wanted files that lie directly in it count as lying at the top: they are
//     unpacked without the folder, by the same rules. The directory of the archive decides that, before
//     anything is unpacked. Folders whose names EntryName leaves out don't count, nor does "__MACOSX", which
//     macOS adds.
//   - Folders, links, pipes and devices are left out, as is what is encrypted or packed in a rare way.
//   - Of several entries whose names are alike without regard to case the first one that is whole is taken.
//   - An entry appears under its name when it is whole, with size and checksum as told; else it is left out.
//     It is an ordinary file, with the rights of any new one: the archive can't make it run.
//   - Where a file has the name already, it is replaced; a link, folder, pipe or device stays, and the entry
//     is left out. Nothing else in the folder is touched, but what a killed run has left there goes.
//   - What the archive claims of sizes is not believed: what comes is counted. An entry beyond the limit is
//     left out, and beyond the limit of all of them the work ends. Entries that would leave too little space
//     on the disk are left out. An archive of more entries than the limit is left alone.
//   - An archive that is no regular file, is damaged as a whole or lies on several disks is left alone; one
//     that changes while it is read loses the entries that don't fit their checksums any more.
#pragma once

#include <QString>
#include <functional>

namespace torvane {

class UnZip {
public:
    /// What no real game meets but a bomb does.
    struct Limits {
        qint64 bytesPerEntry = qint64{64} << 20;
        qint64 bytesInAll = qint64{1} << 30; ///< what was left out counts, too, as far as it was read
        qint64 entries = 100'000;
        qint64 bytesLeftFree = qint64{64} << 20; ///< space that stays free on the disk
    };

    /// Why no wanted file has come out. Of several reasons the last one here is given: where an archive is
    /// damaged, what else it says can't be relied on.
    enum class Reason {
        none,          ///< at least one has come out
        nothingWanted, ///< there is none in the archive
        inSubfolders,  ///< they lie in folders that don't count as the top
        noRoom,        ///< beyond a limit, no space on the disk, or the folder doesn't take it
        encrypted,
        unknownMethod, ///< packed neither by deflate nor by bzip2
        damaged,       ///< or it can't be read at all
    };

    UnZip() = default;
    explicit UnZip(const Limits& limits) : m_limits(limits) {}

    /// Called about every 10 ms while there is work; false ends the work: then nothing is touched any more,
    /// and an entry that is not whole is gone. It may end the life of this object, but must not fail.
    std::function<bool()> goesOn;

    /// Whether the caller looks for a file of this name, given as bytes; unset, every file is wanted. Must
    /// not fail. It decides whether a folder counts as the top, and the reason; at the top itself other files
    /// are unpacked, too.
    std::function<bool(QByteArrayView fileName)> isWanted;

    /// Where to unpack: a folder that is there, spelled with its closing "\".
    void setFolder(const QString& folder) { m_folder = folder; }
    /// What to unpack: the full path of the archive.
    void setArchive(const QString& path) { m_archive = path; }
    /// Unpacks what matches; "*.*" is everything. Never fails: what can't be unpacked is left out. The answer
    /// means nothing if `goesOn` has ended the work.
    Reason extract(const QString& pattern);

private:
    Limits m_limits;
    QString m_folder;
    QString m_archive;
};

} // namespace torvane
