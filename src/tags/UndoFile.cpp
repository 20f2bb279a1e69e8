// SPDX-License-Identifier: MIT
// A line that tells what the file is, and blocks: size, hash, entries.
#include "UndoFile.h"
#include "platform/base/Paths.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QIODevice>
#include <algorithm>
#include <cstdio>
#include <filesystem>

namespace torvane {

namespace {
const QByteArray firstLine = QByteArrayLiteral("Torvane undo 1\n");
constexpr qsizetype sizeSize = 8;
constexpr qsizetype hashSize = 32;
constexpr qint64 largestBlock = 64 << 20; // a damaged size must not exhaust memory

QByteArray hashOf(const QByteArray& bytes) {
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
}

QByteArray blockOf(const EndChanges::Results& changes) {
    QByteArray entries;
    QDataStream stream(&entries, QIODevice::WriteOnly);
    for (const EndChanges::Result& one : changes) {
        // The next command may work in another folder.
        const std::string path = std::filesystem::absolute(Paths::real(one.path).toStdString());
        stream << QByteArray::fromStdString(path) << one.change.start << one.change.before
               << one.change.after;
    }
    QByteArray block;
    QDataStream(&block, QIODevice::WriteOnly) << qint64{entries.size()};
    return block + hashOf(entries) + entries;
}

qint64 sizeOf(const QByteArray& bytes) {
    qint64 size = -1;
    QDataStream(bytes) >> size;
    return size;
}
} // namespace

void UndoFile::add(const EndChanges::Results& changes) {
    const QByteArray block = blockOf(changes);
    aboutFile(Paths::spelled(path()), [&] {
        if (!m_file.isOpen()) return begin(block);
        QByteArrayView rest = block;
        writeAll(m_file, rest);
        if (uninterrupted([this] { return fsync(m_file.number()); }) != 0) failWithErrno();
    });
}

// A second name for the file of the last run needs no room, so it comes back even if a full disk has ended
// this run. Where there are no links, it is lost here.
void UndoFile::begin(const QByteArray& block) {
    Folder::make(m_folder);
    unlink(pathBefore().constData());
    if (link(path().constData(), pathBefore().constData()) != 0 && errno == ENOSPC) failWithErrno();
    SafeFile::replace(Paths::spelled(path()), firstLine + block);
    m_file = opened(uninterrupted(
        [&] { return open(path().constData(), O_WRONLY | O_APPEND | O_CLOEXEC | O_NOFOLLOW); }));
}

void UndoFile::confirm() {
    if (!m_file.isOpen() || m_isConfirmed) return;
    unlink(pathBefore().constData());
    m_isConfirmed = true;
}

UndoFile::~UndoFile() {
    if (!m_file.isOpen() || m_isConfirmed) return;
    struct stat ours {};
    struct stat named {};
    const bool isOurs = fstat(m_file.number(), &ours) == 0 && stat(path().constData(), &named) == 0 &&
                        isSameFile(ours, named); // and not that of a run which began later
    if (isOurs && rename(pathBefore().constData(), path().constData()) != 0) unlink(path().constData());
}

UndoLog::UndoLog(const QByteArray& path) {
    aboutFile(Paths::spelled(path), [&] {
        m_file = opened(uninterrupted(
            [&] { return open(path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW); }));
        if (bytesOf(m_file, 0, firstLine.size()) != firstLine) {
            throw RuntimeFailure(RuntimeFailure::typeMismatch);
        }
        for (qint64 at = firstLine.size();;) {
            const qint64 size = sizeOf(bytesOf(m_file, at, sizeSize));
            if (size < 0 || size > largestBlock) break;
            const Block block{at + sizeSize, size};
            const auto entries = entriesOf(block);
            if (!entries) break;
            m_count += static_cast<int>(entries->size());
            m_blocks.push_back(block);
            at += sizeSize + hashSize + size;
        }
    });
}

// Nothing if the block is incomplete or damaged.
std::optional<std::vector<UndoEntry>> UndoLog::entriesOf(const Block& block) const {
    const QByteArray hash = bytesOf(m_file, block.start, hashSize);
    const QByteArray bytes = bytesOf(m_file, block.start + hashSize, block.size);
    if (bytes.size() != block.size || hashOf(bytes) != hash) return std::nullopt;
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

std::vector<UndoEntry> UndoLog::next() {
    if (m_blocks.empty()) return {};
    auto entries = entriesOf(m_blocks.back()).value_or(std::vector<UndoEntry>());
    m_blocks.pop_back();
    std::reverse(entries.begin(), entries.end());
    return entries;
}

} // namespace torvane
