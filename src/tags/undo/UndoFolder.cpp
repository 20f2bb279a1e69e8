// SPDX-License-Identifier: MIT
// Locks: on the folder while somebody looks or begins, on a log while somebody works with it.
#include "UndoFolder.h"

#include <sys/file.h>

namespace torvane {

UndoFolder::UndoFolder(const QByteArray& path) : m_folder(path) {
    uninterrupted([this] { return flock(m_folder.number(), LOCK_EX); });
}

UndoFolder::Holder UndoFolder::holderOf(const Handle& log) {
    if (flock(log.number(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK) return Holder::nobody;
    return flock(log.number(), LOCK_SH | LOCK_NB) == 0 ? Holder::runs : Holder::undo;
}

void UndoFolder::hold(const Handle& log) { flock(log.number(), LOCK_SH | LOCK_NB); }

bool UndoFolder::isAt(const QByteArray& path, const Handle& file) {
    struct stat ours {};
    struct stat named {};
    return fstat(file.number(), &ours) == 0 && stat(path.constData(), &named) == 0 && isSameFile(ours, named);
}

} // namespace torvane
