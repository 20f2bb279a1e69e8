// SPDX-License-Identifier: MIT
// Making, filling and syncing hidden files.
#include "HiddenFile.h"

#include <QRandomGenerator>
#include <algorithm>
#include <sys/file.h>

namespace torvane {

namespace {
constexpr int mostNames = 100; // of 36^6 names one is free, or something else is wrong
constexpr qint64 copyBlock = 1 << 20;
constexpr qsizetype randomLetters = 6;
constexpr char letters[] = "abcdefghijklmnopqrstuvwxyz0123456789";
constexpr int letterCount = sizeof letters - 1;

bool isLetter(char c) { return std::find(letters, letters + letterCount, c) != letters + letterCount; }

QByteArray randomName(const QByteArray& kind) {
    QByteArray name = kind;
    for (qsizetype i = 0; i < randomLetters; ++i) {
        name += letters[QRandomGenerator::system()->bounded(letterCount)];
    }
    return name;
}
} // namespace

bool HiddenFile::isOfKind(const QByteArray& kind, QByteArrayView name) {
    return name.size() == kind.size() + randomLetters && name.startsWith(kind) &&
           std::all_of(name.begin() + kind.size(), name.end(), isLetter);
}

// Delegates, so that the destructor runs and unlinks the file if this body throws.
HiddenFile::HiddenFile(const Folder& folder, const QByteArray& kind) : HiddenFile(folder) {
    for (int i = 0; i < mostNames; ++i) {
        const QByteArray name = randomName(kind);
        const int number = uninterrupted([&] {
            return openat(folder.number(), name.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
        });
        if (number < 0 && errno != EEXIST) failWithErrno();
        if (number < 0) continue;
        m_handle = Handle(number);
        m_name = name;
        if (lock()) return;
    }
    throw RuntimeFailure(RuntimeFailure::deviceError);
}

// Between the making of a file and its lock another run may take it for a leftover, and remove it.
bool HiddenFile::lock() const {
    const bool isLocked = flock(m_handle.number(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
    return isLocked && infoOf(m_handle).st_nlink > 0;
}

HiddenFile::~HiddenFile() {
    if (!m_name.isEmpty()) m_folder.unlink(m_name);
}

void HiddenFile::copyFrom(const Handle& source, const std::function<void()>& betweenBlocks) const {
    const qint64 all = infoOf(source).st_size;
    for (qint64 position = 0; position < all;) {
        const QByteArray block = bytesOf(source, position, std::min(copyBlock, all - position));
        if (block.isEmpty()) return;
        write(block);
        position += block.size();
        if (betweenBlocks) betweenBlocks();
    }
}

void HiddenFile::sync() const {
    if (uninterrupted([this] { return fsync(m_handle.number()); }) != 0) failWithErrno();
}

} // namespace torvane
