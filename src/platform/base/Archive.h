// SPDX-License-Identifier: MIT
// A ZIP archive that is open for reading. What its directory says of an entry is only a claim: readers count
// the bytes that they get, and verify size and checksum at the end.
#pragma once

#include "ArchiveBytes.h"

#include <memory>
#include <optional>

namespace torvane {

class Archive {
public:
    /// Opens the archive at a spelled path. Fails if it is missing, damaged or split over several disks, if
    /// it claims more than `mostEntries` entries, or if the pulse ends.
    Archive(const QString& path, qint64 mostEntries, Pulse& pulse);

    qint64 count() const;
    /// The name of an entry (index from 0) in UTF-8. Names that are neither marked as UTF-8 nor valid UTF-8
    /// are decoded as code page 437, the format's default. Empty if there is none.
    QByteArray name(qint64 index) const;
    /// The kind of an entry by its attributes; `other` is a link, pipe, device or volume label.
    enum class Kind { file, folder, other };
    Kind kind(qint64 index) const;
    /// Whether an entry needs a password.
    bool isEncrypted(qint64 index) const;
    /// Whether an entry is stored, or packed by deflate or bzip2. With other methods, which later versions of
    /// libzip support, the archive would decide how much memory unpacking takes.
    bool isMethodKnown(qint64 index) const;
    /// The size that the archive claims for an entry, in bytes; negative if it claims none.
    qint64 claimedSize(qint64 index) const;
    /// The CRC-32 that the archive claims for the bytes of an entry; nothing if it claims none.
    std::optional<quint32> claimedCrc(qint64 index) const;
    /// Passes the bytes of an entry to `take`, block by block, until that returns false. True if the entry
    /// was read to its end with the claimed size and checksum; never for encrypted entries.
    bool read(qint64 index, const std::function<bool(QByteArrayView)>& take);

private:
    bool open();
    zip_stat_t infoOf(qint64 index) const; // unknown fields stay as zip_stat_init sets them

    ArchiveBytes m_bytes;
    std::unique_ptr<zip_t, void (*)(zip_t*)> m_zip;
    QByteArray m_block;
};

} // namespace torvane
