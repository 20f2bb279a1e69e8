// SPDX-License-Identifier: MIT
// What all users of file descriptors need: a handle that closes itself, calls that continue after a signal,
// and a failure made from errno.
#pragma once

#include "RuntimeFailure.h"

#include <QByteArray>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace torvane {

[[noreturn]] inline void failWithErrno() { throw RuntimeFailure::fromErrno(errno); }

/// Fails because another program has changed a file that is about to be replaced or copied.
[[noreturn]] inline void failAsChanged() {
    throw RuntimeFailure(RuntimeFailure::permissionDenied, RuntimeFailure::Reason::changed);
}

/// Repeats a system call as long as a signal interrupts it; returns its result.
template <typename Call>
auto uninterrupted(Call&& call) {
    for (;;) {
        const auto result = call();
        if (result >= 0 || errno != EINTR) return result;
    }
}

/// An open file descriptor, closed at the end of its scope.
class Handle {
public:
    Handle() = default;
    explicit Handle(int opened) : m_number(opened) {}
    Handle(Handle&& other) noexcept : m_number(other.release()) {}
    Handle& operator=(Handle&& other) noexcept {
        if (this != &other) {
            reset();
            m_number = other.release();
        }
        return *this;
    }
    ~Handle() { reset(); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    int number() const { return m_number; }
    bool isOpen() const { return m_number >= 0; }

private:
    void reset() {
        // What must be on the disk was synced before, so an error here does not matter.
        if (m_number >= 0) close(m_number);
        m_number = -1;
    }
    int release() {
        const int number = m_number;
        m_number = -1;
        return number;
    }

    int m_number = -1;
};

/// Owns an opened descriptor; fails with errno if the number is negative.
inline Handle opened(int number) {
    if (number < 0) failWithErrno();
    return Handle(number);
}

inline struct stat infoOf(const Handle& handle) {
    struct stat info {};
    if (fstat(handle.number(), &info) != 0) failWithErrno();
    return info;
}

/// Whether two stat() results are of the same file.
inline bool isSameFile(const struct stat& one, const struct stat& other) {
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

/// Whether two stat() results are of the same file, with nothing written to it in between.
inline bool isSameState(const struct stat& one, const struct stat& other) {
    return isSameFile(one, other) && one.st_size == other.st_size &&
           one.st_mtim.tv_sec == other.st_mtim.tv_sec && one.st_mtim.tv_nsec == other.st_mtim.tv_nsec;
}

/// Reads at most `count` bytes from a position counted from 0; returns how many, fewer at the end of the
/// file.
qint64 readInto(const Handle& file, qint64 position, char* bytes, qint64 count);
/// At most `count` bytes from a position counted from 0; fewer at the end of the file.
QByteArray bytesOf(const Handle& file, qint64 position, qint64 count);
/// All bytes of a file; fails with outOfMemory at 2 GiB or more.
QByteArray allBytesOf(const Handle& file);
/// Writes all bytes at the handle's position. A failure gives the reason, and `bytes` is then what was not
/// written.
void writeAll(const Handle& file, QByteArrayView& bytes);

} // namespace torvane
