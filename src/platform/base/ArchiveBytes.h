// SPDX-License-Identifier: MIT
// The bytes of an archive file as libzip asks for them. Between its questions the caller is asked whether to
// go on, and nothing is read of an archive whose directory would fill the memory.
#pragma once

#include "DirectoryPatches.h"

#include <zip.h>

namespace torvane {

class ArchiveBytes {
public:
    /// Opens a regular file. Fails for anything else, and for an archive that tells of more entries.
    ArchiveBytes(const QString& path, qint64 mostEntries, Pulse& pulse);
    ~ArchiveBytes() { zip_error_fini(&m_error); }
    ArchiveBytes(const ArchiveBytes&) = delete;
    ArchiveBytes& operator=(const ArchiveBytes&) = delete;

    /// What libzip reads from; valid as long as this object. Null if there is no memory for it.
    zip_source_t* source();
    /// For a second try to read the directory: true if there are entries in it without which libzip may open
    /// the archive (see DirectoryPatches). From now on it reads as if they were left out.
    bool patchDirectory();
    /// The directory has been read: from now on there is no limit, and all bytes are as they are.
    void directoryIsRead() { m_bytesLeft = -1; }

private:
    static zip_int64_t answer(void* self, void* data, zip_uint64_t length, zip_source_cmd_t question);
    zip_int64_t seek(void* data, zip_uint64_t length);
    zip_int64_t read(char* data, zip_uint64_t length);
    QByteArrayView bytesHere();
    zip_int64_t fail(int error);
    bool tellsOfMore(qint64 mostEntries) const;
    void patch(char* data, qint64 count) const;

    Pulse& m_pulse;
    File m_file;
    qint64 m_length;
    qint64 m_mostEntries;
    DirectoryPatches m_patches;
    qint64 m_bytesLeft; // to be read before the directory is whole; negative if there is no limit
    qint64 m_position = 0;
    QByteArray m_block;
    qint64 m_blockStart = 0;
    zip_error_t m_error{};
};

} // namespace torvane
