// SPDX-License-Identifier: MIT
// Writing and reading notes, and undoing changes that were cut.
#include "TailNote.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QIODevice>
#include <algorithm>
#include <dirent.h>
#include <memory>
#include <utility>

namespace torvane {

namespace {
constexpr qint64 largestNote = 64 << 20; // a larger file of that name must not exhaust memory
constexpr qsizetype hashSize = 32;

QByteArray hashOf(const QByteArray& bytes) {
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
}

QByteArray packed(const TailNote::Changes& changes) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    for (const TailChange& change : changes) {
        stream << change.name << change.inode << change.start << change.before << change.after;
    }
    return hashOf(bytes) + bytes;
}

TailChange nextChange(QDataStream& stream) {
    TailChange change;
    stream >> change.name >> change.inode >> change.start >> change.before >> change.after;
    return change;
}

// Notes of earlier versions hold one line that was being appended.
TailChange nextAppend(QDataStream& stream) {
    TailChange change;
    stream >> change.name >> change.start >> change.after;
    return change;
}

bool isSound(const TailChange& change) { return change.start >= 0 && !change.name.contains('/'); }

// The bytes at the end of a file, if there are not more than its old or its new end.
std::optional<QByteArray> endOf(const Handle& file, const TailChange& change) {
    const qint64 size = infoOf(file).st_size - change.start;
    if (size < 0 || size > std::max(change.before.size(), change.after.size())) return std::nullopt;
    return bytesOf(file, change.start, size);
}

// Whether each byte is from the old end or the new one, so that nobody else has written any. A power cut may
// leave zeros instead of some bytes.
bool isMixture(const TailChange& change, const QByteArray& found, bool mayHaveZeros) {
    const auto isFrom = [&found](const QByteArray& end, qsizetype i) {
        return i < end.size() && end[i] == found[i];
    };
    for (qsizetype i = 0; i < found.size(); ++i) {
        const bool isZero = mayHaveZeros && found[i] == '\0';
        if (!isFrom(change.before, i) && !isFrom(change.after, i) && !isZero) return false;
    }
    return found.size() >= std::min(change.before.size(), change.after.size());
}

// The bytes from the first to the last one that differ from what is there: only these must be written again,
// which succeeds even where a full disk has ended the change.
std::pair<qsizetype, qsizetype> differing(const QByteArray& wanted, const QByteArray& found) {
    const auto first = std::mismatch(wanted.begin(), wanted.end(), found.begin(), found.end()).first;
    qsizetype end = wanted.size();
    if (wanted.size() <= found.size()) {
        while (end > 0 && wanted[end - 1] == found[end - 1]) --end;
    }
    const qsizetype begin = std::min<qsizetype>(first - wanted.begin(), end);
    return {begin, end - begin};
}

// Returns whether the old end is there and on the disk.
bool putBack(const Handle& file, const TailChange& change, const QByteArray& found) {
    const qint64 end = change.start + change.before.size();
    const auto [begin, count] = differing(change.before, found);
    bool isDone = false;
    ignoring([&, begin = begin, count = count] {
        if (lseek(file.number(), change.start + begin, SEEK_SET) < 0) failWithErrno();
        QByteArrayView rest = QByteArrayView(change.before).sliced(begin, count);
        writeAll(file, rest);
        isDone = uninterrupted([&] { return ftruncate(file.number(), end); }) == 0 &&
                 uninterrupted([&] { return fsync(file.number()); }) == 0;
    });
    return isDone;
}

// A regular file in the folder; closed, with errno set, if there is none that can be written.
Handle openedInFolder(const Folder& folder, const QByteArray& name) {
    Handle file(uninterrupted([&] {
        return openat(folder.number(), name.constData(), O_RDWR | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW);
    }));
    if (file.isOpen() && !S_ISREG(infoOf(file).st_mode)) {
        errno = ENXIO;
        return {};
    }
    return file;
}

// Whether a name leads to no file, or no longer does: then there is nothing to restore.
bool isNoFile(int error) { return error == ENOENT || error == ELOOP || error == EISDIR || error == ENXIO; }

// The present name of a file in the folder; empty if it is not there.
QByteArray nameOf(const Folder& folder, quint64 inode) {
    const std::unique_ptr<DIR, int (*)(DIR*)> names(
        fdopendir(openat(folder.number(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC)), closedir);
    if (inode == 0 || !names) return {};
    while (const dirent* entry = readdir(names.get())) {
        if (entry->d_ino == inode) return entry->d_name;
    }
    return {};
}

enum class Recovery { done, failed, noneOfOurs };

Recovery recoverNamed(const Folder& folder, const QByteArray& name, const TailChange& change) {
    Recovery recovery = Recovery::failed;
    ignoring([&] {
        const Handle file = openedInFolder(folder, name);
        if (!file.isOpen() && !isNoFile(errno)) return;
        const auto found = file.isOpen() ? endOf(file, change) : std::nullopt;
        const bool isOurs = found && isMixture(change, *found, true);
        const bool isWhole = found == change.after || found == change.before;
        if (!isOurs) recovery = Recovery::noneOfOurs;
        if (isOurs && (isWhole || putBack(file, change, *found))) recovery = Recovery::done;
    });
    return recovery;
}
} // namespace

TailNote::TailNote(const Folder& folder, const Changes& changes) : m_file(folder, HiddenFile::tailNote) {
    const QByteArray note = packed(changes);
    if (note.size() > largestNote) throw RuntimeFailure(RuntimeFailure::outOfMemory);
    m_file.write(note);
    m_file.sync();
    folder.sync();
}

bool TailNote::isName(QByteArrayView name) {
    return HiddenFile::isOfKind(HiddenFile::tailNote, name) ||
           HiddenFile::isOfKind(HiddenFile::appendNote, name);
}

std::optional<TailNote::Changes> TailNote::read(const Handle& note, QByteArrayView name) {
    const qint64 size = infoOf(note).st_size;
    if (size <= hashSize || size > largestNote) return std::nullopt;
    const QByteArray all = bytesOf(note, 0, size);
    const QByteArray bytes = all.sliced(std::min(hashSize, all.size()));
    if (hashOf(bytes) != all.first(std::min(hashSize, all.size()))) return std::nullopt;
    const bool isAppend = HiddenFile::isOfKind(HiddenFile::appendNote, name);
    QDataStream stream(bytes);
    Changes changes;
    while (!stream.atEnd()) {
        changes.push_back(isAppend ? nextAppend(stream) : nextChange(stream));
        if (stream.status() != QDataStream::Ok || !isSound(changes.back())) return std::nullopt;
    }
    return changes;
}

bool TailNote::restore(const Handle& file, const TailChange& change) {
    bool isRight = false;
    ignoring([&] {
        const auto found = endOf(file, change);
        const bool isOurs = found && *found != change.before && isMixture(change, *found, false);
        isRight = !isOurs || putBack(file, change, *found);
    });
    return isRight;
}

bool TailNote::recover(const Folder& folder, const TailChange& change) {
    Recovery recovery = recoverNamed(folder, change.name, change);
    if (recovery == Recovery::noneOfOurs) {
        const QByteArray name = nameOf(folder, change.inode);
        if (!name.isEmpty() && name != change.name) recovery = recoverNamed(folder, name, change);
    }
    return recovery != Recovery::failed;
}

} // namespace torvane
