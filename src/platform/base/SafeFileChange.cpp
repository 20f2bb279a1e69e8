// SPDX-License-Identifier: MIT
// Reading a file and replacing it, while watching for what other programs do to it meanwhile.
#include "FileRights.h"
#include "Lease.h"
#include "Paths.h"
#include "SafeFile.h"

#include <chrono>
#include <cstdio>
#include <sys/file.h>
#include <thread>

namespace torvane::SafeFile {

namespace {
constexpr std::chrono::milliseconds moment(1);
constexpr int mostExchanges = 100; // gives up after 100 lost races
constexpr int mostBusyLooks = 20;  // a program that has the file open for writing for longer keeps it

// Renames a hidden file to the name under which the old file is kept.
void nameKept(const Folder& keeping, HiddenFile& kept, const QByteArray& name) {
    const int renamed = uninterrupted([&] {
        return renameat(keeping.number(), kept.name().constData(), keeping.number(), name.constData());
    });
    if (renamed != 0) failWithErrno();
    // rename(2) does nothing if both names are links to one file: then the hidden name still exists.
    keeping.unlink(kept.name());
    kept.forget();
    keeping.sync();
}
} // namespace

Change::Change(const QString& path, Part part, Patience patience)
    : m_path(Paths::real(path)), m_place(placeOf(m_path)), m_folder(m_place.folder) {
    FileRights::refuseUnlessWritable(m_path);
    int looks = 0;
    const auto attempt = [&] {
        try {
            return hold(part);
        } catch (const RuntimeFailure& failure) {
            // Another run has it open for writing just before it keeps all others from opening it.
            if (failure.reason() != RuntimeFailure::Reason::inUse || ++looks == mostBusyLooks) throw;
            return false;
        }
    };
    untilReleased(attempt, patience == Patience::usual ? usualPatience : std::chrono::milliseconds(0));
}

// False if another program has the file for itself now, or has just replaced it.
bool Change::hold(Part part) {
    m_file = Handle();
    m_file = Handle(openedAs(O_RDONLY));
    if (!m_file.isOpen() && errno != EWOULDBLOCK) failWithErrno();
    if (!m_file.isOpen() || !lock()) return false;
    m_lease = takeLease(m_file) ? F_RDLCK : F_UNLCK;
    if (part == Part::end && m_lease == F_RDLCK && !holdAlone()) return false;
    m_before = infoOf(m_file);
    if (!S_ISREG(m_before.st_mode)) throw RuntimeFailure(RuntimeFailure::pathAccess);
    struct stat named {};
    return m_folder.stat(m_place.name, named) && isSameFile(named, m_before);
}

// Runs of this program change a file one after the other. The file will also have a hidden name for a moment:
// the lock keeps others from sweeping it away. False if another one has the file; where there are no locks,
// nothing can be done.
bool Change::lock() const {
    if (flock(m_file.number(), LOCK_EX | LOCK_NB) == 0) return true;
    if (errno == EWOULDBLOCK) return false;
    flock(m_file.number(), LOCK_SH | LOCK_NB); // all that some file servers offer for a file open for reading
    return true;
}

int Change::openedAs(int flags) const {
    return uninterrupted([this, flags] {
        return openat(m_folder.number(), m_place.name.constData(),
                      flags | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW);
    });
}

// Only who has a file open alone can keep all others from opening it. False as in hold().
bool Change::holdAlone() {
    m_file = Handle();
    m_file = Handle(openedAs(O_RDWR));
    if (m_file.isOpen() && holdUpOthers(m_file)) {
        m_lease = F_WRLCK;
        return lock();
    }
    return hold(Part::any);
}

// Whether no other program has opened the file for writing, or is waiting to. One that waits to read leaves a
// lease for reading of one for writing.
bool Change::isAtMostRead() const {
    const int lease = fcntl(m_file.number(), F_GETLEASE);
    return lease == m_lease || lease == F_RDLCK;
}

bool Change::isUntouched(const Folder& folder, const QByteArray& name) const {
    if (m_lease != F_UNLCK && !isAtMostRead()) return false;
    struct stat now {};
    return folder.stat(name, now) && isSameState(now, m_before);
}

void Change::keepBackup(const QString& folderPath, const QByteArray& name) const {
    const QByteArray path = Paths::real(folderPath);
    Folder::make(path);
    const Folder keeping(path);
    const QByteArray& keptName = name.isEmpty() ? m_place.name : name;
    if (!keepLink(keeping, keptName)) keepCopy(keeping, keptName);
}

// False if no link can be made.
bool Change::keepLink(const Folder& keeping, const QByteArray& name) const {
    // What another program has just written may not be synced yet, and nobody else will sync it.
    sync();
    HiddenFile kept(keeping, HiddenFile::replacement);
    keeping.unlink(kept.name());
    const int linked = uninterrupted([&] {
        return linkat(m_folder.number(), m_place.name.constData(), keeping.number(), kept.name().constData(),
                      0);
    });
    if (linked != 0) return false;
    if (!isUntouched(keeping, kept.name())) failAsChanged();
    nameKept(keeping, kept, name);
    return true;
}

void Change::keepCopy(const Folder& keeping, const QByteArray& name) const {
    HiddenFile kept(keeping, HiddenFile::replacement);
    kept.copyFrom(m_file, m_before.st_size);
    FileRights::give(kept.handle(), &m_before);
    const timespec times[2] = {{0, UTIME_OMIT}, m_before.st_mtim};
    futimens(kept.handle().number(), times);
    kept.sync();
    if (!isUntouched(m_folder, m_place.name)) failAsChanged();
    nameKept(keeping, kept, name);
}

void Change::commit(qint64 kept, std::initializer_list<QByteArrayView> pieces) const {
    HiddenFile fresh(m_folder, HiddenFile::replacement);
    fresh.copyFrom(m_file, kept);
    for (const QByteArrayView piece : pieces) fresh.write(piece);
    const struct stat present = infoOf(m_file); // its permissions may have changed
    FileRights::give(fresh.handle(), &present);
    fresh.sync();
    if (!isUntouched(m_folder, m_place.name)) failAsChanged();
    exchange(fresh);
}

// Exchanges the two files atomically, then checks the one that now has the hidden name: if another program
// changed it first, it is exchanged back. Checks once more a moment later, because a program that resolved
// the name just before the exchange triggers the lease only after it.
void Change::exchange(HiddenFile& fresh) const {
    const int folder = m_folder.number();
    const auto rename = [&](unsigned flags) {
        return uninterrupted([&] {
            return renameat2(folder, fresh.name().constData(), folder, m_place.name.constData(), flags);
        });
    };
    const struct stat ours = infoOf(fresh.handle());
    if (rename(RENAME_EXCHANGE) != 0) {
        if (errno != EINVAL && errno != ENOSYS) failWithErrno();
        if (rename(0) != 0) failWithErrno(); // a file system without atomic exchange
        m_folder.sync();
        return;
    }
    if (isUntouched(m_folder, fresh.name())) {
        m_folder.sync();
        std::this_thread::sleep_for(moment);
        if (isUntouched(m_folder, fresh.name())) return;
    }
    restore(fresh, ours, rename);
    ignoring([this] { m_folder.sync(); });
    failAsChanged();
}

// Exchanges until the file that comes back is the one that was put there last: any other file is newer still.
void Change::restore(HiddenFile& fresh, struct stat put, const std::function<int(unsigned)>& rename) const {
    for (int i = 0; i < mostExchanges; ++i) {
        struct stat given {};
        struct stat back {};
        const bool isKnown = m_folder.stat(fresh.name(), given);
        if (rename(RENAME_EXCHANGE) != 0) break;
        // If stat() fails, assume that the file is ours.
        if (!isKnown || !m_folder.stat(fresh.name(), back) || isSameState(back, put)) return;
        put = given;
    }
    // The other program's file has no name but the hidden one.
    if (rename(RENAME_NOREPLACE) != 0) fresh.forget();
}

} // namespace torvane::SafeFile
