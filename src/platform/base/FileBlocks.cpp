// SPDX-License-Identifier: MIT
// Reading block by block.
#include "FileBlocks.h"

#include <algorithm>

namespace torvane {

namespace {
// Stays in the processor's cache until it was searched, and needs no fresh pages for each file.
constexpr qint64 largestBlock = 64 << 10;
} // namespace

FileBlocks::FileBlocks(const Handle& file, qint64 from, qint64 to, qint64 overlap)
    : m_file(file), m_next(from), m_to(to), m_overlap(overlap) {}

QByteArrayView FileBlocks::next() {
    const qint64 size = std::min(largestBlock, m_to - m_next);
    // Only the overlap is left, which was in the previous block.
    const bool isOnlyOverlap = !m_block.isEmpty() && size <= m_overlap;
    if (size <= 0 || isOnlyOverlap) return {};
    m_position = m_next;
    m_block.resize(size);
    m_block.truncate(readInto(m_file, m_position, m_block.data(), size));
    if (m_block.size() < size) m_to = m_position + m_block.size(); // the file ends here
    m_next = m_position + std::max<qint64>(m_block.size() - m_overlap, 0);
    return m_block;
}

} // namespace torvane
