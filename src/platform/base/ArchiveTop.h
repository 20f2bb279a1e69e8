// SPDX-License-Identifier: MIT
// Which entries of an archive count as lying at its top; UnZip.h states the rule. Decided from the directory
// of the archive alone, before anything is unpacked.
#pragma once

#include "Archive.h"

#include <QSet>

namespace torvane {

class ArchiveTop {
public:
    /// Whether the caller looks for a file of this name. Must not fail.
    using Wanted = std::function<bool(QByteArrayView fileName)>;

    /// Looks through the directory as far as it must, and as long as the pulse allows. `isWanted` has to
    /// outlive the object.
    ArchiveTop(const Archive& archive, const Wanted& isWanted, Pulse& pulse);

    /// The file name that an entry is unpacked under (see EntryName); empty if the entry is left out.
    QByteArray fileName(QByteArrayView entry) const;
    /// Whether the archive holds wanted files, but only in folders that don't count as its top.
    bool hasWantedBelowOnly() const { return !m_hasWanted && m_hasWantedBelow; }

private:
    void lookAt(const Archive& archive, qint64 index);

    const Wanted& m_isWanted;
    QSet<QString> m_folders; // those at the top, in the form for comparing; in the end the one that counts
    bool m_hasWanted = false;
    bool m_hasWantedInFolder = false;
    bool m_hasWantedBelow = false;
};

} // namespace torvane
