// SPDX-License-Identifier: MIT
// Mark, size, hash, entries.
#include "UndoBlock.h"
#include "platform/base/Paths.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QIODevice>
#include <filesystem>

namespace torvane {

namespace {
QByteArray hashOfEntries(const QByteArray& bytes) {
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
}

std::optional<std::vector<UndoEntry>> unpacked(const QByteArray& bytes) {
    std::vector<UndoEntry> entries;
    QDataStream stream(bytes);
    while (!stream.atEnd()) {
        UndoEntry entry;
        stream >> entry.path >> entry.start >> entry.before >> entry.after;
        if (stream.status() != QDataStream::Ok || entry.start < 0) return std::nullopt;
        entries.push_back(std::move(entry));
    }
    return entries;
}
} // namespace

// The next command may work in another folder.
std::vector<UndoEntry> UndoBlock::entriesOf(const EndChanges::Results& changes) {
    std::vector<UndoEntry> entries;
    for (const EndChanges::Result& one : changes) {
        const std::string path = std::filesystem::absolute(Paths::real(one.path).toStdString());
        entries.push_back(
            {QByteArray::fromStdString(path), one.change.start, one.change.before, one.change.after});
    }
    return entries;
}

QByteArray UndoBlock::packed(const std::vector<UndoEntry>& entries) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    for (const UndoEntry& one : entries) stream << one.path << one.start << one.before << one.after;
    QByteArray size;
    QDataStream(&size, QIODevice::WriteOnly) << qint64{bytes.size()};
    return mark + size + hashOfEntries(bytes) + bytes;
}

std::optional<UndoBlock::Found> UndoBlock::at(const Handle& log, qint64 position) {
    const qint64 headSize = mark.size() + sizeSize + hashSize;
    const QByteArray head = bytesOf(log, position, headSize);
    if (head.size() != headSize || !head.startsWith(mark)) return std::nullopt;
    qint64 size = -1;
    QDataStream(head.sliced(mark.size(), sizeSize)) >> size;
    if (size < 0 || size > largest) return std::nullopt;
    const QByteArray bytes = bytesOf(log, position + headSize, size);
    if (bytes.size() != size || hashOfEntries(bytes) != head.last(hashSize)) return std::nullopt;
    auto entries = unpacked(bytes);
    if (!entries) return std::nullopt;
    return Found{std::move(*entries), position + headSize + size};
}

void UndoBlock::append(const Handle& log, const QByteArray& block) {
    const auto size = static_cast<size_t>(block.size());
    const ssize_t written = uninterrupted([&] { return write(log.number(), block.data(), size); });
    if (written >= 0 && written < block.size()) errno = ENOSPC;
    if (written != block.size()) failWithErrno();
    if (uninterrupted([&] { return fsync(log.number()); }) != 0) failWithErrno();
}

} // namespace torvane
