// SPDX-License-Identifier: MIT
// One open file, over the system's calls: unbuffered, so that a look at a tag reads no more than it needs.
#include "File.h"
#include "Paths.h"
#include "RuntimeFailure.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <limits>
#include <sys/stat.h>
#include <unistd.h>

namespace torvane {

namespace {
[[noreturn]] void failWithErrno() { throw RuntimeFailure::fromErrno(errno); }

struct stat infoOf(int handle) {
    struct stat info {};
    if (fstat(handle, &info) != 0) failWithErrno();
    return info;
}

// Writes all bytes or tells the errno that stopped it; 0 for success.
int writeAll(int handle, const QByteArray& bytes) {
    qsizetype done = 0;
    while (done < bytes.size()) {
        const ssize_t written =
            write(handle, bytes.constData() + done, static_cast<size_t>(bytes.size() - done));
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return written == 0 ? ENOSPC : errno;
        done += written;
    }
    return 0;
}
} // namespace

File::File(const QString& path, Mode mode) {
    // Without O_NONBLOCK a pipe in the games folder would hold up the interface for good.
    const int flags = mode == Mode::read ? O_RDONLY : O_WRONLY | O_APPEND | O_CREAT;
    m_handle = open(Paths::real(path).constData(), flags | O_CLOEXEC | O_NONBLOCK, 0666);
    if (m_handle < 0) failWithErrno();
    if (!S_ISREG(infoOf(m_handle).st_mode)) {
        close(m_handle);
        throw RuntimeFailure(RuntimeFailure::pathAccess);
    }
}

File::~File() { close(m_handle); }

qint64 File::length() const { return infoOf(m_handle).st_size; }

QByteArray File::readAt(qint64 position, qint64 count) const {
    QByteArray bytes(static_cast<qsizetype>(count), Qt::Uninitialized);
    qsizetype done = 0;
    while (done < bytes.size()) {
        const ssize_t got =
            pread(m_handle, bytes.data() + done, static_cast<size_t>(bytes.size() - done), position + done);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) failWithErrno();
        if (got == 0) break;
        done += got;
    }
    bytes.truncate(done);
    return bytes;
}

QByteArray File::readAll() const {
    const qint64 all = length();
    // No game is that large; a disk image that lies among them must not take the whole memory.
    if (all > std::numeric_limits<qint32>::max()) throw RuntimeFailure(RuntimeFailure::outOfMemory);
    return readAt(0, all);
}

void File::append(const QByteArray& bytes) {
    const qint64 former = length();
    int error = writeAll(m_handle, bytes);
    if (error == 0 && fsync(m_handle) != 0) error = errno;
    if (error == 0) return;
    while (ftruncate(m_handle, former) != 0 && errno == EINTR) {
    }
    throw RuntimeFailure::fromErrno(error);
}

void File::remove(const QString& path) {
    if (unlink(Paths::real(path).constData()) != 0) failWithErrno();
}

bool File::exists(const QString& path) {
    struct stat info {};
    return stat(Paths::real(path).constData(), &info) == 0;
}

} // namespace torvane
