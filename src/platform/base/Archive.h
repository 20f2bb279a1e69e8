// SPDX-License-Identifier: MIT
// A ZIP archive that is open for reading. What its directory tells of an entry is a claim: whoever reads an
// entry counts what comes, and at the end size and checksum are compared.
#pragma once

#include "ArchiveBytes.h"

#include <memory>

namespace torvane {

class Archive {
public:
    /// Opens the archive of a spelled path. Fails if there is none, if it is damaged, tells of more entries
    /// or lies on several disks, and if the pulse ends.
    Archive(const QString& path, qint64 mostEntries, Pulse& pulse);

    qint64 count() const;
    /// The name of an entry, index from 0, in UTF-8: names that are neither marked nor well-formed as such
    /// are taken as code page 437, the format's own. Empty if there is none.
    QByteArray name(qint64 index) const;
    /// What an entry is by its attributes; `other` is a link, pipe, device or label.
    enum class Kind { file, folder, other };
    Kind kind(qint64 index) const;
    /// Whether only a password opens an entry.
    bool isEncrypted(qint64 index) const;
    /// Whether an entry is stored or packed by deflate or bzip2. Other methods, which later versions of
    /// libzip know, let the archive choose how much memory they take.
    bool isMethodKnown(qint64 index) const;
    /// The size that the archive claims for an entry, in bytes; negative if there is none.
    qint64 claimedSize(qint64 index) const;
    /// Hands the bytes of an entry over, in blocks, until `take` gives false. True if the entry came out
    /// whole, with the size and the checksum that the archive tells. What is encrypted never does.
    bool read(qint64 index, const std::function<bool(QByteArrayView)>& take);

private:
    bool open();
    zip_stat_t infoOf(qint64 index) const; // what isn't known stays as zip_stat_init leaves it

    ArchiveBytes m_bytes;
    std::unique_ptr<zip_t, void (*)(zip_t*)> m_zip;
    QByteArray m_block;
};

} // namespace torvane
