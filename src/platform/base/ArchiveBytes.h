// SPDX-License-Identifier: MIT
// The bytes of an archive file, as libzip requests them. Between requests the pulse decides whether to
// continue, and the reading stops if the archive's directory would exhaust memory.
#pragma once

#include "DirectoryPatches.h"

#include <zip.h>

namespace torvane {

class ArchiveBytes {
public:
    /// Opens a regular file. Fails for anything else, and for an archive that claims more than `mostEntries`
    /// entries.
    ArchiveBytes(const QString& path, qint64 mostEntries, Pulse& pulse);
    ~ArchiveBytes() { zip_error_fini(&m_error); }
    ArchiveBytes(const ArchiveBytes&) = delete;
    ArchiveBytes& operator=(const ArchiveBytes&) = delete;

    /// The source for libzip; valid as long as this object. Null if memory is exhausted.
    zip_source_t* source();
    /// Prepares a second attempt to read the directory: true if it has entries without which libzip may open
    /// the archive (see DirectoryPatches). From now on it reads as if those were left out.
    bool patchDirectory();
    /// Call once the directory has been read: lifts the limit, and reads all bytes unpatched from now on.
    void directoryIsRead() { m_bytesLeft = -1; }

private:
    static zip_int64_t answer(void* self, void* data, zip_uint64_t length, zip_source_cmd_t question);
    zip_int64_t seek(void* data, zip_uint64_t length);
    zip_int64_t read(char* data, zip_uint64_t length);
    QByteArrayView bytesHere();
    zip_int64_t fail(int error);
    bool claimsMore(qint64 mostEntries) const;
    void patch(char* data, qint64 count) const;

    Pulse& m_pulse;
    File m_file;
    qint64 m_length;
    qint64 m_mostEntries;
    DirectoryPatches m_patches;
    qint64 m_bytesLeft; // that may still be read for the directory; negative: no limit
    qint64 m_position = 0;
    QByteArray m_block;
    qint64 m_blockStart = 0;
    zip_error_t m_error{};
};

} // namespace torvane
