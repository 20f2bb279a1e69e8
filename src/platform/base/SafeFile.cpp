// SPDX-License-Identifier: MIT
// Replacing, copying and appending. Change, which also detects other programs' changes, is in
// SafeFileChange.cpp.
#include "SafeFile.h"
#include "Arrival.h"
#include "FileRights.h"
#include "Lease.h"
#include "Paths.h"

#include <chrono>
#include <thread>

namespace torvane::SafeFile {

namespace {
constexpr int mostLooks = 20; // 1 ms apart: a program that holds the file open for longer is a reader

// Fails if another program has removed the file or changed its length.
void requireLength(const Handle& file, qint64 expected) {
    const struct stat now = infoOf(file);
    if (now.st_nlink == 0) throw RuntimeFailure(RuntimeFailure::fileNotFound);
    if (now.st_size != expected) failAsChanged();
}

// Removes what was written. It need not begin at the old end: another program may have changed the length
// just before.
bool undoWrite(const Handle& file, TailChange change, qsizetype written) {
    if (written > 0) change.start = lseek(file.number(), 0, SEEK_CUR) - written;
    return TailNote::restore(file, change);
}

// A program that is still writing the file would overwrite the line. Writers can only be detected before the
// file is open for writing here, and one may open it right then. So if any program has it open now, perhaps
// only to read, the check is repeated.
Handle openedAlone(const std::function<Handle(int)>& openAs) {
    for (int i = 1;; ++i) {
        const bool hasLeases = takeLease(openAs(O_RDONLY));
        Handle file = openAs(O_RDWR | O_APPEND); // readable, so that a cut can check what it removes
        if (!hasLeases || holdUpOthers(file) || i == mostLooks) return file;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

bool appendTo(const QByteArray& target, const std::function<QByteArray(qint64)>& bytesAt,
              const std::function<bool(const Handle&)>& isWanted, const Afterwards& afterwards) {
    const Place place = placeOf(target);
    const Folder folder(place.folder);
    const auto openAs = [&](int flags) {
        // Without O_NONBLOCK a pipe in the games folder would block the interface for ever.
        return openedOnceReleased(
            [&] { return openat(folder.number(), place.name.constData(), flags | O_CLOEXEC | O_NONBLOCK); });
    };
    const Handle file = openedAlone(openAs);
    const struct stat info = infoOf(file);
    if (!S_ISREG(info.st_mode)) throw RuntimeFailure(RuntimeFailure::pathAccess);
    const TailChange change{place.name, info.st_ino, info.st_size, {}, bytesAt(info.st_size)};
    requireLength(file, change.start);
    if (isWanted && !isWanted(file)) return false;
    TailNote note(folder, {change});
    QByteArrayView rest = change.after;
    try {
        writeAll(file, rest);
        if (afterwards) afterwards(file);
        if (uninterrupted([&] { return fsync(file.number()); }) != 0) failWithErrno();
        requireLength(file, change.start + change.after.size());
    } catch (const RuntimeFailure&) {
        if (!undoWrite(file, change, change.after.size() - rest.size())) note.leave();
        throw;
    }
    return true;
}
} // namespace

void replace(const QString& path, const QByteArray& bytes) {
    aboutFile(path, [&] {
        const QByteArray target = Paths::real(path);
        const Place place = placeOf(target);
        FileRights::refuseUnlessWritable(target);
        Arrival arrival(place);
        arrival.fresh().write(bytes);
        arrival.commit();
    });
}

void copy(const QString& sourcePath, const QString& targetPath) {
    aboutFile(targetPath, [&] {
        struct stat source {};
        const auto copy = Arrival::ofCopy(Paths::real(sourcePath), Paths::realToCreate(targetPath), source);
        if (!copy) throw RuntimeFailure(RuntimeFailure::permissionDenied, RuntimeFailure::Reason::sameFile);
        copy->commit();
    });
}

bool append(const QString& path, const std::function<QByteArray(qint64)>& bytesAt,
            const std::function<bool(const Handle&)>& isWanted, const Afterwards& afterwards) {
    return aboutFile(path, [&] { return appendTo(Paths::real(path), bytesAt, isWanted, afterwards); });
}

} // namespace torvane::SafeFile
