// SPDX-License-Identifier: MIT
// Replacing, copying and appending. Change, which minds other programs, is in SafeFileChange.cpp.
#include "SafeFile.h"
#include "AppendNote.h"
#include "FileRights.h"
#include "Lease.h"
#include "Paths.h"

namespace torvane::SafeFile {

namespace {
// A new file on its way to a name of a folder, whatever stands there.
class Arrival {
public:
    explicit Arrival(const Place& place)
        : m_folder(place.folder), m_name(place.name), m_fresh(m_folder, HiddenFile::replacement) {}

    const HiddenFile& fresh() const { return m_fresh; }

    void arrive() {
        struct stat former {};
        const bool replaces = m_folder.stat(m_name, former);
        // A file that can't be looked at is there all the same, and has rights to keep.
        if (!replaces && errno != ENOENT) failWithErrno();
        FileRights::give(m_fresh.handle(), replaces ? &former : nullptr);
        m_fresh.sync();
        const int folder = m_folder.number();
        const int renamed = uninterrupted(
            [&] { return renameat(folder, m_fresh.name().constData(), folder, m_name.constData()); });
        if (renamed != 0) failWithErrno();
        m_fresh.forget();
        m_folder.sync();
    }

private:
    Folder m_folder;
    QByteArray m_name;
    HiddenFile m_fresh;
};

void refuseSameFile(const struct stat& source, const QByteArray& target) {
    struct stat other {};
    const bool same = stat(target.constData(), &other) == 0 && source.st_dev == other.st_dev &&
                      source.st_ino == other.st_ino;
    if (same) throw RuntimeFailure(RuntimeFailure::permissionDenied);
}

bool isSameState(const struct stat& one, const struct stat& other) {
    return one.st_size == other.st_size && one.st_mtim.tv_sec == other.st_mtim.tv_sec &&
           one.st_mtim.tv_nsec == other.st_mtim.tv_nsec;
}

// Another program may have removed the file or written into it.
void requireLength(const Handle& file, qint64 expected) {
    const struct stat now = infoOf(file);
    if (now.st_nlink == 0) throw RuntimeFailure(RuntimeFailure::fileNotFound);
    if (now.st_size != expected) throw RuntimeFailure(RuntimeFailure::permissionDenied);
}

// Takes away what was written. It need not stand at the former end: another program may have changed the
// length just before.
bool takeBack(const Handle& file, AppendNote::Content content, qsizetype written) {
    if (written > 0) content.length = lseek(file.number(), 0, SEEK_CUR) - written;
    return AppendNote::cutBack(file, content);
}
} // namespace

void replace(const QString& path, const QByteArray& bytes) {
    const QByteArray target = Paths::real(path);
    const Place place = placeOf(target);
    FileRights::refuseUnlessWritable(target);
    Arrival arrival(place);
    arrival.fresh().write(bytes);
    arrival.arrive();
}

void copy(const QString& sourcePath, const QString& targetPath) {
    const QByteArray from = Paths::real(sourcePath);
    const Handle source =
        opened(uninterrupted([&] { return open(from.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK); }));
    const struct stat before = infoOf(source);
    if (!S_ISREG(before.st_mode)) throw RuntimeFailure(RuntimeFailure::pathAccess);
    const QByteArray target = Paths::real(targetPath);
    const Place place = placeOf(target);
    refuseSameFile(before, target);
    FileRights::refuseUnlessWritable(target);
    Arrival arrival(place);
    arrival.fresh().copyFrom(source);
    if (!isSameState(before, infoOf(source))) throw RuntimeFailure(RuntimeFailure::permissionDenied);
    const timespec times[2] = {{0, UTIME_OMIT}, before.st_mtim};
    futimens(arrival.fresh().handle().number(), times);
    arrival.arrive();
}

bool append(const QString& path, const std::function<QByteArray(qint64)>& bytesBehind,
            const std::function<bool(const Handle&)>& isWanted) {
    const QByteArray target = Paths::real(path);
    const Place place = placeOf(target);
    const Folder folder(place.folder);
    const auto openAs = [&](int flags) {
        // Without O_NONBLOCK a pipe in the games folder would hold up the interface for good.
        return opened(uninterrupted(
            [&] { return openat(folder.number(), place.name.constData(), flags | O_CLOEXEC | O_NONBLOCK); }));
    };
    // Who is still writing the file would write over the line.
    takeLease(openAs(O_RDONLY));
    const Handle file = openAs(O_RDWR | O_APPEND); // readable, so that a cut can see what it takes away
    const struct stat info = infoOf(file);
    if (!S_ISREG(info.st_mode)) throw RuntimeFailure(RuntimeFailure::pathAccess);
    const AppendNote::Content content{place.name, info.st_size, bytesBehind(info.st_size)};
    holdUpOthers(file);
    requireLength(file, content.length);
    if (isWanted && !isWanted(file)) return false;
    AppendNote note(folder, content);
    QByteArrayView rest = content.bytes;
    try {
        writeAll(file, rest);
        if (uninterrupted([&] { return fsync(file.number()); }) != 0) failWithErrno();
        requireLength(file, content.length + content.bytes.size());
    } catch (const RuntimeFailure&) {
        if (!takeBack(file, content, content.bytes.size() - rest.size())) note.leave();
        throw;
    }
    return true;
}

} // namespace torvane::SafeFile
