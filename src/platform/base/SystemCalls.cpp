// SPDX-License-Identifier: MIT
// Complete reads and writes, where the system may do only a part.
#include "SystemCalls.h"

#include <cstdint>
#include <limits>
#include <sys/mman.h>

namespace torvane {

namespace {
// The system hands out memory for a large file in half the time if it may do so by huge pages. Only a hint:
// where there are none, nothing changes.
void preferHugePages(char* bytes, qint64 count) {
    constexpr std::uintptr_t page = 2 << 20;
    const auto start = reinterpret_cast<std::uintptr_t>(bytes);
    const std::uintptr_t first = (start + page - 1) / page * page;
    const std::uintptr_t end = (start + static_cast<std::uintptr_t>(count)) / page * page;
    if (first < end) madvise(bytes + (first - start), end - first, MADV_HUGEPAGE);
}
} // namespace

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
    preferHugePages(bytes.data(), count);
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
