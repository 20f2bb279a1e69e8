// SPDX-License-Identifier: MIT
// One open file, over system calls: unbuffered, so that reading a tag reads no more than it needs.
#include "File.h"
#include "Lease.h"
#include "Paths.h"

namespace torvane {

namespace {
Handle openedRegular(const QByteArray& path) {
    // Without O_NONBLOCK a pipe in the games folder would block the interface for ever.
    Handle file =
        openedOnceReleased([&] { return open(path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK); });
    if (!S_ISREG(infoOf(file).st_mode)) throw RuntimeFailure(RuntimeFailure::pathAccess);
    return file;
}
void unlinkFile(const QByteArray& path) {
    if (unlink(path.constData()) != 0) failWithErrno();
}
} // namespace

File::File(const QString& path)
    : m_handle(aboutFile(path, [&] { return openedRegular(Paths::real(path)); })) {}

File File::ofReal(const QByteArray& path) { return File(openedRegular(path)); }

qint64 File::length() const { return infoOf(m_handle).st_size; }

QByteArray File::readAt(qint64 position, qint64 count) const { return bytesOf(m_handle, position, count); }

QByteArray File::readAll() const { return allBytesOf(m_handle); }

QByteArray File::contentOf(const QString& path, qint64 most) {
    return aboutFile(path, [&] {
        const File file(path);
        if (file.length() > most) throw RuntimeFailure(RuntimeFailure::outOfMemory);
        return file.readAll();
    });
}

void File::remove(const QString& path) {
    aboutFile(path, [&] { unlinkFile(Paths::real(path)); });
}

void File::removeExactly(const QString& path) {
    aboutFile(path, [&] { unlinkFile(Paths::realToCreate(path)); });
}

bool File::exists(const QString& path) {
    struct stat info {};
    return stat(Paths::real(path).constData(), &info) == 0;
}

bool File::isFolder(const QString& path) {
    struct stat info {};
    return stat(Paths::real(path).constData(), &info) == 0 && S_ISDIR(info.st_mode);
}

} // namespace torvane
