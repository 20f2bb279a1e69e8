// SPDX-License-Identifier: MIT
// Owner, group and mode of replaced files.
#include "FileRights.h"

namespace torvane::FileRights {

namespace {
mode_t newFileMode() {
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

// The others' rights in the place of the group's.
mode_t withoutGroup(mode_t mode) {
    return (mode & ~static_cast<mode_t>(S_IRWXG | S_ISGID)) | (mode & S_IRWXO) << 3;
}

// What is told where an owner can't be given: it is not allowed, means nobody here, or there are no owners.
bool isRefusal(int error) { return error == EPERM || error == EINVAL || error == ENOSYS || error == ENOTSUP; }

// Gives owner and group as far as possible, and the mode that is right then.
mode_t giveOwner(const Handle& fresh, const struct stat& former) {
    const mode_t mode = former.st_mode & 07777;
    if (fchown(fresh.number(), former.st_uid, former.st_gid) == 0) return mode;
    if (!isRefusal(errno)) failWithErrno();
    // What another user wrote must not run with the rights of who saved it.
    const mode_t ownMode = mode & ~static_cast<mode_t>(S_ISUID);
    if (fchown(fresh.number(), static_cast<uid_t>(-1), former.st_gid) == 0) return ownMode;
    if (!isRefusal(errno)) failWithErrno();
    return withoutGroup(ownMode);
}
} // namespace

void give(const Handle& fresh, const struct stat* former) {
    const mode_t mode = former != nullptr ? giveOwner(fresh, *former) : newFileMode();
    if (fchmod(fresh.number(), mode) == 0) return;
    // A file system without modes has nothing to keep.
    if (errno != ENOSYS && errno != ENOTSUP) failWithErrno();
}

void refuseUnlessWritable(const QByteArray& path) {
    struct stat info {};
    if (stat(path.constData(), &info) != 0) {
        if (errno == ENOENT || errno == ENOTDIR) return;
        failWithErrno();
    }
    if (!S_ISREG(info.st_mode)) throw RuntimeFailure(RuntimeFailure::pathAccess);
    if (access(path.constData(), W_OK) != 0) failWithErrno();
}

} // namespace torvane::FileRights
