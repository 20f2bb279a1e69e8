// SPDX-License-Identifier: MIT
// Writing and reading notes, and undoing appends that were cut.
#include "AppendNote.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QIODevice>

namespace torvane {

namespace {
constexpr qint64 largestNote = 64 << 20; // a larger file of that name must not exhaust memory
constexpr qsizetype hashSize = 32;

QByteArray hashOf(const QByteArray& bytes) {
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
}

QByteArray packed(const AppendNote::Content& content) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << content.name << content.length << content.bytes;
    return hashOf(bytes) + bytes;
}

// The bytes after the old end of the file; empty if there are more than were appended.
QByteArray bytesAfterOldEnd(const Handle& file, const AppendNote::Content& content) {
    const qint64 more = infoOf(file).st_size - content.length;
    return more <= 0 || more > content.bytes.size() ? QByteArray() : bytesOf(file, content.length, more);
}

// Whether nothing else was written. A power cut may leave zeros where some of the appended bytes should be.
bool isPartOf(const QByteArray& whole, const QByteArray& found) {
    for (qsizetype i = 0; i < found.size(); ++i) {
        if (found[i] != whole[i] && found[i] != '\0') return false;
    }
    return !found.isEmpty();
}

bool cutTo(const Handle& file, qint64 length) {
    return uninterrupted([&] { return ftruncate(file.number(), length); }) == 0 &&
           uninterrupted([&] { return fsync(file.number()); }) == 0;
}

// Whether a name leads to no file, or no longer does: then there is nothing to restore.
bool isNoFile(int error) { return error == ENOENT || error == ELOOP || error == EISDIR || error == ENXIO; }
} // namespace

AppendNote::AppendNote(const Folder& folder, const Content& content)
    : m_file(folder, HiddenFile::appendNote) {
    const QByteArray note = packed(content);
    if (note.size() > largestNote) throw RuntimeFailure(RuntimeFailure::outOfMemory);
    m_file.write(note);
    m_file.sync();
    folder.sync();
}

std::optional<AppendNote::Content> AppendNote::read(const Handle& note) {
    const qint64 size = infoOf(note).st_size;
    if (size <= hashSize || size > largestNote) return std::nullopt;
    const QByteArray all = bytesOf(note, 0, size);
    const QByteArray bytes = all.sliced(std::min(hashSize, all.size()));
    if (hashOf(bytes) != all.first(std::min(hashSize, all.size()))) return std::nullopt;
    Content content;
    QDataStream stream(bytes);
    stream >> content.name >> content.length >> content.bytes;
    const bool isWhole = stream.status() == QDataStream::Ok && content.length >= 0;
    return isWhole && !content.name.contains('/') ? std::optional(content) : std::nullopt;
}

bool AppendNote::cutBack(const Handle& file, const Content& content) {
    bool isRight = false;
    ignoring([&] {
        const QByteArray found = bytesAfterOldEnd(file, content);
        isRight = found.isEmpty() || !content.bytes.startsWith(found) || cutTo(file, content.length);
    });
    return isRight;
}

bool AppendNote::recover(const Folder& folder, const Content& content) {
    const Handle file(uninterrupted([&] {
        return openat(folder.number(), content.name.constData(),
                      O_RDWR | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW);
    }));
    if (!file.isOpen()) return isNoFile(errno);
    if (!S_ISREG(infoOf(file).st_mode)) return true;
    const QByteArray found = bytesAfterOldEnd(file, content);
    return found == content.bytes || !isPartOf(content.bytes, found) || cutTo(file, content.length);
}

} // namespace torvane
