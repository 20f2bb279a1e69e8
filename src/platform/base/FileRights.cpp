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

// The mode with the others' permissions for the group, too.
mode_t withoutGroup(mode_t mode) {
    return (mode & ~static_cast<mode_t>(S_IRWXG | S_ISGID)) | (mode & S_IRWXO) << 3;
}

// Errors where an owner can't be set: not permitted, unknown in this namespace, or no owners on this file
// system.
bool isRefusal(int error) { return error == EPERM || error == EINVAL || error == ENOSYS || error == ENOTSUP; }

// Sets owner and group as far as possible, and returns the mode that is right for them.
mode_t giveOwner(const Handle& fresh, const struct stat& previous) {
    const mode_t mode = previous.st_mode & 07777;
    if (fchown(fresh.number(), previous.st_uid, previous.st_gid) == 0) return mode;
    if (!isRefusal(errno)) failWithErrno();
    // What another user wrote must not run with the permissions of the user who saved it.
    const mode_t ownMode = mode & ~static_cast<mode_t>(S_ISUID);
    if (fchown(fresh.number(), static_cast<uid_t>(-1), previous.st_gid) == 0) return ownMode;
    if (!isRefusal(errno)) failWithErrno();
    return withoutGroup(ownMode);
}
} // namespace

void give(const Handle& fresh, const struct stat* previous) {
    const mode_t mode = previous != nullptr ? giveOwner(fresh, *previous) : newFileMode();
    if (fchmod(fresh.number(), mode) == 0) return;
    // A file system without modes has nothing to preserve.
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
