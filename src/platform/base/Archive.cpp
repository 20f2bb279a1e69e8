// SPDX-License-Identifier: MIT
// Entries of an archive, via libzip.
#include "Archive.h"

#include <limits>

namespace torvane {

namespace {
constexpr qsizetype unpackedBlock = 1 << 17;
// DOS attributes.
constexpr zip_uint32_t folderAttribute = 0x10;
constexpr zip_uint32_t labelAttribute = 0x08;

struct FileCloser {
    void operator()(zip_file_t* file) const { zip_fclose(file); }
};
} // namespace

Archive::Archive(const QString& path, qint64 mostEntries, Pulse& pulse)
    : m_bytes(path, mostEntries, pulse), m_zip(nullptr, zip_discard),
      m_block(unpackedBlock, Qt::Uninitialized) {
    const bool isOpen = open() || (m_bytes.patchDirectory() && open());
    if (!isOpen || count() > mostEntries) throw RuntimeFailure(RuntimeFailure::pathAccess);
    m_bytes.directoryIsRead();
}

bool Archive::open() {
    zip_source_t* const source = m_bytes.source();
    if (source == nullptr) throw RuntimeFailure(RuntimeFailure::outOfMemory);
    zip_error_t reason; // not shown to anybody, but libzip writes to it
    zip_error_init(&reason);
    m_zip.reset(zip_open_from_source(source, ZIP_RDONLY, &reason));
    zip_error_fini(&reason);
    if (!m_zip) zip_source_free(source);
    return m_zip != nullptr;
}

qint64 Archive::count() const { return zip_get_num_entries(m_zip.get(), 0); }

QByteArray Archive::name(qint64 index) const {
    return {zip_get_name(m_zip.get(), static_cast<zip_uint64_t>(index), ZIP_FL_ENC_GUESS)};
}

Archive::Kind Archive::kind(qint64 index) const {
    zip_uint8_t system = 0;
    zip_uint32_t attributes = 0;
    zip_file_get_external_attributes(m_zip.get(), static_cast<zip_uint64_t>(index), 0, &system, &attributes);
    // The upper half holds the Unix mode, or 0. Archivers on other systems may set it, too.
    const mode_t mode = attributes >> 16 & S_IFMT;
    if ((attributes & folderAttribute) != 0 || mode == S_IFDIR) return Kind::folder;
    const bool isFile = (attributes & labelAttribute) == 0 && (mode == 0 || mode == S_IFREG);
    return isFile ? Kind::file : Kind::other;
}

bool Archive::isEncrypted(qint64 index) const { return infoOf(index).encryption_method != ZIP_EM_NONE; }

bool Archive::isMethodKnown(qint64 index) const {
    const zip_uint16_t method = infoOf(index).comp_method;
    return method == ZIP_CM_STORE || method == ZIP_CM_DEFLATE || method == ZIP_CM_BZIP2;
}

zip_stat_t Archive::infoOf(qint64 index) const {
    zip_stat_t info;
    zip_stat_init(&info);
    zip_stat_index(m_zip.get(), static_cast<zip_uint64_t>(index), 0, &info);
    return info;
}

qint64 Archive::claimedSize(qint64 index) const {
    const zip_stat_t info = infoOf(index);
    if ((info.valid & ZIP_STAT_SIZE) == 0) return -1;
    return static_cast<qint64>(std::min<zip_uint64_t>(info.size, std::numeric_limits<qint64>::max()));
}

std::optional<quint32> Archive::claimedCrc(qint64 index) const {
    const zip_stat_t info = infoOf(index);
    if ((info.valid & ZIP_STAT_CRC) == 0) return std::nullopt;
    return info.crc;
}

bool Archive::read(qint64 index, const std::function<bool(QByteArrayView)>& take) {
    const std::unique_ptr<zip_file_t, FileCloser> file(
        zip_fopen_index(m_zip.get(), static_cast<zip_uint64_t>(index), 0));
    if (!file) return false;
    // libzip verifies checksums, but not every size.
    for (qint64 left = claimedSize(index);;) {
        const zip_int64_t got =
            zip_fread(file.get(), m_block.data(), static_cast<zip_uint64_t>(unpackedBlock));
        if (got <= 0) return got == 0 && left == 0;
        left -= got;
        if (!take(QByteArrayView(m_block).first(got))) return false;
    }
}

} // namespace torvane
