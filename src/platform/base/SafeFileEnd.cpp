// SPDX-License-Identifier: MIT
// Changing the end of a file in place, which costs the same for a file of any length.
#include "SafeFile.h"

namespace torvane::SafeFile {

namespace {
constexpr qint64 largestEnd = 64 << 10; // a note holds the old end and the new one

QByteArray joined(std::initializer_list<QByteArrayView> pieces) {
    QByteArray bytes;
    for (const QByteArrayView piece : pieces) bytes.append(piece);
    return bytes;
}
} // namespace

void Change::commitEnd(qint64 kept, std::initializer_list<QByteArrayView> pieces,
                       const Afterwards& afterwards) const {
    const QByteArray after = joined(pieces);
    const bool isShort = m_before.st_size - kept <= largestEnd && after.size() <= largestEnd;
    if (m_lease != F_WRLCK || !isShort || infoOf(m_file).st_nlink != 1) return commit(kept, pieces);
    struct stat named {};
    // Other programs can still give the name to another file.
    if (!m_folder.stat(m_place.name, named) || !isSameState(named, m_before)) failAsChanged();
    changeEnd({m_place.name, m_before.st_ino, kept, readAt(kept, m_before.st_size - kept), after});
    if (afterwards) afterwards(m_file);
}

void Change::changeEnd(const TailChange& change) const {
    TailNote note(m_folder, {change});
    try {
        if (lseek(m_file.number(), change.start, SEEK_SET) < 0) failWithErrno();
        QByteArrayView rest = change.after;
        writeAll(m_file, rest);
        const qint64 end = change.start + change.after.size();
        if (uninterrupted([&] { return ftruncate(m_file.number(), end); }) != 0) failWithErrno();
        if (uninterrupted([&] { return fsync(m_file.number()); }) != 0) failWithErrno();
    } catch (const RuntimeFailure&) {
        if (!TailNote::restore(m_file, change)) note.leave();
        throw;
    }
}

} // namespace torvane::SafeFile
