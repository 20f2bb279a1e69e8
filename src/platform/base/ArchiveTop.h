// SPDX-License-Identifier: MIT
// Decides which entries of an archive count as top-level; UnZip.h states the rule. Uses the archive's
// directory alone, before anything is unpacked.
#pragma once

#include "Archive.h"

#include <QSet>

namespace torvane {

class ArchiveTop {
public:
    /// Whether the caller wants a file of this name. Must not fail.
    using Wanted = std::function<bool(QByteArrayView fileName)>;

    /// Reads as much of the directory as it needs, and as long as the pulse allows. `isWanted` must outlive
    /// the object.
    ArchiveTop(const Archive& archive, const Wanted& isWanted, Pulse& pulse);

    /// The file name under which an entry is unpacked (see EntryName); empty if the entry is left out.
    QByteArray fileName(QByteArrayView entry) const;
    /// Whether the archive holds wanted files, but only in folders that don't count as top-level.
    bool hasWantedBelowOnly() const { return !m_hasWanted && m_hasWantedBelow; }

private:
    void lookAt(const Archive& archive, qint64 index);

    const Wanted& m_isWanted;
    QSet<QString> m_folders; // case-folded top-level folders; in the end the one that counts
    bool m_hasWanted = false;
    bool m_hasWantedInFolder = false;
    bool m_hasWantedBelow = false;
};

} // namespace torvane
