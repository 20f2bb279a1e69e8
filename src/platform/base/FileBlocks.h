// SPDX-License-Identifier: MIT
// The bytes of an open file in blocks of at most 64 KiB, so that reading a file of any size takes
// little memory.
#pragma once

#include "SystemCalls.h"

namespace torvane {

class FileBlocks {
public:
    /// The bytes from `from` up to `to`, or to the end of the file if that comes first; `file` must outlive
    /// this object. Each block but the first begins with the last `overlap` bytes of the previous one, so
    /// that every sequence of up to `overlap` + 1 bytes is whole in some block.
    FileBlocks(const Handle& file, qint64 from, qint64 to, qint64 overlap = 0);

    /// The next block, valid until the next call; empty at the end. Fails if the file can't be read.
    QByteArrayView next();
    /// The offset of the current block in the file.
    qint64 position() const { return m_position; }

private:
    const Handle& m_file;
    qint64 m_next;
    qint64 m_to;
    qint64 m_overlap;
    qint64 m_position = 0;
    QByteArray m_block;
};

} // namespace torvane
