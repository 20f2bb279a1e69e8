// SPDX-License-Identifier: MIT
// The replaced calls on handles of open files.
#include "Recorder.h"
#include "Through.h"

#include <sys/stat.h>
#include <unistd.h>

using namespace torvane::faults;

namespace {
size_t halfOf(size_t count, bool isHalf) { return isHalf && count > 1 ? count / 2 : count; }

template <typename Sync>
int syncThrough(int handle, Sync real) {
    const int result = through(Call::sync, {handle}, [&](bool) { return real(handle); });
    if (result == 0 && record::isOn()) record::synced(handle);
    return result;
}

template <typename Set>
int rightsThrough(int handle, Set real) {
    const int result = through(Call::rights, {handle}, [&](bool) { return real(); });
    if (result == 0 && record::isOn()) record::rightsSet(handle);
    return result;
}
} // namespace

// NOLINTBEGIN: the signatures and the spellings are those of the C library.
#define PREAD_CALL(name)                                                                                     \
    extern "C" ssize_t name(int handle, void* buffer, size_t count, off_t position) {                        \
        static const auto real = next<ssize_t(int, void*, size_t, off_t)>(#name);                            \
        return through(Call::read, {handle},                                                                 \
                       [&](bool half) { return real(handle, buffer, halfOf(count, half), position); });      \
    }
#define FTRUNCATE_CALL(name)                                                                                 \
    extern "C" int name(int handle, off_t length) noexcept {                                                 \
        static const auto real = next<int(int, off_t)>(#name);                                               \
        const int result = through(Call::truncate, {handle}, [&](bool) { return real(handle, length); });    \
        if (result == 0 && record::isOn()) record::lengthSet(handle, length);                                \
        return result;                                                                                       \
    }
#define SYNC_CALL(name)                                                                                      \
    extern "C" int name(int handle) {                                                                        \
        static const auto real = next<int(int)>(#name);                                                      \
        return syncThrough(handle, real);                                                                    \
    }
#define FSTAT_CALL(name, info_type)                                                                          \
    extern "C" int name(int handle, info_type* info) noexcept {                                              \
        static const auto real = next<int(int, info_type*)>(#name);                                          \
        return through(Call::look, {handle}, [&](bool) { return real(handle, info); });                      \
    }

PREAD_CALL(pread)
PREAD_CALL(pread64)
FTRUNCATE_CALL(ftruncate)
FTRUNCATE_CALL(ftruncate64)
SYNC_CALL(fsync)
SYNC_CALL(fdatasync)
FSTAT_CALL(fstat, struct stat)
FSTAT_CALL(fstat64, struct stat64)

extern "C" ssize_t read(int handle, void* buffer, size_t count) {
    static const auto real = next<ssize_t(int, void*, size_t)>("read");
    return through(Call::read, {handle},
                   [&](bool half) { return real(handle, buffer, halfOf(count, half)); });
}

extern "C" ssize_t write(int handle, const void* data, size_t count) {
    static const auto real = next<ssize_t(int, const void*, size_t)>("write");
    const ssize_t written =
        through(Call::write, {handle}, [&](bool half) { return real(handle, data, halfOf(count, half)); });
    if (written > 0 && record::isOn()) record::wrote(handle, data, written);
    return written;
}

extern "C" int syncfs(int handle) noexcept {
    static const auto real = next<int(int)>("syncfs");
    const int result = through(Call::syncAll, {handle}, [&](bool) { return real(handle); });
    if (result == 0 && record::isOn()) record::allSynced();
    return result;
}

extern "C" int close(int handle) {
    static const auto real = next<int(int)>("close");
    return through(Call::close, {handle}, [&](bool) { return real(handle); });
}

extern "C" int fchmod(int handle, mode_t mode) noexcept {
    static const auto real = next<int(int, mode_t)>("fchmod");
    return rightsThrough(handle, [&] { return real(handle, mode); });
}

extern "C" int fchown(int handle, uid_t owner, gid_t group) noexcept {
    static const auto real = next<int(int, uid_t, gid_t)>("fchown");
    return rightsThrough(handle, [&] { return real(handle, owner, group); });
}

extern "C" int futimens(int handle, const timespec times[2]) noexcept {
    static const auto real = next<int(int, const timespec*)>("futimens");
    return through(Call::rights, {handle}, [&](bool) { return real(handle, times); });
}
// NOLINTEND
