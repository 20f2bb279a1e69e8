// SPDX-License-Identifier: MIT
// Making, filling and syncing hidden files.
#include "HiddenFile.h"
#include "FileBlocks.h"

#include <QRandomGenerator>
#include <algorithm>
#include <cstring>
#include <sys/file.h>

namespace torvane {

namespace {
constexpr int mostNames = 100;    // one of 36^6 names is free, or something else is wrong
constexpr qint64 blockUnit = 512; // the unit of st_blocks on every file system
constexpr qsizetype randomLetters = 6;
constexpr char letters[] = "abcdefghijklmnopqrstuvwxyz0123456789";
constexpr int letterCount = sizeof letters - 1;

bool isLetter(char c) { return std::find(letters, letters + letterCount, c) != letters + letterCount; }

// All bytes are 0 if the first is and each equals its neighbour.
bool isZero(QByteArrayView bytes) {
    return bytes.front() == 0 &&
           std::memcmp(bytes.data(), bytes.data() + 1, static_cast<size_t>(bytes.size() - 1)) == 0;
}

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

// Between creation and lock another run may take the file for a leftover and remove it.
bool HiddenFile::lock() const {
    const bool isLocked = flock(m_handle.number(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
    return isLocked && infoOf(m_handle).st_nlink > 0;
}

HiddenFile::~HiddenFile() {
    if (!m_name.isEmpty()) m_folder.unlink(m_name);
}

// Leaves a hole at the handle's position.
void HiddenFile::skip(qint64 count) const {
    const off_t end = lseek(m_handle.number(), count, SEEK_CUR);
    if (end < 0) failWithErrno();
    if (uninterrupted([&] { return ftruncate(m_handle.number(), end); }) != 0) failWithErrno();
}

void HiddenFile::copyFrom(const Handle& source, qint64 count,
                          const std::function<void()>& betweenBlocks) const {
    const struct stat info = infoOf(source);
    // Reads the zeros instead of asking where the holes are: not every file system reports them correctly.
    const bool hasHoles = info.st_blocks * blockUnit < info.st_size;
    FileBlocks blocks(source, 0, std::min<qint64>(count, info.st_size));
    for (QByteArrayView block = blocks.next(); !block.isEmpty(); block = blocks.next()) {
        hasHoles&& isZero(block) ? skip(block.size()) : write(block);
        if (betweenBlocks) betweenBlocks();
    }
}

void HiddenFile::sync() const {
    if (uninterrupted([this] { return fsync(m_handle.number()); }) != 0) failWithErrno();
}

} // namespace torvane
