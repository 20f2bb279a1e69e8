// SPDX-License-Identifier: MIT
// Complete reads and writes, where the system may do only a part.
#include "SystemCalls.h"

#include <limits>

namespace torvane {

qint64 readInto(const Handle& file, qint64 position, char* bytes, qint64 count) {
    qint64 done = 0;
    while (done < count) {
        const ssize_t got = uninterrupted([&] {
            return pread(file.number(), bytes + done, static_cast<size_t>(count - done), position + done);
        });
        if (got < 0) failWithErrno();
        if (got == 0) break;
        done += got;
    }
    return done;
}

QByteArray bytesOf(const Handle& file, qint64 position, qint64 count) {
    QByteArray bytes(static_cast<qsizetype>(count), Qt::Uninitialized);
    bytes.truncate(readInto(file, position, bytes.data(), count));
    return bytes;
}

QByteArray allBytesOf(const Handle& file) {
    const qint64 all = infoOf(file).st_size;
    // No game is that large; a disk image among them must not exhaust memory.
    if (all > std::numeric_limits<qint32>::max()) throw RuntimeFailure(RuntimeFailure::outOfMemory);
    return bytesOf(file, 0, all);
}

void writeAll(const Handle& file, QByteArrayView& bytes) {
    while (!bytes.isEmpty()) {
        const ssize_t written = uninterrupted(
            [&] { return ::write(file.number(), bytes.data(), static_cast<size_t>(bytes.size())); });
        if (written < 0) failWithErrno();
        if (written == 0) throw RuntimeFailure(RuntimeFailure::diskFull);
        bytes = bytes.sliced(written);
    }
}

} // namespace torvane
