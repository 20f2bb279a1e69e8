// SPDX-License-Identifier: MIT
// Replacing, copying and appending. Change, which minds other programs, is in SafeFileChange.cpp.
#include "SafeFile.h"
#include "AppendNote.h"
#include "Arrival.h"
#include "FileRights.h"
#include "Lease.h"
#include "Paths.h"

#include <chrono>
#include <thread>

namespace torvane::SafeFile {

namespace {
constexpr int mostLooks = 20; // at one a millisecond: who holds the file open for longer reads it

// Another program may have removed the file or written into it.
void requireLength(const Handle& file, qint64 expected) {
    const struct stat now = infoOf(file);
    if (now.st_nlink == 0) throw RuntimeFailure(RuntimeFailure::fileNotFound);
    if (now.st_size != expected) failAsChanged();
}

// Takes away what was written. It need not stand at the former end: another program may have changed the
// length just before.
bool takeBack(const Handle& file, AppendNote::Content content, qsizetype written) {
    if (written > 0) content.length = lseek(file.number(), 0, SEEK_CUR) - written;
    return AppendNote::cutBack(file, content);
}

// Who is still writing the file would write over the line. That there is no writer can only be seen before
// the file is open for writing here, and one may come just then: whoever has it open now, perhaps to read it,
// has it looked at once more.
Handle openedAlone(const std::function<Handle(int)>& openAs) {
    for (int i = 1;; ++i) {
        const bool hasLeases = takeLease(openAs(O_RDONLY));
        Handle file = openAs(O_RDWR | O_APPEND); // readable, so that a cut can see what it takes away
        if (!hasLeases || holdUpOthers(file) || i == mostLooks) return file;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

bool appendTo(const QByteArray& target, const std::function<QByteArray(qint64)>& bytesBehind,
              const std::function<bool(const Handle&)>& isWanted) {
    const Place place = placeOf(target);
    const Folder folder(place.folder);
    const auto openAs = [&](int flags) {
        // Without O_NONBLOCK a pipe in the games folder would hold up the interface for good.
        return opened(uninterrupted(
            [&] { return openat(folder.number(), place.name.constData(), flags | O_CLOEXEC | O_NONBLOCK); }));
    };
    const Handle file = openedAlone(openAs);
    const struct stat info = infoOf(file);
    if (!S_ISREG(info.st_mode)) throw RuntimeFailure(RuntimeFailure::pathAccess);
    const AppendNote::Content content{place.name, info.st_size, bytesBehind(info.st_size)};
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
        const auto copy = Arrival::ofCopy(Paths::real(sourcePath), Paths::real(targetPath), source);
        if (!copy) throw RuntimeFailure(RuntimeFailure::permissionDenied, RuntimeFailure::Reason::sameFile);
        copy->commit();
    });
}

bool append(const QString& path, const std::function<QByteArray(qint64)>& bytesBehind,
            const std::function<bool(const Handle&)>& isWanted) {
    return aboutFile(path, [&] { return appendTo(Paths::real(path), bytesBehind, isWanted); });
}

} // namespace torvane::SafeFile
