// SPDX-License-Identifier: MIT
// Making, filling and syncing hidden files.
#include "HiddenFile.h"

#include <QRandomGenerator>
#include <algorithm>
#include <array>
#include <climits>
#include <sys/file.h>

namespace torvane {

namespace {
constexpr int mostLinks = 40;  // as many as the kernel follows
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

QByteArray folderOf(const QByteArray& path) {
    const qsizetype slash = path.lastIndexOf('/');
    return slash < 0 ? QByteArray(".") : slash == 0 ? QByteArray("/") : path.first(slash);
}
} // namespace

Folder::Folder(const QByteArray& path) {
    const auto openAs = [&](int flags) {
        return uninterrupted([&] { return open(path.constData(), flags | O_DIRECTORY | O_CLOEXEC); });
    };
    int number = openAs(O_RDONLY);
    if (number < 0 && errno == EACCES) {
        m_canSync = false;
        number = openAs(O_PATH);
    }
    m_handle = opened(number);
}

void Folder::make(const QByteArray& path) {
    struct stat info {};
    if (::stat(path.constData(), &info) == 0) return;
    const QByteArray around = placeOf(path).folder;
    if (around != path) make(around);
    if (mkdir(path.constData(), 0777) != 0 && errno != EEXIST) failWithErrno();
    Folder(around).sync();
}

void Folder::sync() const {
    if (!m_canSync || uninterrupted([this] { return fsync(number()); }) == 0) return;
    // Some network file systems sync every change of a name by themselves and refuse the call.
    if (errno != EINVAL && errno != ENOTSUP) failWithErrno();
}

bool Folder::stat(const QByteArray& name, struct stat& info) const {
    return fstatat(number(), name.constData(), &info, AT_SYMLINK_NOFOLLOW) == 0;
}

bool HiddenFile::isOfKind(const QByteArray& kind, QByteArrayView name) {
    return name.size() == kind.size() + randomLetters && name.startsWith(kind) &&
           std::all_of(name.begin() + kind.size(), name.end(), isLetter);
}

// Through the other constructor, so that the destructor removes what a failure in here would leave.
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

Place placeOf(const QByteArray& given) {
    QByteArray path = given;
    for (int links = 0; links < mostLinks; ++links) {
        std::array<char, PATH_MAX> target{};
        const ssize_t length = readlink(path.constData(), target.data(), target.size());
        // What can't be looked at may be a link: a rename would put a file in its place.
        if (length < 0 && errno != EINVAL && errno != ENOENT) failWithErrno();
        if (length < 0) return {folderOf(path), path.sliced(path.lastIndexOf('/') + 1)};
        const QByteArray next(target.data(), static_cast<qsizetype>(length));
        path = next.startsWith('/') ? next : folderOf(path) + '/' + next;
    }
    throw RuntimeFailure::fromErrno(ELOOP);
}

} // namespace torvane
