// SPDX-License-Identifier: MIT
// Answers to libzip (see zip_source_function(3)). No exception may cross its frames.
#include "ArchiveBytes.h"

#include <QtEndian>
#include <algorithm>

namespace torvane {

namespace {
constexpr qint64 blockSize = 1 << 16;
// What a directory takes: 46 bytes, a name of 255 and some extra fields for each entry, and the search for
// its end.
constexpr qint64 bytesPerEntry = 512;
constexpr qint64 bytesForSearch = 1 << 20;

// The records of ZIP64 (PKWARE's APPNOTE.TXT, 4.3.14 and 4.3.15).
constexpr char locatorSign[] = "PK\6\7";
constexpr qsizetype locatorOffset = 8;
constexpr qsizetype locatorSize = 20;
constexpr qsizetype recordEntries = 32;
constexpr qsizetype recordSize = 56;
// The end of the directory with the longest comment, and the locator in front.
constexpr qint64 tailSize = locatorSize + 22 + 65535;

quint64 numberAt(const QByteArray& bytes, qsizetype at) {
    return qFromLittleEndian<quint64>(bytes.constData() + at);
}
} // namespace

ArchiveBytes::ArchiveBytes(const QString& path, qint64 mostEntries, Pulse& pulse)
    : m_pulse(pulse), m_file(path), m_length(m_file.length()),
      m_bytesLeft(bytesForSearch + bytesPerEntry * mostEntries) {
    zip_error_init(&m_error);
    if (tellsOfMore(static_cast<quint64>(mostEntries))) throw RuntimeFailure(RuntimeFailure::outOfMemory);
}

// libzip makes room for as many entries as such a record tells of, before it has read any.
bool ArchiveBytes::tellsOfMore(quint64 mostEntries) const {
    const QByteArray tail = m_file.readAt(std::max<qint64>(0, m_length - tailSize), tailSize);
    for (qsizetype at = tail.indexOf(locatorSign); at >= 0; at = tail.indexOf(locatorSign, at + 1)) {
        if (at + locatorSize > tail.size()) return false;
        const quint64 offset = numberAt(tail, at + locatorOffset);
        if (offset > static_cast<quint64>(m_length)) continue;
        const QByteArray record = m_file.readAt(static_cast<qint64>(offset), recordSize);
        if (record.size() == recordSize && numberAt(record, recordEntries) > mostEntries) return true;
    }
    return false;
}

zip_source_t* ArchiveBytes::source() { return zip_source_function_create(answer, this, nullptr); }

zip_int64_t ArchiveBytes::answer(void* self, void* data, zip_uint64_t length, zip_source_cmd_t question) {
    auto& archive = *static_cast<ArchiveBytes*>(self);
    switch (question) {
    case ZIP_SOURCE_SUPPORTS: return ZIP_SOURCE_SUPPORTS_SEEKABLE;
    case ZIP_SOURCE_OPEN: archive.m_position = 0; return 0;
    case ZIP_SOURCE_CLOSE:
    case ZIP_SOURCE_FREE: return 0;
    case ZIP_SOURCE_STAT: {
        auto* info = static_cast<zip_stat_t*>(data);
        zip_stat_init(info);
        info->size = static_cast<zip_uint64_t>(archive.m_length);
        info->valid = ZIP_STAT_SIZE;
        return sizeof *info;
    }
    case ZIP_SOURCE_TELL: return archive.m_position;
    case ZIP_SOURCE_SEEK: return archive.seek(data, length);
    case ZIP_SOURCE_READ: return archive.read(static_cast<char*>(data), length);
    case ZIP_SOURCE_ERROR: return zip_error_to_data(&archive.m_error, data, length);
    default: return archive.fail(ZIP_ER_OPNOTSUPP);
    }
}

zip_int64_t ArchiveBytes::fail(int error) {
    zip_error_set(&m_error, error, 0);
    return -1;
}

zip_int64_t ArchiveBytes::seek(void* data, zip_uint64_t length) {
    const zip_int64_t position = zip_source_seek_compute_offset(
        static_cast<zip_uint64_t>(m_position), static_cast<zip_uint64_t>(m_length), data, length, &m_error);
    if (position < 0) return -1;
    m_position = position;
    return 0;
}

zip_int64_t ArchiveBytes::read(char* data, zip_uint64_t length) {
    if (!m_pulse.shouldContinue() || m_bytesLeft == 0) return fail(ZIP_ER_READ);
    QByteArrayView bytes;
    if (!ignoring([&] { bytes = bytesHere(); })) return fail(ZIP_ER_READ);
    auto count = static_cast<qint64>(std::min(length, static_cast<zip_uint64_t>(bytes.size())));
    if (m_bytesLeft > 0) {
        count = std::min(count, m_bytesLeft);
        m_bytesLeft -= count;
    }
    std::copy_n(bytes.begin(), count, data);
    m_position += count;
    return count;
}

// Entries that are read in their order, headers among them, come out of one block after the other.
QByteArrayView ArchiveBytes::bytesHere() {
    if (m_position < m_blockStart || m_position >= m_blockStart + m_block.size()) {
        m_block = m_file.readAt(m_position, blockSize);
        m_blockStart = m_position;
    }
    return QByteArrayView(m_block).sliced(m_position - m_blockStart);
}

} // namespace torvane
