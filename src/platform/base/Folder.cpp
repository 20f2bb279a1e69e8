// SPDX-License-Identifier: MIT
// Opening, making and syncing folders; following symbolic links.
#include "Folder.h"
#include "Paths.h"

#include <array>
#include <climits>
#include <linux/magic.h>
#include <sys/vfs.h>

namespace torvane {

namespace {
constexpr int mostLinks = 40; // the kernel's limit

QByteArray parentOf(const QByteArray& path) {
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
    m_handle = aboutFile(Paths::spelled(path), [&] { return opened(number); });
}

void Folder::make(const QByteArray& path, mode_t mode) {
    struct stat info {};
    if (::stat(path.constData(), &info) == 0) return;
    const QByteArray parent = placeOf(path).folder;
    if (parent != path) make(parent, mode);
    if (mkdir(path.constData(), mode) != 0 && errno != EEXIST) failWithErrno();
    Folder(parent).sync();
}

void Folder::sync() const {
    if (!m_canSync || uninterrupted([this] { return fsync(number()); }) == 0) return;
    // Some network file systems sync every rename by themselves and refuse the call.
    if (errno != EINVAL && errno != ENOTSUP) failWithErrno();
}

bool Folder::syncFileSystem() const {
    struct statfs info {};
    if (fstatfs(number(), &info) != 0) return false;
    // syncfs() does not reach a FUSE server.
    return info.f_type != FUSE_SUPER_MAGIC && syncfs(number()) == 0;
}

bool Folder::stat(const QByteArray& name, struct stat& info) const {
    return fstatat(number(), name.constData(), &info, AT_SYMLINK_NOFOLLOW) == 0;
}

Place placeOf(const QByteArray& given) {
    QByteArray path = given;
    for (int links = 0; links < mostLinks; ++links) {
        std::array<char, PATH_MAX> target{};
        const ssize_t length = readlink(path.constData(), target.data(), target.size());
        // What can't be read may be a link, which a rename would replace by a file.
        if (length < 0 && errno != EINVAL && errno != ENOENT) failWithErrno();
        if (length < 0) return {parentOf(path), path.sliced(path.lastIndexOf('/') + 1)};
        const QByteArray next(target.data(), static_cast<qsizetype>(length));
        path = next.startsWith('/') ? next : parentOf(path) + '/' + next;
    }
    throw RuntimeFailure::fromErrno(ELOOP);
}

} // namespace torvane
