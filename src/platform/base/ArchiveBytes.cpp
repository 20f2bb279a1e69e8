// SPDX-License-Identifier: MIT
// Answers to libzip (see zip_source_function(3)). No exception may cross its frames.
#include "ArchiveBytes.h"
#include "ArchiveEnds.h"

#include <algorithm>

namespace torvane {

namespace {
constexpr qint64 archiveBlock = 1 << 16;
// The size of a directory: for each entry 46 bytes, a name of up to 255 and some extra fields; plus the
// search for its end.
constexpr qint64 bytesPerEntry = 512;
constexpr qint64 bytesForSearch = 1 << 20;

qint64 bytesOfDirectory(qint64 entries) { return bytesForSearch + bytesPerEntry * entries; }
} // namespace

ArchiveBytes::ArchiveBytes(const QString& path, qint64 mostEntries, Pulse& pulse)
    : m_pulse(pulse), m_file(path), m_length(m_file.length()), m_mostEntries(mostEntries),
      m_bytesLeft(bytesOfDirectory(mostEntries)) {
    zip_error_init(&m_error);
    if (claimsMore(mostEntries)) throw RuntimeFailure(RuntimeFailure::outOfMemory);
    // libzip would treat an empty file as a new archive.
    if (m_length == 0) throw RuntimeFailure(RuntimeFailure::pathAccess);
}

// libzip allocates as many entries as a ZIP64 record claims, before it reads any.
bool ArchiveBytes::claimsMore(qint64 mostEntries) const {
    const std::vector<ArchiveEnd> ends = archiveEnds(m_file);
    return std::any_of(ends.begin(), ends.end(), [&](const ArchiveEnd& end) {
        return end.hasRecord && end.entries > static_cast<quint64>(mostEntries);
    });
}

bool ArchiveBytes::patchDirectory() {
    ignoring([this] { m_patches = directoryPatches(m_file, m_mostEntries, m_pulse); });
    m_bytesLeft = bytesOfDirectory(m_mostEntries);
    return !m_patches.empty();
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
    if (m_bytesLeft >= 0) patch(data, count);
    m_position += count;
    return count;
}

void ArchiveBytes::patch(char* data, qint64 count) const {
    const auto end = m_patches.lower_bound(m_position + count);
    for (auto it = m_patches.lower_bound(m_position); it != end; ++it)
        data[it->first - m_position] = it->second;
}

// Entries that are read in order, with their headers, come from successive blocks.
QByteArrayView ArchiveBytes::bytesHere() {
    if (m_position < m_blockStart || m_position >= m_blockStart + m_block.size()) {
        m_block = m_file.readAt(m_position, archiveBlock);
        m_blockStart = m_position;
    }
    return QByteArrayView(m_block).sliced(m_position - m_blockStart);
}

} // namespace torvane
