// SPDX-License-Identifier: MIT
// The replaced calls on names.
#include "Recorder.h"
#include "Through.h"

#include <cstdarg>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace torvane::faults;

namespace {
template <typename Open>
int openThrough(int folder, const char* path, int flags, Open real) {
    const bool mayWrite = (flags & (O_CREAT | O_WRONLY | O_RDWR)) != 0;
    const bool makes = record::isOn() && (flags & O_CREAT) != 0 && !record::isThere(folder, path);
    const int handle =
        through(mayWrite ? Call::create : Call::open, {folder, path}, [&](bool) { return real(); });
    if (handle >= 0 && makes) record::made(handle, folder, path);
    return handle;
}

template <typename Rename>
int renameThrough(const Target& from, const Target& to, unsigned flags, Rename real) {
    const int result = through(Call::rename, to, [&](bool) {
        const int renamed = real();
        if (renamed == 0) noteRename(to);
        return renamed;
    });
    if (result == 0 && record::isOn()) record::renamed(from.handle, from.name, to.handle, to.name, flags);
    return result;
}

template <typename Unlink>
int unlinkThrough(int folder, const char* path, Unlink real) {
    const int result = through(Call::unlink, {folder, path}, [&](bool) { return real(); });
    if (result == 0 && record::isOn()) record::unlinked(folder, path);
    return result;
}
} // namespace

// NOLINTBEGIN: the signatures and the spellings are those of the C library.
#define OPEN_CALL(name)                                                                                      \
    extern "C" int name(const char* path, int flags, ...) {                                                  \
        va_list rest;                                                                                        \
        va_start(rest, flags);                                                                               \
        const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;                               \
        va_end(rest);                                                                                        \
        static const auto real = next<int(const char*, int, ...)>(#name);                                    \
        return openThrough(AT_FDCWD, path, flags, [&] { return real(path, flags, mode); });                  \
    }
#define OPENAT_CALL(name)                                                                                    \
    extern "C" int name(int folder, const char* path, int flags, ...) {                                      \
        va_list rest;                                                                                        \
        va_start(rest, flags);                                                                               \
        const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;                               \
        va_end(rest);                                                                                        \
        static const auto real = next<int(int, const char*, int, ...)>(#name);                               \
        return openThrough(folder, path, flags, [&] { return real(folder, path, flags, mode); });            \
    }
#define STAT_CALL(name, info_type)                                                                           \
    extern "C" int name(const char* path, info_type* info) noexcept {                                        \
        static const auto real = next<int(const char*, info_type*)>(#name);                                  \
        return through(Call::look, {AT_FDCWD, path}, [&](bool) { return real(path, info); });                \
    }
#define FSTATAT_CALL(name, info_type)                                                                        \
    extern "C" int name(int folder, const char* path, info_type* info, int flags) noexcept {                 \
        static const auto real = next<int(int, const char*, info_type*, int)>(#name);                        \
        return through(Call::look, {folder, path}, [&](bool) { return real(folder, path, info, flags); });   \
    }

OPEN_CALL(open)
OPEN_CALL(open64)
OPENAT_CALL(openat)
OPENAT_CALL(openat64)
STAT_CALL(stat, struct stat)
STAT_CALL(lstat, struct stat)
STAT_CALL(stat64, struct stat64)
STAT_CALL(lstat64, struct stat64)
FSTATAT_CALL(fstatat, struct stat)
FSTATAT_CALL(fstatat64, struct stat64)

extern "C" int access(const char* path, int mode) noexcept {
    static const auto real = next<int(const char*, int)>("access");
    return through(Call::look, {AT_FDCWD, path}, [&](bool) { return real(path, mode); });
}

extern "C" ssize_t readlink(const char* path, char* target, size_t size) noexcept {
    static const auto real = next<ssize_t(const char*, char*, size_t)>("readlink");
    return through(Call::look, {AT_FDCWD, path}, [&](bool) { return real(path, target, size); });
}

extern "C" int rename(const char* from, const char* to) noexcept {
    static const auto real = next<int(const char*, const char*)>("rename");
    return renameThrough({AT_FDCWD, from}, {AT_FDCWD, to}, 0, [&] { return real(from, to); });
}

extern "C" int renameat(int fromFolder, const char* from, int toFolder, const char* to) noexcept {
    static const auto real = next<int(int, const char*, int, const char*)>("renameat");
    return renameThrough({fromFolder, from}, {toFolder, to}, 0,
                         [&] { return real(fromFolder, from, toFolder, to); });
}

extern "C" int renameat2(int fromFolder, const char* from, int toFolder, const char* to,
                         unsigned flags) noexcept {
    static const auto real = next<int(int, const char*, int, const char*, unsigned)>("renameat2");
    return renameThrough({fromFolder, from}, {toFolder, to}, flags,
                         [&] { return real(fromFolder, from, toFolder, to, flags); });
}

extern "C" int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept {
    static const auto real = next<int(int, const char*, int, const char*, int)>("linkat");
    const int result = through(Call::link, {toFolder, to},
                               [&](bool) { return real(fromFolder, from, toFolder, to, flags); });
    if (result == 0 && record::isOn()) record::linked(fromFolder, from, toFolder, to);
    return result;
}

extern "C" int link(const char* from, const char* to) noexcept {
    return linkat(AT_FDCWD, from, AT_FDCWD, to, 0);
}

extern "C" int unlinkat(int folder, const char* path, int flags) noexcept {
    static const auto real = next<int(int, const char*, int)>("unlinkat");
    return unlinkThrough(folder, path, [&] { return real(folder, path, flags); });
}

extern "C" int unlink(const char* path) noexcept {
    static const auto real = next<int(const char*)>("unlink");
    return unlinkThrough(AT_FDCWD, path, [&] { return real(path); });
}

extern "C" int mkdir(const char* path, mode_t mode) noexcept {
    static const auto real = next<int(const char*, mode_t)>("mkdir");
    const int result = through(Call::makeFolder, {AT_FDCWD, path}, [&](bool) { return real(path, mode); });
    if (result == 0 && record::isOn()) record::folderMade(AT_FDCWD, path);
    return result;
}
// NOLINTEND
