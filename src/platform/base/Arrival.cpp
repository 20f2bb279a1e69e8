// SPDX-License-Identifier: MIT
// Writing new files and renaming them to their final names.
#include "Arrival.h"
#include "FileRights.h"
#include "Lease.h"
#include "Paths.h"

#include <cstdio>

namespace torvane {

namespace {
bool isAt(const QByteArray& path, const struct stat& file) {
    struct stat there {};
    return stat(path.constData(), &there) == 0 && isSameFile(there, file);
}

Handle openedForCopy(const QByteArray& path, struct stat& state) {
    Handle file =
        openedOnceReleased([&] { return open(path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK); });
    state = infoOf(file);
    if (!S_ISREG(state.st_mode)) throw RuntimeFailure(RuntimeFailure::pathAccess);
    return file;
}
} // namespace

std::unique_ptr<Arrival> Arrival::ofCopy(const QByteArray& from, const QByteArray& target, struct stat& state,
                                         const std::function<void()>& betweenBlocks) {
    const QString sourcePath = Paths::spelled(from);
    const Handle source = aboutFile(sourcePath, [&] { return openedForCopy(from, state); });
    const Place place = placeOf(target);
    if (isAt(target, state)) return nullptr;
    FileRights::refuseUnlessWritable(target);
    auto arrival = std::make_unique<Arrival>(place);
    arrival->m_fresh.copyFrom(source, state.st_size, betweenBlocks);
    aboutFile(sourcePath, [&] {
        if (!isSameState(state, infoOf(source))) failAsChanged();
    });
    const timespec times[2] = {{0, UTIME_OMIT}, state.st_mtim};
    futimens(arrival->m_fresh.handle().number(), times);
    return arrival;
}

void Arrival::applyPermissions() const {
    struct stat replaced {};
    const bool replaces = m_folder.stat(m_place.name, replaced);
    // If stat() fails otherwise, the file exists, and it has permissions to keep.
    if (!replaces && errno != ENOENT) failWithErrno();
    FileRights::give(m_fresh.handle(), replaces ? &replaced : nullptr);
}

void Arrival::rename() {
    const int folder = m_folder.number();
    const int renamed = uninterrupted(
        [&] { return renameat(folder, m_fresh.name().constData(), folder, m_place.name.constData()); });
    if (renamed != 0) failWithErrno();
    m_fresh.forget();
}

bool Arrival::renameIfFree() {
    const int folder = m_folder.number();
    const int renamed = uninterrupted([&] {
        return renameat2(folder, m_fresh.name().constData(), folder, m_place.name.constData(),
                         RENAME_NOREPLACE);
    });
    if (renamed == 0) {
        m_fresh.forget();
        return true;
    }
    if (errno == EEXIST) return false;
    if (errno != EINVAL && errno != ENOSYS) failWithErrno();
    struct stat taken {};
    if (m_folder.stat(m_place.name, taken)) return false;
    rename();
    return true;
}

void Arrival::commit() {
    applyPermissions();
    m_fresh.sync();
    rename();
    m_folder.sync();
}

} // namespace torvane
