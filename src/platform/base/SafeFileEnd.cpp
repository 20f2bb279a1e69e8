// SPDX-License-Identifier: MIT
// Changing the end of a file in place, which costs the same for a file of any length.
#include "SafeFile.h"

namespace torvane::SafeFile {

namespace {
QByteArray joined(std::initializer_list<QByteArrayView> pieces) {
    QByteArray bytes;
    for (const QByteArrayView piece : pieces) bytes.append(piece);
    return bytes;
}
} // namespace

bool Change::canChangeEnd(qint64 kept, qint64 count) const {
    const bool isShort = m_before.st_size - kept <= largestEnd && count <= largestEnd;
    return m_lease == F_WRLCK && isShort && infoOf(m_file).st_nlink == 1;
}

TailChange Change::endChange(qint64 kept, const QByteArray& bytes) const {
    struct stat named {};
    // Other programs can't open the file, but give its name to another one.
    if (!m_folder.stat(m_place.name, named) || !isSameState(named, m_before)) failAsChanged();
    return {m_place.name, m_before.st_ino, kept, readAt(kept, m_before.st_size - kept), bytes};
}

void Change::writeEnd(const TailChange& change) const {
    if (lseek(m_file.number(), change.start, SEEK_SET) < 0) failWithErrno();
    QByteArrayView rest = change.after;
    writeAll(m_file, rest);
    if (change.after.size() >= change.before.size()) return;
    const qint64 end = change.start + change.after.size();
    if (uninterrupted([&] { return ftruncate(m_file.number(), end); }) != 0) failWithErrno();
}

void Change::sync() const {
    if (uninterrupted([this] { return fsync(m_file.number()); }) != 0) failWithErrno();
}

void Change::commitEnd(qint64 kept, std::initializer_list<QByteArrayView> pieces,
                       const Afterwards& afterwards) const {
    const QByteArray after = joined(pieces);
    if (!canChangeEnd(kept, after.size())) return commit(kept, pieces);
    const TailChange change = endChange(kept, after);
    TailNote note(m_folder, {change});
    try {
        writeEnd(change);
        if (afterwards) afterwards(m_file);
        sync();
    } catch (const RuntimeFailure&) {
        if (!TailNote::restore(m_file, change)) note.leave();
        throw;
    }
}

} // namespace torvane::SafeFile
